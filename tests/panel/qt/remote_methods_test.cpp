// SPDX-License-Identifier: MIT
// The methods of the remote control as a script sees them, on the bare simulated CNC and a panel that is a plain
// widget: results, and the exact text of every refusal.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <filesystem>

#include "panel/qt/remote_fixture.h"
#include "remote/methods.h"
#include "support/temp_folder.h"

namespace panel {
namespace {

struct Refusal {
  const char* method;
  const char* params;
  const char* error;
};

class Refusals : public RemoteMethods, public ::testing::WithParamInterface<Refusal> {};

TEST_P(Refusals, NameTheFieldAndLeaveNoTrace) {
  EXPECT_EQ(Ask(GetParam().method, GetParam().params), GetParam().error);
  EXPECT_EQ(Ask("trace.take", "{}"), R"({"events":[]})");
}

INSTANTIATE_TEST_SUITE_P(
    Host, Refusals,
    ::testing::Values(
        Refusal{"no.such", "{}", "-32601 method: there is no \"no.such\""},
        Refusal{"host.api", R"({"offered":"some"})", "-32602 offered: \"all\", \"none\" or a list of slots is needed"},
        Refusal{"host.api", R"({"offered":[0,19]})", "-32602 offered: slots are numbers from 0 to 18 or names"},
        Refusal{"host.api", R"({"offered":["HostNothing"]})",
                "-32602 offered: slots are numbers from 0 to 18 or names"},
        Refusal{"host.returns", R"({"slot":1,"value":1})", "-32602 slot: 0 or 13 is needed"},
        Refusal{"host.returns", R"({"slot":0})", "-32602 value: missing"},
        Refusal{"tool.load", "{}", "-32602 tool: missing"},
        Refusal{"tool.load", R"({"tool":6,"parent":"x"})",
                "-32602 parent: one of \"main\", \"none\", \"dead\" is needed"},
        Refusal{"tool.send", R"({"message":1})", "-32602 window: missing"},
        Refusal{"tool.send", R"({"window":1})", "-32602 message: missing"},
        Refusal{"tool.send", R"({"window":1,"message":"NO_SUCH"})",
                "-32602 message: no message is registered by that name"},
        Refusal{"tool.send", R"({"window":1,"message":-1})",
                "-32602 message: an integer from 0 to 4294967295 is needed"},
        Refusal{"tool.send", R"({"window":1,"message":2048,"first":1,"second":12345})",
                "-32602 second: {\"start\":…} is needed, a number is no address"},
        Refusal{"tool.send", R"({"window":1,"message":2048,"first":1,"second":{"text":"x"}})",
                "-32602 second: {\"start\":…} is needed"},
        Refusal{"tool.send", R"({"window":1,"message":2049,"first":41,"second":5})",
                "-32602 second: 0 is needed, a number is no address"},
        Refusal{"tool.send", R"({"window":1,"message":"ZM_SHOW_FILE","second":7})",
                "-32602 second: {\"file\":…} is needed, a number is no address"},
        Refusal{"tool.send", R"({"window":1,"message":2048,"first":1,"second":{"start":{}}})",
                "-32602 second.start.channel: missing"},
        Refusal{"tool.send", R"({"window":1,"message":1,"first":{"x":1}})",
                "-32602 first: an integer or an object with \"text\", \"start\", \"file\" or \"xplr\" is needed"},
        Refusal{"tool.post", R"({"window":1,"message":1,"second":"x"})",
                "-32602 second: an integer from -9223372036854775808 to 9223372036854775807 is needed"},
        Refusal{"window.alive", R"({"window":"x"})",
                "-32602 window: an integer from -2147483648 to 2147483647 is needed"},
        Refusal{"xplr.publish", "{}", "-32602 record: missing"},
        Refusal{"xplr.publish", R"({"record":5})", "-32602 record: an object is needed"},
        Refusal{"xplr.publish", R"({"record":{"Extension":"0123456789"}})",
                "-32602 record.Extension: at most 9 characters fit"}));

INSTANTIATE_TEST_SUITE_P(
    Cnc, Refusals,
    ::testing::Values(
        Refusal{"cnc.define", R"({"name":"","type":"int","value":1})",
                "-32602 name: a text that isn't empty is needed"},
        Refusal{"cnc.define", R"({"name":"R","type":"word","value":1})",
                "-32602 type: one of \"int\", \"double\", \"text\" is needed"},
        Refusal{"cnc.define", R"({"name":"R","type":"int"})", "-32602 value: missing"},
        Refusal{"cnc.define", R"({"name":"R","type":"int","value":"1"})",
                "-32602 value: an integer of 32 bits is needed"},
        Refusal{"cnc.define", R"({"name":"R","type":"text","value":1})", "-32602 value: a text is needed"},
        Refusal{"cnc.define", R"({"name":"R","type":"int","value":1,"readable":1})",
                "-32602 readable: true or false is needed"},
        Refusal{"cnc.set", R"({"name":"R.NOT","value":1})", "-32602 name: there is no such variable"},
        Refusal{"cnc.returns", R"({"function":"NoSuch","value":1})",
                "-32602 function: there is no such function whose answer can be set"},
        Refusal{"cnc.returns", R"({"function":"MDILine"})", "-32602 value: missing"},
        Refusal{"cnc.returns", R"({"function":"MDILine","values":[]})", "-32602 values: at least one is needed"},
        Refusal{"cnc.returns", R"({"function":"MDILine","value":1,"values":[1]})",
                "-32602 values: stands in the place of value"},
        Refusal{"cnc.errortext", R"({"function":"no","number":1,"text":"x"})",
                "-32602 function: there is no such text function"},
        Refusal{"cnc.error.push", "{}", "-32602 fields: missing"},
        Refusal{"cnc.error.push", R"({"fields":{"number":[]}})", "-32602 fields.number: a number or a text is needed"},
        Refusal{"cnc.error.push", R"({"fields":{},"parameters":[{},{},{},{},{},{}]})",
                "-32602 parameters: at most 5 fit"},
        Refusal{"cnc.error.push", R"({"fields":{},"parameters":[{"unit":1}]})",
                "-32602 parameters[0].valueType: missing"},
        Refusal{"cnc.error.push", R"({"record":"AAAA"})", "-32602 record: 4048 bytes in base64 are needed"},
        Refusal{"cnc.error.push", R"({"record":"AAAA","fields":{}})", "-32602 fields: has no place beside record"},
        Refusal{"cnc.axis", R"({"logical":1})", "-32602 name: missing"},
        Refusal{"cnc.plc", R"({"type":1,"id":2})", "-32602 message: missing"},
        Refusal{"cnc.tool", "{}", "-32602 number: missing"},
        Refusal{"cnc.blockmark", R"({"block":"G0"})", "-32602 mark: missing"}));

INSTANTIATE_TEST_SUITE_P(
    Storage, Refusals,
    ::testing::Values(
        Refusal{"path.set", R"({"id":1})", "-32602 path: missing"},
        Refusal{"drive.set", R"({"letter":"1","dir":null})", "-32602 letter: a letter from A to Z is needed"},
        Refusal{"drive.set", R"({"letter":"D"})", "-32602 dir: missing"},
        Refusal{"drive.set", R"({"letter":"D","dir":"/tmp","type":9})",
                "-32602 type: an integer from 2 to 5 is needed"},
        Refusal{"drive.masks", R"({"locked":["CD"]})", "-32602 locked: a list of letters from A to Z is needed"},
        Refusal{"network.set", "{}", "-32602 roots: missing"},
        Refusal{"network.set", R"({"roots":[{"children":[{"remote":5}]}]})",
                "-32602 roots[0].children[0].remote: a text is needed"},
        Refusal{"file.resolve", "{}", "-32602 path: missing"},
        Refusal{"lang.text", R"({"id":1})", "-32602 text: missing"},
        Refusal{"time.advance", R"({"ms":-1})", "-32602 ms: an integer from 0 to 86400000 is needed"},
        Refusal{"time.advance", R"({"ms":1})", "-32602 ms: time goes by itself; start the panel with --time manual"},
        Refusal{"trace.take", R"({"kinds":["paint"]})",
                "-32602 kinds: \"host\", \"cnc\", \"write\", \"message\", \"box\" are there"}));

INSTANTIATE_TEST_SUITE_P(
    Windows, Refusals,
    ::testing::Values(
        Refusal{"ui.window", R"({"window":0})", "-32602 window: there is no such window"},
        Refusal{"ui.control", R"({"window":99999,"id":1})", "-32602 window: there is no such window"},
        Refusal{"ui.key", R"({"window":99999,"key":"Enter"})", "-32602 window: there is no such window"},
        Refusal{"ui.menu", "{}", "-32602 bar: missing"},
        Refusal{"ui.menu", R"({"bar":"top"})", "-32602 bar: one of \"main\", \"side\" is needed"},
        Refusal{"ui.answer", R"({"answers":["maybe"]})",
                "-32602 answers: \"ok\", \"yes\", \"no\" and \"cancel\" are there"},
        Refusal{"ui.resize", R"({"width":800,"height":0})", "-32602 height: an integer from 16 to 8192 is needed"},
        Refusal{"ui.capture", "{}", "-32602 file: missing"},
        Refusal{"ui.capture", R"({"file":"/no/such/folder/a.png"})", "-32602 file: it can't be written"}));

TEST_F(RemoteMethods, AVariableIsDefinedSetReadAndTakenAway) {
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":null})");
  EXPECT_EQ(Ask("cnc.define", R"({"name":"R.A","type":"int","value":3})"), "{}");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":3})");
  EXPECT_EQ(Ask("cnc.set", R"({"name":"R.A","value":4})"), "{}");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":4})");
  EXPECT_EQ(Ask("cnc.set", R"({"name":"R.A","value":"x"})"), "-32602 value: an integer of 32 bits is needed");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":4})");
  EXPECT_EQ(Ask("cnc.define", R"({"name":"R.A","type":"text","value":"ñ"})"), "{}");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":"ñ"})");
  EXPECT_EQ(Ask("cnc.define", R"({"name":"R.A","type":"double","value":2})"), "{}");
  EXPECT_EQ(Ask("cnc.set", R"({"name":"R.A","value":2.5})"), "{}");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":2.5})");
  EXPECT_EQ(Ask("cnc.reports", R"({"name":"R.A"})"), R"({"windows":[]})");
  EXPECT_EQ(Ask("cnc.undefine", R"({"name":"R.A"})"), "{}");
  EXPECT_EQ(Ask("cnc.undefine", R"({"name":"R.A"})"), "{}");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.A"})"), R"({"value":null})");
}

