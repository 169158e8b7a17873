// SPDX-License-Identifier: MIT
// Marks, the helps file and the marks files, on a disc in memory: where they are looked for, which page a mark leads
// to, which message boxes come up on the way, and what odd files lead to.
#include "help/help_marks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FamilyUtilities final : public FakeUtilities {
 public:
  bool UTIL7340_Is7335() override { return is7335; }
  bool is7335 = false;
};

class HelpMarks : public testing::Test {
 protected:
  ResolvedPage Resolve(TextView mark) {
    boxes.clear();
    return ResolveManualPage(
        disc(), mark, [this](TextView title, TextView text) { boxes.push_back(ToUtf8(title) + ": " + ToUtf8(text)); });
  }
  HelpDisc disc() { return {files, utilities}; }
  void Helps(const std::string& rows) { files.disc["C:\\P113\\Cnc7340.helps"] = "[MANUALS]\r\n" + rows; }
  void Marks(const std::string& rows) { files.disc["C:\\P113\\oper.mrk"] = "[MARKS]\r\n" + rows; }
  ManualNames List() { return ListManuals(FindHelpsFile(disc()), files, true); }

  MemoryFiles files;
  FamilyUtilities utilities;
  std::vector<std::string> boxes;
};

std::string NoManual(const std::string& file) {
  return file +
         ": EL FORMATO DE LA MARCA DE AYUDA SOLICITADA NO SE CORRESPONDE CON NINGUNA\n DE LAS AYUDAS DISPONIBLES "
         "ACTUALMENTE EN EL SISTEMA.\n MODIFIQUE EL FICHERO \"" +
         file + ".\"";
}
std::string NoMark(const std::string& mark) {
  return "Cnc7340.helps: La marca " + mark + " ha sido eliminada o aún no se ha implementado";
}

// Probing.

TEST_F(HelpMarks, ANameIsLookedForInTheFolderOfTheLanguageAndThenInTheFallbackFolder) {
  struct Row {
    bool language;
    bool fallback;
    int code;
    TextView folder;
  };
  for (const Row& row : {Row{true, true, 0, u"C:\\P113"}, Row{true, false, 0, u"C:\\P113"},
                         Row{false, true, 0, u"C:\\P18"}, Row{false, false, 2, u"C:\\P18"}}) {
    files.disc.clear();
    if (row.language) files.disc["C:\\P113\\A.B"] = "x";
    if (row.fallback) files.disc["C:\\P18\\A.B"] = "x";
    const HelpProbe probe = ProbeHelp(disc(), u"A.B");
    EXPECT_EQ(probe.code, row.code);
    EXPECT_EQ(probe.folder, row.folder);
  }
}

TEST_F(HelpMarks, AnAbsentNameIsACodeOfItsOwn) {
  EXPECT_EQ(ProbeHelp(disc(), u"").code, 87);
  EXPECT_EQ(ProbeHelp(disc(), u"").folder, u"");
}

TEST_F(HelpMarks, TheHelpsFileDependsOnTheFamilyOfTheSystem) {
  struct Row {
    bool is7335;
    const char* cncIn;     // the folder that has CNC.helps
    const char* othersIn;  // that of Cnc7340.helps
    TextView name;
    TextView folder;
  };
  for (const Row& row : {
           Row{false, "P113", "P113", u"Cnc7340.helps", u"C:\\P113"},
           Row{false, "P113", "P18", u"Cnc7340.helps", u"C:\\P18"},
           // The name is the same whatever the probe says.
           Row{false, "P113", nullptr, u"Cnc7340.helps", u"C:\\P18"},
           Row{true, "P113", "P113", u"CNC.helps", u"C:\\P113"},
           Row{true, "P18", "P113", u"CNC.helps", u"C:\\P18"},
           Row{true, nullptr, "P113", u"Cnc7340.helps", u"C:\\P113"},
           Row{true, nullptr, "P18", u"Cnc7340.helps", u"C:\\P18"},
           Row{true, nullptr, nullptr, u"CNC.helps", u"C:\\P18"},
       }) {
    files.disc.clear();
    utilities.is7335 = row.is7335;
    if (row.cncIn != nullptr) files.disc[std::string("C:\\") + row.cncIn + "\\CNC.helps"] = "x";
    if (row.othersIn != nullptr) files.disc[std::string("C:\\") + row.othersIn + "\\Cnc7340.helps"] = "x";
    const HelpsFile helps = FindHelpsFile(disc());
    EXPECT_EQ(helps.code, 0);
    EXPECT_EQ(helps.name, row.name);
    EXPECT_EQ(helps.folder, row.folder);
  }
}

