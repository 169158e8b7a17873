// SPDX-License-Identifier: MIT
#include "ui/panel_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <algorithm>
#include <cmath>

#include "ui/axis_display.h"
#include "ui/credentials_cover.h"
#include "ui/error_list.h"
#include "ui/first_start.h"
#include "ui/journal_keeper.h"
#include "ui/keyboard.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/readings.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"
#include "ui/touch_keyboard.h"
#include "ui/undo_offer.h"

namespace panel {

namespace {

/// The command line starts blocks, so the panel keeps its start keys while the command line has the focus. In any other
/// tool a key that the tool takes must not start the machine.
bool KeepsItsKeys(const QObject* watched) {
  for (const QObject* object = watched; object != nullptr; object = object->parent()) {
    const QVariant tool = object->property("pnlTool");
    if (tool.isValid()) return tool.toInt() != PNL_TOOL_MDI;
  }
  return false;
}

}  // namespace

PanelWindow::PanelWindow(HostSession& session, Operator& op, PathResolver resolve, QWidget* parent)
    : QWidget(parent),
      PanelParts(*this, session, op, std::move(resolve)),
      session_(session),
      op_(op),
      language_(session, op.Desk(), op.Rig()),
      touch_(std::make_unique<TouchDesk>(*this)) {
  setWindowTitle(QStringLiteral("pnlpanel"));
  setMinimumSize(kLeastWindow);
  setAttribute(Qt::WA_OpaquePaintEvent);
  session_.SetToolArea(toolArea_);
  session_.SetMainWindow(this);
  // Tools take the size of the tool area as that of the panel, not the size of the whole window.
  setProperty("pnlPanelArea", QVariant::fromValue<QWidget*>(toolArea_));
  Connect();
  ConnectErrors();
  if (session_.Reacting()) credentials_->Offer();
  MakeKeyboard();
  MakeTouch();
  MakeShortcuts();
  SetTabOrder();
  resize(LayOutAround(QSize(800, 600), theme::TouchPixels(*this)).window);
  LayOut();
  UpdateDisplay();
  editor_->setFocus();
}

PanelWindow::~PanelWindow() { session_.CloseAll(); }

void PanelWindow::Connect() {
  connect(&op_, &Operator::Changed, this, &PanelWindow::UpdateDisplay);
  connect(&session_, &HostSession::ToolsChanged, this, &PanelWindow::PlacePlcView);
  connect(&session_, &HostSession::WorkChanged, this, &PanelWindow::ShowBars);
  connect(&op_, &Operator::InsertBlockWanted, editor_, &ProgramEditor::Insert);
  connect(&op_, &Operator::InsertValueWanted, this, [this](const QString& text) {
    editor_->Insert(text);
    editor_->setFocus();
  });
  connect(&op_, &Operator::KeyForwarded, this, [this](int key) {
    constexpr int kEscape = 27;
    if (key == kEscape) Escape();
  });
  // Queued, because the caller is still at work.
  connect(&op_, &Operator::CloseWanted, this, &QWidget::close, Qt::QueuedConnection);
  connect(keys_, &OperatorKeys::Pressed, this, &PanelWindow::Trigger);
  connect(undo_, &UndoOffer::Changed, this, &PanelWindow::PlaceMessages);
  connect(undo_, &UndoOffer::Refused, this, [this] { op_.SetHint(Say(Word::kUndoNotNow), true); });
  connect(desk_, &ProgramDesk::Said, &op_, [this](const QString& text, bool warning) { op_.SetHint(text, warning); });
  connect(editor_, &ProgramEditor::Said, &op_,
          [this](const QString& text, bool warning) { op_.SetHint(text, warning); });
  connect(editor_, &ProgramEditor::StateChanged, this, &PanelWindow::ShowBars);
  connect(mainBar_, &SoftKeyBar::Pressed, this, [this](int id, std::uint32_t menu) {
    const int front = session_.FrontTool();
    OnItem(HasPanelItemsAlone(front) ? front : session_.MainBar().first, id, menu);
  });
  connect(sideBar_, &SoftKeyBar::Pressed, this,
          [this](int id, std::uint32_t menu) { OnItem(session_.SideBar().first, id, menu); });
}

void PanelWindow::MakeShortcuts() {
  for (const ShortcutRow& row : ShortcutTable()) {
    // The editor takes its own keys. In a tool they mean something else.
    if (IsOfEditor(row.action)) continue;
    for (const QKeySequence& keys : KeysOf(row.action)) {
      panelKeys_ << keys;
      auto* shortcut = new QShortcut(keys, this);
      shortcut->setAutoRepeat(Repeats(row.action));
      connect(shortcut, &QShortcut::activated, this, [this, action = row.action] { Trigger(action); });
    }
  }
  // A tool's line edit takes Enter with any modifier. The filter gives the start key to the panel first.
  qApp->installEventFilter(this);
  const auto soft = [this](const QKeySequence& keys, void (PanelWindow::*press)(int), int slot) {
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, [this, press, slot] { (this->*press)(slot); });
  };
  for (int slot = 0; slot < kMainKeys; ++slot) soft(MainKey(slot), &PanelWindow::PressMain, slot);
  for (int slot = 0; slot < kSideKeys; ++slot) soft(SideKey(slot), &PanelWindow::PressSide, slot);
}