TEST_F(RemoteMethods, AVariableThatCantBeReadByToolsIsStillTold) {
  EXPECT_EQ(Ask("cnc.define", R"({"name":"R.B","type":"int","value":3,"readable":false,"writable":false})"), "{}");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"R.B"})"), R"({"value":3})");
}

TEST_F(RemoteMethods, ErrorsQueueInOrderAndClear) {
  EXPECT_EQ(Ask("cnc.error.clear", "{}"), "{}");
  EXPECT_EQ(Ask("cnc.error.push", R"({"fields":{"number":1001,"module":"PRG","channel":1}})"), "{}");
  const QByteArray record = QByteArray(24, '\0') + QByteArray("\x07\0\0\0", 4) + QByteArray(4020, '\0');
  EXPECT_EQ(Ask("cnc.error.push", R"({"record":")" + record.toBase64() + R"("})"), "{}");
  EXPECT_EQ(Ask("cnc.error.queue", "{}"), R"({"numbers":[1001,7]})");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"E.NERRORS"})"), R"({"value":2})");
  const std::string refused = Ask("cnc.error.push", R"({"fields":{"colour":1}})");
  EXPECT_NE(refused.find("-32602"), std::string::npos);
  EXPECT_NE(refused.find("colour"), std::string::npos);
  EXPECT_EQ(Ask("cnc.error.queue", "{}"), R"({"numbers":[1001,7]})");
  EXPECT_EQ(Ask("cnc.error.clear", "{}"), "{}");
  EXPECT_EQ(Ask("cnc.error.queue", "{}"), R"({"numbers":[]})");
}

