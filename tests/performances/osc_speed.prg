<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="oscillator speed">
	<Oscillators merge="false">
		<Oscillator type="pulse" speed="64" min="1" max="2" midiMessage="Controller Change,1" output="0" channel="0"/>
		<Oscillator type="pulse" speed="64" min="1" max="2" midiMessage="Controller Change,2" output="0" channel="0"/>
	</Oscillators>
</Program>
</ProgramFile>
