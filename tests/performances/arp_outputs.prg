<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_outputs">
	<Layers>
		<Layer output="1">
			<Arpeggio>
				<ChordArpeggio beat="240" length="120"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
