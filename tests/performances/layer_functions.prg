<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="layer_functions">
	<Layers>
		<Layer channel="0"/>
		<Layer channel="1"/>
		<Layer channel="2"/>
	</Layers>
</Program>
</ProgramFile>
