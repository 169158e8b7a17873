// SPDX-License-Identifier: MIT
// What each method of the CNC, of errors and of storage asks of the rig, with what is left out, and that a request with
// anything wrong in it asks for nothing.
#include <gtest/gtest.h>

#include <QJsonDocument>

#include "panel/qt/remote_fixture.h"
#include "panel/qt/written_rig.h"
#include "remote/methods.h"

namespace panel {
namespace {

/// Methods straight from their table, by manual time.
class WrittenMethods : public ::testing::Test {
 protected:
  /// The result as text, or the error's text with its code.
  std::string Ask(const QString& method, const QJsonObject& params) {
    Params reader(params);
    const RpcResult result = methods.value(method)(world, reader);
    if (const auto* error = std::get_if<RpcError>(&result)) {
      return QString("%1 %2").arg(error->code).arg(error->text).toStdString();
    }
    const QByteArray list = QJsonDocument(QJsonArray{std::get<QJsonValue>(result)}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2).toStdString();
  }
  std::string Ask(const QString& method, const QByteArray& params) {
    const QJsonDocument document = QJsonDocument::fromJson(params);
    EXPECT_TRUE(document.isObject()) << params.constData();
    return Ask(method, document.object());
  }
  /// What was asked of the rig since the last call, one a line.
  std::string Calls() {
    std::string all;
    for (const std::string& line : std::exchange(rig.lines, {})) all += (all.empty() ? "" : "\n") + line;
    return all;
  }

