<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="arp_slices">
	<Layers>
		<Layer >
			<Arpeggio>
				<UpArpeggio beat="60" length="30"/>
			</Arpeggio>
		</Layer>
	</Layers>
</Program>
</ProgramFile>
