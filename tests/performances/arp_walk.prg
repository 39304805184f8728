<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_walk">
	<Layers>
		<Layer maxNote="B4">
			<Arpeggio>
				<UpArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C5" maxNote="B5" channel="1">
			<Arpeggio>
				<DownArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C6" maxNote="B6" channel="2">
			<Arpeggio>
				<UpDownArpeggio beat="120" length="60"/>
			</Arpeggio>
		</Layer>
		<Layer minNote="C7" channel="3">
			<Arpeggio>
				<UpArpeggio beat="120" length="120"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
