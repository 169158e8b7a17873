// SPDX-License-Identifier: MIT
#include "ui/panel_menu.h"

namespace panel {
namespace {

constexpr int kToolBase = 1000;
constexpr int kFaultBase = 2000;
constexpr int kPlcBase = 4000;
constexpr int kAcceptItem = 3001;
constexpr int kLeaveItem = 3002;
constexpr int kCloseItem = 3003;

SoftKeyItem ActionItem(const Operator& op, Action action, bool checked = false) {
  SoftKeyItem item;
  item.id = static_cast<int>(action);
  item.text = Say(WordOf(action));
  item.enabled = op.Can(action);
  item.checked = checked;
  return item;
}

SoftKeyItem PlainItem(int id, Word word, bool enabled = true) {
  SoftKeyItem item;
  item.id = id;
  item.text = Say(word);
  item.enabled = enabled;
  return item;
}

}  // namespace

std::vector<SoftKeyItem> PanelMainItems(const HostSession& session, const Operator& op) {
  std::vector<SoftKeyItem> items;
  items.push_back(ActionItem(op, Action::kOpenMdi, session.IsToolOpen(PNL_TOOL_MDI)));
  items.push_back(ActionItem(op, Action::kSwitchRole));
  items.push_back(ActionItem(op, Action::kOpenCalculator, session.IsToolOpen(PNL_TOOL_CALCULATOR)));
  items.push_back(ActionItem(op, Action::kOpenMachining, session.IsToolOpen(PNL_TOOL_MACHINING_CALCULATOR)));
  SoftKeyItem files = PlainItem(kToolBase + PNL_TOOL_EXPLORER, Word::kFiles);
  files.checked = session.IsToolOpen(PNL_TOOL_EXPLORER);
  items.push_back(files);
  items.push_back(ActionItem(op, Action::kHelp));
  for (const Action action : {Action::kErrorList, Action::kOpenProgram, Action::kSaveProgram, Action::kSaveProgramAs,
                              Action::kNewProgram, Action::kCoordinates, Action::kOverrideFull}) {
    items.push_back(ActionItem(op, action));
  }
  if (op.HasMachine()) {
    SoftKeyItem messages = PlainItem(kPlcItem, Word::kPlcMessages);
    messages.checked = session.IsToolOpen(PNL_TOOL_PLC_MESSAGES);
    items.push_back(messages);
    items.push_back(PlainItem(kFaultsItem, Word::kDemoFaults));
  }
  return items;
}

SoftKeyItem ScreenItem() { return PlainItem(kScreenItem, Word::kScreenSize); }

std::vector<SoftKeyItem> PanelSideItems(const std::function<bool(Action)>& can, bool atError) {
  std::vector<SoftKeyItem> items;
  for (const Action action :
       {Action::kUndo, Action::kRedo, Action::kFind, Action::kReplace, Action::kGoToLine, Action::kSaveProgram}) {
    const bool toError = atError && action == Action::kGoToLine;
    items.push_back(toError ? PlainItem(kErrorPlaceItem, Word::kGoToError)
                            : PlainItem(static_cast<int>(action), WordOf(action), can(action)));
  }
  return items;
}

std::vector<SoftKeyItem> PanelSideItemsOverTool(bool atError) {
  if (!atError) return {};
  return {PlainItem(kErrorPlaceItem, Word::kGoToError)};
}

std::vector<SoftKeyItem> PanelFaultItems(const Operator& op) {
  std::vector<SoftKeyItem> items;
  for (const DemoFault& fault : DemoFaults()) {
    SoftKeyItem item;
    item.id = kFaultBase + static_cast<int>(items.size());
    item.text = Say(fault.word);
    item.checked = fault.fault ? fault.stands && op.Stands(*fault.fault) : op.EmergencyStop();
    items.push_back(item);
  }
  return items;
}

std::vector<SoftKeyItem> PanelPlcItems(const Operator& op) {
  std::vector<SoftKeyItem> items;
  for (const auto& message : op.PlcMessages()) {
    SoftKeyItem item;
    item.id = kPlcBase + static_cast<int>(items.size());
    item.text = QString::fromStdU16String(message.text);
    items.push_back(item);
  }
  return items;
}

std::vector<SoftKeyItem> PanelItemsOf(int tool, bool video) {
  switch (tool) {
    case PNL_TOOL_MDI:
      // The panel's own key for it is behind the keys of the list.
      return {PlainItem(static_cast<int>(Action::kSwitchRole), Word::kMdiMda)};
    case PNL_TOOL_EXPLORER:
      return {PlainItem(kAcceptItem, Word::kOk), PlainItem(kLeaveItem, Word::kClose)};
    case PNL_TOOL_MACHINING_CALCULATOR:
      return {PlainItem(PNL_ZMC_EXPORT, Word::kExport), PlainItem(PNL_ZMC_IMPORT, Word::kImport),
              PlainItem(PNL_ZMC_CHANGES, Word::kOwnChanges), PlainItem(kCloseItem, Word::kClose)};
    case PNL_TOOL_PLC_MESSAGES:
      // Dim and not away, so that Close has one place for every message.
      return {PlainItem(PNL_VIDEO_PLAY, Word::kPlayVideo, video), PlainItem(PNL_VIDEO_STOP, Word::kStopVideo, video),
              PlainItem(PNL_VIDEO_REWIND, Word::kRewindVideo, video), PlainItem(kLeaveItem, Word::kClose)};
    case PNL_TOOL_HELP:
      return {PlainItem(kCloseItem, Word::kClose)};
    default:
      return {};
  }
}

bool HasPanelItemsAlone(int tool) { return tool == PNL_TOOL_PLC_MESSAGES; }

bool IsCloseItem(int id) { return id == kCloseItem; }

bool IsToolItem(int id) {
  switch (id) {
    case PNL_ZMC_EXPORT:
    case PNL_ZMC_IMPORT:
    case PNL_ZMC_CHANGES:
    case PNL_VIDEO_PLAY:
    case PNL_VIDEO_STOP:
    case PNL_VIDEO_REWIND:
      return true;
    default:
      return false;
  }
}

int KeyOfItem(int id) { return id == kAcceptItem ? Qt::Key_Return : id == kLeaveItem ? Qt::Key_Escape : 0; }

std::optional<Action> ActionOfItem(int id) {
  if (id < 0 || id >= static_cast<int>(Action::kCount)) return std::nullopt;
  return static_cast<Action>(id);
}

int ToolOfItem(int id) { return id >= kToolBase && id < kFaultBase ? id - kToolBase : -1; }

std::optional<std::uint32_t> PlcMessageOfItem(const Operator& op, int id) {
  const auto messages = op.PlcMessages();
  const int index = id - kPlcBase;
  if (index < 0 || index >= static_cast<int>(messages.size())) return std::nullopt;
  return messages[static_cast<std::size_t>(index)].code;
}

const DemoFault* FaultOfItem(int id) {
  const auto faults = DemoFaults();
  const int index = id - kFaultBase;
  return index >= 0 && index < static_cast<int>(faults.size()) ? &faults[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace panel
