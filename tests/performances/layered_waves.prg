<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="layered_waves">
	<Oscillators>
		<Oscillator type="pulse" speed="4" midiMessage="Controller Change,1"/>
		<Oscillator type="pulse" speed="4" midiMessage="Controller Change,1" channel="5"/>
		<Oscillator type="pulse" speed="4" midiMessage="Controller Change,1" output="1"/>
		<Oscillator type="pulse" speed="4" midiMessage="Note On" zone="3" min="60" max="64"/>
	</Oscillators>
	<Joystick/>
	<ComputerInput/>
	<MidiInput/>
	<Layers>
		<Layer channel="2"/>
	</Layers>
	<Zones>
		<Zone id="3" transpose="12"/>
	</Zones>
</Program>
</ProgramFile>
