<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="translate_functions">
	<MidiInput>
		<MidiEvent midiEvent="Controller Change,20">
			<Translation><ChangeLayerTranspose type="0" value="D2 -64"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,21">
			<Translation><ChangeLayerMute type="all"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,22">
			<Translation><ChangeDefaultMidiOutput/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,23">
			<Translation condition="D2 lt 64"><ChangeMidiThru type="off"/></Translation>
			<Translation condition="D2 ge 64"><ChangeMidiThru type="on"/></Translation>
		</MidiEvent>
		<MidiEvent midiEvent="Controller Change,24">
			<Translation><ChangeLayerVelocity type="D2" value="-50"/></Translation>
		</MidiEvent>
	</MidiInput>
	<Layers>
		<Layer channel="5"/>
	</Layers>
</Program>
</ProgramFile>
