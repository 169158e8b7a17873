// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <filesystem>
#include <memory>

#include "library/library.h"
#include "support/temp_folder.h"

namespace {

using ::testing::ElementsAre;

/// The table's slots as numbers: slot n holds n + 1.
template <typename Fn>
Fn Slot(std::uintptr_t number) {
  return reinterpret_cast<Fn>(number + 1);
}

TEST(CFunctions, SetPNLApiCopiesTheNineteenCallbacksInOrder) {
  const pnl::HostApiTable before = pnl::HostApi;
  SetPNLApi(Slot<HostMayOpenToolFn>(0), Slot<HostToolOpeningFn>(1), Slot<HostToolClosedFn>(2),
            Slot<HostSetMainMenuFn>(3), Slot<HostSetSideMenuFn>(4), Slot<HostUpdateMainMenuFn>(5),
            Slot<HostUpdateSideMenuFn>(6), Slot<HostShowMessageFn>(7), Slot<HostExplorerRequestFn>(8),
            Slot<HostCalcResultAcceptedFn>(9), Slot<HostExplorerAcceptedFn>(10), Slot<HostExplorerAcceptedAltFn>(11),
            Slot<HostInsertBlockFn>(12), Slot<HostShowErrorFn>(13), Slot<HostErrorsGoneFn>(14),
            Slot<HostForwardKeyFn>(15), Slot<HostToolWantsCloseFn>(16), Slot<HostOpenCalculatorFn>(17),
            Slot<HostOpenMachiningCalculatorFn>(18));
  std::uintptr_t entries[19];
  static_assert(sizeof entries == sizeof pnl::HostApi);
  std::memcpy(entries, &pnl::HostApi, sizeof entries);
  for (std::uintptr_t i = 0; i < 19; ++i) EXPECT_EQ(entries[i], i + 1);
  // A second call replaces the table, checking nothing.
  SetPNLApi(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
            nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
  std::memcpy(entries, &pnl::HostApi, sizeof entries);
  for (const std::uintptr_t slot : entries) EXPECT_EQ(slot, 0u);
  pnl::HostApi = before;
}

struct Heard {
  PnlWindow window;
  std::uint32_t message;
};

std::intptr_t Hear(void* context, PnlWindow window, std::uint32_t message, std::intptr_t first, std::intptr_t second) {
  static_cast<std::vector<Heard>*>(context)->push_back({window, message});
  return first + second;
}

TEST(CFunctions, AHostsWidgetIsAWindowWhileItLives) {
  std::vector<Heard> heard;
  auto widget = std::make_unique<QWidget>();
  const PnlWindow window = PnlAttachWidget(widget.get(), Hear, &heard);
  ASSERT_NE(window, 0);
  EXPECT_EQ(PnlAttachWidget(widget.get(), Hear, &heard), window);
  EXPECT_EQ(PnlWidgetOf(window), widget.get());
  EXPECT_NE(PnlIsAlive(window), 0);
  EXPECT_EQ(PnlSendMessage(window, PNL_MSG_TOOL_NOTIFY, 40, 2), 42);
  PnlPostMessage(window, 0xC000, 0, 0);
  EXPECT_EQ(heard.size(), 1u);
  QCoreApplication::sendPostedEvents();
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[1].message, 0xC000u);
  PnlDestroyWindow(window);
  EXPECT_NE(PnlIsAlive(window), 0) << "a window of the host is left alone";
  widget.reset();
  EXPECT_EQ(PnlIsAlive(window), 0);
  EXPECT_EQ(PnlWidgetOf(window), nullptr);
  EXPECT_EQ(PnlSendMessage(window, 1, 2, 3), 0);
  PnlPostMessage(window, 1, 2, 3);
  EXPECT_EQ(PnlAttachWidget(nullptr, Hear, nullptr), 0);
}

TEST(CFunctions, ToolsAreLoadedAndDestroyedByNumber) {
  QWidget host;
  const PnlWindow parent = PnlAttachWidget(&host, nullptr, nullptr);
  const PnlWindow tool = LoadPNLTool(PNL_TOOL_MDI, parent);
  ASSERT_NE(tool, 0);
  EXPECT_EQ(static_cast<QWidget*>(PnlWidgetOf(tool))->parentWidget(), &host);
  PnlDestroyWindow(tool);
  EXPECT_EQ(PnlIsAlive(tool), 0);
  EXPECT_EQ(LoadPNLTool(7, parent), 0);
  EXPECT_EQ(LoadPNLTool(-1, parent), 0);
  EXPECT_EQ(LoadPNLTool(PNL_TOOL_MDI, 0), 0);
}

TEST(CFunctions, AToolIsMadeOnTheWindowThreadOnly) {
  QWidget host;
  const PnlWindow parent = PnlAttachWidget(&host, nullptr, nullptr);
  PnlWindow tool = -1;
  const std::unique_ptr<QThread> thread(QThread::create([&] { tool = LoadPNLTool(PNL_TOOL_MDI, parent); }));
  thread->start();
  thread->wait();
  EXPECT_EQ(tool, 0);
}

TEST(CFunctions, ARegisteredNameHasOneNumber) {
  const std::uint32_t number = PnlRegisterMessage("MDI_ENDLIST");
  EXPECT_GE(number, 0xC000u);
  EXPECT_EQ(PnlRegisterMessage("MDI_ENDLIST"), number);
  EXPECT_NE(PnlRegisterMessage("XPLR_GO"), number);
  EXPECT_EQ(PnlRegisterMessage(nullptr), 0u);
}

TEST(CFunctions, ARecordIsFoundByItsNumber) {
  int record = 0;
  const std::int32_t number = PnlPublishRecord(&record);
  EXPECT_EQ(PnlResolveRecord(number), &record);
  PnlWithdrawRecord(number);
  EXPECT_EQ(PnlResolveRecord(number), nullptr);
}

TEST(CFunctions, AMenuIsReadItemByItem) {
  pnl::Menu menu;
  pnl::MenuItem first;
  first.id = 40003;
  first.text = u"Move up";
  first.helper = pnl::Text(300, u'h');
  first.bitmap = 3019;
  first.checked = true;
  pnl::MenuItem second;
  second.id = 40004;
  second.enabled = false;
  second.hidden = true;
  menu.items = {first, second};
  const std::uint32_t handle = pnl::Library::Instance().Menus().Create(menu);
  EXPECT_EQ(PnlMenuItemCount(handle), 2);
  PnlMenuItem item = {};
  ASSERT_NE(PnlMenuItemAt(handle, 0, &item), 0);
  EXPECT_EQ(item.id, 40003);
  EXPECT_EQ(pnl::FieldText(item.text), u"Move up");
  EXPECT_EQ(pnl::FieldText(item.helper), pnl::Text(127, u'h'));
  EXPECT_EQ(item.bitmap, 3019);
  EXPECT_EQ(item.enabled, 1);
  EXPECT_EQ(item.checked, 1);
  EXPECT_EQ(item.visible, 1);
  EXPECT_EQ(item.subMenu, 0u);
  ASSERT_NE(PnlMenuItemAt(handle, 1, &item), 0);
  EXPECT_EQ(item.enabled, 0);
  EXPECT_EQ(item.visible, 0);
  const std::int32_t kept = item.id;
  EXPECT_EQ(PnlMenuItemAt(handle, 2, &item), 0);
  EXPECT_EQ(PnlMenuItemAt(handle, -1, &item), 0);
  EXPECT_EQ(PnlMenuItemAt(handle, 0, nullptr), 0);
  EXPECT_EQ(item.id, kept) << "the record stays as it was";
  pnl::Library::Instance().Menus().Destroy(handle);
  EXPECT_EQ(PnlMenuItemCount(handle), -1);
  EXPECT_EQ(PnlMenuItemAt(handle, 0, &item), 0);
}

TEST(CFunctions, ABitmapComesAsSvg) {
  ASSERT_NE(PnlSetLanguage("en"), 0);
  const unsigned char* data = nullptr;
  std::size_t size = 0;
  ASSERT_NE(PnlBitmap(3017, &data, &size), 0);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(data), size).substr(0, 4), "<svg");
  EXPECT_EQ(PnlBitmap(1, &data, &size), 0);
  EXPECT_EQ(PnlBitmap(3017, nullptr, &size), 0);
  EXPECT_EQ(PnlBitmap(3017, &data, nullptr), 0);
  EXPECT_EQ(PnlSetLanguage("xx"), 0);
  EXPECT_EQ(PnlSetLanguage(nullptr), 0);
}

