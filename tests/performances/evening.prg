<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="Evening">
	<Oscillators merge="false">
		<Oscillator type="sin" speed="480" min="0" max="127" stopValue="0" detail="10" midiMessage="Controller Change,1"/>
	</Oscillators>
	<Layers merge="false">
		<Layer channel="0">
			<Arpeggio>
				<UpDownArpeggio beat="240" length="120"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12 V-20,7</Sequence>
			</SequenceSetting>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