TEST_F(RemoteMethods, TablesAreFilled) {
  EXPECT_EQ(Ask("cnc.returns", R"({"function":"PosibleMDICancel","values":[0,2]})"), "{}");
  EXPECT_EQ(Ask("cnc.axis", R"({"logical":1,"name":"X"})"), "{}");
  EXPECT_EQ(Ask("cnc.errortext", R"({"function":"error_to_txt","number":7,"text":"\nx","hasHelp":true})"), "{}");
  EXPECT_EQ(Ask("cnc.errortext", R"({"function":"GetTextoSercosError","number":7,"text":"x"})"), "{}");
  EXPECT_EQ(Ask("cnc.description", R"({"file":"F","number":7,"text":"x"})"), "{}");
  EXPECT_EQ(Ask("cnc.plc", R"({"type":1,"id":2,"message":"m","info":"i"})"), "{}");
  EXPECT_EQ(Ask("cnc.tool", R"({"number":1,"type":2,"family":3,"subfamily":4,"diameter":100000,"teeth":2})"), "{}");
  EXPECT_EQ(Ask("cnc.blockmark", R"({"block":"G0","mark":"OPT0001"})"), "{}");
}

TEST_F(RemoteMethods, DrivesAndPathsResolve) {
  const pnl::test::TempFolder temp;
  const QByteArray dir = QByteArray::fromStdString(temp.Folder("drive"));
  EXPECT_EQ(Ask("drive.set", R"({"letter":"d","dir":")" + dir + R"(","label":"DATA"})"), "{}");
  EXPECT_EQ(Ask("file.resolve", R"({"path":"D:\\a.nc"})"), "{\"host\":\"" + dir.toStdString() + "/a.nc\"}");
  EXPECT_EQ(Ask("drive.set", R"({"letter":"D","dir":null})"), "{}");
  EXPECT_EQ(Ask("file.resolve", R"({"path":"D:\\a.nc"})"), R"({"host":null})");
  EXPECT_EQ(Ask("drive.masks", R"({"noDrives":["A"],"locked":["c","D"]})"), "{}");
  EXPECT_EQ(Ask("network.set", R"({"roots":[{"display":6,"remote":"\\\\S","children":[{"error":5,"dir":null}]}]})"),
            "{}");
  EXPECT_EQ(Ask("path.set", R"({"id":108,"path":"C:\\P108"})"), "{}");
}

