// SPDX-License-Identifier: MIT
// The window's part in what is shown: the state of the machine, bars and messages, and where the tools and the program
// are in the tool area.
#include <algorithm>
#include <array>

#include "ui/axis_display.h"
#include "ui/keyboard.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_menu.h"
#include "ui/panel_window.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/readings.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kRunning = 2;

std::vector<AxisReading> AxesOf(const pnl::rig::MachineState& state) {
  std::vector<AxisReading> axes;
  for (const auto& axis : state.axes) {
    axes.push_back({QString::fromStdU16String(axis.name), axis.position, axis.machine, axis.toGo});
  }
  return axes;
}

}  // namespace

void PanelWindow::UpdateDisplay() {
  ShowMachine();
  ShowBars();
  ShowMessages();
  ShowErrors();
  PlaceEditor();
  // A tool may have shown itself without reporting it.
  if (session_.Reacting()) keyboard_->Restore();
}

void PanelWindow::ShowMachine() {
  const auto state = op_.Machine();
  if (op_.HasMachine()) {
    status_->Show(LookOf(state), Say(op_.Mode()));
    readings_->Show(ReadingsOf(state));
  } else {
    status_->Show(LookWithoutMachine(), Say(op_.Mode()));
    readings_->Show(NoReadings());
  }
  status_->Indicator().Show(op_.Desk().Sign(), op_.Desk().Standing());
  axes_->SetFrame(QString::fromStdU16String(state.frame));
  axes_->Show(AxesOf(state), state.channelStatus == kRunning, state.inches);
  modal_->Show(QString::fromStdU16String(state.gCodes), QString::fromStdU16String(state.block));
  keys_->Show([this](Action action) { return op_.Can(action); },
              [&state](Action action) {
                return (action == Action::kSingleBlock && state.singleBlock) ||
                       (action == Action::kInspect && state.inspecting);
              });
  ShowStartReason();
}

void PanelWindow::ShowStartReason() {
  const auto note = op_.StartNote();
  const auto reason = op_.WhyNot(Action::kCycleStart);
  keys_->ShowStartReason(note ? Say(*note) : QString(), reason ? Say(*reason) : QString());
}

void PanelWindow::ShowBars() {
  EnableBars();
  // The menu of a closed tool still exists. A bar shows it only while the tool is open.
  const auto [mainTool, mainMenu] = session_.MainBar();
  if (HasPanelItemsAlone(session_.FrontTool())) {
    mainBar_->ShowItems(PanelItemsOf(session_.FrontTool(), ShowsVideo()));
    mainBar_->SetInner(false);
  } else if (mainMenu != 0) {
    mainBar_->ShowMenu(mainMenu, PanelItemsOf(mainTool, false));
  } else {
    mainBar_->ShowItems(PanelKeys());
    mainBar_->SetInner(innerKeys_ != InnerKeys::kNone);
  }
  ShowSideKeys();
}

void PanelWindow::ShowSideKeys() {
  const auto [tool, menu] = session_.SideBar();
  const int working = session_.WorkingTool();
  const bool spot = op_.Desk().ShownSpot().has_value();
  // If the tool in front has no keys, the bar is empty. The keys of the program or of another tool would act on
  // something that is behind the tool.
  if (menu != 0 && (working < 0 || working == tool)) return sideBar_->ShowMenu(menu);
  if (working >= 0) return sideBar_->ShowItems(PanelSideItemsOverTool(spot));
  const auto can = [this](Action action) { return IsOfEditor(action) ? editor_->Can(action) : !editor_->Opening(); };
  sideBar_->ShowItems(PanelSideItems(can, spot));
}

bool PanelWindow::ShowsVideo() const {
  const auto* view = static_cast<const QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_PLC_MESSAGES)));
  return view != nullptr && view->property(kVideoProperty).toBool();
}

