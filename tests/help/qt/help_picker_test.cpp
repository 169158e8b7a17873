// SPDX-License-Identifier: MIT
// The modal picker, and the ends of the viewer's window in the middle of an operation.
#include "help/qt/manual_list_dialog.h"

#include <algorithm>

#include "help_stage.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;

class HelpPicker : public HelpStage {
 protected:
  /// Opens the picker, does something in it, and cancels it if it is still open.
  void Pick(const std::function<void(ZCListManuals&)>& act) {
    Menu(2004);
    const QPointer<ZCListManuals> dialog = qobject_cast<ZCListManuals*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    act(*dialog);
    if (dialog) dialog->Cancel();
    Settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  /// The texts of its labels from top to bottom. A long one is broken into lines.
  static std::vector<std::string> CaptionsOf(ZCListManuals& dialog) {
    QList<QLabel*> labels = dialog.findChildren<QLabel*>();
    std::sort(labels.begin(), labels.end(), [](const QLabel* a, const QLabel* b) { return a->y() < b->y(); });
    std::vector<std::string> texts;
    for (const QLabel* label : labels) {
      texts.push_back(label->text().toStdString());
      EXPECT_TRUE(label->wordWrap()) << texts.back();
    }
    return texts;
  }
  static ListBox* ListIn(ZCListManuals& dialog, int id) { return static_cast<ListBox*>(FindControl(&dialog, id)); }
  static void DoubleClick(ListBox* list, int row) {
    const QPoint middle = list->visualRect(list->model()->index(row, 0)).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
      PressMouse(list->viewport(), middle, type);
    }
  }
};

TEST_F(HelpPicker, ItListsTheManualsAndTheLastPages) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) {
    EXPECT_TRUE(dialog.isModal());
    EXPECT_TRUE(dialog.property("pnlDialog").toBool());
    EXPECT_EQ(dialog.property("pnlWindow").toInt(), static_cast<int>(dialog.Handle())) << "as every dialog of a tool";
    EXPECT_NE(dialog.Handle(), 0u);
    EXPECT_EQ(dialog.property("pnlTitle").toString(), "Manuals");
    ListBox* manuals = ListIn(dialog, help_id::kManuals);
    ASSERT_EQ(manuals->Count(), 3);
    EXPECT_EQ(manuals->Item(0), u"oper.chm");
    EXPECT_EQ(manuals->Selection(), -1);
    EXPECT_EQ(ListIn(dialog, help_id::kRecent)->Item(0), u"Command line - Operating");
    EXPECT_EQ(FindControl(&dialog, help_id::kPickerNote), nullptr);
    EXPECT_THAT(CaptionsOf(dialog), ElementsAre("Manuals", "Last pages read"));
  });
}

TEST_F(HelpPicker, OkOpensTheSelectedManual) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) {
    ListIn(dialog, help_id::kManuals)->Select(1);
    Touch(FindControl(&dialog, help_id::kPickerOk));
  });
  EXPECT_EQ(world.asked, "C:\\P113\\prog.chm");
  EXPECT_THAT(PageText(), HasSubstr("Welcome"));
}

TEST_F(HelpPicker, ADoubleClickIsOk) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) { DoubleClick(ListIn(dialog, help_id::kManuals), 1); });
  EXPECT_EQ(world.asked, "C:\\P113\\prog.chm");
}

TEST_F(HelpPicker, OkWithoutASelectedLineOpensNothing) {
  Make();
  OpenAt();
  world.asked.clear();
  Pick([](ZCListManuals& dialog) { Touch(FindControl(&dialog, help_id::kPickerOk)); });
  EXPECT_EQ(world.asked, "");
}

TEST_F(HelpPicker, CancelAndEscapeOpenNothing) {
  Make();
  OpenAt();
  world.asked.clear();
  Pick([](ZCListManuals& dialog) {
    ListIn(dialog, help_id::kManuals)->Select(1);
    Touch(FindControl(&dialog, help_id::kPickerCancel));
  });
  Pick([](ZCListManuals& dialog) {
    ListIn(dialog, help_id::kManuals)->Select(1);
    PressKey(ListIn(dialog, help_id::kManuals), Qt::Key_Escape);
  });
  EXPECT_EQ(world.asked, "");
  EXPECT_THAT(TakeHostCalls(), testing::Not(testing::Contains("HostToolWantsClose(2)")));
}

