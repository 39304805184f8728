<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_zones">
	<MidiInput>
		<MidiEvent midiEvent="Note On,60">
			<Translation><MidiNoteOn zone="0"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,60">
			<Translation><MidiNoteOff zone="0"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note On,61">
			<Translation><Unchanged zone="1"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,61">
			<Translation><Unchanged zone="1"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Note Off,63">
			<Translation><Unchanged zone="5"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,20">
			<Translation><ChangeZoneTranspose type="0"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,21">
			<Translation><SelectZone/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,22">
			<Translation><ChangeZoneTranspose value="D2 -10"/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer zone="0"/>
		<Layer zone="1" channel="1"/>
		<Layer channel="2"/>
	</Layers>
	<Zones>
		<Zone id="0" transpose="12"/>
		<Zone id="1" transpose="-12"/>
		<Zone id="5" transpose="1"/>
	</Zones>
</Program>
</ProgramFile>
