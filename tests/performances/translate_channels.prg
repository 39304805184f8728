<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_channels">
	<MidiInput>
		<MidiEvent midiEvent="Controller Change,20">
			<Translation><Unchanged channel="unchanged"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,21">
			<Translation><Unchanged channel="default"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,22">
			<Translation><Unchanged channel="9"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,23">
			<Translation><Unchanged channel="16"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,24">
			<Translation><Unchanged output="1"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,25">
			<Translation><Unchanged output="1" channel="-2"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,26">
			<Translation><Unchanged output="7"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,60">
			<Translation><Unchanged channel="2"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,60">
			<Translation><Unchanged channel="2"/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer channel="5"/>
	</Layers>
</Program>
</ProgramFile>
