// SPDX-License-Identifier: MIT
#include "mdi/mdi_program_file.h"

#include <algorithm>

#include "base/format.h"
#include "base/text_file.h"

namespace pnl {

namespace {

constexpr TextView kHeader = u"(------------- CREATED BY MDI -------------)\n";
constexpr TextView kProgramEnd = u"M30";

/// Whether the path contains control characters. Nobody can type such a name, and a line feed in it would break the
/// first lines of the program.
bool HasControls(TextView path) {
  return std::any_of(path.begin(), path.end(), [](char16_t c) { return c < u' ' || (c >= 0x7F && c <= 0x9F); });
}

void WriteItems(const MdiView& view, CStdioFileEx& file) {
  bool endMissing = true;
  const int count = view.ListCount();
  for (int i = 0; i < count; ++i) {
    const Text item = view.ListItem(i);
    file.WriteString(item + u"\n");
    if (item == kProgramEnd) endMissing = false;
  }
  if (endMissing) file.WriteString(kProgramEnd);
}

}  // namespace

void FillProgramRequest(XPLRDATA_ST& request, TextView title, TextView folder) {
  SetField(request.Title, title);
  SetField(request.Path, folder);
  SetField(request.File, {});
  SetField(request.Filter, u"*");
  SetField(request.Extension, {});
  request.Flags = XPLR_CONFIRMOVERWRITE;
}

MdiProgramResult WriteProgram(Files& files, TextView folder, TextView name, const MdiView& view) {
  const Text path = Format(u"%s\\%s", folder, name);
  const FileInfo present = files.Query(path);
  if (present.exists && !present.writable) return MdiProgramResult::kNotWritable;
  CStdioFileEx file(files);
  if (HasControls(path) || !file.Open(path, CStdioFileEx::kCreateExclusive)) return MdiProgramResult::kNotCreated;
  file.WriteString(kHeader);
  file.WriteString(Format(u"%% %s\n", FileTitleOf(name)));
  WriteItems(view, file);
  // The file is written to the disc only now, as a whole. A full disc is noticed here.
  return file.Close() ? MdiProgramResult::kWritten : MdiProgramResult::kNotStored;
}

}  // namespace pnl
