// SPDX-License-Identifier: MIT
#include "help/manual/code_page.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

TEST(CodePage, ALanguageIdDecidesIt) {
  struct Row {
    std::uint32_t language;
    int codePage;
  };
  const Row rows[] = {
      {0x0409, 1252},  // English
      {0x0C0A, 1252},  // Spanish
      {0x0407, 1252},  // German
      {0x042D, 1252},  // Basque
      {0x0816, 1252},  // Portuguese
      {0x0405, 1250},  // Czech
      {0x040E, 1250},  // Hungarian
      {0x0415, 1250},  // Polish
      {0x0418, 1250},  // Romanian
      {0x041B, 1250},  // Slovak
      {0x0424, 1250},  // Slovene
      {0x041A, 1250},  // Croatian
      {0x081A, 1250},  // Serbian in Latin letters
      {0x0C1A, 1251},  // Serbian in Cyrillic letters
      {0x041C, 1250},  // Albanian
      {0x0419, 1251},  // Russian
      {0x0402, 1251},  // Bulgarian
      {0x0422, 1251},  // Ukrainian
      {0x0423, 1251},  // Belarusian
      {0x042F, 1251},  // Macedonian
      {0x0408, 1253},  // Greek
      {0x041F, 1254},  // Turkish
      {0x042C, 1254},  // Azeri in Latin letters
      {0x082C, 1251},  // Azeri in Cyrillic letters
      {0x040D, 1255},  // Hebrew
      {0x0401, 1256},  // Arabic
      {0x0429, 1256},  // Farsi
      {0x0425, 1257},  // Estonian
      {0x0426, 1257},  // Latvian
      {0x0427, 1257},  // Lithuanian
      {0x042A, 1258},  // Vietnamese
      {0x041E, 874},   // Thai
      {0x0411, 932},   // Japanese
      {0x0804, 936},   // Chinese, People's Republic
      {0x1004, 936},   // Chinese, Singapore
      {0x0404, 950},   // Chinese, Taiwan
      {0x0C04, 950},   // Chinese, Hong Kong
      {0x1404, 950},   // Chinese, Macau
      {0x0412, 949},   // Korean
      {0x0420, 1256},  // Urdu
      {0x043F, 1251},  // Kazakh
      {0x0440, 1251},  // Kirghiz
      {0x0443, 1254},  // Uzbek in Latin letters
      {0x0843, 1251},  // Uzbek in Cyrillic letters
      {0x0444, 1251},  // Tatar
      {0x0450, 1251},  // Mongolian
      {0x1C1A, 1251},  // Serbian of Bosnia in Cyrillic letters
      {0x201A, 1251},  // Bosnian in Cyrillic letters
      {0x281A, 1251},  // Serbian of Serbia in Cyrillic letters
      {0x301A, 1251},  // Serbian of Montenegro in Cyrillic letters
      {0, 1252},      {0xFFFFFFFF, 1252},
  };
  for (const Row& row : rows) EXPECT_EQ(CodePageOfLanguage(row.language), row.codePage) << std::hex << row.language;
}

TEST(CodePage, BytesBecomeTheTextOfTheirCodePage) {
  struct Row {
    int codePage;
    const char* bytes;
    const char16_t* text;
  };
  const Row rows[] = {
      {1252, "plain", u"plain"},          {1252, "a\xF1o \x80", u"año €"},
      {1250, "\xE8\x9A", u"čš"},          {1251, "\xD1\xF2\xEE\xEF", u"Стоп"},
      {1253, "\xC1\xE2", u"Αβ"},          {1254, "\xFD\xFE", u"ış"},
      {932, "\x93\xFA\x96\x7B", u"日本"}, {936, "\xD6\xD0\xCE\xC4", u"中文"},
      {949, "\xC7\xD1", u"한"},           {950, "\xA4\xA4", u"中"},
      {65001, "\xC3\xB1", u"ñ"},          {12345, "\xF1", u"ñ"},
      {1252, "a\x81z", u"a\uFFFDz"},
  };
  for (const Row& row : rows) EXPECT_EQ(DecodeCodePage(row.bytes, row.codePage), row.text) << row.codePage;
}

