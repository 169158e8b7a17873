// SPDX-License-Identifier: MIT
// The calculator through the panel's remote control: what is typed, what it shows, what it asks of the host, and what
// lies on the disc afterwards.
#include <functional>
#include <set>

#include "scenario/qt/bare_calc.h"

namespace panel::test {
namespace {

TEST_F(BareCalc, OpensAtOnceWithMenusAndFocus) {
  calc = client.Load(kCalc);
  const QJsonObject window = client.Window(calc);
  EXPECT_TRUE(window["visible"].toBool());
  EXPECT_EQ(window["title"].toString(), "T1");
  EXPECT_EQ(window["focus"].toInt(), kCalcLine);
  EXPECT_EQ(window["rect"].toArray(), (QJsonArray{0, 0, 282, 221}));
  EXPECT_FALSE(window["menuAttached"].toBool());
  EXPECT_EQ(Status(), "T2");
  EXPECT_EQ(Result(), "0");
  EXPECT_EQ(client.TraceText({"host"}),
            "host HostToolOpening [3]\nhost HostSetMainMenu [3,[-1,-1,-1,-1,-1,-1,-1]]\n"
            "host HostSetSideMenu [3,[32779,32781,32817,32821]]\nhost HostUpdateSideMenu [3,0]\n");
}

TEST_F(BareCalc, WithoutAMachiningCalculatorItsItemIsMissing) {
  client.Call("cnc.returns", {{"function", "SWOption_IsZMCON"}, {"value", 0}});
  calc = client.Load(kCalc);
  QJsonArray ids;
  for (const QJsonValue& item : client.Call("ui.menu", {{"bar", "side"}}).toArray()) {
    if (item["visible"].toBool()) ids.append(item["id"]);
  }
  EXPECT_EQ(ids, (QJsonArray{32779, 32781, 32817}));
}

TEST_F(BareCalc, EveryInsertionCommandIsInTheMenu) {
  Open();
  std::set<int> found;
  const std::function<void(const QJsonArray&)> collect = [&](const QJsonArray& items) {
    for (const QJsonValue& item : items) {
      if (item["items"].isArray()) {
        collect(item["items"].toArray());
      } else {
        found.insert(item["id"].toInt());
      }
    }
  };
  collect(client.Call("ui.menu", {{"bar", "main"}}).toArray());
  EXPECT_EQ(found, (std::set<int>{32783, 32784, 32785, 32786, 32787, 32789, 32791, 32792, 32793, 32794, 32795,
                                  32796, 32797, 32798, 32799, 32800, 32801, 32802, 32803, 32804, 32805, 32806,
                                  32807, 32808, 32809, 32810, 32811, 32812, 32813, 32814, 32816}));
}

struct PreviewRow {
  const char* line;
  const char* status;
};

TEST_F(BareCalc, PreviewsWhatIsTyped) {
  Open();
  const PreviewRow rows[] = {
      {"", "T2"},
      {"2+3*4", "T5 : 14"},
      {"2+", "T4: 2+< >"},
      {"1/0", "T3"},
      {"1/3", "T5 : 0.333333333333333"},
      {"2 3", "T4: 2 < >3"},
  };
  for (const PreviewRow& row : rows) {
    Line(row.line);
    EXPECT_EQ(Status(), row.status) << row.line;
  }
}

TEST_F(BareCalc, PreviewsASelectionAtTheNextTick) {
  Open();
  Line("2+3*4");
  Mark(0, 3);
  EXPECT_EQ(Status(), "T5 : 14");
  client.Advance(250);
  EXPECT_EQ(Status(), "T6 T5 : 5");
  Mark(5, 5);
  client.Advance(250);
  EXPECT_EQ(Status(), "T5 : 14");
}

TEST_F(BareCalc, APreviewLeavesNothingBehindAConfirmationDoes) {
  Open();
  Line("A=7");
  Line("A");
  EXPECT_EQ(Status(), "T5 : 0");
  Line("A=7");
  Key("Enter");
  EXPECT_EQ(Result(), "7");
  EXPECT_EQ(LineText(), "");
  Line("A+ACC");
  EXPECT_EQ(Status(), "T5 : 14");
}

TEST_F(BareCalc, KeysWrapASelection) {
  Open();
  Line("2+3*4");
  Mark(0, 3);
  Click(1021);
  EXPECT_EQ(LineText(), "Sqrt(2+3)*4");
  EXPECT_EQ(Caret(), 9);
  Line("2+3*4");
  Mark(0, 3);
  Type("+");
  EXPECT_EQ(LineText(), "(2+3)+*4");
  Line("1+");
  Mark(2, 2);
  Click(1016);
  EXPECT_EQ(LineText(), "1+Acc");
  EXPECT_EQ(Caret(), 5);
}

TEST_F(BareCalc, MenuCommandsInsert) {
  Open();
  Menu(32784);
  Type("30");
  EXPECT_EQ(LineText(), "Sin30");
  EXPECT_EQ(Status(), "T5 : 0.5");
}

TEST_F(BareCalc, TheBaseGoesRoundAndKeepsTheValue) {
  Open();
  Line("255");
  Key("Enter");
  Menu(32779);
  EXPECT_EQ(Result(), "B11111111");
  Menu(32779);
  EXPECT_EQ(Result(), "$FF");
  Key("Enter");
  EXPECT_EQ(LineText(), "$FF") << "an empty line recalls the result in its own notation";
  Line("0-1");
  EXPECT_EQ(Status(), "T5 : $FFFFFFFF");
  Menu(32779);
  EXPECT_EQ(Result(), "255");
  EXPECT_EQ(client.TraceText({"host"}),
            "host HostUpdateSideMenu [3,0]\nhost HostUpdateSideMenu [3,0]\nhost HostUpdateSideMenu [3,0]\n");
}

TEST_F(BareCalc, TheAngleUnitChangesThePreviewNotTheResult) {
  Open();
  Line("SIN(PI/2)");
  Key("Enter");
  const QString degrees = Result();
  Line("SIN(PI/2)");
  Menu(32781);
  EXPECT_EQ(Status(), "T5 : 1");
  EXPECT_EQ(Result(), degrees);
  const QJsonArray side = client.Call("ui.menu", {{"bar", "side"}}).toArray();
  EXPECT_EQ(side[1]["bitmap"].toInt(), 369);
}

TEST_F(BareCalc, TheHistoryIsPickedDeletedAndSaved) {
  temp.Write("root/P1/calc.htr", "1+1\r\n2+2\r\n3+3\r\n4+4\r\n");
  Open();
  Key("Down");
  client.Call("ui.pick", {{"window", calc}, {"id", kCalcList}, {"indices", QJsonArray{1, 3}}});
  EXPECT_EQ(client.Control(calc, kCalcList)["selected"].toArray(), (QJsonArray{1, 3}));
  Key("Delete");
  EXPECT_EQ(client.Control(calc, kCalcList)["items"].toArray(), (QJsonArray{"1+1", "3+3"}));
  client.Call("ui.pick", {{"window", calc}, {"id", kCalcList}, {"index", 1}});
  EXPECT_EQ(LineText(), "3+3");
  client.Call("ui.doubleClick", {{"window", calc}, {"id", kCalcList}, {"index", 1}});
  EXPECT_FALSE(client.Control(calc, kCalcList)["visible"].toBool());
  Key("Enter");
  EXPECT_EQ(Result(), "6");
  EXPECT_EQ(client.Tell(calc, 0x802, 34), 0);
  EXPECT_EQ(temp.Read("root/P1/calc.htr"), "3+3\r\n1+1\r\n3+3\r\n");
}

TEST_F(BareCalc, EachArrowAndEachTapCopiesTheSelectedRow) {
  temp.Write("root/P1/calc.htr", "1+1\r\n2+2\r\n3+3\r\n");
  Open();
  const auto tap = [this](int row) { client.Call("ui.click", {{"window", calc}, {"id", kCalcList}, {"index", row}}); };
  Key("Down");
  Key("Down");
  EXPECT_EQ(LineText(), "1+1");
  Line("7");
  Key("Up");
  EXPECT_EQ(LineText(), "1+1") << "the first row is selected already";
  Line("7");
  tap(0);
  EXPECT_EQ(LineText(), "1+1");
  Key("Escape");
  EXPECT_EQ(LineText(), "");
  Key("Down");
  Key("Up");
  EXPECT_EQ(LineText(), "1+1") << "and still so at the next opening";
  Key("Delete");
  Key("Down");
  EXPECT_EQ(LineText(), "2+2") << "the row that took the place";
  tap(1);
  Line("7");
  Key("Down");
  EXPECT_EQ(LineText(), "3+3") << "the last row too";
  Key("Delete");
  Key("Down");
  EXPECT_EQ(LineText(), "2+2") << "the only row left";
}

TEST_F(BareCalc, KeysEndAtTheLimitOfTheLine) {
  Open();
  Type(QString(260, '+'));
  EXPECT_EQ(LineText(), QString(255, '+'));
  Click(1021);
  Menu(32799);
  EXPECT_EQ(LineText(), QString(255, '+'));
  Click(1013);
  EXPECT_EQ(LineText(), QString(254, '+'));
}

TEST_F(BareCalc, KeysBelowTheEdgeOfACompactWindowAreNotVisible) {
  Open();
  EXPECT_TRUE(client.Control(calc, 1013)["visible"].toBool());
  Menu(32817);
  for (int key = 1013; key <= 1037; ++key) EXPECT_FALSE(client.Control(calc, key)["visible"].toBool()) << key;
  for (const int id : {kCalcLine, kCalcResult, kCalcStatus, 1012}) {
    EXPECT_TRUE(client.Control(calc, id)["visible"].toBool()) << id;
  }
  EXPECT_FALSE(client.Refused("ui.click", {{"window", calc}, {"id", 1017}}).isEmpty());
  EXPECT_EQ(LineText(), "");
  Menu(32817);
  EXPECT_TRUE(client.Control(calc, 1037)["visible"].toBool());
}

TEST_F(BareCalc, AnEmptiedHistoryLeavesTheFile) {
  temp.Write("root/P1/calc.htr", "1+1\r\n");
  Open();
  Key("Down");
  client.Call("ui.pick", {{"window", calc}, {"id", kCalcList}, {"index", 0}});
  Key("Delete");
  client.Tell(calc, 0x802, 20);
  EXPECT_EQ(temp.Read("root/P1/calc.htr"), "1+1\r\n");
}

TEST_F(BareCalc, InsertWritesTheValueAndClosesWithCodeOne) {
  Open();
  Line("2/3");
  Key("Insert");
  EXPECT_FALSE(Alive());
  EXPECT_DOUBLE_EQ(client.Get("E.CALCRESUL").toDouble(), 2.0 / 3);
  EXPECT_EQ(client.TraceText({"host", "write"}).substr(0, 18), "write E.CALCRESUL ");
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(BareCalc, InsertStaysWhenTheLineFails) {
  Open();
  Line("2+");
  Key("Insert");
  EXPECT_TRUE(Alive());
  EXPECT_EQ(client.TraceText({"host", "write"}), "");
}

TEST_F(BareCalc, InsertWithoutTheVariableClosesAllTheSame) {
  client.Call("cnc.undefine", {{"name", "E.CALCRESUL"}});
  Open();
  Key("Insert");
  EXPECT_FALSE(Alive());
  EXPECT_EQ(client.TraceText({"host", "write"}), "host HostToolClosed [3,1]\nhost HostCalcResultAccepted []\n");
}

struct CloseRow {
  int request;
  qint64 answer;
  const char* trace;
  bool alive;
};

TEST_F(BareCalc, RequestsOfTheHostEndIt) {
  const CloseRow rows[] = {{6, 0, "", false},
                           {20, 2, "host HostToolClosed [3,2]\n", false},
                           {34, 0, "host HostToolClosed [3,2]\n", false},
                           {2, 0, "", true}};
  for (const CloseRow& row : rows) {
    Open();
    EXPECT_EQ(client.Tell(calc, 0x802, row.request), row.answer) << row.request;
    EXPECT_EQ(Alive(), row.alive) << row.request;
    EXPECT_EQ(client.TraceText({"host"}), row.trace) << row.request;
  }
}

TEST_F(BareCalc, EscapeLeavesTheClosingToTheHost) {
  Open();
  Key("Escape");
  EXPECT_TRUE(Alive());
  EXPECT_EQ(client.TraceText({"host"}), "host HostToolWantsClose [3]\n");
}

TEST_F(BareCalc, GoesToTheMachiningCalculator) {
  Open();
  Menu(32821);
  EXPECT_FALSE(Alive());
  EXPECT_EQ(client.TraceText({"host"}), "host HostToolClosed [3,2]\nhost HostOpenMachiningCalculator []\n");
}

TEST_F(BareCalc, RemembersItsPlaceAndSize) {
  Open();
  Key("Right", {"Ctrl"});
  Key("Down", {"Ctrl"});
  Menu(32817);
  EXPECT_EQ(Rect(), (QJsonArray{8, 8, 282, 87}));
  EXPECT_EQ(client.TraceText({"host"}), "host HostUpdateMainMenu [3,0]\n");
  client.Call("tool.destroy", {{"window", calc}});
  EXPECT_EQ(temp.Read("root/P108/Calc7340.ini"), "[COMMON]\r\nWindow=8,8\r\nMinimized=YES\r\n");
  EXPECT_EQ(temp.Read("root/P52/Calc7340.ini"), temp.Read("root/P108/Calc7340.ini"));
  Open();
  EXPECT_EQ(Rect(), (QJsonArray{8, 8, 282, 87}));
}

TEST_F(BareCalc, AMenuBarIsAttachedByWords) {
  Open();
  Line("SETMENU(TRUE)");
  Key("Enter");
  EXPECT_TRUE(client.Window(calc)["menuAttached"].toBool());
  EXPECT_TRUE(Status().startsWith("T4: "));
  EXPECT_EQ(LineText(), "SETMENU(TRUE)");
  Line("SETMENU(FALSE)");
  Key("Enter");
  EXPECT_FALSE(client.Window(calc)["menuAttached"].toBool());
}

TEST_F(BareCalc, TakesAValueFromOutside) {
  Open();
  client.Set("E.CALCRESUL", 1234.5);
  client.Call("tool.send", {{"window", calc}, {"message", "TM_HANDLEVALUE"}});
  EXPECT_EQ(LineText(), "1234.5");
  EXPECT_EQ(Caret(), 6);
  client.Set("E.CALCRESUL", 0);
  client.Call("tool.send", {{"window", calc}, {"message", "TM_HANDLEVALUE"}});
  EXPECT_EQ(LineText(), "1234.5") << "0 is no value";
}

/// Half a million intervals of forty powers.
const QString kLong = "INTEGRAL(X^.3" + QString("+X^.3").repeated(35) + ")";

TEST_F(BareCalc, AReplyDoesNotWaitForALongComputation) {
  Open();
  Line("A=100;B=130;N=500000");
  Key("Enter");
  Line(kLong);
  EXPECT_TRUE(Status().startsWith("T7001")) << Status().toStdString();
  Line("1+1");
  EXPECT_EQ(Status(), "T5 : 2");
}

TEST_F(BareCalc, ALongConfirmationIsCancelledByEscape) {
  Open();
  Line("A=100;B=130;N=500000");
  Key("Enter");
  const QString result = Result();
  Line(kLong);
  Key("Enter");
  EXPECT_TRUE(Status().startsWith("T7002")) << Status().toStdString();
  Key("Escape");
  EXPECT_TRUE(Alive());
  EXPECT_EQ(LineText(), kLong);
  EXPECT_EQ(Result(), result);
}

TEST_F(BareCalc, TheNoteIsAControlOfTheCalculator) {
  Open();
  Line("255");
  Click(1101);
  const QJsonObject note = client.Control(calc, 1105);
  EXPECT_TRUE(note["visible"].toBool());
  EXPECT_EQ(note["kind"].toString(), "static");
  EXPECT_TRUE(note["text"].toString().contains("$FF"));
  EXPECT_EQ(note["rect"].toArray()[1].toInt(), 223);
}

}  // namespace
}  // namespace panel::test
