// SPDX-License-Identifier: MIT
// The host's side of the library. It hands over the callback table, loads tools, keeps what they asked for (menus,
// message lines, which tools are open) and passes it on with signals. It knows no widget but the parent of the tools,
// so the window, the guided session and the remote control can share one session.
#pragma once

#include <pnltools/pnltools.h>

#include <QObject>
#include <QString>
#include <QVariant>
#include <array>
#include <map>
#include <utility>
#include <vector>

namespace panel {

inline constexpr int kSlotCount = 19;
/// The callbacks' names in slot order, from "HostMayOpenTool" on.
extern const std::array<const char*, kSlotCount> kSlotNames;

/// One line of the message zone, as a tool last set it.
struct MessageLine {
  int tool = -1;
  QString text;
  std::uint32_t back = 0;
  std::uint32_t fore = 0;
};

/// A callback as it came, with its arguments in order. A menu is its raw HostMenuRef handle. A message is a QVariantMap
/// with line, text, back and fore; an error line is one with back, fore, helpRef and header.
struct HostCall {
  int slot = 0;
  QVariantList args;
};

class HostSession : public QObject {
  Q_OBJECT

 public:
  explicit HostSession(QObject* parent = nullptr);
  ~HostSession() override;

  /// The session of this process, or null. A process has only one; the callbacks find it here.
  static HostSession* Current();

  /// Sets the widget that is the parent of the tools and receives their messages.
  void SetToolArea(QWidget* area);
  [[nodiscard]] PnlWindow ToolArea() const { return toolArea_; }
  /// Sets the window to which tools post messages for the whole panel.
  void SetMainWindow(QWidget* window);
  [[nodiscard]] PnlWindow MainWindow() const { return mainWindow_; }
  /// Hands the callback table over with only these slots filled.
  void Offer(const std::vector<int>& slotNumbers);
  void OfferAll();
  /// Sets what a callback returns; only slots 0 and 13 return anything to a tool. A slot out of range is ignored.
  void SetReturn(int slot, int value);
  [[nodiscard]] int ReturnOf(int slot) const { return returns_[static_cast<std::size_t>(slot)]; }

  /// Loads a tool under the parent. Returns its window, or 0 on failure.
  PnlWindow LoadTool(int toolId, PnlWindow parent);
  /// The latest window of that tool that is still alive, or 0.
  [[nodiscard]] PnlWindow ToolWindow(int toolId) const;
  /// All loaded windows that are still alive, in the order of loading.
  [[nodiscard]] std::vector<PnlWindow> ToolWindows() const;
  void DestroyTool(PnlWindow window);
  /// Destroys every tool's window, in the order of loading. A command line is told to close first.
  void CloseAll();

  /// Makes an open tool the front one, above the others, and gives it the keyboard. Does nothing when it isn't open.
  void BringToFront(int toolId);
  /// The operator has turned to the program.
  void WorkInProgram();
  /// Turns to the program, as if the operator had.
  void TurnToProgram();
  /// The tool in which the operator works, or -1 for the program: the tool that he opened or turned to last. When that
  /// one closes, it is the open tool nearest to the front. The error tool only interrupts his work, so it is never this
  /// tool.
  [[nodiscard]] int WorkingTool() const { return workingTool_; }
  /// Gives the keyboard to that window: to the control in it that had it last, with its caret where it was.
  static void FocusWithin(PnlWindow window);
  /// Presses a key in the front tool, as the keyboard does. Does nothing when another tool is in front of it.
  void TypeInto(int toolId, int key);
  /// Whether the control with the focus in that window is a line that takes text.
  [[nodiscard]] static bool IsTypedIn(PnlWindow window);

  /// A tool, and the menu that it handed over last.
  using ToolMenu = std::pair<int, std::uint32_t>;
  /// What a bar shows: the menu of the open tool nearest to the front that has ever handed one over. Tool -1 and menu 0
  /// when there is no such tool, or when its menu is gone.
  [[nodiscard]] ToolMenu MainBar() const { return BarOf(mainMenus_); }
  [[nodiscard]] ToolMenu SideBar() const { return BarOf(sideMenus_); }
  [[nodiscard]] std::uint32_t MainMenu() const { return mainMenu_; }
  [[nodiscard]] std::uint32_t SideMenu() const { return sideMenu_; }
  [[nodiscard]] int MainMenuTool() const { return mainMenuTool_; }
  [[nodiscard]] int SideMenuTool() const { return sideMenuTool_; }
  [[nodiscard]] const std::map<int, MessageLine>& Messages() const { return messages_; }
  /// True between HostToolOpening and HostToolClosed.
  [[nodiscard]] bool IsToolOpen(int toolId) const;
  /// The open tool that opened or was brought to the front last, or -1.
  [[nodiscard]] int FrontTool() const;
  /// Whether the panel reacts to callbacks as it does for an operator. Off under --bare.
  void SetReacting(bool on) { reacting_ = on; }
  [[nodiscard]] bool Reacting() const { return reacting_; }

 signals:
  /// Emitted for every callback, while the tool waits for it to return.
  void Called(const panel::HostCall& call);
  void MainMenuChanged();
  void SideMenuChanged();
  void MessagesChanged();
  void ToolsChanged();
  /// WorkingTool has changed.
  void WorkChanged();
  /// Emitted when a message that a tool sent or posted to the tool area or the main window arrives.
  void MessageArrived(std::uint32_t message, qint64 first, qint64 second);

 private:
  friend struct HostCallbacks;
  void OnCall(const HostCall& call);
  void KeepToolState(int tool, bool open);
  /// Updates WorkingTool after the tool was opened or turned to, or has closed.
  void KeepWorkingTool(int tool, bool open);
  void KeepMessage(int tool, const QVariantMap& message);
  /// Clears the lines below the first one that the tool has shown.
  void DropMessagesOf(int tool);
  [[nodiscard]] static intptr_t OnMessage(void* context, PnlWindow window, std::uint32_t message, intptr_t first,
                                          intptr_t second);
  PnlWindow toolArea_ = 0;
  PnlWindow mainWindow_ = 0;
  std::array<int, kSlotCount> returns_{};
  [[nodiscard]] ToolMenu BarOf(const std::map<int, std::uint32_t>& menus) const;
  std::uint32_t mainMenu_ = 0;
  std::uint32_t sideMenu_ = 0;
  int mainMenuTool_ = -1;
  int sideMenuTool_ = -1;
  std::map<int, std::uint32_t> mainMenus_;  // by tool: the menu that it handed over last
  std::map<int, std::uint32_t> sideMenus_;
  bool reacting_ = true;
  std::map<int, MessageLine> messages_;
  std::vector<std::pair<int, PnlWindow>> loaded_;
  std::vector<int> openFrontLast_;  // the open tools
  int workingTool_ = -1;
};

}  // namespace panel
