// SPDX-License-Identifier: MIT
#include "library/library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <cstdlib>
#include <filesystem>

#include "library/backend_loader.h"
#include "library/library_rig.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

class LibraryTest : public ::testing::Test {
 protected:
  LibraryTest() {
    rig::Drive drive;
    drive.dir = folder_.Path().string();
    library_.Simulation()->Storage().SetDrive(drive);
    parent_ = WindowRegistry::Instance().Attach(&host_, nullptr, nullptr);
    HostApi = {};
  }
  ~LibraryTest() override { HostApi = {}; }

  test::TempFolder folder_;
  Library library_;
  LibraryRig rig_{library_};
  QWidget host_;
  WindowHandle parent_ = 0;
};

struct ToolCase {
  int id;
  bool made;
};

TEST_F(LibraryTest, LoadingGivesAWindowForEachToolThatExistsAndZeroForTheRest) {
  // No folder was made for a language module, which whoever shares its texts says in a box.
  library_.Windows().SetBoxAnswerer([](const BoxSpec&) { return BoxAnswer::kOk; });
  const ToolCase cases[] = {{0, true}, {1, true}, {2, true},  {3, true},   {4, true},
                            {5, true}, {6, true}, {7, false}, {-1, false}, {0x7FFFFFFF, false}};
  for (const ToolCase& row : cases) {
    const WindowHandle window = library_.LoadTool(row.id, parent_);
    EXPECT_EQ(window != 0, row.made) << row.id;
    if (window == 0) continue;
    EXPECT_EQ(library_.Windows().WidgetOf(window)->property("pnlTool").toInt(), row.id);
    EXPECT_EQ(library_.Windows().WidgetOf(window)->parentWidget(), &host_);
    // Command line and help wait for a command, errors and PLC messages for a report; the others show themselves.
    EXPECT_EQ(library_.Windows().WidgetOf(window)->isVisibleTo(&host_), row.id == 3 || row.id == 4 || row.id == 5)
        << row.id;
  }
}

TEST_F(LibraryTest, AFrameToolWithoutAParentReportsThatItOpensAndIsClosed) {
  static std::vector<std::string> calls;
  calls.clear();
  HostApi.toolOpening = [](int tool) { calls.push_back("opening " + std::to_string(tool)); };
  HostApi.toolClosed = [](int tool, int reason) {
    calls.push_back("closed " + std::to_string(tool) + " " + std::to_string(reason));
  };
  for (const int tool : {0, 3, 6}) EXPECT_EQ(library_.LoadTool(tool, 0), 0) << tool;
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(library_.LoadTool(PNL_TOOL_EXPLORER, 0), 0);
  EXPECT_THAT(calls, ElementsAre("opening 5", "closed 5 2"));
  calls.clear();
  EXPECT_EQ(library_.LoadTool(PNL_TOOL_MACHINING_CALCULATOR, 0), 0);
  EXPECT_THAT(calls, ElementsAre("opening 4", "closed 4 2"));
  calls.clear();
  for (const int tool : {1, 2, 7, -1}) EXPECT_EQ(library_.LoadTool(tool, 0), 0) << tool;
  EXPECT_TRUE(calls.empty());
}

TEST_F(LibraryTest, AnUnknownNumberMakesNothing) {
  const qsizetype children = host_.children().size();
  EXPECT_EQ(library_.LoadTool(7, parent_), 0);
  EXPECT_EQ(library_.LoadTool(-1, parent_), 0);
  EXPECT_EQ(host_.children().size(), children);
  EXPECT_EQ(rig_.Open().windows, 0u);
}

TEST_F(LibraryTest, AToolWithoutALivingParentIsNotMade) {
  WindowHandle dead = 0;
  {
    QWidget gone;
    dead = WindowRegistry::Instance().Attach(&gone, nullptr, nullptr);
  }
  EXPECT_EQ(library_.LoadTool(6, 0), 0);
  EXPECT_EQ(library_.LoadTool(6, dead), 0);
  EXPECT_EQ(library_.LoadTool(6, 12345678), 0);
  EXPECT_EQ(rig_.Open().windows, 0u);
}

TEST_F(LibraryTest, TwoLoadsOfOneNumberMakeTwoTools) {
  const WindowHandle first = library_.LoadTool(6, parent_);
  const WindowHandle second = library_.LoadTool(6, parent_);
  EXPECT_NE(first, second);
  library_.DestroyTool(first);
  EXPECT_FALSE(library_.Windows().IsAlive(first));
  EXPECT_TRUE(library_.Windows().IsAlive(second));
}

