<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_data">
	<MidiInput>
		<MidiEvent midiEvent="Note On,100">
			<Translation><Unchanged D1="D1 +100"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,100">
			<Translation><Unchanged D1="D1 +100"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,60">
			<Translation><Unchanged D1="D2" D2="D1"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,60">
			<Translation><Unchanged D1="90" D2="D2 -200"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,1">
			<Translation><MidiPitchBend D1="0"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,2">
			<Translation><MidiChannelPressure D1="D2" D2="0"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,3">
			<Translation condition="D2 gt 0"><MidiNoteOn D1="48"/></Translation>
			<Translation condition="D2 eq 0"><MidiNoteOff D1="48" D2="64"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,4">
			<Translation><Unchanged D1="-5" D2="+200"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,5">
			<Translation><Unchanged D1="D1 -10" D2="D2 +5"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,6">
			<Translation><MidiKeyPressure D1="D2 -64" D2="D1"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Program Change">
			<Translation><MidiSongSelect D1="D1 +1"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Pitch Bend">
			<Translation><MidiTimingTick D1="0" D2="0"/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer channel="5"/>
	</Layers>
</Program>
</ProgramFile>
