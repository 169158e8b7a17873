// SPDX-License-Identifier: MIT
// The C functions of pnltools.h. Each passes the call on to the library's instance. No exception leaves them.
#include <pnltools/pnltools.h>

#include <QWidget>

#include "base/replace_file.h"
#include "host/records.h"
#include "library/library.h"
#include "library/tool_factory.h"

namespace {

using pnl::Library;

/// Runs an operation and returns its result, or fallback if it throws (most likely for lack of memory).
template <typename Result, typename Operation>
Result Guarded(Result fallback, Operation operation) noexcept {
  try {
    return operation();
  } catch (...) {
    return fallback;
  }
}

template <typename Operation>
void Guarded(Operation operation) noexcept {
  try {
    operation();
  } catch (...) {
    // The call returns nothing, so it can't report a failure.
  }
}

int ResultOf(pnl::FileStatus status) {
  switch (status) {
    case pnl::FileStatus::kOk:
      return PNL_FILE_DONE;
    case pnl::FileStatus::kNotFound:
    case pnl::FileStatus::kOutOfReach:
      return PNL_FILE_OUT_OF_REACH;
    case pnl::FileStatus::kDenied:
      return PNL_FILE_DENIED;
    case pnl::FileStatus::kIsFolder:
      return PNL_FILE_IS_FOLDER;
    case pnl::FileStatus::kDiscFull:
      return PNL_FILE_DISC_FULL;
    case pnl::FileStatus::kFailed:
      break;
  }
  return PNL_FILE_FAILED;
}

}  // namespace

