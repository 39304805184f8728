<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="control_following">
	<!-- Controls of controller 7 on one way each; another event of each, straight out, shows its value. -->
	<Controls>
		<Control cell="0,0" type="edit"><Function midiEvent="Controller Change,7"/>
			<Function midiEvent="Controller Change,20" output="0" channel="15"/></Control>
		<Control cell="0,1" type="edit"><Function midiEvent="Controller Change,7" channel="4"/>
			<Function midiEvent="Controller Change,21" output="0" channel="15"/></Control>
		<Control cell="0,2" type="edit"><Function midiEvent="Controller Change,7" output="1" channel="4"/>
			<Function midiEvent="Controller Change,22" output="0" channel="15"/></Control>
		<Control cell="0,3" type="edit"><Function midiEvent="Controller Change,7" zone="2"/>
			<Function midiEvent="Controller Change,23" output="0" channel="15"/></Control>
		<Control cell="0,4" type="edit"><Function midiEvent="Controller Change,7" output="1"/>
			<Function midiEvent="Controller Change,24" output="0" channel="15"/></Control>
		<Control cell="0,5" type="edit"><Function midiEvent="Controller Change,8"/>
			<Function midiEvent="Controller Change,25" output="0" channel="15"/></Control>
		<Control cell="1,0" type="vfader" max="16383"><Function midiEvent="Pitch Bend"/></Control>
		<Control cell="1,1" type="edit" max="16383"><Function midiEvent="Pitch Bend"/></Control>
		<Control cell="1,2" type="knob"><Function midiEvent="Channel Pressure"/></Control>
	</Controls>
	<Layers>
		<Layer/>
	</Layers>
</Program>
</ProgramFile>
