// SPDX-License-Identifier: MIT
#include "help/qt/help_window.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/page_browser.h"
#include "help/help_ids.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kPanesPercent = 33;
constexpr int kPageWeight = 400;

void SetBackAndText(QWidget* widget, Color back, Color text) {
  QPalette colors = widget->palette();
  colors.setColor(QPalette::Window, ToQColor(back));
  colors.setColor(QPalette::WindowText, ToQColor(text));
  widget->setPalette(colors);
  widget->setAutoFillBackground(true);
}

QLabel* MakeLabel(int id, const HelpScale& scale, QWidget* parent) {
  auto* label = new QLabel(parent);
  MarkControl(label, id, control_kind::kStatic);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFont(scale.MakeText());
  label->hide();
  return label;
}

void SetLabel(QLabel* label, TextView text) {
  const QString shown = ToQString(text);
  label->setText(shown);
  label->setProperty("pnlText", shown);
  label->setVisible(!text.empty());
}

template <typename Layout>
Layout* Tight(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(help_look::kGap);
  return layout;
}

}  // namespace

ZCHelpHTML::ZCHelpHTML(const ToolContext& context, std::unique_ptr<HelpShelf> shelf, QWidget* parent)
    : ToolWindowWith(PNL_TOOL_HELP, parent),
      context_(context),
      scale_(context.cnc.Util(), FingerPixels(*this)),
      focusBefore_(QApplication::focusWidget()) {
  setFocusPolicy(Qt::StrongFocus);
  SetTitleProperty(context.language.LoadToolText(help_text::kTitle));
  SetBackProperty(help_look::kBack);
  SetBackAndText(this, help_look::kBack, help_look::kMissingText);
  MakeControls();
  HelpView& view = *this;
  session_.Make(context_, view, std::move(shelf));
  Connect();
}

ZCHelpHTML::~ZCHelpHTML() {
  EndMessages();
  // The controls are destroyed after this object, and some of them report then.
  for (QObject* child : findChildren<QObject*>()) child->disconnect(this);
  session_.End();
}

void ZCHelpHTML::Start() {
  session_.Tell([](HelpSession& session) { session.Start(); });
}

void ZCHelpHTML::MakeControls() {
  missing_ = MakeLabel(help_id::kMissing, scale_, this);
  missing_->setAlignment(Qt::AlignCenter);
  book_ = new QWidget(this);
  book_->hide();
  auto* row = Tight(new QHBoxLayout(book_));
  row->setContentsMargins(help_look::kGap, help_look::kGap, help_look::kGap, help_look::kGap);
  panes_ = new HelpPanes(context_.language, scale_, book_);
  panesKey_ = new HelpKeyButton(help_id::kPanesKey, {}, scale_, book_);
  panesKey_->SetSign(HelpKeyButton::Sign::kLeft);
  panesKey_->setFixedWidth(scale_.PanesKeyWidth());
  panesKey_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  row->addWidget(panes_);
  row->addWidget(panesKey_);
  auto* column = Tight(new QVBoxLayout);
  note_ = MakeLabel(help_id::kNotice, scale_, book_);
  note_->setMargin(help_look::kGap);
  SetBackAndText(note_, help_look::kNoteBack, help_look::kNoteText);
  page_ = new PageBrowser(help_id::kPage, book_);
  page_->setFont(scale_.MakeText(kPageWeight));
  findBar_ = MakeFindBar();
  column->addWidget(note_);
  column->addWidget(page_, 1);
  column->addWidget(findBar_);
  row->addLayout(column, 1);
}

QWidget* ZCHelpHTML::MakeFindBar() {
  auto* bar = new QWidget(book_);
  auto* row = Tight(new QHBoxLayout(bar));
  findLine_ = MakeHelpLine(help_id::kFindLine, scale_, bar);
  row->addWidget(findLine_, 1);
  const auto add = [&](int id, HelpKeyButton::Sign sign, const QString& word) {
    auto* key = new HelpKeyButton(id, word, scale_, bar);
    key->SetSign(sign);
    key->GiveFocusTo(findLine_);
    row->addWidget(key);
    return key;
  };
  const auto find = [this](bool backwards) {
    return [this, backwards] { session_.Tell([=](HelpSession& session) { session.OnFindKey(backwards); }); };
  };
  connect(add(help_id::kFindPrevious, HelpKeyButton::Sign::kUp, {}), &QAbstractButton::clicked, this, find(true));
  connect(add(help_id::kFindNext, HelpKeyButton::Sign::kDown, {}), &QAbstractButton::clicked, this, find(false));
  connect(add(help_id::kFindClose, HelpKeyButton::Sign::kNone, QStringLiteral("\u00d7")), &QAbstractButton::clicked,
          this, [this] { session_.Tell([](HelpSession& session) { session.OnFindClosed(); }); });
  bar->hide();
  return bar;
}

