// SPDX-License-Identifier: MIT
// The trace: each kind of event with its fields, in order, taken once.
#include "remote/trace.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QWidget>

#include "remote/message_names.h"

namespace panel {
namespace {

using pnl::rig::Value;

class Trace : public ::testing::Test {
 protected:
  Trace() { session.SetToolArea(&area); }
  /// The events of all kinds, one a line.
  std::string Take(const QStringList& kinds = TraceLog::Kinds()) {
    std::string lines;
    for (const QJsonValue& event : log.Take(kinds)) {
      lines += QJsonDocument(event.toObject()).toJson(QJsonDocument::Compact).toStdString() + "\n";
    }
    return lines;
  }

  QWidget area;
  HostSession session;
  TraceLog log{session};
};

TEST_F(Trace, ACallbackHasItsSlotNameAndArguments) {
  log.Host({1, {6}});
  log.Host({2, {6, 2}});
  EXPECT_EQ(Take(),
            "{\"args\":[6],\"kind\":\"host\",\"name\":\"HostToolOpening\",\"slot\":1}\n"
            "{\"args\":[6,2],\"kind\":\"host\",\"name\":\"HostToolClosed\",\"slot\":2}\n");
}

TEST_F(Trace, AMessageLineIsARecordOfFourFields) {
  log.Host({7, {6, QVariantMap{{"line", 1}, {"text", "T38"}, {"back", 0x2C8064u}, {"fore", 0u}}}});
  EXPECT_EQ(Take(),
            "{\"args\":[6,{\"back\":2916452,\"fore\":0,\"line\":1,\"text\":\"T38\"}],\"kind\":\"host\","
            "\"name\":\"HostShowMessage\",\"slot\":7}\n");
}

TEST_F(Trace, NoMenuReadsNull) {
  log.Host({3, {6, 0u}});
  EXPECT_EQ(Take(), "{\"args\":[6,null],\"kind\":\"host\",\"name\":\"HostSetMainMenu\",\"slot\":3}\n");
  EXPECT_TRUE(VisibleItemIds(0x7FFFFFFF).isNull());
}

TEST_F(Trace, ACallIntoTheCncHasArgumentsAndResult) {
  log.Cnc("MDILine", {Value(std::int64_t{0}), Value(std::u16string(u"G0 X1")), Value(std::int64_t{4})},
          Value(std::int64_t{0}));
  EXPECT_EQ(Take(), "{\"args\":[0,\"G0 X1\",4],\"kind\":\"cnc\",\"name\":\"MDILine\",\"result\":0}\n");
}

TEST_F(Trace, AWriteTellsWhetherItSucceeded) {
  log.Write(u"[1].E.PNLMODE", Value(std::int64_t{2}), false);
  EXPECT_EQ(Take(), "{\"kind\":\"write\",\"name\":\"[1].E.PNLMODE\",\"ok\":false,\"value\":2}\n");
}

TEST_F(Trace, AChannelMessageShowsItsRecord) {
  const PnlToolNotify record{1, 77};
  log.MessageToHost(session.ToolArea(), PNL_MSG_TOOL_NOTIFY, 41, reinterpret_cast<std::intptr_t>(&record));
  EXPECT_EQ(Take(),
            "{\"first\":41,\"kind\":\"message\",\"message\":2049,\"second\":{\"channel\":1,\"window\":77},"
            "\"to\":\"parent\"}\n");
}

TEST_F(Trace, AMessageToTheWholePanelShowsItsName) {
  log.MessageToHost(session.ToolArea() + 1, *MessageNumber("ZM_UPDATE_NERRORS"), 5, 6);
  EXPECT_EQ(Take(),
            "{\"first\":5,\"kind\":\"message\",\"message\":\"ZM_UPDATE_NERRORS\",\"second\":6,\"to\":\"main\"}\n");
}

TEST_F(Trace, ABoxTellsWhatWasAskedAndAnswered) {
  log.Box(u"T8", u"T9", "error", "ok");
  EXPECT_EQ(Take(), "{\"answer\":\"ok\",\"kind\":\"box\",\"style\":\"error\",\"text\":\"T9\",\"title\":\"T8\"}\n");
}

TEST_F(Trace, WhatWasTakenIsForgottenAndOtherKindsStay) {
  log.Host({1, {6}});
  log.Write(u"a", Value(), true);
  log.Host({14, {}});
  EXPECT_EQ(log.Take({"host"}).size(), 2);
  EXPECT_EQ(log.Take({"host"}).size(), 0);
  EXPECT_EQ(log.Take(TraceLog::Kinds()).size(), 1);
  EXPECT_EQ(log.Take(TraceLog::Kinds()).size(), 0);
}

TEST_F(Trace, WhatNobodyTakesIsBoundedAndAnEventTellsHowManyWereLost) {
  // A trace never taken grew without end.
  constexpr int kMore = 5;
  log.Host({1, {6}});
  for (std::size_t i = 0; i < TraceLog::kMostEvents + kMore - 1; ++i) log.Host({2, {static_cast<int>(i)}});
  const QJsonArray events = log.Take({"host"});
  EXPECT_EQ(TraceLog::kMostEvents, 100'000u);
  ASSERT_EQ(events.size(), static_cast<qsizetype>(TraceLog::kMostEvents) + 1);
  EXPECT_EQ(events.at(0).toObject(), (QJsonObject{{"kind", "lost"}, {"count", kMore}}));
  EXPECT_EQ(events.at(1).toObject()["args"].toArray().at(0).toInt(), kMore - 1);
  log.Host({1, {6}});
  EXPECT_EQ(log.Take({"host"}).size(), 1) << "it is told once";
}

TEST_F(Trace, LongEventsAreBoundedByTheirSize) {
  const std::u16string line(1u << 20, u'x');
  for (int i = 0; i < 100; ++i) log.Box(u"T", line, "info", "ok");
  const QJsonArray events = log.Take({"box"});
  EXPECT_EQ(events.size(), 1 + 31) << "each is a little more than two megabytes, and 64 are kept";
  EXPECT_EQ(events.at(0).toObject()["count"].toInt() + events.size() - 1, 100);
}

TEST_F(Trace, OnlyAsMuchIsLostAsMakesRoom) {
  constexpr std::size_t kMega = std::size_t{1} << 20;
  log.Box(u"T", std::u16string(30 * kMega, u'x'), "info", "ok");
  for (int i = 0; i < 4; ++i) log.Box(u"T", std::u16string(kMega, u'y'), "info", "ok");
  const QJsonArray events = log.Take({"box"});
  ASSERT_EQ(events.size(), 1 + 4) << "the long one made room for all others";
  EXPECT_EQ(events.at(0).toObject()["count"].toInt(), 1);
}

TEST_F(Trace, LostEventsAreCountedByTheirKind) {
  for (std::size_t i = 0; i < TraceLog::kMostEvents; ++i) log.Write(u"a", Value(), true);
  log.Host({1, {6}});
  log.Host({1, {6}});
  EXPECT_EQ(log.Take({"host"}).size(), 2);
  EXPECT_EQ(log.Take({"write"}).at(0).toObject()["count"].toInt(), 2);
}

TEST(MessageNames, AreRegisteredOnceAndKnownByTheirNumber) {
  const auto number = MessageNumber("MDI_ENDLIST");
  ASSERT_TRUE(number.has_value());
  EXPECT_EQ(*number, PnlRegisterMessage("MDI_ENDLIST"));
  EXPECT_EQ(MessageToJson(*number), QJsonValue("MDI_ENDLIST"));
  EXPECT_EQ(MessageToJson(0x802), QJsonValue(0x802));
  EXPECT_FALSE(MessageNumber("MDI_ENDLISTS").has_value());
}

TEST(MessageNames, KnowWhichArgumentsAreAddresses) {
  EXPECT_EQ(AddressesOf(PNL_MSG_CYCLE_START, 1).second, AddressKind::kCycleStart);
  EXPECT_EQ(AddressesOf(PNL_MSG_CYCLE_START, 2).second, AddressKind::kCycleStart);
  EXPECT_EQ(AddressesOf(PNL_MSG_CYCLE_START, 3).second, AddressKind::kNone);
  EXPECT_EQ(AddressesOf(PNL_MSG_TOOL_NOTIFY, 41).second, AddressKind::kChannelRecord);
  EXPECT_EQ(AddressesOf(PNL_MSG_TOOL_NOTIFY, 42).second, AddressKind::kChannelRecord);
  EXPECT_EQ(AddressesOf(PNL_MSG_TOOL_NOTIFY, 43).second, AddressKind::kNone);
  EXPECT_EQ(AddressesOf(PNL_MSG_TOOL_NOTIFY, 1).second, AddressKind::kNone);
  EXPECT_EQ(AddressesOf(PNL_MSG_TOOL_COMMAND, 2).second, AddressKind::kNone);
  EXPECT_EQ(AddressesOf(*MessageNumber("ZM_SHOW_FILE"), 0).second, AddressKind::kFile);
  EXPECT_EQ(AddressesOf(*MessageNumber("HELPHTML_GOTOMANUAL"), 0).first, AddressKind::kText);
}

TEST_F(Trace, WhatStaysAfterATakeStillCountsAndWhatWasTakenDoesNot) {
  const std::u16string line(1u << 20, u'x');
  const auto boxes = [&](int count) {
    for (int i = 0; i < count; ++i) log.Box(u"T", line, "info", "ok");
  };
  boxes(20);
  EXPECT_EQ(log.Take({"host"}).size(), 0);
  boxes(20);
  QJsonArray events = log.Take({"box"});
  EXPECT_EQ(events.at(0).toObject()["kind"], "lost") << "40 are too many together";
  boxes(20);
  events = log.Take({"box"});
  EXPECT_EQ(events.size(), 20) << "and 20 are not";
  EXPECT_EQ(events.at(0).toObject()["kind"], "box");
}

TEST_F(Trace, EventsAreBoundedByTheSizeOfWhatIsInTheirLists) {
  const std::vector<Value> args{Value(std::u16string(1u << 20, u'x'))};
  for (int i = 0; i < 50; ++i) log.Cnc("MDILine", args, Value(std::int64_t{0}));
  EXPECT_EQ(log.Take({"cnc"}).at(0).toObject()["kind"], "lost");
}

TEST_F(Trace, ASlotThatIsNoneHasNoName) {
  for (const int slot : {-1, kSlotCount}) log.Host({slot, {}});
  log.Host({0, {1}});
  log.Host({kSlotCount - 1, {}});
  EXPECT_EQ(Take(),
            "{\"args\":[],\"kind\":\"host\",\"name\":\"\",\"slot\":-1}\n"
            "{\"args\":[],\"kind\":\"host\",\"name\":\"\",\"slot\":19}\n"
            "{\"args\":[1],\"kind\":\"host\",\"name\":\"HostMayOpenTool\",\"slot\":0}\n"
            "{\"args\":[],\"kind\":\"host\",\"name\":\"HostOpenMachiningCalculator\",\"slot\":18}\n");
}

TEST_F(Trace, OnlyTheMenuOfASetBarIsOne) {
  log.Host({4, {6, 0u}});
  log.Host({5, {6, 0}});
  EXPECT_EQ(Take(),
            "{\"args\":[6,null],\"kind\":\"host\",\"name\":\"HostSetSideMenu\",\"slot\":4}\n"
            "{\"args\":[6,0],\"kind\":\"host\",\"name\":\"HostUpdateMainMenu\",\"slot\":5}\n");
  EXPECT_TRUE(VisibleItemIds(0).isNull());
}

TEST_F(Trace, OnlyANoticeOfTheChannelCarriesARecord) {
  const PnlToolNotify record{2, 9};
  const auto address = reinterpret_cast<std::intptr_t>(&record);
  const auto second = [&](std::uint32_t message, std::intptr_t first, std::intptr_t argument) -> QJsonValue {
    log.MessageToHost(session.ToolArea(), message, first, argument);
    return log.Take({"message"}).at(0).toObject()["second"];
  };
  EXPECT_EQ(second(PNL_MSG_TOOL_NOTIFY, 41, address), QJsonValue(QJsonObject{{"channel", 2}, {"window", 9}}));
  EXPECT_EQ(second(PNL_MSG_TOOL_NOTIFY, 42, address), QJsonValue(QJsonObject{{"channel", 2}, {"window", 9}}));
  EXPECT_EQ(second(PNL_MSG_TOOL_NOTIFY, 42, 0), 0);
  EXPECT_EQ(second(PNL_MSG_TOOL_NOTIFY, 40, 5), 5);
  EXPECT_EQ(second(PNL_MSG_TOOL_NOTIFY, 43, 5), 5);
  EXPECT_EQ(second(PNL_MSG_TOOL_COMMAND, 41, 5), 5);
}

TEST(MessageNames, EveryRegisteredMessageIsKnownWithItsAddresses) {
  const std::pair<QStringList, AddressArguments> rows[] = {
      {{"ZMC_CANCELDLG",       "ZMC_RESETMSG",
        "ZMC_SHOWMENU",        "ZMC_UPDATEMENU",
        "ZWCEDIT_SETFOCUS",    "ZWCEDIT_KILLFOCUS",
        "ZM_CLOSE7340",        "ZM_UPDATE_NERRORS",
        "ZM_END_ERRORHELP",    "ZM_HIDE_ERRORHELP",
        "MDI_ENDLIST",         "TM_HANDLEVALUE",
        "UTIL7340_SetCNCRect", "XPLR_GO",
        "XPLR_SHOWMENU",       "XPLR_UPDATEMENU",
        "XPLR_UPDATE",         "XPLR_UPDATE_PINSTATE",
        "XPLR_UPDATE_FOLDER",  "XPLR_UPDATE_LIST",
        "XPLR_UPDATE_TREE",    "XPLR_UPDATE_EDIT",
        "XPLR_RESET_LIST",     "XPLR_FIND",
        "XPLR_FIND_NEXT",      "XPLR_FIND_PREVIOUS",
        "XPLR_FIND_RESULT",    "XPLR_END_FIND"},
       {}},
      {{"ZMC_SHOWMSG", "XPLR_SHOWMSG"}, {AddressKind::kNone, AddressKind::kText}},
      {{"ZM_SHOW_ERRORHELP", "ZM_SHOW_FILE"}, {AddressKind::kNone, AddressKind::kFile}},
      {{"HELPHTML_GOTOMANUAL", "XPLR_UPDATE_CAPTION"}, {AddressKind::kText, AddressKind::kNone}}};
  for (const auto& [names, addresses] : rows) {
    for (const QString& name : names) {
      const auto number = MessageNumber(name);
      ASSERT_TRUE(number.has_value()) << name.toStdString();
      EXPECT_EQ(*number, PnlRegisterMessage(name.toLatin1().constData()));
      EXPECT_EQ(MessageToJson(*number), QJsonValue(name));
      for (const std::int64_t first : {0, 1, 41}) {
        EXPECT_EQ(AddressesOf(*number, first).first, addresses.first) << name.toStdString();
        EXPECT_EQ(AddressesOf(*number, first).second, addresses.second) << name.toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace panel
