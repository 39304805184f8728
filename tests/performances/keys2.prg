<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="keys without modifiers on release">
	<ComputerInput>
		<Key id="A">
				<Function><Up><MidiNoteOff output="0" channel="1" note="C5"/></Up></Function>
		</Key>
		<Key id="Shift A">
				<Function><Down><MidiNoteOn output="0" channel="1" note="C5"/></Down></Function>
		</Key>
	</ComputerInput>
</Program>
</ProgramFile>
