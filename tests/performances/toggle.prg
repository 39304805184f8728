<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="toggle">
	<Layers>
		<Layer toggle="type1" maxNote="B3"/>
		<Layer toggle="type2" minNote="C4" maxNote="B4" channel="1"/>
		<Layer toggle="type1" mono="true" minNote="C5" maxNote="B5" channel="2"/>
		<Layer toggle="type2" mono="true" minNote="C6" channel="3" useNoteStack="false"/>
	</Layers>
</Program>
</ProgramFile>
