// SPDX-License-Identifier: MIT
#include "ui/file_chooser.h"

#include <QDir>
#include <QKeyEvent>
#include <QPainter>
#include <QScroller>
#include <algorithm>
#include <utility>

#include "ui/panel_key.h"
#include "ui/question.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kPad = 10;
constexpr int kFolderRole = Qt::UserRole;

/// Draws a folder or a sheet in the panel's own colours.
QIcon IconOf(bool folder) {
  constexpr int kSide = 32;
  QPixmap pixmap(kSide, kSide);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(folder ? theme::kAmber : theme::kMuted));
  if (folder) {
    painter.drawRoundedRect(QRectF(2, 6, 14, 8), 2, 2);
    painter.drawRoundedRect(QRectF(2, 9, 28, 18), 3, 3);
  } else {
    painter.drawPolygon(QPolygonF({{7, 3}, {20, 3}, {26, 9}, {26, 29}, {7, 29}}));
  }
  return pixmap;
}

QListWidget* MakeList(QWidget* parent) {
  auto* list = new QListWidget(parent);
  list->setFrameShape(QFrame::NoFrame);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list->setTextElideMode(Qt::ElideMiddle);
  list->setUniformItemSizes(true);
  QScroller::grabGesture(list->viewport(), QScroller::TouchGesture);
  return list;
}

}  // namespace

FileChooser::FileChooser(PathResolver resolve, QWidget* parent)
    : QWidget(parent),
      resolve_(std::move(resolve)),
      list_(MakeList(this)),
      name_(new QLineEdit(this)),
      up_(new PanelKey(this)),
      ok_(new PanelKey(this)),
      cancel_(new PanelKey(this)),
      confirm_(new Question(this)) {
  name_->setAccessibleName(Say(Word::kFileName));
  name_->setMaxLength(255);
  up_->SetArrow(Qt::UpArrow);
  up_->setText(Say(Word::kFolderUp));
  ok_->setText(Say(Word::kOk));
  ok_->SetTint(QColor(theme::kGreen));
  ok_->SetFilled(true);
  cancel_->setText(Say(Word::kCancel));
  connect(up_, &PanelKey::clicked, this, &FileChooser::GoUp);
  connect(ok_, &PanelKey::clicked, this, &FileChooser::Accept);
  connect(cancel_, &PanelKey::clicked, this, &FileChooser::Leave);
  connect(name_, &QLineEdit::returnPressed, this, &FileChooser::Accept);
  connect(name_, &QLineEdit::textEdited, this, [this] { SetProblem({}); });
  // One touch names a file or enters a folder: a double touch is hard with gloves.
  connect(list_, &QListWidget::itemClicked, this, &FileChooser::Choose);
  hide();
}

// A gesture that isn't released stays until the program ends.
FileChooser::~FileChooser() { QScroller::ungrabGesture(list_->viewport()); }

void FileChooser::Ask(const FileRequest& request, Accepted accepted, std::function<void()> left) {
  if (open_) Leave();
  request_ = request;
  accepted_ = std::move(accepted);
  left_ = std::move(left);
  open_ = true;
  if (request_.title.isEmpty()) {
    request_.title = Say((request.flags & XPLR_FOLDERMODE) != 0 ? Word::kChooseFolder : Word::kChooseFile);
  }
  setAccessibleName(request_.title);
  name_->setText(request_.file);
  SetProblem({});
  Enter(NearestFolder(resolve_, request_.folder));
  show();
  raise();
  name_->setFocus();
  name_->selectAll();
}

void FileChooser::Dismiss() {
  if (!open_) return;
  open_ = false;
  // The question about this request ends too; its answer has no effect any more.
  if (confirm_->IsOpen()) confirm_->Answer(1);
  accepted_ = nullptr;
  left_ = nullptr;
  hide();
  emit Finished();
}

void FileChooser::Leave() {
  if (!open_) return;
  const auto left = std::exchange(left_, nullptr);
  Dismiss();
  if (left) left();
}

void FileChooser::Enter(const QString& folder) {
  folder_ = folder;
  Fill();
  update();
}

void FileChooser::GoUp() {
  if (!ListOnly()) Enter(FolderAbove(folder_));
}

void FileChooser::Fill() {
  list_->clear();
  const bool folders = (request_.flags & XPLR_FOLDERMODE) != 0;
  const auto entries = ListFolder(resolve_, folder_, folders ? QStringLiteral("*.*") : request_.filter);
  if (!entries) SetProblem(Say(Word::kFolderMissing));
  const QIcon folderIcon = IconOf(true);
  const QIcon fileIcon = IconOf(false);
  const int row = std::max(theme::TouchPixels(*this), fontPixels_ * 5 / 2);
  for (const FolderEntry& entry : entries.value_or(QList<FolderEntry>())) {
    auto* item = new QListWidgetItem(entry.folder ? folderIcon : fileIcon, entry.name, list_);
    item->setData(kFolderRole, entry.folder);
    item->setSizeHint(QSize(0, row));
    const bool closed = entry.folder ? ListOnly() : folders;
    if (closed) item->setFlags(Qt::NoItemFlags);
  }
  up_->setEnabled(!ListOnly() && FolderAbove(folder_) != folder_);
}

