// SPDX-License-Identifier: MIT
#include "help/qt/help_controls.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyledItemDelegate>
#include <algorithm>
#include <array>
#include <utility>

#include "controls/wide_scroll_bar.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kRowRole = Qt::UserRole;
constexpr int kLongestLine = 200;
constexpr double kRounding = 4;
constexpr double kMostSign = 12;
/// Of a row's height: the room for the triangle before it, and half of the triangle itself.
constexpr double kBranchRoom = 0.7;
constexpr double kBranchSign = 0.22;

/// A triangle that points to the right, turned by an angle. half is half of its longer side.
void DrawTriangle(QPainter& painter, QPointF center, double half, double angle, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(center);
  painter.rotate(angle);
  painter.setPen(color);
  painter.setBrush(color);
  const std::array<QPointF, 3> corners = {QPointF(-half * 0.6, -half), QPointF(half * 0.8, 0),
                                          QPointF(-half * 0.6, half)};
  painter.drawPolygon(corners.data(), static_cast<int>(corners.size()));
  painter.restore();
}

QPalette ListColors() {
  QPalette colors(ToQColor(help_look::kListBack).lighter(110));
  colors.setColor(QPalette::Base, ToQColor(help_look::kListBack));
  colors.setColor(QPalette::Text, ToQColor(help_look::kListText));
  colors.setColor(QPalette::Highlight, ToQColor(help_look::kSelectedBack));
  colors.setColor(QPalette::HighlightedText, ToQColor(help_look::kSelectedText));
  return colors;
}

/// Rows that a glove can touch.
class TallRows final : public QStyledItemDelegate {
 public:
  TallRows(int height, QObject* parent) : QStyledItemDelegate(parent), height_(height) {}
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {QStyledItemDelegate::sizeHint(option, index).width(), height_};
  }

 private:
  const int height_;
};

}  // namespace

HelpKeyButton::HelpKeyButton(int id, const QString& word, const HelpScale& scale, QWidget* parent)
    : QAbstractButton(parent), height_(scale.KeyHeight()) {
  MarkControl(this, id, control_kind::kButton);
  setFocusPolicy(Qt::NoFocus);
  setText(word);
  setProperty("pnlText", word);
  setFont(scale.MakeText());
}

void HelpKeyButton::SetSign(Sign sign) {
  sign_ = sign;
  update();
}

void HelpKeyButton::GiveFocusTo(QWidget* control) {
  setFocusPolicy(Qt::ClickFocus);
  setFocusProxy(control);
}

void HelpKeyButton::SetChosen(bool chosen) {
  chosen_ = chosen;
  setProperty(property::kChecked, chosen);
  update();
}

QSize HelpKeyButton::sizeHint() const {
  return {std::max(height_, fontMetrics().horizontalAdvance(text()) + height_ / 2), height_};
}

void HelpKeyButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor back = ToQColor(chosen_ ? help_look::kChosenBack : help_look::kKeyBack);
  if (isDown()) back = back.darker(120);
  painter.setPen(QPen(ToQColor(help_look::kEdge), 1));
  painter.setBrush(back);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRounding, kRounding);
  if (sign_ != Sign::kNone) return DrawSign(painter);
  painter.setPen(ToQColor(help_look::kKeyText));
  const QRect room = rect().adjusted(3, 0, -3, 0);
  painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void HelpKeyButton::DrawSign(QPainter& painter) const {
  const double half = std::min({width() * 0.3, height() * 0.3, kMostSign});
  constexpr std::array<double, 5> kAngles = {0, 180, 0, 270, 90};
  DrawTriangle(painter, QRectF(rect()).center(), half, kAngles[static_cast<std::size_t>(sign_)],
               ToQColor(help_look::kKeyText));
}

QLineEdit* MakeHelpLine(int id, const HelpScale& scale, QWidget* parent) {
  auto* line = new QLineEdit(parent);
  MarkControl(line, id, control_kind::kEdit);
  line->setMaxLength(kLongestLine);
  line->setFont(scale.MakeText());
  line->setContextMenuPolicy(Qt::NoContextMenu);
  QPalette colors = line->palette();
  colors.setColor(QPalette::Base, ToQColor(help_look::kLineBack));
  colors.setColor(QPalette::Text, ToQColor(help_look::kListText));
  line->setPalette(colors);
  line->setFixedHeight(scale.RowHeight() + 2);
  return line;
}

ListBox* MakeHelpList(int id, const HelpScale& scale, QWidget* parent) {
  auto* list = new ListBox(id, parent);
  list->SetColors(help_look::kListBack, help_look::kListText);
  list->SetSelectedColors(help_look::kSelectedBack, help_look::kSelectedText);
  list->SetFont(QStringLiteral("Arial"), scale.Font(), help_look::kFontWeight);
  list->SetLeastRowHeight(scale.RowHeight());
  return list;
}

HelpTree::HelpTree(int id, const HelpScale& scale, QWidget* parent) : ZWCTreeCtrl(id, parent) {
  SetFont(QStringLiteral("Arial"), scale.Font(), help_look::kFontWeight);
  setPalette(ListColors());
  setFrameShape(QFrame::NoFrame);
  setItemDelegate(new TallRows(scale.RowHeight(), this));
  setIndentation(static_cast<int>(scale.RowHeight() * kBranchRoom));
  setVerticalScrollBar(new WideScrollBar(Qt::Vertical, this));
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setExpandsOnDoubleClick(false);
  connect(this, &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* item) { emit RowTouched(item->data(0, kRowRole).toInt()); });
}

void HelpTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
  if (!model()->hasChildren(index)) return;
  // The room of the row's own depth, in which a press opens the rows inside.
  const QRectF room(rect.right() + 1 - indentation(), rect.top(), indentation(), rect.height());
  const bool selected = selectionModel()->isSelected(index);
  DrawTriangle(*painter, room.center(), room.height() * kBranchSign, isExpanded(index) ? 90 : 0,
               ToQColor(selected ? help_look::kSelectedText : help_look::kListText));
}

void HelpTree::SetRows(const std::vector<HelpRow>& rows) {
  clear();
  items_.clear();
  items_.reserve(rows.size());
  QList<QTreeWidgetItem*> outermost;
  std::vector<std::pair<int, QTreeWidgetItem*>> around;  // depth and item of the rows that the next one may be inside
  for (const HelpRow& row : rows) {
    while (!around.empty() && around.back().first >= row.depth) around.pop_back();
    auto* item = new QTreeWidgetItem(QStringList(ToQString(row.text)));
    item->setData(0, kRowRole, static_cast<int>(items_.size()));
    if (around.empty()) {
      outermost.append(item);
    } else {
      around.back().second->addChild(item);
    }
    around.emplace_back(row.depth, item);
    items_.push_back(item);
  }
  addTopLevelItems(outermost);
  // A manual that has all its chapters below its title shows them.
  if (outermost.size() == 1) outermost.first()->setExpanded(true);
}

void HelpTree::SelectRow(int row) {
  const bool there = row >= 0 && row < static_cast<int>(items_.size());
  QTreeWidgetItem* item = there ? items_[static_cast<std::size_t>(row)] : nullptr;
  setCurrentItem(item);
  scrollTo(currentIndex());
}

int HelpTree::SelectedRow() const {
  const QTreeWidgetItem* selected = SelectedNode();
  return selected == nullptr ? -1 : selected->data(0, kRowRole).toInt();
}

}  // namespace pnl