TEST_F(RemoteMethods, AnExplorerRequestIsPublishedAndClearedAgain) {
  EXPECT_EQ(Ask("xplr.record", "{}"), "null");
  EXPECT_EQ(Ask("xplr.publish", R"({"record":{"Owner":1006,"Path":"C:\\P","Flags":4104}})"), "{}");
  EXPECT_EQ(Ask("xplr.record", "{}"),
            R"({"Extension":"","File":"","Filter":"","Flags":4104,"Owner":1006,"Path":"C:\\P","Title":""})");
  const int number = Reply("cnc.get", R"({"name":"E.XPLRDATA"})")["result"].toObject()["value"].toInt();
  EXPECT_NE(number, 0);
  EXPECT_NE(PnlResolveRecord(number), nullptr);
  EXPECT_EQ(Ask("xplr.publish", R"({"record":{"Owner":1006}})"), "{}");
  EXPECT_EQ(PnlResolveRecord(number), nullptr) << "another request takes its place";
  EXPECT_EQ(Ask("xplr.publish", R"({"record":null})"), "{}");
  EXPECT_EQ(Ask("xplr.record", "{}"), "null");
  EXPECT_EQ(Ask("cnc.get", R"({"name":"E.XPLRDATA"})"), R"({"value":0})");
}

