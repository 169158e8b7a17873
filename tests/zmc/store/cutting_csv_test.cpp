// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "zmc/store/cutting_changes.h"

namespace pnl {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CT_MaterialDefinition Material(TextView description, TextView force = {}) {
  CT_MaterialDefinition record;
  record.descripcion = LeafOf(description);
  record.id = u"##";
  record.KC = LeafOf(force);
  return record;
}

CT_Operacion Operation(TextView description, TextView toolType) {
  CT_Operacion record;
  record.descripcion = LeafOf(description);
  record.ToolType = LeafOf(toolType);
  return record;
}

TEST(CuttingCsv, WritesOneLineForEachRecord) {
  CT_MaterialDefinition steel = Material(u"Steel", u"2000");
  steel.Norma = {u"1.0503", u"F-1142", u"1045"};
  steel.Oculto = true;
  steel.Date = u"2026/01/02 03:04:05";
  EXPECT_EQ(ToUtf8(WriteCuttingCsv({{steel}, {Operation(u"Milling", u"Drill")}})),
            "kind;description;alemaniaw;une;aisi;kc;tooltype;hidden;date\r\n"
            "material;Steel;1.0503;F-1142;1045;2000;;1;2026/01/02 03:04:05\r\n"
            "operation;Milling;;;;;Drill;;\r\n");
}

TEST(CuttingCsv, ReadsWhatItHasWritten) {
  std::mt19937 random(7);
  const TextView pieces[] = {u"a", u"\"", u";",  u",",    u"\t", u"ñ", u"\U0001F600",
                             u"<", u"&",  u" b", u"\r\n", u"\n", u"''"};
  const auto text = [&] {
    Text made;
    for (unsigned left = random() % 6; left != 0; --left) made += pieces[random() % std::size(pieces)];
    return Text(Trim(made));
  };
  for (int round = 0; round < 300; ++round) {
    CuttingRecords records;
    for (unsigned at = 0; at < 5; ++at) {
      CT_MaterialDefinition material =
          Material(Text(1, static_cast<char16_t>(u'A' + at)) + text(), at == 2 ? u"" : u"12.5");
      material.Norma = {LeafOf(text()), LeafOf(text()), LeafOf(text())};
      material.id = MaterialId(material.Norma);
      material.Oculto = random() % 2 == 0;
      records.materials.push_back(material);
      records.operations.push_back(Operation(Text(1, static_cast<char16_t>(u'A' + at)) + text(), text()));
    }
    const CsvReading reading = ReadCuttingCsv(WriteCuttingCsv(records));
    ASSERT_THAT(reading.faults, IsEmpty());
    ASSERT_EQ(reading.records.materials, records.materials);
    ASSERT_EQ(reading.records.operations, records.operations);
  }
}

TEST(CuttingCsv, TakesOtherSeparatorsAndAnyOrderOfColumns) {
  for (const TextView text : {TextView(u"KC,Kind,Unknown,Description\n1500,Material,x,Brass\n"),
                              TextView(u"KC\tKind\tUnknown\tDescription\r1500\tMATERIAL\tx\t Brass \r"),
                              TextView(u"KC;Kind;Unknown;Description\r\n\r\n1500;material;x;\"Brass\"")}) {
    const CsvReading reading = ReadCuttingCsv(text);
    EXPECT_THAT(reading.faults, IsEmpty()) << ToUtf8(text);
    EXPECT_THAT(reading.records.materials, ElementsAre(Material(u"Brass", u"1500"))) << ToUtf8(text);
  }
}

struct FaultRow {
  TextView text;
  CsvFaultAt fault;
};

class CuttingCsvFaults : public testing::TestWithParam<FaultRow> {};

TEST_P(CuttingCsvFaults, AreNamedWithTheirLineAndNothingIsRead) {
  const CsvReading reading = ReadCuttingCsv(GetParam().text);
  EXPECT_THAT(reading.faults, ElementsAre(GetParam().fault));
  EXPECT_THAT(reading.records.materials, IsEmpty());
  EXPECT_THAT(reading.records.operations, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CuttingCsvFaults,
    testing::Values(FaultRow{u"", {1, CsvFault::kNoHeader, u""}},
                    FaultRow{u"Steel;2\n", {1, CsvFault::kNoHeader, u"Steel"}},
                    FaultRow{u"kind;kc\n", {1, CsvFault::kNoHeader, u"kind"}},
                    FaultRow{u"kind;description\nmaterial;A\nmaterial;B;3\n", {3, CsvFault::kColumnCount, u"3"}},
                    FaultRow{u"kind;description\nmaterial;A\ntool;B\n", {3, CsvFault::kUnknownKind, u"tool"}},
                    FaultRow{u"kind;description\nmaterial;A\nmaterial; \n", {3, CsvFault::kNoDescription, u""}},
                    FaultRow{u"kind;description\nmaterial;A\nmaterial;A\n", {3, CsvFault::kRepeated, u"A"}},
                    FaultRow{u"kind;description;kc\nmaterial;A;1e5\n", {2, CsvFault::kBadNumber, u"1e5"}},
                    FaultRow{u"kind;description;kc\nmaterial;A;100000\n", {2, CsvFault::kBadNumber, u"100000"}},
                    FaultRow{u"kind;description;kc\nmaterial;A;1.2.3\n", {2, CsvFault::kBadNumber, u"1.2.3"}},
                    FaultRow{u"kind;description;kc\nmaterial;A;-1\n", {2, CsvFault::kBadNumber, u"-1"}},
                    FaultRow{u"kind;description\nmaterial;A\x1\n", {2, CsvFault::kBadText, u"A\x1"}},
                    FaultRow{u"kind;description\r\nmaterial;A\r\nmaterial;\r\n", {3, CsvFault::kNoDescription, u""}},
                    FaultRow{u"kind;description\nmaterial;\"A\nB\"\nmaterial;\n", {4, CsvFault::kNoDescription, u""}}));

TEST(CuttingCsv, AForceMayHaveItsWholeRangeAndOperationsNone) {
  for (const TextView force : {TextView(u"0"), TextView(u"99999.9999"), TextView(u"0.5"), TextView(u"")}) {
    const CsvReading reading = ReadCuttingCsv(Text(u"kind;description;kc\nmaterial;A;").append(force));
    EXPECT_THAT(reading.faults, IsEmpty()) << ToUtf8(force);
    ASSERT_EQ(reading.records.materials.size(), 1u);
    EXPECT_EQ(TextOf(reading.records.materials[0].KC), force);
  }
  EXPECT_THAT(ReadCuttingCsv(u"kind;description;kc\nmaterial;A;99999.99991\n").faults,
              ElementsAre(CsvFaultAt{2, CsvFault::kBadNumber, u"99999.99991"}));
  EXPECT_THAT(ReadCuttingCsv(u"kind;description;kc\noperation;A;much\n").faults, IsEmpty());
}

TEST(CuttingCsv, HiddenIsWhateverIsNotEmptyZeroOrFalse) {
  for (const auto& [cell, hidden] : {std::pair(u"", false),
                                     {u"0", false},
                                     {u"false", false},
                                     {u"FALSE", false},
                                     {u"1", true},
                                     {u"x", true},
                                     {u"00", true}}) {
    for (const TextView kind : {TextView(u"material"), TextView(u"operation")}) {
      const CsvReading reading =
          ReadCuttingCsv(Text(u"kind;description;hidden\n").append(kind).append(u";A;").append(cell));
      ASSERT_THAT(reading.faults, IsEmpty());
      const bool read =
          kind == u"material" ? reading.records.materials.at(0).Oculto : reading.records.operations.at(0).Oculto;
      EXPECT_EQ(read, hidden) << ToUtf8(cell) << " " << ToUtf8(kind);
    }
  }
}

TEST(CuttingCsv, ATextAfterAQuoteBelongsToItsCellAndBlankLinesAreCounted) {
  const CsvReading reading = ReadCuttingCsv(u"kind;description\n\n ; \nmaterial;\"A;\"\"B\" tail\n\nmaterial;\n");
  EXPECT_THAT(reading.faults, ElementsAre(CsvFaultAt{6, CsvFault::kNoDescription, u""}));
  const CsvReading good = ReadCuttingCsv(u"kind;description\n\n ; \nmaterial;\"A;\"\"B\" tail\n");
  ASSERT_EQ(good.records.materials.size(), 1u);
  EXPECT_EQ(TextOf(good.records.materials[0].descripcion), u"A;\"B tail");
}

TEST(CuttingCsv, TheSeparatorIsTheFirstLinesAndASemicolonComesFirst) {
  const CsvReading semicolons = ReadCuttingCsv(u"kind;description;a,b;c\td\nmaterial;A,B\n");
  ASSERT_EQ(semicolons.records.materials.size(), 1u);
  EXPECT_EQ(TextOf(semicolons.records.materials[0].descripcion), u"A,B");
  const CsvReading tabs = ReadCuttingCsv(u"kind\tdescription\ta,b\nmaterial\tA;B\n");
  ASSERT_EQ(tabs.records.materials.size(), 1u) << "a semicolon of a later line is text";
  EXPECT_EQ(TextOf(tabs.records.materials[0].descripcion), u"A;B");
}

TEST(CuttingCsv, AnOperationHasItsToolTypeAndDateAndNoId) {
  const CsvReading reading = ReadCuttingCsv(u"kind;description;tooltype;date;kc\noperation;A;Drill;2026/01/01;7\n");
  ASSERT_EQ(reading.records.operations.size(), 1u);
  const CT_Operacion& record = reading.records.operations[0];
  EXPECT_EQ(TextOf(record.ToolType), u"Drill");
  EXPECT_EQ(TextOf(record.Date), u"2026/01/01");
  EXPECT_EQ(TextOf(record.id), u"");
}

TEST(CuttingChanges, NameEachFieldThatDiffers) {
  CT_MaterialDefinition before = Material(u"Steel", u"1");
  before.Norma = {u"a", u"b", u"c"};
  before.Oculto = true;
  CT_MaterialDefinition after = Material(u"Steel", u"1");
  after.Norma = {u"a", u"B", u"C"};
  CT_Operacion milling = Operation(u"Milling", u"Drill");
  milling.Oculto = true;
  EXPECT_THAT(CompareCutting({{before}, {Operation(u"Milling", u"Drill")}}, {{after}, {milling}}),
              ElementsAre(CuttingChange{true,
                                        false,
                                        u"Steel",
                                        {{CuttingField::kNormUne, u"b", u"B"},
                                         {CuttingField::kNormAisi, u"c", u"C"},
                                         {CuttingField::kHidden, u"1", u""}}},
                          CuttingChange{false, false, u"Milling", {{CuttingField::kHidden, u"", u"1"}}}));
  after.Norma = {u"A", u"b", u"c"};
  after.Oculto = true;
  EXPECT_THAT(CompareCutting({{before}, {}}, {{after}, {}}),
              ElementsAre(CuttingChange{true, false, u"Steel", {{CuttingField::kNormGermany, u"a", u"A"}}}));
  EXPECT_THAT(CompareCutting({{}, {}}, {{}, {Operation(u"New", u"")}}),
              ElementsAre(CuttingChange{false, true, u"New", {}}))
      << "also one that is empty";
}

TEST(CuttingCsv, AQuoteThatIsNotClosedIsAFault) {
  const CsvReading reading = ReadCuttingCsv(u"kind;description\nmaterial;\"A\n");
  ASSERT_FALSE(reading.faults.empty());
  EXPECT_EQ(reading.faults.back().fault, CsvFault::kOpenQuote);
  EXPECT_THAT(reading.records.materials, IsEmpty());
}

// A text is a part of a larger one here: what comes after it is no part of the table.
TEST(CuttingCsv, ReadsNothingBeyondTheEndOfItsText) {
  const TextView all = u"kind;description\nmaterial;A;x";
  const CsvReading reading = ReadCuttingCsv(all.substr(0, all.size() - 2));
  EXPECT_THAT(reading.faults, IsEmpty());
  EXPECT_THAT(reading.records.materials, ElementsAre(Material(u"A")));
  const TextView quoted = u"kind;description\nmaterial;\"A\"";
  EXPECT_THAT(ReadCuttingCsv(quoted.substr(0, quoted.size() - 1)).faults,
              ElementsAre(CsvFaultAt{2, CsvFault::kOpenQuote, u""}));
}

TEST(CuttingCsv, AMaterialHasItsNormsAndItsDate) {
  const CsvReading reading = ReadCuttingCsv(u"kind;description;alemaniaw;une;aisi;date\nmaterial;A;1;2;3;2026/01/01\n");
  ASSERT_EQ(reading.records.materials.size(), 1u);
  const CT_MaterialDefinition& record = reading.records.materials[0];
  EXPECT_EQ(record.Norma, (CT_Norma{u"1", u"2", u"3"}));
  EXPECT_EQ(TextOf(record.id), u"1#2#3");
  EXPECT_EQ(TextOf(record.Date), u"2026/01/01");
}

TEST(CuttingCsv, AMaterialAndAnOperationMayHaveOneDescription) {
  EXPECT_THAT(ReadCuttingCsv(u"kind;description\nmaterial;A\noperation;A\n").faults, IsEmpty());
}

TEST(CuttingCsv, StopsCountingFaultsAtAThousand) {
  Text text = u"kind;description\n";
  for (int line = 0; line < 5000; ++line) text += u"x;y\n";
  EXPECT_EQ(ReadCuttingCsv(text).faults.size(), 1000u);
}

TEST(CuttingChanges, NameNewRecordsAndChangedFields) {
  CT_MaterialDefinition hidden = Material(u"Steel", u"2100");
  hidden.Oculto = true;
  hidden.Date = u"2026/01/01 00:00:00";
  CT_MaterialDefinition dated = Material(u"Brass", u"800");
  dated.Date = u"2026/01/01 00:00:00";
  const CuttingRecords before{{Material(u"Steel", u"2000"), Material(u"Brass", u"800"), Material(u"Gold")},
                              {Operation(u"Milling", u"Drill")}};
  const CuttingRecords after{{hidden, dated, Material(u"brass", u"800")}, {Operation(u"Milling", u"Tap")}};
  EXPECT_THAT(
      CompareCutting(before, after),
      ElementsAre(
          CuttingChange{
              true, false, u"Steel", {{CuttingField::kForce, u"2000", u"2100"}, {CuttingField::kHidden, u"", u"1"}}},
          CuttingChange{true, true, u"brass", {{CuttingField::kForce, u"", u"800"}}},
          CuttingChange{false, false, u"Milling", {{CuttingField::kToolType, u"Drill", u"Tap"}}}));
}

TEST(CuttingChanges, ThereAreNoneBetweenEqualRecords) {
  const CuttingRecords records{{Material(u"Steel", u"2000")}, {Operation(u"Milling", u"Drill")}};
  EXPECT_THAT(CompareCutting(records, records), IsEmpty());
}

}  // namespace
}  // namespace pnl
