// SPDX-License-Identifier: MIT
#include "plc/qt/plc_window.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <optional>
#include <utility>

#include "controls/fonts.h"
#include "controls/system_colors.h"
#include "pages/folder_pages.h"
#include "plc/plc_ids.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kPageFont = 17;  // in a panel 600 high
constexpr int kPageWeight = 400;
constexpr int kNoteMargin = 12;

/// The font of pages that name no size, and of the note. It grows with the panel.
QFont PageFont(Utilities& utilities) {
  const int fitted = utilities.UTIL7340_FitFontSize(kPageFont);
  return MakeFont(QStringLiteral("Arial"), fitted > 0 ? fitted : kPageFont, kPageWeight).value_or(QFont());
}

QLabel* MakeNote(const QFont& font, QWidget* parent) {
  auto* note = new QLabel(parent);
  MarkControl(note, plc_id::kNote, control_kind::kStatic);
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignCenter);
  note->setMargin(kNoteMargin);
  note->setFont(font);
  QPalette colors = note->palette();
  colors.setColor(QPalette::WindowText, ToQColor(SystemColor(kColorWindowText)));
  note->setPalette(colors);
  return note;
}

std::optional<PlcKey> LogicKey(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier)) != 0) {
    return std::nullopt;
  }
  switch (event.key()) {
    case Qt::Key_Escape:
      return PlcKey::kEscape;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return PlcKey::kEnter;
    case Qt::Key_Space:
      return PlcKey::kSpace;
    case Qt::Key_Home:
      return PlcKey::kHome;
    default:
      return std::nullopt;
  }
}

const ShowFileRecord* RecordAt(std::intptr_t address) {
  return reinterpret_cast<const ShowFileRecord*>(address);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

ZCPLCMsgView::ZCPLCMsgView(const ToolContext& context, QWidget* parent)
    : ZCPLCMsgView(context, parent, VideoPlayerFrom(VideoModuleBesideLibrary())) {}

ZCPLCMsgView::ZCPLCMsgView(const ToolContext& context, QWidget* parent, MakeVideoPlayer player)
    : ToolWindowWith(PNL_TOOL_PLC_MESSAGES, parent),
      context_(context),
      title_(new PlcTitleWidget(this)),
      text_(new PlcTextWidget(this)),
      page_(new PageBrowser(plc_id::kPage, this)),
      video_(new CAviCtrl(plc_id::kVideo, std::move(player), this)),
      note_(MakeNote(PageFont(context.cnc.Util()), this)),
      controls_{{plc_id::kTitle, title_},
                {plc_id::kText, text_},
                {plc_id::kPage, page_},
                {plc_id::kVideo, video_},
                {plc_id::kNote, note_}} {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  SetBackProperty(SystemColor(kColorWindow));
  page_->setFont(note_->font());
  for (QWidget* view : {static_cast<QWidget*>(text_), static_cast<QWidget*>(page_), static_cast<QWidget*>(video_),
                        static_cast<QWidget*>(note_)}) {
    view->hide();
  }
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  connect(page_, &PageView::PageRefused, this, &ZCPLCMsgView::OnPageRefused);
  PlcView& view = *this;
  session_.Make(context_, view);
  parent->installEventFilter(this);
}

ZCPLCMsgView::~ZCPLCMsgView() {
  EndMessages();
  // The controls are destroyed after this object, and lose the focus then.
  for (QWidget* child : findChildren<QWidget*>()) child->removeEventFilter(this);
  page_->disconnect(this);
  session_.End();
}

void ZCPLCMsgView::Start() {
  session_.Tell([](PlcSession& session) { session.Start(); });
}

std::intptr_t ZCPLCMsgView::OnMessage(const Message& message) {
  static const std::uint32_t showHelp = RegisterMessage(PNL_NAME_SHOW_ERROR_HELP);
  static const std::uint32_t hideHelp = RegisterMessage(PNL_NAME_HIDE_ERROR_HELP);
  static const std::uint32_t showFile = RegisterMessage(PNL_NAME_SHOW_FILE);
  session_.Tell([&message](PlcSession& session) {
    if (message.number == PNL_MSG_VARIABLE_REPORT) {
      session.OnReport(message.first, message.second);
    } else if (message.number == PNL_MSG_TOOL_COMMAND) {
      session.OnToolCommand(message.first);
    } else if (message.number == PNL_MSG_COMMAND) {
      session.OnCommand(static_cast<int>(message.first));
    } else if (message.number == showHelp) {
      session.ShowErrorHelp(RecordAt(message.second));
    } else if (message.number == hideHelp) {
      session.HideErrorHelp();
    } else if (message.number == showFile) {
      session.ShowFile(message.first, RecordAt(message.second));
    }
  });
  return 0;
}

// Keys.

bool ZCPLCMsgView::OnKeyDown(QKeyEvent& event) {
  const auto key = LogicKey(event);
  if (!key) return false;
  bool taken = false;
  // When the tool has ended in the call, the key was its last.
  const bool there = session_.Tell([&](PlcSession& session) { taken = session.OnKey(*key); });
  if (!there || taken) event.accept();
  return !there || taken;
}

bool ZCPLCMsgView::IsEscape(const QKeyEvent& event) const { return LogicKey(event) == PlcKey::kEscape; }

bool ZCPLCMsgView::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event))) return true;
  // Escape is the window's before it is a shortcut of the panel.
  if (event->type() == QEvent::ShortcutOverride && IsEscape(static_cast<QKeyEvent&>(*event))) event->accept();
  return ToolWindow::event(event);
}