TEST_F(LibraryTest, LoadingAndDestroyingLeavesNothingOpen) {
  const rig::Rig::Counts before = rig_.Open();
  for (int i = 0; i < 5; ++i) library_.DestroyTool(library_.LoadTool(6, parent_));
  const rig::Rig::Counts after = rig_.Open();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.menus, before.menus);
  EXPECT_EQ(after.timers, before.timers);
  EXPECT_EQ(after.reports, before.reports);
  EXPECT_EQ(after.records, before.records);
}

TEST_F(LibraryTest, AToolEndsWithItsParent) {
  auto* widget = new QWidget;
  const WindowHandle tool = library_.LoadTool(6, WindowRegistry::Instance().Attach(widget, nullptr, nullptr));
  ASSERT_NE(tool, 0);
  delete widget;
  EXPECT_FALSE(library_.Windows().IsAlive(tool));
  EXPECT_EQ(rig_.Open().menus, 0u);
}

TEST_F(LibraryTest, DestroyingLeavesWindowsOfTheHostAndDeadOnesAlone) {
  library_.DestroyTool(parent_);
  EXPECT_TRUE(library_.Windows().IsAlive(parent_));
  library_.DestroyTool(0);
  library_.DestroyTool(87654321);
  const WindowHandle tool = library_.LoadTool(6, parent_);
  library_.DestroyTool(tool);
  library_.DestroyTool(tool);
}

Library* current = nullptr;
WindowHandle doomed = 0;
std::vector<std::string> seen;

TEST_F(LibraryTest, AToolDestroyedFromItsOwnCallbackIsDeadAtOnceAndGoesOnceItsCodeIsThrough) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  doomed = library_.LoadTool(6, parent_);
  current = &library_;
  seen.clear();
  const QPointer<QWidget> widget = library_.Windows().WidgetOf(doomed);
  HostApi.toolOpening = [](int) {
    current->DestroyTool(doomed);
    seen.emplace_back(current->Windows().IsAlive(doomed) ? "alive" : "dead");
  };
  EXPECT_NE(library_.Windows().Send(doomed, {PNL_MSG_TOOL_COMMAND, 2, 1}), -12345);
  EXPECT_THAT(seen, ElementsAre("dead"));
  EXPECT_FALSE(widget.isNull());
  Library::Drain();
  EXPECT_TRUE(widget.isNull());
  EXPECT_EQ(rig_.Open().windows, 0u);
}

TEST_F(LibraryTest, TheBackendStaysWhileAToolThatHasEndedIsStillOnTheStack) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  current = &library_;
  const auto trySwitch = [] { seen.emplace_back(current->SetBackend("sim") ? "switched" : "refused"); };
  const struct {
    const char* what;
    void (*end)();
    std::vector<std::string> seen;
  } rows[] = {
      {"the library ends it", [] { current->DestroyTool(doomed); }, {"refused", "refused"}},
      {"the host deletes its window", [] { delete current->Windows().WidgetOf(doomed); }, {"refused", "switched"}},
  };
  static void (*end)() = nullptr;
  for (const auto& row : rows) {
    seen.clear();
    end = row.end;
    doomed = library_.LoadTool(6, parent_);
    HostApi.toolOpening = [](int) {
      end();
      seen.emplace_back(current->SetBackend("sim") ? "switched" : "refused");
    };
    library_.Windows().Send(doomed, {PNL_MSG_TOOL_COMMAND, 2, 1});
    trySwitch();
    EXPECT_EQ(seen, row.seen) << row.what;
    Library::Drain();
    EXPECT_TRUE(library_.SetBackend("sim")) << row.what;
  }
}

TEST_F(LibraryTest, AToolDestroyedWhileABoxIsOpenGoesOnceTheBoxIsAnswered) {
  const WindowHandle tool = library_.LoadTool(6, parent_);
  const QPointer<QWidget> widget = library_.Windows().WidgetOf(tool);
  library_.Windows().SetBoxAnswerer([&](const BoxSpec&) {
    library_.DestroyTool(tool);
    EXPECT_FALSE(library_.Windows().IsAlive(tool));
    EXPECT_FALSE(widget.isNull()) << "whoever opened the box stands below on the stack";
    return BoxAnswer::kOk;
  });
  library_.Windows().ShowBox(tool, {u"", u"?", BoxStyle::kError});
  Library::Drain();
  EXPECT_TRUE(widget.isNull());
}

TEST_F(LibraryTest, AToolDestroyedFromOutsideIsGoneAtOnce) {
  const WindowHandle tool = library_.LoadTool(6, parent_);
  const QPointer<QWidget> widget = library_.Windows().WidgetOf(tool);
  library_.DestroyTool(tool);
  EXPECT_TRUE(widget.isNull());
}

