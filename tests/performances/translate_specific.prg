<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_specific">
	<MidiInput>
		<MidiEvent input="0" channel="3" midiEvent="Controller Change,20">
			<Translation><Unchanged D1="21"/></Translation>
		</MidiEvent>
		<MidiEvent input="0" midiEvent="Controller Change,20">
			<Translation><Unchanged D1="22"/></Translation>
		</MidiEvent>
		<MidiEvent channel="3" midiEvent="Controller Change,20">
			<Translation><Unchanged D1="23"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,20">
			<Translation><Unchanged D1="24"/></Translation>
		</MidiEvent>
		<MidiEvent channel="3" midiEvent="Controller Change,30">
			<Translation><Unchanged D1="33"/></Translation>
		</MidiEvent>
		<MidiEvent input="0" midiEvent="Controller Change,30">
			<Translation><Unchanged D1="32"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,40">
			<Translation><Unchanged D1="44"/></Translation>
		</MidiEvent>
		<MidiEvent input="0" channel="3" midiEvent="Controller Change,40">
		</MidiEvent>
		<MidiEvent midiEvent="Key Pressure">
			<Translation><Unchanged D1="1"/></Translation>
		</MidiEvent>
		<MidiEvent channel="3" midiEvent="Start Song">
			<Translation><MidiStopSong/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer channel="5"/>
	</Layers>
</Program>
</ProgramFile>
