<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="unfollowed">
	<Controls>
		<Control cell="0,0" type="edit"><Function midiEvent="Controller Change,7"/></Control>
		<Control cell="0,1" type="edit" value="5"><Function midiEvent="Controller Change,7"/>
			<Function midiEvent="Controller Change,21" output="0" channel="15"/></Control>
	</Controls>
</Program>
</ProgramFile>
