// SPDX-License-Identifier: MIT
// A program on its way into the editor: its first page, the progress, and what stays as it was when it is cancelled,
// refused or left by the end of the panel.
#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimerEvent>
#include <memory>

#include "common/words.h"
#include "panel/qt/files_fixture.h"
#include "remote/settle.h"
#include "ui/editor_bars.h"
#include "ui/panel_key.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {
namespace {

constexpr int kPatience = 60'000;

class NobodyAsked : public FileAsker {
 public:
  void Ask(const FileRequest&, Accepted, Left left) override { left(); }
};

class OpeningTest : public FilesTest {
 protected:
  OpeningTest() : editor_(&window_), question_(&window_) {
    UseWords("en");
    folder_.Write("big.nc", Big());
    desk_ = std::make_unique<ProgramDesk>(editor_, asker_, question_, Resolver(), nullptr);
    QObject::connect(desk_.get(), &ProgramDesk::Said, desk_.get(),
                     [this](const QString& text, bool warning) { said_ << (warning ? "!" : "") + text; });
    window_.resize(640, 480);
    editor_.resize(600, 400);
    window_.show();
    window_.activateWindow();
    editor_.setFocus();
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    // The program that was open, with a change that can be undone.
    editor_.SetProgram("G0\nG1\n", "C:\\OLD.NC");
    editor_.Insert("(mine)");
    revision_ = editor_.Revision();
    old_ = &editor_.Edit();
  }
  static std::string Big() {
    std::string text;
    for (int i = 0; i < 150'000; ++i) text += "N" + std::to_string(i) + " G1 X1 (big)\r\n";
    return text;
  }
  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return desk_->Working(); }, kPatience));
  }
  /// Opens the big program until its first page is seen.
  void OpenUntilSeen() {
    desk_->Load("C:\\big.nc");
    ASSERT_TRUE(WaitWhile([this] { return &editor_.Edit() == old_; }, kPatience));
    ASSERT_TRUE(editor_.Opening());
  }
  void ExpectOldAsItWas() {
    EXPECT_EQ(&editor_.Edit(), old_);
    EXPECT_TRUE(old_->isVisible());
    EXPECT_EQ(editor_.Text(), "(mine)G0\nG1\n");
    EXPECT_EQ(editor_.Name(), "C:\\OLD.NC");
    EXPECT_EQ(editor_.Revision(), revision_);
    EXPECT_TRUE(editor_.IsModified());
    EXPECT_FALSE(old_->isReadOnly());
    EXPECT_FALSE(editor_.OpeningShown().isVisible());
    editor_.Do(Action::kUndo);
    EXPECT_EQ(editor_.Text(), "G0\nG1\n") << "its changes can still be undone";
  }

  QWidget window_;
  ProgramEditor editor_;
  NobodyAsked asker_;
  Question question_;
  std::unique_ptr<ProgramDesk> desk_;
  QStringList said_;
  CodeEdit* old_ = nullptr;
  int revision_ = 0;
};

