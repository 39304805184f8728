<?xml version="1.0" encoding="utf-8"?>

<!-- Elements with little in them, with too much, twice, and with what no element has. -->
<ProgramFile>
<Program name="A &amp; B" tempo="90">
	<Oscillators>
		<Oscillator/><Other/>
		<Oscillator type='saw' speed='0' min='-1' max='16383' speedMode='ppq' stopValue='64' detail='0'
			midiMessage='Controller Change,7' output='1' channel='9' zone='3' playing='true'/>
	</Oscillators>
	<Joystick>
		<Button joystick='1' button='0'><Function keepSending='true'><Up><ResetOrv/></Up></Function></Button>
		<Button joystick='0' button='35'><Function><Down><Nonsense/></Down></Function></Button>
		<Axis joystick='1' axis='X'><Function midiEvent='Controller Change,7'/></Axis>
		<Axis joystick='0' axis='V'>
			<Function midiEvent='Pitch Bend' output='1' channel='2' zone='3' min='16383' max='0' offset='-5'/>
			<Other/>
			<Function midiEvent='?'/>
		</Axis>
		<Axis joystick='0' axis='Y'/>
		<Axis axis='X'><Function midiEvent='Pitch Bend'/></Axis>
		<Axis joystick='2' axis='X'/><Axis joystick='0' axis='Q'/>
		<Button joystick='0' button='36'/><Button button='1'/>text<!-- c -->
		<DisabledInputs>1</DisabledInputs>
	</Joystick>
	<ComputerInput useKeyUpMod='yes'>
		<Key id='Shift B' global='false'/><key id='Q'/>text<!-- c --><Other/>
		<Key id='B'><Function><Down><ResetOrv/></Down></Function></Key>
		<Key id='A'/>
		<Key id='B'>
			<Function keepSending='yes'><Down><Nonsense/></Down><Up><SelectZone type='down'/></Up></Function>
		</Key>
		<!-- A slot is filled once, from the first element in it. -->
		<Key id='C'>
			<Function keepSending='yes'><Up><ShowSaveDialog/></Up><Down><ResetOrv/></Down></Function><Function/>
			<Function><Down><!-- first --><ResetOrv/><ShowSaveDialog/></Down><Down><ShowSaveDialog/></Down></Function>
			<Function>
				<Down/><Down><Nonsense/></Down><Down><ResetOrv/></Down><Down><ShowSaveDialog/></Down>
			</Function>
			<Function><Down><Nonsense/><ShowSaveDialog/></Down></Function>
			<Function><down><ResetOrv/></down><Left><ResetOrv/></Left>text<!-- c --></Function>
		</Key>
		<Key id='D'><Function><Down><MidiNoteOn zone='1' note='C4'/></Down></Function></Key>
	</ComputerInput>
	<MidiInput>
		<MidiEvent midiEvent='Note On,60'>
			<Translation condition='D2 gt 64'><ResetOrv/><ShowSaveDialog/></Translation>
			<Translation><Nonsense/></Translation>
			<Translation condition='Off'><ShowProgramMenu/></Translation>
			<Other><ResetOrv/></Other>
		</MidiEvent>
		<!-- The later one counts. -->
		<MidiEvent input='0' channel='1' midiEvent='Pitch Bend,3'><Translation><ResetOrv/></Translation></MidiEvent>
		<Other/>
		<MidiEvent input='0' channel='1' midiEvent='Pitch Bend'><Translation><ShowSaveDialog/></Translation></MidiEvent>
		<!-- What changes nothing is worth storing where it keeps another entry from acting. -->
		<MidiEvent input='0' channel='3' midiEvent='Note On,60'><Translation><Unchanged/></Translation></MidiEvent>
		<MidiEvent input='0' channel='3' midiEvent='Note On,61'><Translation><Unchanged/></Translation></MidiEvent>
		<MidiEvent input='0' channel='3' midiEvent='Note On,62'/>
	</MidiInput>
	<Controls>
		<Other/><Control/>
		<Control cell='1,2' type=' knob ' name='a&lt;&quot;' value='-5' min='9' max='-9' release='3' autoSend='true'
			size='2'>
			<Function midiEvent='Note On,60' output='1' channel='2' zone='3'/><Other/><Function/>
		</Control>
		<Control cell='0,15' type='slider'/><Control cell='0,15' value='200'/>
	</Controls>
	<Layers>
		<Layer solo='true' selected='true'/><Other/>
		<Layer mute='true' mono='true' toggle='type2' useNoteStack='false' minNote='C3' maxNote='B5' minVelocity='10'
			maxVelocity='99' zone='3' output='2' channel='-1' transpose='60' key='D-1' velocity='-5' compress='3/4'>
			<Arpeggio><UpDownArpeggio beat='240' length='120'/></Arpeggio>
			<SequenceSetting useVelocity='false'><Sequence>0,12 V-5</Sequence></SequenceSetting>
		</Layer>
		<Layer channel='20' zone='x'>
			<Arpeggio><Odd/></Arpeggio>
			<Arpeggio><!-- the first that is one --><ChordArpeggio/><UpArpeggio/></Arpeggio>
			<Arpeggio><UpArpeggio/></Arpeggio>
			<SequenceSetting useLength='false'><Sequence/></SequenceSetting>
		</Layer>
		<Layer><SequenceSetting><Other/><Sequence>1</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting preset=' gone ' useNote='no'><Sequence>1</Sequence></SequenceSetting></Layer>
		<!-- Nodes of a sequence -->
		<Layer><SequenceSetting><Sequence>0,12,24</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence> 0 | 7 , 12|19 </Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>0 V-20,-,12</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>12 V10 L960</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>12 V0 L1920</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>v10 l5</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>1 V1 L1 2</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>1 2 V3</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>- 3</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>3 - L7</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>12  V5</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>0,,12</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>0,12,</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>0|7|,1</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>,</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>x,+3,Vx,--,99999999999</Sequence></SequenceSetting></Layer>
		<Layer><SequenceSetting><Sequence>2147483647|-2147483648</Sequence></SequenceSetting></Layer>
	</Layers>
	<Zones>
		<Zone id='1' transpose='-12'/><Other/><Zone id='7' transpose='1'/>
	</Zones>
	<Nonsense/>
</Program>
</ProgramFile>
