// SPDX-License-Identifier: MIT
// The error window through the protocol, on a CNC that only records.
#include <QDir>
#include <QFile>

#include "scenario/qt/bare_errors.h"

namespace panel::test {
namespace {

TEST_F(BareErrors, AnErrorOpensTheWindowWithItsTexts) {
  Load();
  EXPECT_FALSE(Visible());
  Text(1110, "Too fast");
  Push(1110, 1, {{"module", "KRN"}, {"identifier", 42}});
  EXPECT_TRUE(Visible());
  EXPECT_EQ(Text(kErrorTitleBox), "T203 1110");
  EXPECT_EQ(Text(kErrorTitleLine), "Too fast");
  EXPECT_EQ(Text(kErrorDescription).trimmed(), "ID: KRN-42");
  EXPECT_TRUE(Visible(kErrorAcknowledge));
  EXPECT_FALSE(Visible(kErrorHelp));
  EXPECT_FALSE(Visible(kErrorNext));
  EXPECT_EQ(client.Get("DM.HMI.ERROR.CURRENT"), "T203 1110: Too fast");
  EXPECT_EQ(client.Window(tool)["rect"], (QJsonArray{0, 0, 710, 298}));
}

TEST_F(BareErrors, ParametersAndARecordCompose) {
  Load();
  client.Call("cnc.error.push",
              {{"fields", QJsonObject{{"number", 5}, {"severity", 0}}},
               {"parameters", QJsonArray{QJsonObject{{"valueType", 7}, {"unit", 0}, {"meaning", 0}, {"value", -3}}}}});
  EXPECT_EQ(Text(kErrorTitleBox), "T206 5");
  EXPECT_TRUE(Text(kErrorDescription).contains("-3")) << Text(kErrorDescription).toStdString();
  QByteArray record(4048, '\0');
  record[24] = 77;
  record[32] = 1;
  client.Call("cnc.error.push", {{"record", QString::fromLatin1(record.toBase64())}});
  EXPECT_EQ(Queue(), (QJsonArray{5, 77}));
}

TEST_F(BareErrors, WalkingTheQueueMovesCountersAndArrows) {
  Load();
  for (const int number : {1, 2, 3}) Push(number, 1);
  EXPECT_EQ(Text(kErrorTitleBox), "T203 1");
  EXPECT_FALSE(Visible(kErrorPrevious));
  EXPECT_TRUE(Visible(kErrorNext));
  EXPECT_EQ(Text(kErrorAfter), "2");
  Key("Right");
  EXPECT_EQ(Text(kErrorTitleBox), "T203 2");
  EXPECT_EQ(Text(kErrorBefore), "1");
  EXPECT_EQ(Text(kErrorAfter), "1");
  Click(kErrorNext);
  EXPECT_EQ(Text(kErrorTitleBox), "T203 3");
  EXPECT_FALSE(Visible(kErrorNext));
  EXPECT_FALSE(Visible(kErrorAfter));
  Key("Up");
  Click(kErrorPrevious);
  EXPECT_EQ(Text(kErrorTitleBox), "T203 1");
  EXPECT_FALSE(Visible(kErrorPrevious));
  EXPECT_FALSE(Visible(kErrorBefore));
}

struct Reset {
  const char* name;
  int severity;
  int marked;
  const char* key;
  const char* call;  // empty when the key does nothing
};

class BareReset : public BareErrors, public ::testing::WithParamInterface<Reset> {};

TEST_P(BareReset, EachClassHasItsKeyAndItsCall) {
  Load();
  Push(8, GetParam().severity, {{"marked", GetParam().marked}});
  client.Trace();
  Key(GetParam().key);
  std::string resets;
  for (const QJsonValue& event : client.Trace({"cnc"})) {
    const QJsonObject call = event.toObject();
    if (!call["name"].toString().startsWith("Reset")) continue;
    resets += call["name"].toString().toStdString();
    const QJsonArray args = call["args"].toArray();
    if (args.size() == 2 && args[1].isDouble()) resets += " " + std::to_string(args[1].toInt());
  }
  EXPECT_EQ(resets, GetParam().call);
  EXPECT_EQ(Queue().isEmpty(), !std::string(GetParam().call).empty());
}

INSTANTIATE_TEST_SUITE_P(All, BareReset,
                         ::testing::Values(Reset{"error", 1, 0, "Escape", "ResetError 1"},
                                           Reset{"marked", 1, 1, "Escape", "ResetError 1"},
                                           Reset{"warning", 0, 0, "Escape", "ResetError 0"},
                                           Reset{"warningByEnter", 0, 0, "Enter", ""},
                                           Reset{"fatal", 7, 0, "Escape", ""}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(BareErrors, AResetOfTheFirstOfThreeShowsTheNextPrimaryError) {
  Load();
  for (const int number : {1, 2, 3}) Push(number, 1);
  client.Trace();
  Click(kErrorAcknowledge);
  EXPECT_EQ(Text(kErrorTitleBox), "T203 2");
  EXPECT_EQ(Queue(), (QJsonArray{2, 3}));
  Key("Escape");
  Key("Escape");
  EXPECT_FALSE(Visible());
  EXPECT_EQ(client.Get("DM.HMI.ERROR.CURRENT"), "");
}

TEST_F(BareErrors, TheHotKeyPutsTheWindowAwayAndTheMainWindowHearsTheCount) {
  Load();
  Push(1110, 0);
  client.Trace();
  Key("w", {"Alt"});
  EXPECT_FALSE(Visible());
  QJsonArray told = client.Trace({"message"});
  ASSERT_FALSE(told.isEmpty());
  const QJsonObject message = told.last().toObject();
  EXPECT_EQ(message["to"], "main");
  EXPECT_EQ(message["message"], "ZM_UPDATE_NERRORS");
  EXPECT_EQ(message["first"].toInt(), (2 << 16) | 1110);
  EXPECT_EQ(message["second"].toInt(), (1 << 16) | 500);
  Key("w", {"Alt"});
  EXPECT_TRUE(Visible());
  told = client.Trace({"message"});
  ASSERT_FALSE(told.isEmpty());
  EXPECT_EQ(told.last()["first"].toInt(), 0);
  EXPECT_EQ(told.last()["second"].toInt(), 0);
}

TEST_F(BareErrors, TheHotKeyWorksFromAnotherToolsWindow) {
  Load();
  const int calculator = client.Load(3);
  Push(1, 1);
  client.Call("ui.key", {{"window", calculator}, {"key", "w"}, {"mods", QJsonArray{"Alt"}}});
  EXPECT_FALSE(Visible());
}

TEST_F(BareErrors, HelpOffersTheErrorToTheHostAndComesBack) {
  Load();
  Text(1110, "Too fast", "C:\\HELP.TXT#7");
  Push(1110, 1);
  ASSERT_TRUE(Visible(kErrorHelp));
  client.Trace();
  Click(kErrorHelp);
  EXPECT_FALSE(Visible());
  QJsonObject line;
  for (const QJsonValue& event : client.Trace({"host"})) {
    if (event["name"] == "HostShowError") line = event["args"].toArray().at(0).toObject();
  }
  EXPECT_EQ(line["back"].toInt(), 0x0000A0);
  EXPECT_EQ(line["fore"].toInt(), 0xFFFFFF);
  EXPECT_EQ(line["helpRef"], "C:\\HELP.TXT#7");
  EXPECT_EQ(line["header"], "T203 1110 : Too fast");
  client.Call("tool.send", {{"window", tool}, {"message", "ZM_END_ERRORHELP"}});
  EXPECT_TRUE(Visible());
}

TEST_F(BareErrors, TheHostMaySuppressBlockAndTakeTheHotKey) {
  Load();
  client.Tell(tool, kToolNotify, 1, 1);
  Push(1, 1);
  EXPECT_FALSE(Visible()) << "suppressed";
  client.Tell(tool, kToolNotify, 1, 0);
  Key("w", {"Alt"});
  EXPECT_TRUE(Visible());
  client.Tell(tool, kToolNotify, 79, 1);
  EXPECT_FALSE(Visible()) << "blocked";
  Key("w", {"Alt"});
  EXPECT_FALSE(Visible());
  client.Tell(tool, kToolNotify, 79, 0);
  client.Tell(tool, kToolNotify, 2, 0);
  Key("w", {"Alt"});
  EXPECT_FALSE(Visible()) << "no hot key";
  client.Tell(tool, kToolNotify, 2, 1);
  Key("w", {"Alt"});
  EXPECT_TRUE(Visible());
}

TEST_F(BareErrors, TheSettingsAreReadFromTheirFile) {
  client.Call("path.set", {{"id", 52}, {"path", "C:\\SET"}});
  const QString folder = client.Call("file.resolve", {{"path", "C:\\SET"}})["host"].toString();
  QDir().mkpath(folder);
  QFile file(folder + "/errman.ini");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[COMMON]\nWindow=10,20,400,220\n[PRIVATE]\nFlash=0\nHideWarnings=true\n");
  file.close();
  Load();
  Push(1, 0);
  EXPECT_FALSE(Visible()) << "warnings are hidden";
  const QJsonArray told = client.Trace({"message"});
  ASSERT_FALSE(told.isEmpty());
  EXPECT_EQ(told.last()["second"].toInt(), 1 << 16) << "no flash";
  Push(2, 7);
  EXPECT_EQ(client.Window(tool)["rect"].toArray().at(0).toInt(), 10);
}

TEST_F(BareErrors, AnErrorThatEndsTheControlAsksToCloseEveryFiveSeconds) {
  Load();
  Push(201, 1);
  client.Trace();
  client.Advance(4999);
  EXPECT_FALSE(client.TraceText({"message"}).find("ZM_CLOSE7340") != std::string::npos);
  client.Advance(1);
  EXPECT_TRUE(client.TraceText({"message"}).find("ZM_CLOSE7340") != std::string::npos);
  EXPECT_TRUE(client.Runs());
}

}  // namespace
}  // namespace panel::test
