// SPDX-License-Identifier: MIT
// The part of the session that opens and closes: marks, manuals, the picker, and the tool itself.
#include "help/help_session.h"

#include <utility>

#include "base/format.h"
#include "help/help_ids.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_HELP;
constexpr TextView kMissingFallback = u"File not found.";
/// The longest file name that the picker hands over.
constexpr std::size_t kLongestName = 259;

Text MissingText(const Language& language) {
  const DialogTemplate* dialog = language.Dialog(help_id::kDialog);
  const DialogControl* control = dialog == nullptr ? nullptr : dialog->Find(help_id::kMissing);
  return control == nullptr || control->text.empty() ? Text(kMissingFallback) : control->text;
}

}  // namespace

HelpSession::HelpSession(const ToolContext& context, HelpView& view, std::unique_ptr<HelpShelf> shelf)
    : ToolSession(context, view), shelf_(std::move(shelf)), menus_(context.language), m_Mark(context.cnc.Vars()) {
  for (int id = help_text::kTitle; id <= help_text::kNoAddress; ++id) texts_[id] = context.language.LoadToolText(id);
  missingText_ = MissingText(context.language);
}

void HelpSession::Start() {
  m_Mark.SetNombre(u"E.HELPDATA");
  menus_.Load();
  Host().HostSetMainMenu(kTool, menus_.Main());
  View().GiveFocusBack();
}

void HelpSession::End() {
  MarkEnded();
  shelf_->Drop();
  m_hHelp.reset();
  menus_.Destroy();
}

std::intptr_t HelpSession::OnToolCommand(std::intptr_t command) {
  switch (command) {
    case PNL_COMMAND_OPEN:
      return Open() ? PNL_DONE : PNL_REFUSED;
    case PNL_COMMAND_HIDE:
    case PNL_COMMAND_LEAVE:
      Close();
      return PNL_DONE;
    case PNL_COMMAND_RESTORE_FOCUS:
      RunCommand(help_command::kNextPane);
      return PNL_DONE;
    case PNL_COMMAND_CLOSE_TOOL:
      Close();
      return PNL_CLOSED_ITSELF;
    default:
      return PNL_DONE;
  }
}

// Opening.

bool HelpSession::Open() {
  Host().HostToolOpening(kTool);
  const ResolvedPage resolved = Resolve();
  if (resolved.result != HelpResolution::kFound) {
    Host().HostToolClosed(kTool, PNL_CLOSED);
    return false;
  }
  const ManualPage& page = resolved.page;
  if (IsFile(page.manual)) {
    Text note;
    if (page.fallback) note = Format(TextOf(help_text::kFallback), page.page, FileNameOf(page.manual));
    OpenBook(page.manual, {page.page, page.mark}, note);
  } else {
    // The tool opens all the same, and says what is missing.
    ShowMissing(missingText_);
  }
  FillParent();
  View().Show();
  View().BringToTop();
  View().FocusWindow();
  RunCommand(help_command::kNextPane);
  return true;
}

ResolvedPage HelpSession::Resolve() {
  Text mark;
  m_Mark.ReadTxt(mark);
  return ResolveManualPage(Disc(), TextView(mark).substr(0, kLongestMark), [this](TextView title, TextView text) {
    Context().windows.ShowBox(View().Handle(), {Text(title), Text(text), BoxStyle::kInfo, {}});
    View().FocusParent();
  });
}

bool HelpSession::IsFile(TextView path) const {
  const FileInfo info = Context().files.Query(path);
  return info.exists && !info.folder;
}

void HelpSession::OpenBook(const Text& path, const ManualPlace& wanted, const Text& fallbackNote) {
  CloseBook();
  View().ShowMissing({});
  m_hHelp = std::make_unique<HelpFrame>();
  m_hHelp->path = path;
  m_hHelp->wanted = wanted;
  m_hHelp->fallbackNote = fallbackNote;
  View().ShowBook(true);
  View().ShowNote(Format(TextOf(help_text::kLoading), FileNameOf(path)));
  if (!shelf_->Open(path, Later([this](const OpenedBook& opened) { OnBookOpened(opened); }))) {
    OnBookOpened({ManualState::kUnusable, nullptr});
  }
}

void HelpSession::OnBookOpened(const OpenedBook& opened) {
  if (m_hHelp == nullptr) return;
  if (opened.book != nullptr) return ShowOpened(opened);
  ShowMissing(WhyNotShown(opened.state));
}

