// SPDX-License-Identifier: MIT
// ZCErrorManager: the window that is shown over the panel while the CNC has errors. It has the controls, turns keys,
// clicks and messages into calls of ErrorSession, and does what that asks of its view. It decides nothing. It is a
// child of the host's window, which owns it, and hidden until an error comes.
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QShortcut>
#include <map>
#include <optional>

#include "errors/error_session.h"
#include "errors/qt/error_text_widget.h"
#include "errors/qt/raised_text_widget.h"
#include "host/tool_session.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCErrorManager final : public ToolWindowWith<ErrorView> {
  Q_OBJECT

 public:
  ZCErrorManager(const ToolContext& context, QWidget* parent);
  ~ZCErrorManager() override;
  /// Shows the window if the CNC has an error already.
  void Start() override;

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FocusWindow() override { setFocus(Qt::OtherFocusReason); }
  void Invalidate() override { update(); }
  void SetWindowRect(const Rect& rect) override;
  [[nodiscard]] Rect ClientRect() const override { return {0, 0, width(), height()}; }
  void SetWaitCursor(bool waiting) override;
  void RegisterHotKey(bool registered) override;
  void SetFonts(const ErrorFont& title, const ErrorFont& text) override;
  void ScaleDialog(double scale) override;
  [[nodiscard]] Rect ControlRect(int id) const override;
  void MoveControl(int id, const Rect& rect) override;
  void ShowControl(int id, bool shown) override;
  void SetControlText(int id, TextView text) override;
  void CentreTitleLine(bool centred) override { titleLine_->SetCentred(centred); }
  void SetClassColor(std::uint32_t color) override;
  void SetBoxColors(int id, std::uint32_t back, std::uint32_t text, bool now) override;
  void UseRaisedLook(int id, bool raised) override;
  [[nodiscard]] int DescriptionTextWidth(TextView text) const override;
  [[nodiscard]] int TitleTextHeight(TextView text, int width) const override;

  void MakeControls();
  [[nodiscard]] ZC3DText* BoxOf(int id) const;
  [[nodiscard]] bool OnKeyDown(QKeyEvent& event);
  /// The id of the picture at that place in the window, or 0 if there is none.
  [[nodiscard]] int PictureAt(const QPoint& place) const;

  const ToolContext context_;
  std::map<int, QWidget*> controls_;
  ErrorTextWidget* titleLine_ = nullptr;
  ErrorTextWidget* description_ = nullptr;
  ZC3DText* titleBox_ = nullptr;
  ZC3DText* channelBox_ = nullptr;
  QPointer<QShortcut> hotKey_;
  std::uint32_t classColor_;
  std::optional<int> pulledFrom_;  // where the finger has hold of the description
  ToolLink<ErrorSession> session_;
};

}  // namespace pnl
