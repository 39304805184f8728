<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="controls">
	<Controls>
		<Control cell="0,0" type="vfader" max="16383"><Function midiEvent="Pitch Bend"/></Control>
		<Control cell="0,1" type="knob" min="100" max="20" value="50"><Function midiEvent="Controller Change,10"/></Control>
		<Control cell="0,2" type="label" value="1"><Function midiEvent="Controller Change,11"/></Control>
		<Control cell="1,0" type="vfader"><Function midiEvent="Controller Change,0"/></Control>
		<Control cell="1,1" type="edit"><Function midiEvent="Controller Change,0"/></Control>
		<Control cell="1,2" type="edit" value="3" autoSend="true"><Function midiEvent="Controller Change,32"/></Control>
		<Control cell="1,3" type="edit" value="7" autoSend="true"><Function midiEvent="Program Change"/></Control>
		<Control cell="2,0" type="edit" value="5" autoSend="true">
			<Function midiEvent="Controller Change,7" output="1" channel="2"/>
			<Function midiEvent="Controller Change,91"/>
		</Control>
		<Control cell="3,0" type="vfader" value="1"><Function midiEvent="Controller Change,0" channel="5"/></Control>
		<Control cell="3,1" type="vfader" value="2"><Function midiEvent="Controller Change,32" channel="5"/></Control>
		<Control cell="3,2" type="vfader" value="3"><Function midiEvent="Program Change" channel="5"/></Control>
	</Controls>
	<Layers>
		<Layer channel="1"/>
	</Layers>
</Program>
</ProgramFile>
