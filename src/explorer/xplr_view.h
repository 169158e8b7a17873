// SPDX-License-Identifier: MIT
// What the logic of the explorer asks of its window. The window has a frame, a form in it, and the form's controls; it
// decides nothing. Implemented by ZCExplorer on Qt and by a recording view in the tests. Rectangles are pixels, colours
// 0x00BBGGRR.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "explorer/xplr_layout.h"
#include "explorer/xplr_nodes.h"
#include "explorer/xplr_rows.h"
#include "window/tool_view.h"

namespace pnl {

/// The windows that get the explorer's messages. kFind and kFolder are 0 while the dialog isn't open.
enum class XplrWindow { kFrame, kForm, kTree, kList, kFind, kFolder };

/// Heights of the fonts, for the present size of the panel.
struct XplrFonts {
  int caption = 18;   // 1101
  int headings = 16;  // 1102 to 1105
  int panes = 14;     // tree and list
  friend bool operator==(const XplrFonts&, const XplrFonts&) = default;
};

/// The pane beside the list with the beginning of the selected file.
struct XplrPreviewFace {
  bool there = false;
  Text name;  // of the file; empty with the lines
  std::vector<Text> lines;
  friend bool operator==(const XplrPreviewFace&, const XplrPreviewFace&) = default;
};

class XplrView : public ToolView {
 public:
  [[nodiscard]] virtual WindowHandle HandleOf(XplrWindow window) const = 0;

  /// Destroys the frame, which is hidden already, once the present operation is over. Nothing may be asked of the view
  /// after it.
  virtual void Destroy() = 0;
  /// Posts a key-down of Tab to the window that has the focus.
  virtual void PostTab() = 0;

  // The form.
  /// Gives the controls their fonts, formats and first colours.
  virtual void StyleForm(const XplrFonts& fonts) = 0;
  /// Moves, shows and enables the controls.
  virtual void Place(const XplrLayout& layout) = 0;
  /// Text of a static control.
  virtual void SetLabel(int id, TextView text) = 0;
  virtual void SetLabelColors(int id, std::uint32_t frame, std::uint32_t back, std::uint32_t text) = 0;
  /// The control that has the focus; 0 when none of this tool has it.
  [[nodiscard]] virtual int FocusedControl() const = 0;
  /// Gives a control the focus. Brings the event of the control that loses it and of the one that gets it, possibly
  /// before the call returns.
  virtual void FocusControl(int id) = 0;
  /// Gives the frame itself the focus, so that its keys work before a control has it.
  virtual void FocusFrame() = 0;

  // The name field.
  [[nodiscard]] virtual Text NameText() const = 0;
  virtual void SetNameText(TextView text) = 0;

  // The tree.
  /// count children of parent are new, from the index-th on.
  virtual void OnNodesAdded(const XplrNodes& nodes, NodeId parent, std::size_t index, std::size_t count) = 0;
  /// The node's text, the mark by which it is opened, or the one that it has failed, has changed.
  virtual void OnNodeChanged(const XplrNodes& nodes, NodeId node) = 0;
  /// The node is about to be removed.
  virtual void OnNodeRemoving(NodeId node) = 0;
  /// Selects a node without an event; kNoNode selects none.
  virtual void SelectNode(NodeId node) = 0;
  /// Opens a node on the screen and scrolls to it, without an event.
  virtual void OpenNode(NodeId node) = 0;

  // The list.
  /// All rows are others now. None of them is selected.
  virtual void OnRowsReset(std::shared_ptr<const std::vector<XplrRow>> rows) = 0;
  /// Selects a row and gives it the mark of the focus, without an event; -1 selects none.
  virtual void SelectRow(int row) = 0;
  virtual void ScrollToRow(int row) = 0;
  /// Marks so many of the first letters of the selected row's name.
  virtual void MarkTyped(std::size_t letters) = 0;
  /// A sign at the end of the rows: more of them are coming.
  virtual void ShowMoreComing(bool coming) = 0;
  virtual void ShowPreview(const XplrPreviewFace& preview) = 0;
  /// Titles of the list's three columns.
  virtual void SetColumnTitles(const std::array<Text, 3>& titles) = 0;
  /// Posts the frame a key-down of Enter.
  virtual void PostEnter() = 0;

  // The dialogs. Each lives until the operator closes it, it loses the activation, or the frame goes.
  /// Return false when the dialog couldn't be made.
  virtual bool OpenFind(TextView text) = 0;
  virtual bool OpenFolderSearch() = 0;
  [[nodiscard]] virtual Text FindText() const = 0;
  [[nodiscard]] virtual Text FolderText() const = 0;
  virtual void FocusDialog() = 0;
  /// Posts the dialog that is open a key-down of Escape.
  virtual void PostEscapeToDialog() = 0;
};

/// How a part of the logic reaches the window. The call throws WindowGone once the tool has ended.
using XplrViewAccess = std::function<XplrView&()>;

}  // namespace pnl
