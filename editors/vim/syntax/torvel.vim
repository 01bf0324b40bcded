" Torvel. Made from the tables of the converter by editors/grammar/generate.mjs: do not edit.

if exists("b:current_syntax")
  finish
endif

syn iskeyword @,48-57,_
syn case match
syn match torvelName /\h\w*/
syn match torvelAxis /\a\{1,2}\ze\d\+\%(\.\d*\)\?\w\@!/
syn match torvelGcode /\c[EFGIJKLMNOPQRST]\%([A-Za-z_]\)\@!/
syn match torvelGcode /[Gg]\d\+\%(\.\d\+\)\?/
syn match torvelNumber /\d\+\%(\.\d*\)\?\|\.\d\+/
syn match torvelNumber /[0&][xXhH]\x\+/
syn match torvelVariable /\$\h\w*/
syn match torvelDirective /#\h\w*/
syn match torvelMarker /#error_unconvertible\w\@!.*/
syn match torvelString /"[^"]*\%("\|$\)/
syn match torvelComment +//.*+ contains=@Spell
syn region torvelComment start=+/\*+ end=+\*/+ contains=@Spell
syn match torvelControl /\%#=1\C\d\@1<=\%(\%(as\|e\%(lse\%(if\)\?\|nd\)\|f\%(alse\|or\|unction\)\|goto\|if\|re\%(peat\|turn\)\|st\%(ep\|ring\)\|t\%(o\|rue\)\|var\|w\%(ait\|hile\)\)\)\w\@!/
syn match torvelStatement /\%#=1\C\d\@1<=\%(\%(A\%(b\%(ort\|s\)\|c\%(knowledgeAll\|os\)\|nalog\%(InputGet\|Output\%(Get\|Set\)\)\|sin\|tan\%(2\)\?\|utofocusO\%(ff\|n\)\|xis\%(DataSignal\|Fault\|Parameter\|Status\%(Item\)\?\)\)\|C\%(ammingFreeTable\|eil\|o\%(rnerRounding\%(O\%(ff\|n\)\|Set\%(Axes\|Tolerance\)\)\|s\|untsToUnits\)\|riticalSection\%(End\|Start\)\)\|D\%(ataCollection\%(Add\%(AxisSignal\|SystemSignal\|TaskSignal\)\|Reset\|Stop\)\|i\%(gital\%(InputGet\|Output\%(Get\|Set\)\)\|s\%(able\|tanceUnits\)\)\|rive\%(Array\%(Read\%(Fast\)\?\|Write\)\|BrakeO\%(ff\|n\)\|DataCapture\%(ConfigureArray\|Off\)\|EncoderOutput\%(ConfigureDivider\|O\%(ff\|n\)\)\|FlashParameter\%(Commit\|Read\|Write\)\|Memory\%(Read\%(Float\%(32\|64\)\|Int32\)\|Write\%(Float\%(32\|64\)\|Int32\)\)\|PulseStream\%(Configure\|O\%(ff\|n\)\)\|S\%(et\%(AuxiliaryFeedback\|Position\%(Command\|Feedback\)\)\|tatus\)\)\|well\)\|E\%(nable\|xp\)\|F\%(ault\%(Acknowledge\|Throw\)\|ile\%(Close\|Size\)\|loor\|rac\)\|G\%(alvo\%(Configure\%(Laser\%(1PulseWidth\|2PulseWidth\|Delays\|Mode\|OutputPeriod\)\|S\%(tandbyP\%(eriod\|ulseWidth\)\|uppressionPulseWidth\)\)\|EncoderScaleFactorSet\|Laser\%(Output\)\?\|Projection\%(O\%(ff\|n\)\|SetCoefficients\)\|RotationSet\|Wobble\%(Mode\|O\%(ff\|n\)\|SetConfiguration\|Type\)\)\|earing\%(Filter\|O\%(ff\|n\)\|S\%(et\%(MasterAxis\|Ratio\)\|ource\)\)\)\|Home\%(Async\)\?\|Ifov\%(O\%(ff\|n\)\|Set\%(S\%(ize\|yncAxes\)\|T\%(ime\|racking\%(Acceleration\|Speed\)\)\|up\)\)\|Joystick\%(AxisGroup\%(Add\|RemoveAll\)\|Input\|Run\)\|Log\|Move\%(Absolute\|C\%(cw\|w\)\|Delay\|Freerun\%(Stop\)\?\|Incremental\|OutOfLimit\|P\%(t\|vt\)\|ToLimitC\%(cw\|w\)\)\|Normalcy\%(Alignment\|O\%(ff\|n\)\|Set\%(Axes\|Tolerance\)\)\|P\%(arameter\%(Get\%(AxisValue\|ControllerValue\|TaskValue\)\|Set\%(AxisValue\|ControllerValue\|TaskValue\)\)\|ositionOffset\%(Clear\|Set\)\|rogram\%(A\%(dd\|ssociate\)\|Exit\|Load\|Pause\|R\%(e\%(move\|s\%(et\|tart\)\)\|un\)\|St\%(art\|ep\%(Into\|Over\)\|op\)\)\)\|R\%(a\%(mp\%(Mode\|Type\)\|ndom\%(NextReal\|Seed\)\)\|e\%(al\%(DisplayFormat\|ToString\)\|turnType\)\|ound\)\|S\%(afeZone\%(Boundary\%(Add\|Remove\)\|On\|SetType\|Type\)\|etup\%(AxisRamp\%(Type\|Value\)\|CoordinatedRamp\%(Type\|Value\)\|DependentCoordinatedRampRate\|Task\%(DistanceUnits\|T\%(argetMode\|imeUnits\)\|WaitMode\)\)\|i\%(gnalLogTrigger\|n\)\|qrt\|t\%(atusGet\%(AxisItem\%(Fast\)\?\|SystemItem\|TaskItem\%(Fast\)\?\)\|ring\%(CharacterAt\|Equals\|FindSubstringIndex\|Length\|Substring\|To\%(LowerCase\|Real\|UpperCase\)\)\)\|ystem\%(DataSignal\|Parameter\|StatusItem\|ataSignal\)\)\|T\%(a\%(n\|rgetMode\|sk\%(DataSignal\|FeedholdO\%(ff\|n\)\|GetIndex\|InterruptMotionOn\|M\%(fo\|so\)\|Parameter\|Retrace\%(ClearHistory\|O\%(ff\|n\)\)\|S\%(et\%(Error\|Warning\)\|tat\%(e\|usItem\)\)\)\)\|hermoComp\%(ConfigureMode\|Mode\|O\%(ff\|n\)\|Reset\|SetValues\|Update\%(Interval\|Once\|Pause\|Resume\)\)\|ime\%(Units\|r\%(Clear\|Mode\|Read\)\)\|runc\|uning\%(CommutationInitialize\|SetMotor\%(Angle\|Current\)\)\)\|UnitsToCounts\|V\%(elocityBlendingO\%(ff\|n\)\|irtual\%(Binary\%(Input\%(Get\|Set\)\|Output\%(Get\|Set\)\)\|Register\%(Input\%(Get\|Set\)\|Output\%(Get\|Set\)\)\)\)\|Wait\%(For\%(InPosition\|MotionDone\)\|Mode\)\)\)\w\@!/

syn case match
syn keyword torvelControl as else elseif end false for function goto if repeat return step string to true var
syn keyword torvelControl wait while
syn keyword torvelStatement Abort Abs AcknowledgeAll Acos AnalogInputGet AnalogOutputGet AnalogOutputSet Asin
syn keyword torvelStatement Atan Atan2 AutofocusOff AutofocusOn AxisDataSignal AxisFault AxisParameter
syn keyword torvelStatement AxisStatus AxisStatusItem CammingFreeTable Ceil CornerRoundingOff CornerRoundingOn
syn keyword torvelStatement CornerRoundingSetAxes CornerRoundingSetTolerance Cos CountsToUnits
syn keyword torvelStatement CriticalSectionEnd CriticalSectionStart DataCollectionAddAxisSignal
syn keyword torvelStatement DataCollectionAddSystemSignal DataCollectionAddTaskSignal DataCollectionReset
syn keyword torvelStatement DataCollectionStop DigitalInputGet DigitalOutputGet DigitalOutputSet Disable
syn keyword torvelStatement DistanceUnits DriveArrayRead DriveArrayReadFast DriveArrayWrite DriveBrakeOff
syn keyword torvelStatement DriveBrakeOn DriveDataCaptureConfigureArray DriveDataCaptureOff
syn keyword torvelStatement DriveEncoderOutputConfigureDivider DriveEncoderOutputOff DriveEncoderOutputOn
syn keyword torvelStatement DriveFlashParameterCommit DriveFlashParameterRead DriveFlashParameterWrite
syn keyword torvelStatement DriveMemoryReadFloat32 DriveMemoryReadFloat64 DriveMemoryReadInt32
syn keyword torvelStatement DriveMemoryWriteFloat32 DriveMemoryWriteFloat64 DriveMemoryWriteInt32
syn keyword torvelStatement DrivePulseStreamConfigure DrivePulseStreamOff DrivePulseStreamOn
syn keyword torvelStatement DriveSetAuxiliaryFeedback DriveSetPositionCommand DriveSetPositionFeedback
syn keyword torvelStatement DriveStatus Dwell Enable Exp FaultAcknowledge FaultThrow FileClose FileSize Floor
syn keyword torvelStatement Frac GalvoConfigureLaser1PulseWidth GalvoConfigureLaser2PulseWidth
syn keyword torvelStatement GalvoConfigureLaserDelays GalvoConfigureLaserMode GalvoConfigureLaserOutputPeriod
syn keyword torvelStatement GalvoConfigureStandbyPeriod GalvoConfigureStandbyPulseWidth
syn keyword torvelStatement GalvoConfigureSuppressionPulseWidth GalvoEncoderScaleFactorSet GalvoLaser
syn keyword torvelStatement GalvoLaserOutput GalvoProjectionOff GalvoProjectionOn
syn keyword torvelStatement GalvoProjectionSetCoefficients GalvoRotationSet GalvoWobbleMode GalvoWobbleOff
syn keyword torvelStatement GalvoWobbleOn GalvoWobbleSetConfiguration GalvoWobbleType GearingFilter GearingOff
syn keyword torvelStatement GearingOn GearingSetMasterAxis GearingSetRatio GearingSource Home HomeAsync
syn keyword torvelStatement IfovOff IfovOn IfovSetSize IfovSetSyncAxes IfovSetTime IfovSetTrackingAcceleration
syn keyword torvelStatement IfovSetTrackingSpeed IfovSetup JoystickAxisGroupAdd JoystickAxisGroupRemoveAll
syn keyword torvelStatement JoystickInput JoystickRun Log MoveAbsolute MoveCcw MoveCw MoveDelay MoveFreerun
syn keyword torvelStatement MoveFreerunStop MoveIncremental MoveOutOfLimit MovePt MovePvt MoveToLimitCcw
syn keyword torvelStatement MoveToLimitCw NormalcyAlignment NormalcyOff NormalcyOn NormalcySetAxes
syn keyword torvelStatement NormalcySetTolerance ParameterGetAxisValue ParameterGetControllerValue
syn keyword torvelStatement ParameterGetTaskValue ParameterSetAxisValue ParameterSetControllerValue
syn keyword torvelStatement ParameterSetTaskValue PositionOffsetClear PositionOffsetSet ProgramAdd
syn keyword torvelStatement ProgramAssociate ProgramExit ProgramLoad ProgramPause ProgramRemove ProgramReset
syn keyword torvelStatement ProgramRestart ProgramRun ProgramStart ProgramStepInto ProgramStepOver ProgramStop
syn keyword torvelStatement RampMode RampType RandomNextReal RandomSeed RealDisplayFormat RealToString
syn keyword torvelStatement ReturnType Round SafeZoneBoundaryAdd SafeZoneBoundaryRemove SafeZoneOn
syn keyword torvelStatement SafeZoneSetType SafeZoneType SetupAxisRampType SetupAxisRampValue
syn keyword torvelStatement SetupCoordinatedRampType SetupCoordinatedRampValue
syn keyword torvelStatement SetupDependentCoordinatedRampRate SetupTaskDistanceUnits SetupTaskTargetMode
syn keyword torvelStatement SetupTaskTimeUnits SetupTaskWaitMode SignalLogTrigger Sin Sqrt StatusGetAxisItem
syn keyword torvelStatement StatusGetAxisItemFast StatusGetSystemItem StatusGetTaskItem StatusGetTaskItemFast
syn keyword torvelStatement StringCharacterAt StringEquals StringFindSubstringIndex StringLength
syn keyword torvelStatement StringSubstring StringToLowerCase StringToReal StringToUpperCase SystemDataSignal
syn keyword torvelStatement SystemParameter SystemStatusItem SystemataSignal Tan TargetMode TaskDataSignal
syn keyword torvelStatement TaskFeedholdOff TaskFeedholdOn TaskGetIndex TaskInterruptMotionOn TaskMfo TaskMso
syn keyword torvelStatement TaskParameter TaskRetraceClearHistory TaskRetraceOff TaskRetraceOn TaskSetError
syn keyword torvelStatement TaskSetWarning TaskState TaskStatusItem ThermoCompConfigureMode ThermoCompMode
syn keyword torvelStatement ThermoCompOff ThermoCompOn ThermoCompReset ThermoCompSetValues
syn keyword torvelStatement ThermoCompUpdateInterval ThermoCompUpdateOnce ThermoCompUpdatePause
syn keyword torvelStatement ThermoCompUpdateResume TimeUnits TimerClear TimerMode TimerRead Trunc
syn keyword torvelStatement TuningCommutationInitialize TuningSetMotorAngle TuningSetMotorCurrent
syn keyword torvelStatement UnitsToCounts VelocityBlendingOff VelocityBlendingOn VirtualBinaryInputGet
syn keyword torvelStatement VirtualBinaryInputSet VirtualBinaryOutputGet VirtualBinaryOutputSet
syn keyword torvelStatement VirtualRegisterInputGet VirtualRegisterInputSet VirtualRegisterOutputGet
syn keyword torvelStatement VirtualRegisterOutputSet WaitForInPosition WaitForMotionDone WaitMode

syn sync ccomment torvelComment minlines=50

hi def link torvelComment Comment
hi def link torvelString String
hi def link torvelNumber Number
hi def link torvelVariable Identifier
hi def link torvelDirective PreProc
hi def link torvelMarker Error
hi def link torvelGcode Type
hi def link torvelControl Conditional
hi def link torvelStatement Statement

let b:current_syntax = "torvel"
