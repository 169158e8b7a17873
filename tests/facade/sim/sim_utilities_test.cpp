// SPDX-License-Identifier: MIT
#include "facade/sim/sim_utilities.h"

#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UtilitiesTest : public test::SimFixture {
 protected:
  Utilities& util = cnc.Util();
};

TEST_F(UtilitiesTest, EachErrorTextFunctionHasItsOwnTable) {
  std::int32_t number = 100;
  for (const ErrorTextFunction function : kErrorTextFunctions) {
    const Text text = u"\n" + FromUtf8(ErrorTextFunctionName(function));
    EXPECT_TRUE(cnc.ErrorText(ErrorTextFunctionName(function), number, text, u"docs\\e.txt#7", true));
    for (const ErrorTextFunction other : kErrorTextFunctions) {
      Z7340ERRORINFO_ST info{};
      const int result = util.ErrorText(other, number, info);
      EXPECT_EQ(result == 0, other == function);
      EXPECT_EQ(FieldText(info.text), other == function ? text : Text());
      EXPECT_EQ(FieldText(info.helpRef), other == function ? u"docs\\e.txt#7" : u"");
      EXPECT_EQ(info.hasHelp, other == function ? 1 : 0);
    }
    ++number;
  }
  EXPECT_FALSE(cnc.ErrorText("no_to_txt", 1, u"x", u"", false));
  EXPECT_THAT(sink.lines, IsEmpty()) << "text look-ups are not recorded";
}

TEST_F(UtilitiesTest, AnUnknownNumberLeavesZeros) {
  Z7340ERRORINFO_ST info{};
  SetField(info.text, u"left over");
  info.hasHelp = 1;
  EXPECT_EQ(util.ErrorText(ErrorTextFunction::kReadPlcError, 5, info), -1);
  EXPECT_EQ(info.text[0], u'\0');
  EXPECT_EQ(info.hasHelp, 0);
}

TEST_F(UtilitiesTest, ATextThatIsTooLongIsCut) {
  cnc.ErrorText("error_to_txt", 5, Text(1000, u'x'), Text(1000, u'y'), false);
  Z7340ERRORINFO_ST info{};
  util.ErrorText(ErrorTextFunction::kErrorToTxt, 5, info);
  EXPECT_EQ(FieldText(info.text), Text(499, u'x'));
  EXPECT_EQ(FieldText(info.helpRef), Text(259, u'y'));
  EXPECT_EQ(info.hasHelp, 0) << "a reference alone is no help that opens by itself";
}

TEST_F(UtilitiesTest, ADescriptionIsFoundByFileAndNumber) {
  cnc.Description(u"C:\\P18\\plc.txt", 7, u"Close the door.");
  Text text = u"preset";
  EXPECT_FALSE(util.desc_to_txt(8, text, u"C:\\P18\\plc.txt"));
  EXPECT_FALSE(util.desc_to_txt(7, text, u"C:\\P18\\other.txt"));
  EXPECT_EQ(text, u"preset");
  EXPECT_TRUE(util.desc_to_txt(7, text, u"C:\\P18\\plc.txt"));
  EXPECT_EQ(text, u"Close the door.");
}

TEST_F(UtilitiesTest, ABlockHasTheMarkThatWasGivenToItsExactText) {
  cnc.BlockMark(u"G81 Z-5", u"G81");
  Text mark = u"OPT0130";
  EXPECT_NE(util.Util7340_MarcaHelpAsignadaABloque(u"G81", mark), 0);
  EXPECT_NE(util.Util7340_MarcaHelpAsignadaABloque(u"g81 z-5", mark), 0);
  EXPECT_EQ(mark, u"OPT0130");
  EXPECT_EQ(util.Util7340_MarcaHelpAsignadaABloque(u"G81 Z-5", mark), 0);
  EXPECT_EQ(mark, u"G81");
  EXPECT_THAT(sink.Take(), ElementsAre("Util7340_MarcaHelpAsignadaABloque(\"G81\",nothing)=-1",
                                       "Util7340_MarcaHelpAsignadaABloque(\"g81 z-5\",nothing)=-1",
                                       "Util7340_MarcaHelpAsignadaABloque(\"G81 Z-5\",\"G81\")=0"));
}

