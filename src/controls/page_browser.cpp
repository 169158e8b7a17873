// SPDX-License-Identifier: MIT
#include "controls/page_browser.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <optional>
#include <utility>

#include "pages/page_decoding.h"
#include "pages/page_limits.h"
#include "pages/page_markup.h"
#include "pages/page_words.h"
#include "pages/picture_header.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr std::size_t kMostHistory = 100;
constexpr int kTopLines = 2;
constexpr TextView kCutSign = u"[\u2026]";

bool IsPlain(TextView address, TextView text) {
  const TextView name = address.substr(address.rfind(u'/') + 1);
  const std::size_t point = name.rfind(u'.');
  const bool named = point != TextView::npos && EqualNoCase(name.substr(point), u".txt");
  return named || text.find(u'<') == TextView::npos;
}

/// What the text browser gets of a page, or nothing for bytes that are no text.
struct Content {
  QString text;
  bool plain = false;
};
std::optional<Content> ContentOf(TextView address, std::string_view bytes) {
  const Text text = DecodePage(bytes);
  if (text.find(u'\0') != Text::npos) return std::nullopt;
  bool cut = bytes.size() > page_limit::kBytes;
  if (IsPlain(address, text)) return Content{ToQString(BreakLongWords(text) + Text(cut ? kCutSign : TextView())), true};
  CleanPage page = CleanMarkup(text);
  cut |= page.cut;
  if (cut) page.markup += u"<p>" + Text(kCutSign) + u"</p>";
  return Content{ToQString(page.markup), false};
}

}  // namespace

PageBrowser::PageBrowser(int id, QWidget* parent)
    : PageView(parent), layout_(new QStackedLayout(this)), text_(new PageText(this)), picture_(new PictureArea(this)) {
  MarkControl(this, id, control_kind::kStatic);
  layout_->addWidget(text_);
  layout_->addWidget(picture_);
  setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(text_);
  connect(text_, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& url) { Follow(FromQString(url.toString(QUrl::FullyEncoded))); });
}

bool PageBrowser::ShowPage(std::shared_ptr<PageSource> source, TextView address, TextView anchor) {
  const QString reference = ToQString(address);
  const PageAddress page = source->Resolve({}, address);
  if (page.refusal != PageRefusal::kNone) {
    emit PageRefused(reference, page.refusal);
    return false;
  }
  return LoadNew({std::move(source), page.page, anchor.empty() ? page.anchor : Text(anchor), 0}, reference);
}

bool PageBrowser::Follow(TextView reference) {
  if (!HasPage()) return false;
  const QString shown = ToQString(reference);
  emit LinkFollowed(shown);
  if (!HasPage()) return false;
  const std::shared_ptr<PageSource> source = Present().source;
  const PageAddress page = source->Resolve(Present().address, reference);
  if (page.refusal != PageRefusal::kNone) {
    emit PageRefused(shown, page.refusal);
    return false;
  }
  return LoadNew({source, page.page, page.anchor, 0}, shown);
}

bool PageBrowser::LoadNew(Entry entry, const QString& reference) {
  KeepScroll();
  if (const PageRefusal refusal = Load(entry); refusal != PageRefusal::kNone) {
    emit PageRefused(reference, refusal);
    return false;
  }
  if (home_.source != entry.source) home_ = entry;
  const int kept = at_ + 1;
  history_.resize(static_cast<std::size_t>(kept));
  if (history_.size() == kMostHistory) history_.erase(history_.begin());
  history_.push_back(std::move(entry));
  at_ = static_cast<int>(history_.size()) - 1;
  emit PageShown(ToQString(Present().address), ToQString(Present().anchor));
  return true;
}

PageRefusal PageBrowser::Load(const Entry& entry) {
  const PageBytes read = entry.source->Read(entry.address);
  if (read.refusal != PageRefusal::kNone) return read.refusal;
  const PictureHeader header = ReadPictureHeader(read.bytes);
  if (header.kind != PictureKind::kNone && header.width > 0) {
    if (!header.CanBeShown()) return PageRefusal::kTooLarge;
    PictureArea* const shown = new PictureArea(this);
    if (!shown->SetPicture(read.bytes, PictureFit::kKeepShape)) {
      delete shown;
      return PageRefusal::kUnreadable;
    }
    layout_->addWidget(shown);
    delete std::exchange(picture_, shown);
    // A hidden proxy would take the focus nowhere.
    setFocusProxy(nullptr);
    layout_->setCurrentWidget(picture_);
    text_->Empty();
    return PageRefusal::kNone;
  }
  const auto content = ContentOf(entry.address, read.bytes);
  if (!content) return PageRefusal::kUnreadable;
  text_->ShowContent(entry.source, entry.address, content->text, content->plain);
  ShowText();
  if (!entry.anchor.empty()) ScrollTo(entry.anchor);
  return PageRefusal::kNone;
}

void PageBrowser::ScrollTo(TextView anchor) {
  text_->scrollToAnchor(ToQString(anchor));
  // An anchor at the page's heading: the margin above it is shown, too.
  if (ScrollPosition() <= kTopLines * text_->fontMetrics().lineSpacing()) text_->verticalScrollBar()->setValue(0);
}

void PageBrowser::Clear() {
  history_.clear();
  at_ = -1;
  home_ = {};
  text_->Empty();
  ShowText();
}

void PageBrowser::ShowText() {
  layout_->setCurrentWidget(text_);
  setFocusProxy(text_);
  picture_->Clear();
}

void PageBrowser::KeepScroll() {
  if (HasPage()) history_[static_cast<std::size_t>(at_)].scroll = ScrollPosition();
}

void PageBrowser::GoTo(int place) {
  if (place < 0 || place >= static_cast<int>(history_.size())) return;
  KeepScroll();
  const Entry entry = history_[static_cast<std::size_t>(place)];
  if (const PageRefusal refusal = Load(entry); refusal != PageRefusal::kNone) {
    emit PageRefused(ToQString(entry.address), refusal);
    return;
  }
  at_ = place;
  SetScrollPosition(entry.scroll);
  emit PageShown(ToQString(entry.address), ToQString(entry.anchor));
}

void PageBrowser::Back() { GoTo(at_ - 1); }

void PageBrowser::Forward() { GoTo(at_ + 1); }

void PageBrowser::Reload() { GoTo(at_); }

void PageBrowser::Home() {
  if (HasPage()) LoadNew(home_, ToQString(home_.address));
}

bool PageBrowser::Find(TextView text, bool backwards) {
  if (text.empty() || !HasPage()) return false;
  const QTextDocument::FindFlags flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (text_->find(ToQString(text), flags)) return true;
  const QTextCursor before = text_->textCursor();
  text_->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
  if (text_->find(ToQString(text), flags)) return true;
  text_->setTextCursor(before);
  return false;
}

QString PageBrowser::Location() const {
  if (!HasPage()) return {};
  Text location = Present().address;
  if (!folder_.empty()) {
    std::replace(location.begin(), location.end(), u'/', u'\\');
    location = folder_ + u'\\' + location;
  }
  if (!Present().anchor.empty()) location += u'#' + Present().anchor;
  return ToQString(location);
}

int PageBrowser::ScrollPosition() const { return text_->verticalScrollBar()->value(); }

void PageBrowser::SetScrollPosition(int position) {
  // The layout goes on later by itself; the scroll bar has its range when it is complete.
  static_cast<void>(text_->document()->documentLayout()->documentSize());
  text_->verticalScrollBar()->setValue(position);
}

}  // namespace pnl
