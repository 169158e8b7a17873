// SPDX-License-Identifier: MIT
// Requests for a file with the real explorer: who asks, what he gets, and every way in which a request ends.
#include "host/file_desk.h"

#include <gtest/gtest.h>

#include <QFile>

#include "panel/machine/qt/panel_fixture.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/program_desk.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

constexpr int kSaveAsProgram = 32775;

class RequestTest : public PanelFixture {
 protected:
  // The tool shows a box when a file can't be made, and asks before it replaces one.
  RequestTest() {
    rig_.AnswerBoxes([](std::string_view style) { return style == "question" ? "yes" : "ok"; });
  }
  ~RequestTest() override {
    rig_.AnswerBoxes({});
    for (const char* name : {"ENDED.NC", "LIST.NC", "OWNER.NC", "A.NC"}) QFile::remove(Host(name));
  }
  [[nodiscard]] QString Host(const char* name) const {
    const auto path = rig_.Files().HostPath(rig_.Files().Path(101) + u"\\" + QString(name).toStdU16String());
    return QString::fromStdString(path.value_or(""));
  }
  /// The command line asks for the name of a program.
  void AskFromList() {
    OpenListAtSecond();
    op_->SendCommand(PNL_TOOL_MDI, kSaveAsProgram);
    Settle();
    ASSERT_TRUE(ExplorerShown());
    ASSERT_NE(op_->Files().Record(), nullptr);
    EXPECT_TRUE(op_->Files().IsWaiting());
  }
  /// Whether the command line starts blocks, which it doesn't while it waits for a file.
  bool StartIsFree() {
    Do(Action::kCycleStart);
    return op_->Machine().channelStatus == 2;
  }
  /// Asks for a file as the panel does, and notes the answer.
  void AskFromPanel(quint32 flags = 0, const QString& title = "Mine") {
    FileRequest request;
    request.title = title;
    request.folder = QString::fromStdU16String(rig_.Files().Path(101));
    request.extension = "nc";
    request.flags = flags;
    op_->Files().Ask(
        request, [this](const QString& folder, const QString& file) { got_ << folder + "|" + file; },
        [this] { got_ << "left"; });
    Settle();
  }
  [[nodiscard]] std::int64_t Number() const {
    return std::get<std::int64_t>(rig_.Cnc().Get(u"E.XPLRDATA").value_or(std::int64_t{-1}));
  }

  QStringList got_;
};

TEST_F(RequestTest, AToolsRequestOpensTheExplorerOverItAndTheNameComesBack) {
  AskFromList();
  EXPECT_TRUE(Tool(PNL_TOOL_EXPLORER)->geometry().contains(Tool(PNL_TOOL_MDI)->geometry()));
  EXPECT_TRUE(Has(Tool(PNL_TOOL_EXPLORER)));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_EXPLORER);
  AcceptName("LIST.NC");
  EXPECT_FALSE(ExplorerShown());
  EXPECT_FALSE(op_->Files().IsWaiting());
  ASSERT_NE(op_->Files().Record(), nullptr);
  EXPECT_EQ(FileOf(*op_->Files().Record()), "LIST.NC");
  QFile file(Host("LIST.NC"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("G0 X2"));
  EXPECT_TRUE(Has(Tool(PNL_TOOL_MDI)));
}

TEST_F(RequestTest, WhatWasSavedIsSaidAndWhatWasNotIsNot) {
  const QString path = JoinPath(QString::fromStdU16String(rig_.Files().Path(101)), "LIST.NC");
  AskFromList();
  for (const bool locked : {false, true}) {
    if (locked) QFile::setPermissions(Host("LIST.NC"), QFileDevice::ReadOwner);
    AcceptName("LIST.NC");
    EXPECT_EQ(ZoneText(), locked ? QString() : Say(Word::kSaved, path));
    EXPECT_FALSE(op_->CurrentHint().warning);
    QFile::setPermissions(Host("LIST.NC"), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    op_->SetHint({});
    op_->SendCommand(PNL_TOOL_MDI, kSaveAsProgram);
    Settle();
  }
}

TEST_F(RequestTest, LeavingTheExplorerFreesTheStartKey) {
  AskFromList();
  EXPECT_FALSE(StartIsFree()) << "it waits for a file";
  Key(Qt::Key_Escape);
  EXPECT_FALSE(ExplorerShown());
  EXPECT_FALSE(op_->Files().IsWaiting());
  EXPECT_TRUE(Has(Tool(PNL_TOOL_MDI)));
  EXPECT_TRUE(StartIsFree());
}

TEST_F(RequestTest, AnExplorerThatIsDestroyedCountsAsLeft) {
  AskFromList();
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_EXPLORER));
  Settle();
  EXPECT_FALSE(op_->Files().IsWaiting());
  EXPECT_TRUE(StartIsFree());
}

