// SPDX-License-Identifier: MIT
// Lines and JSON-RPC: what comes back for every kind of line, good and bad.
#include "remote/json_rpc.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace panel {
namespace {

/// Answers "echo" with its params, "refuse" with an error, and remembers what was called.
class JsonRpc : public ::testing::Test {
 protected:
  QByteArray Answer(const QByteArray& line) {
    return AnswerLine(line, [this](const QString& method, const QJsonObject& params) -> RpcResult {
      called.append(method);
      if (method == "echo") return QJsonValue(params);
      if (method == "refuse") return RpcError{rpc_code::kInvalidParams, "slot: missing"};
      return RpcError{rpc_code::kUnknownMethod, "method: unknown"};
    });
  }
  QStringList called;
};

TEST_F(JsonRpc, ARequestIsAnsweredOnOneLineWithItsId) {
  EXPECT_EQ(Answer(R"({"jsonrpc":"2.0","id":1,"method":"echo","params":{"a":[1,"ü"]}})"),
            R"({"id":1,"jsonrpc":"2.0","result":{"a":[1,"ü"]}})");
}

TEST_F(JsonRpc, ARequestTypedByHandNeedsNoVersionAndNoParams) {
  EXPECT_EQ(Answer(R"({"id":"x","method":"echo"})"), R"({"id":"x","jsonrpc":"2.0","result":{}})");
}

TEST_F(JsonRpc, EveryIdComesBackAsItWas) {
  for (const char* id : {"0", "-7", "1.5", "9007199254740993", "\"\"", "\"a\\nb\"", "null"}) {
    const QByteArray reply = Answer(QByteArray(R"({"method":"echo","id":)") + id + "}");
    EXPECT_EQ(reply, QByteArray(R"({"id":)") + id + R"(,"jsonrpc":"2.0","result":{}})") << id;
  }
}

TEST_F(JsonRpc, ANotificationIsCarriedOutAndNotAnswered) {
  EXPECT_EQ(Answer(R"({"jsonrpc":"2.0","method":"echo"})"), "");
  EXPECT_EQ(Answer(R"({"jsonrpc":"2.0","method":"refuse"})"), "");
  EXPECT_EQ(called, QStringList({"echo", "refuse"}));
}

TEST_F(JsonRpc, ABlankLineIsNoRequest) {
  EXPECT_EQ(Answer(""), "");
  EXPECT_EQ(Answer(" \t\r"), "");
}

struct BadLine {
  const char* what;
  QByteArray line;
  int code;
  const char* id;
};

class BadLines : public JsonRpc, public ::testing::WithParamInterface<BadLine> {};

TEST_P(BadLines, IsAnsweredWithItsCodeAndCallsNothing) {
  const BadLine& bad = GetParam();
  const QByteArray bytes = Answer(bad.line);
  const QJsonObject reply = QJsonDocument::fromJson(bytes).object();
  EXPECT_EQ(reply["error"].toObject()["code"].toInt(), bad.code) << bytes.constData();
  EXPECT_FALSE(reply["error"].toObject()["message"].toString().isEmpty());
  EXPECT_EQ(QJsonDocument(QJsonArray{reply["id"]}).toJson(QJsonDocument::Compact), "[" + QByteArray(bad.id) + "]");
  EXPECT_FALSE(bytes.contains('\n'));
  EXPECT_TRUE(called.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    All, BadLines,
    ::testing::Values(
        BadLine{"no JSON", "hello", -32700, "null"}, BadLine{"half an object", R"({"id":1,)", -32700, "null"},
        BadLine{"two objects", R"({"id":1,"method":"echo"}{"id":2})", -32700, "null"},
        BadLine{"a NUL byte", QByteArray("{\"id\":1,\0\"method\":\"echo\"}", 25), -32700, "null"},
        BadLine{"only NULs", QByteArray(64, '\0'), -32700, "null"},
        BadLine{"no UTF-8", "{\"id\":1,\"method\":\"\xff\xfe\"}", -32700, "null"},
        BadLine{"overlong UTF-8", "{\"id\":1,\"method\":\"\xc0\xaf\"}", -32700, "null"},
        BadLine{"nested too deep", QByteArray(100000, '['), -32700, "null"},
        BadLine{"closed, nested too deep", QByteArray(5000, '[') + QByteArray(5000, ']'), -32700, "null"},
        BadLine{"a number", "5", -32600, "null"}, BadLine{"a text", R"("echo")", -32600, "null"},
        BadLine{"null", "null", -32600, "null"}, BadLine{"an empty batch", "[]", -32600, "null"},
        BadLine{"an empty object", "{}", -32600, "null"},
        BadLine{"no method", R"({"jsonrpc":"2.0","id":4})", -32600, "4"},
        BadLine{"a method that is no text", R"({"jsonrpc":"2.0","id":4,"method":7})", -32600, "4"},
        BadLine{"another version", R"({"jsonrpc":"1.0","id":4,"method":"echo"})", -32600, "4"},
        BadLine{"an object as id", R"({"jsonrpc":"2.0","id":{},"method":"echo"})", -32600, "null"},
        BadLine{"a boolean as id", R"({"jsonrpc":"2.0","id":true,"method":"echo"})", -32600, "null"},
        BadLine{"a number as params", R"({"jsonrpc":"2.0","id":4,"method":"echo","params":3})", -32600, "4"},
        BadLine{"null as params", R"({"jsonrpc":"2.0","id":4,"method":"echo","params":null})", -32600, "4"},
        BadLine{"params by position", R"({"jsonrpc":"2.0","id":4,"method":"echo","params":[1]})", -32602, "4"}));

TEST_F(JsonRpc, AMethodsErrorKeepsItsCodeAndText) {
  EXPECT_EQ(Answer(R"({"id":3,"method":"refuse"})"),
            R"({"error":{"code":-32602,"message":"slot: missing"},"id":3,"jsonrpc":"2.0"})");
}

TEST_F(JsonRpc, ABatchIsAnsweredInOrderWithoutItsNotifications) {
  const QByteArray reply = Answer(R"([{"id":1,"method":"echo"},{"method":"echo"},7,{"id":2,"method":"nothing"}])");
  const QJsonArray replies = QJsonDocument::fromJson(reply).array();
  ASSERT_EQ(replies.size(), 3);
  EXPECT_EQ(replies[0].toObject()["id"], 1);
  EXPECT_EQ(replies[1].toObject()["error"].toObject()["code"], -32600);
  EXPECT_EQ(replies[2].toObject()["error"].toObject()["code"], -32601);
  EXPECT_EQ(called, QStringList({"echo", "echo", "nothing"}));
}

TEST_F(JsonRpc, ABatchOfNotificationsIsNotAnswered) {
  EXPECT_EQ(Answer(R"([{"method":"echo"},{"method":"echo"}])"), "");
  EXPECT_EQ(called.size(), 2);
}

TEST_F(JsonRpc, AnEndlessBatchIsRefusedWhole) {
  QByteArray line = "[1";
  for (qsizetype i = 0; i < kLongestBatch; ++i) line += ",1";
  const QByteArray reply = Answer(line + "]");
  EXPECT_LT(reply.size(), 200);
  EXPECT_TRUE(reply.contains("-32600"));
}

QStringList Lines(LineCutter& cutter) {
  QStringList lines;
  while (auto line = cutter.Next()) lines.append(line->tooLong ? QString("<too long>") : QString(line->bytes));
  return lines;
}

TEST(LineCutter, CutsAtLineFeedsWhereverTheInputBreaks) {
  LineCutter cutter;
  const QByteArray input = "ab\n\ncd\r\ne";
  QStringList lines;
  for (const char byte : input) {
    cutter.Feed(QByteArray(1, byte));
    lines += Lines(cutter);
  }
  EXPECT_EQ(lines, QStringList({"ab", "", "cd\r"}));
  EXPECT_EQ(cutter.Rest()->bytes, "e");
  EXPECT_FALSE(cutter.Rest().has_value());
}

TEST(LineCutter, ALineAtTheLimitPassesAndALongerOneIsToldOnce) {
  LineCutter cutter(4);
  cutter.Feed("1234\n12345\nab\n");
  EXPECT_EQ(Lines(cutter), QStringList({"1234", "<too long>", "ab"}));
}

TEST(LineCutter, AnEndlessLineIsNotKeptAndTheNextOneIsRead) {
  LineCutter cutter(4);
  for (int i = 0; i < 100; ++i) {
    cutter.Feed("xxxxxxxxxx");
    EXPECT_TRUE(Lines(cutter).isEmpty());
  }
  cutter.Feed("x\nab\n");
  EXPECT_EQ(Lines(cutter), QStringList({"<too long>", "ab"}));
}

TEST(LineCutter, AnEndlessLineWithoutAnEndIsToldAtTheEndOfInput) {
  LineCutter cutter(4);
  cutter.Feed("123456");
  EXPECT_TRUE(Lines(cutter).isEmpty());
  const auto rest = cutter.Rest();
  ASSERT_TRUE(rest.has_value());
  EXPECT_TRUE(rest->tooLong);
}

TEST(LineCutter, ALongLineIsAParseErrorWithoutId) {
  const QJsonObject reply = QJsonDocument::fromJson(AnswerTooLong()).object();
  EXPECT_EQ(reply["error"].toObject()["code"], -32700);
  EXPECT_TRUE(reply["id"].isNull());
}

TEST_F(JsonRpc, EveryBadRequestIsToldWhatIsWrongWithIt) {
  const std::pair<const char*, const char*> rows[] = {
      {"5", "a request is an object"},
      {"\"echo\"", "a request is an object"},
      {"[]", "the batch is empty"},
      {"{}", "method: a text is needed"},
      {R"({"id":{},"method":"echo"})", "id: a number, a text or null is needed"},
      {R"({"id":1,"jsonrpc":"1.0","method":"echo"})", "jsonrpc: \"2.0\" is needed"},
      {R"({"id":1,"jsonrpc":2.0,"method":"echo"})", "jsonrpc: \"2.0\" is needed"},
      {R"({"id":1,"method":7})", "method: a text is needed"},
      {R"({"id":1,"method":"echo","params":7})", "params: an object is needed"},
      {R"({"id":1,"method":"echo","params":[1]})", "params: an object with names is needed"}};
  for (const auto& [line, text] : rows) {
    const QJsonObject reply = QJsonDocument::fromJson(Answer(line)).object();
    EXPECT_EQ(reply["error"].toObject()["message"], text) << line;
    EXPECT_EQ(reply["jsonrpc"], "2.0") << line;
  }
  EXPECT_TRUE(Answer("{\"id\":1,").contains(" at byte "));
  EXPECT_TRUE(called.isEmpty());
}

TEST_F(JsonRpc, AWrongRequestIsAnsweredEvenWithoutAnId) {
  EXPECT_EQ(Answer(R"({"jsonrpc":"2.0"})"),
            R"({"error":{"code":-32600,"message":"method: a text is needed"},"id":null,"jsonrpc":"2.0"})");
}

TEST_F(JsonRpc, EveryRequestOfABatchThatIsNoneIsRefusedByItself) {
  EXPECT_EQ(Answer("[1,{\"id\":2,\"method\":\"echo\"}]"),
            R"([{"error":{"code":-32600,"message":"a request is an object"},"id":null,"jsonrpc":"2.0"},)"
            R"({"id":2,"jsonrpc":"2.0","result":{}}])");
}

TEST_F(JsonRpc, ABatchOfAThousandIsAnsweredWhole) {
  QByteArray line = "[1";
  for (qsizetype i = 1; i < kLongestBatch; ++i) line += ",1";
  EXPECT_EQ(QJsonDocument::fromJson(Answer(line + "]")).array().size(), 1000);
  EXPECT_EQ(Answer(line + ",1]"),
            R"({"error":{"code":-32600,"message":"a batch holds at most 1000 requests"},"id":null,"jsonrpc":"2.0"})");
}

TEST_F(JsonRpc, ABatchWhoseRepliesGrowTooLongIsAnsweredWithoutBeingCarriedOut) {
  const QString megabyte(1 << 20, 'x');
  int calls = 0;
  QByteArray line = "[";
  for (int i = 0; i < 20; ++i) line += (i == 0 ? "" : ",") + QByteArray(R"({"id":1,"method":"long"})");
  const QByteArray reply = AnswerLine(line + R"(,{"method":"notified"}])", [&](const QString&, const QJsonObject&) {
    ++calls;
    return RpcResult(QJsonValue(megabyte));
  });
  EXPECT_EQ(calls, 16) << "each reply is a little more than its text";
  const QJsonArray replies = QJsonDocument::fromJson(reply).array();
  ASSERT_EQ(replies.size(), 20);
  EXPECT_EQ(replies[15].toObject()["result"].toString().size(), megabyte.size());
  EXPECT_EQ(replies[16].toObject()["error"].toObject()["message"], "the replies to this batch are too long");
  EXPECT_EQ(replies[19].toObject()["id"], 1);
}

TEST(LineCutter, EmptyLinesInARowAreLines) {
  LineCutter cutter;
  cutter.Feed("a\n\n\nb\n");
  EXPECT_EQ(Lines(cutter), QStringList({"a", "", "", "b"}));
}

TEST(LineCutter, AShortLineAfterOneThatCameInPiecesIsFound) {
  LineCutter cutter;
  cutter.Feed("a long beginning");
  EXPECT_TRUE(Lines(cutter).isEmpty());
  cutter.Feed(" and its end\nb\n");
  EXPECT_EQ(Lines(cutter), QStringList({"a long beginning and its end", "b"}));
}

TEST(LineCutter, TheRestAtTheLimitPassesAndALongerOneIsEmpty) {
  LineCutter cutter(4);
  cutter.Feed("1234");
  EXPECT_TRUE(Lines(cutter).isEmpty());
  auto rest = cutter.Rest();
  ASSERT_TRUE(rest.has_value());
  EXPECT_FALSE(rest->tooLong);
  EXPECT_EQ(rest->bytes, "1234");
  EXPECT_FALSE(cutter.Rest().has_value()) << "it was taken";
  cutter.Feed("12345");
  rest = cutter.Rest();
  ASSERT_TRUE(rest.has_value());
  EXPECT_TRUE(rest->tooLong);
  EXPECT_EQ(rest->bytes, "");
  cutter.Feed("\nab\n");
  EXPECT_EQ(Lines(cutter), QStringList({"", "ab"}));
}

TEST(LineCutter, TheEndOfALineOverTheLimitIsNoLine) {
  LineCutter cutter(4);
  cutter.Feed("123456");
  EXPECT_TRUE(Lines(cutter).isEmpty());
  cutter.Feed("7\n8");
  EXPECT_EQ(Lines(cutter), QStringList{"<too long>"});
  EXPECT_EQ(cutter.Rest()->bytes, "8");
}

TEST(LineCutter, ALongLineIsToldItsLimit) {
  EXPECT_TRUE(AnswerTooLong().contains("a line holds at most 16777216 bytes"));
}

}  // namespace
}  // namespace panel
