// SPDX-License-Identifier: MIT
// What the error manager's logic asks of its window. The window has the controls and decides nothing. ZCErrorManager
// implements it on Qt, and a recording view in the tests. Rectangles are in pixels: a control's in the client area of
// the window, the window's in that of its parent. Colours are 0x00BBGGRR.
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
  /// Moves and resizes the window. If the size changes, the window calls the session's OnResized.
  virtual void SetWindowRect(const Rect& rect) = 0;
  [[nodiscard]] virtual Rect ClientRect() const = 0;
  virtual void SetWaitCursor(bool waiting) = 0;
  /// Registers Alt+W as the tool's hot key, or gives it back. It works wherever the focus is in the panel.
  virtual void RegisterHotKey(bool registered) = 0;

  virtual void SetFonts(const ErrorFont& title, const ErrorFont& text) = 0;
  /// Gives the window the size of its dialog and the controls their places in it, all at that scale.
  virtual void ScaleDialog(double scale) = 0;
  [[nodiscard]] virtual Rect ControlRect(int id) const = 0;
  virtual void MoveControl(int id, const Rect& rect) = 0;
  virtual void ShowControl(int id, bool shown) = 0;
  virtual void SetControlText(int id, TextView text) = 0;
  /// Centres the text of the title line both ways, or writes it from the top left corner.
  virtual void CentreTitleLine(bool centred) = 0;
  /// Sets the background of the window and of the pictures.
  virtual void SetClassColor(std::uint32_t color) = 0;
  /// Sets the colours of a box (1004 or 1005). With now set it is painted before the call returns.
  virtual void SetBoxColors(int id, std::uint32_t back, std::uint32_t text, bool now) = 0;
  /// Switches the embossed look of a box on or off.
  virtual void UseRaisedLook(int id, bool raised) = 0;

  /// The width of the text in the font of the description.
  [[nodiscard]] virtual int DescriptionTextWidth(TextView text) const = 0;
  /// The height of the text in the font of the title line, broken into lines of that width.
  [[nodiscard]] virtual int TitleTextHeight(TextView text, int width) const = 0;
};

}  // namespace pnl