TEST(CFunctions, TellWhichToolsThereAre) {
  for (const int tool : {PNL_TOOL_CALCULATOR, PNL_TOOL_ERRORS, PNL_TOOL_EXPLORER, PNL_TOOL_HELP,
                         PNL_TOOL_MACHINING_CALCULATOR, PNL_TOOL_MDI, PNL_TOOL_PLC_MESSAGES}) {
    EXPECT_NE(PnlHasTool(tool), 0) << tool;
  }
  EXPECT_EQ(PnlHasTool(-1), 0);
  EXPECT_EQ(PnlHasTool(9999), 0);
}

TEST(CFunctions, TheRigIsThereWithTheSimulationAndGoneWithABackend) {
  ASSERT_NE(PnlRig(), nullptr);
  const std::string backend = std::string(PNL_TEST_BACKENDS) + "/tiny_works.so";
  ASSERT_NE(PnlSetBackend(backend.c_str()), 0);
  EXPECT_EQ(PnlRig(), nullptr);
  EXPECT_EQ(PnlSetBackend("/none.so"), 0);
  EXPECT_EQ(PnlSetBackend(nullptr), 0);
  EXPECT_EQ(PnlRig(), nullptr);
  ASSERT_NE(PnlSetBackend("sim"), 0);
  EXPECT_NE(PnlRig(), nullptr);
}