TEST_F(RemoteMethods, ATextAsLongAsItsFieldIsWholeInTheRecord) {
  const QByteArray title(99, 'x');
  EXPECT_EQ(Ask("xplr.publish", R"({"record":{"Title":")" + title + R"("}})"), "{}");
  EXPECT_NE(Ask("xplr.record", "{}").find("\"" + title.toStdString() + "\""), std::string::npos);
  Ask("xplr.publish", R"({"record":null})");
}

TEST_F(RemoteMethods, AMessageToTheToolAreaArrivesWithItsArguments) {
  QList<qint64> heard;
  QObject::connect(&session, &HostSession::MessageArrived,
                   [&heard](std::uint32_t message, qint64 first, qint64 second) {
                     heard = {message, first, second};
                   });
  const QByteArray area = QByteArray::number(session.ToolArea());
  EXPECT_EQ(Ask("tool.send", R"({"window":)" + area + R"(,"message":2050,"first":2,"second":-1})"), R"({"result":0})");
  EXPECT_EQ(heard, QList<qint64>({2050, 2, -1}));
  EXPECT_EQ(Ask("tool.post", R"({"window":)" + area + R"(,"message":2051})"), "{}");
  EXPECT_EQ(heard, QList<qint64>({2051, 0, 0}));
}

TEST_F(RemoteMethods, ATextArgumentIsAnAddressDuringTheCall) {
  QString heard;
  QObject::connect(&session, &HostSession::MessageArrived, [&heard](std::uint32_t, qint64, qint64 second) {
    heard = QString::fromUtf16(reinterpret_cast<const char16_t*>(second));
  });
  const QByteArray area = QByteArray::number(session.ToolArea());
  Ask("tool.send", R"({"window":)" + area + R"(,"message":5,"second":{"text":"sent"}})");
  EXPECT_EQ(heard, "sent");
  Ask("tool.post", R"({"window":)" + area + R"(,"message":5,"second":{"text":"posted"}})");
  EXPECT_EQ(heard, "posted");
}

TEST_F(RemoteMethods, WindowsOfNoToolAreAnsweredQuietly) {
  EXPECT_EQ(Ask("tool.load", R"({"tool":7})"), R"({"window":0})");
  EXPECT_EQ(Ask("tool.load", R"({"tool":-1})"), R"({"window":0})");
  EXPECT_EQ(Ask("tool.load", R"({"tool":6,"parent":"none"})"), R"({"window":0})");
  EXPECT_EQ(Ask("tool.load", R"({"tool":6,"parent":"dead"})"), R"({"window":0})");
  EXPECT_EQ(Ask("tool.send", R"({"window":0,"message":2050})"), R"({"result":0})");
  EXPECT_EQ(Ask("tool.destroy", R"({"window":123456})"), "{}");
  EXPECT_EQ(Ask("window.alive", R"({"window":123456})"), R"({"alive":false})");
  EXPECT_EQ(Ask("window.alive", "{\"window\":" + QByteArray::number(session.ToolArea()) + "}"), R"({"alive":true})");
  EXPECT_EQ(Ask("program.text", "{}"), R"({"text":"G0 X0\n"})");
  EXPECT_EQ(Ask("ui.menu", R"({"bar":"main"})"), "null");
  EXPECT_EQ(Ask("ui.dialogs", "{}"), "[]");
}

TEST_F(RemoteMethods, TheHostTableTakesSlotsByNumberAndName) {
  for (const char* offered : {R"("none")", R"([0,"HostSetMainMenu",18])", "[]", R"("all")"}) {
    EXPECT_EQ(Ask("host.api", QByteArray(R"({"offered":)") + offered + "}"), "{}");
  }
  EXPECT_EQ(Ask("host.returns", R"({"slot":0,"value":0})"), "{}");
  EXPECT_EQ(Ask("host.returns", R"({"slot":"HostShowError","value":1})"), "{}");
}

