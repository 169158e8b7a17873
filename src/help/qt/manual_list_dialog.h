// SPDX-License-Identifier: MIT
// ZCListManuals: the modal picker of the help viewer: the installed manuals, and below them the last pages read. What a
// choice leads to is not decided here. Whoever shows it must expect it, and its own window, to be gone when exec
// returns.
#pragma once

#include <QtWidgets/QDialog>
#include <optional>

#include "controls/list_box.h"
#include "help/help_view.h"
#include "help/qt/help_look.h"
#include "host/language.h"

namespace pnl {

class HelpKeyButton;

class ZCListManuals final : public QDialog {
  Q_OBJECT

 public:
  /// The dialog lies over the middle of parent.
  ZCListManuals(const Language& language, const HelpScale& scale, const ManualPicker& picker, QWidget* parent);
  ~ZCListManuals() override;
  /// The selected line of the one list that has one.
  [[nodiscard]] std::optional<ManualChoice> Choice() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void LayOut(const Language& language, const HelpScale& scale, const ManualPicker& picker);
  /// Fills a list and connects it: a double click is OK, and the other list loses its selection to it.
  void SetUp(ListBox* list, ListBox* other, const std::vector<Text>& rows);
  void Place();

  const WindowHandle handle_;  // by which scripts find the dialog; it takes no messages
  ListBox* manuals_;
  ListBox* recent_;
};

}  // namespace pnl
