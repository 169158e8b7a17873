// SPDX-License-Identifier: MIT
// ZCCalc7340: the calculator's window. It has the controls, turns each key, press, command and message into one
// intention of CalcSession, lets it compute for a moment, and does what it asks of its view. It decides nothing. It is
// a child of the host's window, which owns it.
#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QPointer>
#include <functional>

#include "calc/calc_session.h"
#include "calc/calc_view.h"
#include "calc/qt/calc_client_widget.h"
#include "calc/qt/calc_text_widgets.h"
#include "host/tool_session.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCCalc7340 final : public ToolWindowWith<CalcView> {
  Q_OBJECT

 public:
  /// Returns milliseconds that only increase. It isn't the clock of the context's timers: a test or a script may stop
  /// that one, and an event must end even then.
  using Clock = std::function<std::int64_t()>;
  [[nodiscard]] static Clock SteadyClock();

  /// Makes the window, hidden. param is the second argument of LoadPNLTool, the parent's handle. The clock measures how
  /// long an event computes.
  ZCCalc7340(const ToolContext& context, QWidget* parent, std::int32_t param, Clock clock = SteadyClock());
  ~ZCCalc7340() override;

  /// Opens the calculator and shows the window.
  void Start() override;

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  [[nodiscard]] Rect WindowRect() const override;
  void MoveWindow(int left, int top) override { move(left, top); }
  void SetClientHeight(int height) override;
  void BringToTop() override;
  void Destroy() override;
  void ClosePanel() override;
  void SetTitle(TextView title) override;
  void AttachMenu(MenuHandle menu) override;
  [[nodiscard]] Rect ClientRect() const override;
  [[nodiscard]] Rect ControlRect(int id) const override { return client_->ControlRect(id); }
  void MoveControl(int id, const Rect& rect) override;
  void ShowControl(int id, bool shown) override;
  void SetKeyIcon(int id, int bitmap) override;
  void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) override;
  [[nodiscard]] Text LineText() const override;
  void SetLineText(TextView text) override;
  [[nodiscard]] TextSelection LineSelection() const override { return client_->Line().Selection(); }
  void SetLineSelection(TextSelection selection) override { client_->Line().Select(selection); }
  void LimitLine(int characters) override { client_->Line().SetLimit(characters); }
  void FocusLine() override { client_->Line().setFocus(Qt::OtherFocusReason); }
  [[nodiscard]] Text ResultText() const override;
  void SetResultText(TextView text) override;
  void SetResultColors(std::uint32_t back, std::uint32_t text) override;
  void SetStatus(TextView text) override;
  [[nodiscard]] int ListCount() const override { return client_->History().Count(); }
  [[nodiscard]] Text ListItem(int index) const override { return client_->History().Item(index); }
  [[nodiscard]] std::vector<int> ListSelection() const override { return client_->History().Selected(); }
  [[nodiscard]] int ListCurrent() const override { return client_->History().Current(); }
  void FillList(const TextRows& rows) override { client_->FillHistory(rows); }
  [[nodiscard]] TextRows ListRows() const override { return client_->History().Items(); }
  void InsertListItem(int index, TextView text) override { client_->InsertRow(index, text); }
  void DeleteListItem(int index) override { client_->DeleteRow(index); }
  void SelectListItem(int index) override { client_->SelectRow(index); }
  void FocusList() override { client_->History().setFocus(Qt::OtherFocusReason); }
  void RepaintRowValues() override { client_->History().viewport()->update(); }
  void FillVariables(const std::vector<Text>& rows) override;
  [[nodiscard]] int VariablesSelection() const override { return client_->Variables().Selection(); }
  void FocusVariables() override { client_->Variables().setFocus(Qt::OtherFocusReason); }
  void SetNote(TextView text) override;
  void SetWorking(bool working) override;

  /// Calls an intention. After the outermost one the session computes for a moment what it has started. Returns false
  /// if the session has ended; then nothing of this object may be touched.
  bool Tell(const std::function<void(CalcSession&)>& intention);
  /// Tells a host through a property what was removed. Returns false as Tell does.
  bool ShowRemoval();
  /// Lets the session compute for that long. Returns false as Tell does.
  bool Compute(int milliseconds);
  void Connect();
  [[nodiscard]] bool OnKeyDown(QObject* watched, QKeyEvent& event);
  [[nodiscard]] bool OnCommitted(QInputMethodEvent& event);
  /// Returns whether the calculator took a character. It also did if the character has ended the window.
  [[nodiscard]] bool OnCharacter(const QString& typed);
  void LayOut();
  void PlaceNote();

  const ToolContext context_;
  CalcClientWidget* client_;
  CalcMenuWidget* bar_ = nullptr;
  QPointer<CalcNoteWidget> note_;
  QBasicTimer work_;
  const Clock clock_;
  int depth_ = 0;  // how many intentions are under way
  ToolLink<CalcSession> session_;
};

}  // namespace pnl
