// SPDX-License-Identifier: MIT
// The panel's window. It places the parts, turns each key and callback into one action, and draws everything from the
// state of the session and the operator in UpdateDisplay. Whatever can be decided without a window is decided
// elsewhere.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>
#include <memory>
#include <optional>

#include "host/file_request.h"
#include "host/host_session.h"
#include "host/language_desk.h"
#include "host/operator.h"
#include "remote/panel_face.h"
#include "ui/panel_layout.h"
#include "ui/panel_parts.h"

namespace panel {

class JournalKeeper;
struct JournalSetup;
class Keyboard;
enum class RowKey;
struct RowKeyLook;
struct SoftKeyItem;
struct TouchStroke;
class TouchDesk;

class PanelWindow : public QWidget, public PanelFace, public PanelParts {
  Q_OBJECT

 public:
  /// session and op must outlive the window. It becomes the panel's main window, and its tool area the parent of the
  /// tools.
  PanelWindow(HostSession& session, Operator& op, PathResolver resolve, QWidget* parent = nullptr);
  ~PanelWindow() override;

  [[nodiscard]] QWidget* PanelWidget() override { return this; }
  [[nodiscard]] QWidget* ToolAreaWidget() override { return toolArea_; }
  [[nodiscard]] QString ProgramText() const override;
  [[nodiscard]] bool Working() const override;
  void TimeAdvanced(qint64 milliseconds) override;
  void ResizeToolArea(const QSize& size) override;

  /// Keeps what isn't saved for the next start, and offers what a killed panel has left.
  void KeepJournal(JournalSetup setup);
  /// The system ends the panel: what isn't saved stays for the next start.
  void LeaveForNextStart();

  /// Whether closing asks first when the program has unsaved changes. Off when nobody is there to answer.
  void SetAsksBeforeClosing(bool on) { asks_ = on; }
  void AnswerQuestions(const std::function<bool(const QString& text)>& answer) override { answer_ = answer; }
  /// Carries out the action of a key of the panel, wherever it was pressed. A cover blocks all but the machine's keys.
  void Trigger(Action action);
  void PressMain(int slot);
  void PressSide(int slot);
  /// Handles an Escape that no tool and no dialog took.
  void Escape();

  [[nodiscard]] const PanelLayout& Layout() const { return layout_; }
  [[nodiscard]] TouchDesk& Touch() const { return *touch_; }
  [[nodiscard]] Keyboard& KeyboardOwner() const { return *keyboard_; }

  /// Draws the current state. It is called automatically after every change.
  void UpdateDisplay();
  /// Places the parts anew.
  void LayOut();
  void SwitchLanguage();
  /// Shows the key with which the operator says again how big the screen is.
  void OfferScreenSize();

 signals:
  void LanguageSwitched();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Connect();
  void MakeKeyboard();
  void MakeShortcuts();
  void SetTabOrder();
  void PlaceEditor();
  /// Places the messages, and beside them the key that puts back what was removed.
  void PlaceMessages();
  /// Moves and shrinks the error window so that it is all inside the tool area.
  void PlaceErrors();
  /// Moves the calculator, if there is one, so that all of it can be seen.
  void PlaceCalculator(QWidget* tool);
  /// The PLC message view fills the tool area.
  void PlacePlcView();
  void ShowSideBar();
  void ShowMachine();
  void ShowStartReason();
  void ShowBars();
  void ShowSideKeys();
  [[nodiscard]] std::vector<SoftKeyItem> PanelKeys() const;
  [[nodiscard]] bool ShowsVideo() const;
  void ShowMessages();
  void ConnectErrors();
  void ShowErrors();
  /// Hides the covers while the error window is shown, and shows them again afterwards.
  void LetErrorsPass();
  void AskToClose();
  void OnErrorSign();
  /// Puts the error window away and shows a place in a program.
  void ShowErrorPlace(const std::optional<pnl::rig::ProgramSpot>& spot);
  void OnItem(int tool, int id, std::uint32_t menu);
  void EnableBars();
  [[nodiscard]] bool Covered() const;
  void MakeTouch();
  /// Changes the layout to that with the touch keyboard, while it is up.
  void MakeRoomForTouch();
  void OnTouchChanged();
  /// Moves the tool area and the covers so that what has the keyboard is seen above the touch keyboard.
  void FollowFocus();
  [[nodiscard]] QRect SeenToolArea() const;
  void SendTouched(const TouchStroke& stroke, bool repeated);
  void OnRowKey(RowKey key);
  [[nodiscard]] RowKeyLook LookOfRowKey(RowKey key) const;
  /// Closes the tool when it is in front, else does what opens it or brings it there.
  void ToggleTool(int tool, Action opens);
  void ToggleErrors();

  HostSession& session_;
  Operator& op_;
  PanelLayout layout_;
  PanelLayout rest_;  // the layout without the touch keyboard
  QRect cover_;       // where the covers are then
  QList<QKeySequence> panelKeys_;
  std::optional<QSize> fixedToolArea_;
  bool asks_ = false;
  bool discards_ = false;  // the operator has agreed that the program's changes go
  bool offersScreen_ = false;
  bool errorWindow_ = false;  // the error window was shown at the last look
  enum class InnerKeys { kNone, kFaults, kPlcMessages };
  InnerKeys innerKeys_ = InnerKeys::kNone;  // what the main bar shows in place of the panel's own keys
  std::function<bool(const QString& text)> answer_;
  std::unique_ptr<Keyboard> keyboard_;
  std::unique_ptr<JournalKeeper> journal_;
  LanguageDesk language_;
  std::unique_ptr<TouchDesk> touch_;
};

}  // namespace panel
