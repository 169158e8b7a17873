// SPDX-License-Identifier: MIT
// Discs that are full, folders that can't be written, files that vanish, are damaged or change under the tool. What the
// operator typed stays on the screen, and nothing of others is lost.
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kNotSaved = "1 [T60001] back 2C8064";

class ZmcFailuresTest : public testing::Test, public ZmcStage {
 protected:
  void OpenSteel() {
    SetUserFile("<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>", "");
    Open();
    ComputeSteel();
    messages.clear();
    TakeBoxes();
  }
  void OpenMaterials() {
    SetUserFile(
        "<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>"
        "<MaterialDefinition><descripcion>Other</descripcion></MaterialDefinition>",
        "");
    Open();
    Menu(32819);
    messages.clear();
    TakeBoxes();
  }
};

TEST_F(ZmcFailuresTest, ACellThatCannotBeStoredIsNamedAndComputedAllTheSame) {
  struct Row {
    const char* name;
    std::function<void()> fail;
    std::vector<std::string> boxes, messages;
  };
  const Row kRows[] = {
      {"a full disc", [this] { files.full = true; }, {}, {kNotSaved}},
      {"a read-only file", [this] { files.readOnly.insert(kUserPath); }, {}, {kNotSaved}},
      {"no file", [this] { files.disc.erase(kUserPath); }, {}, {kNotSaved}},
      {"out of reach", [this] { files.away.insert("C:\\P118"); }, {}, {kNotSaved}},
      {"unreadable", [this] { files.unreadable.insert(kUserPath); }, {}, {kNotSaved}},
      {"damaged", [this] { files.disc[kUserPath] = "<Condi"; }, {"T278"}, {}},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    OpenSteel();
    row.fail();
    const std::string before = UserFile();
    EXPECT_TRUE(Cell(1, 3, u"60"));
    EXPECT_EQ(CellOf(1, 3), "60");
    EXPECT_EQ(TextOf(id::kS), "1909");
    EXPECT_EQ(TakeBoxes(), row.boxes);
    EXPECT_EQ(messages, row.messages);
    EXPECT_EQ(UserFile(), before);
    DestroyTool();
    files.full = false;
    files.readOnly.clear();
    files.away.clear();
    files.unreadable.clear();
  }
}

TEST_F(ZmcFailuresTest, ARemarkThatCannotBeStoredStaysOnTheScreen) {
  OpenSteel();
  files.full = true;
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  view->controls.at(id::kRemark).text = u"Rough";
  Key(ZmcKey::kEnter);
  EXPECT_EQ(TextOf(id::kRemark), "Rough");
  EXPECT_THAT(messages, ElementsAre(kNotSaved));
}

TEST_F(ZmcFailuresTest, WhatNoFileCanContainIsNamedAndStaysOnTheScreen) {
  const Text control = u"a\u0001b";
  OpenSteel();
  const std::string before = UserFile();
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  view->controls.at(id::kRemark).text = control;
  Key(ZmcKey::kEnter);
  EXPECT_EQ(TextOf(id::kRemark), ToUtf8(control));
  EXPECT_THAT(messages, ElementsAre(kNotSaved));
  EXPECT_TRUE(Cell(1, 3, u"1e999"));
  EXPECT_EQ(CellOf(1, 3), "1e999");
  EXPECT_THAT(messages, ElementsAre(kNotSaved, kNotSaved));
  EXPECT_EQ(UserFile(), before);
  Menu(32819);
  messages.clear();
  EXPECT_TRUE(view->materials.Type(1, 1, control));
  Menu(32783);
  EXPECT_EQ(view->materials.Column(1).front(), ToUtf8(control));
  EXPECT_THAT(messages, ElementsAre(kNotSaved));
  EXPECT_TRUE(Item(32783)->enabled) << "the row can be changed and saved again";
  EXPECT_EQ(UserFile(), before);
}

