// SPDX-License-Identifier: MIT
// The panel's window: it places the parts, turns keys and callbacks into one action each, and draws everything from the
// state of the session and the operator in UpdateDisplay. It decides nothing that could be decided without a window.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>
#include <memory>
#include <optional>

#include "host/host_session.h"
#include "host/operator.h"
#include "remote/panel_face.h"
#include "ui/file_request.h"
#include "ui/panel_layout.h"

namespace panel {

class AxisDisplay;
class ErrorHelpCover;
class ErrorListCover;
class FileChooser;
class Keyboard;
class MessageZone;
class ModalLine;
class OperatorKeys;
class ProgramDesk;
class ProgramEditor;
class Question;
class Readings;
class SoftKeyBar;
class StatusStrip;

class PanelWindow : public QWidget, public PanelFace {
  Q_OBJECT

 public:
  /// Session and operator must outlive the window, which becomes the tools' parent and the panel's main window.
  PanelWindow(HostSession& session, Operator& op, PathResolver resolve, QWidget* parent = nullptr);
  ~PanelWindow() override;

  [[nodiscard]] QWidget* PanelWidget() override { return this; }
  [[nodiscard]] QWidget* ToolAreaWidget() override { return toolArea_; }
  [[nodiscard]] QString ProgramText() const override;
  [[nodiscard]] bool Working() const override;
  void ResizeToolArea(const QSize& size) override;

  /// Whether closing asks for changes that no file has; off where nobody is there to answer.
  void SetAsksBeforeClosing(bool on) { asks_ = on; }
  void AnswerQuestions(const std::function<bool(const QString& text)>& answer) override { answer_ = answer; }
  /// What a key of the panel does, wherever it was pressed.
  void Trigger(Action action);
  void PressMain(int slot);
  void PressSide(int slot);
  /// Escape that no tool and no dialog took.
  void Escape();

  [[nodiscard]] const PanelLayout& Layout() const { return layout_; }
  [[nodiscard]] SoftKeyBar& MainBar() const { return *mainBar_; }
  [[nodiscard]] SoftKeyBar& SideBar() const { return *sideBar_; }
  [[nodiscard]] OperatorKeys& Keys() const { return *keys_; }
  [[nodiscard]] MessageZone& Zone() const { return *zone_; }
  [[nodiscard]] StatusStrip& Status() const { return *status_; }
  [[nodiscard]] Readings& Shown() const { return *readings_; }
  [[nodiscard]] AxisDisplay& Axes() const { return *axes_; }
  [[nodiscard]] ProgramEditor& Editor() const { return *editor_; }
  [[nodiscard]] FileChooser& Chooser() const { return *chooser_; }
  [[nodiscard]] ErrorHelpCover& ErrorHelpShown() const { return *errorHelp_; }
  [[nodiscard]] ErrorListCover& ErrorsShown() const { return *errorList_; }
  [[nodiscard]] Question& Asking() const { return *question_; }
  [[nodiscard]] ProgramDesk& Desk() const { return *desk_; }
  [[nodiscard]] Keyboard& Focus() const { return *keyboard_; }

  /// Draws the present state. Called by itself when something changed.
  void UpdateDisplay();

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
  void LayOut();
  void PlaceEditor();
  /// The error window inside the tool area, whole.
  void PlaceErrors();
  void ShowSideBar();
  void ShowMachine();
  void ShowBars();
  void ShowMessages();
  void ShowChooser();
  void ConnectErrors();
  void ShowErrors();
  /// Covers step back while the error window stands and come again behind it.
  void LetErrorsPass();
  void AskToClose();
  void OnErrorSign();
  void OnItem(int tool, int id, std::uint32_t menu);
  /// The soft keys rest while something covers what they act on.
  void EnableBars();
  [[nodiscard]] bool Covered() const;

  HostSession& session_;
  Operator& op_;
  PanelLayout layout_;
  QList<QKeySequence> panelKeys_;
  std::optional<QSize> fixedToolArea_;
  bool asks_ = false;
  bool errorWindow_ = false;  // the error window stood at the last look
  bool faultKeys_ = false;    // the main bar has the demo machine's faults
  std::function<bool(const QString& text)> answer_;
  StatusStrip* status_;
  Readings* readings_;
  AxisDisplay* axes_;
  ModalLine* modal_;
  QWidget* toolArea_;
  ProgramEditor* editor_;
  SoftKeyBar* sideBar_;
  MessageZone* zone_;
  SoftKeyBar* mainBar_;
  OperatorKeys* keys_;
  FileChooser* chooser_;
  Question* question_;
  ProgramDesk* desk_;
  ErrorHelpCover* errorHelp_;
  ErrorListCover* errorList_;
  std::unique_ptr<Keyboard> keyboard_;
};

}  // namespace panel