// Resolving.

TEST_F(HelpMarks, AMarkLeadsToItsPageWithItselfAsTheAnchor) {
  Helps("OPT=oper.chm\r\n");
  Marks("OPT0130=mdi.htm\r\nOPT0000=home.htm\r\n");
  const ResolvedPage resolved = Resolve(u"OPT0130");
  EXPECT_EQ(resolved.result, HelpResolution::kFound);
  EXPECT_EQ(resolved.page.manual, u"C:\\P113\\oper.chm");
  EXPECT_EQ(resolved.page.page, u"mdi.htm");
  EXPECT_EQ(resolved.page.mark, u"OPT0130");
  EXPECT_FALSE(resolved.page.fallback);
  EXPECT_EQ(resolved.page.Topic(), u"mdi.htm#OPT0130");
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(HelpMarks, AnEmptyMarkFailsWithoutAMessage) {
  Helps("OPT=oper.chm\r\n=x.chm\r\n");
  EXPECT_EQ(Resolve(u"").result, HelpResolution::kEmptyMark);
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(HelpMarks, AMarkOfNoManualFailsWithAMessage) {
  Helps("OPT=oper.chm\r\n");
  EXPECT_EQ(Resolve(u"XYZ1").result, HelpResolution::kNoManual);
  EXPECT_THAT(boxes, ElementsAre(NoManual("Cnc7340.helps")));
}

TEST_F(HelpMarks, WithoutAHelpsFileEveryMarkIsOfNoManual) {
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kNoManual);
  EXPECT_THAT(boxes, ElementsAre(NoManual("Cnc7340.helps")));
}

TEST_F(HelpMarks, TheMessageNamesTheHelpsFileOfTheFamily) {
  utilities.is7335 = true;
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kNoManual);
  EXPECT_THAT(boxes, ElementsAre(NoManual("CNC.helps")));
}

// The box is deliberate, although help opens after it.
TEST_F(HelpMarks, AMarkWithoutAPageCostsOneMessageAndLeadsToTheFallbackPage) {
  Helps("OPT=oper.chm\r\n");
  Marks("OPT0000=home.htm\r\n");
  const ResolvedPage resolved = Resolve(u"OPT0130");
  EXPECT_EQ(resolved.result, HelpResolution::kFound);
  EXPECT_EQ(resolved.page.page, u"home.htm");
  EXPECT_EQ(resolved.page.mark, u"OPT0000");
  EXPECT_TRUE(resolved.page.fallback);
  EXPECT_EQ(resolved.page.Topic(), u"home.htm#OPT0000");
  EXPECT_THAT(boxes, ElementsAre(NoMark("OPT0130")));
}

TEST_F(HelpMarks, WithoutAFallbackPageTwoMessagesAreShownAndItFails) {
  Helps("OPT=oper.chm\r\n");
  Marks("OPT0001=home.htm\r\n");
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kNoPage);
  EXPECT_THAT(boxes, ElementsAre(NoMark("OPT0130"), NoMark("OPT0000")));
}

TEST_F(HelpMarks, AFallbackMarkWithoutAPageCostsTwoMessages) {
  Helps("OPT=oper.chm\r\n");
  EXPECT_EQ(Resolve(u"OPT0000").result, HelpResolution::kNoPage);
  EXPECT_THAT(boxes, ElementsAre(NoMark("OPT0000"), NoMark("OPT0000")));
}

TEST_F(HelpMarks, AShortMarkIsItsOwnKey) {
  Helps("OP=oper.chm\r\nO=oper.chm\r\nOPT=oper.chm\r\n");
  Marks("OP=short.htm\r\nO0000=shorter.htm\r\nOPT=three.htm\r\n");
  EXPECT_EQ(Resolve(u"OP").page.Topic(), u"short.htm#OP");
  EXPECT_EQ(Resolve(u"O").page.Topic(), u"shorter.htm#O0000");
  EXPECT_THAT(boxes, ElementsAre(NoMark("O")));
  EXPECT_EQ(Resolve(u"OPT").page.Topic(), u"three.htm#OPT");
}

TEST_F(HelpMarks, AManualThatIsMissingStillResolves) {
  Helps("OPT=oper.chm\r\n");
  Marks("OPT0130=mdi.htm\r\n");
  ASSERT_FALSE(files.Query(u"C:\\P113\\oper.chm").exists);
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kFound);
}