extern "C" {

void SetPNLApi(HostMayOpenToolFn mayOpenTool, HostToolOpeningFn toolOpening, HostToolClosedFn toolClosed,
               HostSetMainMenuFn setMainMenu, HostSetSideMenuFn setSideMenu, HostUpdateMainMenuFn updateMainMenu,
               HostUpdateSideMenuFn updateSideMenu, HostShowMessageFn showMessage,
               HostExplorerRequestFn explorerRequest, HostCalcResultAcceptedFn calcResultAccepted,
               HostExplorerAcceptedFn explorerAccepted, HostExplorerAcceptedAltFn explorerAcceptedAlt,
               HostInsertBlockFn insertBlock, HostShowErrorFn showError, HostErrorsGoneFn errorsGone,
               HostForwardKeyFn forwardKey, HostToolWantsCloseFn toolWantsClose, HostOpenCalculatorFn openCalculator,
               HostOpenMachiningCalculatorFn openMachiningCalculator) {
  pnl::HostApi = {mayOpenTool,
                  toolOpening,
                  toolClosed,
                  setMainMenu,
                  setSideMenu,
                  updateMainMenu,
                  updateSideMenu,
                  showMessage,
                  explorerRequest,
                  calcResultAccepted,
                  explorerAccepted,
                  explorerAcceptedAlt,
                  insertBlock,
                  showError,
                  errorsGone,
                  forwardKey,
                  toolWantsClose,
                  openCalculator,
                  openMachiningCalculator};
}

PnlWindow LoadPNLTool(int toolId, PnlWindow parent) {
  return Guarded<PnlWindow>(0, [&] { return Library::Instance().LoadTool(toolId, parent); });
}

PnlWindow PnlAttachWidget(void* qwidget, PnlMessageProc proc, void* context) {
  return Guarded<PnlWindow>(
      0, [&] { return pnl::WindowRegistry::Instance().Attach(static_cast<QWidget*>(qwidget), proc, context); });
}

void PnlSetMainWindow(PnlWindow window) {
  Guarded([&] { Library::Instance().Windows().SetMainWindow(window); });
}

void* PnlWidgetOf(PnlWindow window) {
  return Guarded<void*>(nullptr, [&] { return Library::Instance().Windows().WidgetOf(window); });
}

int PnlIsAlive(PnlWindow window) {
  return Guarded<int>(0, [&] { return Library::Instance().Windows().IsAlive(window) ? 1 : 0; });
}

void PnlDestroyWindow(PnlWindow window) {
  Guarded([&] { Library::Instance().DestroyTool(window); });
}

intptr_t PnlSendMessage(PnlWindow window, uint32_t message, intptr_t first, intptr_t second) {
  return Guarded<intptr_t>(0, [&] { return Library::Instance().Windows().Send(window, {message, first, second}); });
}

void PnlPostMessage(PnlWindow window, uint32_t message, intptr_t first, intptr_t second) {
  Guarded([&] { Library::Instance().Windows().Post(window, {message, first, second}); });
}

uint32_t PnlRegisterMessage(const char* name) {
  return Guarded<uint32_t>(0, [&] { return name != nullptr ? pnl::RegisterMessage(name) : 0; });
}

int32_t PnlPublishRecord(void* record) {
  return Guarded<int32_t>(0, [&] { return pnl::PublishRecord(record); });
}

void* PnlResolveRecord(int32_t number) { return pnl::ResolveRecord(number); }

void PnlWithdrawRecord(int32_t number) { pnl::WithdrawRecord(number); }

int PnlMenuItemCount(uint32_t menu) {
  return Guarded<int>(-1, [&] {
    const pnl::Menu* found = Library::Instance().Menus().Find(menu);
    return found != nullptr ? static_cast<int>(found->items.size()) : -1;
  });
}

int PnlMenuItemAt(uint32_t menu, int index, PnlMenuItem* item) {
  return Guarded<int>(0, [&] {
    const pnl::MenuItem* found = Library::Instance().Menus().FindItem(menu, index, true);
    if (found == nullptr || item == nullptr) return 0;
    item->id = found->id;
    item->enabled = found->enabled ? 1 : 0;
    item->checked = found->checked ? 1 : 0;
    item->visible = found->hidden ? 0 : 1;
    item->bitmap = found->bitmap;
    item->subMenu = found->subMenu;
    pnl::SetField(item->text, found->text);
    pnl::SetField(item->helper, found->helper);
    return 1;
  });
}

int PnlSetLanguage(const char* code) {
  return Guarded<int>(0, [&] { return code != nullptr && Library::Instance().SetLanguage(code) ? 1 : 0; });
}

int PnlHasTool(int32_t tool) { return pnl::HasTool(tool) ? 1 : 0; }

int PnlBitmap(int32_t number, const unsigned char** data, size_t* size) {
  return Guarded<int>(0, [&] {
    const std::string* svg = Library::Instance().Texts().Bitmap(number);
    if (svg == nullptr || data == nullptr || size == nullptr) return 0;
    *data = reinterpret_cast<const unsigned char*>(svg->data());
    *size = svg->size();
    return 1;
  });
}

int PnlSetBackend(const char* name) {
  return Guarded<int>(0, [&] { return name != nullptr && Library::Instance().SetBackend(name) ? 1 : 0; });
}

void PnlSetCredentialsAsker(PnlAskCredentialsFn ask, void* context) {
  Guarded([&] { Library::Instance().Credentials().SetHost(ask, context); });
}

void PnlAnswerCredentials(uint32_t request, const char16_t* user, const char16_t* domain, const char16_t* password) {
  Guarded([&] {
    pnl::SharedCredentials answer;
    if (user != nullptr) {
      const auto text = [](const char16_t* field) { return field != nullptr ? pnl::Text(field) : pnl::Text(); };
      answer = std::make_shared<const pnl::Credentials>(text(user), text(domain), text(password));
    }
    Library::Instance().Credentials().Answer(request, std::move(answer));
  });
}

int PnlReplaceFile(const char* path, const void* bytes, size_t size) {
  return Guarded<int>(PNL_FILE_FAILED, [&] {
    if (path == nullptr || *path == '\0' || (bytes == nullptr && size != 0)) return static_cast<int>(PNL_FILE_FAILED);
    return ResultOf(pnl::ReplaceFile(path, {static_cast<const char*>(bytes), size}));
  });
}

}  // extern "C"