TEST_F(RemoteMethods, OnlyTheSlotsThatAreOfferedAreCalled) {
  const auto called = [this](const char* offered) {
    EXPECT_EQ(Ask("host.api", QByteArray(R"({"offered":)") + offered + "}"), "{}");
    Ask("trace.take", "{}");
    const PnlWindow tool = session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea());
    EXPECT_NE(tool, 0);
    const QByteArray trace = QJsonDocument(Reply("trace.take", "{}")).toJson();
    session.DestroyTool(tool);
    return QStringList{trace.contains("HostToolOpening") ? "opening" : "",
                       trace.contains("HostSetMainMenu") ? "menu" : ""};
  };
  EXPECT_EQ(called(R"("none")"), (QStringList{"", ""}));
  EXPECT_EQ(called(R"(["HostSetMainMenu"])"), (QStringList{"", "menu"}));
  EXPECT_EQ(called(R"([0,"HostToolOpening"])"), (QStringList{"opening", ""}));
  EXPECT_EQ(called(R"("all")"), (QStringList{"opening", "menu"}));
  EXPECT_EQ(called(R"("none")"), (QStringList{"", ""}));
}

TEST_F(RemoteMethods, TheHostAnswersWhatItIsToldTo) {
  HostSession fresh;
  EXPECT_EQ(fresh.ReturnOf(0), 1);
  EXPECT_EQ(fresh.ReturnOf(13), 0);
  Ask("host.returns", R"({"slot":0,"value":0})");
  Ask("host.returns", R"({"slot":13,"value":7})");
  EXPECT_EQ(session.ReturnOf(0), 0);
  EXPECT_EQ(session.ReturnOf(13), 7);
}

TEST_F(RemoteMethods, EachCharacterIsTypedAsAKeyOfItsOwn) {
  struct Keys : QWidget {
    using QWidget::QWidget;
    void keyPressEvent(QKeyEvent* event) override { typed.append(event->text()); }
    QStringList typed;
  } tool(&face.area);
  const QByteArray window = QByteArray::number(static_cast<int>(PnlAttachWidget(&tool, nullptr, nullptr)));
  // A pair of units is one character; a lone half of one is typed as it comes, and takes nothing with it.
  EXPECT_EQ(Ask("ui.type", R"({"window":)" + window + R"(,"text":"a\ud83d\ude00b\ud83dc\ude00d"})"), "{}");
  const QStringList expected = {
      "a", QString::fromUtf16(u"\U0001F600"), "b", QString(QChar(0xD83D)), "c", QString(QChar(0xDE00)), "d"};
  EXPECT_EQ(tool.typed, expected);
}

