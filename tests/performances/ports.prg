<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="ports">
	<MidiInput>
		<MidiEvent input="2" midiEvent="Note On,60">
			<Translation><Unchanged D1="D1 +12"/></Translation>
		</MidiEvent>
		<MidiEvent input="2" midiEvent="Note Off,60">
			<Translation><Unchanged D1="D1 +12"/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer minNote="C4"/>
		<Layer maxNote="B3" mono="true" output="1"/>
	</Layers>
</Program>
</ProgramFile>
