<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="zones">
	<Joystick/>
	<ComputerInput/>
	<MidiInput/>
	<Layers>
		<Layer zone="0"/>
		<Layer zone="1" channel="1"/>
		<Layer channel="2"/>
	</Layers>
	<Zones>
		<Zone id="0" transpose="12"/>
		<Zone id="1" transpose="-24"/>
		<Zone id="1" transpose="-30"/>
		<Other/>
		<Zone transpose="5" id="7"/>
	</Zones>
</Program>
</ProgramFile>