TEST_F(UtilitiesTest, AMarkCanBeMadeToFail) {
  cnc.BlockMark(u"G81", u"G81");
  cnc.Returns("Util7340_MarcaHelpAsignadaABloque", {1});
  Text mark = u"OPT0130";
  EXPECT_EQ(util.Util7340_MarcaHelpAsignadaABloque(u"G81", mark), 1);
  EXPECT_EQ(mark, u"OPT0130");
}

TEST_F(UtilitiesTest, TheClipboardIsTheWindowSystems) {
  util.UTIL7340_CopyToClipboard_Text(3, u"G1 F200");
  EXPECT_EQ(windows.clipboard, u"G1 F200");
  EXPECT_THAT(sink.Take(), ElementsAre("UTIL7340_CopyToClipboard_Text(3,\"G1 F200\")=nothing"));
}

TEST_F(UtilitiesTest, StartAnswersAndSetOnes) {
  EXPECT_EQ(util.UTIL7340_DriveStatus(1), 1);
  EXPECT_TRUE(util.UTIL7340_AreSoftkeyMetricsStandard());
  EXPECT_FALSE(util.UTIL7340_Is7335());
  cnc.Returns("UTIL7340_DriveStatus", {-1, 0});
  cnc.Returns("UTIL7340_AreSoftkeyMetricsStandard", {0});
  cnc.Returns("UTIL7340_Is7335", {1});
  EXPECT_EQ(util.UTIL7340_DriveStatus(1), -1);
  EXPECT_EQ(util.UTIL7340_DriveStatus(1), 0);
  EXPECT_EQ(util.UTIL7340_DriveStatus(0), 2) << "only the users' drive is there";
  EXPECT_EQ(util.UTIL7340_DriveStatus(2), 2);
  EXPECT_FALSE(util.UTIL7340_AreSoftkeyMetricsStandard());
  EXPECT_TRUE(util.UTIL7340_Is7335());
  EXPECT_THAT(sink.lines, IsEmpty());
}

TEST_F(UtilitiesTest, ThePanelsRectangleIsTheWindowSystems) {
  windows.panelRect = {10, 20, 1034, 788};
  EXPECT_EQ(util.UTIL7340_GetCNCRect(), (Rect{10, 20, 1034, 788}));
}

TEST_F(UtilitiesTest, HeightsFollowThePanelsHeight) {
  struct Row {
    int panel;
    int height;
    int fitted;
    int font;
  };
  const Row rows[] = {
      {600, 17, 17, 17},
      {1200, 14, 28, 28},
      {768, 14, 18, 18},
      {1080, 18, 32, 32},
      {768, -14, -18, -18},
      {1000, 300, 500, 500},
      {600, 0, 0, 0},
      {0, 17, 17, 17},
      {-5, 17, 17, 17},
      // A font never becomes smaller than it is meant to be,
      {300, 16, 8, 16},
      {300, -20, -10, -20},
      {1, 30, 0, 30},
      // or than can be read.
      {600, 14, 14, 15},
      {300, 1, 1, 15},
      {600, -12, -12, -13},
      {300, -2, -1, -13},
  };
  for (const Row& row : rows) {
    windows.panelRect = {0, 0, 800, row.panel};
    EXPECT_EQ(util.UTIL7340_FitFontSize(row.height), row.font) << row.panel << " " << row.height;
    EXPECT_EQ(util.UTIL7340_FitHeight(row.height), row.fitted) << row.panel << " " << row.height;
  }
  cnc.Returns("UTIL7340_FitFontSize", {30});
  EXPECT_EQ(util.UTIL7340_FitFontSize(18), 30);
  cnc.Returns("UTIL7340_FitFontSize", {3});
  EXPECT_EQ(util.UTIL7340_FitFontSize(18), 3) << "what a script sets is answered as it is";
}

TEST_F(UtilitiesTest, PathsComeFromTheStorage) {
  EXPECT_EQ(util.Get7340Path(path_id::kSetup), u"C:\\P52");
  cnc.Storage().SetPath(52, u"D:\\Setup\\");
  EXPECT_EQ(util.Get7340Path(52), u"D:\\Setup");
  EXPECT_EQ(util.Get7340Path(53), u"");
}

}  // namespace
}  // namespace pnl::sim
