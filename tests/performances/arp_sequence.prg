<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_sequence">
	<Layers>
		<Layer minNote="C3" maxNote="B4">
			<Arpeggio>
				<UpArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12 V20,-,-5|7 V-20</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C5" maxNote="B5" channel="1">
			<Arpeggio>
				<ChordArpeggio beat="120" length="120"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,7</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C6" maxNote="B6" channel="2">
			<Arpeggio>
				<UpDownArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C7" maxNote="B7" channel="3">
			<Arpeggio>
				<UpDownArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12,24</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C8" channel="4">
			<Arpeggio>
				<UpArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>12</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C2" maxNote="B2" channel="5">
			<Arpeggio>
				<DownArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting useNote="false">
				<Sequence>12 V-30</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer maxNote="B1" channel="6">
			<Arpeggio>
				<ChordArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting useVelocity="false">
				<Sequence>12 V-30</Sequence>
			</SequenceSetting>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