TEST(CodePage, LongTextsAreConvertedWhole) {
  std::string bytes;
  Text text;
  for (int i = 0; i < 50'000; ++i) {
    bytes += "\x93\xFA.";
    text += u"日.";
  }
  EXPECT_EQ(DecodeCodePage(bytes, 932), text);
}

TEST(CodePage, OneByteBeyondAsciiIsEnoughForTheCodePage) {
  EXPECT_EQ(DecodeCodePage("\x7F", 1252), u"\x7F");
  EXPECT_EQ(DecodeCodePage("\x80", 1252), u"\u20AC");
}

TEST(CodePage, OnlyAMetaElementDeclaresThePagesCharacters) {
  EXPECT_EQ(DeclaredCharset("<link charset=utf-8><script charset=utf-8></script><meta charset=koi8-r>"), "koi8-r");
  EXPECT_EQ(DeclaredCharset("<link charset=utf-8>"), std::nullopt);
}

TEST(CodePage, ACutOffCharacterBecomesAMark) { EXPECT_EQ(DecodeCodePage("\x93\xFA\x96", 932), u"日\uFFFD"); }

TEST(CodePage, WhatAPageDeclaresIsFound) {
  struct Row {
    const char* page;
    const char* charset;
  };
  const Row rows[] = {
      {"<meta charset=utf-8>", "utf-8"},
      {"<html><head><META http-equiv=Content-Type content='text/html; charset=windows-1251'>", "windows-1251"},
      {"<meta content='text/html;CHARSET=iso-8859-2;x'>", "iso-8859-2"},
      {"<meta name=x content=y><meta charset='big5'>", "big5"},
      {"<meta charset='../x'>", ""},
      {"<body><meta charset=utf-8>", ""},
      {"</head><meta charset=utf-8>", ""},
      {"<p>none", ""},
      {"", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(DeclaredCharset(row.page).value_or(""), row.charset) << row.page;
  EXPECT_FALSE(DeclaredCharset(std::string(4096, ' ') + "<meta charset=utf-8>").has_value());
  EXPECT_TRUE(DeclaredCharset(std::string(2048 - 20, ' ') + "<meta charset=utf-8>").has_value());
  EXPECT_FALSE(DeclaredCharset(std::string(2048 - 19, ' ') + "<meta charset=utf-8>").has_value());
  for (const std::string name : {"azAZ09-_", "12345678901234567890123456789012"}) {
    EXPECT_EQ(DeclaredCharset("<meta charset=" + name + ">").value_or(""), name);
  }
  for (const std::string name : {"a`", "a{", "a@", "a[", "a:", "a.", "123456789012345678901234567890123"}) {
    EXPECT_FALSE(DeclaredCharset("<meta charset=" + name + ">").has_value()) << name;
  }
}

TEST(CodePage, MarkThenDeclarationThenCodePageDecideAPage) {
  struct Row {
    std::string page;
    const char16_t* text;
  };
  const Row rows[] = {
      {"\xF1", u"ñ"},
      {"\xC3\xB1", u"Ã±"},
      {"\xEF\xBB\xBF\xC3\xB1", u"ñ"},
      {std::string("\xFF\xFE\xF1\0", 4), u"ñ"},
      {"<meta charset=utf-8>\xC3\xB1", u"<meta charset=utf-8>ñ"},
      {"<meta charset=UTF8>\xC3\xB1", u"<meta charset=UTF8>ñ"},
      {"<meta charset=windows-1251>\xF1", u"<meta charset=windows-1251>с"},
      {"<meta charset=nothing>\xF1", u"<meta charset=nothing>ñ"},
      {"<meta charset=utf-16>\xF1", u"<meta charset=utf-16>ñ"},
      {"<meta charset=utf-32>\xF1", u"<meta charset=utf-32>ñ"},
      {"<meta charset=ucs-2>\xF1", u"<meta charset=ucs-2>ñ"},
      {"\xEF\xBB\xBF<meta charset=windows-1251>\xC3\xB1", u"<meta charset=windows-1251>ñ"},
  };
  for (const Row& row : rows) EXPECT_EQ(DecodePage(row.page, 1252), row.text) << row.page;
}

}  // namespace
}  // namespace pnl