TEST_F(HelpPicker, AfterItThePanelHasTheKeysAgain) {
  Make();
  OpenAt();
  Menu(2000);
  QWidget* const before = Focus();
  ASSERT_NE(before, nullptr);
  Pick([](ZCListManuals& dialog) { EXPECT_EQ(QApplication::activeWindow(), &dialog); });
  EXPECT_EQ(QApplication::activeWindow(), &panel);
  EXPECT_EQ(Focus(), before);
}

TEST_F(HelpPicker, EnterIsOk) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) {
    ListIn(dialog, help_id::kManuals)->Select(1);
    PressKey(ListIn(dialog, help_id::kManuals), Qt::Key_Return);
  });
  EXPECT_EQ(world.asked, "C:\\P113\\prog.chm");
}

TEST_F(HelpPicker, WhoeverOpensItGoesOnWhileItIsOpen) {
  // The command that opens it waited for the operator's choice, and the panel answered no request of a script.
  Make();
  OpenAt();
  Menu(2004);
  ASSERT_NE(QApplication::activeModalWidget(), nullptr);
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_HIDE);
  Settle();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "it goes with the viewer";
}

TEST_F(HelpPicker, OneListTakesTheSelectionFromTheOther) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) {
    ListBox* manuals = ListIn(dialog, help_id::kManuals);
    ListBox* recent = ListIn(dialog, help_id::kRecent);
    TouchRow(manuals, manuals->model()->index(1, 0));
    TouchRow(recent, recent->model()->index(0, 0));
    EXPECT_EQ(manuals->Selection(), -1);
    ASSERT_TRUE(dialog.Choice());
    EXPECT_EQ(dialog.Choice()->list, ManualChoice::List::kRecent);
    EXPECT_EQ(dialog.Choice()->row, 0);
    TouchRow(manuals, manuals->model()->index(0, 0));
    EXPECT_EQ(recent->Selection(), -1);
  });
}

TEST_F(HelpPicker, APageThatWasReadOpensAgain) {
  Make();
  OpenAt();
  Menu(2000);
  Pick([](ZCListManuals& dialog) { DoubleClick(ListIn(dialog, help_id::kRecent), 1); });
  EXPECT_THAT(PageText(), HasSubstr("Type a block."));
}

TEST_F(HelpPicker, WithoutAListItSaysWhy) {
  Disc("C:\\P113\\Cnc7340.helps", "[OTHER]\r\n");
  Make();
  Pick([](ZCListManuals& dialog) {
    const QWidget* note = FindControl(&dialog, help_id::kPickerNote);
    EXPECT_EQ(note->property("pnlText").toString(), "There is no list of manuals: Cnc7340.helps (1).");
    EXPECT_GT(note->y(), ListIn(dialog, help_id::kManuals)->geometry().bottom());
    EXPECT_LT(note->geometry().bottom(), ListIn(dialog, help_id::kRecent)->y());
    EXPECT_EQ(CaptionsOf(dialog)[1], "There is no list of manuals: Cnc7340.helps (1).");
  });
}

TEST_F(HelpPicker, ItLiesInsideAWindowThatIsSmallerThanIt) {
  Make();
  area->resize(300, 240);
  OpenAt();
  Pick([this](ZCListManuals& dialog) {
    const QRect around(tool->mapToGlobal(QPoint(0, 0)), tool->size());
    EXPECT_TRUE(around.contains(dialog.geometry())) << dialog.width() << "x" << dialog.height();
  });
}

TEST_F(HelpPicker, ItTakesTheRoomOfASmallWindowButForAnEdge) {
  Make();
  area->resize(400, 360);
  OpenAt();
  Pick([](ZCListManuals& dialog) { EXPECT_EQ(dialog.size(), QSize(400 - 2 * 8, 360 - 2 * 8)); });
}

TEST_F(HelpPicker, TheManualsHaveTheKeysFromTheStart) {
  Make();
  const HelpScale scale(context.cnc.Util());
  const ZCListManuals dialog(language, scale, {0, {}, {u"oper.chm"}, {}}, area);
  EXPECT_EQ(dialog.focusWidget(), FindControl(&dialog, help_id::kManuals));
}

