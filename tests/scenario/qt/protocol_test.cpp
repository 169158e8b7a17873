// SPDX-License-Identifier: MIT
// The panel program at the other end of a pipe: it answers every line, survives any bytes, and ends in order.
#include <gtest/gtest.h>

#include <QJsonDocument>
#include <random>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

class Protocol : public ::testing::Test {
 protected:
  Protocol() : client({"--bare", "--root", QString::fromStdString(temp.Folder("root"))}) {}
  pnl::test::TempFolder temp;
  PanelClient client;
};

TEST_F(Protocol, TheEndOfInputEndsThePanelWithZero) { EXPECT_EQ(client.Finish(), 0); }

TEST_F(Protocol, QuitIsAnsweredAndEndsThePanelWithZero) {
  EXPECT_EQ(client.Call("quit"), QJsonValue(QJsonObject()));
  EXPECT_EQ(client.WaitForEnd(), 0);
}

TEST_F(Protocol, QuitNeedsNothingButItsName) {
  client.Send("{\"method\":\"quit\"}\n");
  EXPECT_EQ(client.WaitForEnd(), 0);
}

TEST_F(Protocol, TheLastLineNeedsNoLineFeed) {
  client.Send(R"({"id":"last","method":"ui.dialogs"})");
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(Protocol, EveryLineIsAnsweredInOrder) {
  QByteArray lines;
  for (int i = 0; i < 500; ++i) lines += "{\"id\":" + QByteArray::number(i) + ",\"method\":\"ui.dialogs\"}\n";
  client.Send(lines);
  for (int i = 0; i < 500; ++i) {
    ASSERT_EQ(client.ReadLine(), "{\"id\":" + QByteArray::number(i) + R"(,"jsonrpc":"2.0","result":[]})");
  }
}

TEST_F(Protocol, BadLinesLeaveThePanelAlive) {
  const QByteArray bad[] = {
      "hello\n",
      QByteArray(3, '\0') + "\n",
      "\xff\xfe{}\n",
      QByteArray(200000, '[') + "\n",
      R"({"id":1,"method":"tool.send","params":{"window":1,"message":2048,"first":1,"second":99}})"
      "\n",
      QByteArray(20 << 20, 'x') + "\n"};
  for (const QByteArray& line : bad) {
    client.Send(line);
    EXPECT_TRUE(QJsonDocument::fromJson(client.ReadLine()).object().contains("error"));
  }
  client.Call("ui.dialogs");
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(Protocol, GarbageLeavesThePanelAlive) {
  std::mt19937 random(20240131);
  const QByteArray seeds[] = {R"({"jsonrpc":"2.0","id":1,"method":"tool.load","params":{"tool":6}})",
                              R"({"jsonrpc":"2.0","id":1,"method":"ui.key","params":{"window":3,"key":"Enter"}})",
                              R"({"jsonrpc":"2.0","id":1,"method":"cnc.error.push","params":{"fields":{"number":5}}})",
                              R"([{"id":1,"method":"ui.type","params":{"window":3,"text":"G0"}}])"};
  for (int i = 0; i < 2000; ++i) {
    QByteArray line = seeds[random() % std::size(seeds)];
    for (std::uint32_t changes = random() % 6; changes > 0; --changes) {
      line[random() % line.size()] = static_cast<char>(random());
    }
    line.replace('\n', ' ');
    client.Send(line + "\n");
  }
  client.Send("{\"id\":\"alive\",\"method\":\"ui.dialogs\"}\n");
  for (;;) {
    const QByteArray reply = client.ReadLine();
    ASSERT_FALSE(reply.isEmpty());
    if (reply.contains("\"alive\"")) break;
  }
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(Protocol, AClientThatReadsNothingForALongTimeGetsEverythingInTheEnd) {
  const int many = 20000;
  QByteArray lines;
  for (int i = 0; i < many; ++i) lines += "{\"id\":" + QByteArray::number(i) + ",\"method\":\"no.such.method\"}\n";
  client.Send(lines);
  for (int i = 0; i < many; ++i) ASSERT_TRUE(client.ReadLine().contains("-32601"));
}

TEST_F(Protocol, ACaptureShowsThePanelInItsSize) {
  const QString file = QString::fromStdString((temp.Path() / "panel.png").string());
  client.Call("ui.capture", {{"file", file}});
  EXPECT_EQ(temp.Read("panel.png").substr(1, 3), "PNG");
  EXPECT_TRUE(client.Refused("ui.capture", {{"file", "/no/such/folder/x.png"}}).startsWith("-32602 file"));
}

TEST_F(Protocol, BareMakesTheFolderOfEveryPathInUse) {
  client.Call("ui.dialogs");
  for (const int id : {1, 15, 18, 24, 52, 57, 61, 100, 101, 108, 113, 118}) {
    EXPECT_TRUE(temp.Has("root/P" + std::to_string(id))) << id;
  }
  EXPECT_EQ(client.Call("file.resolve", {{"path", "C:\\P108"}}).toObject()["host"].toString().toStdString(),
            temp.Folder("root/P108"));
}

TEST_F(Protocol, AClosedInputIsAnEndedOne) {
  // The first file that the program opened once got the number of the closed input and was read as requests.
  const QString line = QString("\"%1\" --headless --rpc --bare --root \"%2\" <&-")
                           .arg(PNL_PANEL_PROGRAM, QString::fromStdString(temp.Folder("closed")));
  EXPECT_EQ(QProcess::execute("sh", {"-c", line}), 0);
}

TEST_F(Protocol, ABadOptionIsRefusedBeforeAnythingStarts) {
  PanelClient refused({"--no-such-option"});
  EXPECT_GT(refused.WaitForEnd(), 0);
}

}  // namespace
}  // namespace panel::test