TEST_F(HelpMarks, TheMarksAreReadBesideTheManualInTheFolderOfTheHelpsFile) {
  files.disc["C:\\P18\\Cnc7340.helps"] = "[MANUALS]\r\nOPT=oper.chm\r\n";
  files.disc["C:\\P18\\oper.mrk"] = "[MARKS]\r\nOPT0130=fallback.htm\r\n";
  Marks("OPT0130=language.htm\r\n");
  EXPECT_EQ(Resolve(u"OPT0130").page.Topic(), u"fallback.htm#OPT0130");
  EXPECT_EQ(Resolve(u"OPT0130").page.manual, u"C:\\P18\\oper.chm");
}

// Odd files.

TEST_F(HelpMarks, AnEntryThatIsntListedResolvesAllTheSame) {
  Helps("OPT=DEFAULT\r\n");
  // The last four characters of the name go, although they are no extension.
  files.disc["C:\\P113\\DEF.mrk"] = "[MARKS]\r\nOPT0130=mdi.htm\r\n";
  EXPECT_EQ(Resolve(u"OPT0130").page.manual, u"C:\\P113\\DEFAULT");
  EXPECT_EQ(Resolve(u"OPT0130").page.Topic(), u"mdi.htm#OPT0130");
}

TEST_F(HelpMarks, TheMarksFileOfANameWithoutAnExtensionTakesFourCharactersOffThePath) {
  struct Row {
    const char* value;
    const char* marks;
  };
  for (const Row& row : {Row{"OPERATING", "C:\\P113\\OPERA.mrk"}, Row{"AB", "C:\\P11.mrk"},
                         Row{"ABCD", "C:\\P113\\.mrk"}, Row{"", "C:\\P.mrk"}, Row{"a.html", "C:\\P113\\a..mrk"}}) {
    files.disc.clear();
    Helps(std::string("OPT=") + row.value + "\r\n");
    files.disc[row.marks] = "[MARKS]\r\nOPT0130=found.htm\r\n";
    EXPECT_EQ(Resolve(u"OPT0130").page.page, u"found.htm") << row.value;
  }
}

TEST_F(HelpMarks, APathShorterThanFourCharactersLosesThemAll) {
  class RootUtilities final : public FakeUtilities {
   public:
    Text Get7340Path(int) override { return u"C:"; }
  } root;
  files.disc["C:\\Cnc7340.helps"] = "[MANUALS]\r\nOPT=\r\n";
  files.disc["C:\\.mrk"] = "[MARKS]\r\nOPT0130=wrong.htm\r\n";
  EXPECT_EQ(ResolveManualPage({files, root}, u"OPT0130", [](TextView, TextView) {}).result, HelpResolution::kNoPage);
}

TEST_F(HelpMarks, OfAKeyThatOccursTwiceTheFirstCounts) {
  Helps("OPT=oper.chm\r\nOPT=second.chm\r\n");
  Marks("OPT0130=first.htm\r\nOPT0130=second.htm\r\n");
  EXPECT_EQ(Resolve(u"OPT0130").page.manual, u"C:\\P113\\oper.chm");
  EXPECT_EQ(Resolve(u"OPT0130").page.page, u"first.htm");
}

TEST_F(HelpMarks, KeysCompareWithoutRegardToCase) {
  Helps("opt=oper.chm\r\n");
  Marks("opt0130=mdi.htm\r\n");
  EXPECT_EQ(Resolve(u"OPT0130").page.Topic(), u"mdi.htm#OPT0130");
  EXPECT_EQ(Resolve(u"Opt0130").page.Topic(), u"mdi.htm#Opt0130");
}

TEST_F(HelpMarks, WithoutItsSectionAFileHasNoKeys) {
  files.disc["C:\\P113\\Cnc7340.helps"] = "OPT=oper.chm\r\n[OTHER]\r\nOPT=oper.chm\r\n";
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kNoManual);
  Helps("OPT=oper.chm\r\n");
  files.disc["C:\\P113\\oper.mrk"] = "OPT0130=mdi.htm\r\n[MARK]\r\nOPT0130=mdi.htm\r\n";
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kNoPage);
}

