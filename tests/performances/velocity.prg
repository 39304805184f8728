<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="velocity">
	<Layers>
		<Layer zone="0" velocity="+10" compress="1_2"/>
		<Layer zone="1" velocity="90" compress="1_2"/>
		<Layer zone="2" compress="99_1"/>
		<Layer zone="3" compress="2_3"/>
		<Layer zone="4" velocity="-101"/>
		<Layer zone="5" minVelocity="64" channel="1"/>
		<Layer zone="5" maxVelocity="63" channel="2"/>
	</Layers>
</Program>
</ProgramFile>