bool PanelWindow::eventFilter(QObject* watched, QEvent* event) {
  // The kit's own menus of text fields speak another language than the panel and have rows for a mouse.
  if (event->type() == QEvent::ContextMenu) return true;
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) op_.OnPress();
  if (event->type() == QEvent::ShortcutOverride && !KeepsItsKeys(watched)) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
    if (panelKeys_.contains(QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(key->key()))))) {
      event->ignore();
      return true;
    }
  }
  const bool placed = event->type() == QEvent::Move || event->type() == QEvent::Resize;
  if (placed && watched->isWidgetType() && watched->property("pnlTool").isValid()) {
    PlaceErrors();
    PlaceEditor();
  }
  // The operator may move it partly out of sight later, and where that was may be out of sight on this screen.
  const bool shows = event->type() == QEvent::Show && watched->isWidgetType();
  if (shows && watched->property("pnlTool") == PNL_TOOL_CALCULATOR) PlaceCalculator(static_cast<QWidget*>(watched));
  if (event->type() == QEvent::DynamicPropertyChange) {
    const QByteArray name = static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName();
    if (name == kVideoProperty || name == kErrorPlaceProperty) ShowBars();
  }
  const bool shownOrHidden = event->type() == QEvent::Show || event->type() == QEvent::Hide;
  const auto covers = Covers();
  const bool cover = std::find(covers.begin(), covers.end(), watched) != covers.end();
  if (shownOrHidden && cover) EnableBars();
  // A cover keeps the focus among its own keys even while it hides, so the focus has to be given back here.
  if (cover && event->type() == QEvent::Hide) keyboard_->Restore();
  return QWidget::eventFilter(watched, event);
}

void PanelWindow::MakeKeyboard() {
  keyboard_ = std::make_unique<Keyboard>(*this, *toolArea_, *editor_, session_, op_.Desk());
  keyboard_->AddCover(
      question_, [this] { question_->FocusCareful(); }, Keyboard::CoverKind::kQuestion);
  keyboard_->AddCover(password_, [this] { password_->Edit().setFocus(); });
  keyboard_->AddCover(credentials_, [this] { credentials_->FocusFirst(); });
  keyboard_->AddCover(errorList_, [this] { errorList_->List().setFocus(); });
  keyboard_->AddCover(
      first_, [this] { first_->FocusFirst(); }, Keyboard::CoverKind::kQuestion);
}

bool PanelWindow::focusNextPrevChild(bool next) {
  const auto move = [this](bool forward) { return QWidget::focusNextPrevChild(forward); };
  return keyboard_ ? keyboard_->MoveFocus(next, move) : move(next);
}

