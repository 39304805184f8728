<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="keep_oscillators2">
	<Oscillators>
		<Oscillator type="saw" speed="60" min="0" max="5" stopValue="7" detail="1" midiMessage="Controller Change,1" output="0" channel="0"/>
		<Oscillator type="pulse" speed="40" min="2" max="6" stopValue="9" detail="1" midiMessage="Controller Change,2" output="1" channel="1"/>
	</Oscillators>
</Program>
</ProgramFile>
