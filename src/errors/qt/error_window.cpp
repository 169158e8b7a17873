// SPDX-License-Identifier: MIT
#include "errors/qt/error_window.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <optional>

#include "controls/fonts.h"
#include "errors/error_ids.h"
#include "errors/error_places.h"
#include "errors/qt/error_counter_widget.h"
#include "errors/threaded_line_reader.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kBoldWeight = 700;
/// A press this many pixels beside a picture still counts as a press on it. Fingers are not exact.
constexpr int kReach = 4;
/// How far one step of a wheel moves the description.
constexpr int kWheelPixels = 60;

/// Whether a key is held that makes another one a command.
bool IsCommand(const QKeyEvent& event) {
  return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier)) != 0;
}

std::optional<ErrorKey> LogicKey(const QKeyEvent& event) {
  if (IsCommand(event)) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Left:
      return ErrorKey::kLeft;
    case Qt::Key_Right:
      return ErrorKey::kRight;
    case Qt::Key_Up:
      return ErrorKey::kUp;
    case Qt::Key_Down:
      return ErrorKey::kDown;
    case Qt::Key_Escape:
      return ErrorKey::kEscape;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return ErrorKey::kEnter;
    default:
      return std::nullopt;
  }
}

/// By how many pages the key moves the description.
int PagesOf(const QKeyEvent& event) {
  if (IsCommand(event)) return 0;
  return event.key() == Qt::Key_PageDown ? 1 : event.key() == Qt::Key_PageUp ? -1 : 0;
}

QFont FontOf(const ErrorFont& font) {
  QFont made = MakeFont(ToQString(font.face), font.height, font.weight).value_or(QFont());
  made.setItalic(font.italic);
  made.setUnderline(font.underline);
  made.setStrikeOut(font.strikeOut);
  return made;
}

}  // namespace

ZCErrorManager::ZCErrorManager(const ToolContext& context, QWidget* parent)
    : ToolWindowWith(PNL_TOOL_ERRORS, parent), context_(context), classColor_(ErrorColorOf(ErrorClass::kError)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  MakeControls();
  ErrorView& view = *this;
  session_.Make(context_, view, std::make_unique<ThreadedLineReader>(context_.files, context_.worker));
  SetClassColor(classColor_);
}

ZCErrorManager::~ZCErrorManager() {
  EndMessages();
  session_.End();
}

void ZCErrorManager::Start() {
  session_.Tell([](ErrorSession& session) { session.Start(); });
}

void ZCErrorManager::MakeControls() {
  for (const ErrorControl& control : ErrorControls()) {
    QWidget* widget = nullptr;
    switch (control.kind) {
      case ErrorControlKind::kBox:
        widget = new ZC3DText(control.id, this);
        break;
      case ErrorControlKind::kText:
        widget = new ErrorTextWidget(control.id, control.id == error_id::kTitleLine, this);
        break;
      case ErrorControlKind::kCounter:
        widget = new ErrorCounterWidget(control.id, this);
        break;
      case ErrorControlKind::kPicture:
        widget = new ErrorPictureWidget(control.id, context_.language.Bitmap(control.picture),
                                        ToQString(control.instead), this);
        break;
    }
    controls_[control.id] = widget;
    // The window gets all presses and looks which picture is there, so that it sees a double click beside them too.
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    const bool always = control.kind == ErrorControlKind::kText || control.id == error_id::kTitleBox;
    widget->setVisible(always);
  }
  titleLine_ = static_cast<ErrorTextWidget*>(controls_[error_id::kTitleLine]);
  description_ = static_cast<ErrorTextWidget*>(controls_[error_id::kDescription]);
  titleBox_ = static_cast<ZC3DText*>(controls_[error_id::kTitleBox]);
  channelBox_ = static_cast<ZC3DText*>(controls_[error_id::kChannelBox]);
}

void ZCErrorManager::ScaleDialog(double scale) {
  const DialogTemplate* dialog = context_.language.Dialog(error_id::kDialog);
  for (const ErrorControl& control : ErrorControls()) {
    controls_.at(control.id)->setGeometry(ToQRect(PixelsOf(control, dialog, scale)));
  }
  resize(DialogPixelsX(kErrorDialogWidth, scale), DialogPixelsY(kErrorDialogHeight, scale));
}

std::intptr_t ZCErrorManager::OnMessage(const Message& message) {
  static const std::uint32_t helpEnded = RegisterMessage(PNL_NAME_ERROR_HELP_ENDED);
  std::intptr_t answer = 0;
  session_.Tell([&](ErrorSession& session) {
    if (message.number == PNL_MSG_VARIABLE_REPORT) {
      session.OnReport(message.first, message.second);
    } else if (message.number == PNL_MSG_TOOL_NOTIFY) {
      session.OnToolNotify(message.first, message.second);
    } else if (message.number == PNL_MSG_HELP_KEY) {
      answer = session.ShowHelp() ? 1 : 0;
    } else if (message.number == helpEnded) {
      session.HelpEnded();
    }
  });
  return answer;
}

bool ZCErrorManager::OnKeyDown(QKeyEvent& event) {
  if (const int pages = PagesOf(event)) {
    description_->PullBy(pages * description_->height());
    return true;
  }
  const auto key = LogicKey(event);
  if (!key) return false;
  event.accept();
  session_.Tell([key](ErrorSession& session) { session.OnKey(*key); });
  return true;
}

bool ZCErrorManager::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event))) return true;
  // The keys of the window come before the panel's shortcuts.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (LogicKey(key) || PagesOf(key) != 0) event->accept();
  }
  return ToolWindow::event(event);
}

