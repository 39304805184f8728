<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="controllers">
	<Layers>
		<Layer channel="3"/>
		<Layer channel="3" minNote="C4" mono="true" transpose="+12" velocity="1"/>
		<Layer channel="3" output="0"/>
		<Layer channel="4"/>
		<Layer channel="3" output="1"/>
		<Layer channel="5" output="2"/>
		<Layer channel="6" mute="true"/>
		<Layer channel="7" zone="1"/>
		<Layer channel="16"/>
		<Layer channel="-1" output="1"/>
	</Layers>
</Program>
</ProgramFile>
