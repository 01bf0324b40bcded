" Brannic. Made from the tables of the converter by editors/grammar/generate.mjs: do not edit.

if exists("b:current_syntax")
  finish
endif

syn iskeyword @,48-57,_
syn case match
syn match brannicName /\h\w*/
syn match brannicAxis /\a\{1,2}\ze\d\+\%(\.\d*\)\?\w\@!/
syn match brannicGcode /\c[EFGIJKLMNOPQRST]\%([A-Za-z_]\)\@!/
syn match brannicGcode /[Gg]\d\+\%(\.\d\+\)\?/
syn match brannicNumber /\d\+\%(\.\d*\)\?\|\.\d\+/
syn match brannicNumber /[0&][xXhH]\x\+/
syn match brannicVariable /\$\h\w*/
syn match brannicSystemVariable /\c\$\%(\%(AI\|AO\|APTGLOB\|APTTASK\|BI\|BO\|DI\|DO\|GLOB\|GLOBAL\|INFO\|PORT\|RI\|RO\|STRGLOB\|STRTASK\|TASK\|TASKINDEX\|WI\|WO\)\d*\|AXISSTATUS\|PAXIS\|PGLOB\|PGLOBAL\|PTASK\|RETURN\|SYSTEMSTATUS\|TASKSTATUS\)\w\@!/
syn match brannicDirective /#\h\w*/
syn match brannicMarker /#error_unconvertible\w\@!.*/
syn match brannicString /"[^"]*\%("\|$\)/
syn match brannicComment +;.*+ contains=@Spell
syn match brannicComment +'.*+ contains=@Spell
syn match brannicComment +//.*+ contains=@Spell
syn region brannicComment start=+/\*+ end=+\*/+ contains=@Spell
syn match brannicControl /\%#=1\c\d\@1<=\%(\%(C\%(ALL\|LS\)\|D\%(FS\|O\)\|E\%(LSE\%(IF\)\?\|ND\%(DFS\|IF\|R\%(EPEAT\|PT\)\|WH\%(ILE\|L\)\)\?\|XIT\)\|FOR\|GOTO\|IF\|JUMP\|LOOP\|NEXT\|R\%(E\%(PEAT\|TURN\)\|PT\)\|W\%(END\|H\%(ILE\|L\)\)\)\)\w\@!/
syn match brannicStatement /\%#=1\c\d\@1<=\%(\%(A\%(B\%(ORT\|S\%(OLUTE\)\?\)\|CKNOWLEDGEALL\|DDPROGRAM\|NALOG\|PPLYDEFAULTS\|RRAY\|UTOFOCUS\|X\%(CALPARM\|ISFAULT\)\)\|B\%(A\%(CKLASH\|RCODE\)\|EZIER\|LOCKMOTION\|RAKE\)\|C\%(A\%(L\%(DISABLE\|ENABLE\)\|MSYNC\)\|CW\|HECKPASSWORD\|RITICAL\|URRENTCOMMAND\|W\)\|D\%(ATA\%(ACQ\|COLLECT\)\|I\%(M\|SABLE\)\|SPMEM\|VAR\%(S\)\?\|WELL\)\|E\%(N\%(ABLE\|CODER\|G\%(LISH\)\?\)\|XEC\%(CANNEDFUNCTION\|UTEMODE\)\)\|F\%(A\%(R\%(CALL\|GOTO\|JUMP\)\|ULTACK\)\|EED\%(BACKTUNING\|HOLD\)\|IBER\|LASHPARAM\|REE\%(CAM\%(TABLE\)\?\|RUN\)\?\)\|G\%(ALVO\|EAR\)\|H\%(AND\%(WHEEL\)\?\|OME\%(ASYNC\)\?\)\|I\%(FOV\|MMEDIATE\|N\%(C\%(REM\%(ENTAL\)\?\)\?\|ITCOMMUTATION\|TERRUPTMOTION\)\)\|JOYSTICK\|LO\%(ADCAM\%(TABLE\|VAR\)\|O\%(KAHEAD\|PTRANS\)\)\|M\%(C\|ET\%(RIC\)\?\|FO\|I\%(N\%(UTE\%(S\)\?\)\?\|RROR\)\|O\%(DBUS\%(BIT\|REG\%(DOUBLE\|INT\%(16\|32\)\|SINGLE\)\)\|VE\%(ABS\|DELAY\|INC\|OUTLIM\|TOLIM\)\)\|S\%(ET\|O\)\)\|N\%(ETWORK\|ORMALCY\)\|O\%(N\%(GOSUB\)\?\|SC\%(ILLATE\)\?\|VERRIDEASYNC\)\|P\%(CI\|GM\|O\%(PMODES\|RT\|SOFFSET\)\|R\%(G\|I\%(MARY\|VATE\)\|O\%(BE\|GRAM\%(CONTROL\)\?\)\)\|SO\%(ANALOG\|CONTROL\|DISTANCE\|HALT\|OUTPUT\|PULSE\%(2\)\?\|TRACK\|WINDOW\)\|T\|U\%(BLIC\|LSE\|SHMODES\)\|VT\)\|QCOMMAND\|R\%(AMP\|E\%(F\|MOVEPROGRAM\|TRACE\)\|O\%(TATION\|UNDING\)\)\|S\%(AFEZONE\|C\%(OPELTTRIG\|URVE\)\|E\%(C\%(OND\%(ARY\|S\)\?\)\?\|RVO\|T\%(C\%(ANNEDFUNCTION\|LAMP\)\|EXTPOS\|P\%(ARM\|OS\%(CMD\|FBK\)\)\)\?\)\|IGNALLOG\|L\%(AVE\%(ADVANCE\|OFFSET\)\|ICE\)\|YNC\%(CALL\)\?\)\|T\%(A\%(RGETTRACK\|SK\%(ERROR\|WARNING\)\)\|HERMOCOMP\|IMER\|RA\%(CE\|NSFORM\)\)\|USERTASK\%(ERROR\|WARNING\)\|V\%(EL\%(OC\%(ITY\)\?\)\?\|ME\)\|W\%(AIT\|RITEPARM\%(STRING\)\?\)\)\)\w\@!/
syn match brannicFunction /\%#=1\c\d\@1<=\%(\%(A\%(COS\|SIN\|TAN\%(2\)\?\|XIS\%(NAMEOF\|STATUSFAST\)\)\|C\%(ALLBACK\|EIL\|O\%(S\|UNTSTOUNITS\)\)\|D\%(BL\%(2STR\|TOSTR\)\|RIVE\%(CMD\|INFO\)\)\|EX\%(P\|TRACT\%(DOUBLE\%(HIGH\|LOW\)\|SINGLE\)\)\|F\%(ILE\%(READARRAYBINARY\|SIZE\|WRITEARRAYBINARY\)\|LOOR\|RAC\)\|I\%(N\%(DEXTOMASK\|T\)\|S\%(AVAIL\|DONE\)\)\|L\%(EN\|OG\)\|M\%(ASKTO\%(DBL\|INDEX\)\|ODBUS\)\|R\%(AND\|EADPARM\|OUND\)\|S\%(IN\|QRT\|TR\%(2\%(ASCII\|DBL\)\|C\%(HAR\|MP\)\|FIND\|L\%(EN\|WR\)\|MID\|TO\%(ASCII\|DBL\)\|UPR\)\)\|T\%(A\%(N\|SKSTATUSFAST\)\|EST\)\|UNITSTOCOUNTS\)\)\w\@!/
syn match brannicOperator /\%#=1\c\d\@1<=\%(\%(AND\|B\%(AND\|N\%(AND\|O\%(R\|T\)\)\|OR\|XOR\)\|EQ\|G\%(E\|T\)\|L\%(E\|T\)\|N\%(E\|OT\)\|OR\)\)\w\@!/
syn match brannicWord /\%#=1\c\d\@1<=\%(\%(A\%(CC\%(E\%(L\%(ERATION\)\?\|PT\)\)\?\|IN\|LLO\%(CATE\|W\)\|NGLE\|OUT\|RM\|S\%(SOCIATE\)\?\|UTO\%(FLUSH\)\?\|X\%(ES\|IS\%(GROUP\|PAIR\|STATUS\)\?\)\)\|B\%(IT\|LOCKING\|OOL\|UFFEREDRUN\|YTE\)\|C\%(ALFILE\%(1D\|2D\|GALVO\%(2D\|GCAL\)\)\|ENTROID\%(2D\|3D\)\?\|L\%(EAR\|IENT\|OSE\%(DLOOP\)\?\|R\)\|O\%(EFFICIENTS\|LLECT\|M\%(BINE\|MIT\)\|N\%(DITIONAL\|FIG\|NECT\|T\%(INUOUS\|ROL\)\)\|UNTS\)\|UBIC\|YCLES\)\|D\%(ATA\%(MATRIX\)\?\|E\%(BOUNCE\|C\%(EL\%(ERATION\)\?\)\?\|FINED\|LAY\|PENDENT\)\|I\%(N\%(T\)\?\|RECTION\|S\%(PLA\%(CEMENT\|Y\)\|T\%(ANCE\)\?\)\?\|VIDE\%(R\)\?\)\|OU\%(BLE\%(2\)\?\|T\)\|WORD\)\|E\%(DGE\|N\%(CODERSCALEFACTOR\|TER\)\|RRORDECODE\|VENT\|X\%(ECUTE\|TSYNC\)\)\|F\%(A\%(L\%(L\|SE\)\|ST\%(ALIGN\%(3D\|4D\|5D\|6D\)\?\)\?\)\|I\%(LTER\%(ED\)\?\|NDMARKER\|RE\|XED\)\|L\%(OAT\|USH\)\|ORCED\)\|G\%(AIN\|E\%(OCENTER\|T\%(PARMSTRING\)\?\)\)\|H\%(ARD\|ILLCLIMB\)\|I\%(D\|FV\|N\%(P\%(OS\|UT\%(AXES\|ROTARY\)\?\)\|STANT\|T\%(16\|32\|8\)\|VERT\)\?\|TEM\)\|L\%(A\%(SER\%(1PULSEWIDTH\|2PULSEWIDTH\|MODE\|O\%(FFDELAY\|NDELAY\|UTPUTPERIOD\|VERRIDE\)\)\?\|TCH\)\|EFT\|I\%(MIT\%(SERVOSPEED\)\?\|N\%(EAR\)\?\|STEN\)\|O\%(AD\|NG\)\|REAL\)\|M\%(A\%(P\|S\%(K\|TER\%(CONFIG\|INPUT\%(BITS\|WORDS\)\|OUTPUT\%(BITS\|WORDS\)\)\)\)\|O\%(DE\|VEDONE\)\)\|NO\%(N\%(BLOCKING\|E\)\|RMAL\|W\%(AIT\|RAP\)\)\|O\%(CTETS\|FF\%(SET\)\?\|NCE\|PEN\%(LOOP\)\?\|UT\%(PUT\%(AXES\|ROTARY\)\?\)\?\)\|P\%(A\%(RAMETERFILE\|USE\)\|E\%(NDING\|RFORMANCE\)\|IVOT\|LAYBACK\|OS\%(ITION\)\?\|ROJECTION\|SO\%(ARRAY\)\?\|ULSE2\|WM\)\|QUAD\|R\%(A\%(DIUS\|NGE\|T\%(E\|IO\)\)\|E\%(A\%(D\%(CONFIGSTRING\|PARMSTRING\)\?\|L\)\|CORD\|LATIVE\|S\%(ET\|T\%(ART\|RICT\)\|UME\)\|TURNTYPE\)\|I\%(GHT\|SE\)\|UN\)\|S\%(A\%(MPLES\|VE\)\|C\%(ALE\|OPETRIG\)\|ETUP\|I\%(N\%(E\|GLE\|T\|USOID\)\|ZE\)\|LAVE\%(INPUT\%(BITS\|WORDS\)\|OUTPUT\%(BITS\|WORDS\)\)\|P\%(FINE\|ROUGH\)\|T\%(A\%(NDBYP\%(ERIOD\|ULSEWIDTH\)\|RT\|TUS\)\|EP\%(INTO\|OVER\)\?\|OP\|RING\)\|U\%(B\|PPRESSIONPULSEWIDTH\)\|Y\%(NCAXES\|STEMSTATUS\)\)\|T\%(A\%(BLE\|RGET\|SK\%(STATUS\)\?\)\|HEN\|IME\%(OUT\)\?\|O\%(GGLE\|LERANCE\)\?\|R\%(ACK\%(ING\%(ACCEL\|SPEED\)\)\?\|IGGER\|UE\)\|YPE\)\|U\%(DINT\|INT\%(16\|32\|8\)\?\|NITS\|PDATE\%(INTERVAL\|S\)\?\|SINT\)\|VALUES\|W\%(HITENOISE\|INDOW\|O\%(BBLE\|RD\)\|R\%(AP\|ITE\)\)\)\)\w\@!/

syn keyword brannicConstant ANALOG_AXISVELOCITY ANALOG_CURRENT ANALOG_DISTANCE ANALOG_FEEDRATEOVERRIDE
syn keyword brannicConstant ANALOG_OFF ANALOG_POSITION ANALOG_VECTORVELOCITY AXISCAL_AXIS AXISCAL_MASTERAXIS
syn keyword brannicConstant AXISCAL_OFFSET AXISCAL_SAMPLECOUNT AXISCAL_SAMPLEDISTANCE AXISCAL_STATUS
syn keyword brannicConstant AXISCAL_TABLE AXISCAL_VALUE AXISFAULT_AmplifierFault AXISFAULT_AmplifierTemp
syn keyword brannicConstant AXISFAULT_CcwEOTLimit AXISFAULT_CcwSoftLimit AXISFAULT_CommunicationLost
syn keyword brannicConstant AXISFAULT_CwEOTLimit AXISFAULT_CwSoftLimit AXISFAULT_EncoderFault
syn keyword brannicConstant AXISFAULT_EstopFault AXISFAULT_ExternalFault AXISFAULT_FbkScalingFault
syn keyword brannicConstant AXISFAULT_HallFault AXISFAULT_InPosTimeout AXISFAULT_Internal
syn keyword brannicConstant AXISFAULT_MasterAxisFault AXISFAULT_MaxVelocity AXISFAULT_MotorTemp
syn keyword brannicConstant AXISFAULT_MrkSearchFault AXISFAULT_OverCurrent AXISFAULT_PositionError
syn keyword brannicConstant AXISFAULT_PositionFbk AXISFAULT_PowerSupply AXISFAULT_ProbeInput
syn keyword brannicConstant AXISFAULT_SafeZoneFault AXISFAULT_TaskFault AXISFAULT_VelocityError
syn keyword brannicConstant AXISFAULT_VelocityFbk AXISFAULT_VoltageClamp AXISSTATUS_BacklashActive
syn keyword brannicConstant AXISSTATUS_CalEnabled1D AXISSTATUS_CalEnabled2D AXISSTATUS_CamActive
syn keyword brannicConstant AXISSTATUS_CommandValid AXISSTATUS_DriveAbortPending AXISSTATUS_DrivePending
syn keyword brannicConstant AXISSTATUS_Enabling AXISSTATUS_GainMappingEnabled AXISSTATUS_GantryAligned
syn keyword brannicConstant AXISSTATUS_GantryRealigning AXISSTATUS_Homed AXISSTATUS_Homing
syn keyword brannicConstant AXISSTATUS_IFOVEnabled AXISSTATUS_JogGenerating AXISSTATUS_Jogging
syn keyword brannicConstant AXISSTATUS_JoystickControl AXISSTATUS_MasterSlaveControl AXISSTATUS_MotionBlocked
syn keyword brannicConstant AXISSTATUS_MotionClamped AXISSTATUS_MoveDone AXISSTATUS_NotVirtual
syn keyword brannicConstant AXISSTATUS_PositionLatched AXISSTATUS_Profiling AXISSTATUS_ThermoCompEnabled
syn keyword brannicConstant AXISSTATUS_TrajectoryFiltering AXISSTATUS_WaitDone BARCODEOPTIONS_Checksum
syn keyword brannicConstant BARCODEOPTIONS_Reverse BEZIERSETUP_AdaptiveStep BEZIERSETUP_BlendEnd
syn keyword brannicConstant BEZIERSETUP_BlendStart BEZIERSETUP_CheckRange BEZIERSETUP_Closed
syn keyword brannicConstant BEZIERSETUP_ConstantSpeed BEZIERSETUP_Cubic BEZIERSETUP_FixedStep
syn keyword brannicConstant BEZIERSETUP_KeepTangent BEZIERSETUP_LimitCurvature BEZIERSETUP_LimitJerk
syn keyword brannicConstant BEZIERSETUP_Quadratic BEZIERSETUP_Relative BLACK BLUE BROWN CALLBACK_RESERVE
syn keyword brannicConstant CALLBACK_RESERVE_END CALLDLL CANNEDFUNCTION_ID_ENDOFBLOCK CANNEDFUNCTION_ID_NONE
syn keyword brannicConstant CLOSEDLL COMMINIT COMMSETTIMEOUT CONFIGITEM_AXISCOUNT CONFIGITEM_CONTROLLERNAME
syn keyword brannicConstant CONFIGITEM_LICENSE CONFIGITEM_PARAMETERPATH CONFIGITEM_PROGRAMPATH
syn keyword brannicConstant CONFIGITEM_SERIALNUMBER CONFIGITEM_TASKCOUNT CONFIGITEM_VERSION CYAN
syn keyword brannicConstant DATAITEM_AccelerationCommand DATAITEM_AccelerationCommandDrive
syn keyword brannicConstant DATAITEM_AccelerationCommandRaw DATAITEM_AccelerationCommandRawCal
syn keyword brannicConstant DATAITEM_AccelerationError DATAITEM_AccelerationFeedback DATAITEM_AccelerationMode
syn keyword brannicConstant DATAITEM_AccelerationRate DATAITEM_AccelerationTime DATAITEM_AccelerationType
syn keyword brannicConstant DATAITEM_AccuracyCorrectionEndingPosition
syn keyword brannicConstant DATAITEM_AccuracyCorrectionStartingPosition DATAITEM_ActiveFixtureOffset
syn keyword brannicConstant DATAITEM_ActiveMoveValid DATAITEM_AmplifierInformation
syn keyword brannicConstant DATAITEM_AmplifierPeakCurrent DATAITEM_AmplifierTemperature DATAITEM_AnalogInput0
syn keyword brannicConstant DATAITEM_AnalogInput1 DATAITEM_AnalogInput2 DATAITEM_AnalogInput3
syn keyword brannicConstant DATAITEM_AnalogOutput0 DATAITEM_AnalogOutput1 DATAITEM_AnalogOutput2
syn keyword brannicConstant DATAITEM_AnalogOutput3 DATAITEM_AnalogSensorInput DATAITEM_AutoFocusError
syn keyword brannicConstant DATAITEM_AuxiliaryFeedback DATAITEM_AuxiliaryVelocityFeedback
syn keyword brannicConstant DATAITEM_AxesSlowdownReason DATAITEM_AxisFault DATAITEM_AxisParameter
syn keyword brannicConstant DATAITEM_AxisPositionCalibrationAll DATAITEM_AxisStatus DATAITEM_Backlash
syn keyword brannicConstant DATAITEM_BacklashTarget DATAITEM_BarcodeElement DATAITEM_BarcodePosition
syn keyword brannicConstant DATAITEM_BatteryVoltage DATAITEM_BlockDeleteState DATAITEM_BoardRevision
syn keyword brannicConstant DATAITEM_BusVoltage DATAITEM_BusVoltageNegative
syn keyword brannicConstant DATAITEM_CalibrationAdjustmentState DATAITEM_CalibrationAdjustmentValue
syn keyword brannicConstant DATAITEM_CallbackCode DATAITEM_CallbackState DATAITEM_CamTableIndex
syn keyword brannicConstant DATAITEM_CamTableSlope DATAITEM_CannedFunctionID DATAITEM_CannedFunctionState
syn keyword brannicConstant DATAITEM_CapacitanceSensorRawPosition DATAITEM_CommandOutputType
syn keyword brannicConstant DATAITEM_CommunicationRealTimeErrors DATAITEM_ControlEffort
syn keyword brannicConstant DATAITEM_CoolingFanSpeed DATAITEM_CoordinateSystem1I DATAITEM_CoordinateSystem1J
syn keyword brannicConstant DATAITEM_CoordinateSystem1K DATAITEM_CoordinateSystem1Plane
syn keyword brannicConstant DATAITEM_CoordinatedAccelerationCommand DATAITEM_CoordinatedAccelerationRate
syn keyword brannicConstant DATAITEM_CoordinatedAccelerationTime DATAITEM_CoordinatedArcEndAngle
syn keyword brannicConstant DATAITEM_CoordinatedArcRadius DATAITEM_CoordinatedArcRadiusError
syn keyword brannicConstant DATAITEM_CoordinatedArcRadiusReciprocal DATAITEM_CoordinatedArcStartAngle
syn keyword brannicConstant DATAITEM_CoordinatedDecelerationRate DATAITEM_CoordinatedDecelerationTime
syn keyword brannicConstant DATAITEM_CoordinatedFlags DATAITEM_CoordinatedGalvoLaserOutput
syn keyword brannicConstant DATAITEM_CoordinatedMotionRate DATAITEM_CoordinatedPercentDone
syn keyword brannicConstant DATAITEM_CoordinatedPositionCommand
syn keyword brannicConstant DATAITEM_CoordinatedPositionCommandBackwardsDiff
syn keyword brannicConstant DATAITEM_CoordinatedPositionTarget DATAITEM_CoordinatedSpeedCommand
syn keyword brannicConstant DATAITEM_CoordinatedSpeedTarget DATAITEM_CoordinatedSpeedTargetActual
syn keyword brannicConstant DATAITEM_CoordinatedTaskCommand DATAITEM_CoordinatedTimeScale
syn keyword brannicConstant DATAITEM_CoordinatedTimeScaleDerivative DATAITEM_CoordinatedTotalDistance
syn keyword brannicConstant DATAITEM_CriticalSectionActive DATAITEM_CurrentCommand DATAITEM_CurrentError
syn keyword brannicConstant DATAITEM_CurrentFeedback DATAITEM_CurrentFeedbackAverage
syn keyword brannicConstant DATAITEM_DataAcquisitionSamples DATAITEM_DataCollectionPeriod
syn keyword brannicConstant DATAITEM_DataCollectionSampleIndex DATAITEM_DataCollectionSampleTime
syn keyword brannicConstant DATAITEM_DataCollectionStatus DATAITEM_DecelerationMode DATAITEM_DecelerationRate
syn keyword brannicConstant DATAITEM_DecelerationTime DATAITEM_DecelerationType
syn keyword brannicConstant DATAITEM_DependentCoordinatedSpeedTarget
syn keyword brannicConstant DATAITEM_DependentCoordinatedSpeedTargetActual DATAITEM_DigitalInput
syn keyword brannicConstant DATAITEM_DigitalOutput DATAITEM_DriveAssert DATAITEM_DriveCommandsDelayed
syn keyword brannicConstant DATAITEM_DriveCommandsLost DATAITEM_DriveCommunicationDelay
syn keyword brannicConstant DATAITEM_DriveCommunicationDelayLive DATAITEM_DriveFeedforwardOutput
syn keyword brannicConstant DATAITEM_DriveInterfaceCommandCode DATAITEM_DriveInterfacePacketBit
syn keyword brannicConstant DATAITEM_DriveInterfacePacketDouble DATAITEM_DriveInterfacePacketFloat
syn keyword brannicConstant DATAITEM_DriveInterfacePacketInfoBitValue DATAITEM_DriveInterfacePacketInt16
syn keyword brannicConstant DATAITEM_DriveInterfacePacketInt32 DATAITEM_DriveInterfacePacketInt8
syn keyword brannicConstant DATAITEM_DriveInterfacePacketResponseBit
syn keyword brannicConstant DATAITEM_DriveInterfacePacketResponseDouble
syn keyword brannicConstant DATAITEM_DriveInterfacePacketResponseFloat
syn keyword brannicConstant DATAITEM_DriveInterfacePacketResponseInt16
syn keyword brannicConstant DATAITEM_DriveInterfacePacketResponseInt32
syn keyword brannicConstant DATAITEM_DriveInterfacePacketResponseInt8
syn keyword brannicConstant DATAITEM_DriveInterfacePacketStreamingData DATAITEM_DriveMemoryDouble
syn keyword brannicConstant DATAITEM_DriveMemoryDoublePointer DATAITEM_DriveMemoryFloat
syn keyword brannicConstant DATAITEM_DriveMemoryFloatPointer DATAITEM_DriveMemoryInt16
syn keyword brannicConstant DATAITEM_DriveMemoryInt16Pointer DATAITEM_DriveMemoryInt32
syn keyword brannicConstant DATAITEM_DriveMemoryInt32Pointer DATAITEM_DriveMemoryInt8
syn keyword brannicConstant DATAITEM_DriveMemoryInt8Pointer DATAITEM_DriveMotionDelay
syn keyword brannicConstant DATAITEM_DriveMotionDelayLive DATAITEM_DriveMotionRate
syn keyword brannicConstant DATAITEM_DriveSMCMotionState DATAITEM_DriveStatus DATAITEM_DriveStatusActual
syn keyword brannicConstant DATAITEM_DriveTimerDebug DATAITEM_DriveTimerMax DATAITEM_DriveTypeID
syn keyword brannicConstant DATAITEM_EnDatAbsolutePosition DATAITEM_EnableAlignmentAxes DATAITEM_EnableState
syn keyword brannicConstant DATAITEM_EncoderCosine DATAITEM_EncoderSine DATAITEM_EstimatedProcessorUsage
syn keyword brannicConstant DATAITEM_EthernetPacketsLost DATAITEM_EthernetPacketsReceived
syn keyword brannicConstant DATAITEM_EthernetPacketsSent DATAITEM_ExecutionMode DATAITEM_FPGAVersion
syn keyword brannicConstant DATAITEM_FaultPositionFeedback DATAITEM_FeedforwardCurrent DATAITEM_FiberPower
syn keyword brannicConstant DATAITEM_FiberSearchPeak DATAITEM_FiberSearchState
syn keyword brannicConstant DATAITEM_FieldbusActiveConnections DATAITEM_FieldbusConnected
syn keyword brannicConstant DATAITEM_FieldbusErrorCode DATAITEM_FieldbusErrorLocation
syn keyword brannicConstant DATAITEM_FieldbusInactiveConnections DATAITEM_FieldbusInputs
syn keyword brannicConstant DATAITEM_FieldbusOutputs DATAITEM_FieldbusRetries DATAITEM_FieldbusScanTime
syn keyword brannicConstant DATAITEM_FirmwareRevision DATAITEM_FirmwareVersionBuild
syn keyword brannicConstant DATAITEM_FirmwareVersionMajor DATAITEM_FirmwareVersionMinor
syn keyword brannicConstant DATAITEM_FirmwareVersionPatch DATAITEM_FixtureOffset
syn keyword brannicConstant DATAITEM_FreezeVelocityCommand DATAITEM_FreezeVelocityFeedback
syn keyword brannicConstant DATAITEM_GainKd1Scale DATAITEM_GainKp1Scale DATAITEM_GalvoLaserOffDelay
syn keyword brannicConstant DATAITEM_GalvoLaserOnDelay DATAITEM_GalvoLaserOutput DATAITEM_GalvoLaserOutputRaw
syn keyword brannicConstant DATAITEM_GalvoLaserOutputRawAdvance DATAITEM_GalvoLaserPowerCorrectionOutput
syn keyword brannicConstant DATAITEM_GantryMarkerLatchPosition DATAITEM_GlobalReal DATAITEM_HandwheelCounts
syn keyword brannicConstant DATAITEM_HomeState DATAITEM_HostReplyTime DATAITEM_HostTimestamp
syn keyword brannicConstant DATAITEM_IFOVAttemptCode DATAITEM_IFOVCenterPointH DATAITEM_IFOVCenterPointV
syn keyword brannicConstant DATAITEM_IFOVCoordinatedAccelerationCommand
syn keyword brannicConstant DATAITEM_IFOVCoordinatedPositionCommand DATAITEM_IFOVCoordinatedSpeedCommand
syn keyword brannicConstant DATAITEM_IFOVFovDimensionH DATAITEM_IFOVFovDimensionV DATAITEM_IFOVFovPositionH
syn keyword brannicConstant DATAITEM_IFOVFovPositionV DATAITEM_IFOVGenerationFrameCounter
syn keyword brannicConstant DATAITEM_IFOVGenerationFrameIndex DATAITEM_IFOVGenerationTimeModified
syn keyword brannicConstant DATAITEM_IFOVGenerationTimeOriginal DATAITEM_IFOVIdealVelocity
syn keyword brannicConstant DATAITEM_IFOVMaximumVelocity DATAITEM_IFOVSpeedScale
syn keyword brannicConstant DATAITEM_IFOVSpeedScaleAverage DATAITEM_IFOVTrajectoryCount
syn keyword brannicConstant DATAITEM_IFOVTrajectoryIndex DATAITEM_IOBoardInstalled
syn keyword brannicConstant DATAITEM_ImmediateCommandErrorCode DATAITEM_ImmediateCommandErrorLocation
syn keyword brannicConstant DATAITEM_ImmediateState DATAITEM_InternalErrorCode DATAITEM_InternalErrorTimestamp
syn keyword brannicConstant DATAITEM_InternalPositionOffsets DATAITEM_JerkCommandRaw
syn keyword brannicConstant DATAITEM_JogTrajectoryStatus DATAITEM_JoystickDeflection
syn keyword brannicConstant DATAITEM_KestroSyncoutStatus DATAITEM_LaserShutterState
syn keyword brannicConstant DATAITEM_LatchedMarkerPosition DATAITEM_LibrariesOpen DATAITEM_LibraryCommand
syn keyword brannicConstant DATAITEM_LookaheadDecelDistance DATAITEM_LookaheadDecelMoves
syn keyword brannicConstant DATAITEM_LookaheadDecelReason DATAITEM_LookaheadMovesExamined
syn keyword brannicConstant DATAITEM_LoopTransmissionAfter DATAITEM_LoopTransmissionBefore
syn keyword brannicConstant DATAITEM_LoopTransmissionInjection DATAITEM_MCodeNumber DATAITEM_MCodeState
syn keyword brannicConstant DATAITEM_MFO DATAITEM_MXAbsolutePosition DATAITEM_MarkerSearchDistance
syn keyword brannicConstant DATAITEM_MasterPosition DATAITEM_MaximumVoltage DATAITEM_MirrorState
syn keyword brannicConstant DATAITEM_ModbusMasterInputBits DATAITEM_ModbusMasterInputWords
syn keyword brannicConstant DATAITEM_ModbusMasterOutputBits DATAITEM_ModbusMasterOutputStatusBits
syn keyword brannicConstant DATAITEM_ModbusMasterOutputStatusWords DATAITEM_ModbusMasterOutputWords
syn keyword brannicConstant DATAITEM_ModbusMasterRetries DATAITEM_ModbusSlaveInputBits
syn keyword brannicConstant DATAITEM_ModbusSlaveInputWords DATAITEM_ModbusSlaveOutputBits
syn keyword brannicConstant DATAITEM_ModbusSlaveOutputWords DATAITEM_MotionBufferElements
syn keyword brannicConstant DATAITEM_MotionBufferIndex DATAITEM_MotionBufferIndexLookahead
syn keyword brannicConstant DATAITEM_MotionBufferMoves DATAITEM_MotionBufferProcessingBlocked
syn keyword brannicConstant DATAITEM_MotionBufferRetraceElements DATAITEM_MotionBufferRetraceMoves
syn keyword brannicConstant DATAITEM_MotionEngineStage DATAITEM_MotionLineNumber
syn keyword brannicConstant DATAITEM_MotorCommutationAngle DATAITEM_MotorTemperature
syn keyword brannicConstant DATAITEM_MoveReferencePosition DATAITEM_NormalcyDebug DATAITEM_OperatorPauseState
syn keyword brannicConstant DATAITEM_OptionalStopState DATAITEM_PCIStatus DATAITEM_PCModbusMasterConnected
syn keyword brannicConstant DATAITEM_PCModbusMasterErrorCode DATAITEM_PCModbusMasterErrorLocation
syn keyword brannicConstant DATAITEM_PCModbusSlaveConnected DATAITEM_PCModbusSlaveErrorCode
syn keyword brannicConstant DATAITEM_PCModbusSlaveErrorLocation DATAITEM_PSOBitArrayIndex DATAITEM_PSOCounter1
syn keyword brannicConstant DATAITEM_PSOCounter2 DATAITEM_PSOCounter3 DATAITEM_PSODistanceArrayIndex
syn keyword brannicConstant DATAITEM_PSOExternalSyncFrequency DATAITEM_PSOHaltCount DATAITEM_PSOHaltPosition
syn keyword brannicConstant DATAITEM_PSOStatus DATAITEM_PSOWindow1 DATAITEM_PSOWindow1ArrayIndex
syn keyword brannicConstant DATAITEM_PSOWindow2 DATAITEM_PSOWindow2ArrayIndex DATAITEM_PasswordLevel
syn keyword brannicConstant DATAITEM_PeakCurrent DATAITEM_PhaseACurrentFeedback DATAITEM_PhaseAVoltageCommand
syn keyword brannicConstant DATAITEM_PhaseBCurrentFeedback DATAITEM_PhaseBVoltageCommand
syn keyword brannicConstant DATAITEM_PhaseCVoltageCommand DATAITEM_PiezoVoltageCommand
syn keyword brannicConstant DATAITEM_PiezoVoltageFeedback DATAITEM_PingTest DATAITEM_PositionCalibration2D
syn keyword brannicConstant DATAITEM_PositionCalibrationAll DATAITEM_PositionCalibrationAllDrive
syn keyword brannicConstant DATAITEM_PositionCalibrationGalvo DATAITEM_PositionCommand
syn keyword brannicConstant DATAITEM_PositionCommandDrive DATAITEM_PositionCommandGalvo
syn keyword brannicConstant DATAITEM_PositionCommandPacket DATAITEM_PositionCommandRaw
syn keyword brannicConstant DATAITEM_PositionCommandRawBackwardsDiff DATAITEM_PositionCommandRawCal
syn keyword brannicConstant DATAITEM_PositionCommandRawUnfiltered DATAITEM_PositionCommandRollover
syn keyword brannicConstant DATAITEM_PositionDetectorVoltage DATAITEM_PositionError
syn keyword brannicConstant DATAITEM_PositionErrorGalvo DATAITEM_PositionFeedback
syn keyword brannicConstant DATAITEM_PositionFeedbackAuxiliaryRollover DATAITEM_PositionFeedbackDrive
syn keyword brannicConstant DATAITEM_PositionFeedbackGalvo DATAITEM_PositionFeedbackRollover
syn keyword brannicConstant DATAITEM_PositionOffset DATAITEM_ProcessorTemperature DATAITEM_ProfileControlMask
syn keyword brannicConstant DATAITEM_ProgramLineNumber DATAITEM_ProgramPersistent DATAITEM_ProgramPosition
syn keyword brannicConstant DATAITEM_ProgramPositionCommand DATAITEM_ProgramPositionFeedback
syn keyword brannicConstant DATAITEM_ProgramQueueLines DATAITEM_ProgramVelocityCommand
syn keyword brannicConstant DATAITEM_ProgramVelocityFeedback DATAITEM_QueueStatus DATAITEM_RegisterActionCount
syn keyword brannicConstant DATAITEM_RegisterActionState DATAITEM_ResoluteAbsolutePosition
syn keyword brannicConstant DATAITEM_ResoluteStatus DATAITEM_ResolverChannel1 DATAITEM_ResolverChannel2
syn keyword brannicConstant DATAITEM_STOStatus DATAITEM_SafeZoneActiveMask DATAITEM_SafeZoneState
syn keyword brannicConstant DATAITEM_SafeZoneViolationMask DATAITEM_SchedulerProgramLoopRuns
syn keyword brannicConstant DATAITEM_SchedulerTaskBlocked DATAITEM_SchedulerTaskHolds
syn keyword brannicConstant DATAITEM_ScopeTriggerCount DATAITEM_ScopeTriggerDelay DATAITEM_ScopetrigID
syn keyword brannicConstant DATAITEM_ServoRounding DATAITEM_ServoUpdateRate DATAITEM_SettlingTime
syn keyword brannicConstant DATAITEM_SignalLogState DATAITEM_SlavePosition DATAITEM_SliceAngle
syn keyword brannicConstant DATAITEM_SliceLayer DATAITEM_SpeedTarget DATAITEM_SpeedTargetActual
syn keyword brannicConstant DATAITEM_SpindleSpeedTarget DATAITEM_StatusHighLevelOffsetsLastMsec
syn keyword brannicConstant DATAITEM_StopWatchTimer DATAITEM_SuppressedFaults DATAITEM_SystemParameter
syn keyword brannicConstant DATAITEM_SystemSignalLogState DATAITEM_TachometerInput DATAITEM_TargetTrackError
syn keyword brannicConstant DATAITEM_TargetTrackPosition DATAITEM_TargetTrackVelocity DATAITEM_TaskErrorCode
syn keyword brannicConstant DATAITEM_TaskErrorLocation DATAITEM_TaskExecutionLines
syn keyword brannicConstant DATAITEM_TaskExecutionLinesMaximum DATAITEM_TaskExecutionTime
syn keyword brannicConstant DATAITEM_TaskExecutionTimeMaximum DATAITEM_TaskInternalDebug DATAITEM_TaskMode
syn keyword brannicConstant DATAITEM_TaskParameter DATAITEM_TaskState DATAITEM_TaskStateInternal
syn keyword brannicConstant DATAITEM_TaskStatus0 DATAITEM_TaskStatus1 DATAITEM_TaskStatus2
syn keyword brannicConstant DATAITEM_TaskWarningCode DATAITEM_TaskWarningLocation DATAITEM_TemperatureSensor
syn keyword brannicConstant DATAITEM_ThermoCompCompensatingTemperature
syn keyword brannicConstant DATAITEM_ThermoCompControllingTemperature DATAITEM_ThermoCompSensorTemperature
syn keyword brannicConstant DATAITEM_ThermoCompStatus DATAITEM_TimeSinceReset DATAITEM_Timer
syn keyword brannicConstant DATAITEM_TimerPerformance DATAITEM_ToolNumberActive DATAITEM_TotalMoveTime
syn keyword brannicConstant DATAITEM_TransformPositionCommand DATAITEM_TransformPositionFeedback
syn keyword brannicConstant DATAITEM_TransitionOffsetErrors DATAITEM_VMEStatus DATAITEM_VelocityCommand
syn keyword brannicConstant DATAITEM_VelocityCommandDrive DATAITEM_VelocityCommandRaw
syn keyword brannicConstant DATAITEM_VelocityCommandRawBackwardsDiffDelta DATAITEM_VelocityCommandRawCal
syn keyword brannicConstant DATAITEM_VelocityError DATAITEM_VelocityFeedback DATAITEM_VelocityFeedbackAverage
syn keyword brannicConstant DATAITEM_VirtualBinaryInput DATAITEM_VirtualBinaryOutput
syn keyword brannicConstant DATAITEM_VirtualRegisterInput DATAITEM_VirtualRegisterOutput
syn keyword brannicConstant DATAITEM_WatchdogTimer DATAITEM_ZHSDifference DATAITEM_ZHSFiltered DATAITEM_ZHSSum
syn keyword brannicConstant DATAITEM_ZHSUnfiltered DATAMATRIXENCODING_ASCII DATAMATRIXENCODING_AUTO
syn keyword brannicConstant DATAMATRIXENCODING_BASE256 DATAMATRIXENCODING_C40 DATAMATRIXENCODING_EDIFACT
syn keyword brannicConstant DATAMATRIXENCODING_TEXT DATAMATRIXENCODING_X12 DATAMATRIXFORMAT_10X10
syn keyword brannicConstant DATAMATRIXFORMAT_12X12 DATAMATRIXFORMAT_12X26 DATAMATRIXFORMAT_12X36
syn keyword brannicConstant DATAMATRIXFORMAT_14X14 DATAMATRIXFORMAT_16X16 DATAMATRIXFORMAT_16X36
syn keyword brannicConstant DATAMATRIXFORMAT_16X48 DATAMATRIXFORMAT_18X18 DATAMATRIXFORMAT_20X20
syn keyword brannicConstant DATAMATRIXFORMAT_22X22 DATAMATRIXFORMAT_24X24 DATAMATRIXFORMAT_26X26
syn keyword brannicConstant DATAMATRIXFORMAT_32X32 DATAMATRIXFORMAT_36X36 DATAMATRIXFORMAT_40X40
syn keyword brannicConstant DATAMATRIXFORMAT_44X44 DATAMATRIXFORMAT_48X48 DATAMATRIXFORMAT_8X18
syn keyword brannicConstant DATAMATRIXFORMAT_8X32 DF_ABORTRETRYIGNORE DF_BUTTON_ABORT DF_BUTTON_CANCEL
syn keyword brannicConstant DF_BUTTON_IGNORE DF_BUTTON_NO DF_BUTTON_OK DF_BUTTON_RETRY DF_BUTTON_YES
syn keyword brannicConstant DF_DEFAULT_SECOND DF_DEFAULT_THIRD DF_FILE_MULTIPLE DF_FILE_SAVE DF_ICON_ERROR
syn keyword brannicConstant DF_ICON_INFORMATION DF_ICON_QUESTION DF_ICON_WARNING DF_INPUT_NUMBER
syn keyword brannicConstant DF_INPUT_PASSWORD DF_LIST DF_LIST_CLEAR DF_LIST_HIDE DF_LIST_SHOW DF_MANIO
syn keyword brannicConstant DF_MSGBEEP DF_MSGBOX DF_MSGFILESELECT DF_MSGINPUT DF_MSGLAMP DF_MSGMENU
syn keyword brannicConstant DF_MSGPROGRAM DF_OKCANCEL DF_RETRYCANCEL DF_SOUND DF_TOPMOST DF_YESNO
syn keyword brannicConstant DF_YESNOCANCEL DOTNETCALLBACK DRIVEINFO_AbsolutePosition DRIVEINFO_AbsoluteStatus
syn keyword brannicConstant DRIVEINFO_AbsoluteTurns DRIVEINFO_AmbientTemperature
syn keyword brannicConstant DRIVEINFO_AmplifierTemperature DRIVEINFO_AnalogInputCount
syn keyword brannicConstant DRIVEINFO_AnalogOutputCount DRIVEINFO_AuxiliaryEncoderAmplitude
syn keyword brannicConstant DRIVEINFO_AuxiliaryEncoderCosine DRIVEINFO_AuxiliaryEncoderErrors
syn keyword brannicConstant DRIVEINFO_AuxiliaryEncoderSine DRIVEINFO_AuxiliaryEncoderType
syn keyword brannicConstant DRIVEINFO_BoardRevision DRIVEINFO_BootloaderVersion DRIVEINFO_BrakeState
syn keyword brannicConstant DRIVEINFO_BusVoltage DRIVEINFO_BusVoltageMaximum DRIVEINFO_BusVoltageMinimum
syn keyword brannicConstant DRIVEINFO_BusVoltageNegative DRIVEINFO_CRCErrors DRIVEINFO_CalibrationDate
syn keyword brannicConstant DRIVEINFO_CommandDelay DRIVEINFO_CommutationAngle DRIVEINFO_ContinuousCurrent
syn keyword brannicConstant DRIVEINFO_ControlEffort DRIVEINFO_CurrentCommand DRIVEINFO_CurrentFeedback
syn keyword brannicConstant DRIVEINFO_CurrentLoopRate DRIVEINFO_CurrentScale DRIVEINFO_DigitalInputCount
syn keyword brannicConstant DRIVEINFO_DigitalInputs DRIVEINFO_DigitalOutputCount DRIVEINFO_DigitalOutputs
syn keyword brannicConstant DRIVEINFO_DriveModel DRIVEINFO_DriveType DRIVEINFO_EncoderBoardInstalled
syn keyword brannicConstant DRIVEINFO_EncoderBoardRevision DRIVEINFO_FPGAVersion DRIVEINFO_FanSpeed
syn keyword brannicConstant DRIVEINFO_FaultCount DRIVEINFO_FaultHistory DRIVEINFO_FaultMask
syn keyword brannicConstant DRIVEINFO_FirmwareBuild DRIVEINFO_FirmwareMajor DRIVEINFO_FirmwareMinor
syn keyword brannicConstant DRIVEINFO_FirmwarePatch DRIVEINFO_FlashSize DRIVEINFO_HallState
syn keyword brannicConstant DRIVEINFO_IOBoardInstalled DRIVEINFO_IOBoardRevision DRIVEINFO_IntegratorValue
syn keyword brannicConstant DRIVEINFO_LastFaultTime DRIVEINFO_LinkErrors DRIVEINFO_LinkState
syn keyword brannicConstant DRIVEINFO_LogicVoltage DRIVEINFO_ManufactureDate DRIVEINFO_MarkerCount
syn keyword brannicConstant DRIVEINFO_MarkerPosition DRIVEINFO_MemorySize DRIVEINFO_MotorCurrent
syn keyword brannicConstant DRIVEINFO_MotorTemperature DRIVEINFO_MotorVoltage DRIVEINFO_NodeAddress
syn keyword brannicConstant DRIVEINFO_OptionBits DRIVEINFO_PSOArrayIndex DRIVEINFO_PSOArraySize
syn keyword brannicConstant DRIVEINFO_PSOCounter1 DRIVEINFO_PSOCounter2 DRIVEINFO_PSOCounter3
syn keyword brannicConstant DRIVEINFO_PSOOutputState DRIVEINFO_PSOPulseCount DRIVEINFO_PSOState
syn keyword brannicConstant DRIVEINFO_PSOWindow1 DRIVEINFO_PSOWindow2 DRIVEINFO_PWMDeadTime
syn keyword brannicConstant DRIVEINFO_PWMFrequency DRIVEINFO_PacketsLost DRIVEINFO_PacketsReceived
syn keyword brannicConstant DRIVEINFO_PacketsSent DRIVEINFO_PeakCurrent DRIVEINFO_PeakCurrentTime
syn keyword brannicConstant DRIVEINFO_PhaseACurrent DRIVEINFO_PhaseBCurrent DRIVEINFO_PositionCommand
syn keyword brannicConstant DRIVEINFO_PositionError DRIVEINFO_PositionFeedback
syn keyword brannicConstant DRIVEINFO_PrimaryEncoderAmplitude DRIVEINFO_PrimaryEncoderCosine
syn keyword brannicConstant DRIVEINFO_PrimaryEncoderErrors DRIVEINFO_PrimaryEncoderSine
syn keyword brannicConstant DRIVEINFO_PrimaryEncoderType DRIVEINFO_ProcessorTemperature DRIVEINFO_RegenPower
syn keyword brannicConstant DRIVEINFO_ReplyTime DRIVEINFO_ResolverAngle DRIVEINFO_ResolverCosine
syn keyword brannicConstant DRIVEINFO_ResolverSine DRIVEINFO_STOState DRIVEINFO_SerialNumber
syn keyword brannicConstant DRIVEINFO_ServoOverruns DRIVEINFO_ServoRate DRIVEINFO_ServoTimeAverage
syn keyword brannicConstant DRIVEINFO_ServoTimeMaximum DRIVEINFO_SyncErrors DRIVEINFO_Uptime
syn keyword brannicConstant DRIVEINFO_VelocityCommand DRIVEINFO_VelocityFeedback DRIVEINFO_VoltageScale
syn keyword brannicConstant DRIVESTATUS_AccelPhase DRIVESTATUS_AutofocusActive DRIVESTATUS_BrakeOutput
syn keyword brannicConstant DRIVESTATUS_CaptureArmed DRIVESTATUS_CcwEOTLimit DRIVESTATUS_CosineEncoderError
syn keyword brannicConstant DRIVESTATUS_CurrentClamp DRIVESTATUS_CwEOTLimit DRIVESTATUS_DecelPhase
syn keyword brannicConstant DRIVESTATUS_DualLoopActive DRIVESTATUS_ESTOPInput DRIVESTATUS_Enabled
syn keyword brannicConstant DRIVESTATUS_EncoderClipping DRIVESTATUS_FeedbackSwitched
syn keyword brannicConstant DRIVESTATUS_GalvoCalEnabled DRIVESTATUS_GalvoPowerCorrection
syn keyword brannicConstant DRIVESTATUS_HallAInput DRIVESTATUS_HallBInput DRIVESTATUS_HallCInput
syn keyword brannicConstant DRIVESTATUS_HomeLimit DRIVESTATUS_InPosition DRIVESTATUS_MarkerInput
syn keyword brannicConstant DRIVESTATUS_MarkerLatch DRIVESTATUS_MoveActive DRIVESTATUS_NoMotorSupply
syn keyword brannicConstant DRIVESTATUS_PowerLimiting DRIVESTATUS_ProbeInput DRIVESTATUS_ProgramFlash
syn keyword brannicConstant DRIVESTATUS_RegenActive DRIVESTATUS_ServoControl DRIVESTATUS_SineEncoderError
syn keyword brannicConstant ETHERNET_CLOSED ETHERNET_CLOSING ETHERNET_CONNECTED ETHERNET_CONNECTING
syn keyword brannicConstant ETHERNET_LISTENING ETHERNET_NOTREADY ETHERNET_OVERFLOW ETHERNET_REFUSED
syn keyword brannicConstant ETHERNET_RESET ETHERNET_TIMEOUT EXE EXEMODAL FIBERSEARCHRESULT_AxisFaulted
syn keyword brannicConstant FIBERSEARCHRESULT_AxisNotAvailable FIBERSEARCHRESULT_AxisNotEnabled
syn keyword brannicConstant FIBERSEARCHRESULT_AxisNotHomed FIBERSEARCHRESULT_ConstraintViolated
syn keyword brannicConstant FIBERSEARCHRESULT_EdgeNotFound FIBERSEARCHRESULT_InputNotConfigured
syn keyword brannicConstant FIBERSEARCHRESULT_InputSaturated FIBERSEARCHRESULT_InvalidAxisCount
syn keyword brannicConstant FIBERSEARCHRESULT_InvalidDirection FIBERSEARCHRESULT_InvalidDistance
syn keyword brannicConstant FIBERSEARCHRESULT_InvalidRadius FIBERSEARCHRESULT_InvalidStep
syn keyword brannicConstant FIBERSEARCHRESULT_InvalidThreshold FIBERSEARCHRESULT_MaxMovesReached
syn keyword brannicConstant FIBERSEARCHRESULT_MaxPassesReached FIBERSEARCHRESULT_PeakNotFound
syn keyword brannicConstant FIBERSEARCHRESULT_SearchAborted FIBERSEARCHRESULT_SoftLimitReached
syn keyword brannicConstant FIBERSEARCHRESULT_SuccessfulSearch FIBERSEARCHRESULT_ThresholdNotReached
syn keyword brannicConstant FIBERSEARCHRESULT_TravelLimitReached FILECLOSE FILEEXISTS FILEOPEN FILEREAD
syn keyword brannicConstant FILEREADINI FILEWRITE FILEWRITEARRAY FILEWRITEINI FILEWRITENOTERM
syn keyword brannicConstant GALVOWOBBLEMODE_DISTANCEBASED GALVOWOBBLEMODE_TIMEBASED GALVOWOBBLETYPE_ELLIPSE
syn keyword brannicConstant GALVOWOBBLETYPE_FIGURE8PARALLEL GALVOWOBBLETYPE_FIGURE8PERPENDICULAR
syn keyword brannicConstant GALVO_LASERAUTO GALVO_LASEROFF GALVO_LASERON GALVO_LASERSTANDBY GRAY GREEN GREY
syn keyword brannicConstant IFOVSETUP_LimitSpeed IFOVSETUP_ReportCenter IFOVSETUP_WaitForStage LOADCALFILE
syn keyword brannicConstant LOGEVENT MAGENTA MAKESTRING MSG MSGBEEP MSGBOX MSGCLEAR MSGFILESELECT MSGHIDE
syn keyword brannicConstant MSGINPUT MSGLAMP MSGLIST MSGMENU MSGPROGRAM MSGSHOW NSCOPELTTRIG NSCOPETRIG
syn keyword brannicConstant ONSET_FALLINGEDGE ONSET_LEVEL ONSET_RISINGEDGE OPENDLL ORANGE PINK PLAYSOUND
syn keyword brannicConstant PRINTSCREEN PRIORITY_FAULT PRIORITY_HIGHEST PRIORITY_LOW PRIORITY_MEDIUM PROBE_ARM
syn keyword brannicConstant PROBE_DISARM PROBE_OFF PROBE_SETUP PROGRAM_COMPILING PROGRAM_COMPLETE
syn keyword brannicConstant PROGRAM_LOADED PROGRAM_NONE PROGRAM_PAUSED PROGRAM_RUNNING PSOSTATUS_ArrayActive
syn keyword brannicConstant PSOSTATUS_Counter1Running PSOSTATUS_Counter2Running PSOSTATUS_Counter3Running
syn keyword brannicConstant PSOSTATUS_Enabled PSOSTATUS_ExternalSync PSOSTATUS_FiringTooFast
syn keyword brannicConstant PSOSTATUS_OutputActive PSOSTATUS_PulseActive PSOSTATUS_Tracking
syn keyword brannicConstant PSOSTATUS_Window1Inside PSOSTATUS_Window2Inside PULSEOUTPUTMODE_CLOCKDIRECTION
syn keyword brannicConstant PULSEOUTPUTMODE_CWCCW PULSEOUTPUTMODE_OFF PULSEOUTPUTMODE_QUADRATURE PURPLE
syn keyword brannicConstant QUEUESTATUS_Active QUEUESTATUS_Empty QUEUESTATUS_EndOfProgram QUEUESTATUS_Full
syn keyword brannicConstant QUEUESTATUS_Loading QUEUESTATUS_Overrun QUEUESTATUS_Paused QUEUESTATUS_Underrun
syn keyword brannicConstant QUEUESTATUS_Waiting RED RETURNTYPE_END RETURNTYPE_INTERRUPT RETURNTYPE_NULL
syn keyword brannicConstant RETURNTYPE_OFFSET RETURNTYPE_START RUNREPORT SAFEZONETYPE_NOENTER
syn keyword brannicConstant SAFEZONETYPE_NOENTERAXISFAULT SAFEZONETYPE_NOEXIT SAFEZONETYPE_NOEXITAXISFAULT
syn keyword brannicConstant SCOPECLEAR SCOPECLOSE SCOPEEXPORT SCOPELOAD SCOPEOPEN SCOPEPRINT SCOPESAVE
syn keyword brannicConstant SCOPESTART SCOPESTOP SCOPETRIG_APPEND SCOPETRIG_CANCEL SCOPETRIG_CONTINUOUS
syn keyword brannicConstant SCOPETRIG_SINGLE SCOPETRIG_SNAPSHOT SETMANIO SHOWHELP SOFTLIMIT_HIGH SOFTLIMIT_LOW
syn keyword brannicConstant STOSTATUS_ChannelMismatch STOSTATUS_DelayRunning STOSTATUS_Input1Active
syn keyword brannicConstant STOSTATUS_Input2Active STOSTATUS_TestPulseSeen STOSTATUS_TorqueOff
syn keyword brannicConstant TASKEXEC_BUFFERED TASKEXEC_RETRACE TASKEXEC_RUNINTO TASKEXEC_RUNOVER
syn keyword brannicConstant TASKEXEC_STEPINTO TASKEXEC_STEPOVER TASKMODE_Absolute TASKMODE_AnalogMFO
syn keyword brannicConstant TASKMODE_AnalogMSO TASKMODE_BlockDelete TASKMODE_Counts TASKMODE_DryRun
syn keyword brannicConstant TASKMODE_FeedratePerRevolution TASKMODE_Incremental TASKMODE_InverseFeedrate
syn keyword brannicConstant TASKMODE_MFOLock TASKMODE_MSOLock TASKMODE_Metric TASKMODE_Minutes
syn keyword brannicConstant TASKMODE_OptionalStop TASKMODE_RampLinear TASKMODE_RampRate TASKMODE_RampSCurve
syn keyword brannicConstant TASKMODE_RampSine TASKMODE_RampTime TASKMODE_SingleBlock TASKMODE_SurfaceSpeed
syn keyword brannicConstant TASKMODE_VelocityBlending TASKMODE_WaitAuto TASKMODE_WaitInPosition
syn keyword brannicConstant TASKMODE_WaitMoveDone TASKSTATE_Error TASKSTATE_Idle TASKSTATE_Inactive
syn keyword brannicConstant TASKSTATE_ProgramComplete TASKSTATE_ProgramFeedheld TASKSTATE_ProgramPaused
syn keyword brannicConstant TASKSTATE_ProgramReady TASKSTATE_ProgramRunning TASKSTATE_Queue
syn keyword brannicConstant TASKSTATE_Unavailable TASKSTATUS0_BlockDeleteActive TASKSTATUS0_CallbackPending
syn keyword brannicConstant TASKSTATUS0_CallbackResponding TASKSTATUS0_CriticalSection
syn keyword brannicConstant TASKSTATUS0_ErrorHandlerActive TASKSTATUS0_FeedholdActive
syn keyword brannicConstant TASKSTATUS0_FeedholdDecelerating TASKSTATUS0_FeedholdInput
syn keyword brannicConstant TASKSTATUS0_ImmediateActive TASKSTATUS0_InterruptReturning
syn keyword brannicConstant TASKSTATUS0_MotionInterrupted TASKSTATUS0_OnGosubActive
syn keyword brannicConstant TASKSTATUS0_OptionalStopActive TASKSTATUS0_PausePending
syn keyword brannicConstant TASKSTATUS0_ProgramAssociated TASKSTATUS0_ProgramBuffered
syn keyword brannicConstant TASKSTATUS0_ProgramLoaded TASKSTATUS0_ProgramRunning TASKSTATUS0_ResetPending
syn keyword brannicConstant TASKSTATUS0_RetraceActive TASKSTATUS0_RetraceRequested
syn keyword brannicConstant TASKSTATUS0_SingleBlockActive TASKSTATUS0_StepIntoActive
syn keyword brannicConstant TASKSTATUS0_StepOverActive TASKSTATUS0_StopPending TASKSTATUS1_ArcMotionActive
syn keyword brannicConstant TASKSTATUS1_BezierMotionActive TASKSTATUS1_CoordinatedAccelerating
syn keyword brannicConstant TASKSTATUS1_CoordinatedDecelerating TASKSTATUS1_CoordinatedMotionActive
syn keyword brannicConstant TASKSTATUS1_CoordinatedPaused TASKSTATUS1_DependentMotionActive
syn keyword brannicConstant TASKSTATUS1_HandwheelActive TASKSTATUS1_JogActive TASKSTATUS1_JoystickActive
syn keyword brannicConstant TASKSTATUS1_LookaheadActive TASKSTATUS1_LookaheadLimited TASKSTATUS1_MFOLocked
syn keyword brannicConstant TASKSTATUS1_MSOLocked TASKSTATUS1_PTMotionActive TASKSTATUS1_PVTMotionActive
syn keyword brannicConstant TASKSTATUS1_RapidMotionActive TASKSTATUS1_VelocityBlending
syn keyword brannicConstant TASKSTATUS2_CannedFunctionActive TASKSTATUS2_CutterCompChanging
syn keyword brannicConstant TASKSTATUS2_CutterCompLeft TASKSTATUS2_CutterCompRight
syn keyword brannicConstant TASKSTATUS2_CylindricalActive TASKSTATUS2_FiberSearchActive
syn keyword brannicConstant TASKSTATUS2_FixtureOffsetActive TASKSTATUS2_GalvoCommanding TASKSTATUS2_IFOVActive
syn keyword brannicConstant TASKSTATUS2_IFOVWaiting TASKSTATUS2_LaserOn TASKSTATUS2_LaserOverrideOn
syn keyword brannicConstant TASKSTATUS2_MirrorActive TASKSTATUS2_NormalcyAligning TASKSTATUS2_NormalcyLeft
syn keyword brannicConstant TASKSTATUS2_NormalcyRight TASKSTATUS2_PolarActive TASKSTATUS2_ProgramOffsetActive
syn keyword brannicConstant TASKSTATUS2_RotationActive TASKSTATUS2_SafeZoneChecked TASKSTATUS2_SafeZoneLimited
syn keyword brannicConstant TASKSTATUS2_SpindleAtSpeed TASKSTATUS2_SpindleOnCcw TASKSTATUS2_SpindleOnCw
syn keyword brannicConstant TASKSTATUS2_SpindleOriented TASKSTATUS2_TargetTrackActive
syn keyword brannicConstant TASKSTATUS2_ThermoCompActive TASKSTATUS2_ToolOffsetActive
syn keyword brannicConstant TASKSTATUS2_TransformActive TASK_ALL TASK_FIRST TASK_LAST TASK_LIBRARY TASK_NONE
syn keyword brannicConstant THERMOCOMPSTATUS_Enabled THERMOCOMPSTATUS_OutOfRange THERMOCOMPSTATUS_Paused
syn keyword brannicConstant THERMOCOMPSTATUS_SensorMissing UNIT_PRIMARY UNIT_SECONDARY VME_BYTE VME_DWORD
syn keyword brannicConstant VME_FLOAT VME_WORD WAITOPTION_INPOSITION WAITOPTION_MOVEDONE WHITE YELLOW black
syn keyword brannicConstant blue brown calldll closedll cyan dotnetcallback gray green grey magenta msg
syn keyword brannicConstant msgbeep msgbox msgclear msgfileselect msghide msginput msglamp msglist msgmenu
syn keyword brannicConstant msgprogram msgshow nscopelttrig nscopetrig opendll orange pink purple red
syn keyword brannicConstant scopeclear scopeclose scopeexport scopeload scopeopen scopeprint scopesave
syn keyword brannicConstant scopestart scopestop setmanio white yellow

syn case ignore
syn keyword brannicControl CALL CLS DFS DO ELSE ELSEIF END ENDDFS ENDIF ENDREPEAT ENDRPT ENDWHILE ENDWHL EXIT
syn keyword brannicControl FOR GOTO IF JUMP LOOP NEXT REPEAT RETURN RPT WEND WHILE WHL
syn keyword brannicStatement ABORT ABS ABSOLUTE ACKNOWLEDGEALL ADDPROGRAM ANALOG APPLYDEFAULTS ARRAY AUTOFOCUS
syn keyword brannicStatement AXCALPARM AXISFAULT BACKLASH BARCODE BEZIER BLOCKMOTION BRAKE CALDISABLE
syn keyword brannicStatement CALENABLE CAMSYNC CCW CHECKPASSWORD CRITICAL CURRENTCOMMAND CW DATAACQ
syn keyword brannicStatement DATACOLLECT DIM DISABLE DSPMEM DVAR DVARS DWELL ENABLE ENCODER ENG ENGLISH
syn keyword brannicStatement EXECCANNEDFUNCTION EXECUTEMODE FARCALL FARGOTO FARJUMP FAULTACK FEEDBACKTUNING
syn keyword brannicStatement FEEDHOLD FIBER FLASHPARAM FREE FREECAM FREECAMTABLE FREERUN GALVO GEAR HAND
syn keyword brannicStatement HANDWHEEL HOME HOMEASYNC IFOV IMMEDIATE INC INCREM INCREMENTAL INITCOMMUTATION
syn keyword brannicStatement INTERRUPTMOTION JOYSTICK LOADCAMTABLE LOADCAMVAR LOOKAHEAD LOOPTRANS MC MET
syn keyword brannicStatement METRIC MFO MIN MINUTE MINUTES MIRROR MODBUSBIT MODBUSREGDOUBLE MODBUSREGINT16
syn keyword brannicStatement MODBUSREGINT32 MODBUSREGSINGLE MOVEABS MOVEDELAY MOVEINC MOVEOUTLIM MOVETOLIM
syn keyword brannicStatement MSET MSO NETWORK NORMALCY ON ONGOSUB OSC OSCILLATE OVERRIDEASYNC PCI PGM POPMODES
syn keyword brannicStatement PORT POSOFFSET PRG PRIMARY PRIVATE PROBE PROGRAM PROGRAMCONTROL PSOANALOG
syn keyword brannicStatement PSOCONTROL PSODISTANCE PSOHALT PSOOUTPUT PSOPULSE PSOPULSE2 PSOTRACK PSOWINDOW PT
syn keyword brannicStatement PUBLIC PULSE PUSHMODES PVT QCOMMAND RAMP REF REMOVEPROGRAM RETRACE ROTATION
syn keyword brannicStatement ROUNDING SAFEZONE SCOPELTTRIG SCURVE SEC SECOND SECONDARY SECONDS SERVO SET
syn keyword brannicStatement SETCANNEDFUNCTION SETCLAMP SETEXTPOS SETPARM SETPOSCMD SETPOSFBK SIGNALLOG
syn keyword brannicStatement SLAVEADVANCE SLAVEOFFSET SLICE SYNC SYNCCALL TARGETTRACK TASKERROR TASKWARNING
syn keyword brannicStatement THERMOCOMP TIMER TRACE TRANSFORM USERTASKERROR USERTASKWARNING VEL VELOC VELOCITY
syn keyword brannicStatement VME WAIT WRITEPARM WRITEPARMSTRING
syn keyword brannicFunction ACOS ASIN ATAN ATAN2 AXISNAMEOF AXISSTATUSFAST CALLBACK CEIL COS COUNTSTOUNITS
syn keyword brannicFunction DBL2STR DBLTOSTR DRIVECMD DRIVEINFO EXP EXTRACTDOUBLEHIGH EXTRACTDOUBLELOW
syn keyword brannicFunction EXTRACTSINGLE FILEREADARRAYBINARY FILESIZE FILEWRITEARRAYBINARY FLOOR FRAC
syn keyword brannicFunction INDEXTOMASK INT ISAVAIL ISDONE LEN LOG MASKTODBL MASKTOINDEX MODBUS RAND READPARM
syn keyword brannicFunction ROUND SIN SQRT STR2ASCII STR2DBL STRCHAR STRCMP STRFIND STRLEN STRLWR STRMID
syn keyword brannicFunction STRTOASCII STRTODBL STRUPR TAN TASKSTATUSFAST TEST UNITSTOCOUNTS
syn keyword brannicOperator AND BAND BNAND BNOR BNOT BOR BXOR EQ GE GT LE LT NE NOT OR
syn keyword brannicWord 1D 2D 3D ACC ACCEL ACCELERATION ACCEPT AIN ALLOCATE ALLOW ANGLE AOUT ARM AS ASSOCIATE
syn keyword brannicWord AUTO AUTOFLUSH AXES AXIS AXISGROUP AXISPAIR AXISSTATUS BIT BLOCKING BOOL BUFFEREDRUN
syn keyword brannicWord BYTE CALFILE1D CALFILE2D CALFILEGALVO2D CALFILEGALVOGCAL CENTROID CENTROID2D
syn keyword brannicWord CENTROID3D CLEAR CLIENT CLOSE CLOSEDLOOP CLR COEFFICIENTS COLLECT COMBINE COMMIT
syn keyword brannicWord CONDITIONAL CONFIG CONNECT CONTINUOUS CONTROL COUNTS CUBIC CYCLES DATA DATAMATRIX
syn keyword brannicWord DEBOUNCE DEC DECEL DECELERATION DEFINED DELAY DEPENDENT DIN DINT DIRECTION DIS
syn keyword brannicWord DISPLACEMENT DISPLAY DIST DISTANCE DIVIDE DIVIDER DOUBLE DOUBLE2 DOUT DWORD EDGE
syn keyword brannicWord ENCODERSCALEFACTOR ENTER ERRORDECODE EVENT EXECUTE EXTSYNC FALL FALSE FAST FASTALIGN
syn keyword brannicWord FASTALIGN3D FASTALIGN4D FASTALIGN5D FASTALIGN6D FILTER FILTERED FINDMARKER FIRE FIXED
syn keyword brannicWord FLOAT FLUSH FORCED GAIN GEOCENTER GET GETPARMSTRING HARD HILLCLIMB ID IFV IN INPOS
syn keyword brannicWord INPUT INPUTAXES INPUTROTARY INSTANT INT16 INT32 INT8 INVERT ITEM LASER
syn keyword brannicWord LASER1PULSEWIDTH LASER2PULSEWIDTH LASERMODE LASEROFFDELAY LASERONDELAY
syn keyword brannicWord LASEROUTPUTPERIOD LASEROVERRIDE LATCH LEFT LIMIT LIMITSERVOSPEED LIN LINEAR LISTEN
syn keyword brannicWord LOAD LONG LREAL MAP MASK MASTERCONFIG MASTERINPUTBITS MASTERINPUTWORDS
syn keyword brannicWord MASTEROUTPUTBITS MASTEROUTPUTWORDS MODE MOVEDONE NONBLOCKING NONE NORMAL NOWAIT NOWRAP
syn keyword brannicWord OCTETS OFF OFFSET ONCE OPEN OPENLOOP OUT OUTPUT OUTPUTAXES OUTPUTROTARY PARAMETERFILE
syn keyword brannicWord PAUSE PENDING PERFORMANCE PIVOT PLAYBACK POS POSITION PROJECTION PSO PSOARRAY PULSE2
syn keyword brannicWord PWM QUAD RADIUS RANGE RATE RATIO READ READCONFIGSTRING READPARMSTRING REAL RECORD
syn keyword brannicWord RELATIVE RESET RESTART RESTRICT RESUME RETURNTYPE RIGHT RISE RUN SAMPLES SAVE SCALE
syn keyword brannicWord SCOPETRIG SETUP SINE SINGLE SINT SINUSOID SIZE SLAVEINPUTBITS SLAVEINPUTWORDS
syn keyword brannicWord SLAVEOUTPUTBITS SLAVEOUTPUTWORDS SPFINE SPROUGH STANDBYPERIOD STANDBYPULSEWIDTH START
syn keyword brannicWord STATUS STEP STEPINTO STEPOVER STOP STRING SUB SUPPRESSIONPULSEWIDTH SYNCAXES
syn keyword brannicWord SYSTEMSTATUS TABLE TARGET TASK TASKSTATUS THEN TIME TIMEOUT TO TOGGLE TOLERANCE TRACK
syn keyword brannicWord TRACKINGACCEL TRACKINGSPEED TRIGGER TRUE TYPE UDINT UINT UINT16 UINT32 UINT8 UNITS
syn keyword brannicWord UPDATE UPDATEINTERVAL UPDATES USINT VALUES WHITENOISE WINDOW WOBBLE WORD WRAP WRITE

syn sync ccomment brannicComment minlines=50

hi def link brannicComment Comment
hi def link brannicString String
hi def link brannicNumber Number
hi def link brannicVariable Identifier
hi def link brannicDirective PreProc
hi def link brannicMarker Error
hi def link brannicGcode Type
hi def link brannicSystemVariable Special
hi def link brannicControl Conditional
hi def link brannicStatement Statement
hi def link brannicFunction Function
hi def link brannicOperator Operator
hi def link brannicWord Keyword
hi def link brannicConstant Constant

let b:current_syntax = "brannic"
