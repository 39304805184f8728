<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="waves">
	<Oscillators merge="false">
		<Oscillator type="sin" speed="480" detail="10" midiMessage="Controller Change,1" output="0" channel="0"/>
		<Oscillator type="sin" speed="97" min="127" max="0" detail="3" stopValue="64" midiMessage="Controller Change,2" output="0" channel="1"/>
		<Oscillator type="tri" speed="120" min="20" max="90" detail="4" midiMessage="Controller Change,3" output="0" channel="2"/>
		<Oscillator type="tri" speed="77" min="5" max="-3" detail="1" stopValue="0" midiMessage="Controller Change,4" output="0" channel="3"/>
		<Oscillator type="saw" speed="40" min="10" max="13" detail="1" midiMessage="Controller Change,5" output="1" channel="4"/>
		<Oscillator type="saw" speed="333" min="100" max="0" detail="5" midiMessage="Controller Change,6" output="1" channel="5"/>
		<Oscillator type="pulse" speed="50" min="1" max="99" detail="30" midiMessage="Controller Change,7" output="1" channel="6"/>
		<Oscillator type="pulse" speed="61" min="127" max="0" detail="0" midiMessage="Controller Change,8" output="1" channel="7"/>
		<Oscillator type="sin" speed="480" min="0" max="16383" detail="5" stopValue="8192" midiMessage="Pitch Bend" output="0" channel="8"/>
		<Oscillator type="saw" speed="30720" min="16383" max="0" detail="7" midiMessage="Pitch Bend" output="1" channel="9"/>
	</Oscillators>
</Program>
</ProgramFile>