TEST_F(LibraryTest, ASecondTableHoldsForToolsThatAreOpen) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  seen.clear();
  HostApi.toolOpening = [](int) { seen.emplace_back("first host"); };
  const WindowHandle tool = library_.LoadTool(6, parent_);
  EXPECT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 2, 1}), 0);
  HostApi.toolOpening = [](int) { seen.emplace_back("second host"); };
  EXPECT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 4, 1}), 0);
  EXPECT_THAT(seen, ElementsAre("first host", "second host"));
}

TEST_F(LibraryTest, WithAllSlotsNullTheCommandLineOpensAndClosesAllTheSame) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  host_.show();
  const WindowHandle tool = library_.LoadTool(6, parent_);
  QWidget* widget = library_.Windows().WidgetOf(tool);
  EXPECT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 2, 1}), 0);
  EXPECT_TRUE(widget->isVisible());
  EXPECT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 5, 1}), 0);
  EXPECT_FALSE(widget->isVisible());
  EXPECT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 99, 1}), 0) << "an unknown code";
}

TEST_F(LibraryTest, TheLanguageChangesOnlyToAPackThatIsThere) {
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"End edit") << "the start value";
  EXPECT_TRUE(library_.SetLanguage("es"));
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"Fin de edición");
  for (const char* none : {"xx", "", "../en", "EN"}) EXPECT_FALSE(library_.SetLanguage(none)) << none;
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"Fin de edición");
  EXPECT_TRUE(library_.SetLanguage("none"));
  EXPECT_EQ(library_.Texts().LoadToolText(38), u"T38");
  EXPECT_NE(library_.Texts().LoadToolMenu(u"3015"), 0u);
  EXPECT_TRUE(library_.SetLanguage("en"));
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"End edit");
}

TEST_F(LibraryTest, WithoutAnyPackTheLibraryGoesOn) {
  qputenv("PNLTOOLS_LANG_DIR", "/nowhere");
  Library bare;
  EXPECT_FALSE(bare.SetLanguage("en"));
  EXPECT_EQ(bare.Texts().LoadToolText(7), u"");
  EXPECT_EQ(bare.Texts().LoadToolMenu(u"3015"), 0u);
  const WindowHandle tool = bare.LoadTool(6, parent_);
  EXPECT_NE(tool, 0);
  bare.DestroyTool(tool);
  qunsetenv("PNLTOOLS_LANG_DIR");
}

TEST_F(LibraryTest, WithoutAnyPackNeitherLanguageLibraryNorDescriptionsAreWritten) {
  qputenv("PNLTOOLS_LANG_DIR", "/nowhere");
  for (const bool machine : {false, true}) {
    Library bare;
    rig::Drive drive;
    drive.dir = folder_.Path().string();
    bare.Simulation()->Storage().SetDrive(drive);
    LibraryRig rig(bare);
    ASSERT_TRUE(machine ? rig.StartMachine("demo") : rig.StartBare());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path())) {
      EXPECT_TRUE(entry.is_directory()) << entry.path();
    }
  }
  qunsetenv("PNLTOOLS_LANG_DIR");
}

TEST_F(LibraryTest, ADamagedPackIsNone) {
  const test::TempFolder packs;
  packs.Write("en.pnl", "PNLLANG, but then something else");
  qputenv("PNLTOOLS_LANG_DIR", packs.Path().c_str());
  EXPECT_FALSE(library_.SetLanguage("en"));
  qunsetenv("PNLTOOLS_LANG_DIR");
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"End edit") << "the pack in use stays";
}

TEST_F(LibraryTest, ABareStartMakesTheFoldersAndPutsTheLanguageLibraryInItsPlace) {
  ASSERT_TRUE(rig_.StartBare());
  for (const int id : path_id::kAll) EXPECT_TRUE(folder_.Has("P" + std::to_string(id))) << id;
  EXPECT_TRUE(folder_.Has("P15/LPNLTOOLS.DLL"));
  const ModuleHandle module = library_.Texts().LoadLanguageLibrary();
  EXPECT_NE(module, 0u);
  library_.Texts().FreeLanguageLibrary(module);
  EXPECT_EQ(rig_.Machine(), nullptr);
}

TEST_F(LibraryTest, TheLanguageLibraryFollowsTheLanguage) {
  ASSERT_TRUE(rig_.StartBare());
  const std::string english = folder_.Read("P15/LPNLTOOLS.DLL");
  ASSERT_TRUE(library_.SetLanguage("es"));
  EXPECT_NE(folder_.Read("P15/LPNLTOOLS.DLL"), english);
  folder_.Write("P15/LPNLTOOLS.DLL", "damaged");
  ASSERT_TRUE(library_.SetLanguage("en"));
  EXPECT_EQ(folder_.Read("P15/LPNLTOOLS.DLL"), english);
}