TEST_F(RequestTest, AnExplorerThatGoesWithoutAReportCountsAsLeft) {
  AskFromList();
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_EXPLORER), PNL_MSG_TOOL_COMMAND, PNL_COMMAND_LEAVE, 0);
  Settle();
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_EXPLORER));
  EXPECT_FALSE(op_->Files().IsWaiting());
  EXPECT_TRUE(Has(Tool(PNL_TOOL_MDI)));
}

struct EndRow {
  const char* name;
  int slot;
  QVariantList args;
  bool ends;
  bool saved;
};

class RequestEnd : public RequestTest, public ::testing::WithParamInterface<EndRow> {};

TEST_P(RequestEnd, IsToldToTheAsker) {
  AskFromList();
  XPLRDATA_ST* record = op_->Files().Record();
  const std::u16string file = u"ENDED.NC";
  file.copy(record->File, file.size());
  emit session_.Called({GetParam().slot, GetParam().args});
  Settle();
  EXPECT_EQ(op_->Files().IsWaiting(), !GetParam().ends);
  EXPECT_EQ(QFile::exists(Host("ENDED.NC")), GetParam().saved);
}

INSTANTIATE_TEST_SUITE_P(
    All, RequestEnd,
    ::testing::Values(EndRow{"accepted", 10, {}, true, true}, EndRow{"acceptedAlt", 11, {}, true, true},
                      EndRow{"left", 2, {PNL_TOOL_EXPLORER, PNL_CLOSED}, true, false},
                      EndRow{
                          "closedWithAResultThatComesNext", 2, {PNL_TOOL_EXPLORER, PNL_CLOSED_ACCEPTED}, false, false},
                      EndRow{"anotherToolClosed", 2, {PNL_TOOL_MDI, PNL_CLOSED}, false, false}),
    [](const auto& row) { return std::string(row.param.name); });

struct OwnerRow {
  int tool;
  bool saved;
};

class RequestOwner : public RequestTest, public ::testing::WithParamInterface<OwnerRow> {};

TEST_P(RequestOwner, GetsTheAnswer) {
  constexpr int kOwnerBase = 1000;
  OpenListAtSecond();
  session_.LoadTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
  // The command line's request under another owner: the record is its own.
  op_->SendCommand(PNL_TOOL_MDI, kSaveAsProgram);
  Key(Qt::Key_Escape);
  op_->Files().Record()->Owner = kOwnerBase + GetParam().tool;
  emit session_.Called({PNL_SLOT_EXPLORER_REQUEST, {}});
  Settle();
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_EXPLORER_ENDED, 0, 0);
  AcceptName("OWNER.NC");
  EXPECT_EQ(QFile::exists(Host("OWNER.NC")), GetParam().saved) << "only the command line saves";
}

// The command line hears what was asked by a tool that isn't there.
INSTANTIATE_TEST_SUITE_P(All, RequestOwner,
                         ::testing::Values(OwnerRow{PNL_TOOL_MDI, true}, OwnerRow{PNL_TOOL_CALCULATOR, false},
                                           OwnerRow{PNL_TOOL_MDI + 1, true}),
                         [](const auto& row) { return "Tool" + std::to_string(row.param.tool); });

TEST_F(RequestTest, ARequestWithoutARecordIsLeftAtOnce) {
  OpenListAtSecond();
  EXPECT_TRUE(rig_.Cnc().Set(u"E.XPLRDATA", std::int64_t{0}));
  emit session_.Called({PNL_SLOT_EXPLORER_REQUEST, {}});
  EXPECT_TRUE(op_->Files().IsWaiting()) << "the asker is still inside its own call";
  Settle();
  EXPECT_FALSE(op_->Files().IsWaiting());
  EXPECT_FALSE(ExplorerShown());
  EXPECT_EQ(ZoneText(), Say(Word::kNoRequest));
  EXPECT_TRUE(StartIsFree());
}

