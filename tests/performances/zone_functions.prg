<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="zone_functions">
	<Joystick/>
	<ComputerInput/>
	<MidiInput/>
	<Layers>
		<Layer/>
	</Layers>
	<Zones>
		<Zone id="2"/>
		<Zone id="5" transpose="120"/>
	</Zones>
</Program>
</ProgramFile>
