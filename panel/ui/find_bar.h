// SPDX-License-Identifier: MIT
// The bar for finding and replacing: a field for each, the count of places, and the keys. It passes what the operator
// wants to the search, and shows what the search knows.
#pragma once

#include "ui/editor_bars.h"

namespace panel {

class ProgramSearch;

class FindBar : public EditorBar {
  Q_OBJECT

 public:
  /// search must outlive the bar.
  FindBar(ProgramSearch& search, QWidget* parent);
  /// Gives the keyboard to the field for what to find, and shows the second row when it is to be replaced. what is
  /// looked for unless it is empty; else the search goes on with what was looked for last.
  void Begin(bool replace, const QString& what);
  /// Ends the search; the fields keep their texts.
  void Leave();
  /// What the bar says about the places found.
  [[nodiscard]] QString CountText() const;

  [[nodiscard]] BarField& What() const { return *what_; }
  [[nodiscard]] BarField& With() const { return *with_; }
  [[nodiscard]] bool Replaces() const { return replaces_; }
  [[nodiscard]] PanelKey* NextKey() const { return next_; }
  [[nodiscard]] PanelKey* PreviousKey() const { return previous_; }
  [[nodiscard]] PanelKey* CaseKey() const { return case_; }
  [[nodiscard]] PanelKey* ReplaceKey() const { return replace_; }
  [[nodiscard]] PanelKey* AllKey() const { return all_; }
  [[nodiscard]] PanelKey* CloseKey() const { return close_; }

 signals:
  void LeaveWanted();

 protected:
  void ShowWords() override;
  void Place() override;
  [[nodiscard]] int Rows() const override { return replaces_ ? 2 : 1; }
  void paintEvent(QPaintEvent* event) override;

 private:
  void Look();
  void UpdateKeys();
  [[nodiscard]] QRect CountPlace() const;
  ProgramSearch& search_;
  BarField* what_;
  BarField* with_;
  PanelKey* previous_;
  PanelKey* next_;
  PanelKey* case_;
  PanelKey* close_;
  PanelKey* replace_;
  PanelKey* all_;
  bool replaces_ = false;
};

}  // namespace panel
