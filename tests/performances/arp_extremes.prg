<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_extremes">
	<Layers>
		<Layer minNote="C4" maxNote="B4">
			<Arpeggio>
				<ChordArpeggio beat="0" length="480"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C5" maxNote="B5" channel="1">
			<Arpeggio>
				<UpArpeggio beat="0" length="0"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C6" maxNote="B6" channel="2">
			<Arpeggio>
				<ChordArpeggio beat="480" length="0"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C8" maxNote="B8" channel="7">
			<Arpeggio>
				<ChordArpeggio beat="480" length="-20"/>
			</Arpeggio>
			<SequenceSetting>
				<Sequence>0,12</Sequence>
			</SequenceSetting>
		</Layer>
		<Layer minNote="C7" maxNote="B7" channel="3">
			<Arpeggio>
				<UpArpeggio beat="120" length="-1"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C3" maxNote="B3" channel="4">
			<Arpeggio>
				<ChordArpeggio beat="-120" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C2" maxNote="B2" channel="5">
			<Arpeggio>
				<UpDownArpeggio beat="2147483647" length="2147483647"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C1" maxNote="B1" channel="6">
			<Arpeggio>
				<UpArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting/>
		</Layer>
		<Layer minNote="C0" maxNote="B0" channel="8">
			<Arpeggio>
				<UpArpeggio beat="120" length="60"/>
			</Arpeggio>
			<SequenceSetting><Sequence/></SequenceSetting>
		</Layer>
		<Layer maxNote="B-1" channel="9">
			<Arpeggio>
				<SidewaysArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