TEST_F(RequestTest, TheEndOfARequestWithoutARecordDoesNotEndTheNextOne) {
  OpenListAtSecond();
  EXPECT_TRUE(rig_.Cnc().Set(u"E.XPLRDATA", std::int64_t{0}));
  emit session_.Called({PNL_SLOT_EXPLORER_REQUEST, {}});
  AskFromPanel();
  EXPECT_TRUE(ExplorerShown());
  EXPECT_TRUE(op_->Files().IsWaiting());
  Key(Qt::Key_Escape);
  EXPECT_EQ(got_, QStringList{"left"});
}

TEST_F(RequestTest, AnAskerThatHasGoneGetsNothingAndTheOperatorKnows) {
  AskFromList();
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  AcceptName("LIST.NC");
  EXPECT_FALSE(ExplorerShown());
  EXPECT_FALSE(op_->Files().IsWaiting());
  EXPECT_FALSE(QFile::exists(Host("LIST.NC")));
  EXPECT_EQ(ZoneText(), Say(Word::kNoRequest));
  EXPECT_TRUE(op_->CurrentHint().warning);
}

TEST_F(RequestTest, ThePanelsOwnRequestIsAnsweredOnceAndLeavesNoRecordBehind) {
  AskFromPanel();
  ASSERT_TRUE(ExplorerShown());
  EXPECT_EQ(op_->Files().Record()->Owner, 1100);
  AcceptName("A");
  EXPECT_EQ(got_, QStringList{QString::fromStdU16String(rig_.Files().Path(101)) + "|A.nc"});
  EXPECT_EQ(Number(), 0);
  EXPECT_EQ(op_->Files().Record(), nullptr);
  AskFromPanel();
  Key(Qt::Key_Escape);
  EXPECT_EQ(got_.size(), 2);
  EXPECT_EQ(got_.last(), "left");
  EXPECT_EQ(Number(), 0);
}

TEST_F(RequestTest, ASecondRequestLeavesTheFirst) {
  AskFromList();
  AskFromPanel();
  EXPECT_TRUE(ExplorerShown());
  AskFromPanel(0, "Another");
  EXPECT_EQ(got_, QStringList{"left"});
  EXPECT_EQ(QString::fromUtf16(op_->Files().Record()->Title), "Another");
  Key(Qt::Key_Escape);
  EXPECT_EQ(got_.size(), 2);
  EXPECT_TRUE(StartIsFree()) << "the command line was told at once";
}

TEST_F(RequestTest, APanelThatClosesLeavesItsRequestBeforeItsToolsGo) {
  Do(Action::kOpenMdi);
  const PnlWindow mdi = session_.ToolWindow(PNL_TOOL_MDI);
  FileRequest request;
  request.folder = QString::fromStdU16String(rig_.Files().Path(101));
  op_->Files().Ask(
      request, [this](const QString&, const QString&) { got_ << "accepted"; },
      [this, mdi] { got_ << (PnlIsAlive(mdi) != 0 ? "left" : "left alone"); });
  Settle();
  ASSERT_TRUE(ExplorerShown());
  window_->close();
  Settle();
  EXPECT_EQ(got_, QStringList{"left"});
}

TEST_F(RequestTest, AnExplorerThatAScriptOpenedGivesWayToARequest) {
  session_.LoadTool(PNL_TOOL_EXPLORER, session_.ToolArea());
  Settle();
  const PnlWindow before = session_.ToolWindow(PNL_TOOL_EXPLORER);
  AskFromPanel();
  EXPECT_EQ(PnlIsAlive(before), 0);
  EXPECT_NE(session_.ToolWindow(PNL_TOOL_EXPLORER), 0);
  EXPECT_TRUE(got_.isEmpty());
  Key(Qt::Key_Escape);
}

TEST_F(RequestTest, ThePanelsOwnRequestWorksWhileAScriptDecidesAboutTheRest) {
  session_.SetReacting(false);
  AskFromPanel();
  AcceptName("A.NC");
  EXPECT_EQ(got_.size(), 1);
  emit session_.Called({PNL_SLOT_EXPLORER_REQUEST, {}});
  EXPECT_FALSE(op_->Files().IsWaiting());
}

