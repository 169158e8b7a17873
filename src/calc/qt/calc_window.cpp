// SPDX-License-Identifier: MIT
#include "calc/qt/calc_window.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <optional>
#include <utility>

#include "calc/calc_ids.h"
#include "calc/calc_places.h"
#include "calc/qt/calc_look.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

/// How long an event may compute before the next event is handled. What takes longer goes on in slices.
constexpr int kMomentMilliseconds = 40;
constexpr int kSliceMilliseconds = 8;

constexpr Qt::KeyboardModifiers kCommandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

std::optional<CalcKey> PlainKey(int key, bool shift) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return CalcKey::kEnter;
    case Qt::Key_Left:
      return CalcKey::kLeft;
    case Qt::Key_Right:
      return CalcKey::kRight;
    case Qt::Key_Up:
      return CalcKey::kUp;
    case Qt::Key_Down:
      return CalcKey::kDown;
    default:
      break;
  }
  // With Shift, Insert pastes, Delete cuts and Escape acknowledges errors.
  if (shift) return std::nullopt;
  switch (key) {
    case Qt::Key_Escape:
      return CalcKey::kEscape;
    case Qt::Key_Insert:
      return CalcKey::kInsert;
    case Qt::Key_Delete:
      return CalcKey::kDelete;
    default:
      return std::nullopt;
  }
}

std::optional<CalcKey> ControlKey(int key, bool shift) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return PlainKey(key, shift);
    default:
      break;
  }
  if (shift) return std::nullopt;
  switch (key) {
    case Qt::Key_B:
      return CalcKey::kBases;
    case Qt::Key_R:
      return CalcKey::kVariables;
    case Qt::Key_E:
      return CalcKey::kSolver;
    default:
      return std::nullopt;
  }
}

/// The key if it is one that the session gets before the controls.
std::optional<CalcKey> LogicKey(const QKeyEvent& event) {
  const auto held = event.modifiers() & kCommandKeys;
  const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
  if (held == Qt::NoModifier) return PlainKey(event.key(), shift);
  if (held == Qt::ControlModifier) return ControlKey(event.key(), shift);
  if (held == Qt::AltModifier && event.key() == Qt::Key_F4) return CalcKey::kAltF4;
  return std::nullopt;
}

}  // namespace

ZCCalc7340::Clock ZCCalc7340::SteadyClock() {
  QElapsedTimer clock;
  clock.start();
  return [clock] { return clock.elapsed(); };
}

ZCCalc7340::ZCCalc7340(const ToolContext& context, QWidget* parent, std::int32_t param, Clock clock)
    : ToolWindowWith(PNL_TOOL_CALCULATOR, parent), context_(context), clock_(std::move(clock)) {
  const double scale = DialogScale(physicalDpiX(), ParentClientRect());
  setProperty(property::kMenuAttached, false);
  SetBackProperty(calc_look::kGroundColor);
  setPalette(calc_look::DialogPalette());
  setAutoFillBackground(true);
  client_ = new CalcClientWidget(context_.language, scale, this);
  setFocusProxy(&client_->Line());
  const int letters = client_->Scaled(calc_look::kNoteHeight);
  if (parent != nullptr) note_ = new CalcNoteWidget(calc_id::kNote, Handle(), letters, parent);
  const CalcExtent extent = CalcDialogUnits();
  resize(DialogPixelsX(extent.width, scale), DialogPixelsY(extent.height, scale));
  CalcView& view = *this;
  session_.Make(context_, view, param);
  Connect();
}

ZCCalc7340::~ZCCalc7340() {
  EndMessages();
  // The controls are destroyed after this object and may lose the focus then.
  client_->disconnect(this);
  client_->History().SetNotes({});
  for (QWidget* control : {static_cast<QWidget*>(&client_->Line()), static_cast<QWidget*>(&client_->History()),
                           static_cast<QWidget*>(&client_->Variables())}) {
    control->disconnect(this);
    control->removeEventFilter(this);
  }
  session_.End();
  delete note_;
}

void ZCCalc7340::Connect() {
  connect(client_, &CalcClientWidget::KeyPressed, this,
          [this](int id) { Tell([id](CalcSession& session) { session.OnButton(id); }); });
  connect(client_, &CalcClientWidget::HistorySelected, this,
          [this] { Tell([](CalcSession& session) { session.OnListSelection(); }); });
  connect(client_, &CalcClientWidget::HistoryDoubleClicked, this,
          [this] { Tell([](CalcSession& session) { session.OnListDoubleClick(); }); });
  client_->History().SetNotes([this](int row) {
    ListNote note;
    // A value without its last digits is a wrong one.
    note.leads = true;
    // Painting isn't an event of the operator: only the session is asked, and nothing follows from it.
    session_.Tell([&](CalcSession& session) { note.words = session.RowValue(row, client_->History().Item(row)); });
    return note;
  });
  connect(client_, &CalcClientWidget::VariablesPicked, this,
          [this] { Tell([](CalcSession& session) { session.OnVariablesPicked(); }); });
  connect(&client_->Line(), &QLineEdit::textChanged, this,
          [this] { Tell([](CalcSession& session) { session.OnLineChanged(); }); });
  connect(&client_->Line(), &CalcLine::Pressed, this,
          [this] { Tell([](CalcSession& session) { session.OnLinePressed(); }); });
  client_->Line().installEventFilter(this);
  client_->History().installEventFilter(this);
  client_->Variables().installEventFilter(this);
}

void ZCCalc7340::Start() {
  Tell([](CalcSession& session) { session.Open(); });
}

