// SPDX-License-Identifier: MIT
#include "base/ini_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>

#include "base/format.h"
#include "support/failing_files.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

class IniFileTest : public testing::Test {
 protected:
  IniFileTest() { drives.Set('C', temp.Path().string()); }
  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
  CIniFile ini{files};
};

struct SyntaxRow {
  const char* line;  // within section S
  TextView key;
  TextView value;  // "absent" where there is none
};

TEST_F(IniFileTest, ALineIsAKeyAndItsValue) {
  const SyntaxRow rows[] = {
      {"key=value", u"key", u"value"},     {"KeY=Value", u"kEy", u"Value"}, {"key =  a b\t", u"key", u"a b"},
      {"  key=x", u"key", u"x"},           {"key=", u"key", u""},           {"key=a=b", u"key", u"a=b"},
      {"key=\"a b\"", u"key", u"\"a b\""}, {"key=a ; b", u"key", u"a ; b"}, {"a key=x", u"a key", u"x"},
      {"#key=x", u"#key", u"x"},           {"\xC3\x91u=x", u"ñU", u"x"},    {";key=x", u"key", u"absent"},
      {" ;key=x", u";key", u"absent"},     {"key", u"key", u"absent"},      {"=x", u"", u"absent"},
      {"[key=x", u"[key", u"absent"},
  };
  for (const SyntaxRow& row : rows) {
    ini.Parse(std::string("[S]\n") + row.line + "\n");
    EXPECT_EQ(ini.ReadString(u"s", row.key, u"absent"), row.value) << row.line;
  }
}

TEST_F(IniFileTest, ASectionsLineIsItsNameInBrackets) {
  ini.Parse("k=0\n[One]\nk=1\n [ t w o ] ; note\nk=2\n[]\nn=3\n[open\nk=5\n[a]b]\nk=6");
  EXPECT_EQ(ini.ReadString(u"", u"k", u""), u"0");
  EXPECT_EQ(ini.ReadString(u"ONE", u"k", u""), u"1");
  EXPECT_EQ(ini.ReadString(u"T W O", u"k", u""), u"2");
  EXPECT_EQ(ini.ReadString(u"", u"n", u""), u"3");
  EXPECT_EQ(ini.ReadString(u"open", u"k", u"absent"), u"absent");
  EXPECT_EQ(ini.ReadString(u"a", u"k", u""), u"6");
}

TEST_F(IniFileTest, LinesEndAtLfCrLfOrALoneCr) {
  ini.Parse("[S]\ra=1\r\nb=2\nc=3\r\rd=4");
  EXPECT_EQ(ini.GetKeyNames(u"S"), (std::vector<Text>{u"a", u"b", u"c", u"d"}));
  EXPECT_EQ(ini.Serialize(), "[S]\r\na=1\r\nb=2\r\nc=3\r\n\r\nd=4\r\n");
}

TEST_F(IniFileTest, SectionsAreListedOnceInTheirOrder) {
  ini.Parse("k=0\n[b]\n[A x]\nk=1\n[B]\nk=2\n[]\n[ c ]\n[a X]\n");
  EXPECT_EQ(ini.GetSectionNames(), (std::vector<Text>{u"b", u"A x", u"c"}));
  ini.WriteString(u"new", u"k", u"1");
  EXPECT_EQ(ini.GetSectionNames().back(), u"new");
  ini.CloseIniFile();
  EXPECT_TRUE(ini.GetSectionNames().empty());
}

TEST_F(IniFileTest, WhatItDoesntKnowComesBackAsItWas) {
  const std::string text =
      "; panel settings\r\n\r\nstray\r\n[PRIVATE]\r\n ; note\r\nNItems = 10 \r\nUnknown=\"x\"\r\n\r\n\r\n[Other]\r\n"
      "=nothing\r\n[broken\r\nz=1\r\n";
  ini.Parse(text);
  EXPECT_EQ(ini.Serialize(), text);
  ini.WriteInt(u"private", u"nitems", 25);
  const std::size_t value = text.find("10 ");
  EXPECT_EQ(ini.Serialize(), text.substr(0, value) + "25" + text.substr(value + 3));
}

TEST_F(IniFileTest, ANewKeyGoesBehindTheLastOneOfItsSection) {
  ini.Parse("[A]\nx=1\n\n; about B\n[B]\ny=2\n");
  ini.WriteString(u"A", u"New", u"n");
  ini.WriteString(u"b", u"z", u"3");
  EXPECT_EQ(ini.Serialize(), "[A]\r\nx=1\r\nNew=n\r\n\r\n; about B\r\n[B]\r\ny=2\r\nz=3\r\n");
}

