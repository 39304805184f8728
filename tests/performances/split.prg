<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="split">
	<Layers>
		<Layer maxNote="B3" transpose="-12"/>
		<Layer minNote="C4" maxNote="B4" output="1" channel="1"/>
		<Layer minNote="G4" velocity="90" channel="2"/>
	</Layers>
</Program>
</ProgramFile>