void FileChooser::Choose(QListWidgetItem* item) {
  if (item == nullptr || (item->flags() & Qt::ItemIsEnabled) == 0) return;
  SetProblem({});
  if (item->data(kFolderRole).toBool()) return Enter(JoinPath(folder_, item->text()));
  name_->setText(item->text());
}

void FileChooser::SetProblem(const QString& problem) {
  problem_ = problem;
  update();
}

void FileChooser::Accept() {
  if (!open_ || confirm_->IsOpen()) return;
  const NameAnswer answer = CheckName(request_, resolve_, folder_, name_->text());
  if (answer.problem) return SetProblem(Say(*answer.problem));
  if (!answer.mustConfirm) return Take(answer);
  confirm_->setGeometry(rect());
  confirm_->Ask(Say(Word::kOverwrite, answer.file), {Say(Word::kYes), Say(Word::kNo)}, [this, answer](int index) {
    if (index == 0) {
      Take(answer);
    } else {
      name_->setFocus();
    }
  });
}

void FileChooser::Take(const NameAnswer& answer) {
  if (!open_) return;
  if (answer.mustMake && !QDir().mkpath(resolve_(answer.folder))) return SetProblem(Say(Word::kFolderMissing));
  const auto accepted = std::exchange(accepted_, nullptr);
  Dismiss();
  if (accepted) accepted(answer.folder, answer.file);
}

void FileChooser::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  list_->setFont(theme::Font(pixels));
  list_->setIconSize(QSize(pixels * 3 / 2, pixels * 3 / 2));
  name_->setFont(theme::MonoFont(pixels * 9 / 8));
  for (PanelKey* key : Keys()) key->SetFontPixels(pixels);
  confirm_->SetFontPixels(pixels);
  Place();
}

void FileChooser::Place() {
  const int head = fontPixels_ * 5 / 2;
  const int row = std::max(theme::TouchPixels(*this), fontPixels_ * 3);
  const int right = std::max(width() * 2 / 5, 2 * row);
  const int body = height() - head - kPad;
  list_->setGeometry(kPad, head, width() - right - 3 * kPad, body);
  const int left = width() - right - kPad;
  int top = head + fontPixels_ * 3 / 2;
  name_->setGeometry(left, top, right, row);
  // The keys are at the bottom, OK in the corner nearest to the thumb.
  const int half = (right - kPad) / 2;
  top = height() - kPad - row;
  cancel_->setGeometry(left, top, half, row);
  ok_->setGeometry(left + half + kPad, top, right - half - kPad, row);
  up_->setGeometry(left, top - kPad - row, right, row);
  confirm_->setGeometry(rect());
}

void FileChooser::resizeEvent(QResizeEvent*) { Place(); }

void FileChooser::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  theme::DrawField(painter, rect(), QColor(theme::kBackground), QColor(theme::kAccent), 8);
  const QRect head(kPad + 2, 0, width() - 2 * kPad - 4, list_->y());
  theme::DrawText(painter, head.adjusted(0, 0, -head.width() / 2, 0), Qt::AlignLeft | Qt::AlignVCenter, request_.title,
                  theme::Font(fontPixels_ * 9 / 8, true), QColor(theme::kText));
  theme::DrawText(painter, head.adjusted(head.width() / 2, 0, 0, 0), Qt::AlignRight | Qt::AlignVCenter, folder_,
                  theme::MonoFont(fontPixels_), QColor(theme::kAccent), Qt::ElideMiddle);
  const QRect name = name_->geometry();
  theme::DrawText(painter, QRect(name.left(), head.bottom(), name.width(), name.top() - head.bottom() - 2),
                  Qt::AlignLeft | Qt::AlignBottom, Say(Word::kFileName), theme::Font(fontPixels_ * 7 / 8),
                  QColor(theme::kMuted));
  theme::DrawParagraph(painter, QRect(name.left(), name.bottom() + 4, name.width(), up_->y() - name.bottom() - 8),
                       Qt::AlignLeft | Qt::AlignTop, problem_, theme::Font(fontPixels_), QColor(theme::kAmber));
  if (list_->count() == 0) {
    list_->setAccessibleName(Say(Word::kEmptyFolder));
    theme::DrawText(painter, list_->geometry(), Qt::AlignCenter, Say(Word::kEmptyFolder), theme::Font(fontPixels_),
                    QColor(theme::kMuted));
  }
}

void FileChooser::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return Leave();
    case Qt::Key_Backspace:
      return GoUp();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (list_->hasFocus() && list_->currentItem() != nullptr) {
        const bool folder = list_->currentItem()->data(kFolderRole).toBool();
        Choose(list_->currentItem());
        if (!folder) Accept();
      }
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
      // From the name, the arrow keys lead into the list.
      list_->setFocus();
      if (list_->currentRow() < 0) list_->setCurrentRow(0);
      return;
    default:
      event->accept();
  }
}

bool FileChooser::focusNextPrevChild(bool next) { return FocusAmong({name_, list_, up_, cancel_, ok_}, next); }

}  // namespace panel
