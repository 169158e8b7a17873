// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_window.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <optional>
#include <utility>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr Color kBackground = 4608090;
constexpr int kIconStrip = 370;

std::optional<XplrKey> FrameKey(int key) {
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return XplrKey::kEnter;
  return key == Qt::Key_Escape ? std::optional(XplrKey::kEscape) : std::nullopt;
}

FindKey SearchKeyOf(int key) {
  switch (key) {
    case Qt::Key_PageDown:
      return FindKey::kPageDown;
    case Qt::Key_Down:
      return FindKey::kDown;
    case Qt::Key_PageUp:
      return FindKey::kPageUp;
    case Qt::Key_Up:
      return FindKey::kUp;
    default:
      return FindKey::kEnter;
  }
}

void PostKey(QWidget* to, int key) {
  if (to == nullptr) return;
  QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
}

}  // namespace

ZCExplorer::ZCExplorer(const ToolContext& context, QWidget* parent)
    : ToolWindowWith(PNL_TOOL_EXPLORER, parent), context_(context), form_(new ZCXPLRView(context, this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  SetBackProperty(kBackground);
  setProperty("pnlView", form_->Handle());
  XplrView& view = *this;
  session_.Make(context_, view);
  Connect();
  setGeometry(parent->rect());
  form_->setGeometry(rect());
  parent->installEventFilter(this);
}

ZCExplorer::~ZCExplorer() {
  EndMessages();
  form_->End();
  // The controls are destroyed after this object and may lose the focus then.
  for (QObject* control :
       {static_cast<QObject*>(form_->tree), static_cast<QObject*>(form_->list), static_cast<QObject*>(form_->name),
        static_cast<QObject*>(form_->path), static_cast<QObject*>(form_)}) {
    control->disconnect(this);
  }
  for (XplrDialog* dialog : {static_cast<XplrDialog*>(find_), static_cast<XplrDialog*>(folder_)}) {
    if (dialog != nullptr) dialog->disconnect(this);
  }
  session_.End();
}

void ZCExplorer::Start() {
  session_.Tell([](XplrSession& session) { session.Start(); });
}

void ZCExplorer::Connect() {
  form_->SetMessageHandler([this](const Message& message) { return TellMessage(XplrWindow::kForm, message); });
  form_->tree->SetMessageHandler([this](const Message& message) { return TellMessage(XplrWindow::kTree, message); });
  form_->list->SetMessageHandler([this](const Message& message) { return TellMessage(XplrWindow::kList, message); });
  const auto focus = [this](int id) {
    return [this, id](bool focused) { session_.Tell([=](XplrSession& session) { session.OnFocus(id, focused); }); };
  };
  connect(form_->tree, &ZCFolderTree::Focused, this, focus(xplr_control::kTree));
  connect(form_->list, &ZCXPLRList::Focused, this, focus(xplr_control::kList));
  connect(form_->name, &ZCEdit::Focused, this,
          [this] { session_.Tell([](XplrSession& session) { session.OnFocus(xplr_control::kName, true); }); });
  connect(form_, &ZCXPLRView::Resized, this, [this](int width, int height) {
    session_.Tell([=](XplrSession& session) { session.OnResized(width, height); });
  });
  connect(form_->tree, &ZCFolderTree::NodeSelected, this, [this](NodeId node, bool walked) {
    session_.Tell([=](XplrSession& session) { session.OnNodeSelected(node, walked); });
  });
  connect(form_->tree, &ZCFolderTree::NodeOpening, this, [this](NodeId node, bool walked) {
    session_.Tell([=](XplrSession& session) { session.OnNodeOpening(node, walked); });
  });
  connect(form_->tree, &ZCFolderTree::NodeTouched, this,
          [this](NodeId node) { session_.Tell([=](XplrSession& session) { session.OnNodeTouched(node); }); });
  connect(form_->path, &XplrPathHeading::Touched, this,
          [this](std::size_t at) { session_.Tell([=](XplrSession& session) { session.OnPathTouched(at); }); });
  ConnectList();
  connect(form_->name, &QLineEdit::textChanged, this,
          [this] { session_.Tell([](XplrSession& session) { session.OnNameChanged(); }); });
  for (QWidget* control :
       {static_cast<QWidget*>(form_->tree), static_cast<QWidget*>(form_->list), static_cast<QWidget*>(form_->name)}) {
    control->installEventFilter(this);
  }
}

void ZCExplorer::ConnectList() {
  connect(form_->list, &ZCXPLRList::RowSelected, this,
          [this](int row) { session_.Tell([=](XplrSession& session) { session.OnRowSelected(row); }); });
  connect(form_->list, &ZCXPLRList::RowClicked, this,
          [this](int row) { session_.Tell([=](XplrSession& session) { session.OnRowClicked(row); }); });
  connect(form_->list, &ZCXPLRList::RowDoubleClicked, this,
          [this](int row) { session_.Tell([=](XplrSession& session) { session.OnRowDoubleClicked(row); }); });
  connect(form_->list, &ZCXPLRList::HeaderClicked, this,
          [this](int column) { session_.Tell([=](XplrSession& session) { session.OnHeaderClicked(column); }); });
  connect(form_->list, &ZCXPLRList::Typed, this, [this](const QString& letters) {
    const Text text = FromQString(letters);
    session_.Tell([&text](XplrSession& session) { session.OnListTyped(text); });
  });
  connect(form_->list, &ZCXPLRList::BackspaceTyped, this,
          [this] { session_.Tell([](XplrSession& session) { session.OnListBackspace(); }); });
}

std::intptr_t ZCExplorer::TellMessage(XplrWindow window, const Message& message) {
  std::intptr_t answer = 0;
  session_.Tell([&](XplrSession& session) { answer = session.OnMessage(window, message).value_or(0); });
  return answer;
}

// Keys.

bool ZCExplorer::OnKeyDown(QKeyEvent& event) {
  const auto key = FrameKey(event.key());
  if (!key) return false;
  session_.Tell([key](XplrSession& session) { session.OnKey(*key); });
  return true;
}

bool ZCExplorer::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event))) return true;
  return ToolWindow::event(event);
}