bool ZCCalc7340::Tell(const std::function<void(CalcSession&)>& intention) {
  ++depth_;
  if (!session_.Tell(intention)) return false;
  --depth_;
  return depth_ != 0 || (Compute(kMomentMilliseconds) && ShowRemoval());
}

bool ZCCalc7340::ShowRemoval() {
  return session_.Tell([this](const CalcSession& session) { SetRemovedProperty(session.RemovalNumber()); });
}

bool ZCCalc7340::Compute(int milliseconds) {
  const std::int64_t end = clock_() + milliseconds;
  while (true) {
    bool computing = false;
    if (!session_.Tell([&](CalcSession& session) { computing = session.IsComputing(); })) return false;
    if (!computing || clock_() >= end) return true;
    ++depth_;
    if (!session_.Tell([](CalcSession& session) { session.Work(); })) return false;
    --depth_;
  }
}

std::intptr_t ZCCalc7340::OnMessage(const Message& message) {
  static const std::uint32_t handleValue = RegisterMessage(PNL_NAME_HANDLE_VALUE);
  std::intptr_t answer = 0;
  if (message.number == PNL_MSG_COMMAND) {
    Tell([&](CalcSession& session) { session.OnMenuCommand(static_cast<int>(message.first)); });
  } else if (message.number == PNL_MSG_TOOL_COMMAND) {
    Tell([&](CalcSession& session) { answer = session.OnToolCommand(message.first); });
  } else if (message.number == handleValue) {
    Tell([](CalcSession& session) { session.OnHandleValue(); });
  } else {
    Tell([&](CalcSession& session) { answer = session.OnKeptWork(message).value_or(0); });
  }
  return answer;
}

bool ZCCalc7340::OnKeyDown(QObject* watched, QKeyEvent& event) {
  const bool typing = watched == &client_->Line() && (event.modifiers() & kCommandKeys) == 0;
  const auto key = LogicKey(event);
  if (!key) {
    const bool taken = typing && OnCharacter(event.text());
    // Qt passes a key that isn't accepted to the parents.
    if (taken) event.accept();
    return taken;
  }
  const bool ctrl = (event.modifiers() & Qt::ControlModifier) != 0 && PlainKey(event.key(), false).has_value();
  bool consumed = false;
  bool listOpen = false;
  const bool there = Tell([&](CalcSession& session) {
    // If the key destroys the window, OnKey doesn't return. The key was meant for the calculator then.
    consumed = true;
    consumed = session.OnKey(*key, ctrl);
    listOpen = session.IsListOpen();
  });
  if (consumed) event.accept();
  if (consumed || !there) return true;
  const bool upOrDown = key == CalcKey::kUp || key == CalcKey::kDown;
  if (!upOrDown || !listOpen || watched != &client_->Line()) return false;
  // The list gets Up and Down even if the line has the focus.
  QApplication::sendEvent(&client_->History(), &event);
  return true;
}

bool ZCCalc7340::OnCharacter(const QString& typed) {
  if (typed.size() != 1) return false;
  bool taken = false;
  const bool there = Tell([&](CalcSession& session) { taken = session.OnCharacter(typed.front().unicode()); });
  return taken || !there;
}

bool ZCCalc7340::OnCommitted(QInputMethodEvent& event) {
  // The character comes from a dead key or from a keyboard on the screen. It is handled like a typed one.
  if (event.commitString().size() != 1 || !event.preeditString().isEmpty() || event.replacementLength() != 0) {
    return false;
  }
  if (!OnCharacter(event.commitString())) return false;
  event.accept();
  QApplication::inputMethod()->reset();
  return true;
}

bool ZCCalc7340::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && OnKeyDown(this, static_cast<QKeyEvent&>(*event))) return true;
  return ToolWindow::event(event);
}

bool ZCCalc7340::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return OnKeyDown(watched, static_cast<QKeyEvent&>(*event));
    case QEvent::InputMethod:
      return watched == &client_->Line() && OnCommitted(static_cast<QInputMethodEvent&>(*event));
    case QEvent::ShortcutOverride:
      // The keys of the calculator come before the panel's shortcuts.
      if (LogicKey(static_cast<QKeyEvent&>(*event))) event->accept();
      return false;
    default:
      return false;
  }
}

bool ZCCalc7340::focusNextPrevChild(bool next) {
  if (!isVisible()) return ToolWindow::focusNextPrevChild(next);
  // As in every dialog, Tab moves between its own controls only. The keys of the keypad take no focus. The reason isn't
  // Tab, because that would select the whole line, and a list that closes comes here too.
  for (QWidget* list : {static_cast<QWidget*>(&client_->History()), static_cast<QWidget*>(&client_->Variables())}) {
    if (list->isVisible() && !list->hasFocus()) {
      list->setFocus(Qt::OtherFocusReason);
      return true;
    }
  }
  FocusLine();
  return true;
}

void ZCCalc7340::timerEvent(QTimerEvent* event) {
  if (event->timerId() != work_.timerId()) return ToolWindow::timerEvent(event);
  Compute(kSliceMilliseconds);
}

void ZCCalc7340::mousePressEvent(QMouseEvent* event) { event->accept(); }

void ZCCalc7340::hideEvent(QHideEvent* /*event*/) { PlaceNote(); }

void ZCCalc7340::showEvent(QShowEvent* /*event*/) { PlaceNote(); }

void ZCCalc7340::moveEvent(QMoveEvent* /*event*/) { PlaceNote(); }

void ZCCalc7340::resizeEvent(QResizeEvent* /*event*/) {
  LayOut();
  PlaceNote();
}

}  // namespace pnl
