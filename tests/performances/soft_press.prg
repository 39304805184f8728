<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="soft_press">
	<Joystick/>
	<ComputerInput/>
	<MidiInput/>
	<Layers>
		<Layer minVelocity="20"/>
	</Layers>
	<Zones>
		<Zone id="1" transpose="12"/>
	</Zones>
</Program>
</ProgramFile>