TEST_F(IniFileTest, ANewSectionIsPartedByABlankLine) {
  ini.WriteString(u"One", u"a", u"1");
  ini.WriteString(u"Two", u"b", u"2");
  ini.WriteString(u"one", u"c", u"3");
  EXPECT_EQ(ini.Serialize(), "[One]\r\na=1\r\nc=3\r\n\r\n[Two]\r\nb=2\r\n");
  ini.Parse("[One]\na=1\n\n");
  ini.WriteString(u"Two", u"b", u"2");
  EXPECT_EQ(ini.Serialize(), "[One]\r\na=1\r\n\r\n[Two]\r\nb=2\r\n");
  ini.Parse("; only a note\n");
  ini.WriteString(u"Two", u"b", u"2");
  EXPECT_EQ(ini.Serialize(), "; only a note\r\n\r\n[Two]\r\nb=2\r\n");
  ini.Parse("[Empty]\n");
  ini.WriteString(u"Two", u"b", u"2");
  EXPECT_EQ(ini.Serialize(), "[Empty]\r\n\r\n[Two]\r\nb=2\r\n");
}

TEST_F(IniFileTest, KeysOutsideSectionsStandBeforeTheFirst) {
  ini.Parse("[A]\nx=1\n");
  ini.WriteString(u"", u"k", u"0");
  EXPECT_EQ(ini.Serialize(), "k=0\r\n[A]\r\nx=1\r\n");
  EXPECT_EQ(ini.ReadString(u"", u"k", u""), u"0");
}

TEST_F(IniFileTest, OfAKeyThatStandsTwiceTheFirstCounts) {
  ini.Parse("[A]\nk=1\nK=2\n[B]\n[a]\nk=3\nm=4\n");
  EXPECT_EQ(ini.ReadString(u"A", u"k", u""), u"1");
  EXPECT_EQ(ini.ReadString(u"A", u"m", u""), u"4");
  EXPECT_EQ(ini.GetKeyNames(u"A"), (std::vector<Text>{u"k", u"m"}));
  ini.WriteString(u"A", u"k", u"9");
  EXPECT_EQ(ini.Serialize(), "[A]\r\nk=9\r\nK=2\r\n[B]\r\n[a]\r\nk=3\r\nm=4\r\n");
  ini.DeleteKey(u"a", u"K");
  EXPECT_EQ(ini.Serialize(), "[A]\r\n[B]\r\n[a]\r\nm=4\r\n");
  EXPECT_EQ(ini.ReadString(u"A", u"k", u"absent"), u"absent");
}

TEST_F(IniFileTest, ADeletedKeyCanBeWrittenAgain) {
  ini.Parse("[A]\na=1\nb=2\nc=3\n");
  ini.DeleteKey(u"A", u"b");
  ini.DeleteKey(u"A", u"none");
  ini.DeleteKey(u"None", u"b");
  EXPECT_EQ(ini.GetKeyNames(u"A"), (std::vector<Text>{u"a", u"c"}));
  ini.WriteString(u"A", u"b", u"4");
  EXPECT_EQ(ini.Serialize(), "[A]\r\na=1\r\nc=3\r\nb=4\r\n");
  ini.DeleteKey(u"A", u"c");
  ini.DeleteKey(u"A", u"b");
  ini.DeleteKey(u"A", u"a");
  EXPECT_TRUE(ini.GetKeyNames(u"A").empty());
  ini.WriteString(u"B", u"b", u"5");
  EXPECT_EQ(ini.Serialize(), "[A]\r\n\r\n[B]\r\nb=5\r\n");
}

TEST_F(IniFileTest, IntegersAreReadFromTheValuesStart) {
  ini.Parse("[S]\na= -12 mm\nb=abc\nc=\nd=99999999999\n");
  EXPECT_EQ(ini.ReadInt(u"S", u"a", -1), -12);
  EXPECT_EQ(ini.ReadInt(u"S", u"b", -1), 0);
  EXPECT_EQ(ini.ReadInt(u"S", u"c", -1), 0);
  EXPECT_EQ(ini.ReadInt(u"S", u"d", -1), 2147483647);
  EXPECT_EQ(ini.ReadInt(u"S", u"absent", -1), -1);
}

