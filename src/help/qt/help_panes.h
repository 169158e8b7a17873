// SPDX-License-Identifier: MIT
// The left side of the help viewer: three tabs, and under them the contents, the index with its line, or the search
// with its line, its results and a word about them. Decides nothing: the window reads and sets what the panes show.
#pragma once

#include <QtWidgets/QWidget>
#include <array>

#include "help/help_view.h"
#include "help/qt/help_controls.h"
#include "host/language.h"

class QLabel;
class QStackedWidget;

namespace pnl {

class HelpPanes : public QWidget {
  Q_OBJECT

 public:
  HelpPanes(const Language& language, const HelpScale& scale, QWidget* parent);

  void ShowPane(HelpPane pane);
  void SetIndex(const std::vector<HelpRow>& rows);
  void SetResults(const std::vector<ResultRow>& rows);
  void SetStatus(const QString& text);

  // The controls; the window connects them.
  std::array<HelpKeyButton*, 3> tabs{};
  HelpTree* contents;
  QLineEdit* indexLine;
  ListBox* indexList;
  QLineEdit* searchLine;
  HelpKeyButton* searchKey;
  ListBox* results;

 private:
  QLabel* status_;
  QStackedWidget* stack_;
};

}  // namespace pnl
