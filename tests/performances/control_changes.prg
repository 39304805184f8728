<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="control_changes">
	<Controls>
		<Control cell="0,0" type="vfader" value="64"><Function midiEvent="Controller Change,1"/></Control>
		<Control cell="0,1" type="vfader" value="100" min="110" max="20"><Function midiEvent="Controller Change,2"/></Control>
	</Controls>
	<Layers>
		<Layer/>
	</Layers>
</Program>
</ProgramFile>