  PlainPanel face;
  HostSession session;
  WrittenRig rig;
  TraceLog trace{session};
  BoxAnswers boxes;
  MessageArguments arguments;
  PublishedRequest request;
  RemoteWorld world{session, face, rig, {true, true}, trace, boxes, arguments, request};
  MethodTable methods = AllMethods();
};

struct RigRow {
  const char* method;
  const char* params;
  const char* calls;
  const char* reply = "{}";
};

class RigRequests : public WrittenMethods, public ::testing::WithParamInterface<RigRow> {};

TEST_P(RigRequests, AskTheRigForExactlyThis) {
  EXPECT_EQ(Ask(GetParam().method, QByteArray(GetParam().params)), GetParam().reply);
  EXPECT_EQ(Calls(), GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(
    Variables, RigRequests,
    ::testing::Values(
        RigRow{"cnc.define", R"({"name":"R","type":"int","value":3})", "Define 'R' int 3 1 1"},
        RigRow{"cnc.define", R"({"name":"R","type":"double","value":3})", "Define 'R' double real 3.000000 1 1"},
        RigRow{"cnc.define", R"({"name":"R","type":"text","value":"3"})", "Define 'R' text '3' 1 1"},
        RigRow{"cnc.define", R"({"name":"R","type":"int","value":3,"readable":false})", "Define 'R' int 3 0 1"},
        RigRow{"cnc.define", R"({"name":"R","type":"int","value":3,"writable":false})", "Define 'R' int 3 1 0"},
        RigRow{"cnc.undefine", R"({"name":"R"})", "Undefine 'R'"},
        RigRow{"cnc.set", R"({"name":"I","value":-2147483648})", "Set 'I' -2147483648"},
        RigRow{"cnc.set", R"({"name":"I","value":2147483647})", "Set 'I' 2147483647"},
        RigRow{"cnc.set", R"({"name":"D","value":4})", "Set 'D' real 4.000000"},
        RigRow{"cnc.set", R"({"name":"T","value":"x"})", "Set 'T' 'x'"},
        RigRow{"cnc.set", R"({"name":"I","value":2147483648})", "", "-32602 value: an integer of 32 bits is needed"},
        RigRow{"cnc.set", R"({"name":"I","value":-2147483649})", "", "-32602 value: an integer of 32 bits is needed"},
        RigRow{"cnc.set", R"({"name":"D","value":"x"})", "", "-32602 value: a number is needed"},
        RigRow{"cnc.set", R"({"name":"T","value":1})", "", "-32602 value: a text is needed"},
        RigRow{"cnc.set", R"({"name":"R.NOT","value":1})", "", "-32602 name: there is no such variable"},
        RigRow{"cnc.get", R"({"name":"I"})", "", R"({"value":7})"},
        RigRow{"cnc.get", R"({"name":"D"})", "", R"({"value":2.5})"},
        RigRow{"cnc.get", R"({"name":"T"})", "", R"({"value":"ñ"})"},
        RigRow{"cnc.get", R"({"name":"R"})", "", R"({"value":null})"},
        RigRow{"cnc.reports", R"({"name":"I"})", "", R"({"windows":[4,9]})"}));

INSTANTIATE_TEST_SUITE_P(
    Tables, RigRequests,
    ::testing::Values(
        RigRow{"cnc.returns", R"({"function":"MDILine","value":-3})", "Returns MDILine -3"},
        RigRow{"cnc.returns", R"({"function":"MDILine","values":[-2147483648,2,2147483647]})",
               "Returns MDILine -2147483648 2 2147483647"},
        RigRow{"cnc.returns", R"({"function":"NoSuch","value":1})", "",
               "-32602 function: there is no such function whose answer can be set"},
        RigRow{"cnc.axis", R"({"logical":2,"name":"Y"})", "Axis 2 'Y'"},
        RigRow{"cnc.plc", R"({"type":1,"id":2,"message":"m"})", "PlcMessage 1 2 'm' ''"},
        RigRow{"cnc.plc", R"({"type":1,"id":2,"message":"m","info":"i"})", "PlcMessage 1 2 'm' 'i'"},
        RigRow{"cnc.tool", R"({"number":9})", "Tool 9 0 0 0 0 0"},
        RigRow{"cnc.tool", R"({"number":9,"type":2,"family":3,"subfamily":4,"diameter":100000,"teeth":5})",
               "Tool 9 2 3 4 100000 5"},
        RigRow{"cnc.blockmark", R"({"block":"G0","mark":"OPT1"})", "BlockMark 'G0' 'OPT1'"},
        RigRow{"cnc.errortext", R"({"function":"error_to_txt","number":7,"text":"\nx"})", "ErrorText 7 '\nx' '' 0"},
        RigRow{"cnc.errortext", R"({"function":"error_to_txt","number":7,"text":"x","helpRef":"a#7","hasHelp":true})",
               "ErrorText 7 'x' 'a#7' 1"},
        RigRow{"cnc.errortext", R"({"function":"no","number":7,"text":"x"})", "",
               "-32602 function: there is no such text function"},
        RigRow{"cnc.description", R"({"file":"F","number":7,"text":"x"})", "Description 'F' 7 'x'"}));

INSTANTIATE_TEST_SUITE_P(
    Errors, RigRequests,
    ::testing::Values(
        RigRow{"cnc.error.push", R"({"fields":{"module":"PRG","number":5,"value":1.5}})",
               "PushError module='PRG';number=5;value=real 1.500000;  "},
        RigRow{"cnc.error.push",
               R"({"fields":{},"parameters":[{"valueType":1},{"valueType":2,"unit":3,"meaning":4,"value":5},)"
               R"({"valueType":1},{"valueType":1},{"valueType":6,"value":"x"}],"extraValues":[{"valueType":7},)"
               R"({"valueType":8},{"valueType":9},{"valueType":10,"value":null}]})",
               "PushError  (1 0 0 none)(2 3 4 5)(1 0 0 none)(1 0 0 none)(6 0 0 'x') "
               "(7 0 0 none)(8 0 0 none)(9 0 0 none)(10 0 0 none)"},
        RigRow{"cnc.error.push", R"({"fields":{"colour":1}})", "", "-32602 fields: there is no such field"},
        RigRow{"cnc.error.push", R"({"fields":{"number":true}})", "",
               "-32602 fields.number: a number or a text is needed"},
        RigRow{"cnc.error.push", R"({"fields":{"number":null}})", "",
               "-32602 fields.number: a number or a text is needed"},
        RigRow{"cnc.error.push", R"({"fields":{},"extraValues":[{},{},{},{},{}]})", "",
               "-32602 extraValues: at most 4 fit"},
        RigRow{"cnc.error.push", R"({"fields":{},"parameters":[{"valueType":1},7]})", "",
               "-32602 parameters[1]: an object is needed"},
        RigRow{"cnc.error.push", R"({"fields":{},"parameters":[{"valueType":1,"value":[]}]})", "",
               "-32602 parameters[0].value: a number or a text is needed"},
        RigRow{"cnc.error.push", R"({"record":"AAAA","parameters":[]})", "",
               "-32602 parameters: has no place beside record"},
        RigRow{"cnc.error.push", R"({"record":"AAAA","extraValues":[]})", "",
               "-32602 extraValues: has no place beside record"},
        RigRow{"cnc.error.push", R"({"record":7})", "", "-32602 record: a text is needed"},
        RigRow{"cnc.error.queue", "{}", "", R"({"numbers":[12,11]})"}, RigRow{"cnc.error.clear", "{}", "ClearErrors"}));

INSTANTIATE_TEST_SUITE_P(
    Storage, RigRequests,
    ::testing::Values(
        RigRow{"path.set", R"({"id":108,"path":"C:\\P"})", "SetPath 108 'C:\\P'"},
        RigRow{"drive.set", R"({"letter":"D","dir":"/d"})", "SetDrive D '/d' 3 '' '' 0 0"},
        RigRow{"drive.set",
               R"({"letter":"z","dir":"/d","type":5,"label":"L","remote":"R","error":21,"labelFails":true})",
               "SetDrive Z '/d' 5 'L' 'R' 21 1"},
        RigRow{"drive.set", R"({"letter":"a","dir":null,"type":2})", "SetDrive A '' 2 '' '' 0 0"},
        RigRow{"drive.set", R"({"letter":"A","dir":"/d","type":1})", "",
               "-32602 type: an integer from 2 to 5 is needed"},
        RigRow{"drive.set", R"({"letter":"@","dir":"/d"})", "", "-32602 letter: a letter from A to Z is needed"},
        RigRow{"drive.set", R"({"letter":"[","dir":"/d"})", "", "-32602 letter: a letter from A to Z is needed"},
        RigRow{"drive.set", R"({"letter":"`","dir":"/d"})", "", "-32602 letter: a letter from A to Z is needed"},
        RigRow{"drive.set", R"({"letter":"{","dir":"/d"})", "", "-32602 letter: a letter from A to Z is needed"},
        RigRow{"drive.set", R"({"letter":"","dir":"/d"})", "", "-32602 letter: a letter from A to Z is needed"},
        RigRow{"drive.set", R"({"letter":"AB","dir":"/d"})", "", "-32602 letter: a letter from A to Z is needed"},
        RigRow{"drive.masks", "{}", "SetDriveMasks  |  | "},
        RigRow{"drive.masks", R"({"noDrives":["A","z"],"remembered":["Z"],"locked":["c","d"]})",
               "SetDriveMasks AZ | Z | CD"},
        RigRow{"network.set", R"({"roots":[]})", "SetNetwork"},
        RigRow{"network.set",
               R"({"roots":[{"display":6,"remote":"r","local":"l","comment":"c","provider":"p","dir":"/n",)"
               R"("connected":true,"error":5,"children":[{},{"dir":null,"error":null}]},{"display":1}]})",
               "SetNetwork\n- 6 'r' 'l' 'c' 'p' '/n' 1 5\n-- 0 '' '' '' '' '' 0 ok\n-- 0 '' '' '' '' '' 0 ok\n"
               "- 1 '' '' '' '' '' 0 ok"},
        RigRow{"network.set", R"({"roots":[{},7]})", "", "-32602 roots[1]: an object is needed"},
        RigRow{"network.set", R"({"roots":[{"children":[{},{"error":"x"}]}]})", "",
               "-32602 roots[0].children[1].error: an integer from -2147483648 to 2147483647 is needed"},
        RigRow{"network.set", R"({"roots":[{"dir":""}]})", "",
               "-32602 roots[0].dir: the name of a file or folder is needed"},
        RigRow{"file.resolve", R"({"path":"C:\\A.NC"})", "", R"({"host":"/c/A.NC"})"},
        RigRow{"file.resolve", R"({"path":"Q:\\A.NC"})", "", R"({"host":null})"},
        RigRow{"lang.text", R"({"id":38,"text":"x"})", "SetText 38 'x'"},
        RigRow{"clipboard.text", "{}", "", R"({"text":"G0 X1"})"}, RigRow{"time.advance", R"({"ms":0})", "Advance 0"},
        RigRow{"time.advance", R"({"ms":86400000})", "Advance 86400000"},
        RigRow{"time.advance", R"({"ms":86400001})", "", "-32602 ms: an integer from 0 to 86400000 is needed"}));

TEST_F(WrittenMethods, ARecordOfExactlyItsSizeIsPushedWhole) {
  const auto push = [this](const QByteArray& bytes) {
    return Ask("cnc.error.push", R"({"record":")" + bytes.toBase64() + R"("})");
  };
  EXPECT_EQ(push("<" + QByteArray(4046, '-') + ">"), "{}");
  EXPECT_EQ(Calls(), "PushErrorRecord 4048 < >");
  const std::string needed = "-32602 record: 4048 bytes in base64 are needed";
  EXPECT_EQ(push(QByteArray(4047, '-')), needed);
  EXPECT_EQ(push(QByteArray(4049, '-')), needed);
  const QByteArray broken = "!" + QByteArray(4048, '-').toBase64();
  EXPECT_EQ(Ask("cnc.error.push", R"({"record":")" + broken + R"("})"), needed);
  EXPECT_EQ(push(QByteArray(4048, 'n')), "-32602 record: the kernel's queue doesn't take it");
  EXPECT_EQ(Calls(), "");
}

TEST_F(WrittenMethods, ANetworkHasAtMostThirtyTwoLevels) {
  QByteArray nodes = "[]";
  for (int level = 0; level < 32; ++level) nodes = "[{\"children\":" + nodes + "}]";
  EXPECT_EQ(Ask("network.set", "{\"roots\":" + nodes + "}"), "{}");
  EXPECT_EQ(rig.lines.size(), 33u);
  rig.lines.clear();
  const std::string refusal = Ask("network.set", "{\"roots\":[{\"children\":" + nodes + "}]}");
  EXPECT_TRUE(refusal.ends_with(".children: at most 32 levels fit")) << refusal;
  EXPECT_EQ(Calls(), "");
}

TEST_F(WrittenMethods, WithoutManualTimeTheClockIsLeftAlone) {
  world.options.manualTime = false;
  EXPECT_EQ(Ask("time.advance", QByteArray(R"({"ms":1})")),
            "-32602 ms: time goes by itself; start the panel with --time manual");
  EXPECT_EQ(Calls(), "");
}

TEST_F(WrittenMethods, ARequestMakesItsVariableWhereItIsAbsentAndClearingMakesNone) {
  EXPECT_EQ(Ask("xplr.publish", QByteArray(R"({"record":null})")), "{}");
  EXPECT_EQ(Calls(), "");
  EXPECT_EQ(Ask("xplr.publish", QByteArray(R"({"record":{"Owner":1006}})")), "{}");
  ASSERT_EQ(rig.lines.size(), 2u);
  EXPECT_TRUE(rig.lines[0].starts_with("Set 'E.XPLRDATA' "));
  const std::string number = rig.lines[0].substr(std::string("Set 'E.XPLRDATA' ").size());
  EXPECT_EQ(rig.lines[1], "Define 'E.XPLRDATA' int " + number + " 1 1");
  const void* record = PnlResolveRecord(std::stoi(number));
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(static_cast<const XPLRDATA_ST*>(record)->Owner, 1006);
  EXPECT_EQ(Ask("xplr.record", QByteArray("{}")), "null") << "there is still no variable";
}

/// A method with every parameter that it has, all good, and those that may be left out.
struct WholeRequest {
  const char* method;
  const char* params;
  QStringList optional;
};

class WholeRequests : public WrittenMethods, public ::testing::WithParamInterface<WholeRequest> {};

TEST_P(WholeRequests, EveryParameterIsNamedWhenItIsWrongAndNothingIsDone) {
  const WholeRequest& row = GetParam();
  const QJsonObject whole = QJsonDocument::fromJson(row.params).object();
  ASSERT_FALSE(whole.isEmpty()) << row.method;
  EXPECT_FALSE(Ask(row.method, whole).starts_with("-")) << Ask(row.method, whole);
  rig.lines.clear();
  for (const QString& name : whole.keys()) {
    const std::string at = std::string(row.method) + " " + name.toStdString();
    QJsonObject other = whole;
    // A list with a list in it is none of the things that parameters are.
    other[name] = QJsonArray{QJsonArray()};
    EXPECT_TRUE(Ask(row.method, other).starts_with("-32602 " + name.toStdString())) << at;
    other.remove(name);
    if (row.optional.contains(name)) continue;
    EXPECT_EQ(Ask(row.method, other), "-32602 " + name.toStdString() + ": missing") << at;
  }
  EXPECT_EQ(Calls(), "");
}

INSTANTIATE_TEST_SUITE_P(
    All, WholeRequests,
    ::testing::Values(
        WholeRequest{"cnc.define",
                     R"({"name":"R","type":"int","value":1,"readable":true,"writable":true})",
                     {"readable", "writable"}},
        WholeRequest{"cnc.undefine", R"({"name":"R"})", {}}, WholeRequest{"cnc.set", R"({"name":"I","value":1})", {}},
        WholeRequest{"cnc.get", R"({"name":"I"})", {}}, WholeRequest{"cnc.reports", R"({"name":"I"})", {}},
        WholeRequest{"cnc.returns", R"({"function":"MDILine","value":1})", {}},
        WholeRequest{"cnc.returns", R"({"function":"MDILine","values":[1]})", {"values"}},
        WholeRequest{"cnc.axis", R"({"logical":1,"name":"X"})", {}},
        WholeRequest{"cnc.plc", R"({"type":1,"id":2,"message":"m","info":"i"})", {"info"}},
        WholeRequest{"cnc.tool",
                     R"({"number":1,"type":2,"family":3,"subfamily":4,"diameter":5,"teeth":6})",
                     {"type", "family", "subfamily", "diameter", "teeth"}},
        WholeRequest{"cnc.blockmark", R"({"block":"G0","mark":"M"})", {}},
        WholeRequest{"cnc.errortext",
                     R"({"function":"error_to_txt","number":1,"text":"x","helpRef":"a","hasHelp":true})",
                     {"helpRef", "hasHelp"}},
        WholeRequest{"cnc.description", R"({"file":"F","number":1,"text":"x"})", {}},
        WholeRequest{
            "cnc.error.push", R"({"fields":{},"parameters":[],"extraValues":[]})", {"parameters", "extraValues"}},
        WholeRequest{"path.set", R"({"id":1,"path":"C:\\"})", {}},
        WholeRequest{"drive.set",
                     R"({"letter":"D","dir":"/d","type":3,"label":"L","remote":"R","error":0,"labelFails":false})",
                     {"type", "label", "remote", "error", "labelFails"}},
        WholeRequest{
            "drive.masks", R"({"noDrives":[],"remembered":[],"locked":[]})", {"noDrives", "remembered", "locked"}},
        WholeRequest{"network.set", R"({"roots":[]})", {}}, WholeRequest{"file.resolve", R"({"path":"C:\\A.NC"})", {}},
        WholeRequest{"lang.text", R"({"id":1,"text":"x"})", {}}, WholeRequest{"time.advance", R"({"ms":1})", {}},
        WholeRequest{"host.api", R"({"offered":"none"})", {"offered"}},
        WholeRequest{"tool.load", R"({"tool":99,"parent":"none"})", {"parent"}},
        WholeRequest{"tool.send", R"({"window":0,"message":5,"first":1,"second":2})", {"first", "second"}},
        WholeRequest{"tool.post", R"({"window":0,"message":5,"first":1,"second":2})", {"first", "second"}},
        WholeRequest{"tool.destroy", R"({"window":0})", {}}, WholeRequest{"window.alive", R"({"window":0})", {}},
        WholeRequest{"ui.menu", R"({"bar":"main"})", {}}, WholeRequest{"ui.answer", R"({"answers":[]})", {}},
        WholeRequest{"ui.resize", R"({"width":100,"height":100})", {}},
        WholeRequest{"trace.take", R"({"kinds":[]})", {"kinds"}}));

TEST_F(WrittenMethods, DrivesOfThisMachineAreNotSimulated) {
  rig.simulatesDrives = false;
  const std::string refused = "-32000 the drives are those of this machine: PNLTOOLS_DRIVE_FILE names a drive file";
  EXPECT_EQ(Ask("drive.set", QByteArray(R"({"letter":"D","dir":"/d"})")), refused);
  EXPECT_EQ(Ask("drive.masks", QByteArray("{}")), refused);
  EXPECT_EQ(Ask("drive.set", QByteArray(R"({"letter":"1","dir":"/d"})")),
            "-32602 letter: a letter from A to Z is needed");
  EXPECT_EQ(Calls(), "");
}

}  // namespace
}  // namespace panel