TEST(CFunctions, AFileIsReplacedWholeAndTheResultSaysWhyNot) {
  const pnl::test::TempFolder temp;
  temp.Write("a.txt", "old");
  temp.Write("locked.txt", "old");
  temp.Write("folder/x", "");
  std::filesystem::permissions(temp.Path() / "locked.txt", std::filesystem::perms::owner_read);
  const std::string folder = temp.Path().string() + "/";
  EXPECT_EQ(PnlReplaceFile((folder + "a.txt").c_str(), "new\0er", 6), PNL_FILE_DONE);
  EXPECT_EQ(temp.Read("a.txt"), std::string("new\0er", 6));
  EXPECT_EQ(PnlReplaceFile((folder + "a.txt").c_str(), nullptr, 0), PNL_FILE_DONE);
  EXPECT_EQ(temp.Read("a.txt"), "");
  EXPECT_EQ(PnlReplaceFile((folder + "none/a.txt").c_str(), "x", 1), PNL_FILE_OUT_OF_REACH);
  EXPECT_EQ(PnlReplaceFile((folder + "locked.txt").c_str(), "x", 1), PNL_FILE_DENIED);
  EXPECT_EQ(PnlReplaceFile((folder + "folder").c_str(), "x", 1), PNL_FILE_IS_FOLDER);
  EXPECT_EQ(PnlReplaceFile("/dev/null", "x", 1), PNL_FILE_DENIED);
  EXPECT_EQ(PnlReplaceFile(nullptr, "x", 1), PNL_FILE_FAILED);
  EXPECT_EQ(PnlReplaceFile("", "x", 1), PNL_FILE_FAILED);
  EXPECT_EQ(PnlReplaceFile((folder + "b.txt").c_str(), nullptr, 1), PNL_FILE_FAILED);
  EXPECT_FALSE(temp.Has("b.txt"));
}

}  // namespace
