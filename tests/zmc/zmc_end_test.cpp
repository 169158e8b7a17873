// SPDX-License-Identifier: MIT
// The window goes in each callback of the host, each box and each message that the tool sends itself. Whatever is asked
// of the view after that fails the test.
#include "support/deleting_host.h"
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::IsSupersetOf;

class ZmcEndTest : public testing::Test, public ZmcStage {
 protected:
  std::set<std::string> Play(const std::vector<std::function<void()>>& steps) {
    DeletingHost killer(table);
    FatalScene scene;
    scene.open = [&] {
      windows.onSend = [&](WindowHandle window, const Message& message) -> std::intptr_t {
        killer.Called("message");
        return view && window == view->handle ? Send(message.number, message.first, message.second) : 0;
      };
      windows.onBox = [&] { killer.Called("box " + ToUtf8(windows.boxes.back().text)); };
      if (prepare) prepare();
      Open();
    };
    for (const auto& step : steps) {
      scene.steps.push_back([this, step] {
        if (tool) step();
      });
    }
    scene.destroy = [this] {
      files.full = false;  // settings that can't be stored are named, which is a call of its own
      DestroyTool();
    };
    scene.close = [this] {
      DestroyTool();
      EXPECT_EQ(menus.Count(), 0u) << "menus that nobody frees";
    };
    return PlayWithEachCallFatal(killer, scene);
  }
  std::function<void()> prepare = [this] {
    SetUserFile("<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>",
                "<Operacion><descripcion>Mine</descripcion><ToolType>T89</ToolType></Operacion>");
    SetIni("LastMat=Steel\r\nLastOpe=Milling\r\nLastTool=T3\r\n");
    files.full = false;
  };
};

TEST_F(ZmcEndTest, WhileItOpens) {
  EXPECT_THAT(Play({}), IsSupersetOf({"HostToolOpening", "HostSetMainMenu", "HostSetSideMenu", "HostShowMessage"}));
}

TEST_F(ZmcEndTest, WhileItOpensWithoutItsFiles) {
  prepare = [this] {
    files.disc.erase(kFactoryPath);
    files.disc.erase(kUserPath);
  };
  EXPECT_THAT(Play({}), Contains("box T285"));
  prepare = [this] { Factory() = "<Cond"; };
  EXPECT_THAT(Play({}), Contains("box T278"));
  prepare = [this] {
    files.disc.erase(kUserPath);
    files.full = true;
  };
  EXPECT_THAT(Play({}), Contains("HostToolClosed"));
}

TEST_F(ZmcEndTest, WhileTheOperatorSelectsAndTypes) {
  const auto calls =
      Play({[this] { Pick(id::kMaterial, u"Brass"); }, [this] { Pick(id::kOperation, u"Turning"); },
            [this] { Pick(id::kMaterial, u"Steel"); }, [this] { Pick(id::kOperation, u"Milling"); },
            [this] { Cell(1, 3, u"120"); }, [this] { Turn(id::kDmcCheck, true); },
            [this] { Pick(id::kOperation, u"Turning"); }, [this] { TypeTool(u"T99"); }, [this] { Key(ZmcKey::kEnter); },
            [this] { Focus(id::kRemark); }, [this] { Key(ZmcKey::kEnter); }, [this] { Key(ZmcKey::kEnter); }});
  EXPECT_THAT(calls, IsSupersetOf({"HostShowMessage", "HostUpdateSideMenu", "message"}));
}

TEST_F(ZmcEndTest, WhileAnEditCannotBeStored) {
  const auto calls =
      Play({[this] { files.full = true; }, [this] { Cell(1, 3, u"120"); }, [this] { files.disc[kUserPath] = "<Con"; },
            [this] { Cell(1, 3, u"130"); }, [this] { Pick(id::kMaterial, u"Brass"); },
            [this] { Pick(id::kOperation, u"Turning"); }, [this] { files.full = false; }});
  EXPECT_THAT(calls, IsSupersetOf({"HostShowMessage", "box T278"}));
}

TEST_F(ZmcEndTest, WhileTablesAreWorkedIn) {
  for (const bool materials : {true, false}) {
    FakeZmcGrid* grid = nullptr;
    const int show = materials ? 32819 : 32820;
    const auto calls =
        Play({[&, this] {
                Menu(show);
                grid = materials ? &view->materials : &view->operations;
              },
              [&, this] {
                MoveTo(materials ? ZmcTab::kMaterials : ZmcTab::kOperations, 2, 1);
                Menu(materials ? 32781 : 32787);  // a factory row
              },
              [&, this] { Menu(materials ? 32779 : 32785); },  // add
              [&, this] { Menu(materials ? 32783 : 32788); },  // refused
              [&] { grid->Type(grid->Rows() - 1, 1, u"A"); }, [&, this] { Menu(materials ? 32783 : 32788); },  // saved
              [&, this] {
                for (int row = 1; row < grid->Rows(); ++row) {
                  if (grid->CellText(row, 1) == u"A")
                    MoveTo(materials ? ZmcTab::kMaterials : ZmcTab::kOperations, row, 1);
                }
              },
              [&, this] { Menu(materials ? 32781 : 32787); },  // deleted
              [&, this] { ClickHeader(materials ? ZmcTab::kMaterials : ZmcTab::kOperations, 1); },
              [&] { grid->Check(1, materials ? 6 : 3, true); }, [&, this] { files.full = true; },
              [&, this] { Menu(materials ? 32783 : 32788); },  // not stored
              [&, this] { files.full = false; }, [&, this] { Menu(32818); }});
    EXPECT_THAT(calls, IsSupersetOf({"box T281", "box T270", "box T271", "HostUpdateSideMenu", "HostUpdateMainMenu",
                                     "HostShowMessage", materials ? "box T268" : "box T272"}));
  }
}

TEST_F(ZmcEndTest, WhileItInsertsAndCloses) {
  const auto calls =
      Play({[this] { Turn(id::kToolCheck, true); }, [this] { Menu(zmc_command::kInsert); },
            [this] { Call(&ZmcSession::OnShownAgain); }, [this] { Menu(zmc_command::kMaterialsTab); },
            [this] { view->materials.Type(1, 1, u"Changed"); }, [this] { Menu(zmc_command::kCalculator); },
            [this] { Call(&ZmcSession::OnShownAgain); }, [this] { Command(PNL_COMMAND_CLOSE_TOOL); }});
  EXPECT_THAT(calls, IsSupersetOf({"HostInsertBlock", "HostOpenCalculator", "HostToolClosed", "box T268"}));
}

TEST_F(ZmcEndTest, WhileKeysAreTyped) {
  const auto calls = Play({[this] { Focus(id::kMaterial); }, [this] { Key(ZmcKey::kSpace); },
                           [this] { Key(ZmcKey::kDown); }, [this] { Key(ZmcKey::kEnter); }, [this] { Menu(32819); },
                           [this] {
                             view->materials.BeginEdit({1, 1});
                           },
                           [this] { view->materials.TypeHere(u"Typed"); }, [this] { Key(ZmcKey::kTab); },
                           [this] {
                             view->materials.BeginEdit({1, 2});
                           },
                           [this] { view->materials.TypeHere(u"Typed"); }, [this] { Key(ZmcKey::kEnter); },
                           [this] { Key(ZmcKey::kEscape); }});
  EXPECT_THAT(calls, Contains("HostToolClosed"));
}

}  // namespace
}  // namespace pnl::test
