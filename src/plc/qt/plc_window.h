// SPDX-License-Identifier: MIT
// ZCPLCMsgView: the window with the messages of the PLC and their documents. It has the controls, turns keys and
// messages into calls of PlcSession, and does what that asks of its view. It decides nothing. It is a child of the
// host's window, which owns it, and hidden until something is to be shown.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QLabel>
#include <map>
#include <memory>

#include "controls/c_avi_ctrl.h"
#include "controls/page_browser.h"
#include "host/tool_session.h"
#include "plc/plc_session.h"
#include "plc/qt/plc_text_widget.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCPLCMsgView final : public ToolWindowWith<PlcView> {
  Q_OBJECT

 public:
  ZCPLCMsgView(const ToolContext& context, QWidget* parent);
  /// With a player of the caller's.
  ZCPLCMsgView(const ToolContext& context, QWidget* parent, MakeVideoPlayer player);
  ~ZCPLCMsgView() override;
  void Start() override;

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // PlcView.
  void FocusWindow() override;
  void SetWindowRect(const Rect& rect) override;
  [[nodiscard]] Rect ClientRect() const override { return {0, 0, width(), height()}; }
  void MoveControl(int id, const Rect& rect) override;
  void ShowControl(int id, bool shown) override;
  void SetControlText(int id, TextView text) override;
  void SetTitleColors(std::uint32_t back, std::uint32_t text) override;
  void SetText(TextView text) override;
  bool SetPicture(const std::string& bytes) override { return text_->SetPicture(bytes); }
  PageRefusal Navigate(TextView folder, TextView name, TextView anchor) override;
  void FocusPage() override { page_->setFocus(Qt::OtherFocusReason); }
  void ClearPage() override { page_->Clear(); }
  void LoadVideo(TextView path) override;
  void PlayVideo(int times) override { video_->Play(times); }
  void StopVideo() override { video_->Stop(); }
  void RewindVideo() override { video_->Rewind(); }
  void ClearVideo() override;
  [[nodiscard]] PlcPlace PlaceIn(int id) const override;
  void SetPlace(int id, const PlcPlace& place) override;

  [[nodiscard]] bool OnKeyDown(QKeyEvent& event);
  [[nodiscard]] bool IsEscape(const QKeyEvent& event) const;
  void OnPageRefused(const QString& reference, PageRefusal reason);

  const ToolContext context_;
  PlcTitleWidget* title_;
  PlcTextWidget* text_;
  PageBrowser* page_;
  CAviCtrl* video_;
  QLabel* note_;
  std::map<int, QWidget*> controls_;
  std::shared_ptr<PageSource> pages_;  // of the document that Navigate has shown
  bool navigating_ = false;
  PageRefusal refusal_ = PageRefusal::kNone;  // of the page that Navigate asks for
  ToolLink<PlcSession> session_;
};

}  // namespace pnl
