// SPDX-License-Identifier: MIT
// ZCListManuals: the modal picker of the help viewer: the installed manuals, and below them the last pages read. What a
// choice leads to is not decided here. It blocks the other windows of the panel and not their code: no event loop of
// its own runs.
#pragma once

#include <optional>

#include "controls/list_box.h"
#include "help/help_view.h"
#include "help/qt/help_look.h"
#include "host/language.h"
#include "window/qt/tool_window.h"

namespace pnl {

class HelpKeyButton;

class ZCListManuals final : public ToolDialog {
  Q_OBJECT

 public:
  /// The dialog lies over the middle of parent.
  ZCListManuals(const Language& language, const HelpScale& scale, const ManualPicker& picker, QWidget* parent);
  /// The selected line of the one list that has one.
  [[nodiscard]] std::optional<ManualChoice> Choice() const;
  void Cancel() { Finish(false); }

 signals:
  /// The operator has left the dialog, which is still there; emitted once.
  void Finished(bool accepted);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void LayOut(const Language& language, const HelpScale& scale, const ManualPicker& picker);
  /// Fills a list and connects it: a double click is OK, and the other list loses its selection to it.
  void SetUp(ListBox* list, ListBox* other, const std::vector<Text>& rows);
  void Place();
  void Finish(bool accepted);

  ListBox* manuals_;
  ListBox* recent_;
  bool finished_ = false;
};

}  // namespace pnl
