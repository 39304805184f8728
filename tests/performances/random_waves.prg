<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="random_waves">
	<Oscillators merge="false">
		<Oscillator type="random" speed="40" min="0" max="127" detail="30" midiMessage="Controller Change,1" output="0" channel="0"/>
		<Oscillator type="random" speed="55" min="100" max="40" stopValue="70" midiMessage="Controller Change,2" output="0" channel="1"/>
		<Oscillator type="random" speed="60" min="-5" max="16383" midiMessage="Pitch Bend" output="1" channel="2"/>
		<Oscillator type="random" speed="20" min="9" max="9" midiMessage="Controller Change,3" output="1" channel="3"/>
	</Oscillators>
</Program>
</ProgramFile>
