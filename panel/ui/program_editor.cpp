// SPDX-License-Identifier: MIT
#include "ui/program_editor.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "common/words.h"
#include "ui/code_filler.h"
#include "ui/edit_history.h"
#include "ui/find_bar.h"
#include "ui/program_search.h"
#include "ui/theme.h"

namespace panel {
namespace {

/// An opening that takes longer gets its bar with the key to cancel it.
constexpr int kPatienceMilliseconds = 300;

}  // namespace

ProgramEditor::ProgramEditor(QWidget* parent)
    : QWidget(parent),
      search_(new ProgramSearch(this)),
      findBar_(new FindBar(*search_, this)),
      lineBar_(new LineBar(this)),
      openingBar_(new OpeningBar(this)) {
  findBar_->hide();
  lineBar_->hide();
  openingBar_->hide();
  ConnectBars();
  // The focus also changes while the editor is destroyed. At that time it is a plain widget, so the cast gives null.
  connect(qApp, &QApplication::focusChanged, this, [widget = static_cast<QWidget*>(this)] {
    auto* editor = qobject_cast<ProgramEditor*>(widget);
    if (editor != nullptr && editor->low_) editor->Place();
  });
  CodeEdit* edit = MakeEdit();
  edit->show();
  Adopt(edit);
  setFocusProxy(edit_);
}

void ProgramEditor::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) {
    for (CodeEdit* edit : findChildren<CodeEdit*>()) edit->setAccessibleName(Say(Word::kProgram));
  }
  QWidget::changeEvent(event);
}

CodeEdit* ProgramEditor::Seen() const { return coming_ != nullptr && !coming_->isHidden() ? coming_ : edit_; }

CodeEdit* ProgramEditor::MakeEdit() {
  auto* edit = new CodeEdit(this);
  edit->hide();
  edit->setAccessibleName(Say(Word::kProgram));
  edit->SetFontPixels(fontPixels_);
  connect(edit, &QPlainTextEdit::cursorPositionChanged, this, qOverload<>(&QWidget::update));
  return edit;
}

void ProgramEditor::Adopt(CodeEdit* edit) {
  edit_ = edit;
  filler_ = edit->findChild<CodeFiller*>();
  if (filler_ == nullptr) filler_ = new CodeFiller(edit);
  history_ = new EditHistory(edit);
  QTextDocument* document = edit->document();
  connect(document, &QTextDocument::modificationChanged, this, qOverload<>(&QWidget::update));
  connect(document, &QTextDocument::contentsChange, this, [this](int position, int removed, int added) {
    ++revision_;
    emit Edited(position, removed, added);
  });
  for (const auto available : {&QTextDocument::undoAvailable, &QTextDocument::redoAvailable}) {
    connect(document, available, this, &ProgramEditor::StateChanged);
  }
  connect(edit, &CodeEdit::UndoWanted, this, [this] { Do(Action::kUndo); });
  connect(edit, &CodeEdit::RedoWanted, this, [this] { Do(Action::kRedo); });
  connect(history_, &EditHistory::Changed, this, &ProgramEditor::OnChangingChanged);
  search_->SetProgram(edit_, history_);
}

void ProgramEditor::Retire(CodeEdit* edit, CodeFiller* filler) {
  edit->hide();
  // Its undo steps go at once, and the rest in slices.
  filler->Empty([edit] { edit->deleteLater(); });
}

void ProgramEditor::Swap(CodeEdit* from, CodeEdit* to) {
  const bool had = from->hasFocus();
  Place();
  to->show();
  to->raise();
  setFocusProxy(to);
  if (had) to->setFocus();
  from->hide();
}

void ProgramEditor::MakeComing() {
  coming_ = MakeEdit();
  coming_->setReadOnly(true);
  comingFiller_ = new CodeFiller(coming_);
  connect(comingFiller_, &CodeFiller::Progressed, this, &ProgramEditor::UpdateProgress);
  QWidget::setTabOrder(edit_, coming_);
}

void ProgramEditor::RevealComing() {
  if (coming_->isHidden()) Swap(edit_, coming_);
}

void ProgramEditor::DropComing() {
  CodeEdit* edit = std::exchange(coming_, nullptr);
  if (edit == nullptr) return;
  CodeFiller* filler = std::exchange(comingFiller_, nullptr);
  disconnect(filler, nullptr, this, nullptr);
  if (!edit->isHidden()) Swap(edit, edit_);
  Retire(edit, filler);
}