TEST_F(IniFileTest, RealsComeBackAsTheyWereWritten) {
  for (const double value : {0.0, 0.1, -1.5e-300, 1e22, 123456.789, 5e-324}) {
    ini.WriteDouble(u"S", u"k", value);
    EXPECT_EQ(ini.ReadDouble(u"S", u"k", -1), value);
  }
  ini.Parse("[S]\na=1.5 mm\nb=x\n");
  EXPECT_EQ(ini.ReadDouble(u"S", u"a", -1), 1.5);
  EXPECT_EQ(ini.ReadDouble(u"S", u"b", -1), 0);
  EXPECT_EQ(ini.ReadDouble(u"S", u"absent", -1.5), -1.5);
}

TEST_F(IniFileTest, OnlyOneAndYesAreTrue) {
  const struct {
    TextView value;
    bool result;
  } rows[] = {{u"YES", true},   {u"yes", true},    {u"1", true},     {u"NO", false},  {u"0", false},
              {u"TRUE", false}, {u"true", false},  {u"ON", false},   {u"", false},    {u"2", false},
              {u"01", false},   {u"FALSE", false}, {u" YES ", true}, {u"YES!", false}};
  for (const auto& row : rows) {
    ini.WriteString(u"S", u"k", row.value);
    EXPECT_EQ(ini.ReadBool(u"S", u"k", !row.result), row.result) << ToUtf8(row.value);
  }
  EXPECT_TRUE(ini.ReadBool(u"S", u"absent", true));
  EXPECT_FALSE(ini.ReadBool(u"S", u"absent", false));
  ini.WriteBool(u"S", u"k", true);
  EXPECT_EQ(ini.ReadString(u"S", u"k", u""), u"YES");
  ini.WriteBool(u"S", u"k", false);
  EXPECT_EQ(ini.ReadString(u"S", u"k", u""), u"NO");
}

TEST_F(IniFileTest, AValueIsKeptAsAReaderOfTheFileFindsIt) {
  ini.WriteString(u" S ", u" k ", u"  a\r\nb\t");
  EXPECT_EQ(ini.ReadString(u"S", u"k", u""), u"a  b");
  EXPECT_EQ(ini.Serialize(), "[S]\r\nk=a  b\r\n");
  EXPECT_EQ(ini.ReadString(u" s\t", u" K ", u""), u"a  b") << "whoever asks may write the names so, too";
  EXPECT_EQ(ini.GetKeyNames(u" S "), std::vector<Text>{u"k"});
  ini.DeleteKey(u" S ", u" k ");
  EXPECT_EQ(ini.Serialize(), "[S]\r\n");
}

TEST_F(IniFileTest, AValueTakesThePlaceOfAnEmptyOneRightAfterTheSign) {
  ini.Parse("[S]\r\na=\r\n b =  \r\n");
  ini.WriteString(u"S", u"a", u"1");
  ini.WriteString(u"S", u"b", u"2");
  EXPECT_EQ(ini.Serialize(), "[S]\r\na=1\r\n b =2\r\n");
}

TEST_F(IniFileTest, BlankLinesAtTheEndNeedNoFurtherOne) {
  for (const char* end : {"\r\n", "\r\n\r\n", "; note\r\n\r\n"}) {
    ini.Parse(std::string("[One]\r\na=1\r\n") + end);
    ini.WriteString(u"Two", u"b", u"2");
    EXPECT_EQ(ini.Serialize(), std::string("[One]\r\na=1\r\n") + end + "[Two]\r\nb=2\r\n") << end;
  }
  ini.Parse("[One]\r\na=1\r\n\r\n; note\r\n");
  ini.WriteString(u"Two", u"b", u"2");
  EXPECT_EQ(ini.Serialize(), "[One]\r\na=1\r\n\r\n; note\r\n\r\n[Two]\r\nb=2\r\n");
}

TEST_F(IniFileTest, ANameThatNoLineCanHoldIsLeftOut) {
  for (const TextView key : {u"", u" ", u"a=b", u"=", u";a", u"[a"}) ini.WriteString(u"S", key, u"x");
  ini.WriteString(u"S]", u"k", u"x");
  EXPECT_EQ(ini.Serialize(), "");
}

TEST_F(IniFileTest, AReferenceStaysValidWhileOtherKeysAreRead) {
  ini.Parse("[S]\na=first\nb=second\n");
  const Text& a = ini.ReadString(u"S", u"a", u"FAIL");
  const Text& absent = ini.ReadString(u"S", u"none", u"FAIL");
  const Text& b = ini.ReadString(u"S", u"b", u"FAIL");
  static_cast<void>(ini.ReadString(u"S", u"none too", u"FAIL"));
  EXPECT_EQ(a, u"first");
  EXPECT_EQ(b, u"second");
  EXPECT_EQ(absent, u"FAIL");
}

