// SPDX-License-Identifier: MIT
// The journal's bytes: they read as what was written, and no others read as anything.
#include "host/journal_file.h"

#include <gtest/gtest.h>

namespace panel {
namespace {

JournalContents Everything() {
  JournalContents contents;
  contents.written = 1'795'397'045'000;
  contents.program = JournalProgram{"C:\\CNC\\PRG\\A Ñ.NC", 12, JournalProgram::Base::kFile, 1, 1000, 0x12345678, {}};
  contents.program->pieces = {{0, 20, {}}, {0, 0, "G1 X10 (\u00f1 \U0001F600)\nend 0\n"}, {25, 975, {}}};
  contents.block = JournalBlock{JournalBlock::Kind::kChangedItem, 3, "G1 X1", "G1 X2"};
  contents.expression = "SIN(30)+";
  return contents;
}

TEST(JournalFile, ReadsWhatWasWritten) {
  const auto read = ReadJournal(JournalBytes(Everything()));
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->SaysTheSameAs(Everything()));
  EXPECT_EQ(read->written, Everything().written);
}

TEST(JournalFile, EachPartMayBeMissing) {
  for (int part = 0; part < 4; ++part) {
    JournalContents contents = Everything();
    if (part == 0) contents.program.reset();
    if (part == 1) contents.block.reset();
    if (part == 2) contents.expression.clear();
    if (part == 3) contents = {};
    const auto read = ReadJournal(JournalBytes(contents));
    ASSERT_TRUE(read) << part;
    EXPECT_TRUE(read->SaysTheSameAs(contents)) << part;
    EXPECT_EQ(read->IsEmpty(), part == 3);
  }
}

TEST(JournalFile, IsUtf8ThatAPersonCanRead) {
  JournalContents contents;
  contents.written = 5;
  contents.block = JournalBlock{JournalBlock::Kind::kLine, -1, {}, QStringLiteral("G1 \u00d1")};
  EXPECT_EQ(JournalBytes(contents).left(61).toStdString(),
            "PNLPANEL JOURNAL 1\nwritten 1\n5\nblock 5\nG1 \u00d1\nkind 4\nline\nend ");
}

TEST(JournalFile, AnEarlierPanelsJournalIsRead) {
  // The format is that of files on the operator's disc: it outlives the program that wrote them.
  const QByteArray bytes =
      "PNLPANEL JOURNAL 1\nwritten 13\n1795397045000\nblock 6\nG1 X10\nkind 4\nline\nend c0352a1ff6adb502\n";
  JournalContents contents;
  contents.written = 1'795'397'045'000;
  contents.block = JournalBlock{JournalBlock::Kind::kLine, -1, {}, QStringLiteral("G1 X10")};
  EXPECT_EQ(JournalBytes(contents), bytes);
  const auto read = ReadJournal(bytes);
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->SaysTheSameAs(contents));
  EXPECT_EQ(read->written, contents.written);
}

TEST(JournalFile, EveryEntryHasItsPlace) {
  JournalContents contents = Everything();
  contents.program->path = "C:\\A.NC";
  contents.program->pieces = {{0, 20, {}}, {0, 0, "X"}};
  const QByteArray bytes = JournalBytes(contents);
  EXPECT_EQ(bytes.left(bytes.indexOf("end ")).toStdString(),
            "PNLPANEL JOURNAL 1\nwritten 13\n1795397045000\nprogram 7\nC:\\A.NC\ncaret 2\n12\nbase 4\nfile\ncopy 1\n1\n"
            "length 4\n1000\nhash 16\n0000000012345678\nkept 4\n0 20\ntyped 1\nX\nblock 5\nG1 X2\nkind 6\nchange\n"
            "item 1\n3\noriginal 5\nG1 X1\nexpression 8\nSIN(30)+\n");
}

TEST(JournalFile, TheWordsOfBasesAndBlocksAreThoseOfTheFormat) {
  JournalContents contents;
  contents.program = JournalProgram{};
  contents.block = JournalBlock{};
  const auto has = [&contents](const char* entry) {
    const auto read = ReadJournal(JournalBytes(contents));
    return JournalBytes(contents).contains(entry) && read && read->SaysTheSameAs(contents);
  };
  EXPECT_TRUE(has("base 4\nnone\n"));
  EXPECT_TRUE(has("kind 4\nline\n"));
  EXPECT_TRUE(has("copy 1\n0\n"));
  contents.program->base = JournalProgram::Base::kCopy;
  contents.block->kind = JournalBlock::Kind::kNewItem;
  EXPECT_TRUE(has("base 4\ncopy\n"));
  EXPECT_TRUE(has("kind 3\nnew\n"));
  contents.block->item = 0;
  EXPECT_TRUE(has("item 1\n0\n"));
}

TEST(JournalFile, KeepsAMarkAtTheStartOfATextAndNulsInIt) {
  JournalContents contents;
  contents.expression = QString(QChar(0xFEFF)) + QChar(u'\0') + "1";
  const auto read = ReadJournal(JournalBytes(contents));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->expression, contents.expression);
}

TEST(JournalFile, TextThatIsNotWellFormedIsReplacedAndNotRefused) {
  JournalContents contents;
  contents.expression = QString(QChar(0xD800)) + "1";
  const auto read = ReadJournal(JournalBytes(contents));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->expression, "?1");
}

