<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="control_selection">
	<Controls>
		<Control cell="0,0" type="vfader"><Function midiEvent="Controller Change,1"/></Control>
		<Control cell="0,7" type="vfader"><Function midiEvent="Controller Change,2"/></Control>
		<Control cell="2,0" type="vfader"><Function midiEvent="Controller Change,3"/></Control>
		<Control cell="2,4" type="vfader"><Function midiEvent="Controller Change,4"/></Control>
		<Control cell="3,0" type="vfader"><Function midiEvent="Controller Change,5"/></Control>
		<Control cell="15,15" type="vfader"><Function midiEvent="Controller Change,6"/></Control>
		<Control cell="16,0" type="vfader"><Function midiEvent="Controller Change,7"/></Control>
	</Controls>
	<Layers>
		<Layer/>
	</Layers>
</Program>
</ProgramFile>
