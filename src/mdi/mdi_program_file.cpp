// SPDX-License-Identifier: MIT
#include "mdi/mdi_program_file.h"

#include <algorithm>

#include "base/format.h"
#include "base/text_file.h"
#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {

constexpr int kTextNotWritable = 9;
constexpr int kTextNotCreated = 10;
constexpr TextView kHeader = u"(------------- CREATED BY MDI -------------)\n";
constexpr TextView kProgramEnd = u"M30";

/// The box runs an event loop. The session outlives it, whatever becomes of the window.
void ShowProblem(MdiSession& session, int textId, const Text& name) {
  const Text text = Format(session.context.language.LoadToolText(textId), name);
  session.context.windows.ShowBox(session.View().Handle(), {session.menus.programTitle, text, BoxStyle::kError});
}

/// A name with a line feed in it is one that nobody can type or read again, and would break the program's first lines.
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

void RequestProgramFile(MdiSession& session) {
  session.WaitingForExplorer = 1;
  XPLRDATA_ST& request = session.ExplorerRequest;
  SetField(request.Title, session.menus.programTitle);
  SetField(request.Path, session.settings.Dir);
  SetField(request.File, {});
  SetField(request.Filter, u"*");
  SetField(request.Extension, {});
  request.Flags = XPLR_CONFIRMOVERWRITE;
  session.Host().HostExplorerRequest(request);
}

std::intptr_t WriteProgramFile(MdiSession& session, const Text& folder, const Text& name) {
  session.settings.Dir = folder;
  const Text path = Format(u"%s\\%s", folder, name);
  const FileInfo present = session.context.files.Query(path);
  CStdioFileEx file(session.context.files);
  const bool writable = !present.exists || present.writable;
  if (!writable || HasControls(path) || !file.Open(path, CStdioFileEx::kCreateExclusive)) {
    ShowProblem(session, writable ? kTextNotCreated : kTextNotWritable, name);
    session.WaitingForExplorer = 0;
    return kDone;
  }
  file.WriteString(kHeader);
  file.WriteString(Format(u"%% %s\n", FileTitleOf(name)));
  WriteItems(session.View(), file);
  session.WaitingForExplorer = 0;
  FocusForRole(session);
  // Only now the file comes to the disc, whole; a full disc shows here.
  if (!file.Close()) ShowProblem(session, kTextNotCreated, name);
  return kDone;
}

}  // namespace pnl::mdi
