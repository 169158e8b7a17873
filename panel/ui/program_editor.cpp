// SPDX-License-Identifier: MIT
#include "ui/program_editor.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "common/words.h"
#include "ui/theme.h"

namespace panel {
namespace {

/// How long the panel works on a program before it looks at its events again.
constexpr int kSliceMilliseconds = 10;
/// The size of one step, in characters. A step takes far less time than a slice. Removing text is quicker than laying
/// it out, so its step is bigger.
constexpr qsizetype kStep = qsizetype{16} * 1024;
constexpr int kStepAway = 128 * 1024;

}  // namespace

ProgramEditor::ProgramEditor(QWidget* parent) : QWidget(parent), edit_(new CodeEdit(this)) {
  setFocusProxy(edit_);
  edit_->setAccessibleName(Say(Word::kProgram));
  connect(edit_, &QPlainTextEdit::cursorPositionChanged, this, qOverload<>(&QWidget::update));
  connect(edit_->document(), &QTextDocument::modificationChanged, this, qOverload<>(&QWidget::update));
}

void ProgramEditor::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) edit_->setAccessibleName(Say(Word::kProgram));
  QWidget::changeEvent(event);
}

void ProgramEditor::Begin(const QString& text, const QString& name, std::function<void()> shown) {
  coming_ = text;
  taken_ = 0;
  inserted_.clear();
  shown_ = std::move(shown);
  SetName(name);
  edit_->setReadOnly(true);
  // With the caret at the end the view would follow the text as it shrinks.
  edit_->moveCursor(QTextCursor::Start);
  // The old program can't come back, so neither its removal nor the new text can be undone.
  edit_->document()->setUndoRedoEnabled(false);
  slice_.start(0, this);
}

void ProgramEditor::Fill(const QString& text, const QString& name, std::function<void()> shown) {
  Begin(text, name, std::move(shown));
  QTimerEvent first(slice_.timerId());
  timerEvent(&first);
}

void ProgramEditor::SetProgram(const QString& text, const QString& name) {
  Begin(text, name, {});
  Work(QDeadlineTimer(QDeadlineTimer::Forever));
  End();
}

bool ProgramEditor::Work(QDeadlineTimer end) {
  // Line numbers and colours are updated once a slice, not at every step.
  const QSignalBlocker quiet(edit_);
  bool more = true;
  while (more && !end.hasExpired()) more = Step();
  edit_->Refresh();
  return more;
}

bool ProgramEditor::Step() {
  QTextDocument* document = edit_->document();
  QTextCursor end(document);
  end.movePosition(QTextCursor::End);
  if (taken_ == 0 && !document->isEmpty()) {
    end.setPosition(std::max(0, end.position() - kStepAway), QTextCursor::KeepAnchor);
    end.removeSelectedText();
    return true;
  }
  if (taken_ >= coming_.size()) return false;
  end.insertText(coming_.mid(taken_, kStep));
  // The first step would push the caret away from the beginning.
  if (taken_ == 0) edit_->moveCursor(QTextCursor::Start);
  taken_ += kStep;
  return taken_ < coming_.size();
}

void ProgramEditor::End() {
  slice_.stop();
  coming_.clear();
  edit_->document()->setUndoRedoEnabled(true);
  edit_->document()->setModified(false);
  edit_->setReadOnly(!busy_.isEmpty());
  update();
  if (const auto shown = std::exchange(shown_, nullptr)) shown();
  if (const QString inserted = std::exchange(inserted_, QString()); !inserted.isEmpty()) Insert(inserted);
}

void ProgramEditor::timerEvent(QTimerEvent* event) {
  if (event->timerId() != slice_.timerId()) return QWidget::timerEvent(event);
  if (Work(QDeadlineTimer(kSliceMilliseconds))) return update();
  End();
}

void ProgramEditor::SetBusy(const QString& busy) {
  busy_ = busy;
  edit_->setReadOnly(!busy_.isEmpty() || Filling());
  update();
}

void ProgramEditor::SetName(const QString& name) {
  name_ = name;
  update();
}

QString ProgramEditor::Text() const { return RawText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n')); }

// Qt's plain text would turn every no-break space into an ordinary one.
QString ProgramEditor::RawText() const { return edit_->document()->toRawText(); }

int ProgramEditor::Revision() const { return edit_->document()->revision(); }

bool ProgramEditor::IsModified() const { return edit_->document()->isModified(); }

void ProgramEditor::SetSaved() { edit_->document()->setModified(false); }

void ProgramEditor::Insert(const QString& text) {
  if (Filling()) {
    inserted_ += text;
  } else {
    edit_->insertPlainText(text);
  }
}

void ProgramEditor::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  edit_->SetFontPixels(pixels);
  resizeEvent(nullptr);
}

void ProgramEditor::resizeEvent(QResizeEvent*) {
  edit_->setGeometry(1, HeadHeight(), std::max(0, width() - 2), std::max(0, height() - HeadHeight() - 1));
}

void ProgramEditor::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::DrawField(painter, rect(), QColor(theme::kSurface), QColor(theme::kBorder), 4);
  const QRect head(10, 0, width() - 20, HeadHeight());
  QString right = Say(Word::kLine, QString::number(edit_->textCursor().blockNumber() + 1));
  if (Filling()) right = QStringLiteral("%1 %").arg(coming_.isEmpty() ? 0 : taken_ * 100 / coming_.size());
  const QFont small = theme::Font(fontPixels_ * 7 / 8);
  const int rightWidth = QFontMetrics(small).horizontalAdvance(right) + 8;
  const QString name = !busy_.isEmpty() ? busy_ : name_.isEmpty() ? Say(Word::kNewProgram) : name_;
  const QFont strong = theme::Font(fontPixels_, true);
  const int dot = fontPixels_ / 2;
  const QRect place = head.adjusted(0, 0, -rightWidth - dot - 8, 0);
  theme::DrawText(painter, place, Qt::AlignLeft | Qt::AlignVCenter, name, strong, QColor(theme::kText),
                  Qt::ElideMiddle);
  theme::DrawText(painter, head, Qt::AlignRight | Qt::AlignVCenter, right, small, QColor(theme::kMuted));
  if (!IsModified() || Filling()) return;
  // A dot marks unsaved changes.
  const int nameWidth = std::min(QFontMetrics(strong).horizontalAdvance(name), place.width());
  const QRect sign(place.left() + nameWidth + 8, (HeadHeight() - dot) / 2, dot, dot);
  theme::DrawField(painter, sign, QColor(theme::kText), QColor(theme::kText), dot / 2);
}

}  // namespace panel
