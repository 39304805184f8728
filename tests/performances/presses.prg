<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="presses">
	<ComputerInput>
		<Key id="Q">
				<Function keepSending="true">
					<Down><MidiNoteOn zone="0" note="C4"/></Down>
					<Up><MidiNoteOff zone="0" note="C4"/></Up>
				</Function>
		</Key>
		<Key id="Shift Q">
				<Function keepSending="true">
					<Down><MidiNoteOn zone="0" note="C4"/></Down>
					<Up><MidiNoteOff zone="0" note="C4"/></Up>
				</Function>
		</Key>
	</ComputerInput>
	<MidiInput/>
	<Joystick>
		<Button joystick="0" button="0">
				<Function keepSending="true">
					<Down><MidiNoteOn zone="0" note="E4"/></Down>
					<Up><MidiNoteOff zone="0" note="E4"/></Up>
				</Function>
		</Button>
	</Joystick>
	<Layers>
		<Layer zone="0"/>
		<Layer zone="1" channel="1" useNoteStack="false"/>
		<Layer zone="2" channel="2" mono="true"/>
		<Layer zone="3" channel="3" toggle="type1"/>
	</Layers>
	<Zones>
		<Zone id="0" transpose="0"/>
		<Zone id="1" transpose="0"/>
	</Zones>
</Program>
</ProgramFile>
