// SPDX-License-Identifier: MIT
// Turns one binary error record into the texts that the operator reads. It has no state and knows no window: words,
// kernel, utilities, files and the measuring of widths are handed in. It accepts every record, even one full of wrong
// values. A part that can't be composed is empty.
#pragma once

#include "base/files.h"
#include "errors/error_class.h"
#include "errors/error_program_line.h"
#include "errors/error_words.h"
#include "facade/kernel.h"
#include "facade/utilities.h"

namespace pnl {

/// What composing needs. All of it must outlive the call.
struct ErrorSurroundings {
  Kernel& kapi;
  Utilities& utilities;
  const Files& files;
  const ErrorWords& words;
  const TextWidths& widths;
};

/// The parts of a description, in the order in which they are joined. Any part may be empty.
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

/// What is cut from the front of the joined parts. It depends on the source.
enum class DescriptionTrim { kNone, kLeadingBlank, kFirstCharacter };

struct ComposedError {
  ErrorClass errorClass = ErrorClass::kError;
  Text titleWord;
  Text boxText;
  Text titleLine;
  ErrorDescription parts;  // a source whose description is one text has that text in codeLine
  DescriptionTrim trim = DescriptionTrim::kNone;
  bool showChannel = false;
  bool logIt = false;
  bool hasDescription = true;  // false for a PLC error whose long description wasn't found
  bool inProgram = false;      // lineNumber and lineText must still be read, from `place`
  ProgramPlace place;
  Z7340ERRORINFO_ST info{};
  [[nodiscard]] Text Description() const;
  /// The line for the machine's log. It is written if logIt is set.
  [[nodiscard]] Text LogText() const;
};

/// Composes all texts except the two lines from the program file. ReadProgramLines reads those later and the caller
/// puts them into `parts`, because a big file or a dead share must not make the panel wait.
[[nodiscard]] ComposedError ComposeError(const ErrorRecord& record, const ErrorSurroundings& around);

/// The word in capitals and after it the record's number. With a null record or number 0 it is the word alone.
[[nodiscard]] Text ComposeBoxText(TextView word, const ErrorRecord* record);
/// The parts of a description that is not one text. The two lines from the program file are empty.
[[nodiscard]] ErrorDescription ComposeDescription(const ErrorRecord& record, const ErrorSurroundings& around);
/// Reads the long description for a reference "file#number" into text. Returns false if there is none.
[[nodiscard]] bool ReadHelp(TextView helpRef, const Files& files, Utilities& utilities, Text& text);
/// If the text begins with " \n", the text without that blank. Any other text as it is.
[[nodiscard]] Text TrimLeadingBlank(Text text);
/// The text without its first unit if that is a line feed.
[[nodiscard]] TextView WithoutLeadingLineFeed(TextView text);

}  // namespace pnl
