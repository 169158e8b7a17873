// SPDX-License-Identifier: MIT
#include "ui/code_edit.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QScroller>
#include <QTextBlock>
#include <algorithm>

#include "ui/theme.h"

namespace panel {
namespace {

/// The strip of line numbers beside the text.
class Numbers : public QWidget {
 public:
  explicit Numbers(CodeEdit* edit) : QWidget(edit), edit_(edit) {}

 protected:
  void paintEvent(QPaintEvent* event) override { edit_->PaintNumbers(event); }

 private:
  CodeEdit* edit_;
};

void Colour(const QTextBlock& block, const QString& text, const QRegularExpression& what, QRgb color,
            QList<QTextEdit::ExtraSelection>& into) {
  for (auto it = what.globalMatch(text); it.hasNext();) {
    const auto match = it.next();
    QTextEdit::ExtraSelection word;
    word.format.setForeground(QColor(color));
    word.cursor = QTextCursor(block);
    word.cursor.setPosition(block.position() + static_cast<int>(match.capturedStart()));
    word.cursor.setPosition(block.position() + static_cast<int>(match.capturedEnd()), QTextCursor::KeepAnchor);
    into << word;
  }
}

/// Gives G and M words the accent colour and comments a muted one. Words in a comment are muted too.
void ColourBlock(const QTextBlock& block, QList<QTextEdit::ExtraSelection>& into) {
  static const QRegularExpression words(QStringLiteral("[GM][0-9]+(?:\\.[0-9]+)?"));
  static const QRegularExpression comments(QStringLiteral("\\([^)]*\\)?"));
  // No screen shows more of a line.
  constexpr qsizetype kMost = 2000;
  const QString text = block.text().left(kMost);
  Colour(block, text, words, theme::kAccent, into);
  Colour(block, text, comments, theme::kMuted, into);
}

}  // namespace

CodeEdit::CodeEdit(QWidget* parent) : QPlainTextEdit(parent), numbers_(new Numbers(this)) {
  setFrameShape(QFrame::NoFrame);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  // Tab moves to the next control: an operator without a mouse must get out of the editor.
  setTabChangesFocus(true);
  setCursorWidth(2);
  QScroller::grabGesture(viewport(), QScroller::TouchGesture);
  connect(this, &QPlainTextEdit::blockCountChanged, this, &CodeEdit::PlaceNumbers);
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, &CodeEdit::ColourVisibleLines);
  connect(this, &QPlainTextEdit::textChanged, this, &CodeEdit::ColourVisibleLines);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &CodeEdit::ColourVisibleLines);
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
    if (dy != 0) {
      numbers_->scroll(0, dy);
    } else {
      numbers_->update(0, rect.y(), numbers_->width(), rect.height());
    }
  });
  PlaceNumbers();
  ColourVisibleLines();
}

// A gesture that isn't released stays until the program ends.
CodeEdit::~CodeEdit() { QScroller::ungrabGesture(viewport()); }

void CodeEdit::SetFontPixels(int pixels) {
  setFont(theme::MonoFont(pixels));
  PlaceNumbers();
}

void CodeEdit::keyPressEvent(QKeyEvent* event) {
  // A key of two meanings on different systems: both keys for Redo count everywhere.
  const bool redo = event->matches(QKeySequence::Redo) ||
                    (event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_Y) ||
                    (event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier) && event->key() == Qt::Key_Z);
  if (redo) return emit RedoWanted();
  if (event->matches(QKeySequence::Undo)) return emit UndoWanted();
  QPlainTextEdit::keyPressEvent(event);
}

void CodeEdit::Mark(int position, int length) {
  QTextCursor mark(document());
  mark.setPosition(position);
  const QTextBlock block = mark.block();
  const int seen = viewport()->height() / std::max(1, fontMetrics().height()) - 1;
  const int first = firstVisibleBlock().blockNumber();
  const bool inSight = block.blockNumber() >= first && block.blockNumber() < first + seen;
  mark.setPosition(position + length, QTextCursor::KeepAnchor);
  setTextCursor(mark);
  if (!inSight) centerCursor();
}

int CodeEdit::NumbersWidth() const {
  const auto digits = std::max<qsizetype>(3, QString::number(std::max(1, blockCount())).size());
  return 14 + fontMetrics().horizontalAdvance(QLatin1Char('9')) * static_cast<int>(digits);
}

void CodeEdit::Refresh() {
  PlaceNumbers();
  ColourVisibleLines();
}

void CodeEdit::PlaceNumbers() {
  const int width = NumbersWidth();
  setViewportMargins(width, 0, 0, 0);
  numbers_->setGeometry(contentsRect().left(), contentsRect().top(), width, contentsRect().height());
}

void CodeEdit::resizeEvent(QResizeEvent* event) {
  // Without wrapping, no line depends on the width, but the base class would lay every line of the program out again.
  // Only the scroll bars need an update, and they follow the size of the document.
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  QAbstractScrollArea::resizeEvent(event);
  emit document()->documentLayout()->documentSizeChanged(document()->documentLayout()->documentSize());
  ChooseBars();
  PlaceNumbers();
  ColourVisibleLines();
}

void CodeEdit::ChooseBars() {
  // Below the text of a low editor, a bar for a finger would leave no room for a line. The operator can still move
  // along a long line with the caret, or pull it.
  constexpr int kLeastRows = 5;
  const bool low = height() < kLeastRows * theme::TouchPixels(*this);
  const Qt::ScrollBarPolicy wanted = low ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
  if (horizontalScrollBarPolicy() != wanted) setHorizontalScrollBarPolicy(wanted);
}

void CodeEdit::ColourVisibleLines() {
  QTextEdit::ExtraSelection line;
  line.format.setBackground(QColor(theme::kRaised));
  line.format.setProperty(QTextFormat::FullWidthSelection, true);
  line.cursor = textCursor();
  line.cursor.clearSelection();
  QList<QTextEdit::ExtraSelection> marks{line};
  QTextBlock block = firstVisibleBlock();
  for (int seen = viewport()->height() / std::max(1, fontMetrics().height()) + 2; seen > 0 && block.isValid(); --seen) {
    ColourBlock(block, marks);
    block = block.next();
  }
  setExtraSelections(marks);
  numbers_->update();
}

void CodeEdit::PaintNumbers(QPaintEvent* event) {
  QPainter painter(numbers_);
  painter.fillRect(event->rect(), QColor(theme::kBackground));
  painter.setFont(font());
  const int current = textCursor().blockNumber();
  QTextBlock block = firstVisibleBlock();
  int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
  while (block.isValid() && top <= event->rect().bottom()) {
    const int height = qRound(blockBoundingRect(block).height());
    if (block.isVisible() && top + height >= event->rect().top()) {
      painter.setPen(QColor(block.blockNumber() == current ? theme::kAccent : theme::kMuted));
      // The height is that of a line, because the rectangle of the last block contains the document's margin too.
      painter.drawText(0, top, numbers_->width() - 7, fontMetrics().height(), Qt::AlignRight | Qt::AlignVCenter,
                       QString::number(block.blockNumber() + 1));
    }
    block = block.next();
    top += height;
  }
}

}  // namespace panel