TEST_F(RemoteMethods, AControlIsWorkedByItsId) {
  auto* tool = new QWidget(&face.area);
  tool->resize(200, 100);
  auto* edit = new QLineEdit(tool);
  edit->setProperty("pnlId", 5000);
  auto* list = new QListWidget(tool);
  list->setGeometry(0, 30, 100, 70);
  list->setProperty("pnlId", 5001);
  list->addItems({"a", "b"});
  const QByteArray window = "\"window\":" + QByteArray::number(PnlAttachWidget(tool, nullptr, nullptr));
  EXPECT_EQ(Ask("ui.click", "{" + window + R"(,"id":5000})"), "-32602 id: the control can't be seen");
  EXPECT_EQ(Ask("ui.focus", "{" + window + R"(,"id":5000})"), "-32602 id: the control can't be seen");
  face.panel.show();
  EXPECT_EQ(Ask("ui.focus", "{" + window + R"(,"id":5000})"), "{}");
  EXPECT_EQ(Ask("ui.type", "{" + window + R"(,"text":"G1 X"})"), "{}");
  EXPECT_EQ(Ask("ui.key", "{" + window + R"(,"key":"5","mods":["Keypad"]})"), "{}");
  EXPECT_EQ(edit->text(), "G1 X5");
  EXPECT_EQ(Ask("ui.text", "{" + window + R"(,"id":5000,"text":"M30"})"), "{}");
  EXPECT_EQ(Ask("ui.mark", "{" + window + R"(,"id":5000,"start":0,"end":1})"), "{}");
  EXPECT_EQ(edit->selectedText(), "M");
  EXPECT_EQ(Ask("ui.pick", "{" + window + R"(,"id":5001,"index":1})"), "{}");
  EXPECT_EQ(list->currentRow(), 1);
  EXPECT_EQ(Ask("ui.pick", "{" + window + R"(,"id":5001,"index":2})"), "-32602 index: there are 2 items");
  EXPECT_EQ(Ask("ui.pick", "{" + window + R"(,"id":5000,"index":0})"), "-32602 id: the control has no items");
  EXPECT_EQ(Ask("ui.text", "{" + window + R"(,"id":5001,"text":""})"), "-32602 id: the control holds no text to type");
  EXPECT_EQ(Ask("ui.mark", "{" + window + R"(,"id":5001,"start":0,"end":0})"), "-32602 id: the control has no caret");
  EXPECT_EQ(Ask("ui.click", "{" + window + R"(,"id":5001,"index":0})"), "{}");
  EXPECT_EQ(list->currentRow(), 0);
  EXPECT_EQ(Ask("ui.doubleClick", "{" + window + R"(,"id":5001,"index":9})"),
            "-32602 index: there is no such place in the control");
  EXPECT_EQ(Ask("ui.control", "{" + window + R"(,"id":1})"), "-32602 id: the window has no such control");
  EXPECT_EQ(Ask("ui.grid", "{" + window + R"(,"id":5001})"), "-32602 id: the control is no grid");
  EXPECT_EQ(Ask("ui.tree", "{" + window + R"(,"id":5001})"), "-32602 id: the control is no tree");
  EXPECT_EQ(Ask("ui.key", "{" + window + R"(,"key":"Any"})"),
            "-32602 key: the name of a key or one character is needed");
  EXPECT_EQ(Ask("ui.key", "{" + window + R"(,"key":"a","mods":["Meta"]})"),
            "-32602 mods: \"Ctrl\", \"Shift\", \"Alt\" and \"Keypad\" are there");
  delete tool;
}

TEST_F(RemoteMethods, TheToolAreaTakesANewSize) {
  EXPECT_EQ(Ask("ui.resize", R"({"width":640,"height":480})"), "{}");
  EXPECT_EQ(face.area.size(), QSize(640, 480));
}

TEST_F(RemoteMethods, ACaptureIsAPictureOfThePanel) {
  const pnl::test::TempFolder temp;
  const QByteArray file = QByteArray::fromStdString((temp.Path() / "a.png").string());
  EXPECT_EQ(Ask("ui.capture", R"({"file":")" + file + R"("})"), "{}");
  EXPECT_EQ(QImage(file).size(), QSize(800, 600));
  EXPECT_EQ(temp.Read("a.png").substr(1, 3), "PNG");
}

TEST_F(RemoteMethods, ACaptureWaitsForNoPipeAndLeavesAProtectedFile) {
  // It waited for ever for the pipe's reader, and wrote over what was protected.
  const pnl::test::TempFolder temp;
  const std::string pipe = (temp.Path() / "pipe").string();
  const std::string locked = (temp.Path() / "locked.png").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  temp.Write("locked.png", "mine");
  std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
  for (const std::string& file : {pipe, locked, temp.Path().string(), std::string("/dev/null")}) {
    EXPECT_EQ(Ask("ui.capture", QByteArray::fromStdString(R"({"file":")" + file + R"("})")),
              "-32602 file: it can't be written");
  }
  EXPECT_EQ(temp.Read("locked.png"), "mine");
}