bool ZCErrorManager::focusNextPrevChild(bool next) {
  // No control of the window takes the focus. The panel must not get the keys while the window is shown.
  return isVisible() ? true : ToolWindow::focusNextPrevChild(next);
}

void ZCErrorManager::resizeEvent(QResizeEvent* /*event*/) {
  session_.Tell([](ErrorSession& session) { session.OnResized(); });
}

int ZCErrorManager::PictureAt(const QPoint& place) const {
  for (const ErrorControl& control : ErrorControls()) {
    if (control.kind != ErrorControlKind::kPicture) continue;
    const QWidget* widget = controls_.at(control.id);
    // Neighbours are ten pixels apart, so no place belongs to two pictures.
    const QRect reach = widget->geometry().adjusted(-kReach, -kReach, kReach, kReach);
    if (widget->isVisible() && reach.contains(place)) return control.id;
  }
  return 0;
}

void ZCErrorManager::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint place = event->position().toPoint();
  // The window may have missed the release of the press before.
  pulledFrom_.reset();
  if (description_->geometry().contains(place)) pulledFrom_ = place.y();
  const int id = PictureAt(place);
  session_.Tell([id](ErrorSession& session) { session.OnClick(id); });
}

void ZCErrorManager::mouseMoveEvent(QMouseEvent* event) {
  if (!pulledFrom_) return;
  const int y = event->position().toPoint().y();
  description_->PullBy(*pulledFrom_ - y);
  pulledFrom_ = y;
}

void ZCErrorManager::mouseReleaseEvent(QMouseEvent* /*event*/) { pulledFrom_.reset(); }

void ZCErrorManager::wheelEvent(QWheelEvent* event) {
  description_->PullBy(-event->angleDelta().y() * kWheelPixels / QWheelEvent::DefaultDeltasPerStep);
}

void ZCErrorManager::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int id = PictureAt(event->position().toPoint());
  session_.Tell([id](ErrorSession& session) { session.OnDoubleClick(id); });
}

void ZCErrorManager::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), ToQColor(classColor_)); }

void ZCErrorManager::SetWindowRect(const Rect& rect) { setGeometry(ToQRect(rect)); }

void ZCErrorManager::SetWaitCursor(bool waiting) {
  if (waiting) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void ZCErrorManager::RegisterHotKey(bool registered) {
  delete hotKey_;
  QWidget* parent = parentWidget();
  if (!registered || parent == nullptr) return;
  // The shortcut belongs to the top-level window, because a hidden window's shortcut doesn't work.
  hotKey_ = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_W), parent->window());
  hotKey_->setContext(Qt::ApplicationShortcut);
  hotKey_->setProperty(property::kOwner, static_cast<int>(Handle()));
  connect(hotKey_, &QShortcut::activated, this,
          [this] { session_.Tell([](ErrorSession& session) { session.OnHotKey(); }); });
}

void ZCErrorManager::SetFonts(const ErrorFont& title, const ErrorFont& text) {
  const QFont titleFont = FontOf(title);
  for (ZC3DText* box : {titleBox_, channelBox_}) box->SetFont(ToQString(title.face), title.height, titleFont);
  titleLine_->SetTextFont(FontOf(text));
  description_->SetTextFont(FontOf(text));
  ErrorFont counter = title;
  counter.weight = kBoldWeight;
  for (const int id : {error_id::kBefore, error_id::kAfter}) {
    static_cast<ErrorCounterWidget*>(controls_[id])->setFont(FontOf(counter));
  }
}

Rect ZCErrorManager::ControlRect(int id) const { return FromQRect(controls_.at(id)->geometry()); }

void ZCErrorManager::MoveControl(int id, const Rect& rect) { controls_.at(id)->setGeometry(ToQRect(rect)); }

void ZCErrorManager::ShowControl(int id, bool shown) { controls_.at(id)->setVisible(shown); }

void ZCErrorManager::SetControlText(int id, TextView text) {
  const QString shown = ToQString(text);
  if (ZC3DText* box = BoxOf(id)) {
    box->SetWindowTextW(shown, false);
  } else if (id == error_id::kTitleLine || id == error_id::kDescription) {
    static_cast<ErrorTextWidget*>(controls_.at(id))->SetText(shown);
  } else {
    static_cast<ErrorCounterWidget*>(controls_.at(id))->SetText(shown);
    // The number of errors before it is the place of the shown error in the queue. A host may offer more about it.
    if (id == error_id::kBefore) setProperty(property::kErrorPlace, shown.toInt());
  }
}

void ZCErrorManager::SetClassColor(std::uint32_t color) {
  classColor_ = color;
  SetBackProperty(color);
  for (const ErrorControl& control : ErrorControls()) {
    if (control.kind == ErrorControlKind::kPicture) {
      static_cast<ErrorPictureWidget*>(controls_[control.id])->SetBack(color);
    }
  }
}

ZC3DText* ZCErrorManager::BoxOf(int id) const {
  if (id == error_id::kTitleBox) return titleBox_;
  return id == error_id::kChannelBox ? channelBox_ : nullptr;
}

void ZCErrorManager::SetBoxColors(int id, std::uint32_t back, std::uint32_t text, bool now) {
  ZC3DText* box = BoxOf(id);
  box->SetBkgndColor(back, false);
  box->SetTextColor(text, now);
  if (!now) box->update();
}

void ZCErrorManager::UseRaisedLook(int id, bool raised) { BoxOf(id)->Use3D(raised); }

int ZCErrorManager::DescriptionTextWidth(TextView text) const { return description_->WidthOf(ToQString(text)); }

int ZCErrorManager::TitleTextHeight(TextView text, int width) const {
  return titleLine_->HeightOf(ToQString(text), width);
}

}  // namespace pnl
