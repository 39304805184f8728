<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="functions">
	<Layers>
		<Layer channel="0"/>
		<Layer channel="3"/>
	</Layers>
</Program>
</ProgramFile>
