<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_file">
	<MidiInput>
		<MidiEvent input="0" midiEvent="Note On,60">
			<Translation><Unchanged D1="D1 +12" channel="unchanged"/></Translation>
		</MidiEvent>
		<MidiEvent input="0" midiEvent="Note Off,60">
			<Translation><Unchanged D1="D1 +12" channel="unchanged"/></Translation>
		</MidiEvent>
		<MidiEvent input="0" channel="1" midiEvent="Pitch Bend">
			<Translation><MidiControllerChange D1="1"/></Translation>
		</MidiEvent>
		<MidiEvent input="1" midiEvent="Note On,60">
			<Translation><DoNothing/></Translation>
		</MidiEvent>
		<MidiEvent input="1" midiEvent="Note Off,60">
			<Translation><DoNothing/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer channel="5"/>
	</Layers>
</Program>
</ProgramFile>
