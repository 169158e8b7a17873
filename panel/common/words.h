// SPDX-License-Identifier: MIT
// The panel's own words in every language it speaks, in one table. The words of the tools come from the library's
// language packs instead.
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
  kEmergencyStop,
  // Mode
  kAutomatic,
  kManual,
  kMdiMode,
  // What the machine shows
  kFeed,
  kFeedPerRevolution,
  kFeedInch,
  kFeedInchPerRevolution,
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
  kReleaseEmergencyStop,
  kToolMissing,
  kMachiningMissing,
  kResultInProgram,
  kResultNoNumber,
  kNoHelpHere,
  kSaved,
  kOpening,
  kStillOpening,
  kOpened,
  kCannotOpen,
  kCannotSave,
  kNotAText,
  kTooBig,
  kNoMachineHere,
  kErrorNumber,
  kNoRequest,
  // Questions
  kOk,
  kClose,
  kExport,
  kImport,
  kOwnChanges,
  kPlayVideo,
  kStopVideo,
  kRewindVideo,
  kPassword,
  kWrongPassword,
  kDemoPasswordIs,
  kYes,
  kNo,
  kDiscardChanges,
  kDiscard,
  // Errors
  kKindError,
  kKindMarked,
  kKindWarning,
  kKindFatal,
  kKindConfirm,
  kErrorSign,
  kErrorStays,
  kCloseAsked,
  kClosePanel,
  kKeepRunning,
  kToggleErrors,
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
  kCredentialsAsked,
  kCredentialsWrong,
  kUserName,
  kUserDomain,
  kConnect,
  // The reserved row
  kEnterKey,
  kInsertKey,
  kTouchKeyboard,
  kOtherLanguage,
  kNoLanguage,
  kCount
};

/// Sets the current language: "es" is Spanish, every other code (also "none") is English.
void UseWords(const QString& language);
/// "es" or "en", whichever is current.
[[nodiscard]] QString WordsInUse();
[[nodiscard]] QString Say(Word word);
/// For a word with the place holder "%1".
[[nodiscard]] QString Say(Word word, const QString& argument);
/// The word in a given language, whatever the current one is: 0 English, 1 Spanish. For the tests and for pages made
/// from the table.
[[nodiscard]] QString WordIn(Word word, int language);

}  // namespace panel
