// SPDX-License-Identifier: MIT
// The part of the session that shows documents.
#include <algorithm>
#include <array>
#include <utility>

#include "base/format.h"
#include "pages/picture_header.h"
#include "plc/plc_ids.h"
#include "plc/plc_session.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_PLC_MESSAGES;
constexpr int kTitleHeight = 30;
constexpr int kPageGap = 16;
constexpr int kRepeat = 1;
constexpr std::array kViews = {plc_id::kText, plc_id::kPage, plc_id::kVideo};

int ControlOf(DocumentKind kind) {
  switch (kind) {
    case DocumentKind::kPage:
      return plc_id::kPage;
    case DocumentKind::kVideo:
      return plc_id::kVideo;
    case DocumentKind::kText:
    case DocumentKind::kPicture:
      break;
  }
  return plc_id::kText;
}

int NoteOf(PageRefusal refusal) { return refusal == PageRefusal::kTooLarge ? plc_text::kTooLarge : plc_text::kDamaged; }

}  // namespace

void PlcSession::FindDocument(TextView reference) {
  documentFile_ = ResolveFile(Context().files, Context().cnc.Util(), reference);
  if (IsReadable(Context().files, documentFile_)) return;
  documentFile_.clear();
  HideDocument();
  if (reference.empty()) return;
  Text note = Format(Context().language.LoadToolText(plc_text::kUnreadable), SplitReference(reference).path);
  note += u'\n' + Context().language.LoadToolText(plc_text::kLookedIn);
  for (const Text& folder : PlacesOfFile(Context().cnc.Util(), reference)) note += u'\n' + folder;
  View().SetControlText(plc_id::kNote, note);
  View().ShowControl(plc_id::kNote, true);
}

void PlcSession::ShowDocument() {
  if (documentFile_.empty()) return;
  if (shownKind_ == DocumentKind::kVideo) View().ClearVideo();
  const DocumentReference parts = SplitReference(documentFile_);
  documentExt_ = parts.extension;
  shownKind_ = parts.Kind();
  switch (*shownKind_) {
    case DocumentKind::kText:
      ShowText(parts);
      break;
    case DocumentKind::kPage:
      ShowPage(parts);
      break;
    case DocumentKind::kVideo:
      ShowVideo(parts);
      break;
    case DocumentKind::kPicture:
      ShowPicture(parts);
      break;
  }
  RestorePlace();
}

void PlcSession::ShowOnly(int id) {
  View().BringToTop();
  for (const int other : kViews) {
    if (other != id) View().ShowControl(other, false);
  }
  View().ShowControl(plc_id::kNote, false);
  View().ShowControl(id, true);
}

void PlcSession::ShowText(const DocumentReference& parts) {
  Text text;
  if (!Context().cnc.Util().desc_to_txt(parts.number, text, parts.path)) text.clear();
  View().SetText(text);
  ShowOnly(plc_id::kText);
}

void PlcSession::ShowPage(const DocumentReference& parts) {
  View().MoveControl(plc_id::kPage, Area());
  ShowOnly(plc_id::kPage);
  const PageRefusal refusal = View().Navigate(parts.Folder(), FileNameOf(parts.path), parts.anchor);
  if (refusal != PageRefusal::kNone) return ShowNote(NoteOf(refusal), FileNameOf(parts.path));
  View().FocusPage();
}

void PlcSession::ShowPicture(const DocumentReference& parts) {
  const auto bytes = ReadWhole(Context().files, parts.path, PageSource::kMostBytes);
  const PictureHeader header = bytes ? ReadPictureHeader(*bytes) : PictureHeader();
  const bool large = header.kind != PictureKind::kNone && header.width > 0 && header.height != 0;
  if (!bytes || (large && !header.CanBeShown())) return ShowNote(plc_text::kTooLarge, FileNameOf(parts.path));
  if (!header.CanBeShown() || !View().SetPicture(*bytes)) {
    return ShowNote(plc_text::kDamaged, FileNameOf(parts.path));
  }
  ShowOnly(plc_id::kText);
}

void PlcSession::ShowVideo(const DocumentReference& parts) {
  ShowOnly(plc_id::kVideo);
  View().LoadVideo(parts.path);
  View().PlayVideo(kRepeat);
}

void PlcSession::HideDocument() {
  if (shownKind_ == DocumentKind::kVideo) View().ClearVideo();
  shownKind_.reset();
  documentExt_.clear();
  for (const int view : kViews) View().ShowControl(view, false);
  View().ShowControl(plc_id::kNote, false);
}

void PlcSession::ShowNote(int text, TextView name) {
  HideDocument();
  View().SetControlText(plc_id::kNote, Format(Context().language.LoadToolText(text), name));
  View().ShowControl(plc_id::kNote, true);
}

void PlcSession::OnLinkRefused(TextView reference) {
  linkMessage_ = true;
  Host().HostShowMessage(kTool, Format(Context().language.LoadToolText(plc_text::kNoLink), reference));
}

void PlcSession::BeginItem(std::optional<ItemKey> item) {
  KeepPlace();
  item_ = item;
  if (std::exchange(linkMessage_, false)) Host().HostShowMessage(kTool, {});
}

void PlcSession::KeepPlace() {
  const bool scrolls = shownKind_ == DocumentKind::kText || shownKind_ == DocumentKind::kPage;
  if (item_ && scrolls) places_[*item_] = View().PlaceIn(ControlOf(*shownKind_));
}

void PlcSession::RestorePlace() {
  const auto place = item_ ? places_.find(*item_) : places_.end();
  if (place == places_.end() || !shownKind_) return;
  if (*shownKind_ == DocumentKind::kText || *shownKind_ == DocumentKind::kPage) {
    View().SetPlace(ControlOf(*shownKind_), place->second);
  }
  places_.erase(place);
}

Rect PlcSession::Area() const {
  const Rect client = View().ClientRect();
  return {client.left, std::min(client.top + kTitleHeight, client.bottom), client.right, client.bottom};
}

void PlcSession::OnResized() {
  const Rect area = Area();
  View().MoveControl(plc_id::kTitle, {area.left, 0, area.right, area.top});
  for (const int id : {plc_id::kText, plc_id::kVideo, plc_id::kNote}) View().MoveControl(id, area);
  // A page that is shown later takes the whole area again.
  View().MoveControl(plc_id::kPage, {area.left, area.top, area.right, std::max(area.top, area.bottom - kPageGap)});
}

void PlcSession::OnAreaResized() {
  const Rect parent = View().ParentClientRect();
  View().SetWindowRect({0, 0, parent.Width(), parent.Height()});
}

}  // namespace pnl
