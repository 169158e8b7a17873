// SPDX-License-Identifier: MIT
// One binary error record into the texts that the operator reads. Without state and without a window: words, kernel,
// utilities, files and a width measurement are handed in. Nothing in a record, however wrong, fails visibly: what can't
// be had is an empty part.
#pragma once

#include "base/files.h"
#include "errors/error_class.h"
#include "errors/error_program_line.h"
#include "errors/error_words.h"
#include "facade/kernel.h"
#include "facade/utilities.h"

namespace pnl {

/// What composing needs; all borrowed.
struct ErrorSurroundings {
  Kernel& kapi;
  Utilities& utilities;
  const Files& files;
  const ErrorWords& words;
  const TextWidths& widths;
};

/// The parts of a description, in the order in which they are joined. Any may be empty.
struct ErrorDescription {
  Text diagnosis;
  Text diagnosisCaption;
  Text parameterText;
  Text pathLine;
  Text lineNumber;
  Text lineText;
  Text idLine;
  Text codeLine;
  [[nodiscard]] Text Joined() const;
};

/// What the join of the parts still goes through, by the source.
enum class DescriptionTrim { kNone, kLeadingBlank, kFirstCharacter };

struct ComposedError {
  ErrorClass errorClass = ErrorClass::kError;
  Text titleWord;
  Text boxText;
  Text titleLine;
  ErrorDescription parts;  // or, for sources whose description is one text, that text in codeLine
  DescriptionTrim trim = DescriptionTrim::kNone;
  bool showChannel = false;
  bool logIt = false;
  bool hasDescription = true;  // false: a PLC error whose long description wasn't found
  bool inProgram = false;      // lineNumber and lineText are to be read from `place`
  ProgramPlace place;
  Z7340ERRORINFO_ST info{};
  [[nodiscard]] Text Description() const;
  /// What goes to the machine's log when logIt is set.
  [[nodiscard]] Text LogText() const;
};

/// All but the two lines that are read from the program file; those come with ReadProgramLines into `parts`, because a
/// big file or a dead share must keep nobody waiting.
[[nodiscard]] ComposedError ComposeError(const ErrorRecord& record, const ErrorSurroundings& around);

/// Upper-cased word, and the number behind it; a null record, or number 0, gives the word alone.
[[nodiscard]] Text ComposeBoxText(TextView word, const ErrorRecord* record);
/// Without the two lines of the program file.
[[nodiscard]] ErrorDescription ComposeDescription(const ErrorRecord& record, const ErrorSurroundings& around);
/// The long description that a reference "file#number" leads to; false when there is none.
[[nodiscard]] bool ReadHelp(TextView helpRef, const Files& files, Utilities& utilities, Text& text);
/// The text without the blank of a leading " \n".
[[nodiscard]] Text TrimLeadingBlank(Text text);
/// The text without a leading line feed.
[[nodiscard]] TextView WithoutLeadingLineFeed(TextView text);

}  // namespace pnl