TEST_F(RemoteMethods, WhatWasQueuedBeforeARequestIsDoneBeforeIt) {
  QMetaObject::invokeMethod(
      &face.panel, [this] { Ask("cnc.define", R"({"name":"E.QUEUED","type":"int","value":7})"); },
      Qt::QueuedConnection);
  EXPECT_EQ(Ask("cnc.get", R"({"name":"E.QUEUED"})"), R"({"value":7})");
}

TEST_F(RemoteMethods, APostedTextIsStillThereWhenItsMessageArrives) {
  struct Reader {
    static std::intptr_t Read(void* context, PnlWindow, std::uint32_t, std::intptr_t first, std::intptr_t) {
      *static_cast<std::u16string*>(context) = reinterpret_cast<const char16_t*>(first);
      return 0;
    }
  };
  QWidget widget;
  std::u16string text;
  const PnlWindow window = PnlAttachWidget(&widget, Reader::Read, &text);
  const QByteArray params =
      R"({"window":)" + QByteArray::number(window) + R"(,"message":"HELPHTML_GOTOMANUAL","first":{"text":"abc"}})";
  EXPECT_EQ(Ask("tool.post", params), "{}");
  EXPECT_EQ(text, u"abc");
}

TEST_F(RemoteMethods, NoBadRequestIsLeftUnanswered) {
  const QByteArray odd[] = {"{}", R"({"window":null,"id":null,"text":null,"name":null,"ms":null,"record":null})",
                            R"({"window":[],"id":{},"text":3,"name":4,"value":[],"file":7,"path":{},"roots":7})",
                            R"({"window":1e308,"id":-1e308,"index":1e308,"ms":1e308,"width":1e308})"};
  for (const QString& method : AllMethods().keys()) {
    for (const QByteArray& params : odd) EXPECT_TRUE(Reply(method, params).contains("id")) << method.toStdString();
  }
  // One of the odd requests above asks the host for an empty table, another closes nothing.
  EXPECT_EQ(Ask("host.api", R"({"offered":"all"})"), "{}");
}

TEST_F(RemoteMethods, EveryMethodOfTheProtocolIsThere) {
  const QStringList expected = {
      "clipboard.text", "cnc.axis",        "cnc.blockmark",  "cnc.define",   "cnc.description", "cnc.error.clear",
      "cnc.error.push", "cnc.error.queue", "cnc.errortext",  "cnc.get",      "cnc.plc",         "cnc.reports",
      "cnc.returns",    "cnc.set",         "cnc.tool",       "cnc.undefine", "drive.masks",     "drive.set",
      "file.resolve",   "host.api",        "host.returns",   "lang.text",    "network.set",     "path.set",
      "program.text",   "time.advance",    "tool.destroy",   "tool.load",    "tool.post",       "tool.send",
      "trace.take",     "ui.answer",       "ui.capture",     "ui.click",     "ui.command",      "ui.control",
      "ui.dialogs",     "ui.doubleClick",  "ui.focus",       "ui.grid",      "ui.grid.edit",    "ui.grid.select",
      "ui.key",         "ui.mark",         "ui.menu",        "ui.pick",      "ui.resize",       "ui.text",
      "ui.tree",        "ui.tree.expand",  "ui.tree.select", "ui.type",      "ui.window",       "window.alive",
      "xplr.publish",   "xplr.record"};
  QStringList methods = AllMethods().keys();
  methods.sort();
  EXPECT_EQ(methods, expected);
}

TEST(BoxAnswers, AreTakenInTurnAndThenWhatGoesOn) {
  BoxAnswers answers;
  answers.Append({"no", "cancel"});
  EXPECT_EQ(answers.Take("question"), "no");
  EXPECT_EQ(answers.Take("error"), "cancel");
  EXPECT_EQ(answers.Take("question"), "yes");
  EXPECT_EQ(answers.Take("error"), "ok");
  EXPECT_EQ(answers.Take("info"), "ok");
}

}  // namespace
}  // namespace panel
