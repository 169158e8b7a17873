// SPDX-License-Identifier: MIT
#include "facade/variable_names.h"

#include <set>

#include "base/format.h"
#include "support/sim_fixture.h"

namespace pnl {
namespace {

Text Named(TextView pattern) {
  return pattern.find(u"%s") == TextView::npos ? Format(pattern, 1) : Format(pattern, u"S");
}

class VariableNames : public test::SimFixture {};

TEST_F(VariableNames, NoNameStandsTwice) {
  std::set<Text> seen;
  for (const VariableName& name : kVariableNames) {
    EXPECT_TRUE(seen.insert(Text(name.pattern)).second) << ToUtf8(name.pattern);
  }
  EXPECT_EQ(seen.size(), 42U);
}

TEST_F(VariableNames, EveryNameHasAKnownGroup) {
  const std::set<Text> groups{u"G.", u"E.", u"DM.", u"MPG.", u"MPA.", u"SP."};
  for (const VariableName& name : kVariableNames) {
    TextView rest = name.pattern;
    if (rest.substr(0, 5) == u"[%d].") rest.remove_prefix(5);
    EXPECT_EQ(groups.count(Text(rest.substr(0, rest.find(u'.') + 1))), 1U) << ToUtf8(name.pattern);
  }
}

TEST_F(VariableNames, EveryNameCanBeReadAndWrittenAsTheToolsDo) {
  const WindowHandle window = windows.Open();
  for (const VariableName& row : kVariableNames) {
    SCOPED_TRACE(ToUtf8(row.pattern));
    const Text name = Named(row.pattern);
    EXPECT_FALSE(ZCVariable(cnc.Vars(), name).IsValid());
    cnc.Define(name, row.type, {}, true, (row.access & variable_access::kWrite) != 0);
    ZCVariable variable(cnc.Vars(), name);
    ASSERT_TRUE(variable.IsValid());
    std::int32_t number = -1;
    double real = -1;
    Text text = u"x";
    const bool writable = (row.access & variable_access::kWrite) != 0;
    switch (row.type) {
      case rig::VariableType::kInt:
        EXPECT_EQ(variable.ReadInt(number), 0);
        EXPECT_EQ(number, 0);
        EXPECT_EQ(variable.WriteInt(5) == 0, writable);
        break;
      case rig::VariableType::kDouble:
        EXPECT_EQ(variable.ReadDouble(real), 0);
        EXPECT_EQ(real, 0);
        EXPECT_EQ(variable.WriteDouble(5.5) == 0, writable);
        break;
      case rig::VariableType::kText:
        EXPECT_EQ(variable.ReadTxt(text), 0);
        EXPECT_EQ(text, u"");
        EXPECT_EQ(variable.WriteTxt(u"A") == 0, writable);
        break;
    }
    if ((row.access & variable_access::kReport) != 0) {
      EXPECT_EQ(variable.OpenReport(window), 0);
      cnc.Set(name, std::int64_t{1});
      EXPECT_EQ(TakeReports(window).size(), 1U);
    }
  }
}

}  // namespace
}  // namespace pnl
