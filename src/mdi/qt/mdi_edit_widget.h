// SPDX-License-Identifier: MIT
// The edit of the command line: one line, into which at most 255 characters can be typed or pasted. Its window sets the
// colours. It reports when it has got or lost the focus, and the window decides what follows.
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
  /// Does what MdiView::SetEditSelection asks for.
  void Select(TextSelection selection);
  void ReplaceSelection(const QString& text);
  void SetColors(const MdiColorPair& colors);

 signals:
  /// Emitted after the edit has got or lost the focus and has handled that. Not emitted for a menu that opens over it.
  void FocusChanged(bool focused);

 protected:
  bool event(QEvent* event) override;

 private:
  TextSelection chosen_;  // the last one that Select has set
};

}  // namespace pnl
