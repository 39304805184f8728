<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_keeping">
	<Layers>
		<Layer mono="true" maxNote="B4">
			<Arpeggio>
				<UpArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer toggle="type1" minNote="C5" maxNote="B5" channel="1">
			<Arpeggio>
				<ChordArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer toggle="type2" minNote="C6" channel="2">
			<Arpeggio>
				<UpDownArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
