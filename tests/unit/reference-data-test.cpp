// The reference data as rows: counts, forms, ranges, and what the platforms fix.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Behind a count that is not what is expected.
constexpr std::string_view countChanged =
    "\nIf rows were added or taken away, put the count right here and in docs/reference-data.md.";

// What the .def files hold

struct Constant {
    std::string_view name;
    std::string_view value;
    const char* replacement;
};

constexpr Constant constants[] = {
#define PREDEFINED(name, value) {name, value, nullptr},
#define PREDEFINED_REPLACED(name, value, replacement) {name, value, replacement},
#include "data/predefined-constants.def"
};

enum class Fate { named, removed, secondName };

struct Parameter {
    char group;  // 'A' axis, 'T' task, 'S' system
    int number;
    std::string_view legacy;
    std::string_view torvel;  // empty for a removed one and a second name
    Fate fate;
};

constexpr Parameter parameters[] = {
#define AXIS_PARAMETER(number, legacy, torvel) {'A', number, #legacy, #torvel, Fate::named},
#define AXIS_PARAMETER_REMOVED(number, legacy) {'A', number, #legacy, "", Fate::removed},
#define AXIS_PARAMETER_SECOND_NAME(number, legacy) {'A', number, #legacy, "", Fate::secondName},
#define TASK_PARAMETER(number, legacy, torvel) {'T', number, #legacy, #torvel, Fate::named},
#define TASK_PARAMETER_REMOVED(number, legacy) {'T', number, #legacy, "", Fate::removed},
#define SYSTEM_PARAMETER(number, legacy, torvel) {'S', number, #legacy, #torvel, Fate::named},
#define SYSTEM_PARAMETER_REMOVED(number, legacy) {'S', number, #legacy, "", Fate::removed},
#include "data/parameters.def"
};

struct Item {
    int number;
    std::string_view legacy;
    std::string_view signal;  // empty for a removed one
    bool axis;
    bool task;
    bool system;
    bool misspelled;
};

