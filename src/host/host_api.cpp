// SPDX-License-Identifier: MIT
#include "host/host_api.h"

#include <type_traits>

#include "host/records.h"

namespace pnl {

// All null at first: a tool that is made before SetPNLApi finds no service.
__attribute__((section(".PNLTOOL"), used)) HostApiTable HostApi = {};

const std::array<std::string_view, 19> kHostSlotNames = {
    "HostMayOpenTool",
    "HostToolOpening",
    "HostToolClosed",
    "HostSetMainMenu",
    "HostSetSideMenu",
    "HostUpdateMainMenu",
    "HostUpdateSideMenu",
    "HostShowMessage",
    "HostExplorerRequest",
    "HostCalcResultAccepted",
    "HostExplorerAccepted",
    "HostExplorerAcceptedAlt",
    "HostInsertBlock",
    "HostShowError",
    "HostErrorsGone",
    "HostForwardKey",
    "HostToolWantsClose",
    "HostOpenCalculator",
    "HostOpenMachiningCalculator",
};

namespace {

HostMenuRef MenuRef(std::uint32_t menu) {
  HostMenuRef ref = {};
  ref.menu = menu;
  ref.one = 1;
  ref.another = 1;
  return ref;
}

class DepthGuard {
 public:
  explicit DepthGuard(int& depth) : depth_(depth) { ++depth_; }
  ~DepthGuard() { --depth_; }
  DepthGuard(const DepthGuard&) = delete;
  DepthGuard& operator=(const DepthGuard&) = delete;

 private:
  int& depth_;
};

}  // namespace

/// The rule of all wrappers: a null slot does nothing, and returns 0 where there is a result.
template <typename Slot, typename... Args>
auto HostBridge::Call(Slot slot, const Args&... args) const {
  using Result = std::invoke_result_t<Slot, Args...>;
  const DepthGuard guard(depth_);
  if constexpr (std::is_void_v<Result>) {
    if (slot != nullptr) slot(args...);
  } else {
    return slot != nullptr ? slot(args...) : Result{};
  }
}

int HostBridge::HostMayOpenTool(int tool) const { return Call(table_.mayOpenTool, tool); }
void HostBridge::HostToolOpening(int tool) const { Call(table_.toolOpening, tool); }
void HostBridge::HostToolClosed(int tool, int reason) const { Call(table_.toolClosed, tool, reason); }
void HostBridge::HostSetMainMenu(int tool, std::uint32_t menu) const { Call(table_.setMainMenu, tool, MenuRef(menu)); }
void HostBridge::HostSetSideMenu(int tool, std::uint32_t menu) const { Call(table_.setSideMenu, tool, MenuRef(menu)); }
void HostBridge::HostUpdateMainMenu(int tool) const { Call(table_.updateMainMenu, tool, 0); }
void HostBridge::HostUpdateSideMenu(int tool) const { Call(table_.updateSideMenu, tool, 0); }

void HostBridge::HostShowMessage(int tool, TextView text, std::uint32_t back, std::uint32_t fore, int line) const {
  HostMessage message = {};
  message.line = line;
  message.one = 1;
  message.another = 1;
  SetField(message.text, text);
  message.back = back;
  message.fore = fore;
  message.ten = 10;
  const HostMessage* record = &message;
  Call(table_.showMessage, tool, record);
}

void HostBridge::HostExplorerRequest(XPLRDATA_ST& record) const {
  if (table_.explorerRequest == nullptr) return;
  ZCVariable variable(variables_, u"E.XPLRDATA");
  if (variable.IsValid()) variable.WriteInt(PublishRecord(&record), 0);
  // The host gets the request even on a machine without the variable.
  Call(table_.explorerRequest);
}

void HostBridge::HostCalcResultAccepted() const { Call(table_.calcResultAccepted); }
void HostBridge::HostExplorerAccepted() const { Call(table_.explorerAccepted); }
void HostBridge::HostExplorerAcceptedAlt() const { Call(table_.explorerAcceptedAlt); }
void HostBridge::HostInsertBlock() const { Call(table_.insertBlock); }

int HostBridge::HostShowError(const HostErrorLine& line) const {
  const HostErrorLine* record = &line;
  return Call(table_.showError, record);
}

void HostBridge::HostErrorsGone() const { Call(table_.errorsGone); }
void HostBridge::HostForwardKey(int key) const { Call(table_.forwardKey, key); }
void HostBridge::HostToolWantsClose(int tool) const { Call(table_.toolWantsClose, tool); }
void HostBridge::HostOpenCalculator() const { Call(table_.openCalculator); }
void HostBridge::HostOpenMachiningCalculator() const { Call(table_.openMachiningCalculator); }

}  // namespace pnl
