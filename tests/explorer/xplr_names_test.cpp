// SPDX-License-Identifier: MIT
#include "explorer/xplr_names.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace pnl {
namespace {

struct SplitCase {
  const char16_t* name;
  const char16_t* title;
  const char16_t* extension;
};

TEST(XplrNames, TheExtensionBeginsAtTheLastPoint) {
  const SplitCase cases[] = {
      {u"part.nc", u"part", u".nc"},   {u"part", u"part", u""}, {u"part.", u"part", u"."}, {u"a.b.c", u"a.b", u".c"},
      {u".profile", u"", u".profile"}, {u"", u"", u""},         {u".", u"", u"."},         {u"..", u".", u"."},
      {u"a b.n c", u"a b", u".n c"},
  };
  for (const SplitCase& row : cases) {
    EXPECT_EQ(SplitName(row.name).title, TextView(row.title)) << ToUtf8(row.name);
    EXPECT_EQ(SplitName(row.name).extension, TextView(row.extension)) << ToUtf8(row.name);
  }
}

TEST(XplrNames, APlainNameStaysInItsFolder) {
  for (const char16_t* name : {u"part.nc", u"", u"...", u"a..b", u".a", u"ab:c", u"1:x", u"é:x", u"a", u":", u"a b"}) {
    EXPECT_TRUE(IsPlainName(name)) << ToUtf8(name);
  }
  for (const char16_t* name : {u".", u"..", u"a/b", u"/", u"a\\b", u"..\\x", u"\\", u"C:", u"c:x", u"Z:\\x", u"A:b"}) {
    EXPECT_FALSE(IsPlainName(name)) << ToUtf8(name);
  }
  EXPECT_FALSE(IsPlainName(TextView(u"a\0b", 3)));
  EXPECT_FALSE(IsPlainName(TextView(u"\0", 1)));
}

struct FilterCase {
  const char16_t* extension;
  const char16_t* filter;
  bool matches;
};

TEST(XplrNames, AnExtensionIsSoughtInTheFilter) {
  const FilterCase cases[] = {
      {u".nc", u"", true},
      {u".nc", u"*", true},
      {u".nc", u"*.*", true},
      {u".nc", u"*.nc", true},
      {u".NC", u"*.nc", true},
      {u".ñc", u"*.ÑC", true},
      {u".nc", u"*.txt", false},
      {u".nc", u"*.txt,*.nc", true},
      {u".nc", u"*.txt *.nc", true},
      {u".txt", u"*.txt *.nc", true},
      {u".nc", u"*.txt, *.nc", true},  // a blank after a comma
      {u".txt", u"*.txt , *.nc", true},
      {u".nc", u" ,, *.txt  ,*.nc,", true},
      {u".nc", u"part.nc", true},  // what is before the point doesn't count
      {u".nc", u"*.x.nc", true},
      {u".nc", u"*.nc.x", false},
      {u".nc", u"nc", false},  // no point, no extension
      {u".nc", u".nc", true},
      {u".n", u"*.nc", false},
      {u".ncx", u"*.nc", false},
      {u".nc", u",", false},
      {u".nc", u" ", false},
      {u"", u"nc", false},
      // In a list the patterns for all files are extensions like others.
      {u".nc", u"*.txt,*.*", false},
      {u".nc", u"*.txt,*", false},
      {u".nc", u" *", false},
      {u".nc", u"*.n?", false},
      {u".*", u"*.txt,*.*", true},
  };
  for (const FilterCase& row : cases) {
    EXPECT_EQ(MatchFilter(row.extension, row.filter), row.matches ? Outcome::kNameAcceptable : Outcome::kNotInFilter)
        << ToUtf8(row.extension) << " in \"" << ToUtf8(row.filter) << '"';
  }
}

struct CheckCase {
  const char16_t* name;
  bool noBlanks;
  Outcome expected;
};

TEST(XplrNames, ANameIsCheckedForBlanksTitleExtensionAndFilterInThisOrder) {
  const CheckCase cases[] = {
      {u"part.nc", false, Outcome::kNameAcceptable},
      {u"part.NC", true, Outcome::kNameAcceptable},
      {u"my part.nc", false, Outcome::kNameAcceptable},
      {u"my part.nc", true, Outcome::kBlankInName},
      {u" .nc", true, Outcome::kBlankInName},
      {u"my part", true, Outcome::kBlankInName},
      {u"my part.txt", true, Outcome::kBlankInName},
      {u"part. nc", true, Outcome::kNotInFilter},
      {u"part.n c", true, Outcome::kNotInFilter},
      {u"", true, Outcome::kEmptyName},
      {u".nc", true, Outcome::kEmptyName},
      {u".", false, Outcome::kEmptyName},
      {u"part", false, Outcome::kNoExtension},
      {u"part.", false, Outcome::kNoExtension},
      {u"a.b.", false, Outcome::kNoExtension},
      {u"part.n", false, Outcome::kNotInFilter},
      {u"part.txt", false, Outcome::kNotInFilter},
  };
  for (const CheckCase& row : cases) {
    EXPECT_EQ(CheckFileName(row.name, u"*.nc", row.noBlanks), row.expected) << '"' << ToUtf8(row.name) << '"';
  }
}

TEST(XplrNames, AnEmptyFilterAcceptsEveryExtension) {
  EXPECT_EQ(CheckFileName(u"part.txt", u"", false), Outcome::kNameAcceptable);
  EXPECT_EQ(CheckFileName(u"part", u"", false), Outcome::kNoExtension);
}

struct DefaultCase {
  const char16_t* name;
  const char16_t* defaultExtension;
  const char16_t* expected;
};

TEST(XplrNames, ANameWithoutExtensionGetsTheDefaultOne) {
  const DefaultCase cases[] = {
      {u"part", u"nc", u"part.nc"},   {u"part.txt", u"nc", u"part.txt"}, {u"part.n", u"nc", u"part.n"},
      {u"a.b", u"", u"a.b"},          {u"part", u"", u"part"},           {u"my part", u"nc", u"my part.nc"},
      {u"part", u"*x", u"part.*x"},   {u"part", u".nc", u"part..nc"},    {u"", u"nc", u".nc"},
      {u"100%s", u"%d", u"100%s.%d"}, {u"a.b.", u"nc", u"a.b.nc"},
  };
  for (const DefaultCase& row : cases) {
    EXPECT_EQ(ToUtf8(ApplyDefaultExtension(row.name, row.defaultExtension)), ToUtf8(row.expected));
  }
}

TEST(XplrNames, ALonePointAtTheEndCountsAsNoExtension) {
  EXPECT_EQ(CheckFileName(u"part.", u"*.nc", false), Outcome::kNoExtension);
  EXPECT_EQ(ToUtf8(ApplyDefaultExtension(u"part.", u"nc")), "part.nc");
  EXPECT_EQ(ToUtf8(ApplyDefaultExtension(u"part.", u"")), "part");
}

TEST(XplrNames, ADefaultExtensionOfAStarLeavesTheTitleAlone) {
  EXPECT_EQ(ToUtf8(ApplyDefaultExtension(u"part", u"*")), "part");
  EXPECT_EQ(ToUtf8(ApplyDefaultExtension(u"part.", u"*")), "part");
}

struct CutCase {
  const char16_t* filter;
  std::vector<Text> expected;
};

TEST(XplrNames, TheListingCutsTheFilterAtCommasOnly) {
  const CutCase cases[] = {
      {u"", {}},
      {u",", {}},
      {u"*", {u"*"}},
      {u"*.nc,*.txt", {u"*.nc", u"*.txt"}},
      {u"*.nc *.txt", {u"*.nc *.txt"}},
      {u",*.nc,,*.txt,", {u"*.nc", u"*.txt"}},
      {u" ", {u" "}},
      {u"*.nc,*.nc", {u"*.nc", u"*.nc"}},
  };
  for (const CutCase& row : cases) EXPECT_EQ(ListingPatterns(row.filter), row.expected) << ToUtf8(row.filter);
}

TEST(XplrNames, ABlankAfterACommaStaysInTheListingsPatternButNotInTheFilter) {
  const TextView filter = u"*.nc, *.txt";
  EXPECT_EQ(ListingPatterns(filter), (std::vector<Text>{u"*.nc", u" *.txt"}));
  EXPECT_FALSE(MatchesPattern(u"a.txt", ListingPatterns(filter)[1]));
  EXPECT_TRUE(MatchesPattern(u" a.txt", ListingPatterns(filter)[1]));
  EXPECT_EQ(MatchFilter(u".txt", filter), Outcome::kNameAcceptable);
}

struct PatternCase {
  const char16_t* name;
  const char16_t* pattern;
  bool matches;
};

TEST(XplrNames, AStarIsAnyNumberOfCharactersAndAQuestionMarkIsOne) {
  const PatternCase cases[] = {
      {u"part.nc", u"*", true},    {u"part", u"*.*", true},
      {u"", u"*.*", true},         {u"part.nc", u"*.nc", true},
      {u"PART.Nc", u"*.nC", true}, {u"pañ.nc", u"PAÑ.*", true},
      {u"part.nc", u"*.n", false}, {u"part.n", u"*.nc", false},
      {u"part", u"part*", true},   {u"part", u"p*t", true},
      {u"part", u"p*r", false},    {u"a.b.nc", u"*.nc", true},
      {u"a.nc.b", u"*.nc", false}, {u"part", u"p??t", true},
      {u"part", u"p???t", false},  {u"part", u"????", true},
      {u"part", u"???", false},    {u"part", u"?????", false},
      {u"part", u"*?", true},      {u"", u"?", false},
      {u"", u"**", true},          {u"", u"", true},
      {u"a", u"", false},          {u"aXbXc", u"*x*x*", true},
      {u"aXb", u"*x*x*", false},   {u"ababac", u"*abac", true},
      {u"abac", u"*ab*ac", true},  {u"a*b", u"a*b", true},
      {u"abcabd", u"*a?d", true},  {u"part", u"*.nc*", false},
      {u"part", u"x*.*", false},   {u"x.y", u"x*.*", true},
      {u"x", u"x*.*", false},
  };
  for (const PatternCase& row : cases) {
    EXPECT_EQ(MatchesPattern(row.name, row.pattern), row.matches) << ToUtf8(row.name) << " by " << ToUtf8(row.pattern);
  }
}

/// The meaning of a pattern, at the price of a very long time for a long one.
bool Fits(TextView name, TextView pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] == u'*') return Fits(name, pattern.substr(1)) || (!name.empty() && Fits(name.substr(1), pattern));
  return !name.empty() && (pattern[0] == u'?' || pattern[0] == name[0]) && Fits(name.substr(1), pattern.substr(1));
}

TEST(XplrNames, AnyPatternFitsAsItsMeaningSays) {
  std::mt19937 random(7);
  const auto make = [&](TextView letters, std::size_t most) {
    Text text;
    for (std::size_t length = random() % (most + 1); length > 0; --length) text += letters[random() % letters.size()];
    return text;
  };
  for (int i = 0; i < 50000; ++i) {
    const Text name = make(u"ab", 10);
    const Text pattern = make(u"ab*?", 7);
    ASSERT_EQ(MatchesPattern(name, pattern), Fits(name, pattern)) << ToUtf8(name) << " by " << ToUtf8(pattern);
  }
}

TEST(XplrNames, AHostilePatternIsDecidedQuickly) {
  const Text name(2000, u'a');
  Text pattern;
  for (int i = 0; i < 500; ++i) pattern += u"*a";
  EXPECT_TRUE(MatchesPattern(name, pattern));
  EXPECT_FALSE(MatchesPattern(name, pattern + u"b"));
}

}  // namespace
}  // namespace pnl