void PanelWindow::SetTabOrder() {
  std::vector<QWidget*> order{&editor_->Edit(), &status_->Indicator()};
  for (int slot = 0; slot < kSideKeys; ++slot) order.push_back(sideBar_->Key(slot));
  order.insert(order.end(), {sideBar_->BackKey(), sideBar_->MoreKey(), mainBar_->BackKey()});
  for (int slot = 0; slot < kMainKeys; ++slot) order.push_back(mainBar_->Key(slot));
  order.push_back(mainBar_->MoreKey());
  for (const RowKey key : {RowKey::kErrors, RowKey::kCalculator, RowKey::kHelp, RowKey::kLanguage}) {
    order.push_back(row_->Key(key));
  }
  for (const auto& [action, key] : keys_->Keys()) order.push_back(key);
  order.push_back(undo_);
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

QString PanelWindow::ProgramText() const { return editor_->Text(); }

void PanelWindow::ResizeToolArea(const QSize& size) {
  fixedToolArea_ = size.expandedTo(QSize(1, 1));
  resize(LayOutAround(*fixedToolArea_, theme::TouchPixels(*this)).window);
  LayOut();
}

void PanelWindow::LayOut() {
  const int most = MostTouch(size());
  const int touch = std::min(theme::TouchPixels(*this), most);
  first_->SetMostDensity(most * theme::kMillimetresPerInch / theme::kTouchMillimetres);
  layout_ = LayOutWithin(size(), touch);
  if (fixedToolArea_) {
    const PanelLayout around = LayOutAround(*fixedToolArea_, touch);
    // When the operator resizes the window, the tool area takes what is left again.
    if (around.window == size()) {
      layout_ = around;
    } else {
      fixedToolArea_.reset();
    }
  }
  MakeRoomForTouch();
  status_->setGeometry(layout_.status);
  readings_->setGeometry(layout_.readings);
  axes_->setGeometry(layout_.axes);
  modal_->setGeometry(layout_.modal);
  sideBar_->setGeometry(layout_.sideBar);
  PlaceMessages();
  mainBar_->setGeometry(layout_.mainBar);
  row_->setGeometry(layout_.reservedRow);
  keys_->setGeometry(layout_.operatorKeys);
  // The covers leave status, axes and the machine's keys free, because the operator must be able to stop the axes any
  // time.
  const int left = rest_.toolArea.left();
  // On a small panel they also cover the soft keys, which are disabled meanwhile.
  const int bottom = rest_.wide ? rest_.sideBar.bottom() : rest_.mainBar.bottom();
  const int top = rest_.wide ? rest_.sideBar.top() : rest_.toolArea.top();
  cover_ = QRect(left, top, rest_.sideBar.right() + 1 - left, bottom + 1 - top);
  FollowFocus();
  const auto pixels = [this](int size) { return static_cast<int>(std::lround(size * layout_.scale)); };
  status_->SetFontPixels(pixels(14));
  ShowSideBar();
  axes_->SetFontPixels(pixels(14));
  readings_->SetFontPixels(pixels(12));
  modal_->SetFontPixels(pixels(13));
  sideBar_->SetFontPixels(pixels(14));
  mainBar_->SetFontPixels(pixels(14));
  row_->SetFontPixels(pixels(14));
  keys_->SetFontPixels(pixels(14));
  zone_->SetFontPixels(pixels(17));
  undo_->SetFontPixels(pixels(14));
  editor_->SetFontPixels(pixels(16));
  question_->SetFontPixels(pixels(16));
  password_->SetFontPixels(pixels(16));
  errorList_->SetFontPixels(pixels(16));
  credentials_->SetFontPixels(pixels(16));
  first_->SetFontPixels(pixels(16));
  PlaceErrors();
  PlaceCalculator(static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_CALCULATOR))));
  PlacePlcView();
  PlaceEditor();
}

void PanelWindow::ShowSideBar() {
  // On a small panel a cover begins below the top of the side bar and would leave a slice of it visible.
  sideBar_->setVisible(!layout_.sideBar.isEmpty() && (layout_.wide || !Covered()));
}

void PanelWindow::resizeEvent(QResizeEvent*) { LayOut(); }

