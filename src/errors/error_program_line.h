// SPDX-License-Identifier: MIT
// Composes the lines that show where an error is in a program: the path, shortened to the width of the description, the
// number of the failing line, and that line with a mark. It reads only the file that the record names.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "base/files.h"
#include "base/text.h"
#include "base/text_file.h"
#include "errors/error_words.h"
#include "facade/error_record.h"

namespace pnl {

/// Widths in pixels: `of` measures a text in the font of the description, and `available` is the width of the control.
struct TextWidths {
  std::function<int(TextView)> of;
  int available = 0;
};

/// The place of an error in a program file, with the kernel's own numbers.
struct ProgramPlace {
  Text path;                  // at most 259 units
  std::int32_t position = 0;  // the byte of the file at which the failing block begins
  std::int32_t span = 0;      // the mark's distance from there, in bytes of 16-bit text in every encoding
};

struct ProgramLines {
  Text lineNumber;
  Text lineText;
};

/// The captions of the two lines. They are copies, so that another thread can use them.
struct ProgramCaptions {
  Text lineNumber;
  Text line;
};

/// The place that a record names. Only records of programs and of scripts name one.
[[nodiscard]] ProgramPlace ProgramPlaceOf(const ErrorRecord& record);
/// The caption and the path. If the path alone is too wide, it is the path without its middle and without the caption.
[[nodiscard]] Text ComposePathLine(TextView path, const ErrorWords& words, const TextWidths& widths);
/// The path with ".." in place of its middle, so that it is about as wide as what is available. width is the width of
/// the whole path. The file name stays whole if possible.
[[nodiscard]] Text ShortenPath(TextView path, int width, int available);

/// Reads the two lines from the file, which may take long. Both are empty if the file can't be opened or is encrypted.
/// The line's text is empty if the file can't be read up to the position or cancel has been set.
[[nodiscard]] ProgramLines ReadProgramLines(const ProgramPlace& place, const ProgramCaptions& captions, Files& files,
                                            const std::atomic<bool>* cancel = nullptr);
[[nodiscard]] ProgramCaptions ProgramCaptionsOf(const ErrorWords& words);
/// The number of the line at a position, counted from 1. Returns 0 for a negative position, and -1 if the file ends
/// before the position or cancel has been set. The file is then at the same place as before.
[[nodiscard]] std::int32_t CountLines(std::int32_t position, CStdioFileEx& file,
                                      const std::atomic<bool>* cancel = nullptr);
/// The line with "<" and ">" around the character at that index. At the end of the line there is nothing between them.
[[nodiscard]] Text MarkLine(TextView line, std::size_t index);

}  // namespace pnl