TEST_F(IniFileTest, ACopyIsItsOwn) {
  ini.Parse("[S]\na=1\n");
  CIniFile copy = ini;
  copy.WriteInt(u"S", u"a", 2);
  EXPECT_EQ(ini.ReadInt(u"S", u"a", 0), 1);
  ini = copy;
  EXPECT_EQ(ini.ReadInt(u"S", u"a", 0), 2);
}

TEST_F(IniFileTest, AnyEncodingIsReadAndUtf8IsWritten) {
  const std::string utf8 = "[S]\r\nk=\xC3\xB1\r\n";
  const std::string utf16 = std::string("\xFF\xFE[\0S\0]\0\n\0k\0=\0\xF1\0", 16);
  for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, std::string("[S]\nk=\xF1"), utf16}) {
    temp.Write("a.ini", bytes);
    ASSERT_TRUE(ini.ReadIniFile(u"C:\\a.ini"));
    EXPECT_EQ(ini.ReadString(u"S", u"k", u""), u"ñ");
    EXPECT_TRUE(ini.WriteIniFile(u"C:\\a.ini"));
    EXPECT_EQ(temp.Read("a.ini"), utf8);
  }
}

TEST_F(IniFileTest, WritingToASecondPathLeavesTheFirstAsItWas) {
  temp.Write("a.ini", "[S]\nk=1\n");
  ASSERT_TRUE(ini.ReadIniFile(u"C:\\a.ini"));
  ini.WriteInt(u"S", u"k", 2);
  EXPECT_TRUE(ini.WriteIniFile(u"C:\\b.ini"));
  EXPECT_EQ(temp.Read("a.ini"), "[S]\nk=1\n");
  EXPECT_EQ(temp.Read("b.ini"), "[S]\r\nk=2\r\n");
}

TEST_F(IniFileTest, AMissingFileLeavesItEmptyAndIsMadeOnWriting) {
  ini.Parse("[S]\nk=1\n");
  EXPECT_FALSE(ini.ReadIniFile(u"C:\\none.ini"));
  EXPECT_EQ(ini.ReadInt(u"S", u"k", 7), 7);
  EXPECT_EQ(ini.Serialize(), "");
  ini.WriteInt(u"S", u"k", 2);
  EXPECT_TRUE(ini.WriteIniFile(u"C:\\none.ini"));
  EXPECT_EQ(temp.Read("none.ini"), "[S]\r\nk=2\r\n");
}

TEST_F(IniFileTest, AFileThatCouldntBeReadIsntWrittenOver) {
  // The settings that could not be read would be lost to the defaults.
  temp.Write("a.ini", "[S]\nk=1\n");
  chmod((temp.Path() / "a.ini").c_str(), 0200);
  EXPECT_FALSE(ini.ReadIniFile(u"C:\\a.ini"));
  EXPECT_FALSE(ini.WriteIniFile(u"C:\\A.INI"));
  EXPECT_TRUE(ini.WriteIniFile(u"C:\\b.ini"));
  chmod((temp.Path() / "a.ini").c_str(), 0600);
  EXPECT_EQ(temp.Read("a.ini"), "[S]\nk=1\n");
  EXPECT_TRUE(ini.ReadIniFile(u"C:\\a.ini"));
  EXPECT_TRUE(ini.WriteIniFile(u"C:\\a.ini"));

  test::FailingFiles broken(files);
  broken.FailReadsAfter(u"C:\\a.ini", 3);
  CIniFile other(broken);
  EXPECT_FALSE(other.ReadIniFile(u"C:\\a.ini"));
  EXPECT_FALSE(other.WriteIniFile(u"C:\\a.ini"));
}

TEST_F(IniFileTest, AFailedWriteLeavesTheFileOnTheDisc) {
  temp.Write("a.ini", "[S]\nk=1\n");
  test::FailingFiles full(files);
  CIniFile other(full);
  ASSERT_TRUE(other.ReadIniFile(u"C:\\a.ini"));
  other.WriteInt(u"S", u"k", 2);
  full.SetRoom(3);
  EXPECT_FALSE(other.WriteIniFile(u"C:\\a.ini"));
  EXPECT_EQ(temp.Read("a.ini"), "[S]\nk=1\n");
  EXPECT_EQ(other.ReadInt(u"S", u"k", 0), 2);
  EXPECT_FALSE(other.WriteIniFile(u"C:\\none\\a.ini"));
  EXPECT_FALSE(other.WriteIniFile(u"C:\\"));
}