TEST_F(HelpPicker, ItsKeysAreAsWideAsTheirWordsAndAtTheRight) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) {
    const QWidget* ok = FindControl(&dialog, help_id::kPickerOk);
    const QWidget* cancel = FindControl(&dialog, help_id::kPickerCancel);
    for (const QWidget* key : {ok, cancel}) {
      EXPECT_EQ(key->width(), std::max(key->minimumWidth(), key->sizeHint().width())) << ControlId(key);
    }
    EXPECT_EQ(cancel->geometry().right(), ListIn(dialog, help_id::kManuals)->geometry().right());
    EXPECT_LT(ok->geometry().right(), cancel->x());
  });
}

TEST_F(HelpPicker, OnceLeftItChoosesNothingMoreAndGoes) {
  Make();
  OpenAt();
  world.asked.clear();
  Menu(2004);
  const QPointer<ZCListManuals> dialog = qobject_cast<ZCListManuals*>(QApplication::activeModalWidget());
  ASSERT_NE(dialog, nullptr);
  ListIn(*dialog, help_id::kManuals)->Select(1);
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_HIDE);
  ASSERT_NE(dialog, nullptr) << "it may be in the middle of an event";
  PressKey(dialog, Qt::Key_Return);
  Settle();
  EXPECT_EQ(world.asked, "");
  EXPECT_EQ(dialog, nullptr);
}

TEST_F(HelpPicker, TheEnterThatLeavesItIsNotItsListsEnter) {
  Make();
  OpenAt();
  int activated = 0;
  Pick([&activated](ZCListManuals& dialog) {
    ListBox* const manuals = ListIn(dialog, help_id::kManuals);
    manuals->Select(1);
    QObject::connect(manuals, &QAbstractItemView::activated, [&activated] { ++activated; });
    PressKey(manuals, Qt::Key_Return);
  });
  EXPECT_EQ(activated, 0);
}

TEST_F(HelpPicker, ClosingItLeavesItToItsOwner) {
  Make();
  OpenAt();
  Pick([](ZCListManuals& dialog) { EXPECT_FALSE(dialog.close()); });
}

TEST_F(HelpPicker, TheWindowMayGoWhileItIsOpen) {
  Make();
  OpenAt();
  Pick([this](ZCListManuals&) { delete area; });
  EXPECT_TRUE(tool.isNull());
  MakeArea();
}

// The ends.

class HelpWindowEnd : public HelpPicker {
 protected:
  FatalScene Scene(std::vector<std::function<void()>> steps) {
    return {[this] {
              delete area;
              MakeArea();
              Make();
            },
            std::move(steps), [this] { delete area; },
            [this] {
              Settle();
              delete area;
              MakeArea();
              EXPECT_EQ(menus.Count(), 0u);
            }};
  }
};

TEST_F(HelpWindowEnd, TheHostMayDeleteItsParentInEveryCallback) {
  DeletingHost killer(table);
  windows.SetBoxAnswerer([&](const BoxSpec&) {
    killer.Called("box");
    return BoxAnswer::kOk;
  });
  const auto calls = PlayWithEachCallFatal(
      killer,
      Scene({[this] { OpenAt(); }, [this] { OpenAt(u"OPT0777"); }, [this] { OpenAt(u"XYZ"); },
             [this] { OpenAt(u"NIX0000"); }, [this] { OpenAt(); }, [this] { Key(Qt::Key_Escape); },
             [this] { Menu(2003), Menu(2006), Menu(40002); }, [this] { Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_HIDE); },
             [this] { OpenAt(); }, [this] { Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL); }}));
  EXPECT_THAT(calls,
              IsSupersetOf({"HostSetMainMenu", "HostToolOpening", "HostToolClosed", "HostToolWantsClose", "box"}));
}

TEST_F(HelpWindowEnd, AManualThatComesAfterTheEndReachesNobody) {
  world.slow = true;
  Make();
  OpenAt();
  const auto done = world.done;
  delete tool;
  done({ManualState::kWhole, book});
  EXPECT_TRUE(tool.isNull());
}

}  // namespace
}  // namespace pnl::test