void HelpSession::ShowOpened(const OpenedBook& opened) {
  HelpFrame& frame = *m_hHelp;
  frame.book = opened.book;
  if (opened.state == ManualState::kDamaged) {
    frame.damagedNote = Format(TextOf(help_text::kDamaged), FileNameOf(frame.path));
  }
  frame.contents = ContentsRows(frame.book->Contents());
  frame.index = IndexRows(frame.book->Index());
  View().SetContents(frame.contents);
  View().SetIndex(frame.index);
  View().ShowPane(pane_, panesShown_);
  const Text page = frame.wanted.page.empty() ? Text() : frame.book->PageOf(frame.wanted.page);
  const bool lost = page.empty() && !frame.wanted.page.empty();
  const Text fallback = frame.fallbackNote;
  const Text wanted = frame.wanted.page;
  SetPageNote({});
  ShowAt(page.empty() ? ManualPlace{frame.book->Home(), {}} : ManualPlace{page, frame.wanted.anchor});
  // The page comes back as an event, in which another manual may have been opened.
  if (Book() != opened.book.get()) return;
  if (lost) SetPageNote(Format(TextOf(help_text::kNoPage), wanted));
  if (!lost && !fallback.empty()) SetPageNote(fallback);
  BeginSearch();
}

void HelpSession::BeginSearch() {
  const std::shared_ptr<HelpBook> book = m_hHelp->book;
  const auto ready = [this, of = std::weak_ptr<HelpBook>(book)] {
    if (m_hHelp == nullptr || m_hHelp->book != of.lock()) return;
    if (std::exchange(m_hHelp->waitsForIndex, false)) Search();
  };
  if (!book->BeginSearch(Later(ready))) View().SetSearchStatus(TextOf(help_text::kCantSearch));
}

Text HelpSession::WhyNotShown(ManualState state) const {
  switch (state) {
    case ManualState::kMissing:
      return missingText_;
    case ManualState::kNoProgram:
      return TextOf(help_text::kNoProgram);
    case ManualState::kNoRoom:
      return TextOf(help_text::kNoRoom);
    default:
      return Format(TextOf(help_text::kUnusable), FileNameOf(m_hHelp->path));
  }
}

void HelpSession::OnGoToManual(TextView name) {
  for (const int id : {path_id::kHelpLanguage, path_id::kHelpFallback, path_id::kHelpThird}) {
    const Text path = Format(u"%s\\%s", Context().cnc.Util().Get7340Path(id), name.substr(0, kLongestName + 1));
    if (!IsFile(path)) continue;
    OpenBook(path, {}, {});
    return FillParent();
  }
}

// Closing.

void HelpSession::ShowMissing(TextView text) {
  // What was shown before isn't what was asked for now.
  CloseBook();
  View().ShowMissing(text);
}

void HelpSession::CloseBook() {
  shelf_->Drop();
  m_hHelp.reset();
  View().ClearPage();
  View().OpenFindLine(false);
  View().SetContents({});
  View().SetIndex({});
  View().SetResults({});
  View().SetSearchStatus({});
  View().ShowNote({});
  for (const HelpPart line : {HelpPart::kIndexLine, HelpPart::kSearchLine}) View().SetLineText(line, {});
  View().ShowBook(false);
}

void HelpSession::Close() {
  offered_.reset();
  View().ClosePicker();
  View().Hide();
  Host().HostToolClosed(kTool, PNL_CLOSED);
  CloseBook();
}

void HelpSession::FillParent() { View().MoveWindow(View().ParentClientRect()); }

void HelpSession::OnParentResized() {
  if (View().IsVisible()) FillParent();
}

// The picker.

void HelpSession::ShowPicker() {
  if (offered_) return;
  const HelpsFile helps = FindHelpsFile(Disc());
  const ManualNames manuals = ListManuals(helps, Context().files, true);
  ManualPicker picker{manuals.code, {}, manuals.names, {}};
  if (manuals.code != manual_list::kDone) {
    picker.note = Format(TextOf(help_text::kNoList), helps.name, manuals.code);
  }
  for (const RecentPage& page : recent_.All()) picker.recent.push_back(page.title);
  offered_ = Offered{manuals.names, recent_.All()};
  View().OpenPicker(picker);
}

void HelpSession::OnPicked(const std::optional<ManualChoice>& choice) {
  const auto offered = std::exchange(offered_, std::nullopt);
  if (!offered || !choice || choice->row < 0) return;
  const auto row = static_cast<std::size_t>(choice->row);
  if (choice->list == ManualChoice::List::kManuals) {
    if (row < offered->manuals.size()) PickManual(offered->manuals[row]);
  } else if (row < offered->recent.size()) {
    PickRecent(offered->recent[row]);
  }
}

void HelpSession::PickManual(TextView name) {
  const Text handedOver(name.substr(0, kLongestName));
  const auto address = reinterpret_cast<std::intptr_t>(handedOver.c_str());
  Context().windows.Send(View().Handle(), {RegisterMessage("HELPHTML_GOTOMANUAL"), address, 0});
}

void HelpSession::PickRecent(const RecentPage& page) {
  if (!IsFile(page.manual)) return ShowMissing(missingText_);
  OpenBook(page.manual, {page.page, page.anchor}, {});
}

}  // namespace pnl
