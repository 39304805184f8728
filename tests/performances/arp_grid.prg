<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_grid">
	<Layers>
		<Layer maxNote="B4">
			<Arpeggio>
				<UpArpeggio beat="480" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C5" channel="1">
			<Arpeggio>
				<ChordArpeggio beat="320" length="60"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