TEST_F(ZmcFailuresTest, WithoutTheUserFileAPairShowsNothingAndNoQuality) {
  OpenSteel();
  files.disc.erase(kUserPath);
  Pick(id::kMaterial, u"Brass");
  Pick(id::kMaterial, u"Steel");
  EXPECT_EQ(CellOf(1, 1), "");
  EXPECT_EQ(messages.back(), "1 [] back 646E78");
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(ZmcFailuresTest, ADamagedFileIsToldAtASelectionAndTheToolsFollowAllTheSame) {
  OpenSteel();
  files.disc[kUserPath] = "<Condi";
  Pick(id::kOperation, u"Turning");
  EXPECT_THAT(TakeBoxes(), ElementsAre("T278"));
  EXPECT_EQ(TextOf(id::kOperation), "Turning");
  EXPECT_THAT(Items(id::kTool), ElementsAre("T7"));
  EXPECT_EQ(CellOf(1, 3), "");
}

TEST_F(ZmcFailuresTest, TheRecordsOfASecondProgramStay) {
  OpenSteel();
  const std::string theirs = "<MaterialDefinition><descripcion>Theirs</descripcion></MaterialDefinition>";
  SetUserFile(theirs, "");
  EXPECT_TRUE(Cell(1, 3, u"60"));
  EXPECT_THAT(UserFile(), HasSubstr("Theirs"));
  EXPECT_THAT(UserFile(), HasSubstr("600000000"));
  Menu(32819);
  SetUserFile(theirs + "<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>", "");
  for (int row = 1; row < view->materials.Rows(); ++row) {
    if (view->materials.CellText(row, 1) == u"Own") view->materials.Type(row, 1, u"Renamed");
  }
  Menu(32783);
  EXPECT_THAT(UserFile(), HasSubstr("Theirs"));
  EXPECT_THAT(UserFile(), HasSubstr("Renamed"));
  EXPECT_THAT(view->materials.Column(1), Contains("Theirs"));
}

TEST_F(ZmcFailuresTest, ARowThatCannotBeStoredStaysChangedAndIsStoredLater) {
  struct Row {
    const char* name;
    std::function<void()> fail;
    std::vector<std::string> boxes, messages;
  };
  const Row kRows[] = {{"a full disc", [this] { files.full = true; }, {}, {kNotSaved}},
                       {"a read-only file", [this] { files.readOnly.insert(kUserPath); }, {}, {kNotSaved}},
                       {"damaged", [this] { files.disc[kUserPath] = "<Condi"; }, {"T278"}, {}}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    OpenMaterials();
    const std::string before = UserFile();
    view->materials.Type(1, 1, u"Typed");
    row.fail();
    Menu(32783);
    EXPECT_EQ(view->materials.Column(1).front(), "Typed");
    EXPECT_TRUE(Item(32783)->enabled);
    EXPECT_EQ(TakeBoxes(), row.boxes);
    EXPECT_EQ(messages, row.messages);
    EXPECT_EQ(Command(PNL_COMMAND_CLOSE_TOOL), PNL_CLOSE_REFUSED) << "what was typed would be lost";
    files.full = false;
    files.readOnly.clear();
    files.disc[kUserPath] = before;
    Menu(32783);
    EXPECT_THAT(UserFile(), HasSubstr("Typed"));
    EXPECT_FALSE(Item(32783)->enabled);
    DestroyTool();
  }
}

TEST_F(ZmcFailuresTest, AVanishedUserFileSavesNothingSaysNothingAndKeepsWhatWasTyped) {
  for (const bool away : {false, true}) {
    OpenMaterials();
    view->materials.Type(1, 1, u"Typed");
    const std::string before = UserFile();
    if (away) {
      files.away.insert("C:\\P118");
    } else {
      files.disc.erase(kUserPath);
    }
    Menu(32783);
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(view->materials.Column(1).front(), "Typed");
    EXPECT_EQ(UserFile() == before, away);
    ClickHeader(ZmcTab::kMaterials, 1);
    EXPECT_EQ(view->materials.Column(1).front(), "Typed") << "rows that wait aren't filled anew";
    // The tab can be left, and the change is there when the file is.
    Menu(32818);
    EXPECT_EQ(view->shownTabs, std::set<ZmcTab>{ZmcTab::kMain});
    files.away.clear();
    files.disc[kUserPath] = before;
    Menu(32819);
    TakeBoxes();
    Menu(32783);
    EXPECT_THAT(UserFile(), HasSubstr("Typed"));
    DestroyTool();
  }
}

TEST_F(ZmcFailuresTest, AVanishedUserFileLetsARowGoFromTheGridWithoutAWord) {
  OpenMaterials();
  MoveTo(ZmcTab::kMaterials, 1, 1);
  files.disc.erase(kUserPath);
  Menu(32781);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T271"));
  EXPECT_THAT(messages, Not(Contains(kNotSaved)));
  EXPECT_EQ(view->materials.Column(1).front(), "Other");
  EXPECT_EQ(UserFile(), "none");
}

TEST_F(ZmcFailuresTest, ARowWhoseRecordCannotBeTakenOutStays) {
  OpenMaterials();
  MoveTo(ZmcTab::kMaterials, 1, 1);
  files.full = true;
  Menu(32781);
  EXPECT_EQ(view->materials.Column(1).front(), "Own");
  EXPECT_THAT(messages, Contains(kNotSaved));
  files.full = false;
}

TEST_F(ZmcFailuresTest, AFileThatIsDamagedAfterTheSaveEmptiesTheListsAndTheGridOfTheMainTab) {
  OpenMaterials();
  view->materials.Type(1, 1, u"Typed");
  Menu(32783);
  Factory() = "<Condi";
  view->materials.Type(1, 1, u"Typed again");
  Menu(32783);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T278"));
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
  EXPECT_EQ(CellOf(1, 1), "");
  EXPECT_TRUE(view->main.At(1, 3).readOnly);
}

TEST_F(ZmcFailuresTest, AFactoryFileThatVanishesIsToldAndEmptiesTheLists) {
  OpenMaterials();
  view->materials.Type(1, 1, u"Typed");
  Factory().clear();
  files.disc.erase(kFactoryPath);
  Menu(32783);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T285"));
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
  EXPECT_EQ(view->materials.Rows(), 1) << "every later lookup finds nothing";
  EXPECT_THAT(UserFile(), HasSubstr("Typed"));
}

TEST_F(ZmcFailuresTest, WithoutTheUserFileBothListsOfTheMainTabAreEmptyAndTheTablesStay) {
  SetUserFile("<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>",
              "<Operacion><descripcion>Mine</descripcion></Operacion>");
  Open();
  for (const auto& [tab, command] : {std::pair(ZmcTab::kMaterials, 32819), std::pair(ZmcTab::kOperations, 32820)}) {
    Menu(command);
    files.disc.erase(kUserPath);
    MoveTo(tab, 1, 1);
    Menu(tab == ZmcTab::kMaterials ? 32781 : 32787);
    EXPECT_EQ(view->GridOf(tab).Rows(), 3);
  }
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
  EXPECT_THAT(Items(id::kOperation), IsEmpty());
}

TEST_F(ZmcFailuresTest, SettingsThatAreOutOfReachAtTheStartAreNotOverwritten) {
  SetIni("LastMat=Steel\r\nLastOpe=Milling\r\nSChecked=YES\r\nOther=1\r\n");
  files.away.insert("C:\\P52");
  Open();
  EXPECT_EQ(Control(id::kSCheck).state, 0);
  Turn(id::kFCheck, true);
  DestroyTool();
  files.away.clear();
  EXPECT_THAT(Ini(), HasSubstr("SChecked=YES"));
  files.away.insert("C:\\P52");
  Open();
  Turn(id::kFCheck, true);
  files.away.clear();
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("FChecked=YES"));
  EXPECT_THAT(Ini(), HasSubstr("SChecked=YES")) << "what nobody changed is as it was";
  EXPECT_THAT(Ini(), HasSubstr("Other=1"));
}

TEST_F(ZmcFailuresTest, TheUserFileIsNotMadeWhileNobodyKnowsWhetherItIsThere) {
  files.away.insert("C:\\P118");
  Open();
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(4)", "HostToolClosed(4,2)"));
  EXPECT_THAT(files.replaced, IsEmpty());
}

}  // namespace
}  // namespace pnl::test
