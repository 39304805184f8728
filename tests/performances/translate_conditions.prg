<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_conditions">
	<MidiInput>
		<MidiEvent midiEvent="Note On,60">
			<Translation condition="D2 gt 100"><MidiControllerChange D1="1" D2="D2"/></Translation>
			<Translation condition="D2 le 100"><MidiControllerChange D1="2" D2="D2"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,60">
			<Translation><MidiControllerChange D1="5" D2="D2"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,61">
			<Translation condition="D2 ge 64"><MidiControllerChange D1="3" D2="D2"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,62">
			<Translation><DoNothing/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,63">
			<Translation><MidiControllerChange D1="4" D2="D1"/></Translation>
			<Translation><MidiProgramChange D1="D2" D2="0"/></Translation>
			<Translation><DoNothing/></Translation>
			<Translation><Nonsense/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,64">
			<Translation condition="D2 lt 10"><MidiControllerChange D1="6" D2="D2"/></Translation>
			<Translation condition="D2 eq 10"><MidiControllerChange D1="8" D2="D2"/></Translation>
			<Translation condition="D2 ne 9"><MidiControllerChange D1="9" D2="D2"/></Translation>
			<Translation condition="D1 eq 63"><MidiControllerChange D1="10" D2="D2"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,65">
			<Translation condition="D2 gt 100"><Unchanged/></Translation>
			<Translation condition="D2 le 100"><DoNothing/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,65">
			<Translation><Unchanged/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer channel="5"/>
	</Layers>
</Program>
</ProgramFile>
