// SPDX-License-Identifier: MIT
// ZCXPLRList: the explorer's list on the screen. Draws the rows that the logic gives it, makes their texts only when
// they are seen, and reports what the operator does.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <memory>
#include <vector>

#include "controls/zwc_list_ctrl.h"
#include "explorer/qt/xplr_preview_pane.h"
#include "explorer/xplr_rows.h"
#include "window/qt/message_control.h"

namespace pnl {

class XplrRowsModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using Rows = std::shared_ptr<const std::vector<XplrRow>>;
  using QAbstractTableModel::QAbstractTableModel;

  void SetRows(Rows rows);
  void SetTitles(const QStringList& titles);
  /// Null when there is no such row.
  [[nodiscard]] const XplrRow* Row(int row) const;
  [[nodiscard]] QString CellText(int row, int column) const;
  [[nodiscard]] const Rows& AllRows() const { return rows_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  Rows rows_ = std::make_shared<const std::vector<XplrRow>>();
  QStringList titles_{QString(), QString(), QString()};
};

class ZCXPLRList : public MessageControl<ZWCListCtrl> {
  Q_OBJECT

 public:
  ZCXPLRList(int id, QWidget* parent);

  void SetLook(int fontHeight, ImageList icons);
  void SetTitles(const QStringList& titles) { model_.SetTitles(titles); }
  /// No row is selected after it.
  void SetRows(XplrRowsModel::Rows rows);
  /// Selects a row without a signal; -1 selects none.
  void SelectRow(int row);
  void ScrollToRow(int row);
  /// Marks the first letters of the selected row's name.
  void MarkTyped(std::size_t letters);
  void ShowMoreComing(bool coming);
  void ShowPreview(const XplrPreviewFace& preview);
  [[nodiscard]] const XplrPreviewPane* Preview() const { return preview_; }

 signals:
  void RowSelected(int row);
  /// -1 for a press beside the rows.
  void RowClicked(int row);
  void RowDoubleClicked(int row);
  void HeaderClicked(int column);
  /// A key with a letter, or with any other sign that is seen.
  void Typed(const QString& letters);
  void BackspaceTyped();
  void Focused(bool focused);

 protected:
  void DrawReportRow(QPainter& painter, const QRect& bounds, int row) const override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void DrawCells(QPainter& painter, const QRect& bounds, int row, const XplrRow& content) const;
  void DrawMark(QPainter& painter, const QRect& cell, const QString& name) const;
  void PlaceAll();

  XplrRowsModel model_;
  XplrPreviewPane* preview_;
  XplrComingSign* coming_;
  bool silent_ = false;
  std::size_t typed_ = 0;
  /// A double click belongs to what was under its first press. Doesn't keep rows that have gone.
  std::weak_ptr<const std::vector<XplrRow>> pressedRows_;
  int pressedRow_ = -1;
};

}  // namespace pnl