void ProgramEditor::Fill(const QString& text, const QString& name, std::function<void()> shown) {
  if (Filling()) {
    DropComing();
    inserted_.clear();
  }
  if (coming_ == nullptr) MakeComing();
  comingName_ = name;
  shown_ = std::move(shown);
  comingFiller_->Fill(text, [this] { Arrive(); });
  if (!Filling()) return;
  RevealComing();
  if (openingBar_->isHidden()) patience_.start(kPatienceMilliseconds, this);
  UpdateLock();
}

void ProgramEditor::SetProgram(const QString& text, const QString& name) {
  DropComing();
  inserted_.clear();
  MakeComing();
  comingName_ = name;
  shown_ = nullptr;
  comingFiller_->FillNow(text);
  Arrive();
}

bool ProgramEditor::Filling() const { return comingFiller_ != nullptr && comingFiller_->Working(); }

void ProgramEditor::Arrive() {
  CodeEdit* old = edit_;
  CodeFiller* oldFiller = filler_;
  disconnect(old, nullptr, this, nullptr);
  disconnect(old->document(), nullptr, this, nullptr);
  disconnect(history_, nullptr, this, nullptr);
  RevealComing();
  disconnect(comingFiller_, nullptr, this, nullptr);
  comingFiller_ = nullptr;
  Adopt(std::exchange(coming_, nullptr));
  name_ = comingName_;
  ++revision_;
  Retire(old, oldFiller);
  EndOpening();
  emit Replaced();
  if (const auto shown = std::exchange(shown_, nullptr)) shown();
  InsertWaiting();
}

void ProgramEditor::BeginOpening(const QString& name) {
  DropComing();
  shown_ = nullptr;
  inserted_.clear();
  opening_ = name.isNull() ? QStringLiteral("") : name;
  read_ = 0;
  patience_.start(kPatienceMilliseconds, this);
  UpdateLock();
}

void ProgramEditor::ShowReading(int percent, bool big) {
  if (opening_.isNull()) return;
  read_ = percent;
  if (big) {
    patience_.stop();
    ShowOpeningBar();
  }
  UpdateProgress();
}

void ProgramEditor::UpdateProgress() {
  openingBar_->Show(PercentOpened());
  update();
}

void ProgramEditor::ShowFirst(const QString& lines) {
  if (opening_.isNull() || lines.isEmpty()) return;
  if (coming_ == nullptr) MakeComing();
  comingFiller_->FillNow(lines);
  RevealComing();
  update();
}

void ProgramEditor::CancelOpening() {
  if (!Opening()) return;
  shown_ = nullptr;
  DropComing();
  EndOpening();
  InsertWaiting();
}

void ProgramEditor::EndOpening() {
  opening_ = QString();
  patience_.stop();
  openingBar_->hide();
  UpdateLock();
  Place();
}

void ProgramEditor::UpdateLock() {
  edit_->setReadOnly(Opening() || Changing());
  update();
  emit StateChanged();
}

void ProgramEditor::OnChangingChanged() {
  UpdateLock();
  InsertWaiting();
}

void ProgramEditor::ShowOpeningBar() {
  if (!openingBar_->isHidden()) return;
  openingBar_->Show(PercentOpened());
  openingBar_->show();
  Place();
}

int ProgramEditor::PercentOpened() const {
  // A program that is read from a file has two halves: reading it and filling it in.
  if (opening_.isNull()) return Filling() ? comingFiller_->Percent() : 0;
  return read_ / 2 + (Filling() ? comingFiller_->Percent() / 2 : 0);
}

void ProgramEditor::timerEvent(QTimerEvent* event) {
  if (event->timerId() != patience_.timerId()) return QWidget::timerEvent(event);
  patience_.stop();
  if (Opening()) ShowOpeningBar();
}

void ProgramEditor::SetName(const QString& name) {
  name_ = name;
  update();
}