// An absent key reads as this word, so a key with this value looks absent.
TEST_F(HelpMarks, AValueThatReadsFailedCountsAsAbsent) {
  Helps("OPT=FAILED\r\nPRG=failed\r\n");
  files.disc["C:\\P113\\fa.mrk"] = "[MARKS]\r\nPRG1=FAILED\r\nPRG0000=Failed\r\n";
  EXPECT_EQ(Resolve(u"OPT0130").result, HelpResolution::kNoManual);
  EXPECT_EQ(Resolve(u"PRG1").page.Topic(), u"Failed#PRG0000");
}

TEST_F(HelpMarks, AMarkMayHaveAnyForm) {
  Helps("%s%=oper.chm\r\n");
  Marks("%s%n=odd.htm\r\n");
  EXPECT_EQ(Resolve(u"%s%n").page.Topic(), u"odd.htm#%s%n");
  EXPECT_EQ(Resolve(u"=[;").result, HelpResolution::kNoManual);
}

// The list of manuals.

TEST_F(HelpMarks, TheListHasTheManualsInTheOrderOfTheFile) {
  Helps(
      "PRG=prog.chm\r\nOPT=oper.chm\r\nERR=DEFAULT\r\nPLC=default\r\nCYC=\r\nJOG\r\nPRG=again.chm\r\nTBL=oper.chm\r\n");
  const ManualNames manuals = List();
  EXPECT_EQ(manuals.code, 0);
  EXPECT_THAT(manuals.names, ElementsAre(u"prog.chm", u"oper.chm", u"default", u"oper.chm"));
}

TEST_F(HelpMarks, TheListHasACodeForEachFailure) {
  Helps("OPT=oper.chm\r\n");
  HelpsFile helps = FindHelpsFile(disc());
  EXPECT_EQ(ListManuals(helps, files, true).code, 0);
  EXPECT_EQ(ListManuals(helps, files, false).code, 1627);
  helps.code = 5;
  EXPECT_EQ(ListManuals(helps, files, true).code, 3);
  // Without a list box nothing else is looked at.
  EXPECT_EQ(ListManuals(helps, files, false).code, 1627);
  files.unreadable.insert("C:\\P113\\Cnc7340.helps");
  EXPECT_EQ(List().code, 4306);
  files.unreadable.clear();
  Helps("");
  EXPECT_EQ(List().code, 1);
  files.disc.clear();
  EXPECT_EQ(List().code, 4306);
  EXPECT_THAT(List().names, IsEmpty());
}

TEST_F(HelpMarks, WithKeysThatNameNoManualTheListIsEmptyAndDone) {
  Helps("OPT=DEFAULT\r\n");
  EXPECT_EQ(List().code, 0);
  EXPECT_THAT(List().names, IsEmpty());
}

/// count keys of three characters.
std::string ThreeLetterKeys(int count) {
  std::string rows;
  for (int i = 0; i < count; ++i) {
    const char key[] = {static_cast<char>('A' + i / 676), static_cast<char>('A' + i / 26 % 26),
                        static_cast<char>('A' + i % 26), '\0'};
    rows += std::string(key) + "=" + std::to_string(i) + ".chm\r\n";
  }
  return rows;
}

// 8,192 characters: each key with its end, and the end of the list.
TEST_F(HelpMarks, KeysBeyondTheBufferArentListed) {
  Helps(ThreeLetterKeys(2047) + "AB=short.chm\r\n");
  EXPECT_EQ(List().names.size(), 2048u) << "2047 times four, and three, and one";
  EXPECT_EQ(List().names.back(), u"short.chm");
  Helps(ThreeLetterKeys(2048));
  EXPECT_EQ(List().names.size(), 2047u);
  Helps(ThreeLetterKeys(5000));
  EXPECT_EQ(List().names.size(), 2047u);
  EXPECT_EQ(List().names.back(), u"2046.chm");
  // They resolve all the same.
  files.disc["C:\\P113\\4999.mrk"] = "[MARKS]\r\nHKH1=far.htm\r\n";
  EXPECT_EQ(Resolve(u"HKH1").page.Topic(), u"far.htm#HKH1");
}

TEST_F(HelpMarks, AKeyLongerThanTheBufferIsNoKey) {
  Helps(std::string(8191, 'K') + "=long.chm\r\nOPT=oper.chm\r\n");
  EXPECT_EQ(List().code, 1);
  Helps(std::string(8190, 'K') + "=long.chm\r\nOPT=oper.chm\r\n");
  EXPECT_THAT(List().names, ElementsAre(u"long.chm"));
}

}  // namespace
}  // namespace pnl::test