bool ZCPLCMsgView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget()) {
    if (event->type() == QEvent::Resize) session_.Tell([](PlcSession& session) { session.OnAreaResized(); });
    return false;
  }
  return event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event));
}

void ZCPLCMsgView::resizeEvent(QResizeEvent* /*event*/) {
  session_.Tell([](PlcSession& session) { session.OnResized(); });
}

void ZCPLCMsgView::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), ToQColor(SystemColor(kColorWindow)));
}

// The view.

void ZCPLCMsgView::FocusWindow() {
  // A text or page that is on the screen keeps the keys with which it scrolls.
  for (QWidget* view : {static_cast<QWidget*>(text_), static_cast<QWidget*>(page_)}) {
    if (!view->isHidden()) return view->setFocus(Qt::OtherFocusReason);
  }
  setFocus(Qt::OtherFocusReason);
}

void ZCPLCMsgView::SetWindowRect(const Rect& rect) { setGeometry(ToQRect(rect)); }

void ZCPLCMsgView::MoveControl(int id, const Rect& rect) { controls_.at(id)->setGeometry(ToQRect(rect)); }

void ZCPLCMsgView::ShowControl(int id, bool shown) {
  QWidget* const control = controls_.at(id);
  // A control that goes must not hand its focus to another control of the panel.
  if (!shown && control->isAncestorOf(QApplication::focusWidget())) setFocus(Qt::OtherFocusReason);
  control->setVisible(shown);
  // A text takes the keys over from the window, so that it scrolls with them. A page gets them by FocusPage.
  if (shown && id == plc_id::kText && window()->focusWidget() == this) control->setFocus(Qt::OtherFocusReason);
}

void ZCPLCMsgView::SetControlText(int id, TextView text) {
  const QString shown = ToQString(text);
  if (id == plc_id::kTitle) {
    title_->SetText(shown);
    SetTitleProperty(text);
  } else if (id == plc_id::kCount) {
    title_->SetCount(shown);
  } else {
    note_->setText(shown);
    note_->setProperty("pnlText", shown);
  }
}

void ZCPLCMsgView::SetTitleColors(std::uint32_t back, std::uint32_t text) { title_->SetColors(back, text); }

void ZCPLCMsgView::SetText(TextView text) { text_->SetText(ToQString(text)); }

PageRefusal ZCPLCMsgView::Navigate(TextView folder, TextView name, TextView anchor) {
  page_->Clear();
  refusal_ = PageRefusal::kUnreadable;
  navigating_ = true;
  pages_ = std::make_shared<FolderPages>(context_.files, Text(folder));
  page_->SetFolder(folder);
  const bool shown = page_->ShowPage(pages_, PageReference(name), anchor);
  navigating_ = false;
  return shown ? PageRefusal::kNone : refusal_;
}

void ZCPLCMsgView::OnPageRefused(const QString& reference, PageRefusal reason) {
  if (navigating_) {
    refusal_ = reason;
    return;
  }
  const Text refused = FromQString(reference);
  session_.Tell([&refused](PlcSession& session) { session.OnLinkRefused(refused); });
}

void ZCPLCMsgView::LoadVideo(TextView path) {
  setProperty(property::kVideo, true);
  const auto place = context_.files.HostPath(path);
  video_->Load(place.value_or(std::string()), ToQString(FileNameOf(path)));
}

void ZCPLCMsgView::ClearVideo() {
  video_->Clear();
  setProperty(property::kVideo, false);
}

PlcPlace ZCPLCMsgView::PlaceIn(int id) const {
  if (id == plc_id::kPage) return {page_->Address(), page_->ScrollPosition()};
  return {{}, text_->ScrollPosition()};
}

void ZCPLCMsgView::SetPlace(int id, const PlcPlace& place) {
  if (id != plc_id::kPage) return text_->SetScrollPosition(place.scroll);
  navigating_ = true;
  const bool there = place.page == page_->Address() || page_->ShowPage(pages_, PageReference(place.page), {});
  navigating_ = false;
  // When that page is gone, the document begins anew.
  if (there) page_->SetScrollPosition(place.scroll);
}

}  // namespace pnl
