// SPDX-License-Identifier: MIT
// What the library keeps over a change of language or backend, what it puts onto a machine's drive, and the moments at
// which it refuses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <filesystem>
#include <future>

#include "facade/mill/machine_errors.h"
#include "library/library_rig.h"
#include "support/event_wait.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

namespace fs = std::filesystem;

Library* current = nullptr;
std::vector<std::string> seen;

class LibraryState : public ::testing::Test {
 protected:
  LibraryState() {
    rig::Drive drive;
    drive.dir = folder_.Path().string();
    library_.Simulation()->Storage().SetDrive(drive);
    parent_ = WindowRegistry::Instance().Attach(&host_, nullptr, nullptr);
    HostApi = {};
    current = &library_;
    seen.clear();
  }
  ~LibraryState() override { HostApi = {}; }

  test::TempFolder folder_;
  Library library_;
  LibraryRig rig_{library_};
  QWidget host_;
  WindowHandle parent_ = 0;
};

TEST_F(LibraryState, NumbersForTextsOutliveAChangeOfTheBackendAndEndWithALanguage) {
  ASSERT_TRUE(library_.SetLanguage("none"));
  ASSERT_TRUE(library_.SetBackend("sim"));
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"T7");
  ASSERT_TRUE(library_.SetLanguage("es"));
  ASSERT_TRUE(library_.SetBackend("sim"));
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"Fin de edición");
  EXPECT_FALSE(library_.SetLanguage("xx"));
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"Fin de edición");
}

TEST_F(LibraryState, AMachinesFoldersFollowTheLanguage) {
  ASSERT_TRUE(library_.SetLanguage("es"));
  ASSERT_TRUE(rig_.StartMachine("demo"));
  EXPECT_EQ(rig_.Files().Path(path_id::kHelpLanguage), u"C:\\CNC\\HELP\\ES");
  EXPECT_EQ(rig_.Files().Path(path_id::kPlcFiles), u"C:\\CNC\\PLC\\ES");
  ASSERT_TRUE(library_.SetLanguage("en"));
  EXPECT_EQ(rig_.Files().Path(path_id::kHelpLanguage), u"C:\\CNC\\HELP\\EN");
  EXPECT_EQ(rig_.Files().Path(path_id::kPlcFiles), u"C:\\CNC\\PLC\\EN");
}

TEST_F(LibraryState, WithoutAMachineTheFoldersStayWhenTheLanguageChanges) {
  ASSERT_TRUE(rig_.StartBare());
  const Text before = Text(rig_.Files().Path(path_id::kHelpLanguage));
  ASSERT_TRUE(library_.SetLanguage("es"));
  EXPECT_EQ(rig_.Files().Path(path_id::kHelpLanguage), before);
}

TEST_F(LibraryState, AMachineHasAFolderForEachKindOfFile) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  const struct {
    int id;
    TextView folder;
  } rows[] = {{1, u"C:\\CNC\\CALC"},     {15, u"C:\\CNC\\LANG"},      {18, u"C:\\CNC\\HELP\\EN"},
              {24, u"C:\\CNC\\CUTTING"}, {52, u"C:\\CNC\\SETUP"},     {57, u"C:\\CNC\\HELP\\MACHINE"},
              {61, u"C:\\CNC\\PLC\\EN"}, {100, u"C:\\CNC"},           {101, u"C:\\CNC\\PROGRAMS"},
              {108, u"C:\\CNC\\USER"},   {113, u"C:\\CNC\\HELP\\EN"}, {118, u"C:\\CNC\\USER\\CUTTING"}};
  for (const auto& row : rows) EXPECT_EQ(rig_.Files().Path(row.id), row.folder) << row.id;
  EXPECT_EQ(library_.Simulation()->Util().UTIL7340_DriveStatus(1), 0) << "its drive is ready";
}

TEST_F(LibraryState, AMachinesDescriptionsAreOnItsDriveInEveryLanguage) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  const auto hostFile = [this](const char* language) { return *rig_.Files().HostPath(sim::DescriptionFile(language)); };
  for (const char* const language : {"en", "es"}) EXPECT_TRUE(fs::is_regular_file(hostFile(language))) << language;
  // What differs is written again, and the rest is left alone.
  const auto size = fs::file_size(hostFile("en"));
  fs::resize_file(hostFile("en"), size / 2);
  const auto longAgo = fs::last_write_time(hostFile("es")) - std::chrono::hours(1);
  fs::last_write_time(hostFile("es"), longAgo);
  const fs::path pack = *rig_.Files().HostPath(u"C:\\CNC\\LANG\\LPNLTOOLS.DLL");
  fs::last_write_time(pack, longAgo);
  library_.PrepareFolders();
  EXPECT_EQ(fs::file_size(hostFile("en")), size);
  EXPECT_EQ(fs::last_write_time(hostFile("es")), longAgo);
  EXPECT_EQ(fs::last_write_time(pack), longAgo);
}

TEST_F(LibraryState, ALanguageLibraryThatCannotBeWrittenIsAWordOnStandardError) {
  static_cast<void>(folder_.Folder("P15/LPNLTOOLS.DLL"));
  testing::internal::CaptureStderr();
  EXPECT_TRUE(rig_.StartBare());
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("no language library"));
  testing::internal::CaptureStderr();
  EXPECT_FALSE(library_.SetLanguage("xx"));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("no language pack \"xx\""));
}

TEST_F(LibraryState, BeforeItsFoldersAreMadeNoLanguageLibraryIsWritten) {
  ASSERT_TRUE(library_.SetLanguage("es"));
  EXPECT_FALSE(folder_.Has("P15"));
}

