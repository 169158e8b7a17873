// SPDX-License-Identifier: MIT
// The words of the status line and of the list of variables, row by row.
#include "calc/calc_words.h"

#include <gtest/gtest.h>

#include "calc/calc_format.h"

namespace pnl {
namespace {

const CalcTexts kTexts{u"T1", u"T2", u"T3", u"T4", u"T5", u"T6"};

TEST(CalcPreviewTest, ALineThatDoesNotCompileIsPartedAtThePlace) {
  EXPECT_EQ(SyntaxStatus(kTexts, PreviewExtent::kLine, u"1+#2", 2), u"T4: 1+< >#2");
  EXPECT_EQ(SyntaxStatus(kTexts, PreviewExtent::kLine, u"#", 0), u"T4: < >#");
  EXPECT_EQ(SyntaxStatus(kTexts, PreviewExtent::kLine, u"1+", 2), u"T4: 1+< >");
}

TEST(CalcPreviewTest, ASelectionThatDoesNotCompileHasItsPrefix) {
  EXPECT_EQ(SyntaxStatus(kTexts, PreviewExtent::kSelection, u"1+#2", 2), u"T6 T4: 1+< >#2");
}

TEST(CalcPreviewTest, APlaceBeyondTheTextIsItsEnd) {
  EXPECT_EQ(SyntaxStatus(kTexts, PreviewExtent::kLine, u"1+", 9), u"T4: 1+< >");
}

TEST(CalcPreviewTest, AFailureIsItsTextAlone) {
  EXPECT_EQ(FailureStatus(kTexts, PreviewExtent::kLine), u"T3");
  EXPECT_EQ(FailureStatus(kTexts, PreviewExtent::kSelection), u"T6 T3");
}

TEST(CalcPreviewTest, AValueHasItsLabelButForBinaryDigits) {
  EXPECT_EQ(ValueStatus(kTexts, PreviewExtent::kLine, 255.5, number_base::kHexadecimal), u"T5 : $FF");
  EXPECT_EQ(ValueStatus(kTexts, PreviewExtent::kLine, 255.5, number_base::kDecimal), u"T5 : 255.5");
  EXPECT_EQ(ValueStatus(kTexts, PreviewExtent::kLine, 5, number_base::kBinary), u"B101");
  EXPECT_EQ(ValueStatus(kTexts, PreviewExtent::kSelection, 255.5, number_base::kHexadecimal), u"T6 T5 : $FF");
  EXPECT_EQ(ValueStatus(kTexts, PreviewExtent::kSelection, 255.5, number_base::kDecimal), u"T6 T5 : 255.5");
  EXPECT_EQ(ValueStatus(kTexts, PreviewExtent::kSelection, 5, number_base::kBinary), u"B101");
}

TEST(CalcPreviewTest, AConfirmationThatFailedShowsTheTree) {
  EXPECT_EQ(ConfirmFailureStatus(kTexts, u"(1/0)"), u"T3: (1/0)");
}

TEST(CalcPreviewTest, PercentSignsInTextsAndLinesAreJustThat) {
  const CalcTexts odd{u"", u"", u"%s%n", u"%d", u"100%", u"%%"};
  EXPECT_EQ(SyntaxStatus(odd, PreviewExtent::kLine, u"2%s#", 3), u"%d: 2%s< >#");
  EXPECT_EQ(ValueStatus(odd, PreviewExtent::kSelection, 1, number_base::kDecimal), u"%% 100% : 1");
  EXPECT_EQ(ConfirmFailureStatus(odd, u"(2%3)"), u"%s%n: (2%3)");
}

TEST(VariableRowsTest, OnlyWhatIsNotZeroHasARow) {
  CalcStore store;
  EXPECT_TRUE(VariableRows(store).empty());
  store.Variables[1] = -0.5;
  store.Variables[25] = 1e20;
  store.Acc = 7;
  const std::vector<VariableRow> rows = {{u"B", u"B = -0.5"}, {u"Z", u"Z = 1e+20"}, {u"ACC", u"ACC = 7"}};
  EXPECT_EQ(VariableRows(store), rows);
}

}  // namespace
}  // namespace pnl