TEST_F(IniFileTest, ATooLargeFileIsNeitherReadNorWrittenOver) {
  temp.Write("a.ini", "");
  std::filesystem::resize_file(temp.Path() / "a.ini", CIniFile::kMostBytes + 1);
  EXPECT_FALSE(ini.ReadIniFile(u"C:\\a.ini"));
  EXPECT_FALSE(ini.WriteIniFile(u"C:\\a.ini"));
}

TEST_F(IniFileTest, NulsAreOrdinaryCharacters) {
  const std::string text("[S\0]\r\na\0b=c\0d\r\n\0\r\n", 18);
  ini.Parse(text);
  EXPECT_EQ(ini.ReadString(TextView(u"s\0", 2), TextView(u"A\0B", 3), u""), TextView(u"c\0d", 3));
  EXPECT_EQ(ini.Serialize(), text);
}

TEST_F(IniFileTest, AMillionLinesAreReadAndFoundByName) {
  std::string text;
  for (int section = 0; section < 1000; ++section) {
    text.append("[S").append(std::to_string(section)).append("]\n");
    for (int key = 0; key < 250; ++key) text.append("key").append(std::to_string(key)).append("=v\n; note\n\n\n");
  }
  ini.Parse(text);
  for (int key = 0; key < 250; ++key) ini.WriteInt(u"s999", Format(u"KEY%d", key), key);
  for (int section = 0; section < 1000; ++section) {
    EXPECT_EQ(ini.ReadInt(Format(u"S%d", section), u"key249", -1), section == 999 ? 249 : 0);
  }
  EXPECT_EQ(ini.GetKeyNames(u"S7").size(), 250u);
}

TEST_F(IniFileTest, ManyLinesOfOneKeyAndManyPartsOfOneSectionAreQuick) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "[S]\nk=1\n";
  ini.Parse(text);
  EXPECT_EQ(ini.GetKeyNames(u"S"), std::vector<Text>{u"k"});
  ini.DeleteKey(u"S", u"k");
  EXPECT_TRUE(ini.GetKeyNames(u"S").empty());
}

TEST_F(IniFileTest, AMillionBlankLinesAreKept) {
  std::string text;
  for (int i = 0; i < 1'000'000; ++i) text += "\r\n";
  ini.Parse(text);
  EXPECT_EQ(ini.Serialize(), text);
}

TEST_F(IniFileTest, AMarkIsStoredOnlyInFrontOfALineThatBeginsWithOne) {
  const std::string mark = "\xEF\xBB\xBF";
  const struct {
    std::string bytes;
    std::string stored;
  } rows[] = {
      {"[S]\r\n", "[S]\r\n"},
      {mark + "[S]\r\n", "[S]\r\n"},
      {mark + mark + "a=b\r\n", mark + mark + "a=b\r\n"},
      {"[S]\r\n" + mark + "a=b\r\n", "[S]\r\n" + mark + "a=b\r\n"},
  };
  for (const auto& row : rows) {
    ini.Parse(row.bytes);
    EXPECT_EQ(ini.Serialize(), row.stored) << row.bytes;
  }
}

TEST_F(IniFileTest, WhatIsStoredIsReadBackTheSameForAnyBytes) {
  std::mt19937 random(4);
  const std::string letters("[]=;ab \t\r\n\0\xC3\xB1\xEF\xBB\xBF", 16);
  for (int round = 0; round < 5000; ++round) {
    std::string bytes(random() % 40, ' ');
    for (char& c : bytes) c = letters[random() % letters.size()];
    ini.Parse(bytes);
    if (round % 2 != 0) ini.WriteString(u"a", u"b", u"a=[b]");
    const std::string stored = ini.Serialize();
    CIniFile again(files);
    again.Parse(stored);
    ASSERT_EQ(again.Serialize(), stored) << bytes;
    ASSERT_EQ(again.GetKeyNames(u"a"), ini.GetKeyNames(u"a"));
    for (const Text& key : ini.GetKeyNames(u"a")) {
      ASSERT_EQ(again.ReadString(u"a", key, u"?"), ini.ReadString(u"a", key, u"!"));
    }
  }
}

}  // namespace
}  // namespace pnl
