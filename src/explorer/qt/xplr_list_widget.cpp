// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_list_widget.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyle>
#include <array>
#include <utility>

#include "controls/draw_text.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr Color kBack = 10595253;
constexpr Color kText = 0;
constexpr Color kSelectedText = 0xffffff;
constexpr Color kSelectedBack = 660510;
// A selected row of a list without the focus, and one that can't be chosen.
constexpr Color kPaleText = 0xC0C0C0;
constexpr Color kPaleBack = 0x808080;
constexpr Color kRefusedBack = 160;
// The letters that were typed.
constexpr Color kMarkBack = 0x60D8FF;
constexpr int kFontWeight = 500;
constexpr int kFileIcon = 1;
constexpr int kFolderIcon = 2;
constexpr std::array kTwentieths = {10, 4, 6};
constexpr std::uint32_t kCellFormat = draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kEndEllipsis;
constexpr int kSizeColumn = 1;
constexpr int kDateColumn = 2;

}  // namespace

void XplrRowsModel::SetRows(Rows rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

void XplrRowsModel::SetTitles(const QStringList& titles) {
  titles_ = titles;
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

const XplrRow* XplrRowsModel::Row(int row) const {
  return row >= 0 && row < rowCount() ? &(*rows_)[static_cast<std::size_t>(row)] : nullptr;
}

QString XplrRowsModel::CellText(int row, int column) const {
  const XplrRow* content = Row(row);
  if (content == nullptr) return {};
  switch (column) {
    case 0:
      return ToQString(content->name);
    case kSizeColumn:
      return ToQString(SizeText(*content));
    default:
      return ToQString(DateText(*content));
  }
}

int XplrRowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_->size());
}

int XplrRowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

QVariant XplrRowsModel::data(const QModelIndex& index, int role) const {
  return role == Qt::DisplayRole ? QVariant(CellText(index.row(), index.column())) : QVariant();
}

QVariant XplrRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= titles_.size()) return {};
  if (role == Qt::TextAlignmentRole) {
    const auto side = section == kSizeColumn ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant::fromValue(Qt::Alignment(side | Qt::AlignVCenter));
  }
  return role == Qt::DisplayRole ? QVariant(titles_[section]) : QVariant();
}

ZCXPLRList::ZCXPLRList(int id, QWidget* parent)
    : MessageControl(id, parent), preview_(new XplrPreviewPane(this)), coming_(new XplrComingSign(this)) {
  setModel(&model_);
  setSelectionMode(QAbstractItemView::SingleSelection);
  header()->setSectionsClickable(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::Fixed);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  connect(header(), &QHeaderView::sectionClicked, this, &ZCXPLRList::HeaderClicked);
}

void ZCXPLRList::SetLook(int fontHeight, ImageList icons) {
  Setup(kBack, kText, kSelectedBack, kSelectedText, QStringLiteral("Arial"), fontHeight, kFontWeight);
  SetSmallImages(std::move(icons));
  preview_->SetLook(fontHeight);
  PlaceAll();
}

void ZCXPLRList::MarkTyped(std::size_t letters) {
  typed_ = letters;
  viewport()->update();
}

void ZCXPLRList::ShowMoreComing(bool coming) { coming_->setVisible(coming); }

void ZCXPLRList::ShowPreview(const XplrPreviewFace& preview) {
  preview_->Show(preview);
  PlaceAll();
}

void ZCXPLRList::SetRows(XplrRowsModel::Rows rows) { model_.SetRows(std::move(rows)); }

void ZCXPLRList::SelectRow(int row) {
  const bool before = std::exchange(silent_, true);
  if (row < 0) {
    clearSelection();
  } else {
    setCurrentIndex(model_.index(row, 0));
  }
  silent_ = before;
}

void ZCXPLRList::ScrollToRow(int row) { scrollTo(model_.index(row, 0)); }

void ZCXPLRList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  const QPointer<ZCXPLRList> alive = this;
  ZWCListCtrl::selectionChanged(selected, deselected);
  if (!alive || silent_ || selected.isEmpty()) return;
  emit RowSelected(selected.first().top());
}

void ZCXPLRList::keyPressEvent(QKeyEvent* event) {
  constexpr Qt::KeyboardModifiers kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const QString text = event->text();
  if (event->key() == Qt::Key_Backspace) {
    emit BackspaceTyped();
  } else if (!text.isEmpty() && text[0].unicode() >= u' ' && text[0].unicode() != 0x7F &&
             (event->modifiers() & kCommands) == 0) {
    emit Typed(text);
  } else {
    MessageControl::keyPressEvent(event);
  }
}

void ZCXPLRList::mousePressEvent(QMouseEvent* event) {
  const QPointer<ZCXPLRList> alive = this;
  pressedRow_ = indexAt(event->position().toPoint()).row();
  pressedRows_ = model_.AllRows();
  const int row = pressedRow_;
  ZWCListCtrl::mousePressEvent(event);
  if (alive && event->button() == Qt::LeftButton) emit RowClicked(row);
}

