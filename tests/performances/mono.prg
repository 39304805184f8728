<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="mono">
	<Layers>
		<Layer mono="true" maxNote="B4"/>
		<Layer mono="true" minNote="C5" maxNote="B5" useNoteStack="false" channel="1"/>
		<Layer mono="true" minNote="C6" channel="2"/>
	</Layers>
</Program>
</ProgramFile>
