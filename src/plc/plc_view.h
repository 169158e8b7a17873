// SPDX-License-Identifier: MIT
// What the PLC message view's logic asks of its window. The window has the controls and decides nothing. ZCPLCMsgView
// implements it on Qt, and a recording view in the tests. Rectangles are in pixels of the client area, colours are
// 0x00BBGGRR. Control ids are in plc/plc_ids.h.
#pragma once

#include <cstdint>
#include <string>

#include "base/text.h"
#include "pages/page_source.h"
#include "window/tool_view.h"

namespace pnl {

/// Where in a document the operator is: the page of it, if it has pages, and how far that is scrolled down.
struct PlcPlace {
  Text page;
  int scroll = 0;
  friend bool operator==(const PlcPlace&, const PlcPlace&) = default;
};

class PlcView : public ToolView {
 public:
  virtual void FocusWindow() = 0;
  /// Moves and resizes the window. If the size changes, the window calls the session's OnResized.
  virtual void SetWindowRect(const Rect& rect) = 0;
  [[nodiscard]] virtual Rect ClientRect() const = 0;
  virtual void MoveControl(int id, const Rect& rect) = 0;
  virtual void ShowControl(int id, bool shown) = 0;
  /// Sets the text of the title line, the count or the note.
  virtual void SetControlText(int id, TextView text) = 0;
  virtual void SetTitleColors(std::uint32_t back, std::uint32_t text) = 0;

  /// Control 1005 shows the text, from its first line on. It has no picture then.
  virtual void SetText(TextView text) = 0;
  /// Control 1005 shows the picture at the control's size instead of a text. Returns false for bytes that can't be
  /// decoded; the control is then empty.
  virtual bool SetPicture(const std::string& bytes) = 0;
  /// Control 1001 shows a page of the folder. name is a file name, anchor may be empty. Returns why it can't; what it
  /// showed before is then gone.
  virtual PageRefusal Navigate(TextView folder, TextView name, TextView anchor) = 0;
  virtual void FocusPage() = 0;
  /// Empties control 1001 and gives up what it has in memory.
  virtual void ClearPage() = 0;

  // Control 3002. path is a panel path.
  virtual void LoadVideo(TextView path) = 0;
  virtual void PlayVideo(int times) = 0;
  virtual void StopVideo() = 0;
  virtual void RewindVideo() = 0;
  virtual void ClearVideo() = 0;

  /// The place in the control with that id, 1001 or 1005.
  [[nodiscard]] virtual PlcPlace PlaceIn(int id) const = 0;
  virtual void SetPlace(int id, const PlcPlace& place) = 0;
};

}  // namespace pnl
