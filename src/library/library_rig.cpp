// SPDX-License-Identifier: MIT
#include "library/library_rig.h"

#include <array>
#include <utility>

#include "host/records.h"

namespace pnl {
namespace {

const char* StyleName(BoxStyle style) {
  switch (style) {
    case BoxStyle::kError:
      return "error";
    case BoxStyle::kQuestion:
      return "question";
    case BoxStyle::kInfo:
      break;
  }
  return "info";
}

const char* AnswerName(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::kYes:
      return "yes";
    case BoxAnswer::kNo:
      return "no";
    case BoxAnswer::kCancel:
      return "cancel";
    case BoxAnswer::kOk:
      break;
  }
  return "ok";
}

/// The answer of a box for a word. A question has no OK button, and the other boxes have no other button.
BoxAnswer AnswerFor(BoxStyle style, std::string_view word) {
  if (style != BoxStyle::kQuestion) return BoxAnswer::kOk;
  if (word == "no") return BoxAnswer::kNo;
  return word == "cancel" ? BoxAnswer::kCancel : BoxAnswer::kYes;
}

struct PathFolder {
  int id;
  const char16_t* folder;
};

/// The folders of a machine but for those of a language, which library/machine_documents has. path_id in
/// facade/utilities.h names them. The manuals that every language falls back on are the English ones.
constexpr std::array<PathFolder, 10> kMachineFolders = {{
    {path_id::kCalcHistory, u"C:\\CNC\\CALC"},
    {path_id::kLanguage, u"C:\\CNC\\LANG"},
    {path_id::kHelpFallback, u"C:\\CNC\\HELP\\EN"},
    {path_id::kCuttingData, u"C:\\CNC\\CUTTING"},
    {path_id::kSetup, u"C:\\CNC\\SETUP"},
    {path_id::kHelpThird, u"C:\\CNC\\HELP\\MACHINE"},
    {path_id::kExplorerSafe, u"C:\\CNC"},
    {path_id::kExplorerStart, u"C:\\CNC\\PROGRAMS"},
    {path_id::kUserSettings, u"C:\\CNC\\USER"},
    {path_id::kUserCuttingData, u"C:\\CNC\\USER\\CUTTING"},
}};

}  // namespace

LibraryRig::LibraryRig(Library& library) : library_(library) {
  library_.Timers().SetAfterTick([] { Library::Drain(); });
}

bool LibraryRig::StartBare() {
  // A machine's variables and reports can't be taken back from the tools that use them.
  if (library_.Machine() != nullptr) return false;
  library_.PrepareFolders();
  return true;
}

bool LibraryRig::StartMachine(std::string_view name) {
  if (!library_.StartMachine(name)) return false;
  for (const PathFolder& path : kMachineFolders) Files().SetPath(path.id, path.folder);
  library_.PrepareFolders();
  // A machine's drive is ready, so the tools read what they have saved on it.
  return Cnc().Returns("UTIL7340_DriveStatus", {0});
}

void LibraryRig::UseManualTime() { library_.Timers().UseManual(); }

void LibraryRig::Advance(std::int64_t milliseconds) {
  if (!library_.Timers().IsManual()) return;
  Library::Drain();
  library_.Timers().Advance(milliseconds);
  Library::Drain();
}

void LibraryRig::SetText(std::int32_t id, std::u16string_view text) { library_.Texts().SetText(id, Text(text)); }

void LibraryRig::AnswerBoxes(std::function<std::string(std::string_view style)> answer) {
  if (!answer) {
    library_.Windows().SetBoxAnswerer({});
    return;
  }
  library_.Windows().SetBoxAnswerer(
      [answer = std::move(answer)](const BoxSpec& box) { return AnswerFor(box.style, answer(StyleName(box.style))); });
}

void LibraryRig::AskPasswords(std::function<bool(std::int32_t type)> ask) {
  library_.Simulation()->Tables().SetPasswordAsker(std::move(ask));
}

void LibraryRig::SetSink(rig::EventSink* sink) {
  library_.Simulation()->SetSink(sink);
  QtWindowSystem& windows = library_.Windows();
  windows.onMessageToHost = nullptr;
  windows.onBoxAnswered = nullptr;
  if (sink == nullptr) return;
  windows.onMessageToHost = [sink](WindowHandle window, const Message& message) {
    sink->MessageToHost(window, message.number, message.first, message.second);
  };
  windows.onBoxAnswered = [sink](const BoxSpec& box, BoxAnswer answer) {
    sink->Box(box.title, box.text, StyleName(box.style), AnswerName(answer));
  };
}

rig::Rig::FileStart LibraryRig::NetworkFile(std::u16string_view path) {
  return [reader = library_.Folders(), path = Text(path)](std::size_t most) { return reader->ReadStart(path, most); };
}

std::u16string LibraryRig::ClipboardText() const { return library_.Windows().ClipboardText(); }

rig::Rig::Counts LibraryRig::Open() const {
  Counts counts;
  counts.reports = library_.Simulation()->OpenReports();
  counts.menus = library_.Menus().Count();
  counts.timers = library_.Timers().Running();
  counts.records = PublishedRecords();
  counts.windows = WindowRegistry::Instance().ToolWindows().size();
  return counts;
}

}  // namespace pnl

extern "C" pnl::rig::Rig* PnlRig(void) {
  try {
    pnl::Library& library = pnl::Library::Instance();
    static pnl::LibraryRig rig(library);
    return library.Simulation() != nullptr ? &rig : nullptr;
  } catch (...) {
    return nullptr;
  }
}
