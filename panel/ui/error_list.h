// SPDX-License-Identifier: MIT
// The list of the session's errors, a cover over the panel: the latest errors first, notes above them, and the chosen
// one in full below. Its rows are big for touch, and arrow keys work too. It reads the history only while it is shown.
#pragma once

#include <QBasicTimer>
#include <QListView>
#include <QPlainTextEdit>
#include <QStyledItemDelegate>
#include <optional>
#include <vector>

#include "host/error_desk.h"
#include "ui/cover.h"
#include "ui/error_list_model.h"

namespace panel {

class PanelKey;

/// Draws a row in two lines: time, name and text, then the origin and the state of the error.
class ErrorRowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void SetSizes(int fontPixels, int rowHeight);

 private:
  int fontPixels_ = 16;
  int rowHeight_ = 48;
};

class ErrorListCover : public Cover {
  Q_OBJECT

 public:
  /// desk must outlive it.
  ErrorListCover(const ErrorDesk& desk, QWidget* parent);
  ~ErrorListCover() override;
  /// Shows the list and takes the keyboard.
  void Open();
  /// Hides the list.
  void Leave() override;
  /// Reads the history again if it has changed and the list is shown.
  void Update();
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] QListView& List() const { return *list_; }
  [[nodiscard]] const QStringList& Notes() const { return notes_; }
  [[nodiscard]] QString Details() const { return details_->toPlainText(); }
  [[nodiscard]] PanelKey* BackKey() const { return back_; }
  [[nodiscard]] PanelKey* LineKey() const { return line_; }
  [[nodiscard]] PanelKey* HelpKey() const { return help_; }
  void SetFontPixels(int pixels);

 signals:
  /// The operator wants to see the place of the chosen error, or its help.
  void LineWanted(const pnl::rig::ProgramSpot& spot);
  void HelpWanted(const ErrorHistory::Summary& error);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] std::vector<QWidget*> TabOrder() const override;

 private:
  void Read();
  void ShowWords();
  void ReadNotes();
  void ShowDetails();
  void Place();
  [[nodiscard]] const ErrorHistory::Summary* Chosen() const;
  void OnLine();
  void OnHelp();
  const ErrorDesk& desk_;
  ErrorListModel* model_;
  ErrorRowDelegate* delegate_;
  QListView* list_;
  QPlainTextEdit* details_;
  PanelKey* line_;
  PanelKey* help_;
  PanelKey* back_;
  QStringList notes_;
  QBasicTimer floodEnd_;  // removes the note of the flood when it is over
  std::optional<std::int64_t> revision_;
  bool open_ = false;
  int fontPixels_ = 16;
};

}  // namespace panel
