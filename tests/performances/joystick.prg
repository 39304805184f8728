<?xml version="1.0" encoding="utf-8"?>

<ProgramFile>
<Program name="joystick">
	<Joystick merge="false">
		<Axis joystick="0" axis="X">
			<Function midiEvent="Pitch Bend" output="0" channel="0" max="16383"/>
		</Axis>
		<Axis joystick="0" axis="Y">
			<Function midiEvent="Controller Change,1" output="0" channel="0"/>
			<Function midiEvent="Controller Change,2" output="1" channel="3" min="127" max="0"/>
			<Function midiEvent="Nonsense" output="0"/>
			<Function midiEvent="Controller Change,3" output="0" channel="0"/>
		</Axis>
		<Axis joystick="0" axis="Z">
			<Function midiEvent="Channel Pressure" output="0" channel="0" offset="-10"/>
		</Axis>
		<Axis joystick="1" axis="X">
			<Function midiEvent="Controller Change,11"/>
		</Axis>
		<Button joystick="0" button="0">
			<Function keepSending="true">
				<Down>
					<MidiNoteOn zone="1" note="C4" velocity="90"/>
				</Down>
				<Up>
					<MidiNoteOff zone="1" note="C4" velocity="50"/>
				</Up>
			</Function>
			<Function keepSending="false">
				<Down>
					<MidiControllerChange output="0" channel="0" controller="64" value="127"/>
				</Down>
			</Function>
		</Button>
		<Button joystick="1" button="35">
			<Function keepSending="false">
				<Down>
					<ChangeZoneTranspose type="1" value="+12"/>
				</Down>
			</Function>
		</Button>
		<DisabledInputs></DisabledInputs>
	</Joystick>
	<ComputerInput/>
	<MidiInput/>
	<Layers>
		<Layer zone="1" channel="4"/>
		<Layer output="1" channel="5" zone="2"/>
	</Layers>
	<Zones>
		<Zone id="1" transpose="0"/>
	</Zones>
</Program>
</ProgramFile>
