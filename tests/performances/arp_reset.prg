<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_reset">
	<Layers>
		<Layer maxNote="B4">
			<Arpeggio>
				<ChordArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C5" channel="1">
			<Arpeggio>
				<UpDownArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12</Sequence>
			</SequenceSetting>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
