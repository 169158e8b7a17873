// SPDX-License-Identifier: MIT
// The history of the session's errors, by a fake clock.
#include "host/error_history.h"

#include <gtest/gtest.h>

#include <set>

#include "common/words.h"
#include "ui/error_list_model.h"

namespace panel {
namespace {

using Fate = ErrorHistory::Fate;
using Summary = ErrorHistory::Summary;
using std::chrono::minutes;
using std::chrono::seconds;

class ErrorHistoryTest : public ::testing::Test {
 protected:
  static Summary Error(int number, std::u16string text = u"broken") {
    Summary error;
    error.number = number;
    error.severity = 1;
    error.text = std::move(text);
    return error;
  }
  std::int64_t Raise(Summary error) {
    error.serial = ++serial_;
    last_ = error;
    history_.Tell(error, Fate::kRaised);
    EXPECT_TRUE(history_.IsConsistent());
    return serial_;
  }
  void Leave(Summary error, std::int64_t serial, Fate fate) {
    error.serial = serial;
    history_.Tell(error, fate);
    EXPECT_TRUE(history_.IsConsistent());
  }
  [[nodiscard]] const ErrorRow& Front() const { return history_.Rows().front(); }

  ErrorTime now_{std::chrono::hours(1000)};
  ErrorHistory history_{[this] { return now_; }};
  std::int64_t serial_ = 0;
  Summary last_;
};

TEST_F(ErrorHistoryTest, TheLastErrorIsInFrontWithItsTime) {
  Raise(Error(1));
  now_ += seconds(5);
  Raise(Error(2));
  ASSERT_EQ(history_.Rows().size(), 2u);
  EXPECT_EQ(Front().error.number, 2);
  EXPECT_EQ(Front().first, now_);
  EXPECT_EQ(Front().times, 1);
}

TEST_F(ErrorHistoryTest, AnEqualErrorCountsInItsRowWithTheTimeOfTheFirst) {
  const ErrorTime first = now_;
  Raise(Error(1));
  now_ += seconds(5);
  Raise(Error(2));
  now_ += seconds(5);
  Raise(Error(1));
  ASSERT_EQ(history_.Rows().size(), 2u);
  EXPECT_EQ(Front().error.number, 1);
  EXPECT_EQ(Front().times, 2);
  EXPECT_EQ(Front().first, first);
  EXPECT_EQ(Front().last, now_);
  EXPECT_EQ(Front().standing.size(), 2u);
}

TEST_F(ErrorHistoryTest, ErrorsThatDifferInAnythingHaveRowsOfTheirOwn) {
  Raise(Error(1));
  const auto differ = [this](auto change) {
    Summary other = Error(1);
    change(other);
    Raise(other);
  };
  differ([](Summary& e) { e.channel = 2; });
  differ([](Summary& e) { e.severity = 0; });
  differ([](Summary& e) { e.errorClass = pnl::rig::CncControl::ErrorClass::kMarked; });
  differ([](Summary& e) { e.source = 10; });
  differ([](Summary& e) { e.identifier = 7; });
  differ([](Summary& e) { e.module = u"PLC"; });
  differ([](Summary& e) { e.text = u"other"; });
  differ([](Summary& e) { e.parameters = {u"1"}; });
  differ([](Summary& e) { e.parameters = {u"2"}; });
  differ([](Summary& e) { e.parameters = {u"1", u""}; });
  EXPECT_EQ(history_.Rows().size(), 11u);
}

TEST_F(ErrorHistoryTest, EveryErrorTellsHowItLeft) {
  const auto a = Raise(Error(1));
  const auto b = Raise(Error(1));
  const auto c = Raise(Error(1));
  Raise(Error(1));
  Leave(Error(1), b, Fate::kAcknowledged);
  Leave(Error(1), a, Fate::kConfirmed);
  Leave(Error(1), c, Fate::kCleared);
  EXPECT_EQ(Front().times, 4);
  EXPECT_EQ(Front().acknowledged, 1);
  EXPECT_EQ(Front().confirmed, 1);
  EXPECT_EQ(Front().cleared, 1);
  EXPECT_EQ(Front().standing.size(), 1u);
  Leave(Error(1), a, Fate::kAcknowledged);
  EXPECT_EQ(Front().acknowledged, 1) << "it left already";
}

TEST_F(ErrorHistoryTest, WhatFindsNoPlaceIsCounted) {
  const auto first = Raise(Error(0));
  Raise(Error(0));
  for (int i = 1; i < 200; ++i) Raise(Error(i));
  EXPECT_EQ(history_.Rows().size(), 200u);
  EXPECT_EQ(history_.Dropped(), 0);
  Raise(Error(200));
  EXPECT_EQ(history_.Rows().size(), 200u);
  EXPECT_EQ(history_.Rows().back().error.number, 1) << "the one that came longest ago went";
  EXPECT_EQ(history_.Dropped(), 2) << "errors, not rows";
  EXPECT_EQ(history_.DroppedInQueue(), 2);
  Leave(Error(0), first, Fate::kAcknowledged);
  EXPECT_EQ(history_.Dropped(), 2);
  EXPECT_EQ(history_.DroppedInQueue(), 1);
  UseWords("en");
  EXPECT_EQ(NotesOf(history_).last(), "Older errors that are not shown: 2, of which 1 still stand");
}

TEST_F(ErrorHistoryTest, MoreThanTenInTenMinutesAreAFloodUntilTheyAreOver) {
  for (int i = 0; i < 10; ++i) {
    Raise(Error(1));
    now_ += seconds(30);
  }
  EXPECT_FALSE(history_.Flood());
  EXPECT_FALSE(history_.FloodEnd());
  const ErrorTime first = now_ - seconds(300);
  Raise(Error(2));
  EXPECT_EQ(history_.Flood(), 11);
  EXPECT_EQ(history_.FloodEnd(), first + minutes(10));
  UseWords("en");
  EXPECT_EQ(NotesOf(history_), QStringList{"Flood: 11 errors in the last ten minutes"});
  now_ = first + minutes(10) - std::chrono::milliseconds(1);
  EXPECT_TRUE(history_.Flood());
  now_ = first + minutes(10);
  EXPECT_FALSE(history_.Flood());
  EXPECT_TRUE(NotesOf(history_).isEmpty());
}

TEST_F(ErrorHistoryTest, AClockThatIsSetBackChangesNoOrder) {
  Raise(Error(1));
  now_ -= minutes(60);
  Raise(Error(2));
  EXPECT_EQ(Front().error.number, 2);
  EXPECT_GE(Front().last, history_.Rows().back().last);
}

TEST_F(ErrorHistoryTest, TenThousandDifferentErrorsKeepTheirCounts) {
  for (int i = 0; i < 10000; ++i) {
    Summary error = Error(i);
    error.serial = i + 1;
    history_.Tell(error, Fate::kRaised);
  }
  EXPECT_TRUE(history_.IsConsistent());
  EXPECT_EQ(history_.Dropped(), 9800);
  EXPECT_EQ(history_.DroppedInQueue(), 9800);
  EXPECT_EQ(history_.Flood(), 10000);
}

struct TextRow {
  const char* name;
  Summary error;
  const char* shownName;
  const char* text;
  const char* details;
};

using Class = pnl::rig::CncControl::ErrorClass;

Summary Told(int number, Class errorClass, std::u16string text, int channel, std::vector<std::u16string> parameters) {
  Summary error;
  error.number = number;
  error.errorClass = errorClass;
  error.text = std::move(text);
  error.channel = channel;
  error.parameters = std::move(parameters);
  error.source = 13;
  error.identifier = 77;
  error.module = u"DRV";
  error.serial = 1;
  return error;
}

class ErrorTextTest : public ::testing::TestWithParam<TextRow> {};

TEST_P(ErrorTextTest, ARowReadsAsTold) {
  UseWords("en");
  ErrorHistory history([] { return ErrorTime(std::chrono::hours(1000)); });
  history.Tell(GetParam().error, Fate::kRaised);
  const ErrorRowText shown = TextOfRow(history.Rows().front(), ErrorTime(std::chrono::hours(1000)));
  EXPECT_EQ(shown.name.toStdString(), GetParam().shownName);
  EXPECT_EQ(shown.text.toStdString(), GetParam().text);
  EXPECT_EQ(shown.details.toStdString(), GetParam().details);
}

INSTANTIATE_TEST_SUITE_P(
    All, ErrorTextTest,
    ::testing::Values(
        TextRow{"error", Told(12, Class::kError, u"\nToo fast", 2, {u"7"}), "error 12", "Too fast",
                "channel 2  ·  source: drive  ·  standing"},
        TextRow{"warning", Told(13, Class::kWarning, u"Hot", 0, {}), "warning 13", "Hot", "source: drive  ·  standing"},
        TextRow{"fatal", Told(14, Class::kFatal, u"Over", 0, {}), "fatal error 14", "Over",
                "source: drive  ·  standing"},
        TextRow{"marked", Told(14, Class::kMarked, u"Over", 0, {}), "error 14", "Over", "source: drive  ·  standing"},
        TextRow{"confirm", Told(3753, Class::kConfirm, u"Look", 0, {}), "to be confirmed 3753", "Look",
                "source: drive  ·  standing"},
        TextRow{"lines", Told(15, Class::kError, u"two\r\nlines", 0, {}), "error 15", "two lines",
                "source: drive  ·  standing"},
        TextRow{"unknown", Told(16, Class::kError, u"", 1, {u" 1", u" 2.5"}), "error 16",
                "no text  ·  source: drive  ·  ID DRV-77  ·  parameters 1, 2.5", "channel 1  ·  standing"},
        TextRow{"markup", Told(17, Class::kError, u"<b>bold</b>", 0, {}), "error 17", "<b>bold</b>",
                "source: drive  ·  standing"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ErrorTimeTest, ATimeOfAnotherDayHasItsDate) {
  const auto at = [](const QDateTime& local) {
    return ErrorTime(std::chrono::milliseconds(local.toMSecsSinceEpoch()));
  };
  const ErrorTime now = at(QDateTime(QDate(2024, 3, 5), QTime(12, 0)));
  EXPECT_EQ(TextOfTime(at(QDateTime(QDate(2024, 3, 5), QTime(1, 2, 3))), now), "01:02:03");
  EXPECT_EQ(TextOfTime(at(QDateTime(QDate(2024, 3, 4), QTime(23, 59, 59))), now), "2024-03-04 23:59:59");
}

TEST_F(ErrorHistoryTest, ARowTellsHowOftenAndWhatBecameOfEach) {
  UseWords("en");
  const auto details = [this] { return TextOfRow(Front(), now_).details.toStdString(); };
  const auto first = Raise(Error(1));
  const std::string source = Say(Word::kErrorSource, Say(Word::kSourceControl)).toStdString() + "  ·  ";
  EXPECT_EQ(details(), source + "standing") << "of one no number";
  const QString began = TextOfTime(now_, now_);
  now_ += seconds(5);
  const auto second = Raise(Error(1));
  const std::string twice = source + Say(Word::kErrorTimes).arg("2", began).toStdString() + "  ·  ";
  EXPECT_EQ(details(), twice + "2 standing");
  Leave(Error(1), first, Fate::kAcknowledged);
  EXPECT_EQ(details(), twice + "1 standing, 1 acknowledged");
  Leave(Error(1), second, Fate::kCleared);
  EXPECT_EQ(details(), twice + "1 acknowledged, 1 cleared");
  EXPECT_EQ(TextOfRow(Front(), now_).time, TextOfTime(now_, now_));
}

TEST_F(ErrorHistoryTest, SeveralOfOneFateAreSaidInThePlural) {
  const struct {
    Fate fate;
    const char* several[2];
    const char* one[2];
  } rows[] = {
      {Fate::kAcknowledged, {"2 acknowledged", "2 reconocidos"}, {"1 acknowledged", "1 reconocido"}},
      {Fate::kConfirmed, {"2 confirmed", "2 confirmados"}, {"1 confirmed", "1 confirmado"}},
      {Fate::kCleared, {"2 cleared", "2 borrados"}, {"1 cleared", "1 borrado"}},
  };
  const char* standing[2][2] = {{"2 standing", "1 standing, "}, {"2 pendientes", "1 pendiente, "}};
  int number = 0;
  for (const auto& row : rows) {
    ++number;
    const auto first = Raise(Error(number));
    const auto second = Raise(Error(number));
    const auto expectBoth = [&](const char* const(&words)[2]) {
      for (const int language : {0, 1}) {
        UseWords(language == 0 ? "en" : "es");
        EXPECT_TRUE(TextOfRow(Front(), now_).details.endsWith(words[language])) << words[language];
      }
    };
    expectBoth({standing[0][0], standing[1][0]});
    Leave(Error(number), first, row.fate);
    expectBoth(row.one);
    EXPECT_TRUE(TextOfRow(Front(), now_).details.contains(standing[1][1]));
    Leave(Error(number), second, row.fate);
    expectBoth(row.several);
  }
  UseWords("en");
}

TEST_F(ErrorHistoryTest, TheSameErrorInTwoLinesIsTwoRowsThatNameTheProgram) {
  UseWords("en");
  auto error = Error(1);
  error.program = {u"C:\\", u"A.NC", 10, 3};
  Raise(error);
  Raise(error);
  EXPECT_EQ(history_.Rows().size(), 1u);
  EXPECT_TRUE(TextOfRow(Front(), now_).details.contains("program: A.NC"));
  error.program->position = 20;
  Raise(error);
  EXPECT_EQ(history_.Rows().size(), 2u);
  error.program->span = 5;
  Raise(error);
  error.program->file = u"B.NC";
  Raise(error);
  EXPECT_EQ(history_.Rows().size(), 4u);
}

TEST(ErrorSources, ASourceHasItsNameAndAnUnknownOneItsNumber) {
  UseWords("en");
  EXPECT_EQ(NameOfSource(0), "control");
  EXPECT_EQ(NameOfSource(1), "program");
  EXPECT_EQ(NameOfSource(10), "PLC");
  EXPECT_EQ(NameOfSource(14), "unknown drive");
  EXPECT_EQ(NameOfSource(18), "18");
  UseWords("es");
  EXPECT_EQ(NameOfSource(13), "regulador");
  UseWords("en");
}

TEST_F(ErrorHistoryTest, TheListHasARowForEachWithItsParts) {
  UseWords("en");
  Raise(Error(1));
  Raise(Error(2, u"hot"));
  ErrorListModel model;
  int resets = 0;
  QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [&resets] { ++resets; });
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.IdAt(0), 0);
  model.Take(history_, now_);
  EXPECT_EQ(resets, 1);
  ASSERT_EQ(model.rowCount(), 2);
  const QModelIndex front = model.index(0, 0);
  EXPECT_EQ(model.rowCount(front), 0) << "no row has rows of its own";
  const ErrorRowText text = TextOfRow(Front(), now_);
  EXPECT_EQ(front.data().toString(), "hot");
  EXPECT_EQ(front.data(ErrorListModel::kTimeRole).toString(), text.time);
  EXPECT_EQ(front.data(ErrorListModel::kNameRole).toString(), "warning 2");
  EXPECT_EQ(front.data(ErrorListModel::kDetailsRole).toString(), text.details);
  EXPECT_EQ(front.data(ErrorListModel::kColorRole).value<QColor>(), QColor(0x64, 0x80, 0x64));
  EXPECT_EQ(front.data(Qt::AccessibleTextRole).toString(), text.time + " warning 2 hot " + text.details);
  EXPECT_FALSE(front.data(Qt::DecorationRole).isValid());
  EXPECT_FALSE(model.data(QModelIndex(), Qt::DisplayRole).isValid());
  for (int row = 0; row < 2; ++row) EXPECT_EQ(model.RowOf(model.IdAt(row)), row);
  EXPECT_EQ(model.RowOf(987654), -1);
  EXPECT_EQ(model.IdAt(-1), 0);
  EXPECT_EQ(model.IdAt(2), 0);
  model.Take(history_, now_);
  EXPECT_EQ(model.rowCount(), 2) << "not the same ones twice";
  EXPECT_EQ(model.IdAt(2), 0);
}

TEST_F(ErrorHistoryTest, NotesTellWhatWasLeftOut) {
  UseWords("en");
  EXPECT_TRUE(NotesOf(history_).isEmpty());
  const auto first = Raise(Error(0));
  for (int i = 1; i <= 200; ++i) Raise(Error(i));
  EXPECT_EQ(NotesOf(history_).last(), Say(Word::kErrorsLeftOutStanding).arg("1", "1"));
  Leave(Error(0), first, Fate::kCleared);
  EXPECT_EQ(NotesOf(history_).last(), Say(Word::kErrorsLeftOut, "1"));
}

TEST_F(ErrorHistoryTest, EveryWordAboutAnErrorIsANewRevision) {
  std::set<std::int64_t> revisions{history_.Revision()};
  const auto serial = Raise(Error(1));
  revisions.insert(history_.Revision());
  Leave(Error(1), serial, Fate::kCleared);
  revisions.insert(history_.Revision());
  EXPECT_EQ(revisions.size(), 3u);
}

TEST_F(ErrorHistoryTest, ARowHasOneNumberForAsLongAsItIsThere) {
  Raise(Error(1));
  const auto first = Front().id;
  Raise(Error(2));
  EXPECT_NE(Front().id, first);
  Raise(Error(1));
  EXPECT_EQ(Front().id, first);
  EXPECT_EQ(Front().error.serial, serial_) << "the last one";
}

TEST_F(ErrorHistoryTest, AnErrorThatFoundNoPlaceHasARowOfItsOwnWhenItComesAgain) {
  for (int i = 0; i <= 200; ++i) Raise(Error(i));
  const auto lost = Raise(Error(0));
  EXPECT_EQ(Front().error.number, 0);
  EXPECT_EQ(Front().times, 1);
  EXPECT_EQ(history_.Dropped(), 2);
  Leave(Error(0), lost, Fate::kCleared);
  EXPECT_EQ(Front().cleared, 1);
  EXPECT_EQ(history_.DroppedInQueue(), 2);
}

TEST_F(ErrorHistoryTest, ErrorsOfOneSecondLeaveTheFloodTogetherAndThoseOfAnotherLater) {
  for (int i = 0; i < 6; ++i) Raise(Error(1));
  const ErrorTime first = now_;
  now_ += std::chrono::milliseconds(999);
  for (int i = 0; i < 6; ++i) Raise(Error(1));
  EXPECT_EQ(history_.Flood(), 12);
  EXPECT_EQ(history_.FloodEnd(), first + minutes(10)) << "one second, one end";
  now_ = first + seconds(1);
  for (int i = 0; i < 11; ++i) Raise(Error(1));
  EXPECT_EQ(history_.Flood(), 23);
  EXPECT_EQ(history_.FloodEnd(), first + seconds(1) + minutes(10));
  now_ = first + minutes(10);
  EXPECT_EQ(history_.Flood(), 11);
  EXPECT_EQ(history_.FloodEnd(), first + seconds(1) + minutes(10));
  Raise(Error(1));
  EXPECT_EQ(history_.Flood(), 12) << "what is over counts no more";
}

TEST_F(ErrorHistoryTest, AClockThatIsSetBackEndsNoFlood) {
  for (int i = 0; i < 11; ++i) Raise(Error(1));
  const ErrorTime first = now_;
  now_ -= minutes(60);
  EXPECT_EQ(history_.Flood(), 11);
  EXPECT_EQ(history_.FloodEnd(), first + minutes(10));
  EXPECT_EQ(Front().last, first);
}

TEST_F(ErrorHistoryTest, ErrorsWhoseFieldsRunIntoOneAnotherAreNotEqual) {
  Summary one = Error(1);
  one.channel = 12;
  Summary other = Error(11);
  other.channel = 2;
  Raise(one);
  Raise(other);
  one.module = u"ab";
  one.text = u"c";
  other = one;
  other.module = u"a";
  other.text = u"bc";
  Raise(one);
  Raise(other);
  one.parameters = {u"ab"};
  other = one;
  other.parameters = {u"a", u"b"};
  Raise(one);
  Raise(other);
  EXPECT_EQ(history_.Rows().size(), 6u);
  one = Error(1, u"at");
  one.program = {u"C:\\", u"A.NC", 10, 3};
  other = Error(1, u"atC:");
  other.program = {u"\\", u"A.NC", 10, 3};
  Raise(one);
  Raise(other);
  EXPECT_EQ(history_.Rows().size(), 8u) << "the text and the program's folder";
}

}  // namespace
}  // namespace panel