TEST_F(LibraryTest, AMachineStartsOnceAndHasItsFolders) {
  EXPECT_FALSE(rig_.StartMachine("lathe from nowhere"));
  EXPECT_EQ(rig_.Machine(), nullptr);
  ASSERT_TRUE(rig_.StartMachine("demo"));
  EXPECT_NE(rig_.Machine(), nullptr);
  EXPECT_FALSE(rig_.StartMachine("demo"));
  EXPECT_FALSE(rig_.StartBare());
  for (const int id : path_id::kAll) {
    const auto host = rig_.Files().HostPath(rig_.Files().Path(id));
    ASSERT_TRUE(host.has_value()) << id;
    EXPECT_TRUE(std::filesystem::is_directory(*host)) << *host;
  }
  EXPECT_TRUE(folder_.Has("CNC/LANG/LPNLTOOLS.DLL"));
}

TEST_F(LibraryTest, ABackendLibraryTakesTheSimulationsPlace) {
  const std::string folder = PNL_TEST_BACKENDS;
  ASSERT_TRUE(library_.SetLanguage("es"));
  EXPECT_TRUE(library_.SetBackend(folder + "/tiny_works.so"));
  EXPECT_EQ(library_.Simulation(), nullptr);
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"Fin de edición") << "the language stays";
  const WindowHandle tool = library_.LoadTool(6, parent_);
  ASSERT_NE(tool, 0);
  EXPECT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 2, 1}), PNL_REFUSED) << "that control has no kernel";
  EXPECT_FALSE(library_.SetBackend("sim")) << "a tool is open";
  library_.DestroyTool(tool);
  EXPECT_TRUE(library_.SetBackend("sim"));
  EXPECT_NE(library_.Simulation(), nullptr);
}

TEST_F(LibraryTest, ABackendThatCantBeHadLeavesTheOneInUse) {
  const std::string folder = PNL_TEST_BACKENDS;
  for (const char* name : {"/tiny_makes_nothing.so", "/tiny_throws.so", "/tiny_exports_nothing.so", "/none.so"}) {
    EXPECT_FALSE(library_.SetBackend(folder + name)) << name;
    EXPECT_NE(library_.Simulation(), nullptr) << name;
  }
  EXPECT_FALSE(library_.SetBackend("")) << "no path at all";
}

TEST_F(LibraryTest, AForeignLibraryIsNotCalled) {
  // One with a symbol of the maker's name was called, whatever it was, and took the host down with it.
  const std::string folder = PNL_TEST_BACKENDS;
  for (const char* name : {"/tiny_is_foreign.so", "/tiny_is_old.so", "/tiny_mark_is_code.so", "/tiny_other_compiler.so",
                           "/tiny_other_name.so"}) {
    EXPECT_FALSE(library_.SetBackend(folder + name)) << name;
    EXPECT_NE(library_.Simulation(), nullptr) << name;
  }
}

TEST_F(LibraryTest, ABackendIsTakenByItsAbsolutePathOnly) {
  // A bare name is looked for in the system's folders, and a relative one wherever the host was started.
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(PNL_TEST_BACKENDS);
  ASSERT_EQ(setenv("LD_LIBRARY_PATH", PNL_TEST_BACKENDS, 1), 0);
  for (const char* name : {"tiny_works.so", "./tiny_works.so", "../backend/tiny_works.so"}) {
    EXPECT_FALSE(library_.SetBackend(name)) << name;
  }
  std::filesystem::current_path(before);
  EXPECT_NE(library_.Simulation(), nullptr);
}

TEST(BackendTest, ARefusalSaysWhy) {
  const std::string folder = PNL_TEST_BACKENDS;
  ManualTimers timers;
  QtWindowSystem windows{WindowRegistry::Instance()};
  const struct {
    std::string path;
    const char* problem;
  } rows[] = {{"tiny_works.so", "absolute path"},
              {folder + "/none.so", "none.so"},
              {folder + "/tiny_exports_nothing.so", "tiny_exports_nothing.so: is no backend library"},
              {folder + "/tiny_mark_is_code.so", "is no backend library"},
              {folder + "/tiny_other_name.so", "is no backend library"},
              {folder + "/tiny_is_old.so", "is made for version 0 of the interface, not 1"},
              {folder + "/tiny_other_compiler.so", "another compiler"},
              {folder + "/tiny_makes_nothing.so", "makes no backend"},
              {folder + "/tiny_throws.so", "makes no backend"}};
  for (const auto& row : rows) {
    std::string problem;
    EXPECT_EQ(LoadBackend(row.path, windows, timers, problem), nullptr);
    EXPECT_NE(problem.find(row.problem), std::string::npos) << problem;
  }
}

}  // namespace
}  // namespace pnl
