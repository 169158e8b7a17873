// SPDX-License-Identifier: MIT
#include "errors/error_settings.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"

namespace pnl::test {
namespace {

ErrorSettings Read(const std::string& ini) {
  MemoryFiles files;
  files.disc["C:\\E.INI"] = ini;
  return ReadErrorSettings(files, u"C:\\E.INI");
}

TEST(ErrorSettings, AMissingFileGivesTheDefaults) {
  MemoryFiles files;
  const ErrorSettings settings = ReadErrorSettings(files, u"C:\\E.INI");
  EXPECT_EQ(settings.flashPeriod, 500);
  EXPECT_EQ(settings.titleFont, (ErrorFont{u"Arial", 21, 400, false, false, false}));
  EXPECT_EQ(settings.textFont, (ErrorFont{u"Arial", 21, 400, false, false, false}));
  EXPECT_FALSE(settings.hideWarnings);
  EXPECT_FALSE(settings.hideErrors);
}

TEST(ErrorSettings, ReadsEveryKey) {
  const ErrorSettings settings = Read(
      "[PRIVATE]\r\nFlash=0\r\nFontTitle=Courier,30,700,1,1,1\r\nFontText=Courier,12,300\r\nHideWarnings=true\r\n");
  EXPECT_EQ(settings.flashPeriod, 0);
  EXPECT_EQ(settings.titleFont, (ErrorFont{u"Arial", 30, 700, true, true, true}));
  EXPECT_EQ(settings.textFont, (ErrorFont{u"Arial", 12, 300, false, false, false}));
  EXPECT_TRUE(settings.hideWarnings);
  EXPECT_FALSE(settings.hideErrors);
}

TEST(ErrorSettings, OnlyTrueHides) {
  for (const auto& [text, hides] :
       {std::pair("TRUE", true), {"True", true}, {"YES", false}, {"1", false}, {"FAIL", false}, {"", false}}) {
    const ErrorSettings settings = Read(std::string("[PRIVATE]\r\nHideWarnings=") + text + "\r\n");
    EXPECT_EQ(settings.hideWarnings, hides) << text;
    EXPECT_FALSE(settings.hideErrors) << text;
  }
}

TEST(ErrorSettings, WhoHidesErrorsHidesWarningsToo) {
  const ErrorSettings settings = Read("[PRIVATE]\r\nHideErrors=TRUE\r\nHideWarnings=FALSE\r\n");
  EXPECT_TRUE(settings.hideErrors);
  EXPECT_TRUE(settings.hideWarnings);
}

struct FontCase {
  const char16_t* text;
  ErrorFont expected;
};

TEST(ErrorSettings, AFontStringMayBeShortOrWrong) {
  const FontCase cases[] = {
      {u"", {u"Arial", 0, 400, false, false, false}},
      {u"Courier", {u"Arial", 21, 400, false, false, false}},
      {u",30,700", {u"Arial", 21, 400, false, false, false}},
      {u"Courier,", {u"Arial", 21, 400, false, false, false}},
      {u"Courier,30", {u"Arial", 30, 400, false, false, false}},
      {u"Courier, 30 ,700", {u"Arial", 30, 400, false, false, false}},
      {u"Courier,+30,\t700", {u"Arial", 30, 700, false, false, false}},
      {u"Courier,30,700,0,0,0", {u"Arial", 30, 700, false, false, false}},
      {u"Courier,30,700,0,1,0", {u"Arial", 30, 700, false, true, false}},
      {u"Courier,x,700", {u"Arial", 21, 400, false, false, false}},
      {u"Courier,30,x,1", {u"Arial", 30, 400, false, false, false}},
      {u"Courier,-15,700,0,1", {u"Arial", -15, 700, false, true, false}},
      {u"Courier,30,700,1,0,1,9", {u"Arial", 30, 700, true, false, true}},
  };
  for (const FontCase& row : cases) EXPECT_EQ(ParseErrorFont(row.text), row.expected) << ToUtf8(row.text);
}

}  // namespace
}  // namespace pnl::test
