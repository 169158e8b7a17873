// SPDX-License-Identifier: MIT
// ZCXPLRView: the form inside the explorer's frame, with its caption, headings, tree, list, label and name field. It
// has no rules of its own: the frame gives it the layout and listens to the controls.
#pragma once

#include "controls/zwc_edit.h"
#include "controls/zwc_static.h"
#include "explorer/qt/xplr_icons.h"
#include "explorer/qt/xplr_list_widget.h"
#include "explorer/qt/xplr_path_heading.h"
#include "explorer/qt/xplr_tree_widget.h"
#include "explorer/xplr_layout.h"
#include "explorer/xplr_view.h"
#include "host/tool_context.h"
#include "window/qt/tool_window.h"

namespace pnl {

/// ZCEdit: the name field.
class ZCEdit : public ZWCEdit {
  Q_OBJECT

 public:
  ZCEdit(int id, WindowSystem& windows, WindowHandle form, QWidget* parent);

 signals:
  /// It has got the focus.
  void Focused();

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

class ZCXPLRView : public MessageWindow {
  Q_OBJECT

 public:
  ZCXPLRView(const ToolContext& context, QWidget* frame);

  void Style(const XplrFonts& fonts, const std::string* icons);
  void Place(const XplrLayout& layout);
  [[nodiscard]] ZWCStatic* Label(int id) const;
  /// The handler of messages to the form.
  void SetMessageHandler(std::function<std::intptr_t(const Message&)> handler) { handler_ = std::move(handler); }
  /// No message reaches the form or its controls any more.
  void End();

  ZCFolderTree* tree;
  ZCXPLRList* list;
  ZCEdit* name;
  XplrPathHeading* path;

 signals:
  void Resized(int width, int height);

 protected:
  std::intptr_t OnMessage(const Message& message) override { return handler_ ? handler_(message) : 0; }
  void resizeEvent(QResizeEvent* event) override;

 private:
  ZWCStatic* caption_;
  ZWCStatic* filter_;
  ZWCStatic* label_;
  std::function<std::intptr_t(const Message&)> handler_;
};

}  // namespace pnl