TEST_F(LibraryState, TheBackendStaysWhileTheHostIsCalled) {
  const auto trySwitch = [] { seen.emplace_back(current->SetBackend("sim") ? "switched" : "refused"); };
  HostApi.toolOpening = [](int) { seen.emplace_back(current->SetBackend("sim") ? "switched" : "refused"); };
  // A frame tool without a parent calls the host and makes no window.
  EXPECT_EQ(library_.LoadTool(PNL_TOOL_EXPLORER, 0), 0);
  library_.Windows().SetBoxAnswerer([&](const BoxSpec&) {
    trySwitch();
    return BoxAnswer::kOk;
  });
  library_.Windows().ShowBox(0, {u"", u"?", BoxStyle::kInfo});
  trySwitch();
  EXPECT_THAT(seen, ElementsAre("refused", "refused", "switched"));
}

TEST_F(LibraryState, AToolWhoseParentEndsWhileItStartsIsNoTool) {
  library_.Windows().SetBoxAnswerer([](const BoxSpec&) { return BoxAnswer::kOk; });
  static QPointer<QWidget> parent;
  HostApi.toolOpening = [](int) { delete parent; };
  for (const int tool : {PNL_TOOL_CALCULATOR, PNL_TOOL_MACHINING_CALCULATOR, PNL_TOOL_EXPLORER}) {
    parent = new QWidget;
    const WindowHandle window = WindowRegistry::Instance().Attach(parent, nullptr, nullptr);
    EXPECT_EQ(library_.LoadTool(tool, window), 0) << tool;
    EXPECT_TRUE(parent.isNull()) << tool;
  }
  Library::Drain();
  EXPECT_EQ(rig_.Open().windows, 0u);
}

TEST_F(LibraryState, AToolDestroyedWhileABoxIsOpenIsHiddenAtOnceAndGoesLater) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  host_.show();
  const WindowHandle tool = library_.LoadTool(PNL_TOOL_MDI, parent_);
  ASSERT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 2, 1}), 0);
  const QPointer<QWidget> widget = library_.Windows().WidgetOf(tool);
  ASSERT_TRUE(widget->isVisible());
  library_.Windows().SetBoxAnswerer([&](const BoxSpec&) {
    library_.DestroyTool(tool);
    EXPECT_FALSE(widget->isVisible());
    return BoxAnswer::kOk;
  });
  library_.Windows().ShowBox(tool, {u"", u"?", BoxStyle::kInfo});
  EXPECT_FALSE(widget.isNull());
  EXPECT_FALSE(library_.SetBackend("sim")) << "it still waits for its deletion";
  Library::Drain();
  EXPECT_TRUE(widget.isNull());
}

// The C functions that only pass something on.

TEST(LibraryFunctions, TheMainWindowIsTheOneThatWasNamed) {
  QWidget host;
  const PnlWindow window = PnlAttachWidget(&host, nullptr, nullptr);
  QtWindowSystem& windows = Library::Instance().Windows();
  const WindowHandle before = windows.MainWindow();
  PnlSetMainWindow(window);
  EXPECT_EQ(windows.MainWindow(), window);
  PnlSetMainWindow(before);
  EXPECT_EQ(PnlIsAlive(window), 1);
  EXPECT_EQ(PnlSetLanguage("en"), 1);
}

TEST(LibraryFunctions, AnItemsSubMenuAndItsStateReachTheHost) {
  MenuTable& menus = Library::Instance().Menus();
  const MenuHandle sub = menus.Create({});
  MenuItem item;
  item.id = 5;
  item.subMenu = sub;
  item.text = Text(300, u't');
  const MenuHandle menu = menus.Create({{item}});
  PnlMenuItem seenItem = {};
  seenItem.checked = 1;
  seenItem.bitmap = 7;
  ASSERT_EQ(PnlMenuItemAt(menu, 0, &seenItem), 1);
  EXPECT_EQ(seenItem.subMenu, sub);
  EXPECT_EQ(seenItem.checked, 0);
  EXPECT_EQ(seenItem.bitmap, 0);
  EXPECT_EQ(seenItem.visible, 1);
  EXPECT_EQ(FieldText(seenItem.text), Text(std::size(seenItem.text) - 1, u't'));
  EXPECT_EQ(PnlMenuItemCount(sub), 0);
  menus.Destroy(menu);
}

TEST(LibraryFunctions, TheHostsAnswerIsWhatTheQuestionGets) {
  struct Answer {
    const char16_t* user;
    const char16_t* domain;
    const char16_t* password;
  };
  static Answer answer;
  static int asked = 0;
  PnlSetCredentialsAsker(
      [](void*, std::uint32_t request, const char16_t*, int) {
        ++asked;
        PnlAnswerCredentials(request, answer.user, answer.domain, answer.password);
      },
      nullptr);
  const auto ask = [](Answer given) {
    answer = given;
    const int before = asked;
    auto result = std::async(std::launch::async, [] { return Library::Instance().Credentials().Ask(u"SRV", false); });
    EXPECT_TRUE(test::RunUntil([before] { return asked == before + 1; }));
    const SharedCredentials got = result.get();
    return got == nullptr ? Text(u"refused") : got->user + u"/" + got->domain + u"/" + got->password;
  };
  EXPECT_EQ(ask({u"ana", u"PLANT", u"secret"}), u"ana/PLANT/secret");
  EXPECT_EQ(ask({u"ana", nullptr, nullptr}), u"ana//");
  EXPECT_EQ(ask({nullptr, u"PLANT", u"secret"}), u"refused") << "without a user";
  PnlSetCredentialsAsker(nullptr, nullptr);
}

}  // namespace
}  // namespace pnl
