// SPDX-License-Identifier: MIT
// The ends of the machining calculator's window: the host deletes the widget that owns it, at once, in the middle of a
// key, a touch, a change of the focus, an open list or an open box. Nothing is left, and nothing is called any more.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTimer>

#include "support/deleting_host.h"
#include "zmc/qt/msg_display.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::IsSupersetOf;
using Step = std::function<void()>;

constexpr ZmcTab kMat = ZmcTab::kMaterials;
constexpr ZmcTab kOps = ZmcTab::kOperations;

class ZmcEndTest : public ZmcWindowStage {
 protected:
  FatalScene Scene(std::vector<Step> steps) {
    return {[this] {
              Renew();
              // Each play begins with the same files.
              Disc("C:\\P118\\CondicionesCorteP.xml", "<CondicionesCorte/>");
              Settings("LastMat=Steel\r\nLastOpe=Milling\r\nLastTool=T3\r\n");
              Open();
            },
            std::move(steps), [this] { delete area; },
            [this] {
              Settle();
              Renew();
              EXPECT_EQ(menus.Count(), 0u);
              EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
              EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
              EXPECT_FALSE(windows.IsAlive(handle));
            }};
  }
  void Renew() {
    delete area;
    Settle();
    MakeArea();
    // A box that went with its window leaves none active.
    Activate(panel);
  }
  Step Pressing(int key, const QString& text = {}) {
    return [this, key, text] { Key(key, {}, text); };
  }
  Step Choosing(int command) {
    return [this, command] { Menu(command); };
  }
  Step Focusing(int control) {
    return [this, control] { Focus(control); };
  }
  /// Boxes come to the host's answerer, which may delete the parent too.
  void AnswerBoxes(DeletingHost& killer, BoxAnswer answer) {
    windows.SetBoxAnswerer([&killer, answer](const BoxSpec&) {
      killer.Called("box");
      return answer;
    });
  }
  /// From now on the user file can't be written.
  void SpoilUserFile() const {
    const QString path = QString::fromStdString(*DiscFiles(drives).HostPath(u"C:\\P118\\CondicionesCorteP.xml"));
    QFile::remove(path);
    QDir().mkpath(path + "/folder");
  }
  void MendUserFile() const {
    QDir(QString::fromStdString(*DiscFiles(drives).HostPath(u"C:\\P118\\CondicionesCorteP.xml"))).removeRecursively();
  }
  /// Does something when the next real box is open.
  void WhenBoxOpens(std::function<void(CDlgMsgDisplay&)> act) {
    windows.SetBoxAnswerer({});
    QTimer::singleShot(0, &panel, [act = std::move(act)] {
      auto* box = qobject_cast<CDlgMsgDisplay*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      act(*box);
    });
  }
  void ChangeARow(ZmcTab tab) {
    ASSERT_NE(Grid(tab), nullptr);
    Grid(tab)->setFocus();
    Grid(tab)->Select(1, tab == kMat ? 6 : 3);
    Key(Qt::Key_Space, {}, " ");
  }
};

