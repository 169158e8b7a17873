// SPDX-License-Identifier: MIT
// What the error manager's logic asks of its window. The window holds controls and decides nothing. Implemented by
// ZCErrorManager on Qt and by a recording view in the tests. Rectangles are pixels, those of controls in the window's
// client area, the window's in its parent's; colours are 0x00BBGGRR.
#pragma once

#include <cstdint>

#include "base/text.h"
#include "errors/error_geometry.h"
#include "errors/error_settings.h"
#include "window/tool_view.h"

namespace pnl {

class ErrorView : public ToolView {
 public:
  virtual void FocusWindow() = 0;
  virtual void Invalidate() = 0;
  /// Brings OnResized back when the size changes.
  virtual void SetWindowRect(const Rect& rect) = 0;
  [[nodiscard]] virtual Rect ClientRect() const = 0;
  virtual void SetWaitCursor(bool waiting) = 0;
  /// Alt+W, wherever the focus is in the panel.
  virtual void RegisterHotKey(bool registered) = 0;

  virtual void SetFonts(const ErrorFont& title, const ErrorFont& text) = 0;
  [[nodiscard]] virtual Rect ControlRect(int id) const = 0;
  virtual void MoveControl(int id, const Rect& rect) = 0;
  virtual void ShowControl(int id, bool shown) = 0;
  virtual void SetControlText(int id, TextView text) = 0;
  /// The title line centred both ways, or from its top left.
  virtual void CentreTitleLine(bool centred) = 0;
  /// Of the window and the pictures.
  virtual void SetClassColor(std::uint32_t color) = 0;
  /// Of a raised text (1004, 1005); with now set it is painted before the call returns.
  virtual void SetBoxColors(int id, std::uint32_t back, std::uint32_t text, bool now) = 0;
  /// The embossed look of a raised text.
  virtual void UseRaisedLook(int id, bool raised) = 0;

  /// In the font of the description.
  [[nodiscard]] virtual int DescriptionTextWidth(TextView text) const = 0;
  /// Height of the title line in its font, broken into lines at that width.
  [[nodiscard]] virtual int TitleTextHeight(TextView text, int width) const = 0;
};

}  // namespace pnl
