<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_chord">
	<Layers>
		<Layer maxNote="B4">
			<Arpeggio>
				<ChordArpeggio beat="480" length="240"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C5" maxNote="B5" channel="1">
			<Arpeggio>
				<ChordArpeggio/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C6" channel="2">
			<Arpeggio>
				<ChordArpeggio beat="120" length="200"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