std::vector<SoftKeyItem> PanelWindow::PanelKeys() const {
  switch (innerKeys_) {
    case InnerKeys::kFaults:
      return PanelFaultItems(op_);
    case InnerKeys::kPlcMessages:
      return PanelPlcItems(op_);
    case InnerKeys::kNone:
      break;
  }
  std::vector<SoftKeyItem> items = PanelMainItems(session_, op_);
  if (offersScreen_) items.push_back(ScreenItem());
  return items;
}

void PanelWindow::ShowMessages() {
  std::vector<ZoneLine> lines;
  const QColor red(theme::kRed);
  const QColor white(Qt::white);
  // When there is an error tool, its window shows the errors.
  const auto errors = op_.Desk().HasTool() ? std::vector<pnl::rig::CncControl::ErrorSummary>() : op_.Errors();
  if (!errors.empty()) {
    const auto& newest = errors.back();
    lines.push_back({Say(Word::kErrorNumber, QString::number(newest.number)) + QStringLiteral(": ") +
                         QString::fromStdU16String(newest.text).trimmed(),
                     red, white, true});
  }
  for (const auto& [line, message] : session_.Messages()) {
    const QColor back = theme::FromColorRef(message.back);
    const QColor fore = theme::FromColorRef(message.fore);
    // A tool asks for black text on dark red, too. The operator has to read it from some distance.
    const bool readable = theme::Contrast(back, fore) >= theme::kLeastContrast;
    lines.push_back({message.text, back, readable ? fore : theme::InkOn(back)});
  }
  const Hint& hint = op_.CurrentHint();
  if (!hint.text.isEmpty()) {
    // The hint is the newest message, so it always gets a line.
    if (lines.size() >= MessageZone::kMaxLines) lines.resize(MessageZone::kMaxLines - 1);
    lines.push_back({hint.text, QColor(hint.warning ? theme::kAmber : theme::kSteel),
                     QColor(hint.warning ? theme::kDark : theme::kText)});
  }
  zone_->Show(std::move(lines));
}

void PanelWindow::PlaceErrors() {
  // On a small screen the error window is bigger than the tool area. When a script has set the size of the tool area,
  // the window stays as the tool makes it.
  auto* errors = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  if (errors == nullptr || errors->parentWidget() != toolArea_ || fixedToolArea_) return;
  QSize size = errors->size().boundedTo(toolArea_->size());
  // At the right the tool leaves room for soft keys: 90 of 800 pixels. Here they are beside the tool area.
  constexpr int kSoftKeys = 90;
  const int room = std::max(kSoftKeys, toolArea_->width() * kSoftKeys / 800 + 1);
  if (errors->x() <= 0 && size.width() + room >= toolArea_->width()) size.setWidth(toolArea_->width());
  const int left = std::clamp(errors->x(), 0, toolArea_->width() - size.width());
  const int top = std::clamp(errors->y(), 0, toolArea_->height() - size.height());
  if (const QRect place(QPoint(left, top), size); place != errors->geometry()) errors->setGeometry(place);
}

void PanelWindow::PlaceCalculator(QWidget* tool) {
  if (tool == nullptr || tool->parentWidget() != toolArea_ || fixedToolArea_) return;
  const int left = std::max(0, std::min(tool->x(), toolArea_->width() - tool->width()));
  const int top = std::max(0, std::min(tool->y(), toolArea_->height() - tool->height()));
  if (tool->pos() != QPoint(left, top)) tool->move(left, top);
}

void PanelWindow::PlacePlcView() {
  auto* view = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_PLC_MESSAGES)));
  if (view != nullptr && view->parentWidget() == toolArea_ && session_.Reacting()) view->setGeometry(toolArea_->rect());
}

void PanelWindow::PlaceEditor() {
  QRect place = SeenToolArea();
  // The program stays readable beside a tool, wherever the tool is.
  for (const PnlWindow window : session_.ToolWindows()) {
    const auto* tool = static_cast<const QWidget*>(PnlWidgetOf(window));
    if (tool != nullptr && tool->isVisible()) place = RoomBeside(place, tool->geometry());
  }
  editor_->setGeometry(place);
}

}  // namespace panel
