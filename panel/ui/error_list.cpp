// SPDX-License-Identifier: MIT
#include "ui/error_list.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScroller>
#include <algorithm>

#include "common/words.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kPad = 10;
constexpr int kLeast = 12;  // pixels; smaller letters can't be read from some distance

QListView* MakeList(ErrorListModel* model, ErrorRowDelegate* delegate, QWidget* parent) {
  auto* list = new QListView(parent);
  list->setModel(model);
  list->setItemDelegate(delegate);
  list->setFrameShape(QFrame::NoFrame);
  list->setUniformItemSizes(true);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  QScroller::grabGesture(list->viewport(), QScroller::TouchGesture);
  return list;
}

}  // namespace

void ErrorRowDelegate::SetSizes(int fontPixels, int rowHeight) {
  fontPixels_ = fontPixels;
  rowHeight_ = rowHeight;
}

QSize ErrorRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const {
  return {100, rowHeight_};
}

void ErrorRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QRect row = option.rect.adjusted(0, 1, 0, -1);
  const bool chosen = (option.state & QStyle::State_Selected) != 0;
  const QColor fill(chosen ? theme::kPressed : theme::kRaised);
  painter->save();
  theme::DrawField(*painter, row, fill, fill, 4);
  const auto color = index.data(ErrorListModel::kColorRole).value<QColor>();
  const QFont strong = theme::Font(fontPixels_, true);
  const QString name = index.data(ErrorListModel::kNameRole).toString();
  const QRect body = row.adjusted(kPad, 2, -kPad, -2);
  const int middle = body.top() + body.height() * 11 / 20;
  const QRect upper(body.left(), body.top(), body.width(), middle - body.top());
  const QString time = index.data(ErrorListModel::kTimeRole).toString();
  const int timeWidth = QFontMetrics(theme::Font(fontPixels_)).horizontalAdvance(time) + kPad;
  theme::DrawText(*painter, upper, Qt::AlignLeft | Qt::AlignVCenter, time, theme::Font(fontPixels_),
                  QColor(theme::kText));
  // The kind is in words on a field in its colour, so that the colour isn't needed to read it.
  const int nameWidth = QFontMetrics(strong).horizontalAdvance(name) + 2 * kPad;
  const QRect field(upper.left() + timeWidth, upper.top() + 1, nameWidth, upper.height() - 2);
  theme::DrawField(*painter, field, color, color, 4);
  theme::DrawText(*painter, field, Qt::AlignCenter, name, strong, theme::InkOn(color));
  // On a small panel a long text gets smaller letters before it is cut.
  const int least = std::min(kLeast, fontPixels_ * 9 / 10);
  const QRect right = upper.adjusted(timeWidth + nameWidth + kPad, 0, 0, 0);
  const QString text = index.data().toString();
  theme::DrawText(*painter, right, Qt::AlignLeft | Qt::AlignVCenter, text,
                  theme::FittingFont(text, right.width(), fontPixels_, least, true), QColor(theme::kText));
  const QString details = index.data(ErrorListModel::kDetailsRole).toString();
  theme::DrawText(*painter, QRect(body.left(), middle, body.width(), body.bottom() + 1 - middle),
                  Qt::AlignLeft | Qt::AlignVCenter, details,
                  theme::FittingFont(details, body.width(), fontPixels_ * 9 / 10, least),
                  QColor(chosen ? theme::kText : theme::kMuted));
  painter->restore();
}

ErrorListCover::ErrorListCover(const ErrorDesk& desk, QWidget* parent)
    : Cover(parent, Arrows::kNone),
      desk_(desk),
      model_(new ErrorListModel(this)),
      delegate_(new ErrorRowDelegate(this)),
      list_(MakeList(model_, delegate_, this)),
      details_(new QPlainTextEdit(this)),
      line_(new PanelKey(this)),
      help_(new PanelKey(this)),
      back_(new PanelKey(this)) {
  list_->installEventFilter(this);
  details_->setReadOnly(true);
  details_->setFrameShape(QFrame::NoFrame);
  details_->setFocusPolicy(Qt::NoFocus);
  QScroller::grabGesture(details_->viewport(), QScroller::TouchGesture);
  connect(line_, &PanelKey::clicked, this, &ErrorListCover::OnLine);
  connect(help_, &PanelKey::clicked, this, &ErrorListCover::OnHelp);
  back_->SetKeyName(QStringLiteral("Esc"));
  connect(back_, &PanelKey::clicked, this, &ErrorListCover::Leave);
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ErrorListCover::ShowDetails);
  ShowWords();
  hide();
}

void ErrorListCover::ShowWords() {
  setAccessibleName(Say(Word::kErrorListTitle));
  list_->setAccessibleName(Say(Word::kErrorListTitle));
  for (const auto& [key, word] :
       {std::pair(line_, Word::kGoToLine), std::pair(help_, Word::kHelp), std::pair(back_, Word::kBack)}) {
    key->setText(Say(word));
    key->setAccessibleName(key->text());
  }
  if (open_) Read();
}

void ErrorListCover::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

// A gesture that isn't released stays until the program ends.
ErrorListCover::~ErrorListCover() {
  QScroller::ungrabGesture(list_->viewport());
  QScroller::ungrabGesture(details_->viewport());
}

void ErrorListCover::Open() {
  open_ = true;
  revision_.reset();
  Update();
  list_->setCurrentIndex(model_->index(0));
  list_->scrollToTop();
  show();
  raise();
  list_->setFocus();
}

