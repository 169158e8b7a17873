// SPDX-License-Identifier: MIT
// The host's side of the library: hands the callback table over, loads tools, keeps what they asked for (menus,
// message lines, who is open) and passes it on to whoever listens. Knows no widget but the parent of the tools, so
// that the window, the guided session and the remote control share one session.
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
/// "HostMayOpenTool", … in slot order.
extern const std::array<const char*, kSlotCount> kSlotNames;

/// One line of the message zone as last shown.
struct MessageLine {
  QString text;
  std::uint32_t back = 0;
  std::uint32_t fore = 0;
};

/// A callback as it came: the arguments as QVariants in order (a menu as its raw HostMenuRef handle, a message as
/// QVariantMap line, text, back, fore; an error line as back, fore, helpRef, header).
struct HostCall {
  int slot = 0;
  QVariantList args;
};

class HostSession : public QObject {
  Q_OBJECT

 public:
  explicit HostSession(QObject* parent = nullptr);
  ~HostSession() override;

  /// Only one session exists in a process; the callbacks find it here.
  static HostSession* Current();

  /// The widget under which tools live and which takes their messages.
  void SetToolArea(QWidget* area);
  [[nodiscard]] PnlWindow ToolArea() const { return toolArea_; }
  /// The window to which tools post what is meant for the whole panel.
  void SetMainWindow(QWidget* window);
  [[nodiscard]] PnlWindow MainWindow() const { return mainWindow_; }
  /// Hands the table over with only these slots filled.
  void Offer(const std::vector<int>& slotNumbers);
  void OfferAll();
  /// What slots 0 and 13 answer.
  void SetReturn(int slot, int value);
  [[nodiscard]] int ReturnOf(int slot) const { return returns_[static_cast<std::size_t>(slot)]; }

  /// 0 on failure.
  PnlWindow LoadTool(int toolId, PnlWindow parent);
  /// The last window loaded for that tool that is still alive, else 0.
  [[nodiscard]] PnlWindow ToolWindow(int toolId) const;
  /// All windows ever loaded that are alive, in order.
  [[nodiscard]] std::vector<PnlWindow> ToolWindows() const;
  void DestroyTool(PnlWindow window);
  /// Closes every tool in order.
  void CloseAll();

  /// Makes an open tool the front one, above the others, and gives it the keyboard.
  void BringToFront(int toolId);
  /// The operator turned to the program.
  void WorkInProgram() { workingTool_ = -1; }
  /// The tool in which the operator works, -1 for the program: the tool that he opened or turned to last, and when that
  /// closes the open one nearest to the front. Errors interrupt his work; their window is never it.
  [[nodiscard]] int WorkingTool() const { return workingTool_; }
  /// The keyboard to that window: to the control in it that had it last, with its caret.
  static void FocusWithin(PnlWindow window);
  /// Whether the keyboard in that window belongs to a line that takes text.
  [[nodiscard]] static bool IsTypedIn(PnlWindow window);

  /// A tool and the menu that it handed over last.
  using ToolMenu = std::pair<int, std::uint32_t>;
  /// What a bar shows: the menu of the open tool nearest to the front that ever handed one over. Tool -1 and menu 0
  /// when there is no such tool, or the menu is gone.
  [[nodiscard]] ToolMenu MainBar() const { return BarOf(mainMenus_); }
  [[nodiscard]] ToolMenu SideBar() const { return BarOf(sideMenus_); }
  [[nodiscard]] std::uint32_t MainMenu() const { return mainMenu_; }
  [[nodiscard]] std::uint32_t SideMenu() const { return sideMenu_; }
  [[nodiscard]] int MainMenuTool() const { return mainMenuTool_; }
  [[nodiscard]] int SideMenuTool() const { return sideMenuTool_; }
  [[nodiscard]] const std::map<int, MessageLine>& Messages() const { return messages_; }
  /// Between HostToolOpening and HostToolClosed.
  [[nodiscard]] bool IsToolOpen(int toolId) const;
  /// The tool that opened last of those that are open, else -1.
  [[nodiscard]] int FrontTool() const;
  /// Whether the panel reacts to callbacks as a host does in a session with an operator (off under --bare).
  void SetReacting(bool on) { reacting_ = on; }
  [[nodiscard]] bool Reacting() const { return reacting_; }

 signals:
  /// Every callback, at the moment it is made.
  void Called(const panel::HostCall& call);
  void MainMenuChanged();
  void SideMenuChanged();
  void MessagesChanged();
  void ToolsChanged();
  /// A message that a tool sent or posted to the tool area or the main window, when it arrives.
  void MessageArrived(std::uint32_t message, qint64 first, qint64 second);

 private:
  friend struct HostCallbacks;
  void OnCall(const HostCall& call);
  void KeepToolState(int tool, bool open);
  /// Who is worked in after the tool was opened or turned to, or has closed.
  void KeepWorkingTool(int tool, bool open);
  void KeepMessage(const QVariantMap& message);
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
  std::map<int, std::uint32_t> mainMenus_;  // by tool, as each handed it over last
  std::map<int, std::uint32_t> sideMenus_;
  bool reacting_ = true;
  std::map<int, MessageLine> messages_;
  std::vector<std::pair<int, PnlWindow>> loaded_;
  std::vector<int> open_;  // in the order of opening
  int workingTool_ = -1;
};

}  // namespace panel
