<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="wild_waves">
	<Oscillators merge="false">
		<Oscillator type="sin" speed="0" detail="1" midiMessage="Controller Change,1" output="0" channel="0"/>
		<Oscillator type="sin" speed="-50" detail="-6" midiMessage="Controller Change,2" output="0" channel="1"/>
		<Oscillator type="sin" speed="50" min="-2147483648" max="2147483647" detail="20" midiMessage="Pitch Bend" output="0" channel="2"/>
		<Oscillator type="saw" speed="1" min="2147483647" max="-2147483648" detail="25" midiMessage="Pitch Bend" output="0" channel="3"/>
		<Oscillator type="saw" speed="-7" min="-3" max="3" detail="0" midiMessage="Pitch Bend" output="0" channel="4"/>
		<Oscillator type="pulse" speed="-30" min="-2147483648" max="2147483647" midiMessage="Pitch Bend" output="0" channel="5"/>
		<Oscillator type="random" speed="3" min="-2147483648" max="2147483647" detail="-2147483648" stopValue="2147483647" midiMessage="Pitch Bend" output="0" channel="6"/>
		<Oscillator type="tri" speed="2147483647" min="64" max="64" detail="2" midiMessage="Controller Change,7" output="1" channel="7"/>
		<Oscillator type="saw" speed="-2147483648" min="2147483647" max="2147483647" detail="1" midiMessage="Controller Change,8" output="1" channel="8"/>
		<Oscillator type="sin" speed="40" min="5" max="5" detail="2147483647" midiMessage="Controller Change,9" output="1" channel="9"/>
		<Oscillator type="random" speed="2" output="0" channel="0"/>
	</Oscillators>
</Program>
</ProgramFile>