void ErrorListCover::Leave() {
  open_ = false;
  floodEnd_.stop();
  hide();
}

void ErrorListCover::Update() {
  if (!open_ || revision_ == desk_.History().Revision()) return;
  revision_ = desk_.History().Revision();
  Read();
}

void ErrorListCover::Read() {
  const std::int64_t chosen = model_->IdAt(list_->currentIndex().row());
  model_->Take(desk_.History(), desk_.Now());
  // The chosen row stays chosen, wherever it is now.
  if (const int row = model_->RowOf(chosen); row >= 0) list_->setCurrentIndex(model_->index(row));
  ReadNotes();
  ShowDetails();
}

void ErrorListCover::ReadNotes() {
  notes_ = NotesOf(desk_.History());
  floodEnd_.stop();
  if (const auto end = desk_.History().FloodEnd()) {
    const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(*end - desk_.Now());
    floodEnd_.start(static_cast<int>(std::max<std::int64_t>(wait.count(), 0)) + 1, this);
  }
  Place();
  update();
}

void ErrorListCover::timerEvent(QTimerEvent* event) {
  if (event->timerId() != floodEnd_.timerId()) return QWidget::timerEvent(event);
  ReadNotes();
}

void ErrorListCover::ShowDetails() {
  const QModelIndex index = list_->currentIndex();
  QStringList lines;
  if (model_->rowCount() == 0) lines << Say(Word::kErrorListEmpty);
  if (index.isValid()) {
    lines << index.data(ErrorListModel::kNameRole).toString() + QStringLiteral(": ") + index.data().toString()
          << index.data(ErrorListModel::kDetailsRole).toString();
  }
  const ErrorHistory::Summary* error = Chosen();
  const QString description = error == nullptr ? QString() : desk_.DescriptionOf(*error).trimmed();
  if (!description.isEmpty()) lines << description;
  line_->setEnabled(error != nullptr && error->program.has_value());
  help_->setEnabled(!description.isEmpty());
  const QString text = lines.join(QLatin1Char('\n'));
  // The same text again would lose the place to which the operator has scrolled.
  if (text != details_->toPlainText()) details_->setPlainText(text);
}

const ErrorHistory::Summary* ErrorListCover::Chosen() const { return model_->ErrorAt(list_->currentIndex().row()); }

// A copy each, because whoever hears it may close the list and read the history anew.
void ErrorListCover::OnLine() {
  const ErrorHistory::Summary* error = Chosen();
  if (error == nullptr || !error->program) return;
  const pnl::rig::ProgramSpot spot = *error->program;
  Leave();
  emit LineWanted(spot);
}

void ErrorListCover::OnHelp() {
  const ErrorHistory::Summary* chosen = Chosen();
  if (chosen == nullptr) return;
  const ErrorHistory::Summary error = *chosen;
  Leave();
  emit HelpWanted(error);
}

void ErrorListCover::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  delegate_->SetSizes(pixels, std::max(theme::TouchPixels(*this), pixels * 7 / 2));
  details_->setFont(theme::Font(pixels));
  for (PanelKey* panelKey : {line_, help_, back_}) panelKey->SetFontPixels(pixels);
  list_->doItemsLayout();
  Place();
}

void ErrorListCover::Place() {
  const int row = std::max(theme::TouchPixels(*this), fontPixels_ * 3);
  const int line = fontPixels_ * 2;
  const int top = line + line * static_cast<int>(notes_.size()) + kPad / 2;
  const int gap = kPad / 2;
  const int keys = 2 * row + gap;
  // A high panel has room for more lines of the description.
  const int bottom = std::max(keys, height() / 4);
  const int key = std::max(fontPixels_ * 8, 2 * row);
  const int low = height() - kPad - bottom;
  const int keysLeft = width() - kPad - 2 * key - gap;
  list_->setGeometry(kPad, top, width() - 2 * kPad, std::max(0, low - gap - top));
  const int keysTop = height() - kPad - keys;
  line_->setGeometry(keysLeft, keysTop, key, row);
  help_->setGeometry(keysLeft + key + gap, keysTop, key, row);
  back_->setGeometry(keysLeft, keysTop + row + gap, 2 * key + gap, row);
  details_->setGeometry(kPad, low, std::max(0, keysLeft - 2 * kPad), bottom);
}

void ErrorListCover::resizeEvent(QResizeEvent*) { Place(); }

void ErrorListCover::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  theme::DrawField(painter, rect(), QColor(theme::kBackground), QColor(theme::kAccent), 8);
  const int line = fontPixels_ * 2;
  QRect at(kPad + 2, 0, width() - 2 * kPad - 4, line);
  theme::DrawText(painter, at, Qt::AlignLeft | Qt::AlignVCenter, Say(Word::kErrorListTitle),
                  theme::Font(fontPixels_ * 9 / 8, true), QColor(theme::kText));
  for (const QString& note : notes_) {
    at.translate(0, line);
    const QRect field = at.adjusted(-2, 1, 2, -1);
    theme::DrawField(painter, field, QColor(theme::kAmber), QColor(theme::kAmber), 4);
    theme::DrawText(painter, at.adjusted(kPad, 0, -kPad, 0), Qt::AlignLeft | Qt::AlignVCenter, note,
                    theme::Font(fontPixels_, true), QColor(theme::kDark));
  }
}

bool ErrorListCover::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool ends = key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (ends) {
      Leave();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

std::vector<QWidget*> ErrorListCover::TabOrder() const { return {list_, line_, help_, back_}; }

}  // namespace panel