QString ProgramEditor::Text() const { return RawText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n')); }

// Qt's plain text would turn every no-break space into an ordinary one.
QString ProgramEditor::RawText() const { return edit_->document()->toRawText(); }

bool ProgramEditor::IsModified() const { return edit_->document()->isModified(); }

void ProgramEditor::SetSaved() { edit_->document()->setModified(false); }

void ProgramEditor::Insert(const QString& text) {
  inserted_ += text;
  InsertWaiting();
}

void ProgramEditor::InsertWaiting() {
  if (Opening() || Changing()) return;
  if (const QString text = std::exchange(inserted_, QString()); !text.isEmpty()) edit_->insertPlainText(text);
}

bool ProgramEditor::Changing() const { return search_->Replacing() || history_->Working(); }

bool ProgramEditor::Working() const { return Opening() || Changing() || search_->Searching(); }

void ProgramEditor::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  edit_->SetFontPixels(pixels);
  if (coming_ != nullptr) coming_->SetFontPixels(pixels);
  for (EditorBar* bar : std::initializer_list<EditorBar*>{findBar_, lineBar_, openingBar_}) bar->SetFontPixels(pixels);
  Place();
}

void ProgramEditor::resizeEvent(QResizeEvent*) { Place(); }

int ProgramEditor::Hidden(int bars) const {
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || bars <= height() || !isAncestorOf(focus)) return 0;
  const auto* bar = qobject_cast<const EditorBar*>(focus->parentWidget());
  return bar == nullptr ? 0 : std::clamp(focus->geometry().bottom() + 1 - height(), 0, focus->y());
}

void ProgramEditor::Place() {
  const int inner = std::max(0, width() - 2);
  const EditorBar* const shown = bar_ == Bar::kFind ? static_cast<EditorBar*>(findBar_) : lineBar_;
  int bars = 0;
  for (EditorBar* bar : std::initializer_list<EditorBar*>{openingBar_, findBar_, lineBar_}) {
    if (bar->isHidden()) continue;
    // Above a touch keyboard there may be little room. The bar that is typed in matters more than the head line.
    bar->FitInto(bar == shown ? height() : QWIDGETSIZE_MAX);
    bars += bar->Height();
  }
  low_ = bars > 0 && fontPixels_ * 2 + bars > height();
  int top = HeadHeight() - (low_ ? Hidden(bars) : 0);
  for (EditorBar* bar : std::initializer_list<EditorBar*>{openingBar_, findBar_, lineBar_}) {
    if (bar->isHidden()) continue;
    bar->setGeometry(1, top, inner, bar->Height());
    top += bar->Height();
  }
  const QRect text(1, top, inner, std::max(0, height() - top - 1));
  edit_->setGeometry(text);
  if (coming_ != nullptr) coming_->setGeometry(text);
}

void ProgramEditor::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::DrawField(painter, rect(), QColor(theme::kSurface), QColor(theme::kBorder), 4);
  if (low_) return;
  const QRect head(10, 0, width() - 20, HeadHeight());
  QString right = Say(Word::kLine, QString::number(Seen()->textCursor().blockNumber() + 1));
  if (Opening()) right = QStringLiteral("%1 %").arg(PercentOpened());
  const QFont small = theme::Font(fontPixels_ * 7 / 8);
  const int rightWidth = QFontMetrics(small).horizontalAdvance(right) + 8;
  const QString coming = Filling() ? comingName_ : opening_;
  const QString name = Opening() ? Say(Word::kOpening, coming) : name_.isEmpty() ? Say(Word::kNewProgram) : name_;
  const QFont strong = theme::Font(fontPixels_, true);
  const int dot = fontPixels_ / 2;
  const QRect place = head.adjusted(0, 0, -rightWidth - dot - 8, 0);
  theme::DrawText(painter, place, Qt::AlignLeft | Qt::AlignVCenter, name, strong, QColor(theme::kText),
                  Qt::ElideMiddle);
  theme::DrawText(painter, head, Qt::AlignRight | Qt::AlignVCenter, right, small, QColor(theme::kMuted));
  if (!IsModified() || Opening()) return;
  // A dot marks unsaved changes.
  const int nameWidth = std::min(QFontMetrics(strong).horizontalAdvance(name), place.width());
  const QRect sign(place.left() + nameWidth + 8, (HeadHeight() - dot) / 2, dot, dot);
  theme::DrawField(painter, sign, QColor(theme::kText), QColor(theme::kText), dot / 2);
}

}  // namespace panel