TEST_F(OpeningTest, TheFirstPageIsThereBeforeTheRestIsFilledIn) {
  OpenUntilSeen();
  EXPECT_TRUE(editor_.Edit().document()->toPlainText().startsWith("N0 G1 X1 (big)\nN1 G1 X1 (big)\n"));
  EXPECT_LT(editor_.Edit().blockCount(), 150'000);
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  EXPECT_TRUE(editor_.Edit().hasFocus()) << "it can be read with the keys";
  EXPECT_FALSE(old_->isVisible());
  EXPECT_TRUE(editor_.OpeningShown().isVisible());
  EXPECT_EQ(editor_.Text(), "(mine)G0\nG1\n") << "the old program is the editor's until then";
  Rest();
  EXPECT_EQ(editor_.Text().size(), static_cast<qsizetype>(Big().size()) - 150'000);
  EXPECT_EQ(editor_.Edit().blockCount(), 150'001);
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_FALSE(editor_.OpeningShown().isVisible());
  EXPECT_EQ(editor_.Name(), "C:\\big.nc");
  EXPECT_EQ(desk_->Path(), "C:\\big.nc");
}

TEST_F(OpeningTest, TheProgressOnlyGrowsUntilTheProgramIsThere) {
  int last = 0;
  bool half = false;
  desk_->Load("C:\\big.nc");
  ASSERT_TRUE(WaitWhile(
      [&] {
        if (editor_.OpeningShown().isVisible()) {
          EXPECT_GE(editor_.OpeningShown().Percent(), last);
          last = editor_.OpeningShown().Percent();
          half = half || (editor_.Filling() && last >= 50);
        }
        return desk_->Working();
      },
      kPatience));
  EXPECT_TRUE(half) << "reading is one half, filling in the other";
  EXPECT_LE(last, 100);
}

TEST_F(OpeningTest, TheKeyCancelsAndTheOldProgramIsAsItWas) {
  OpenUntilSeen();
  editor_.OpeningShown().CancelKey()->click();
  EXPECT_FALSE(desk_->Working());
  EXPECT_EQ(said_, QStringList{Say(Word::kOpeningCancelled, "C:\\big.nc")});
  EXPECT_EQ(desk_->Path(), "");
  EXPECT_TRUE(editor_.Edit().hasFocus());
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, EscapeCancelsWhileItIsFilledInToo) {
  desk_->Load("C:\\big.nc");
  ASSERT_TRUE(WaitWhile([this] { return !editor_.Filling(); }, kPatience));
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&editor_.Edit(), &escape);
  EXPECT_FALSE(desk_->Working());
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  ExpectOldAsItWas();
  EXPECT_EQ(said_.size(), 1);
}

TEST_F(OpeningTest, EscapeCancelsBeforeAnythingIsSeen) {
  desk_->Load("C:\\big.nc");
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&editor_.Edit(), &escape);
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, AFileThatTurnsOutToBeNoTextLeavesTheOldProgramAsItWas) {
  std::string bytes = Big();
  bytes[bytes.size() - 10] = '\0';
  folder_.Write("bad.nc", bytes);
  desk_->Load("C:\\bad.nc");
  Rest();
  EXPECT_EQ(said_, QStringList{"!" + Say(Word::kNotAText, "C:\\bad.nc")});
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, AFirstPageThatWasReadInAnotherEncodingIsReadAgain) {
  const std::string plain = Big();
  folder_.Write("latin.nc", "(\xC3\x98 10)\r\n" + plain + "(\xD8)\r\n");
  desk_->Load("C:\\latin.nc");
  Rest();
  EXPECT_TRUE(editor_.Text().startsWith(QString::fromLatin1("(\xC3\x98 10)\nN0 G1")));
  EXPECT_TRUE(editor_.Text().endsWith(QString::fromLatin1("(\xD8)\n")));
  EXPECT_EQ(editor_.Edit().blockCount(), 150'003);
}

TEST_F(OpeningTest, WhatIsInsertedMeanwhileIsNotLostWhenTheOpeningIsCancelled) {
  OpenUntilSeen();
  editor_.Insert("S1000");
  EXPECT_EQ(editor_.Text(), "(mine)G0\nG1\n");
  desk_->CancelOpening();
  EXPECT_EQ(editor_.Text(), "(mine)S1000G0\nG1\n");
}

TEST_F(OpeningTest, NothingIsSavedOrChangedOnTheWay) {
  OpenUntilSeen();
  desk_->Store("C:\\other.nc");
  EXPECT_EQ(said_, QStringList{"!" + Say(Word::kStillOpening)});
  for (const Action action : {Action::kUndo, Action::kFind, Action::kReplace, Action::kGoToLine}) {
    EXPECT_FALSE(editor_.Can(action));
    editor_.Do(action);
  }
  Rest();
  EXPECT_FALSE(folder_.Has("other.nc"));
  EXPECT_TRUE(editor_.Can(Action::kFind));
  EXPECT_FALSE(editor_.Can(Action::kUndo));
}

TEST_F(OpeningTest, AnOpeningThatTakesItsTimeGetsItsKeyToCancel) {
  editor_.BeginOpening("C:\\SLOW.NC");
  EXPECT_FALSE(editor_.OpeningShown().isVisible()) << "a short one doesn't flash a bar";
  ASSERT_TRUE(WaitWhile([this] { return !editor_.OpeningShown().isVisible(); }, kPatience));
  EXPECT_EQ(editor_.OpeningShown().geometry().bottom() + 1, editor_.Edit().y());
  EXPECT_EQ(editor_.OpeningShown().CancelKey()->text(), Say(Word::kCancel));
  editor_.CancelOpening();
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, TheBarComesByATimerOfItsOwnAndOnce) {
  const auto timers = [this] { return QAbstractEventDispatcher::instance()->registeredTimers(&editor_); };
  ASSERT_TRUE(timers().isEmpty());
  editor_.BeginOpening("C:\\SLOW.NC");
  ASSERT_EQ(timers().size(), 1);
  EXPECT_EQ(timers()[0].interval, 300);
  QTimerEvent other(timers()[0].timerId + 1000);
  QCoreApplication::sendEvent(&editor_, &other);
  EXPECT_FALSE(editor_.OpeningShown().isVisible());
  EXPECT_EQ(timers().size(), 1);
  QTimerEvent tick(timers()[0].timerId);
  QCoreApplication::sendEvent(&editor_, &tick);
  EXPECT_TRUE(editor_.OpeningShown().isVisible());
  EXPECT_TRUE(timers().isEmpty());
  editor_.CancelOpening();
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, ABigOneGetsItsBarAtOnceAndASmallOneDoesNot) {
  const auto timers = [this] { return QAbstractEventDispatcher::instance()->registeredTimers(&editor_).size(); };
  editor_.BeginOpening("C:\\BIG.NC");
  editor_.ShowReading(10, false);
  EXPECT_FALSE(editor_.OpeningShown().isVisible());
  EXPECT_EQ(timers(), 1);
  editor_.ShowReading(20, true);
  EXPECT_TRUE(editor_.OpeningShown().isVisible());
  EXPECT_EQ(timers(), 0) << "nothing is left to wait for";
  EXPECT_EQ(editor_.OpeningShown().Percent(), 10) << "reading is half of it";
  editor_.CancelOpening();
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, WhatWaitsForASaveGoesOnAfterAnOpeningThatWasCancelled) {
  bool went = false;
  desk_->Store("C:\\one.nc");
  desk_->Store("C:\\two.nc");
  desk_->Load("C:\\big.nc");
  desk_->AskToDiscard([&went] { went = true; });
  ASSERT_TRUE(WaitWhile([this] { return said_.size() < 2; }, kPatience));
  EXPECT_EQ(said_, (QStringList{Say(Word::kSaved, "C:\\one.nc"), "!" + Say(Word::kStillOpening)}));
  EXPECT_FALSE(went);
  desk_->CancelOpening();
  EXPECT_TRUE(went) << "nothing is left to discard";
}

TEST_F(OpeningTest, ThePanelMayEndOnTheWay) {
  OpenUntilSeen();
  desk_.reset();
  editor_.CancelOpening();
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  ExpectOldAsItWas();
}

TEST_F(OpeningTest, TheNewsOfABigFileBeginWithItsFirstLines) {
  std::vector<ReadNews> news;
  const ProgramText all = ReadProgram(Host("big.nc"), [&news](const ReadNews& one) {
    news.push_back(one);
    return true;
  });
  ASSERT_GE(news.size(), 3u);
  EXPECT_TRUE(all.text.startsWith(news[0].first));
  EXPECT_TRUE(news[0].first.endsWith('\n'));
  EXPECT_GT(news[0].first.size(), 60'000);
  for (std::size_t i = 1; i < news.size(); ++i) {
    EXPECT_EQ(news[i].first, "");
    EXPECT_GE(news[i].percent, news[i - 1].percent);
    EXPECT_EQ(news[i].bytes, static_cast<qint64>(Big().size()));
  }
  EXPECT_EQ(news.back().percent, 100);
  int asked = 0;
  (void)ReadProgram(Host("big.nc"), [&asked](const ReadNews&) { return ++asked < 2; });
  EXPECT_EQ(asked, 2) << "a file that isn't wanted any more isn't read to its end";
  folder_.Write("small.nc", "G0\n");
  EXPECT_EQ(ReadProgram(Host("small.nc"), [](const ReadNews&) { return false; }).text, "G0\n");
}

}  // namespace
}  // namespace panel
