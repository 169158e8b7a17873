// SPDX-License-Identifier: MIT
// The lines that show where in a program an error lies: its path, shortened to the description's width, the number of
// the failing line, and that line with a mark. Reads the one file that the record names and no other.
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

/// Widths in the font of the description: of a text, and of the control.
struct TextWidths {
  std::function<int(TextView)> of;
  int available = 0;
};

/// Where in which file an error lies. Positions and spans are as the kernel gives them.
struct ProgramPlace {
  Text path;                  // at most 259 units
  std::int32_t position = 0;  // the byte of the file at which the failing block begins
  std::int32_t span = 0;      // from there, in bytes of 16-bit text, whatever the file's encoding
};

struct ProgramLines {
  Text lineNumber;
  Text lineText;
};

/// The captions of the two lines, copied so that they can be read in another thread.
struct ProgramCaptions {
  Text lineNumber;
  Text line;
};

/// Of a record of source 1 or 9.
[[nodiscard]] ProgramPlace ProgramPlaceOf(const ErrorRecord& record);
/// Caption and path, or, where these are too wide, the path alone with its middle left out.
[[nodiscard]] Text ComposePathLine(TextView path, const ErrorWords& words, const TextWidths& widths);
/// The path with so much of its middle left out as its width is beyond the one available; the file name stays whole
/// where that is possible.
[[nodiscard]] Text ShortenPath(TextView path, int width, int available);

/// Reads the file; may take long. Both lines are empty when it can't be opened; the text is when it can't be read to
/// the position, or once cancel is set.
[[nodiscard]] ProgramLines ReadProgramLines(const ProgramPlace& place, const ProgramCaptions& captions, Files& files,
                                            const std::atomic<bool>* cancel = nullptr);
[[nodiscard]] ProgramCaptions ProgramCaptionsOf(const ErrorWords& words);
/// The number of the line at a position, from 1; 0 for a negative position, -1 when the file ends before it. The
/// file's own place is as before.
[[nodiscard]] std::int32_t CountLines(std::int32_t position, CStdioFileEx& file,
                                      const std::atomic<bool>* cancel = nullptr);
/// The line with "<" and ">" around the character at that index, or around nothing at its end.
[[nodiscard]] Text MarkLine(TextView line, std::size_t index);

}  // namespace pnl