void PanelWindow::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), QColor(theme::kBackground)); }

bool PanelWindow::Covered() const {
  const auto covers = Covers();
  return std::any_of(covers.begin(), covers.end(), [](const Cover* cover) { return cover->IsOpen(); });
}

void PanelWindow::EnableBars() {
  mainBar_->setEnabled(!Covered());
  sideBar_->setEnabled(!Covered());
  undo_->setEnabled(!Covered());
  row_->Show([this](RowKey key) { return LookOfRowKey(key); });
  ShowSideBar();
}

void PanelWindow::Trigger(Action action) {
  // While a cover is shown, only the machine's own keys work: they act on nothing that the cover hides.
  const bool machineKey = keys_->Key(action) != nullptr;
  // The key that opens the list closes it too.
  if (action == Action::kErrorList && errorList_->IsOpen()) return errorList_->Leave();
  if (Covered() && !machineKey) return;
  if (IsOfEditor(action)) return editor_->Do(action);
  switch (action) {
    case Action::kOpenProgram:
      return desk_->Open();
    case Action::kSaveProgram:
      return desk_->Save();
    case Action::kSaveProgramAs:
      return desk_->SaveAs();
    case Action::kNewProgram:
      return desk_->New();
    case Action::kErrorList:
      return errorList_->Open();
    case Action::kUndoRemoval:
      return undo_->Undo();
    case Action::kCoordinates:
      return axes_->ShowMachinePositions(!axes_->MachinePositions());
    case Action::kMainMore:
      return mainBar_->NextPage();
    case Action::kMainBack:
      return mainBar_->Back();
    case Action::kSideMore:
      return sideBar_->NextPage();
    case Action::kSideBack:
      return sideBar_->Back();
    default:
      return op_.Do(action);
  }
}

void PanelWindow::PressMain(int slot) {
  if (!Covered()) mainBar_->Press(slot);
}

void PanelWindow::PressSide(int slot) {
  if (!Covered()) sideBar_->Press(slot);
}

void PanelWindow::OnItem(int tool, int id, std::uint32_t menu) {
  if (menu != 0) return op_.SendCommand(tool, id);
  if (const int key = KeyOfItem(id); key != 0) return session_.TypeInto(tool, key);
  if (IsCloseItem(id)) return op_.CloseTool(tool);
  if (IsToolItem(id)) return op_.SendCommand(tool, id);
  if (const auto action = ActionOfItem(id)) return Trigger(*action);
  if (id == kScreenItem) return first_->Ask(FirstStart::Page::kScreen, true);
  if (id == kErrorPlaceItem) return ShowErrorPlace(op_.Desk().ShownSpot());
  if (id == kFaultsItem || id == kPlcItem) {
    innerKeys_ = id == kPlcItem ? InnerKeys::kPlcMessages : InnerKeys::kFaults;
    return ShowBars();
  }
  if (const auto code = PlcMessageOfItem(op_, id)) return op_.RaisePlcMessage(*code);
  if (const DemoFault* fault = FaultOfItem(id)) return op_.RaiseFault(*fault, desk_->CaretSpot());
  // The other tools are opened by actions.
  if (ToolOfItem(id) == PNL_TOOL_EXPLORER) desk_->Browse();
}

void PanelWindow::Escape() {
  // The tool comes first: from a key of the panel, Escape leads back to the tool and closes nothing.
  if (op_.Can(Action::kFocusTool)) return Trigger(Action::kFocusTool);
  Trigger(Action::kClearError);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return Escape();
  QWidget::keyPressEvent(event);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  const bool discards = std::exchange(discards_, false);
  if (asks_ && !discards && editor_->IsModified()) {
    event->ignore();
    if (question_->IsOpen()) return;
    desk_->AskToDiscard([this] {
      discards_ = true;
      close();
    });
    return;
  }
  if (asks_ && !op_.CloseUnsaved()) return event->ignore();
  password_->Leave();
  op_.Files().Leave();
  session_.CloseAll();
}

}  // namespace panel
