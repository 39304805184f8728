<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="Demonstration Trio" tempo="120" tempoSource="-1">
	<Joystick/>
	<ComputerInput/>
	<MidiInput/>
	<Layers merge="false">
		<Layer zone="0" channel="0" velocity="-4"/>
		<Layer zone="0" channel="2" minNote="C5" velocity="-30" compress="3_4"/>
		<Layer zone="1" channel="1"/>
		<Layer zone="2" channel="9"/>
	</Layers>
	<Zones merge="false">
		<Zone id="0" transpose="0"/>
		<Zone id="1" transpose="0"/>
		<Zone id="2" transpose="0"/>
	</Zones>
</Program>
</ProgramFile>