TEST_F(RequestTest, WithoutARigThePanelAsksForNothing) {
  FileDesk lone(session_, nullptr);
  QStringList said;
  QObject::connect(&lone, &FileDesk::Said,
                   [&said](const QString& text, bool warning) { said << (warning ? "! " : "") + text; });
  lone.Ask({}, {}, [this] { got_ << "left"; });
  EXPECT_EQ(got_, QStringList{"left"});
  EXPECT_EQ(said, QStringList{"! " + Say(Word::kToolMissing)});
  EXPECT_EQ(lone.Record(), nullptr);
}

TEST_F(RequestTest, AnErrorComesOverTheExplorerAndItGoesOnAfterwards) {
  Do(Action::kOpenProgram);
  ASSERT_TRUE(ExplorerShown());
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  EXPECT_TRUE(Has(Errors()));
  rig_.Cnc().ClearErrors();
  Settle();
  EXPECT_TRUE(ExplorerShown());
  EXPECT_TRUE(Has(Tool(PNL_TOOL_EXPLORER)));
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Has(Program()));
}

TEST_F(RequestTest, TheKeysOfThePanelAcceptAndLeaveByTouch) {
  AskFromPanel();
  const auto& items = window_->MainBar().Items();
  ASSERT_GE(items.size(), 2u);
  const int last = static_cast<int>(items.size()) - 1;
  EXPECT_EQ(items[static_cast<std::size_t>(last) - 1].text, Say(Word::kOk));
  EXPECT_EQ(items[static_cast<std::size_t>(last)].text, Say(Word::kClose));
  Line(PNL_TOOL_EXPLORER)->setFocus();
  Type("A.NC");
  Touch(window_->MainBar().Key(last - 1), {10, 10});
  EXPECT_FALSE(ExplorerShown());
  EXPECT_EQ(got_.size(), 1);
  AskFromPanel();
  Touch(window_->MainBar().Key(last), {10, 10});
  EXPECT_FALSE(ExplorerShown());
  EXPECT_EQ(got_.last(), "left");
}

TEST_F(RequestTest, TheKeysOfThePanelReachTheExplorerOnlyWhileItIsInFront) {
  AskFromPanel();
  Raise(Fault::kDriveWarning);
  ASSERT_TRUE(ErrorsShown());
  session_.TypeInto(PNL_TOOL_EXPLORER, Qt::Key_Escape);
  Settle();
  EXPECT_TRUE(ExplorerShown());
  EXPECT_TRUE(ErrorsShown());
  EXPECT_EQ(Queue(), 1u);
  rig_.Cnc().ClearErrors();
  Settle();
  session_.TypeInto(PNL_TOOL_EXPLORER, Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(ExplorerShown());
}

TEST_F(RequestTest, ThePinAsksForThePasswordAndTheExplorerGoesOn) {
  constexpr int kTogglePin = 32791;
  int asked = 0;
  bool given = false;
  rig_.AskPasswords([&](std::int32_t type) {
    ++asked;
    EXPECT_EQ(type, 4);
    return given;
  });
  AskFromPanel();
  const auto pinned = [this] {
    for (const SoftKeyItem& item : window_->SideBar().Items()) {
      if (item.id == kTogglePin) return item.checked;
    }
    return false;
  };
  op_->SendCommand(PNL_TOOL_EXPLORER, kTogglePin);
  Settle();
  EXPECT_FALSE(pinned());
  given = true;
  op_->SendCommand(PNL_TOOL_EXPLORER, kTogglePin);
  Settle();
  EXPECT_TRUE(pinned());
  op_->SendCommand(PNL_TOOL_EXPLORER, kTogglePin);
  Settle();
  EXPECT_FALSE(pinned());
  EXPECT_EQ(asked, 3);
  rig_.AskPasswords({});
  Key(Qt::Key_Escape);
}

TEST_F(RequestTest, ThePanelThatClosesWhileThePasswordIsAskedSurvives) {
  constexpr int kTogglePin = 32791;
  rig_.AskPasswords([this](std::int32_t) {
    session_.DestroyTool(session_.ToolWindow(PNL_TOOL_EXPLORER));
    return true;
  });
  AskFromPanel();
  op_->SendCommand(PNL_TOOL_EXPLORER, kTogglePin);
  Settle();
  rig_.AskPasswords({});
  EXPECT_FALSE(ExplorerShown());
  EXPECT_EQ(got_, QStringList{"left"});
}

}  // namespace
}  // namespace panel