bool ZCExplorer::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget()) {
    if (event->type() == QEvent::Resize) {
      setGeometry(parentWidget()->rect());
      form_->setGeometry(rect());
    }
    return false;
  }
  if (event->type() == QEvent::KeyPress) return OnKeyDown(static_cast<QKeyEvent&>(*event));
  if (event->type() == QEvent::ShortcutOverride && FrameKey(static_cast<QKeyEvent*>(event)->key())) event->accept();
  return false;
}

void ZCExplorer::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), ToQColor(kBackground)); }

// XplrView.

WindowHandle ZCExplorer::HandleOf(XplrWindow window) const {
  switch (window) {
    case XplrWindow::kFrame:
      return Handle();
    case XplrWindow::kForm:
      return form_->Handle();
    case XplrWindow::kTree:
      return form_->tree->Handle();
    case XplrWindow::kList:
      return form_->list->Handle();
    case XplrWindow::kFind:
      return find_ ? find_->Handle() : 0;
    case XplrWindow::kFolder:
      break;
  }
  return folder_ ? folder_->Handle() : 0;
}

void ZCExplorer::Destroy() {
  EndMessages();
  form_->End();
  // Nothing of a window that waits for its deletion reaches the logic any more.
  session_.End();
  deleteLater();
}

void ZCExplorer::PostTab() { PostKey(QApplication::focusWidget(), Qt::Key_Tab); }

void ZCExplorer::PostEnter() { PostKey(this, Qt::Key_Return); }

void ZCExplorer::StyleForm(const XplrFonts& fonts) {
  fonts_ = fonts;
  form_->Style(fonts, context_.language.Bitmap(kIconStrip));
}

void ZCExplorer::SetLabel(int id, TextView text) { form_->Label(id)->SetTextW(ToQString(text), true); }

void ZCExplorer::SetLabelColors(int id, std::uint32_t frame, std::uint32_t back, std::uint32_t text) {
  form_->Label(id)->SetColors(frame, back, text, true);
}

int ZCExplorer::FocusedControl() const {
  const QWidget* focused = QApplication::focusWidget();
  for (const QWidget* control : {static_cast<const QWidget*>(form_->tree), static_cast<const QWidget*>(form_->list),
                                 static_cast<const QWidget*>(form_->name)}) {
    if (control == focused) return ControlId(control);
  }
  return 0;
}

void ZCExplorer::FocusControl(int id) {
  if (QWidget* control = FindControl(form_, id)) control->setFocus(Qt::OtherFocusReason);
}

Text ZCExplorer::NameText() const { return FromQString(form_->name->text()); }

void ZCExplorer::SetNameText(TextView text) { form_->name->setText(ToQString(text)); }

void ZCExplorer::SetColumnTitles(const std::array<Text, 3>& titles) {
  form_->list->SetTitles({ToQString(titles[0]), ToQString(titles[1]), ToQString(titles[2])});
}

// The dialogs.

bool ZCExplorer::OpenFind(TextView text) {
  // The dialogs come from the language library, which is there for the moment of their creation only.
  const ModuleHandle module = context_.language.LoadLanguageLibrary();
  if (module == 0) return false;
  context_.language.FreeLanguageLibrary(module);
  find_ = new ZCFind(ToQString(context_.language.LoadToolText(xplr_text::kFind)), fonts_.headings, this);
  find_->SetMessageHandler([this](const Message& message) { return TellMessage(XplrWindow::kFind, message); });
  connect(find_, &ZCFind::SearchKey, this,
          [this](int key) { session_.Tell([key](XplrSession& session) { session.OnFindKey(SearchKeyOf(key)); }); });
  connect(find_, &XplrDialog::Typed, this, [this] {
    const Text typed = FindText();
    session_.Tell([&typed](XplrSession& session) { session.OnFindTyped(typed); });
  });
  connect(find_, &XplrDialog::Closing, this,
          [this] { session_.Tell([](XplrSession& session) { session.OnFindClosed(); }); });
  find_->Open(ToQString(text));
  return true;
}

bool ZCExplorer::OpenFolderSearch() {
  const ModuleHandle module = context_.language.LoadLanguageLibrary();
  if (module == 0) return false;
  context_.language.FreeLanguageLibrary(module);
  folder_ = new ZCFolder(ToQString(context_.language.LoadToolText(xplr_text::kFindFolder)), fonts_.headings, this);
  connect(folder_, &XplrDialog::Closing, this,
          [this] { session_.Tell([](XplrSession& session) { session.OnFolderClosed(); }); });
  folder_->Open(QString());
  return true;
}

Text ZCExplorer::FindText() const { return find_ ? FromQString(find_->Text()) : Text(); }

Text ZCExplorer::FolderText() const { return folder_ ? FromQString(folder_->Folder()) : Text(); }

void ZCExplorer::FocusDialog() {
  if (find_) find_->TakeFocus();
}

void ZCExplorer::PostEscapeToDialog() {
  PostKey(find_     ? static_cast<QWidget*>(FindControl(find_, xplr_control::kFindText))
          : folder_ ? FindControl(folder_, xplr_control::kFindText)
                    : nullptr,
          Qt::Key_Escape);
}

}  // namespace pnl
