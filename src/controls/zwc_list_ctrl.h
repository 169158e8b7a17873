// SPDX-License-Identifier: MIT
// ZWCListCtrl: a list with columns that draws its rows itself. All rows have one height and stay readable when
// selected. Its ReportModel has the rows; its owner fills them.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QTreeView>
#include <optional>
#include <vector>

#include "controls/report_model.h"
#include "controls/system_colors.h"

namespace pnl {

/// Small pictures of one size. At returns null for an index out of range.
struct ImageList {
  QSize size;
  std::vector<QPixmap> images;
  [[nodiscard]] const QPixmap* At(int index) const {
    return index >= 0 && index < static_cast<int>(images.size()) ? &images[static_cast<std::size_t>(index)] : nullptr;
  }
};

class ZWCListCtrl : public QTreeView {
  Q_OBJECT
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  ZWCListCtrl(int id, QWidget* parent);

  /// Sets the colours of selected rows without a repaint.
  void SetSelectedColors(Color text, Color back);
  /// Does nothing when the font can't be made.
  void SetFont(const QString& face, int height, int weight);
  void Setup(Color back, Color text, Color selBack, Color selText, const QString& face, int height, int weight);
  void SetFullRow(bool flag) { m_bFullRow = flag; }
  /// Returns the old value. A change repaints the list.
  bool SetSubItemImages(bool flag);
  void SetSmallImages(ImageList images);
  void SetStateImages(ImageList images);
  /// Puts the size that all rows need into size, measured by the texts of the first column. For an empty list returns
  /// false and size is 0, 0.
  bool GetExtent(QSize& size) const;

  [[nodiscard]] ReportModel& Rows() { return rows_; }
  [[nodiscard]] const ReportModel& Rows() const { return rows_; }
  /// The height of every row in pixels: that of the text with its leading plus 5, or that of the small images plus 4 if
  /// it is larger.
  [[nodiscard]] int RowHeight() const;
  [[nodiscard]] uint BackColor() const { return back_; }
  [[nodiscard]] uint TextColor() const { return text_; }
  [[nodiscard]] QFont RowFont() const { return m_pFont ? *m_pFont : font(); }
  [[nodiscard]] bool IsSelected(int row) const;

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
  /// Draws a row; bounds is the whole row. A derived class may draw it in its own way.
  virtual void DrawReportRow(QPainter& painter, const QRect& bounds, int row) const;
  /// The rectangle of a cell in the row's bounds.
  [[nodiscard]] QRect CellRect(const QRect& bounds, int column) const;
  [[nodiscard]] const ImageList& SmallImages() const { return small_; }
  [[nodiscard]] const ImageList& StateImages() const { return state_; }
  [[nodiscard]] Color SelectedText() const { return m_SelText; }
  [[nodiscard]] Color SelectedBack() const { return m_SelBack; }
  [[nodiscard]] bool FullRow() const { return m_bFullRow; }
  [[nodiscard]] bool SubItemImages() const { return m_bSubItemImages; }

 private:
  void UseColors();
  /// Draws the icons of a row and returns the x at which its label begins.
  int DrawIcons(QPainter& painter, const QRect& cell, const ReportRow& row) const;

  ReportModel rows_;
  ImageList small_;
  ImageList state_;
  Color back_ = SystemColor(kColorWindow);
  Color text_ = SystemColor(kColorWindowText);
  Color m_SelText = 0;
  Color m_SelBack = 0xff0000;
  std::optional<QFont> m_pFont;
  bool m_bFullRow = true;
  bool m_bSubItemImages = false;
};

}  // namespace pnl
