// SPDX-License-Identifier: MIT
#include "errors/error_diagnosis.h"

#include <gtest/gtest.h>

#include "errors/error_fixture.h"

namespace pnl::test {
namespace {

class ErrorDiagnosis : public ErrorFixture {
 protected:
  ErrorDiagnosis() {
    cnc.Axis(2, u"Y");
    for (const int id : {57345, 245, 238, 241, 57348, 57349, 57352, 252, 263, 57355}) Add(id, u" %d");
    for (const int id : {230, 235, 242}) Add(id, u" %s");
    for (const int id : {231, 246, 243}) Add(id, u" %s %d");
    Add(247, u" %d %d");
  }
  void Add(int id, TextView arguments) { texts[id] += arguments; }
  std::string Of(std::uint16_t kind, std::uint16_t a, std::uint16_t b) {
    return ToUtf8(ComposeDiagnosis(RecordBuilder().Diagnosis(kind, a, b), words, cnc.Kapi()));
  }
};

struct DiagnosisCase {
  std::uint16_t kind, a, b;
  const char* text;
};

TEST_F(ErrorDiagnosis, EachKindHasItsLine) {
  const DiagnosisCase cases[] = {
      {1, 0, 9, "\nT229 "},
      {1, 5, 9, "\nT57345 5 "},
      {2, 2, 9, "\nT230 Y "},
      {3, 2, 9, "\nT231 Y 9 "},
      {4, 5, 9, "\nT232 "},
      {5, 0, 9, "\nT233 "},
      {5, 5, 9, "\nT245 5 "},
      {6, 0, 9, "\nT234 "},
      {6, 5, 9, "\nT234 5"},
      {7, 2, 0, "\nT235 Y "},
      {7, 2, 9, "\nT246 Y 9 "},
      {8, 5, 0, "\nT238 5 "},
      {8, 5, 9, "\nT247 5 9 "},
      {9, 5, 9, "\nT241 5 "},
      {10, 2, 9, "\nT242 Y "},
      {11, 2, 9, "\nT243 Y 9 "},
      {12, 5, 9, "\nT244 "},
      {13, 5, 9, "\nT57353 "},
      {14, 5, 9, ""},
      {15, 5, 9, ""},
      {16, 0, 9, "\nT57347 "},
      {16, 5, 9, "\nT57347 5"},
      {17, 5, 9, "\nT57348 5 "},
      {18, 5, 9, "\nT57349 5 "},
      {19, 5, 9, "\nT57352 5 "},
      {20, 5, 0, "\nT252 5 "},
      {20, 5, 9, "\nT252 5 SET: 9."},
      {21, 5, 9, "\nT263 5"},
      {22, 5, 9, "\nT57355 5 "},
      {0, 5, 9, ""},
      {23, 5, 9, ""},
      {65535, 65535, 65535, ""},
  };
  for (const DiagnosisCase& row : cases) {
    EXPECT_EQ(Of(row.kind, row.a, row.b), row.text) << "kind " << row.kind << " with " << row.a << ", " << row.b;
  }
}

TEST_F(ErrorDiagnosis, AnAxisThatIsNotKnownIsLeftOut) {
  EXPECT_EQ(Of(2, 40, 0), "\nT230  ");
  EXPECT_EQ(Of(11, 40, 1), "\nT243  1 ");
}

TEST_F(ErrorDiagnosis, AWordThatAsksForTooMuchReadsNothingElse) {
  texts[232] = u"%s%s%d%d";
  texts[230] = u"%d %s %s";
  EXPECT_EQ(Of(4, 1, 1), "\n ");
  EXPECT_FALSE(Of(2, 2, 0).empty());
}

TEST_F(ErrorDiagnosis, AWordThatIsMissingLeavesAnEmptyLine) {
  texts.erase(232);
  EXPECT_EQ(Of(4, 1, 1), "\n ");
}

}  // namespace
}  // namespace pnl::test
