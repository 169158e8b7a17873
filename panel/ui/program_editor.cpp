// SPDX-License-Identifier: MIT
#include "ui/program_editor.h"

#include <QPainter>
#include <QRegularExpression>
#include <QScroller>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <algorithm>

#include "ui/theme.h"
#include "ui/words.h"

namespace panel {
namespace {

/// The strip of numbers beside the text.
class Numbers : public QWidget {
 public:
  explicit Numbers(CodeEdit* edit) : QWidget(edit), edit_(edit) {}

 protected:
  void paintEvent(QPaintEvent* event) override { edit_->PaintNumbers(event); }

 private:
  CodeEdit* edit_;
};

/// Comments step back, G and M words step forward.
class BlockColours : public QSyntaxHighlighter {
 public:
  explicit BlockColours(QTextDocument* document) : QSyntaxHighlighter(document) {}

 protected:
  void highlightBlock(const QString& text) override {
    static const QRegularExpression words(QStringLiteral("[GM][0-9]+(?:\\.[0-9]+)?"));
    static const QRegularExpression comments(QStringLiteral("\\([^)]*\\)?"));
    Colour(text, words, theme::kAccent);
    Colour(text, comments, theme::kMuted);
  }

 private:
  void Colour(const QString& text, const QRegularExpression& what, QRgb color) {
    for (auto it = what.globalMatch(text); it.hasNext();) {
      const auto match = it.next();
      setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), QColor(color));
    }
  }
};

}  // namespace

CodeEdit::CodeEdit(QWidget* parent) : QPlainTextEdit(parent), numbers_(new Numbers(this)) {
  setFrameShape(QFrame::NoFrame);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  // Tab leads on through the panel: an operator without a mouse must get out of the editor.
  setTabChangesFocus(true);
  setCursorWidth(2);
  new BlockColours(document());
  QScroller::grabGesture(viewport(), QScroller::TouchGesture);
  connect(this, &QPlainTextEdit::blockCountChanged, this, &CodeEdit::PlaceNumbers);
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, &CodeEdit::LightCurrentLine);
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
    if (dy != 0) {
      numbers_->scroll(0, dy);
    } else {
      numbers_->update(0, rect.y(), numbers_->width(), rect.height());
    }
  });
  PlaceNumbers();
  LightCurrentLine();
}

// A gesture that nobody gives back stays with the program.
CodeEdit::~CodeEdit() { QScroller::ungrabGesture(viewport()); }

void CodeEdit::SetFontPixels(int pixels) {
  setFont(theme::MonoFont(pixels));
  PlaceNumbers();
}

int CodeEdit::NumbersWidth() const {
  const auto digits = std::max<qsizetype>(3, QString::number(std::max(1, blockCount())).size());
  return 14 + fontMetrics().horizontalAdvance(QLatin1Char('9')) * static_cast<int>(digits);
}

void CodeEdit::PlaceNumbers() {
  const int width = NumbersWidth();
  setViewportMargins(width, 0, 0, 0);
  numbers_->setGeometry(contentsRect().left(), contentsRect().top(), width, contentsRect().height());
}

void CodeEdit::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  PlaceNumbers();
}

void CodeEdit::LightCurrentLine() {
  QTextEdit::ExtraSelection line;
  line.format.setBackground(QColor(theme::kRaised));
  line.format.setProperty(QTextFormat::FullWidthSelection, true);
  line.cursor = textCursor();
  line.cursor.clearSelection();
  setExtraSelections({line});
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
      painter.setPen(QColor(block.blockNumber() == current ? theme::kAccent : theme::kFaint));
      // By the height of a line: the last block's rectangle holds the margin of the document too.
      painter.drawText(0, top, numbers_->width() - 7, fontMetrics().height(), Qt::AlignRight | Qt::AlignVCenter,
                       QString::number(block.blockNumber() + 1));
    }
    block = block.next();
    top += height;
  }
}

ProgramEditor::ProgramEditor(QWidget* parent) : QWidget(parent), edit_(new CodeEdit(this)) {
  setFocusProxy(edit_);
  edit_->setAccessibleName(Say(Word::kProgram));
  connect(edit_, &QPlainTextEdit::cursorPositionChanged, this, qOverload<>(&QWidget::update));
  connect(edit_->document(), &QTextDocument::modificationChanged, this, qOverload<>(&QWidget::update));
}

void ProgramEditor::SetProgram(const QString& text, const QString& name) {
  edit_->setPlainText(text);
  edit_->document()->setModified(false);
  SetName(name);
}

void ProgramEditor::SetName(const QString& name) {
  name_ = name;
  update();
}

QString ProgramEditor::Text() const { return edit_->toPlainText(); }

bool ProgramEditor::IsModified() const { return edit_->document()->isModified(); }

void ProgramEditor::SetSaved() { edit_->document()->setModified(false); }

void ProgramEditor::Insert(const QString& text) { edit_->insertPlainText(text); }

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
  const QString line = Say(Word::kLine, QString::number(edit_->textCursor().blockNumber() + 1));
  const QFont small = theme::Font(fontPixels_ * 7 / 8);
  const int lineWidth = QFontMetrics(small).horizontalAdvance(line) + 8;
  // A dot says that there are changes that no file has yet.
  const QString name =
      (name_.isEmpty() ? Say(Word::kNewProgram) : name_) + (IsModified() ? QStringLiteral(" ●") : QString());
  theme::DrawText(painter, head.adjusted(0, 0, -lineWidth, 0), Qt::AlignLeft | Qt::AlignVCenter, name,
                  theme::Font(fontPixels_, true), QColor(theme::kText));
  theme::DrawText(painter, head, Qt::AlignRight | Qt::AlignVCenter, line, small, QColor(theme::kMuted));
}

}  // namespace panel
