<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="transpose">
	<Layers>
		<Layer zone="0" transpose="+24"/>
		<Layer zone="1" transpose="+20"/>
		<Layer zone="2" transpose="-13"/>
		<Layer zone="3" transpose="60"/>
		<Layer zone="4" transpose="+2" key="C4"/>
		<Layer zone="5" transpose="+2" key="C-1"/>
		<Layer zone="6" transpose="-1" key="D-1"/>
		<Layer zone="7" transpose="1" key="C-1"/>
		<Layer zone="8" transpose="+7" key="C-1"/>
	</Layers>
</Program>
</ProgramFile>