TEST(JournalFile, IsRefusedWhenItIsCutAnywhere) {
  const QByteArray whole = JournalBytes(Everything());
  for (qsizetype size = 0; size < whole.size(); ++size) EXPECT_FALSE(ReadJournal(whole.left(size))) << size;
  EXPECT_FALSE(ReadJournal(whole + "\n"));
}

TEST(JournalFile, IsRefusedWhenAnyByteHasChanged) {
  const QByteArray whole = JournalBytes(Everything());
  for (qsizetype at = 0; at < whole.size(); ++at) {
    QByteArray changed = whole;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    EXPECT_FALSE(ReadJournal(changed)) << at;
  }
}

/// Entries with a right first line and end.
QByteArray Whole(const QByteArray& entries) {
  const QByteArray start = "PNLPANEL JOURNAL 1\n" + entries;
  quint64 hash = 0xcbf29ce484222325u;
  for (const char byte : start) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
  return start + "end " + QByteArray::number(hash, 16).rightJustified(16, '0') + "\n";
}

TEST(JournalFile, IsRefusedWhenItsEntriesMakeNoSense) {
  ASSERT_TRUE(ReadJournal(Whole("expression 1\n1\n")));
  ASSERT_TRUE(ReadJournal(Whole("program 0\n\nbase 4\nfile\nlength 1\n9\nkept 3\n0 9\n")));
  ASSERT_TRUE(ReadJournal(Whole("written 16\n9007199254740992\n")));
  ASSERT_TRUE(ReadJournal(Whole("block 1\nx\nitem 10\n2147483647\n")));
  ASSERT_TRUE(ReadJournal(Whole("program 0\n\nlength 1\n9\nbase 4\ncopy\nkept 3\n8 1\n")));
  const char* const bad[] = {
      "gift 1\nx\n",                                                         // an entry that nobody knows
      "expression\n1\n",                                                     // no length
      "expression -1\n1\n",                                                  // not a length
      "expression 01\n1\n",                                                  //
      "expression 2\n1\n",                                                   // too long by one
      "expression 0\n1\n",                                                   // too short by one
      "expression 9223372036854775807\n1\n",                                 //
      "expression 1\n\xff\n",                                                // not UTF-8
      "written 16\n9007199254740993\n",                                      // more than a number in JSON
      "expression 1",                                                        // no line feed
      "expression\n1 2\n",                                                   // the blank in the value
      "expression 1\n12",                                                    // no line feed after the value
      "expression 0\n\nx",                                                   // something after it
      "kind 4\nline\n",                                                      // of no block
      "item 1\n1\n",                                                         //
      "original 1\nx\n",                                                     //
      "caret 1\n1\n",                                                        // of no program
      "program 0\n\nprogram 0\n\n",                                          // two of them
      "program 0\n\ncaret 1\nx\n",                                           // no number
      "program 0\n\nbase 4\nfiles\n",                                        // no such base
      "program 0\n\nbase 3\nabc\n",                                          //
      "block 1\nx\nitem 1\nx\n",                                             // no number
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 3\nx 9\n",               // no place
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 4\n10 1\n",              // a place beyond the base
      "program 0\n\ntyped 1\n\xff\n",                                        // not UTF-8
      "block 1\nx\nkind 5\nlines\n",                                         // a kind that nobody knows
      "block 1\nx\nblock 1\ny\n",                                            // two of them
      "block 1\nx\nitem 10\n2147483648\n",                                   // no int
      "kept 3\n0 9\n",                                                       // of no program
      "program 0\n\nlength 1\n5\n",                                          // a length without a base
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 4\n0 10\n",              // beyond the base
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 3\n9 1\n",               //
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 3\n0 0\n",               // empty
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 2\n0 \n",                //
      "program 0\n\nbase 4\nfile\nkept 3\n0 9\nlength 1\n9\n",               // the length too late
      "program 0\n\nbase 4\nfile\nlength 1\n9\nkept 3\n0 9\nlength 1\n5\n",  // and changed
      "program 0\n\ntyped 0\n\n",                                            // empty
      "program 0\n\nhash 3\n123\n",                                          // not 16 digits
      "program 0\n\nhash 16\n0123456789ABCDEF\n",                            //
      "program 0\n\ncopy 1\n2\n",                                            // no such copy
  };
  for (const char* entries : bad) EXPECT_FALSE(ReadJournal(Whole(entries))) << entries;
}

TEST(JournalFile, OfAnotherVersionIsRefused) {
  QByteArray next = Whole({});
  ASSERT_TRUE(ReadJournal(next));
  next.replace("JOURNAL 1", "JOURNAL 2");
  EXPECT_FALSE(ReadJournal(next));
}

TEST(JournalFile, ThatIsTooBigIsRefused) {
  JournalContents contents;
  contents.expression = QString(kMostJournalBytes - 100, u'1');
  EXPECT_TRUE(ReadJournal(JournalBytes(contents)));
  EXPECT_EQ(kMostJournalBytes, 16'777'216);
  const qsizetype around = JournalBytes(contents).size() - contents.expression.size();
  contents.expression = QString(kMostJournalBytes - around, u'1');
  ASSERT_EQ(JournalBytes(contents).size(), kMostJournalBytes);
  EXPECT_TRUE(ReadJournal(JournalBytes(contents))) << "it just fits";
  contents.expression += u'1';
  EXPECT_FALSE(ReadJournal(JournalBytes(contents)));
  contents.expression = QString(kMostJournalBytes, u'1');
  EXPECT_FALSE(ReadJournal(JournalBytes(contents)));
}

}  // namespace
}  // namespace panel