void ZCXPLRList::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int row = indexAt(event->position().toPoint()).row();
  // The first press may have brought other rows under the finger.
  if (row == pressedRow_ && pressedRows_.lock() == model_.AllRows()) {
    emit RowDoubleClicked(row);
  } else {
    mousePressEvent(event);
  }
}

void ZCXPLRList::resizeEvent(QResizeEvent* event) {
  ZWCListCtrl::resizeEvent(event);
  PlaceAll();
}

/// The columns share the width that the preview leaves.
void ZCXPLRList::PlaceAll() {
  const QRect area = viewport()->geometry();
  const int preview = preview_->isHidden() ? 0 : XplrPreviewPane::WidthIn(area.width());
  const int twentieth = (area.width() - preview) / 20;
  // With a preview the columns reach it; without one a few pixels are left, as everywhere.
  const int columns = preview == 0 ? area.width() : 20 * twentieth;
  preview_->setGeometry(area.left() + columns, frameWidth(), area.width() - columns, area.bottom() + 1 - frameWidth());
  coming_->setGeometry(area.left(), area.bottom() + 1 - XplrComingSign::kHeight, columns, XplrComingSign::kHeight);
  for (int column = 0; column < static_cast<int>(kTwentieths.size()); ++column) {
    header()->resizeSection(column, kTwentieths[static_cast<std::size_t>(column)] * twentieth);
  }
}

void ZCXPLRList::focusInEvent(QFocusEvent* event) {
  const QPointer<ZCXPLRList> alive = this;
  ZWCListCtrl::focusInEvent(event);
  if (alive) emit Focused(true);
}

void ZCXPLRList::focusOutEvent(QFocusEvent* event) {
  const QPointer<ZCXPLRList> alive = this;
  ZWCListCtrl::focusOutEvent(event);
  if (alive) emit Focused(false);
}

void ZCXPLRList::DrawReportRow(QPainter& painter, const QRect& bounds, int row) const {
  const XplrRow* content = model_.Row(row);
  // A view may still draw what its model has no more.
  if (content == nullptr) return;
  Color text = TextColor();
  Color back = BackColor();
  if (selectionModel()->isSelected(model_.index(row, 0))) {
    text = hasFocus() ? SelectedText() : kPaleText;
    back = !hasFocus() ? kPaleBack : content->IsSelectable() ? SelectedBack() : kRefusedBack;
  }
  painter.fillRect(bounds, ToQColor(back));
  painter.setPen(ToQColor(text));
  DrawCells(painter, bounds, row, *content);
}

void ZCXPLRList::DrawMark(QPainter& painter, const QRect& cell, const QString& name) const {
  const QFontMetrics metrics = painter.fontMetrics();
  QRect mark = cell;
  mark.setWidth(metrics.horizontalAdvance(name.left(static_cast<qsizetype>(typed_))));
  mark.setTop(cell.top() + (cell.height() - metrics.height()) / 2);
  mark.setHeight(metrics.height());
  painter.setClipRect(mark, Qt::IntersectClip);
  painter.fillRect(mark, ToQColor(kMarkBack));
  painter.setPen(ToQColor(kText));
  DrawText(painter, cell, name, kCellFormat);
}

void ZCXPLRList::DrawCells(QPainter& painter, const QRect& bounds, int row, const XplrRow& content) const {
  const int offset = 2 * painter.fontMetrics().horizontalAdvance(u' ');
  const ImageList& icons = SmallImages();
  for (int column = 0; column < model_.columnCount(); ++column) {
    QRect cell = CellRect(bounds, column);
    std::uint32_t format = kCellFormat;
    painter.save();
    painter.setClipRect(cell, Qt::IntersectClip);
    if (column == 0) {
      if (const QPixmap* icon = icons.At(content.IsFolder() ? kFolderIcon : kFileIcon)) {
        const QPoint corner(cell.left(), cell.top() + (cell.height() - icons.size.height()) / 2);
        painter.drawPixmap(QRect(corner, icons.size), *icon);
      }
      cell.setLeft(cell.left() + icons.size.width());
      cell.adjust(offset / 2 - 1, 0, -offset, 0);
    } else {
      cell.adjust(offset, 0, -offset, 0);
      if (column == kSizeColumn) format |= draw::kRight;
    }
    QString cellText = model_.CellText(row, column);
    // In a narrow column the day counts more than the beginning of the time.
    if (column == kDateColumn && painter.fontMetrics().horizontalAdvance(cellText) > cell.width()) {
      cellText = cellText.section(u' ', 0, 0);
    }
    DrawText(painter, cell, cellText, format);
    if (column == 0 && typed_ != 0 && selectionModel()->isSelected(model_.index(row, 0))) {
      DrawMark(painter, cell, cellText);
    }
    painter.restore();
  }
}

}  // namespace pnl