TEST_F(ZmcEndTest, TheHostMayDeleteItsParentInEveryCallOfTheMainTab) {
  DeletingHost killer(table);
  AnswerBoxes(killer, BoxAnswer::kYes);
  const auto calls = PlayWithEachCallFatal(killer, Scene({[this] { EditCell(1, 3, "120"); },
                                                          [this] { EditCell(2, 3, "0.05"); },
                                                          [this] { Touch(Main(id::kFCheck)); },
                                                          Focusing(id::kMaterial),
                                                          Pressing(Qt::Key_Space, " "),
                                                          Pressing(Qt::Key_Down),
                                                          Pressing(Qt::Key_Return),
                                                          [this] { Touch(Main(id::kOperation)); },
                                                          [this] { TouchItem(id::kOperation, 1); },
                                                          [this] { Touch(Main(id::kMaterial)); },
                                                          [this] { TouchItem(id::kMaterial, 0); },
                                                          Focusing(id::kTool),
                                                          [this] { Write("99"); },
                                                          Pressing(Qt::Key_Return),
                                                          Focusing(id::kRemark),
                                                          Pressing(Qt::Key_Return),
                                                          [this] { Write("face"); },
                                                          Pressing(Qt::Key_Return),
                                                          Focusing(id::kS),
                                                          [this] { Write("500"); },
                                                          Focusing(id::kRemark),
                                                          Choosing(zmc_command::kCopy),
                                                          Pressing(Qt::Key_Insert),
                                                          [this] { tool->show(), Settle(); },
                                                          Pressing(Qt::Key_Escape),
                                                          [this] { tool->show(), Settle(); },
                                                          Choosing(zmc_command::kCalculator),
                                                          [this] { tool->show(), Settle(); },
                                                          [this] { Command(20); }}));
  EXPECT_THAT(calls, IsSupersetOf({"HostToolOpening", "HostToolClosed", "HostSetMainMenu", "HostSetSideMenu",
                                   "HostUpdateSideMenu", "HostShowMessage", "HostInsertBlock", "HostOpenCalculator"}));
}

TEST_F(ZmcEndTest, TheHostMayDeleteItsParentInEveryCallOfTheTables) {
  DeletingHost killer(table);
  for (const BoxAnswer answer : {BoxAnswer::kYes, BoxAnswer::kNo}) {
    AnswerBoxes(killer, answer);
    const auto calls = PlayWithEachCallFatal(killer, Scene({Choosing(zmc_command::kMaterialsTab),
                                                            Choosing(zmc_command::kAddMaterial),
                                                            [this] { Write("Own"); },
                                                            Pressing(Qt::Key_Return),
                                                            Choosing(zmc_command::kSaveMaterials),
                                                            Choosing(zmc_command::kDeleteMaterials),
                                                            [this] { ChangeARow(kMat); },
                                                            Choosing(zmc_command::kAddMaterial),
                                                            Pressing(Qt::Key_Escape),
                                                            Choosing(zmc_command::kSaveMaterials),
                                                            Choosing(zmc_command::kDeleteMaterials),
                                                            Choosing(zmc_command::kSaveMaterials),
                                                            Choosing(zmc_command::kMainTab),
                                                            Choosing(zmc_command::kOperationsTab),
                                                            Choosing(zmc_command::kAddOperation),
                                                            [this] { Write("Bore"); },
                                                            Pressing(Qt::Key_Return),
                                                            Pressing(Qt::Key_Return),
                                                            Pressing(Qt::Key_Down),
                                                            Pressing(Qt::Key_Return),
                                                            Choosing(zmc_command::kSaveOperations),
                                                            [this] { ChangeARow(kOps); },
                                                            Choosing(zmc_command::kDeleteOperations),
                                                            [this] { Command(20); }}));
    EXPECT_THAT(
        calls, IsSupersetOf({"box", "HostToolOpening", "HostSetSideMenu", "HostUpdateSideMenu", "HostUpdateMainMenu"}));
  }
}

// The cell's edit ends when a line gets the focus. The value can't be stored, and the host gets the message.
TEST_F(ZmcEndTest, TheHostMayDeleteItsParentInAChangeOfTheFocus) {
  DeletingHost killer(table);
  const auto calls = PlayWithEachCallFatal(killer, Scene({[this] {
                                                            SpoilUserFile();
                                                            Grid()->setFocus();
                                                            Grid()->Select(1, 3);
                                                            Write("120");
                                                          },
                                                          Focusing(id::kRemark), [this] { MendUserFile(); }}));
  MendUserFile();
  EXPECT_THAT(calls, Contains("HostShowMessage"));
}

