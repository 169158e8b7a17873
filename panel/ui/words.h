// SPDX-License-Identifier: MIT
// The panel's own words in every language it speaks: one table, keyed by what is said. Not the words of the tools,
// which come from the library's language packs.
#pragma once

#include <QString>

namespace panel {

enum class Word {
  // Channel state
  kReady,
  kRunning,
  kInterrupted,
  kFeedHold,
  kAborted,
  kInspection,
  kNoMachine,
  // Mode
  kAutomatic,
  kManual,
  kMdiMode,
  // What the machine shows
  kFeed,
  kOverride,
  kSpindle,
  kTool,
  kToGo,
  kMachinePosition,
  kWorkPosition,
  kCoolant,
  kErrors,
  kNoErrors,
  kProgram,
  kNewProgram,
  kLine,
  // Keys of the operator
  kCycleStart,
  kHold,
  kSingleBlock,
  kCancel,
  kReset,
  kOverrideDown,
  kOverrideUp,
  kInspect,
  kMdi,
  kMdiMda,
  kMda,
  kHelp,
  kClear,
  kMore,
  kBack,
  kFocusTool,
  // The panel's soft keys
  kCalculator,
  kMachiningCalculator,
  kFiles,
  kPlcMessages,
  kErrorList,
  kOpen,
  kSave,
  kSaveAs,
  kNew,
  kCoordinates,
  kOverrideFull,
  // Messages
  kNothingToStart,
  kMdiRefused,
  kStartInInspection,
  kToolMissing,
  kMachiningMissing,
  kResultInProgram,
  kResultNoNumber,
  kHelpMark,
  kSaved,
  kOpened,
  kCannotOpen,
  kCannotSave,
  kNotAText,
  kTooBig,
  kNoMachineHere,
  kErrorNumber,
  kNoRequest,
  // Choosing a file
  kChooseFile,
  kChooseFolder,
  kFileName,
  kFolderUp,
  kOk,
  kNameMissing,
  kNameBad,
  kNameBlank,
  kFileMissing,
  kFileReadOnly,
  kFolderMissing,
  kOverwrite,
  kYes,
  kNo,
  kDiscardChanges,
  kDiscard,
  kEmptyFolder,
  // Errors
  kKindError,
  kKindMarked,
  kKindWarning,
  kKindFatal,
  kKindConfirm,
  kErrorSign,
  kNoDescription,
  kErrorStays,
  kCloseAsked,
  kClosePanel,
  kKeepRunning,
  kErrorListTitle,
  kErrorListEmpty,
  kErrorWithoutText,
  kErrorParameters,
  kErrorChannel,
  kErrorSource,
  kErrorId,
  kErrorTimes,
  kErrorStanding,
  kErrorAcknowledged,
  kErrorConfirmed,
  kErrorCleared,
  kErrorsLeftOut,
  kErrorsLeftOutStanding,
  kErrorFlood,
  // Faults of the demo machine
  kDemoFaults,
  kFaultDoor,
  kFaultDriveWarning,
  kFaultDrive,
  kFaultBus,
  kFaultProgramLine,
  kFaultConfirm,
  kFaultFatal,
  kFaultEmergencyStop,
  kFaultNeedsProgram,
  kCount
};

/// "es" for Spanish; any other code, "none" among them, for English.
void UseWords(const QString& language);
[[nodiscard]] QString Say(Word word);
/// With a place "%1" in the word.
[[nodiscard]] QString Say(Word word, const QString& argument);
/// The word in one language, whatever is in use: 0 English, 1 Spanish. For the tests and the pages made of the table.
[[nodiscard]] QString WordIn(Word word, int language);

}  // namespace panel
