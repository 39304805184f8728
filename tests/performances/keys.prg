<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="keys">
	<ComputerInput useKeyUpMod="true">
		<Key id="A">
				<Function>
					<Down><MidiNoteOn zone="4" note="C4"/></Down>
					<Up><MidiNoteOff zone="4" note="C4"/></Up>
				</Function>
		</Key>
		<Key id="Shift A">
				<Function>
					<Down><MidiNoteOn output="1" channel="2" note="60" velocity="1"/></Down>
					<Up><MidiNoteOff output="1" channel="2" note="60" velocity="2"/></Up>
				</Function>
		</Key>
		<Key id="F12">
				<Function keepSending="false"><Down><MidiControllerChange output="1" controller="1" value="1"/></Down></Function>
				<Function keepSending="true">
					<Down><MidiControllerChange output="1" controller="2" value="2"/></Down>
					<Up><MidiControllerChange output="1" controller="3" value="3"/></Up>
				</Function>
				<Function keepSending="false"><Up><MidiChannelPressure output="1" pressure="4"/></Up></Function>
				<Function keepSending="true"><Down><MidiProgramChange/></Down></Function>
				<Function keepSending="true"><Down><ProgramChange output="1" channel="3" program="5"/></Down></Function>
				<Function keepSending="false"/>
				<Function keepSending="true"><Down><MidiKeyPressure output="1" key="6" pressure="6"/></Down></Function>
		</Key>
		<Key id="1">
				<Function><Down><ChangeZoneTranspose type="4" value="+12"/></Down></Function>
		</Key>
		<Key id="2">
				<Function><Down><ChangeZoneTranspose type="4" value="+0"/></Down></Function>
				<Function><Down><ChangeZoneTranspose type="4" value="-24"/></Down></Function>
		</Key>
	</ComputerInput>
	<Layers>
		<Layer/>
	</Layers>
	<Zones>
		<Zone id="4" transpose="0"/>
	</Zones>
</Program>
</ProgramFile>