void ZCHelpHTML::Connect() {
  for (std::size_t i = 0; i < panes_->tabs.size(); ++i) {
    connect(panes_->tabs[i], &QAbstractButton::clicked, this, [this, pane = static_cast<HelpPane>(i)] {
      session_.Tell([pane](HelpSession& session) { session.OnPaneTab(pane); });
    });
  }
  connect(panesKey_, &QAbstractButton::clicked, this,
          [this] { session_.Tell([](HelpSession& session) { session.OnPanesKey(); }); });
  connect(panes_->searchKey, &QAbstractButton::clicked, this,
          [this] { session_.Tell([](HelpSession& session) { session.OnSearchKey(); }); });
  connect(panes_->indexLine, &QLineEdit::textEdited, this,
          [this] { session_.Tell([](HelpSession& session) { session.OnLineChanged(HelpPart::kIndexLine); }); });
  connect(panes_->contents, &HelpTree::RowTouched, this, [this](int at) { TouchRow(HelpPart::kContents, at); });
  for (const HelpPart list : {HelpPart::kIndexList, HelpPart::kResults}) {
    connect(ListOf(list), &QAbstractItemView::clicked, this,
            [this, list](const QModelIndex& index) { TouchRow(list, index.row()); });
  }
  connect(page_, &PageView::PageShown, this, [this](const QString& page, const QString& anchor) {
    session_.Tell([&](HelpSession& session) { session.OnPageShown(FromQString(page), FromQString(anchor)); });
  });
  connect(page_, &PageView::PageRefused, this, [this](const QString& reference) {
    session_.Tell([&](HelpSession& session) { session.OnPageRefused(FromQString(reference)); });
  });
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  parentWidget()->installEventFilter(this);
}

void ZCHelpHTML::TouchRow(HelpPart list, int row) {
  session_.Tell([=](HelpSession& session) { session.OnRowChosen(list, row); });
}

std::intptr_t ZCHelpHTML::OnMessage(const Message& message) {
  static const std::uint32_t goToManual = RegisterMessage("HELPHTML_GOTOMANUAL");
  std::intptr_t answer = 0;
  session_.Tell([&](HelpSession& session) {
    if (message.number == PNL_MSG_TOOL_COMMAND) {
      answer = session.OnToolCommand(message.first);
    } else if (message.number == PNL_MSG_COMMAND) {
      session.OnMenuCommand(static_cast<int>(message.first));
    } else if (message.number == goToManual) {
      session.OnGoToManual(TextAt(message.first));
    }
  });
  return answer;
}

void ZCHelpHTML::resizeEvent(QResizeEvent* /*event*/) {
  book_->setGeometry(rect());
  missing_->setGeometry(rect());
  panes_->setFixedWidth(std::clamp(width() * kPanesPercent / 100, help_look::kLeastPanes, help_look::kMostPanes));
}

// HelpView.

void ZCHelpHTML::GiveFocusBack() {
  if (!focusBefore_) return;
  focusBefore_->activateWindow();
  focusBefore_->setFocus(Qt::OtherFocusReason);
}

void ZCHelpHTML::MoveWindow(const Rect& rect) {
  setGeometry(ToQRect(rect));
  update();
}

void ZCHelpHTML::ShowBook(bool shown) {
  // The focus must not move to another control of the panel.
  if (!shown && FocusedPart() != HelpPart::kNone) setFocus(Qt::OtherFocusReason);
  book_->setVisible(shown);
}

void ZCHelpHTML::ShowMissing(TextView text) { SetLabel(missing_, text); }

void ZCHelpHTML::ShowNote(TextView text) { SetLabel(note_, text); }

void ZCHelpHTML::SetSearchStatus(TextView text) { panes_->SetStatus(ToQString(text)); }

void ZCHelpHTML::ShowPane(HelpPane pane, bool shown) {
  panes_->ShowPane(pane);
  panes_->setVisible(shown);
  panesKey_->SetSign(shown ? HelpKeyButton::Sign::kLeft : HelpKeyButton::Sign::kRight);
}

bool ZCHelpHTML::ShowPage(const std::shared_ptr<PageSource>& source, TextView page, TextView anchor) {
  // The page view takes a reference, in which some characters of a name have a meaning.
  return page_->ShowPage(source, PageReference(page), anchor);
}

void ZCHelpHTML::OpenFindLine(bool open) {
  if (!open && findLine_->hasFocus()) page_->setFocus(Qt::OtherFocusReason);
  findBar_->setVisible(open);
  if (!open) return;
  findLine_->setFocus(Qt::OtherFocusReason);
  findLine_->selectAll();
}

void ZCHelpHTML::SelectRow(HelpPart list, int row) {
  if (list == HelpPart::kContents) return panes_->contents->SelectRow(row);
  if (ListBox* box = ListOf(list)) box->Select(row);
}

int ZCHelpHTML::SelectedRow(HelpPart list) const {
  if (list == HelpPart::kContents) return panes_->contents->SelectedRow();
  const ListBox* box = ListOf(list);
  return box == nullptr ? -1 : box->Selection();
}

Text ZCHelpHTML::LineText(HelpPart line) const {
  const QLineEdit* edit = LineOf(line);
  return edit == nullptr ? Text() : FromQString(edit->text());
}

void ZCHelpHTML::SetLineText(HelpPart line, TextView text) {
  if (QLineEdit* edit = LineOf(line)) edit->setText(ToQString(text));
}

}  // namespace pnl
