// SPDX-License-Identifier: MIT
#include "ui/keyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <chrono>
#include <limits>

#include "host/error_desk.h"
#include "ui/program_editor.h"

namespace panel {
namespace {

/// Nobody can read an error window and act on it in less time than this.
constexpr qint64 kReadingMilliseconds = 500;
constexpr qint64 kLongAgo = std::numeric_limits<qint64>::min() / 2;

qint64 SteadyMilliseconds() {
  using std::chrono::steady_clock;
  return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

/// The tool whose window a widget belongs to; -1 for a widget of the panel itself.
int ToolOf(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
    const QVariant tool = at->property("pnlTool");
    if (tool.isValid()) return tool.toInt();
  }
  return -1;
}

bool IsIn(const QWidget* place, const QWidget& widget) {
  return place != nullptr && (place == &widget || place->isAncestorOf(&widget));
}

bool ActsOnErrors(const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  return key.key() == Qt::Key_Escape || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

Keyboard::Keyboard(QWidget& panel, QWidget& toolArea, ProgramEditor& editor, HostSession& session, ErrorDesk& errors)
    : panel_(panel),
      toolArea_(toolArea),
      editor_(editor),
      session_(session),
      clock_(&SteadyMilliseconds),
      errorsCameAt_(kLongAgo) {
  connect(&session_, &HostSession::ToolsChanged, this, &Keyboard::OnToolsChanged);
  connect(&errors, &ErrorDesk::WindowCame, this, &Keyboard::OnErrorsCame);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
  qApp->installEventFilter(this);
}

Keyboard::~Keyboard() = default;

void Keyboard::AddCover(QWidget* cover, std::function<void()> focus) { covers_.push_back({cover, std::move(focus)}); }

const Keyboard::Cover* Keyboard::SeenCover() const {
  const Cover* seen = nullptr;
  // The children of a widget are ordered from the lowest to the topmost.
  const auto& order = panel_.children();
  for (const Cover& cover : covers_) {
    if (!cover.widget->isVisible()) continue;
    if (seen == nullptr || order.indexOf(cover.widget) > order.indexOf(seen->widget)) seen = &cover;
  }
  return seen;
}

QWidget* Keyboard::ToolWidget(int tool) const { return static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(tool))); }

QWidget* Keyboard::ErrorWindowInFront() const {
  if (session_.FrontTool() != PNL_TOOL_ERRORS) return nullptr;
  QWidget* window = ToolWidget(PNL_TOOL_ERRORS);
  return window != nullptr && window->isVisible() ? window : nullptr;
}

bool Keyboard::ProgramIsHidden() const {
  const auto windows = session_.ToolWindows();
  return std::any_of(windows.begin(), windows.end(), [this](PnlWindow window) {
    const auto* tool = static_cast<const QWidget*>(PnlWidgetOf(window));
    return tool != nullptr && tool->isVisible() && tool->geometry().contains(toolArea_.rect());
  });
}

int Keyboard::Owner() const {
  if (ErrorWindowInFront() != nullptr) return PNL_TOOL_ERRORS;
  const int working = session_.WorkingTool();
  return working < 0 && ProgramIsHidden() ? session_.FrontTool() : working;
}

bool Keyboard::MayHave(const QWidget& widget) const {
  if (const Cover* cover = SeenCover()) return IsIn(cover->widget, widget);
  // A closing cover is hidden before its own widgets are.
  if (std::any_of(covers_.begin(), covers_.end(), [&](const Cover& cover) { return IsIn(cover.widget, widget); })) {
    return false;
  }
  const int owner = Owner();
  const int tool = ToolOf(widget);
  if (tool == owner && tool >= 0) return true;
  if (owner == PNL_TOOL_ERRORS) return false;
  if (IsIn(&editor_, widget)) return owner < 0;
  // Tab also leads to the panel's keys, and a widget that a tool opens beside its window counts as the panel's. A tool
  // that never reported that it opened may have the focus, because the panel knows nothing of it.
  return tool < 0 || !session_.IsToolOpen(tool);
}

void Keyboard::Restore() {
  const QScopedValueRollback giving(giving_, true);
  if (!panel_.isActiveWindow() || QApplication::activePopupWidget() != nullptr) return;
  // A tool reports that it opens before it is visible, and then takes the keyboard itself.
  const QWidget* front = ToolWidget(session_.FrontTool());
  if (front != nullptr && !front->isVisible()) return;
  const QWidget* focus = QApplication::focusWidget();
  if (focus != nullptr && focus->window() == &panel_ && focus->isVisible() && focus->isEnabled() && MayHave(*focus)) {
    return;
  }
  if (const Cover* cover = SeenCover()) return cover->focus();
  const int owner = Owner();
  if (owner < 0) return editor_.setFocus();
  HostSession::FocusWithin(session_.ToolWindow(owner));
}

bool Keyboard::MoveFocus(bool next, const std::function<bool(bool)>& move) {
  const QWidget* from = panel_.focusWidget();
  // Qt also comes here when a widget that has the focus hides or is disabled. Nobody pressed Tab then.
  if (from != nullptr && from != &panel_ && (!from->isVisible() || !from->isEnabled())) {
    Restore();
    return true;
  }
  const QScopedValueRollback moving(moving_, true);
  return move(next);
}

void Keyboard::OnFocusChanged(QWidget* now) {
  if (giving_ || !session_.Reacting()) return;
  if (now == nullptr) {
    // The widget that gave up the focus may pass it on at once, as a tool does that starts a block. So this waits.
    QMetaObject::invokeMethod(this, &Keyboard::Restore, Qt::QueuedConnection);
    return;
  }
  if (now->window() != &panel_) return;
  // Only the panel gives the focus to the program, and it does so for the operator.
  if (IsIn(&editor_, *now)) session_.WorkInProgram();
  if (moving_) OnTouched(*now);
  if (!MayHave(*now)) Restore();
}

void Keyboard::OnToolsChanged() {
  const int front = session_.FrontTool();
  const bool lastWent = front < 0 && frontTool_ >= 0;
  frontTool_ = front;
  if (session_.Reacting() || lastWent) Restore();
}

void Keyboard::OnTouched(QWidget& widget) {
  if (!session_.Reacting() || widget.window() != &panel_ || SeenCover() != nullptr) return;
  const int tool = ToolOf(widget);
  if (tool < 0) {
    if (IsIn(&editor_, widget)) session_.WorkInProgram();
    return;
  }
  // While the error window is in front, a touch beside it brings no other tool to the front.
  if (!session_.IsToolOpen(tool) || ErrorWindowInFront() != nullptr) return;
  const bool worked = tool == session_.WorkingTool() || tool == PNL_TOOL_ERRORS;
  if (!worked || tool != session_.FrontTool()) session_.BringToFront(tool);
}

void Keyboard::OnErrorsCame() {
  errorsCameAt_ = clock_();
  const QWidget* focus = QApplication::focusWidget();
  // Enter in a field of its bars means something else.
  typedInProgram_ = focus != nullptr && IsIn(&editor_.Edit(), *focus);
}

bool Keyboard::ErrorsJustCame() const { return clock_() - errorsCameAt_ < kReadingMilliseconds; }

bool Keyboard::KeyWasOnItsWay(const QKeyEvent& key, bool atErrors) {
  if (!ActsOnErrors(key)) return false;
  const bool heldBefore = key.isAutoRepeat() && key.key() == heldKey_;
  const bool early = heldBefore || ErrorsJustCame();
  heldKey_ = atErrors && !early ? 0 : key.key();
  return atErrors && early;
}

bool Keyboard::WasOnItsWay(const QWidget& watched, const QEvent& event) {
  // Only an event from the window system can have been on its way. Events that the panel or a script sends are meant
  // for this widget.
  if (!event.spontaneous()) return false;
  const bool atErrors = &watched == ErrorWindowInFront();
  if (event.type() != QEvent::KeyPress) return atErrors && ErrorsJustCame();
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (!KeyWasOnItsWay(key, atErrors)) return false;
  // An Enter that was typed into the program belongs there: without it two blocks would become one.
  if (typedInProgram_ && key.key() != Qt::Key_Escape) editor_.Insert(QStringLiteral("\n"));
  return true;
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  if (!press && type != QEvent::KeyPress && type != QEvent::FocusIn) return false;
  if (!watched->isWidgetType()) return false;
  QWidget& widget = *static_cast<QWidget*>(watched);
  if (type != QEvent::FocusIn && WasOnItsWay(widget, *event)) return true;
  const bool touched =
      press || (type == QEvent::FocusIn && static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason);
  if (touched) OnTouched(widget);
  return false;
}

}  // namespace panel