TEST_F(ZmcEndTest, TheHostMayDeleteItsParentWhileABoxIsOpen) {
  for (const int closing : {zmc_command::kMainTab, 0}) {
    Renew();
    Open();
    Menu(zmc_command::kMaterialsTab);
    ChangeARow(kMat);
    int boxes = 0;
    WhenBoxOpens([&](CDlgMsgDisplay&) {
      ++boxes;
      delete area;
    });
    if (closing != 0) {
      Menu(closing);
    } else {
      Command(20);
    }
    EXPECT_EQ(boxes, 1);
    EXPECT_TRUE(tool.isNull());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

TEST_F(ZmcEndTest, TheBoxAtTheStartMayEndTheTool) {
  Disc("C:\\P24\\CondicionesCorte.xml", "<CondicionesCorte><Mat");
  WhenBoxOpens([&](CDlgMsgDisplay& box) {
    EXPECT_EQ(FindControl(&box, 3069)->property("pnlText").toString(),
              "The cutting data cannot be read: the file is damaged or not in the right format.");
    delete area;
  });
  Open();
  EXPECT_TRUE(tool.isNull());
}

TEST_F(ZmcEndTest, ARealBoxIsAnsweredAndTheTableKeepsOrDropsItsRows) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  ChangeARow(kMat);
  WhenBoxOpens([](CDlgMsgDisplay& box) { box.accept(); });
  Menu(zmc_command::kMainTab);
  EXPECT_EQ(QApplication::activeWindow(), &panel) << "the keys are the panel's again";
  EXPECT_TRUE(Page(ZmcTab::kMain)->isVisible());
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), testing::HasSubstr("<Oculto>true</Oculto>"));
  Menu(zmc_command::kMaterialsTab);
  ChangeARow(kMat);
  WhenBoxOpens([](CDlgMsgDisplay& box) { box.reject(); });
  Menu(zmc_command::kMainTab);
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), testing::HasSubstr("<Oculto>true</Oculto>"));
}

TEST_F(ZmcEndTest, ABoxThatTheProgramClosesIsANo) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  ChangeARow(kMat);
  WhenBoxOpens([](CDlgMsgDisplay& box) { box.close(); });
  EXPECT_EQ(Command(20), 0);
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), testing::Not(testing::HasSubstr("Oculto")));
}

TEST_F(ZmcEndTest, DiesWithItsParentWhateverIsOpen) {
  const std::vector<Step> states = {
      [this] { Key(Qt::Key_Space); },
      [this] {
        Focus(id::kTool);
        Write("4");
        Key(Qt::Key_Space, {}, " ");
      },
      [this] {
        Grid()->setFocus();
        Grid()->Select(1, 3);
        Write("12");
      },
      [this] {
        Focus(id::kRemark);
        Key(Qt::Key_Return);
        Write("12");
      },
      [this] {
        Focus(id::kF);
        Write("12");
      },
      [this] {
        Menu(zmc_command::kMaterialsTab);
        Menu(zmc_command::kAddMaterial);
        Write("12");
      },
      [this] {
        Menu(zmc_command::kOperationsTab);
        Grid(kOps)->Select(1, 2);
        Menu(zmc_command::kAddOperation);
      },
  };
  for (const Step& state : states) {
    Renew();
    Open();
    state();
    TakeHostCalls();
    delete area;
    EXPECT_TRUE(tool.isNull());
    EXPECT_TRUE(TakeHostCalls().empty());
  }
}

TEST_F(ZmcEndTest, StoresItsSettingsWhenTheHostEndsItInACallback) {
  Open();
  Touch(Main(id::kFCheck));
  onHostCall = [this](const std::string& call) {
    if (call == "HostToolClosed(4,2)") delete area;
  };
  Key(Qt::Key_Escape);
  onHostCall = nullptr;
  EXPECT_TRUE(tool.isNull());
  EXPECT_NE(Stored("FChecked"), "none");
}

TEST_F(ZmcEndTest, CommandSixGoesWithoutAWordAlsoWithAListOpen) {
  Open();
  Key(Qt::Key_Space);
  TakeHostCalls();
  EXPECT_EQ(Command(6), 0);
  EXPECT_FALSE(tool->isVisible());
  Key(Qt::Key_Return);
  Settle();
  EXPECT_TRUE(tool.isNull());
  EXPECT_TRUE(TakeHostCalls().empty());
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(ZmcEndTest, AQuestionThatGoesWithoutAnAnswerIsANo) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  ChangeARow(kMat);
  WhenBoxOpens([](CDlgMsgDisplay& box) { box.deleteLater(); });
  Menu(zmc_command::kMainTab);
  EXPECT_TRUE(Page(ZmcTab::kMain)->isVisible());
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), testing::Not(testing::HasSubstr("Oculto")));
}

