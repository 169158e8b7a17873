// SPDX-License-Identifier: MIT
// The edit field of the command line: one line, at most 255 characters when typed or pasted into, in colours that its
// window sets. It reports when the focus has come or gone; what follows is the window's business.
#pragma once

#include "controls/limited_edit.h"
#include "mdi/mdi_colors.h"
#include "mdi/mdi_view.h"

namespace pnl {

class MdiEdit : public LimitedEdit {
  Q_OBJECT

 public:
  static constexpr int kLimit = 255;

  MdiEdit(int id, QWidget* parent);

  [[nodiscard]] TextSelection Selection() const;
  /// As MdiView::SetEditSelection says.
  void Select(TextSelection selection);
  void ReplaceSelection(const QString& text);
  void SetColors(const MdiColorPair& colors);

 signals:
  /// The edit has got or lost the focus and has done with it. A menu that opens over it takes no focus.
  void FocusChanged(bool focused);

 protected:
  bool event(QEvent* event) override;

 private:
  std::optional<MdiColorPair> colors_;  // nothing before the first ones were set
};

}  // namespace pnl
