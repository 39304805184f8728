<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="zone_gone">
	<Joystick/>
	<ComputerInput/>
	<MidiInput/>
	<Layers>
		<Layer/>
	</Layers>
	<Zones>
		<Zone id="5" transpose="12"/>
		<Zone id="6" transpose="1"/>
	</Zones>
</Program>
</ProgramFile>