// The hook of the grid is taken away while it runs.
TEST_F(ZmcEndTest, CommandSixInACallOfTheHostThatAKeyInTheGridHasCaused) {
  Open();
  onHostCall = [this](const std::string& call) {
    if (call == "HostInsertBlock") Command(6);
  };
  Focus(id::kGrid);
  Key(Qt::Key_Insert);
  onHostCall = nullptr;
  Settle();
  EXPECT_TRUE(tool.isNull());
}

TEST_F(ZmcEndTest, AWindowThatWasLeftIsOneNoMoreBeforeItIsDeleted) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kOperationsTab);
  std::vector<WindowHandle> pages;
  for (const ZmcTab tab : kZmcTabs) pages.push_back(static_cast<MessageWindow*>(Page(tab))->Handle());
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_LEAVE);
  ASSERT_FALSE(tool.isNull());
  EXPECT_FALSE(windows.IsAlive(handle));
  for (const WindowHandle page : pages) EXPECT_FALSE(windows.IsAlive(page));
  EXPECT_EQ(menus.Count(), 0u);
  Settle();
  EXPECT_TRUE(tool.isNull());
}

// The settings can't be stored, so the host is called while the window ends.
TEST_F(ZmcEndTest, NeitherTheFrameNorAPageTakesAMessageWhileItEnds) {
  Open();
  Touch(Main(id::kFCheck));
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kOperationsTab);
  std::vector<WindowHandle> ending = {handle};
  for (const ZmcTab tab : kZmcTabs) ending.push_back(static_cast<MessageWindow*>(Page(tab))->Handle());
  const QString path = QString::fromStdString(*DiscFiles(drives).HostPath(u"C:\\P52\\ZMC7340.ini"));
  QFile::remove(path);
  QDir().mkpath(path + "/folder");
  int calls = 0;
  onHostCall = [&](const std::string&) {
    ++calls;
    for (const WindowHandle window : ending) EXPECT_FALSE(windows.IsAlive(window));
  };
  delete tool;
  onHostCall = nullptr;
  EXPECT_EQ(calls, 1);
}

// The host handles events while it hears that the tool is closed, and the frame is still to be seen.
TEST_F(ZmcEndTest, AToolThatIsClosedAsSoonAsItIsOpenStaysClosed) {
  Use(tool = new ZCZelorMacCalc(context, area));
  tool->Start();
  TakeHostCalls();
  onHostCall = [](const std::string& call) {
    if (call == "HostToolClosed(4,2)") Settle();
  };
  Command(PNL_COMMAND_CLOSE_TOOL);
  onHostCall = nullptr;
  const Log calls = TakeHostCalls();
  EXPECT_THAT(calls, Contains("HostToolClosed(4,2)"));
  EXPECT_THAT(calls, testing::Not(Contains("HostToolOpening(4)")));
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(ZmcEndTest, AMessageInWhichTheWindowGoesIsAnsweredWithNothing) {
  Open();
  onHostCall = [this](const std::string& call) {
    if (call == "HostUpdateMainMenu(4)") delete area;
  };
  EXPECT_EQ(Send(PNL_MSG_COMMAND, zmc_command::kMaterialsTab), 0);
  onHostCall = nullptr;
  EXPECT_TRUE(tool.isNull());
}

TEST_F(ZmcEndTest, AWindowThatGoesOnItsOwnLeavesTheParentAsItWas) {
  Open();
  Key(Qt::Key_Space);
  delete tool;
  area->resize(300, 200);
  Settle();
  Open();
  EXPECT_EQ(tool->size(), QSize(300, 200));
}

}  // namespace
}  // namespace pnl::test