constexpr Item items[] = {
#define AXIS_ITEM(number, legacy, signal) {number, #legacy, #signal, true, false, false, false},
#define TASK_ITEM(number, legacy, signal) {number, #legacy, #signal, false, true, false, false},
#define AXIS_AND_TASK_ITEM(number, legacy, signal) \
    {number, #legacy, #signal, true, true, false, false},
#define SYSTEM_ITEM(number, legacy, signal) {number, #legacy, #signal, false, false, true, false},
#define SYSTEM_ITEM_MISSPELLED(number, legacy, signal) \
    {number, #legacy, #signal, false, false, true, true},
#define REMOVED_ITEM(number, legacy) {number, #legacy, "", false, false, false, false},
#include "data/data-items.def"
};

constexpr std::string_view keywordSpellings[] = {
#define KEYWORD(enumerator, spelling) spelling,
#define DIRECTIVE(enumerator, spelling) spelling,
#include "src/base/token-kinds.def"
#define SPELLING(spelling, kind) spelling,
#include "src/lex/keyword-spellings.def"
};

// What the platforms fix

struct Replaced {
    const char* name;
    const char* value;
    const char* replacement;
};

const Replaced replacedConstants[] = {
    {"RETURNTYPE_INTERRUPT", "2", "ReturnType.Interrupt"},
    {"RETURNTYPE_OFFSET", "4", "ReturnType.Offset"},
    {"TASKSTATE_Unavailable", "(0)", "TaskState.Unavailable"},
    {"TASKSTATE_Inactive", "(1)", "TaskState.Inactive"},
    {"TASKSTATE_Idle", "(2)", "TaskState.Idle"},
    {"TASKSTATE_ProgramReady", "(3)", "TaskState.ProgramReady"},
    {"TASKSTATE_ProgramRunning", "(4)", "TaskState.ProgramRunning"},
    {"TASKSTATE_ProgramFeedheld", "(5)", "TaskState.ProgramFeedheld"},
    {"TASKSTATE_ProgramPaused", "(6)", "TaskState.ProgramPaused"},
    {"TASKSTATE_ProgramComplete", "(7)", "TaskState.ProgramComplete"},
    {"TASKSTATE_Error", "(8)", "TaskState.Error"},
    {"AXISSTATUS_Homed", "(1 << 0)", "AxisStatus.Homed"},
    {"AXISSTATUS_Profiling", "(1 << 1)", "AxisStatus.Profiling"},
    {"AXISSTATUS_WaitDone", "(1 << 2)", "AxisStatus.WaitDone"},
    {"AXISSTATUS_CommandValid", "(1 << 3)", "AxisStatus.CommandValid"},
    {"AXISSTATUS_Homing", "(1 << 4)", "AxisStatus.Homing"},
    {"AXISSTATUS_Enabling", "(1 << 5)", "AxisStatus.Enabling"},
    {"AXISSTATUS_JogGenerating", "(1 << 7)", "AxisStatus.JogGenerating"},
    {"AXISSTATUS_Jogging", "(1 << 8)", "AxisStatus.Jogging"},
    {"AXISSTATUS_DrivePending", "(1 << 9)", "AxisStatus.DrivePending"},
    {"AXISSTATUS_DriveAbortPending", "(1 << 10)", "AxisStatus.DriveAbortPending"},
    {"AXISSTATUS_TrajectoryFiltering", "(1 << 11)", "AxisStatus.TrajectoryFiltering"},
    {"AXISSTATUS_IFOVEnabled", "(1 << 12)", "AxisStatus.IfovEnabled"},
    {"AXISSTATUS_NotVirtual", "(1 << 13)", "AxisStatus.NotVirtual"},
    {"AXISSTATUS_CalEnabled1D", "(1 << 14)", "AxisStatus.CalEnabled1D"},
    {"AXISSTATUS_CalEnabled2D", "(1 << 15)", "AxisStatus.CalEnabled2D"},
    {"AXISSTATUS_MasterSlaveControl", "(1 << 16)", "AxisStatus.MasterSlaveControl"},
    {"AXISSTATUS_JoystickControl", "(1 << 17)", "AxisStatus.JoystickControl"},
    {"AXISSTATUS_BacklashActive", "(1 << 18)", "AxisStatus.BacklashActive"},
    {"AXISSTATUS_GainMappingEnabled", "(1 << 19)", "AxisStatus.GainMappingEnabled"},
    {"AXISSTATUS_MoveDone", "(1 << 22)", "AxisStatus.MotionDone"},
    {"AXISSTATUS_MotionClamped", "(1 << 23)", "AxisStatus.MotionClamped"},
    {"AXISSTATUS_GantryAligned", "(1 << 24)", "AxisStatus.GantryAligned"},
    {"AXISSTATUS_GantryRealigning", "(1 << 25)", "AxisStatus.GantryRealigning"},
    {"AXISSTATUS_ThermoCompEnabled", "(1 << 27)", "AxisStatus.ThermoCompEnabled"},
    {"AXISFAULT_PositionError", "(1 << 0)", "AxisFault.PositionError"},
    {"AXISFAULT_OverCurrent", "(1 << 1)", "AxisFault.OverCurrent"},
    {"AXISFAULT_CwEOTLimit", "(1 << 2)", "AxisFault.CwEotLimit"},
    {"AXISFAULT_CcwEOTLimit", "(1 << 3)", "AxisFault.CcwEotLimit"},
    {"AXISFAULT_CwSoftLimit", "(1 << 4)", "AxisFault.CwSoftLimit"},
    {"AXISFAULT_CcwSoftLimit", "(1 << 5)", "AxisFault.CcwSoftLimit"},
    {"AXISFAULT_AmplifierFault", "(1 << 6)", "AxisFault.AmplifierFault"},
    {"AXISFAULT_PositionFbk", "(1 << 7)", "AxisFault.FbkInput0"},
    {"AXISFAULT_VelocityFbk", "(1 << 8)", "AxisFault.FbkInput1"},
    {"AXISFAULT_HallFault", "(1 << 9)", "AxisFault.HallFault"},
    {"AXISFAULT_MaxVelocity", "(1 << 10)", "AxisFault.MaxVelocity"},
    {"AXISFAULT_EstopFault", "(1 << 11)", "AxisFault.EstopFault"},
    {"AXISFAULT_VelocityError", "(1 << 12)", "AxisFault.VelocityError"},
    {"AXISFAULT_ExternalFault", "(1 << 15)", "AxisFault.ExternalFault"},
    {"AXISFAULT_MotorTemp", "(1 << 17)", "AxisFault.MotorTemp"},
    {"AXISFAULT_AmplifierTemp", "(1 << 18)", "AxisFault.AmplifierTemp"},
    {"AXISFAULT_EncoderFault", "(1 << 19)", "AxisFault.EncoderFault"},
    {"AXISFAULT_FbkScalingFault", "(1 << 23)", "AxisFault.FbkScalingFault"},
    {"AXISFAULT_MrkSearchFault", "(1 << 24)", "AxisFault.MrkSearchFault"},
    {"AXISFAULT_SafeZoneFault", "(1 << 25)", "AxisFault.SafeZoneFault"},
    {"AXISFAULT_InPosTimeout", "(1 << 26)", "AxisFault.InPosTimeout"},
    {"AXISFAULT_VoltageClamp", "(1 << 27)", "AxisFault.VoltageClamp"},
    {"AXISFAULT_PowerSupply", "(1 << 28)", "AxisFault.MotorSupply"},
    {"AXISFAULT_Internal", "(1 << 30)", "AxisFault.Internal"},
    {"DRIVESTATUS_Enabled", "(1 << 0)", "DriveStatus.Enabled"},
    {"DRIVESTATUS_CwEOTLimit", "(1 << 1)", "DriveStatus.CwEotLimit"},
    {"DRIVESTATUS_CcwEOTLimit", "(1 << 2)", "DriveStatus.CcwEotLimit"},
    {"DRIVESTATUS_HomeLimit", "(1 << 3)", "DriveStatus.HomeLimit"},
    {"DRIVESTATUS_MarkerInput", "(1 << 4)", "DriveStatus.MarkerInput"},
    {"DRIVESTATUS_HallAInput", "(1 << 5)", "DriveStatus.HallAInput"},
    {"DRIVESTATUS_HallBInput", "(1 << 6)", "DriveStatus.HallBInput"},
    {"DRIVESTATUS_HallCInput", "(1 << 7)", "DriveStatus.HallCInput"},
    {"DRIVESTATUS_SineEncoderError", "(1 << 8)", "DriveStatus.SineEncoderError"},
    {"DRIVESTATUS_CosineEncoderError", "(1 << 9)", "DriveStatus.CosineEncoderError"},
    {"DRIVESTATUS_ESTOPInput", "(1 << 10)", "DriveStatus.EstopInput"},
    {"DRIVESTATUS_BrakeOutput", "(1 << 11)", "DriveStatus.BrakeOutput"},
    {"DRIVESTATUS_GalvoPowerCorrection", "(1 << 12)", "DriveStatus.GalvoPowerCorrection"},
    {"DRIVESTATUS_NoMotorSupply", "(1 << 14)", "DriveStatus.NoMotorSupply"},
    {"DRIVESTATUS_CurrentClamp", "(1 << 15)", "DriveStatus.CurrentClamp"},
    {"DRIVESTATUS_MarkerLatch", "(1 << 16)", "DriveStatus.MarkerLatch"},
    {"DRIVESTATUS_PowerLimiting", "(1 << 17)", "DriveStatus.PowerLimiting"},
    {"DRIVESTATUS_GalvoCalEnabled", "(1 << 20)", "DriveStatus.GalvoCalEnabled"},
    {"DRIVESTATUS_AutofocusActive", "(1 << 21)", "DriveStatus.AutofocusActive"},
    {"DRIVESTATUS_ProgramFlash", "(1 << 22)", "DriveStatus.ProgramFlash"},
    {"DRIVESTATUS_ServoControl", "(1 << 24)", "DriveStatus.ServoControl"},
    {"DRIVESTATUS_InPosition", "(1 << 25)", "DriveStatus.InPosition"},
    {"DRIVESTATUS_MoveActive", "(1 << 26)", "DriveStatus.MoveActive"},
    {"DRIVESTATUS_AccelPhase", "(1 << 27)", "DriveStatus.AccelPhase"},
    {"DRIVESTATUS_DecelPhase", "(1 << 28)", "DriveStatus.DecelPhase"},
    {"DRIVESTATUS_EncoderClipping", "(1 << 29)", "DriveStatus.EncoderClipping"},
    {"DRIVESTATUS_DualLoopActive", "(1 << 30)", "DriveStatus.DualLoopActive"},
};

struct LibraryCall {
    const char* name;
    const char* function;
    const char* rest;
};

const LibraryCall libraryCalls[] = {
    {"FILEOPEN", "KelCBackFileOpen", ","},
    {"FILECLOSE", "KelCBackFileClose", ""},
    {"FILEWRITE", "KelCBackFileWrite", ","},
    {"FILEWRITENOTERM", "KelCBackFileWriteNoTerm", ","},
    {"FILEREADINI", "KelCBackFileReadIniValue", ","},
    {"FILEWRITEINI", "KelCBackFileWriteIniValue", ","},
    {"FILEREAD", "KelCBackFileRead", ","},
    {"FILEEXISTS", "KelCBackFileExists", ","},
    {"FILEWRITEARRAY", "KelCBackFileWriteArray", ","},
    {"MAKESTRING", "KelCBackMakeString", ","},
    {"COMMINIT", "KelCBackCommInit", ","},
    {"COMMSETTIMEOUT", "KelCBackCommSetTimeouts", ","},
    {"EXE", "KelCBackExe", ", 0,"},
    {"EXEMODAL", "KelCBackExe", ", 1,"},
    {"LOADCALFILE", "KelCBackCalFileDownload", ","},
};

// The signals, in the order of their numbers.

const char axisSignals[] =
    "PositionFeedback PositionCommand PositionError VelocityFeedback VelocityCommand "
    "VelocityError AccelerationCommand CurrentFeedback CurrentCommand CurrentError AnalogInput0 "
    "AnalogInput1 PositionCommandRaw VelocityCommandRaw AuxiliaryFeedback DigitalInput "
    "DigitalOutput FixtureOffset PhaseACurrentFeedback PhaseBCurrentFeedback EncoderSine "
    "EncoderCosine AnalogInput2 AnalogInput3 LoopTransmissionBefore LoopTransmissionAfter "
    "ZhsDifference ZhsSum ZhsUnfiltered ZhsFiltered AnalogOutput0 AnalogOutput1 AnalogOutput2 "
    "AnalogOutput3 DriveMemoryInt32 DriveMemoryFloat DriveMemoryDouble PsoStatus "
    "DriveTimerDebug CoordinatedPositionTarget DriveStatus AxisStatus AxisFault "
    "AccelerationCommandRaw PositionCalibrationAll PositionFeedbackRollover "
    "PositionCommandRollover PositionFeedbackAuxiliaryRollover VelocityFeedbackAverage "
    "CurrentFeedbackAverage AxisParameter PeakCurrent Backlash HomeState PositionCalibration2D "
    "NormalcyDebug TotalMoveTime PositionFeedbackDrive JerkCommandRaw ProgramPositionCommand "
    "PositionOffset PositionCommandRawBackwardsDiff VelocityCommandRawBackwardsDiffDelta "
    "PositionCommandDrive DriveStatusActual ProgramPositionFeedback JogTrajectoryStatus "
    "PingTest AccelerationTime DecelerationTime AccelerationRate DecelerationRate "
    "AccelerationType DecelerationType AccelerationMode DecelerationMode ProgramPosition "
    "DriveMemoryInt16 DriveMemoryInt8 SpeedTarget PositionCommandPacket DriveSmcMotionState "
    "PositionCommandRawCal VelocityCommandRawCal VelocityCommandDrive AccelerationCommandDrive "
    "GalvoLaserOutputRaw DriveInterfacePacketInt32 DriveInterfacePacketInt16 "
    "DriveInterfacePacketInt8 DriveInterfacePacketDouble DriveInterfacePacketFloat "
    "DriveInterfaceCommandCode AccelerationFeedback AccelerationCommandRawCal "
    "PositionCalibrationAllDrive BacklashTarget DriveMotionRate DriveMotionDelay "
    "CalibrationAdjustmentValue ServoRounding DriveMemoryInt32Pointer DriveMemoryInt16Pointer "
    "DriveMemoryInt8Pointer DriveMemoryFloatPointer DriveMemoryDoublePointer FeedforwardCurrent "
    "DriveInterfacePacketInfoBitValue AccelerationError EnableState SuppressedFaults "
    "DriveInterfacePacketStreamingData PositionCommandRawUnfiltered TransitionOffsetErrors "
    "PsoCounter1 PsoCounter2 PsoCounter3 PsoWindow1 PsoWindow2 DataAcquisitionSamples "
    "PositionDetectorVoltage PositionCommandGalvo FreezeVelocityCommand FreezeVelocityFeedback "
    "InternalPositionOffsets StatusHighLevelOffsetsLastMsec ProgramVelocityCommand "
    "ProgramVelocityFeedback DriveMotionDelayLive DriveCommunicationDelay "
    "DriveCommunicationDelayLive DriveInterfacePacketResponseInt32 "
    "DriveInterfacePacketResponseInt16 DriveInterfacePacketResponseInt8 "
    "DriveInterfacePacketResponseDouble DriveInterfacePacketResponseFloat "
    "DriveInterfacePacketBit DriveInterfacePacketResponseBit SpeedTargetActual ResolverChannel1 "
    "ResolverChannel2 EnDatAbsolutePosition SignalLogState ControlEffort PhaseAVoltageCommand "
    "PhaseBVoltageCommand PhaseCVoltageCommand AmplifierPeakCurrent FpgaVersion DriveTypeID "
    "PsoWindow1ArrayIndex PsoWindow2ArrayIndex PsoDistanceArrayIndex AmplifierTemperature "
    "PsoBitArrayIndex MXAbsolutePosition ServoUpdateRate SettlingTime InternalErrorCode "
    "FirmwareVersionMajor FirmwareVersionMinor FirmwareVersionPatch FirmwareVersionBuild "
    "DriveTimerMax MarkerSearchDistance SafeZoneActiveMask SafeZoneState PositionFeedbackGalvo "
    "PositionErrorGalvo LatchedMarkerPosition TemperatureSensor GainKd1Scale GainKp1Scale "
    "MoveReferencePosition KestroSyncoutStatus GantryMarkerLatchPosition "
    "ResoluteAbsolutePosition FaultPositionFeedback MotorCommutationAngle IOBoardInstalled "
    "BusVoltage PiezoVoltageCommand PiezoVoltageFeedback MaximumVoltage CommandOutputType "
    "DriveFeedforwardOutput BoardRevision FirmwareRevision GalvoLaserOutput AutoFocusError "
    "GalvoLaserOutputRawAdvance GalvoLaserOnDelay GalvoLaserOffDelay "
    "GalvoLaserPowerCorrectionOutput CapacitanceSensorRawPosition CalibrationAdjustmentState "
    "AccuracyCorrectionStartingPosition AccuracyCorrectionEndingPosition "
    "PositionCalibrationGalvo DriveCommandsDelayed DriveCommandsLost BusVoltageNegative "
    "ProcessorTemperature StoStatus InternalErrorTimestamp AmplifierInformation "
    "AnalogSensorInput MotorTemperature ResoluteStatus DriveAssert PsoExternalSyncFrequency";

const char taskSignals[] =
    "ProgramLineNumber CoordinatedFlags CoordinatedPositionTarget CoordinatedArcStartAngle "
    "CoordinatedArcEndAngle CoordinatedArcRadius CoordinatedArcRadiusError "
    "CoordinatedPositionCommand CoordinatedSpeedCommand CoordinatedAccelerationCommand "
    "CoordinatedTotalDistance CoordinatedPercentDone CoordinatedPositionCommandBackwardsDiff "
    "TaskParameter TaskErrorCode TaskWarningCode CoordinatedSpeedTargetActual "
    "DependentCoordinatedSpeedTargetActual ActiveFixtureOffset TaskStatus0 TaskStatus1 "
    "TaskStatus2 SpindleSpeedTarget JogTrajectoryStatus CoordinateSystem1I CoordinateSystem1J "
    "CoordinateSystem1K CoordinateSystem1Plane ToolNumberActive Mfo CoordinatedSpeedTarget "
    "DependentCoordinatedSpeedTarget CoordinatedAccelerationRate CoordinatedDecelerationRate "
    "CoordinatedAccelerationTime CoordinatedDecelerationTime TaskMode AccelerationTime "
    "DecelerationTime AccelerationRate DecelerationRate AccelerationType DecelerationType "
    "AccelerationMode DecelerationMode TaskState TaskStateInternal ExecutionMode "
    "TaskErrorLocation TaskWarningLocation ProgramPersistent ImmediateState ProgramPosition "
    "EnableAlignmentAxes SpeedTarget QueueStatus CoordinatedGalvoLaserOutput "
    "CoordinatedMotionRate CoordinatedTaskCommand SpeedTargetActual LookaheadMovesExamined "
    "ProfileControlMask ImmediateCommandErrorCode ImmediateCommandErrorLocation "
    "CoordinatedArcRadiusReciprocal MotionEngineStage CoordinatedTimeScale "
    "CoordinatedTimeScaleDerivative IfovSpeedScale IfovSpeedScaleAverage "
    "IfovGenerationFrameCounter IfovGenerationTimeOriginal IfovGenerationTimeModified "
    "IfovCoordinatedPositionCommand IfovCoordinatedSpeedCommand TimeSinceReset MaximumVoltage "
    "CommandOutputType IfovCenterPointH IfovCenterPointV IfovTrajectoryCount "
    "IfovTrajectoryIndex IfovAttemptCode IfovGenerationFrameIndex IfovMaximumVelocity "
    "IfovIdealVelocity TaskInternalDebug IfovCoordinatedAccelerationCommand IfovFovPositionH "
    "IfovFovPositionV IfovFovDimensionH IfovFovDimensionV MotionBufferElements "
    "MotionBufferMoves MotionLineNumber MotionBufferRetraceMoves MotionBufferRetraceElements "
    "MotionBufferIndex MotionBufferIndexLookahead MotionBufferProcessingBlocked ActiveMoveValid "
    "TaskExecutionLines SchedulerTaskHolds SchedulerProgramLoopRuns SchedulerTaskBlocked "
    "CriticalSectionActive AxesSlowdownReason ResoluteStatus TaskExecutionTime "
    "TaskExecutionTimeMaximum TaskExecutionLinesMaximum PsoExternalSyncFrequency "
    "LookaheadDecelReason LookaheadDecelMoves LookaheadDecelDistance";

const char systemSignals[] =
    "VirtualBinaryInput VirtualBinaryOutput VirtualRegisterInput VirtualRegisterOutput "
    "PositionCalibrationAll Timer TimerPerformance GlobalReal CommunicationRealTimeErrors "
    "LibraryCommand DataCollectionSampleTime DataCollectionSampleIndex PCModbusMasterConnected "
    "PCModbusSlaveConnected PCModbusMasterErrorCode PCModbusSlaveErrorCode "
    "PCModbusMasterErrorLocation PCModbusSlaveErrorLocation StopWatchTimer ScopetrigID "
    "EstimatedProcessorUsage DataCollectionStatus SignalLogState FieldbusConnected "
    "FieldbusErrorCode FieldbusErrorLocation FieldbusActiveConnections "
    "FieldbusInactiveConnections SafeZoneViolationMask FieldbusInputs FieldbusOutputs "
    "ModbusMasterInputWords ModbusMasterOutputWords ModbusMasterInputBits "
    "ModbusMasterOutputBits ModbusMasterOutputStatusBits ModbusMasterOutputStatusWords "
    "ModbusSlaveInputWords ModbusSlaveOutputWords ModbusSlaveInputBits ModbusSlaveOutputBits "
    "SystemParameter ThermoCompSensorTemperature ThermoCompControllingTemperature "
    "ThermoCompCompensatingTemperature ThermoCompStatus";

const char* const defaultAxisNames[] = {
    "X",  "Y",  "Z",  "U",  "A",  "B",  "C",  "D",  "x",  "y",  "z",  "u",  "a",  "b",  "c",  "d",
    "XX", "YY", "ZZ", "UU", "AA", "BB", "CC", "DD", "xx", "yy", "zz", "uu", "aa", "bb", "cc", "dd",
};

// Groups of constants, the largest first.
const char* const smallGroups[] = {
    "BEZIERSETUP_", "PSOSTATUS_",        "ETHERNET_",        "QUEUESTATUS_", "CONFIGITEM_",
    "AXISCAL_",     "ANALOG_",           "TASKEXEC_",        "STOSTATUS_",   "PROGRAM_",
    "TASK_",        "SCOPETRIG_",        "SAFEZONETYPE_",    "PROBE_",       "GALVO_",
    "VME_",         "THERMOCOMPSTATUS_", "PULSEOUTPUTMODE_", "PRIORITY_",    "ONSET_",
    "IFOVSETUP_",   "GALVOWOBBLETYPE_",  "GALVOWOBBLEMODE_", "WAITOPTION_",  "UNIT_",
    "SOFTLIMIT_",   "BARCODEOPTIONS_",
};

// Tools

std::vector<std::string> words(const char* text) {
    std::istringstream stream(text);
    std::vector<std::string> result;
    for (std::string word; stream >> word;) {
        result.push_back(word);
    }
    return result;
}

std::string upper(std::string_view text) {
    std::string result;
    for (const char c : text) {
        result += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return result;
}

bool matches(std::string_view text, const std::regex& form) {
    return std::regex_match(text.begin(), text.end(), form);
}

bool isKeyword(std::string_view word) {
    static const std::set<std::string_view> spellings(std::begin(keywordSpellings),
                                                      std::end(keywordSpellings));
    return spellings.contains(upper(word));
}

const Constant* constantNamed(std::string_view name) {
    const auto found = std::find_if(std::begin(constants), std::end(constants),
                                    [&](const Constant& row) { return row.name == name; });
    return found == std::end(constants) ? nullptr : found;
}

std::string_view valueOf(std::string_view name) {
    const Constant* row = constantNamed(name);
    return row == nullptr ? "(no such name)" : row->value;
}

std::vector<Constant> family(std::string_view prefix) {
    std::vector<Constant> members;
    for (const Constant& row : constants) {
        if (row.name.starts_with(prefix)) {
            members.push_back(row);
        }
    }
    return members;
}

std::vector<Constant> familyWithoutReplacement(std::string_view prefix) {
    std::vector<Constant> members = family(prefix);
    std::erase_if(members, [](const Constant& row) { return row.replacement != nullptr; });
    return members;
}

std::string_view groupPrefix(std::string_view name) {
    return name.substr(0, name.find('_') + 1);
}

const Parameter* parameter(char group, int number) {
    const auto found =
        std::find_if(std::begin(parameters), std::end(parameters), [&](const Parameter& row) {
            return row.group == group && row.number == number && row.fate != Fate::secondName;
        });
    return found == std::end(parameters) ? nullptr : found;
}

long parameterCount(char group, Fate fate) {
    return std::count_if(std::begin(parameters), std::end(parameters), [&](const Parameter& row) {
        return row.group == group && row.fate == fate;
    });
}

const Item* item(int number) {
    const auto found = std::find_if(std::begin(items), std::end(items),
                                    [&](const Item& row) { return row.number == number; });
    return found == std::end(items) ? nullptr : found;
}

// Substitution, written from the rule alone

bool wordByte(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '$' || c == '_';
}

bool cutBetween(char left, char right) {
    const bool leftDigit = std::isdigit(static_cast<unsigned char>(left)) != 0;
    const bool rightDigit = std::isdigit(static_cast<unsigned char>(right)) != 0;
    const bool leftLetter = std::isalpha(static_cast<unsigned char>(left)) != 0;
    const bool rightLetter = std::isalpha(static_cast<unsigned char>(right)) != 0;
    if (!wordByte(left) || !wordByte(right)) {
        return true;
    }
    return (leftDigit && rightLetter) || (leftLetter && rightDigit) ||
           (left != '$' && right == '$');
}

using Expansions = std::map<std::string, std::string, std::less<>>;

std::string substituteWord(std::string_view word, const Expansions& defined) {
    std::string result;
    std::size_t start = 0;
    while (start < word.size()) {
        auto match = defined.end();
        std::size_t end = word.size();
        for (; end > start && match == defined.end(); --end) {
            if (end == word.size() || cutBetween(word[end - 1], word[end])) {
                match = defined.find(word.substr(start, end - start));
            }
        }
        if (match != defined.end()) {
            result += match->second;
            start += match->first.size();
            continue;
        }
        do {
            result += word[start++];
        } while (start < word.size() && !cutBetween(word[start - 1], word[start]));
    }
    return result;
}

std::string substitute(std::string_view text, const Expansions& defined) {
    std::string result;
    std::string word;
    bool inString = false;
    for (const char c : text) {
        if (inString || c == '"' || c == ' ') {
            result += substituteWord(word, defined) + c;
            word.clear();
            inString = inString != (c == '"');
        } else {
            word += c;
        }
    }
    return result + substituteWord(word, defined);
}

/// What each name stands for when the rows are defined one after the other.
const Expansions& expansions() {
    static const Expansions all = [] {
        Expansions defined;
        for (const Constant& row : constants) {
            defined.emplace(row.name, substitute(row.value, defined));
        }
        return defined;
    }();
    return all;
}

/// The words of a text outside its strings that are neither numbers nor variables.
std::vector<std::string> namesLeft(const std::string& text) {
    static const std::regex piece(
        "\"[^\"]*\"|\\$[A-Za-z]+|0x[0-9A-F]+|[0-9]+|[A-Za-z_][A-Za-z0-9_]*|.");
    std::vector<std::string> names;
    for (std::sregex_iterator at(text.begin(), text.end(), piece), end; at != end; ++at) {
        const std::string found = at->str();
        if (std::isalpha(static_cast<unsigned char>(found[0])) != 0 || found[0] == '_') {
            names.push_back(found);
        }
    }
    return names;
}

/// What stands outside strings, words, numbers and the punctuation that values use.
std::string strayCharacters(const std::string& text) {
    static const std::regex known(
        "\"[^\"]*\"|\\$P(AXIS|TASK|GLOB)\\b|0x[0-9A-F]+|[0-9]+|[A-Za-z_]\\w*|[-+|(),<\\[\\] ]");
    return std::regex_replace(text, known, "");
}

int sum(const std::string& text) {
    static const std::regex addition("\\(([0-9]+)\\+([0-9]+)\\)");
    std::smatch match;
    return std::regex_match(text, match, addition) ? std::stoi(match[1]) + std::stoi(match[2]) : -1;
}

struct Callback {
    int code = -1;
    std::int64_t message = -1;
};

/// The code of the callback that `name` expands to, and the integer after it.
Callback callback(std::string_view name) {
    static const std::regex form("CALLBACK (\\([0-9]+\\+[0-9]+\\))(?:, (0x[0-9A-F]+))?(?:,.*)?");
    std::smatch match;
    const auto expansion = expansions().find(name);
    if (expansion == expansions().end() || !std::regex_match(expansion->second, match, form)) {
        return {};
    }
    return {sum(match[1]), match[2].matched ? std::stoll(match[2], nullptr, 16) : -1};
}

void expectForm(const std::vector<Constant>& rows, const char* pattern) {
    const std::regex form(pattern);
    for (const Constant& row : rows) {
        EXPECT_TRUE(matches(row.value, form)) << row.name << " = " << row.value;
    }
}

std::int64_t numberOf(std::string_view value) {
    static const std::regex shift("\\(1 << ([0-9]+)\\)");
    static const std::regex plain("\\(?(-?(?:0x)?[0-9A-F]+)\\)?");
    std::cmatch match;
    const char* const end = value.data() + value.size();
    if (std::regex_match(value.data(), end, match, shift)) {
        return std::int64_t{1} << std::stoi(match[1]);
    }
    return std::regex_match(value.data(), end, match, plain) ? std::stoll(match[1], nullptr, 0)
                                                             : -999;
}

void expectDistinctValues(std::string_view prefix) {
    std::map<std::int64_t, std::string_view> seen;
    for (const Constant& row : family(prefix)) {
        const auto [at, added] = seen.emplace(numberOf(row.value), row.name);
        EXPECT_TRUE(added) << row.name << " and " << at->second << " are " << row.value;
    }
}

// The whole table

TEST(PredefinedConstants, HasEveryRow) {
    EXPECT_EQ(std::size(constants), 2267U) << countChanged;
}

TEST(PredefinedConstants, NamesAreDistinct) {
    std::set<std::string_view> seen;
    for (const Constant& row : constants) {
        EXPECT_TRUE(seen.insert(row.name).second) << row.name;
    }
}

TEST(PredefinedConstants, NamesAreSingleWordsThatSubstitutionCanMatch) {
    const std::regex word("[A-Za-z][A-Za-z0-9_]*");
    for (const Constant& row : constants) {
        EXPECT_TRUE(matches(row.name, word)) << row.name;
    }
}

TEST(PredefinedConstants, EveryRowHasAValue) {
    for (const Constant& row : constants) {
        EXPECT_FALSE(row.value.empty()) << row.name;
    }
}

TEST(PredefinedConstants, NoNameIsAKeyword) {
    ASSERT_TRUE(isKeyword("HOME"));
    for (const Constant& row : constants) {
        EXPECT_FALSE(isKeyword(row.name)) << row.name;
    }
}

TEST(PredefinedConstants, NoNameIsADefaultAxisName) {
    for (const char* axis : defaultAxisNames) {
        EXPECT_EQ(constantNamed(axis), nullptr) << axis;
    }
}

TEST(PredefinedConstants, ReplacedRowsStandWordForWord) {
    std::set<std::string_view> expected;
    for (const Replaced& row : replacedConstants) {
        expected.insert(row.name);
        const Constant* found = constantNamed(row.name);
        ASSERT_NE(found, nullptr) << row.name;
        EXPECT_EQ(found->value, row.value) << row.name;
        ASSERT_NE(found->replacement, nullptr) << row.name;
        EXPECT_STREQ(found->replacement, row.replacement) << row.name;
    }
    EXPECT_EQ(expected.size(), 86U) << countChanged;
    for (const Constant& row : constants) {
        EXPECT_EQ(row.replacement != nullptr, expected.contains(row.name)) << row.name;
    }
}

TEST(PredefinedConstants, ValuesUseOnlyNamesOfEarlierRows) {
    Expansions defined;
    for (const Constant& row : constants) {
        const std::string early = substitute(row.value, defined);
        EXPECT_EQ(early, substitute(row.value, expansions())) << row.name;
        defined.emplace(row.name, early);
    }
}

TEST(PredefinedConstants, ValuesResolveToNumbersVariablesStringsAndKeywords) {
    for (const auto& [name, text] : expansions()) {
        EXPECT_EQ(strayCharacters(text), "") << name << " = " << text;
        for (const std::string& left : namesLeft(text)) {
            EXPECT_TRUE(isKeyword(left)) << name << " = " << text << " leaves " << left;
        }
    }
}

TEST(PredefinedConstants, EveryNameIsReplacedWhole) {
    for (const auto& [name, text] : expansions()) {
        EXPECT_EQ(substitute("(" + name + ",", expansions()), "(" + text + ",") << name;
    }
}

// Families

TEST(PredefinedConstants, FamiliesHaveTheirSizes) {
    const std::map<std::string_view, std::size_t> sizes = {
        {"PARAMETERID_", 608},      {"DATAITEM_", 410},
        {"DRIVEINFO_", 108},        {"DF_", 36},
        {"TASKSTATUS0_", 25},       {"TASKSTATUS1_", 18},
        {"TASKSTATUS2_", 29},       {"TASKMODE_", 25},
        {"FIBERSEARCHRESULT_", 22}, {"DATAMATRIXFORMAT_", 20},
        {"DATAMATRIXENCODING_", 7}, {"RETURNTYPE_", 5},
        {"TASKSTATE_", 10},         {"AXISSTATUS_", 27},
        {"AXISFAULT_", 28},         {"DRIVESTATUS_", 31},
    };
    for (const auto& [prefix, size] : sizes) {
        EXPECT_EQ(family(prefix).size(), size) << prefix << countChanged;
    }
}

TEST(PredefinedConstants, MembersWithoutCounterpart) {
    EXPECT_EQ(familyWithoutReplacement("DRIVESTATUS_").size(), 4U) << countChanged;
    EXPECT_EQ(familyWithoutReplacement("AXISFAULT_").size(), 4U) << countChanged;
    EXPECT_EQ(familyWithoutReplacement("AXISSTATUS_").size(), 3U) << countChanged;
    EXPECT_EQ(familyWithoutReplacement("RETURNTYPE_").size(), 3U) << countChanged;
    EXPECT_EQ(familyWithoutReplacement("TASKSTATE_").size(), 1U) << countChanged;
    for (const char* name : {"TASKSTATE_Queue", "RETURNTYPE_NULL", "RETURNTYPE_START",
                             "RETURNTYPE_END", "AXISSTATUS_MotionBlocked"}) {
        EXPECT_NE(constantNamed(name), nullptr) << name;
    }
}

TEST(PredefinedConstants, SmallGroups) {
    const std::set<std::string_view> largeFamilies = {
        "PARAMETERID_", "DATAITEM_",    "DRIVEINFO_",         "DF_",
        "TASKSTATUS0_", "TASKSTATUS1_", "TASKSTATUS2_",       "TASKMODE_",
        "RETURNTYPE_",  "TASKSTATE_",   "FIBERSEARCHRESULT_", "DATAMATRIXFORMAT_",
        "AXISSTATUS_",  "AXISFAULT_",   "DRIVESTATUS_",       "DATAMATRIXENCODING_"};
    std::map<std::string_view, int> groups;
    int members = 0;
    for (const Constant& row : constants) {
        const std::string_view prefix = groupPrefix(row.name);
        if (!prefix.empty() && !largeFamilies.contains(prefix)) {
            ++groups[prefix];
            ++members;
        }
    }
    EXPECT_EQ(members, 146) << countChanged;
    for (const auto& [prefix, size] : groups) {
        EXPECT_GE(size, 2) << prefix;
        EXPECT_LE(size, 13) << prefix;
    }
    for (const char* prefix : smallGroups) {
        EXPECT_TRUE(groups.contains(prefix)) << prefix;
    }
    for (const auto& [prefix, size] : groups) {
        expectForm(family(prefix), R"(-?[0-9]+|\(1 << [0-9]+\))");
        if (prefix != "CALLBACK_") {
            expectDistinctValues(prefix);
        }
    }
}

TEST(PredefinedConstants, SmallGroupsFallInSizeInTheirOrder) {
    std::size_t largest = 13;
    for (const char* prefix : smallGroups) {
        EXPECT_LE(family(prefix).size(), largest) << prefix;
        largest = family(prefix).size();
    }
}

TEST(PredefinedConstants, KnownValues) {
    EXPECT_EQ(valueOf("CALLBACK_RESERVE"), "1000");
    EXPECT_EQ(valueOf("PRIORITY_MEDIUM"), "1");
    EXPECT_EQ(valueOf("PRIORITY_FAULT"), "2");
    EXPECT_EQ(valueOf("PRIORITY_HIGHEST"), "3");
    EXPECT_EQ(valueOf("CANNEDFUNCTION_ID_ENDOFBLOCK"), "-2");
    EXPECT_EQ(valueOf("FIBERSEARCHRESULT_SuccessfulSearch"), "(0)");
    EXPECT_EQ(valueOf("PARAMETERID_CountsPerUnit"), "( (0 << 24) | 2 )");
    EXPECT_EQ(valueOf("DATAITEM_PositionFeedback"), "0");
    EXPECT_EQ(valueOf("DATAITEM_PositionCommand"), "1");
    EXPECT_EQ(valueOf("DF_LIST"), "0x40000000");
    EXPECT_EQ(valueOf("DF_MSGBOX"), "0x20000000");
    EXPECT_EQ(valueOf("ServoFilter1CoeffN0"), "$PAXIS[17]");
    EXPECT_EQ(valueOf("GantryMasterAxis"), "$PAXIS[57]");
    EXPECT_EQ(valueOf("DefaultDependentCoordinatedRampRate"), "$PTASK[18]");
    EXPECT_EQ(valueOf("CommandInvalidCharacter"), "$PGLOB[53]");
}

TEST(PredefinedConstants, NumbersAndMasksHaveTheFormsOfTheirFamilies) {
    expectForm(family("PARAMETERID_"), R"(\( \([012] << 24\) \| [0-9]+ \))");
    expectForm(family("DATAITEM_"), "[0-9]+");
    expectForm(family("DRIVEINFO_"), "[0-9]+");
    expectForm(family("DF_"), "0x[0-9A-F]{8}");
    expectForm(family("FIBERSEARCHRESULT_"), R"(\([0-9]+\))");
    expectForm(family("TASKSTATE_"), R"(\([0-9]+\))");
    expectForm(family("RETURNTYPE_"), "[0-9]");
    expectForm(family("DATAMATRIXFORMAT_"), "[0-9]+");
    expectForm(family("DATAMATRIXENCODING_"), "[0-9]");
    for (const char* prefix : {"TASKSTATUS0_", "TASKSTATUS1_", "TASKSTATUS2_", "TASKMODE_",
                               "AXISSTATUS_", "AXISFAULT_", "DRIVESTATUS_"}) {
        expectForm(family(prefix), R"(\(1 << ([12]?[0-9]|3[01])\))");
    }
}

TEST(PredefinedConstants, NoTwoMembersOfAFamilyHaveOneValue) {
    for (const char* prefix :
         {"DATAITEM_", "DRIVEINFO_", "DF_", "TASKSTATUS0_", "TASKSTATUS1_", "TASKSTATUS2_",
          "TASKMODE_", "FIBERSEARCHRESULT_", "DATAMATRIXFORMAT_", "DATAMATRIXENCODING_",
          "RETURNTYPE_", "TASKSTATE_", "AXISSTATUS_", "AXISFAULT_", "DRIVESTATUS_"}) {
        expectDistinctValues(prefix);
    }
}

TEST(PredefinedConstants, ResultCodesRunWithoutGaps) {
    const std::vector<Constant> results = family("FIBERSEARCHRESULT_");
    for (std::size_t i = 0; i < results.size(); ++i) {
        EXPECT_EQ(results[i].value, "(" + std::to_string(i) + ")") << results[i].name;
    }
}

TEST(PredefinedConstants, MessageCommandsHaveTheBitsFromFileSelectionUpwards) {
    for (const Constant& row : family("DF_")) {
        const std::int64_t value = numberOf(row.value);
        EXPECT_GT(value, 0) << row.name;
        if (value >= 0x80000) {
            EXPECT_EQ(value & (value - 1), 0) << row.name;
        }
    }
}

// Names without "_": parameters and shorthands

TEST(PredefinedConstants, BareNames) {
    int variables = 0;
    int shorthands = 0;
    const std::regex variable(R"(\$P(AXIS|TASK|GLOB)\[[0-9]+\])");
    for (const Constant& row : constants) {
        if (row.name.find('_') == std::string::npos) {
            const bool isVariable = matches(row.value, variable);
            variables += isVariable ? 1 : 0;
            shorthands += isVariable ? 0 : 1;
        }
    }
    EXPECT_EQ(variables, 608) << countChanged;
    EXPECT_EQ(shorthands, 104) << countChanged;
}

TEST(Shorthands, KnownTexts) {
    EXPECT_EQ(valueOf("MSG"), "CALLBACK (CALLBACK_RESERVE+1),");
    EXPECT_EQ(valueOf("opendll"), "CALLBACK (CALLBACK_RESERVE+31),");
    EXPECT_EQ(valueOf("scopeopen"), "CALLBACK (CALLBACK_RESERVE+44)");
    EXPECT_EQ(valueOf("MSGHIDE"), "MSG DF_LIST_HIDE, 0, \"\"");
    EXPECT_EQ(valueOf("yellow"), "YELLOW");
    EXPECT_EQ(valueOf("nscopetrig"), "SCOPETRIG");
    EXPECT_EQ(valueOf("NSCOPETRIG"), "SCOPETRIG");
}

TEST(Shorthands, CallbackCodes) {
    const std::pair<const char*, int> codes[] = {
        {"MSG", 1001},     {"DOTNETCALLBACK", 1015}, {"OPENDLL", 1031},
        {"CALLDLL", 1032}, {"CLOSEDLL", 1033},       {"SCOPEOPEN", 1044},
    };
    for (const auto& [name, code] : codes) {
        EXPECT_EQ(callback(name).code, code) << name;
    }
}

TEST(Shorthands, NoOtherCommandTakesACodeThatHasItsOwnMessage) {
    const std::map<int, std::set<std::string>> owners = {
        {1015, {"DOTNETCALLBACK"}},
        {1031, {"OPENDLL"}},
        {1033, {"CLOSEDLL"}},
        {1044, {"SCOPEOPEN"}},
    };
    for (const Constant& row : constants) {
        const auto owner = owners.find(callback(row.name).code);
        if (owner != owners.end()) {
            EXPECT_TRUE(owner->second.contains(upper(row.name))) << row.name;
        }
    }
}

TEST(Shorthands, MessageMasks) {
    const std::pair<const char*, std::int64_t> masks[] = {
        {"MSGFILESELECT", 0x80000}, {"MSGPROGRAM", 0x100000}, {"MSGHIDE", 0x200000},
        {"MSGSHOW", 0x400000},      {"MSGCLEAR", 0x800000},   {"SETMANIO", 0x1000000},
        {"MSGLAMP", 0x8000000},     {"MSGINPUT", 0x10000000}, {"MSGBOX", 0x20000000},
        {"MSGLIST", 0x40000000},
    };
    for (const auto& [name, mask] : masks) {
        EXPECT_EQ(callback(name).code, 1001) << name;
        EXPECT_EQ(callback(name).message, mask) << name;
    }
}

TEST(Shorthands, LibraryCallsStandWordForWord) {
    std::set<std::string_view> expected;
    for (const LibraryCall& call : libraryCalls) {
        expected.insert(call.name);
        const std::string arguments =
            " \"Q54CBack.dll\", \"" + std::string(call.function) + "\"" + call.rest;
        EXPECT_EQ(valueOf(call.name), "CALLDLL" + arguments);
        EXPECT_EQ(callback(call.name).code, 1032) << call.name;
        EXPECT_EQ(expansions().at(call.name), "CALLBACK (1000+32)," + arguments);
    }
    EXPECT_EQ(expected.size(), 15U);
    for (const Constant& row : constants) {
        EXPECT_EQ(row.value.find("Q54CBack.dll") != std::string::npos, expected.contains(row.name))
            << row.name;
    }
}

TEST(Shorthands, LowerCaseNamesMeanWhatTheUpperCaseOnesDo) {
    int pairs = 0;
    for (const Constant& row : constants) {
        const std::string other = upper(row.name);
        if (other != row.name && row.name.find('_') == std::string::npos &&
            constantNamed(other) != nullptr) {
            EXPECT_EQ(expansions().find(row.name)->second, expansions().at(other)) << row.name;
            ++pairs;
        }
    }
    EXPECT_EQ(pairs, 42) << countChanged;
}

TEST(Shorthands, ColoursAreNumbers) {
    const std::regex mask("0x[0-9A-F]{6}");
    for (const char* name : {"yellow", "YELLOW", "red", "green", "GREY", "black"}) {
        EXPECT_TRUE(std::regex_match(expansions().at(name), mask)) << name;
    }
}

// Parameters

TEST(Parameters, Counts) {
    EXPECT_EQ(parameterCount('A', Fate::named), 352) << countChanged;
    EXPECT_EQ(parameterCount('A', Fate::removed), 51) << countChanged;
    EXPECT_EQ(parameterCount('A', Fate::secondName), 1) << countChanged;
    EXPECT_EQ(parameterCount('S', Fate::named), 28) << countChanged;
    EXPECT_EQ(parameterCount('S', Fate::removed), 16) << countChanged;
    EXPECT_EQ(parameterCount('T', Fate::named), 55) << countChanged;
    EXPECT_EQ(parameterCount('T', Fate::removed), 105) << countChanged;
    EXPECT_EQ(std::size(parameters), 608U) << countChanged;
}

TEST(Parameters, NumbersAndTorvelNamesAreDistinctInATableLegacyNamesEverywhere) {
    std::set<std::pair<char, int>> numbers;
    std::set<std::pair<char, std::string_view>> torvelNames;
    std::set<std::string_view> legacyNames;
    for (const Parameter& row : parameters) {
        if (row.fate == Fate::secondName) {
            EXPECT_NE(parameter(row.group, row.number), nullptr) << row.legacy;
        } else {
            EXPECT_TRUE(numbers.insert({row.group, row.number}).second) << row.legacy;
        }
        EXPECT_TRUE(legacyNames.insert(row.legacy).second) << row.legacy;
        if (row.fate == Fate::named) {
            EXPECT_TRUE(torvelNames.insert({row.group, row.torvel}).second) << row.torvel;
        }
    }
}

TEST(Parameters, NumbersAreInRange) {
    int highestAxis = 0;
    for (const Parameter& row : parameters) {
        EXPECT_GE(row.number, 0) << row.legacy;
        EXPECT_LT(row.number, 1 << 24) << row.legacy;
        highestAxis = std::max(highestAxis, row.group == 'A' ? row.number : 0);
    }
    EXPECT_EQ(highestAxis, 458);
}

TEST(Parameters, NamesHaveThePlatformsForm) {
    const std::regex name("[A-Z][A-Za-z0-9]+");
    for (const Parameter& row : parameters) {
        EXPECT_TRUE(matches(row.legacy, name)) << row.legacy;
        EXPECT_TRUE(row.torvel.empty() || matches(row.torvel, name)) << row.torvel;
        EXPECT_EQ(row.torvel.empty(), row.fate != Fate::named) << row.legacy;
    }
}

TEST(Parameters, KnownNames) {
    struct Known {
        char group;
        int number;
        const char* torvel;
    };
    const Known known[] = {
        {'A', 0, "AxisType"},
        {'A', 1, "ReverseMotionDirection"},
        {'A', 2, "CountsPerUnit"},
        {'A', 4, "ServoLoopSetup"},
        {'A', 8, "FeedforwardGainVff"},
        {'A', 9, "FeedforwardGainAff"},
        {'A', 10, "ServoLoopGainKv"},
        {'A', 458, "CommutationInitializationAngle"},
        {'S', 0, "DataCollectionPoints"},
        {'S', 1, "DataCollectionItems"},
        {'S', 21, "GlobalReals"},
        {'S', 24, "AsciiInterfacePort"},
        {'S', 39, "AsciiInterfaceSetup"},
        {'S', 45, "RequiredAxes"},
        {'S', 53, "AsciiInterfaceInvalidCharacter"},
        {'T', 1, "DefaultCoordinatedSCurvePercentage"},
        {'T', 7, "TaskErrorAbortAxes"},
        {'T', 8, "JoystickInput1MinVoltage"},
        {'T', 14, "TaskTerminationAxes"},
        {'T', 15, "TaskStopAbortAxes"},
        {'T', 16, "DefaultCoordinatedSpeed"},
        {'T', 17, "DefaultCoordinatedRampRate"},
    };
    for (const Known& row : known) {
        const Parameter* found = parameter(row.group, row.number);
        ASSERT_NE(found, nullptr) << row.torvel;
        EXPECT_EQ(found->torvel, row.torvel);
    }
    EXPECT_EQ(parameter('A', 2)->legacy, "CountsPerUnit");
    EXPECT_EQ(parameter('S', 53)->legacy, "CommandInvalidCharacter");
}

TEST(Parameters, BacklashDistanceIsTheAxisParameterThatMessagesName) {
    const auto found = std::find_if(
        std::begin(parameters), std::end(parameters),
        [](const Parameter& row) { return row.group == 'A' && row.torvel == "BacklashDistance"; });
    EXPECT_NE(found, std::end(parameters));
}

TEST(Parameters, KnownRemovedAndAbsentNumbers) {
    EXPECT_EQ(parameter('A', 3), nullptr);
    for (const int number : {5, 6, 7}) {
        ASSERT_NE(parameter('A', number), nullptr) << number;
        EXPECT_EQ(parameter('A', number)->fate, Fate::removed) << number;
    }
    for (const int number : {35, 36, 37, 38}) {
        ASSERT_NE(parameter('S', number), nullptr) << number;
        EXPECT_EQ(parameter('S', number)->fate, Fate::removed) << number;
    }
}

TEST(Parameters, EachGivesItsVariableAndItsIdentifier) {
    const std::map<char, std::pair<std::string, std::string>> groups = {
        {'A', {"$PAXIS", "0"}}, {'T', {"$PTASK", "1"}}, {'S', {"$PGLOB", "2"}}};
    for (const Parameter& row : parameters) {
        const auto& [variable, group] = groups.at(row.group);
        const std::string number = std::to_string(row.number);
        EXPECT_EQ(valueOf(row.legacy), variable + "[" + number + "]");
        EXPECT_EQ(valueOf("PARAMETERID_" + std::string(row.legacy)),
                  "( (" + group + " << 24) | " + number + " )");
    }
}

// Data items

TEST(DataItems, Counts) {
    EXPECT_EQ(std::size(items), 410U) << countChanged;
    const auto count = [](bool Item::*member) {
        return std::count_if(std::begin(items), std::end(items),
                             [&](const Item& row) { return row.*member; });
    };
    EXPECT_EQ(count(&Item::axis), 211) << countChanged;
    EXPECT_EQ(count(&Item::task), 115) << countChanged;
    EXPECT_EQ(count(&Item::system), 46) << countChanged;
    EXPECT_EQ(count(&Item::misspelled), 9) << countChanged;
}

TEST(DataItems, NumbersAndLegacyNamesAreDistinct) {
    std::set<int> numbers;
    std::set<std::string_view> names;
    for (const Item& row : items) {
        EXPECT_TRUE(numbers.insert(row.number).second) << row.number;
        EXPECT_TRUE(names.insert(row.legacy).second) << row.legacy;
        EXPECT_GE(row.number, 0) << row.legacy;
    }
    EXPECT_GT(*numbers.rbegin(), 400);
}

TEST(DataItems, NamesHaveThePlatformsForm) {
    const std::regex name("[A-Z][A-Za-z0-9]+");
    for (const Item& row : items) {
        EXPECT_TRUE(matches(row.legacy, name)) << row.legacy;
        EXPECT_EQ(row.signal.empty(), !row.axis && !row.task && !row.system) << row.legacy;
    }
}

/// Checks that a table has the signals of `list`, with numbers that rise in its order.
void expectSignals(const char* list, bool Item::*member) {
    std::map<std::string_view, int> numbers;
    for (const Item& row : items) {
        if (row.*member) {
            EXPECT_TRUE(numbers.emplace(row.signal, row.number).second) << row.signal;
        }
    }
    const std::vector<std::string> listed = words(list);
    EXPECT_EQ(listed.size(), numbers.size());
    int previous = -1;
    for (const std::string& signal : listed) {
        ASSERT_TRUE(numbers.contains(signal)) << signal;
        EXPECT_GT(numbers[signal], previous) << signal;
        previous = numbers[signal];
    }
}

TEST(DataItems, AxisSignalsRiseInTheirOrder) {
    expectSignals(axisSignals, &Item::axis);
}

TEST(DataItems, TaskSignalsRiseInTheirOrder) {
    expectSignals(taskSignals, &Item::task);
}

TEST(DataItems, SystemSignalsRiseInTheirOrder) {
    expectSignals(systemSignals, &Item::system);
}

TEST(DataItems, KnownNumbers) {
    const std::pair<int, const char*> axisItems[] = {{0, "PositionFeedback"},
                                                     {1, "PositionCommand"},
                                                     {2, "PositionError"},
                                                     {3, "VelocityFeedback"}};
    for (const auto& [number, signal] : axisItems) {
        EXPECT_TRUE(item(number)->axis) << signal;
        EXPECT_EQ(item(number)->signal, signal);
    }
    const std::pair<int, const char*> taskItems[] = {{17, "ProgramLineNumber"},
                                                     {45, "CoordinatedFlags"}};
    for (const auto& [number, signal] : taskItems) {
        EXPECT_TRUE(item(number)->task) << signal;
        EXPECT_EQ(item(number)->signal, signal);
    }
    const std::pair<int, const char*> systemItems[] = {{51, "VirtualBinaryInput"},
                                                       {52, "VirtualBinaryOutput"},
                                                       {53, "VirtualRegisterInput"},
                                                       {54, "VirtualRegisterOutput"},
                                                       {55, "PositionCalibrationAll"},
                                                       {56, "Timer"},
                                                       {57, "TimerPerformance"},
                                                       {74, "GlobalReal"},
                                                       {93, "CommunicationRealTimeErrors"},
                                                       {148, "LibraryCommand"},
                                                       {423, "ThermoCompStatus"}};
    for (const auto& [number, signal] : systemItems) {
        EXPECT_TRUE(item(number)->system) << signal;
        EXPECT_EQ(item(number)->signal, signal);
        EXPECT_EQ(item(number)->misspelled, number <= 93) << signal;
    }
}

TEST(DataItems, NoAxisSignalHidesAnItemThatMustBeReached) {
    for (const int number : {17, 45, 51, 52, 53, 54, 55, 56, 57, 74, 93, 148, 423}) {
        ASSERT_NE(item(number), nullptr) << number;
        EXPECT_FALSE(item(number)->axis) << number;
        EXPECT_TRUE(number > 45 || item(number)->task) << number;
    }
}

TEST(DataItems, OneItemOfAxesAndTasksForEachNameThatStandsInBothLists) {
    const std::vector<std::string> axes = words(axisSignals);
    const std::vector<std::string> tasks = words(taskSignals);
    int shared = 0;
    for (const Item& row : items) {
        const bool inBoth = std::count(axes.begin(), axes.end(), row.signal) > 0 &&
                            std::count(tasks.begin(), tasks.end(), row.signal) > 0;
        EXPECT_EQ(row.axis && row.task, inBoth) << row.signal;
        shared += inBoth ? 1 : 0;
    }
    EXPECT_EQ(shared, 17);
}

TEST(DataItems, AxisAndSystemSignalsOfOneNameAreDifferentItems) {
    for (const char* signal : {"PositionCalibrationAll", "SignalLogState"}) {
        std::set<std::string_view> legacyNames;
        for (const Item& row : items) {
            if (row.signal == signal) {
                EXPECT_NE(row.axis, row.system) << signal;
                legacyNames.insert(row.legacy);
            }
        }
        EXPECT_EQ(legacyNames.size(), 2U) << signal;
    }
}

TEST(DataItems, EachGivesItsConstant) {
    for (const Item& row : items) {
        EXPECT_EQ(valueOf("DATAITEM_" + std::string(row.legacy)), std::to_string(row.number));
    }
}

}  // namespace
