// SPDX-License-Identifier: MIT
// Parameters by name and type: what is read, and the exact text when one is wrong.
#include "remote/params.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <functional>

#include "remote/json_values.h"

namespace panel {
namespace {

Params Make(const char* json) { return Params(QJsonDocument::fromJson(json).object()); }

TEST(Params, GoodValuesAreReadAndNothingIsWrong) {
  Params params =
      Make(R"({"i":-5,"whole":3.0,"b":true,"t":"ñ","c":"side","l":[1],"o":{"x":1},"n":[0,2],"s":["a"],"f":"/tmp/x"})");
  EXPECT_EQ(params.Int("i"), -5);
  EXPECT_EQ(params.Int("whole"), 3);
  EXPECT_TRUE(params.Bool("b"));
  EXPECT_EQ(params.Text("t"), "ñ");
  EXPECT_EQ(params.Choice("c", {"main", "side"}), "side");
  EXPECT_EQ(params.List("l").size(), 1);
  EXPECT_EQ(params.Object("o")["x"], 1);
  EXPECT_EQ(params.Integers("n", 0, 2), QList<int>({0, 2}));
  EXPECT_EQ(params.Texts("s"), QStringList{"a"});
  EXPECT_EQ(params.HostFile("f"), "/tmp/x");
  EXPECT_FALSE(params.Problem().has_value());
}

TEST(Params, AbsentOnesHaveTheirFallback) {
  Params params = Make(R"({"unknown":1})");
  EXPECT_EQ(params.Int("i", 7), 7);
  EXPECT_TRUE(params.Bool("b", true));
  EXPECT_EQ(params.Text("t", "x"), "x");
  EXPECT_EQ(params.Choice("c", {"main", "side"}, "side"), "side");
  EXPECT_TRUE(params.List("l", QJsonArray()).isEmpty());
  EXPECT_TRUE(params.Texts("s", QStringList()).isEmpty());
  EXPECT_FALSE(params.Problem().has_value());
}

struct Wrong {
  const char* json;
  std::function<void(Params&)> read;
  const char* text;
};

class WrongParams : public ::testing::TestWithParam<Wrong> {};

TEST_P(WrongParams, NameTheField) {
  Params params = Make(GetParam().json);
  GetParam().read(params);
  ASSERT_TRUE(params.Problem().has_value());
  EXPECT_EQ(params.Problem()->code, -32602);
  EXPECT_EQ(params.Problem()->text.toStdString(), GetParam().text);
}

void ReadInt(Params& params) { (void)params.Int("a"); }
void ReadSmall(Params& params) { (void)params.Integer("a", 0, 18); }
void ReadBool(Params& params) { (void)params.Bool("a", false); }
void ReadText(Params& params) { (void)params.Text("a"); }
void ReadChoice(Params& params) { (void)params.Choice("a", {"main", "side"}); }
void ReadList(Params& params) { (void)params.List("a"); }
void ReadObject(Params& params) { (void)params.Object("a"); }
void ReadFile(Params& params) { (void)params.HostFile("a"); }
void ReadIntegers(Params& params) { (void)params.Integers("a", 0, 9); }
void ReadTexts(Params& params) { (void)params.Texts("a"); }

constexpr char kNeedsInt[] = "a: an integer from -2147483648 to 2147483647 is needed";

INSTANTIATE_TEST_SUITE_P(
    All, WrongParams,
    ::testing::Values(Wrong{"{}", ReadInt, "a: missing"}, Wrong{R"({"a":"1"})", ReadInt, kNeedsInt},
                      Wrong{R"({"a":null})", ReadInt, kNeedsInt}, Wrong{R"({"a":1.5})", ReadInt, kNeedsInt},
                      Wrong{R"({"a":1e300})", ReadInt, kNeedsInt}, Wrong{R"({"a":2147483648})", ReadInt, kNeedsInt},
                      Wrong{R"({"a":true})", ReadInt, kNeedsInt},
                      Wrong{R"({"a":19})", ReadSmall, "a: an integer from 0 to 18 is needed"},
                      Wrong{R"({"a":1})", ReadBool, "a: true or false is needed"},
                      Wrong{R"({"a":1})", ReadText, "a: a text is needed"}, Wrong{"{}", ReadText, "a: missing"},
                      Wrong{R"({"a":"x"})", ReadChoice, "a: one of \"main\", \"side\" is needed"},
                      Wrong{R"({"a":{}})", ReadList, "a: a list is needed"},
                      Wrong{R"({"a":[]})", ReadObject, "a: an object is needed"},
                      Wrong{R"({"a":""})", ReadFile, "a: the name of a file or folder is needed"},
                      Wrong{R"({"a":"x\u0000y"})", ReadFile, "a: the name of a file or folder is needed"},
                      Wrong{R"({"a":[1,10]})", ReadIntegers, "a: integers from 0 to 9 are needed"},
                      Wrong{R"({"a":["x",1]})", ReadTexts, "a: a list of texts is needed"}));

TEST(Params, TheFirstProblemStays) {
  Params params = Make("{}");
  (void)params.Int("first");
  (void)params.Text("second");
  EXPECT_EQ(params.Problem()->text, "first: missing");
}

TEST(Params, AnObjectInsideNamesItsPlace) {
  Params params = Make("{}");
  Params inner(QJsonObject(), "record.");
  (void)inner.Int("Owner");
  params.Adopt(inner);
  EXPECT_EQ(params.Problem()->text, "record.Owner: missing");
}

using pnl::rig::Value;
using pnl::rig::VariableType;

TEST(JsonValues, ValuesComeThroughBothWays) {
  EXPECT_EQ(ToJson(Value()), QJsonValue(QJsonValue::Null));
  EXPECT_EQ(ToJson(Value(std::int64_t{-3})), QJsonValue(-3));
  EXPECT_EQ(ToJson(Value(2.5)), QJsonValue(2.5));
  EXPECT_EQ(ToJson(Value(std::u16string(u"G0 X1"))), QJsonValue("G0 X1"));
  const Value record(std::vector<pnl::rig::Field>{{"channel", Value(std::int64_t{1})}});
  EXPECT_EQ(ToJson(record), QJsonValue(QJsonObject{{"channel", 1}}));
  EXPECT_EQ(std::get<std::int64_t>(*FromJson(QJsonValue(4))), 4);
  EXPECT_EQ(std::get<double>(*FromJson(QJsonValue(4.5))), 4.5);
  EXPECT_EQ(std::get<std::u16string>(*FromJson(QJsonValue("x"))), u"x");
  EXPECT_FALSE(FromJson(QJsonValue(true)).has_value());
}

TEST(JsonValues, WhatJsonHasNoNumberForReadsNull) {
  EXPECT_TRUE(ToJson(Value(std::numeric_limits<double>::infinity())).isNull());
  EXPECT_TRUE(ToJson(Value(std::numeric_limits<double>::quiet_NaN())).isNull());
}

TEST(JsonValues, AVariableTakesOnlyValuesOfItsType) {
  EXPECT_EQ(std::get<double>(*FromJson(QJsonValue(4), VariableType::kDouble)), 4.0);
  EXPECT_EQ(std::get<std::int64_t>(*FromJson(QJsonValue(4.0), VariableType::kInt)), 4);
  EXPECT_FALSE(FromJson(QJsonValue(4.5), VariableType::kInt).has_value());
  EXPECT_FALSE(FromJson(QJsonValue(4294967296.0), VariableType::kInt).has_value());
  EXPECT_FALSE(FromJson(QJsonValue("4"), VariableType::kInt).has_value());
  EXPECT_FALSE(FromJson(QJsonValue(4), VariableType::kText).has_value());
}

TEST(Params, AReaderTakesTheEndsOfItsRange) {
  Params params = Make(R"({"a":-2147483648,"b":2147483647,"c":0,"d":18,"n":[0,9],"m":[-1,1]})");
  EXPECT_EQ(params.Int("a"), -2147483647 - 1);
  EXPECT_EQ(params.Int("b"), 2147483647);
  EXPECT_EQ(params.Integer("c", 0, 18), 0);
  EXPECT_EQ(params.Integer("d", 0, 18), 18);
  EXPECT_EQ(params.Integers("n", 0, 9), QList<int>({0, 9}));
  ASSERT_FALSE(params.Problem().has_value());
  EXPECT_EQ(params.Integers("m", 0, 9), QList<int>());
  EXPECT_TRUE(params.Problem().has_value());
}

TEST(Params, WhatIsWrongIsReadAsSomethingHarmless) {
  Params params = Make(R"({"a":99,"b":"x","c":"x"})");
  EXPECT_EQ(params.Integer("a", 2, 5), 2);
  EXPECT_EQ(params.Integer("a", 2, 5, 3), 3);
  EXPECT_EQ(params.Integer("absent", 2, 5), 2);
  EXPECT_FALSE(params.Bool("b"));
  EXPECT_FALSE(params.Bool("absent"));
  EXPECT_EQ(params.Choice("c", {"main", "side"}), "main");
  EXPECT_EQ(params.Choice("absent", {"main", "side"}), "main");
  EXPECT_TRUE(params.Object("absent").isEmpty());
  EXPECT_TRUE(params.Texts("absent").isEmpty());
}

TEST(Params, APresentOneIsReadWhateverItsFallback) {
  Params params = Make(R"({"i":1,"b":false,"t":"x","c":"main","l":[7],"s":["a","b"]})");
  EXPECT_EQ(params.Int("i", 7), 1);
  EXPECT_FALSE(params.Bool("b", true));
  EXPECT_EQ(params.Text("t", "y"), "x");
  EXPECT_EQ(params.Choice("c", {"main", "side"}, "side"), "main");
  EXPECT_EQ(params.List("l", QJsonArray()), QJsonArray{7});
  EXPECT_EQ(params.Texts("s", QStringList{"z"}), QStringList({"a", "b"}));
  EXPECT_FALSE(params.Problem().has_value());
}

TEST(Params, EveryReaderMissesWhatHasNoFallback) {
  const std::pair<const char*, std::function<void(Params&)>> readers[] = {
      {"int", ReadInt},           {"small", ReadSmall},
      {"text", ReadText},         {"choice", ReadChoice},
      {"list", ReadList},         {"object", ReadObject},
      {"integers", ReadIntegers}, {"texts", ReadTexts},
      {"file", ReadFile},         {"bool", [](Params& params) { (void)params.Bool("a"); }}};
  for (const auto& [name, read] : readers) {
    Params params = Make("{}");
    read(params);
    EXPECT_EQ(params.Problem().value_or(RpcError()).text, "a: missing") << name;
  }
}

TEST(Params, APresentNullIsThere) {
  const Params params = Make(R"({"a":null,"b":1})");
  EXPECT_TRUE(params.Has("a"));
  EXPECT_TRUE(params.IsNull("a"));
  EXPECT_FALSE(params.IsNull("b"));
  EXPECT_FALSE(params.Has("c"));
  EXPECT_TRUE(params.Raw("c").isUndefined());
}

TEST(Params, AnInnerProblemIsTakenOverOnlyWhereThereIsNone) {
  Params params = Make("{}");
  Params good(QJsonObject(), "x.");
  params.Adopt(good);
  EXPECT_FALSE(params.Problem().has_value());
  params.Fail("first", "wrong");
  Params bad(QJsonObject(), "x.");
  (void)bad.Int("second");
  params.Adopt(bad);
  EXPECT_EQ(params.Problem()->text, "first: wrong");
}

TEST(JsonValues, TheEndsOfAVariablesRangeAreTaken) {
  EXPECT_EQ(std::get<std::int64_t>(*FromJson(QJsonValue(2147483647), VariableType::kInt)), 2147483647);
  EXPECT_EQ(std::get<std::int64_t>(*FromJson(QJsonValue(-2147483648.0), VariableType::kInt)), -2147483648LL);
  EXPECT_FALSE(FromJson(QJsonValue(2147483648.0), VariableType::kInt).has_value());
  EXPECT_FALSE(FromJson(QJsonValue(-2147483649.0), VariableType::kInt).has_value());
  EXPECT_FALSE(FromJson(QJsonValue("4"), VariableType::kDouble).has_value());
  EXPECT_EQ(std::get<std::u16string>(*FromJson(QJsonValue("4"), VariableType::kText)), u"4");
  EXPECT_TRUE(std::holds_alternative<std::monostate>(*FromJson(QJsonValue(QJsonValue::Null))));
  EXPECT_FALSE(FromJson(QJsonValue(QJsonArray())).has_value());
}

}  // namespace
}  // namespace panel
