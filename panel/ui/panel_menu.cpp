// SPDX-License-Identifier: MIT
#include "ui/panel_menu.h"

#include <array>

namespace panel {
namespace {

constexpr int kToolBase = 1000;
constexpr int kFaultBase = 2000;
constexpr int kAcceptItem = 3001;
constexpr int kLeaveItem = 3002;
constexpr int kCloseItem = 3003;

struct ToolRow {
  int tool;
  Word word;
  bool made;  // whether the library has this tool; it returns 0 for the others
};

constexpr std::array kTools = {
    ToolRow{PNL_TOOL_EXPLORER, Word::kFiles, true},
    ToolRow{PNL_TOOL_PLC_MESSAGES, Word::kPlcMessages, false},
};

SoftKeyItem ActionItem(const Operator& op, Action action, bool checked = false) {
  SoftKeyItem item;
  item.id = static_cast<int>(action);
  item.text = Say(WordOf(action));
  item.enabled = op.Can(action);
  item.checked = checked;
  return item;
}

}  // namespace

std::vector<SoftKeyItem> PanelMainItems(const HostSession& session, const Operator& op) {
  std::vector<SoftKeyItem> items;
  items.push_back(ActionItem(op, Action::kOpenMdi, session.IsToolOpen(PNL_TOOL_MDI)));
  items.push_back(ActionItem(op, Action::kSwitchRole));
  items.push_back(ActionItem(op, Action::kOpenCalculator, session.IsToolOpen(PNL_TOOL_CALCULATOR)));
  items.push_back(ActionItem(op, Action::kOpenMachining, session.IsToolOpen(PNL_TOOL_MACHINING_CALCULATOR)));
  for (const ToolRow& row : kTools) {
    SoftKeyItem item;
    item.id = kToolBase + row.tool;
    item.text = Say(row.word);
    item.enabled = row.made;
    item.checked = session.IsToolOpen(row.tool);
    items.push_back(item);
  }
  items.push_back(ActionItem(op, Action::kHelp));
  for (const Action action : {Action::kErrorList, Action::kOpenProgram, Action::kSaveProgram, Action::kSaveProgramAs,
                              Action::kNewProgram, Action::kCoordinates, Action::kOverrideFull}) {
    items.push_back(ActionItem(op, action));
  }
  if (op.HasMachine()) {
    SoftKeyItem faults;
    faults.id = kFaultsItem;
    faults.text = Say(Word::kDemoFaults);
    items.push_back(faults);
  }
  return items;
}

std::vector<SoftKeyItem> PanelSideItems(const HostSession& session, const Operator& op) {
  (void)session;
  std::vector<SoftKeyItem> items;
  for (const Action action : {Action::kOpenProgram, Action::kSaveProgram, Action::kNewProgram, Action::kSwitchRole,
                              Action::kCoordinates, Action::kOverrideFull}) {
    items.push_back(ActionItem(op, action));
  }
  return items;
}

std::vector<SoftKeyItem> PanelFaultItems(const Operator& op) {
  std::vector<SoftKeyItem> items;
  for (const DemoFault& fault : DemoFaults()) {
    SoftKeyItem item;
    item.id = kFaultBase + static_cast<int>(items.size());
    item.text = Say(fault.word);
    item.checked = !fault.fault && op.EmergencyStop();
    items.push_back(item);
  }
  return items;
}

std::vector<SoftKeyItem> PanelItemsOf(int tool) {
  const auto item = [](int id, Word word) {
    SoftKeyItem made;
    made.id = id;
    made.text = Say(word);
    return made;
  };
  if (tool == PNL_TOOL_EXPLORER) return {item(kAcceptItem, Word::kOk), item(kLeaveItem, Word::kClose)};
  if (tool != PNL_TOOL_MACHINING_CALCULATOR) return {};
  return {item(PNL_ZMC_EXPORT, Word::kExport), item(PNL_ZMC_IMPORT, Word::kImport),
          item(PNL_ZMC_CHANGES, Word::kOwnChanges), item(kCloseItem, Word::kClose)};
}

bool IsCloseItem(int id) { return id == kCloseItem; }

bool IsToolItem(int id) { return id == PNL_ZMC_EXPORT || id == PNL_ZMC_IMPORT || id == PNL_ZMC_CHANGES; }

int KeyOfItem(int id) { return id == kAcceptItem ? Qt::Key_Return : id == kLeaveItem ? Qt::Key_Escape : 0; }

std::optional<Action> ActionOfItem(int id) {
  if (id < 0 || id >= static_cast<int>(Action::kCount)) return std::nullopt;
  return static_cast<Action>(id);
}

int ToolOfItem(int id) { return id >= kToolBase && id < kFaultBase ? id - kToolBase : -1; }

const DemoFault* FaultOfItem(int id) {
  const auto faults = DemoFaults();
  const int index = id - kFaultBase;
  return index >= 0 && index < static_cast<int>(faults.size()) ? &faults[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace panel
