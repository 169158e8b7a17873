// SPDX-License-Identifier: MIT
// Journals of several panels in one folder: nobody takes another one's, and what a killed panel has left is found.
#include "host/journal_slot.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include <QDateTime>
#include <QDir>
#include <QFile>

#include "support/temp_folder.h"

namespace panel {
namespace {

class Slots : public ::testing::Test {
 protected:
  [[nodiscard]] QString Folder() const { return QString::fromStdString((temp_.Path() / "user").string()); }
  static void Write(const QString& name, const QByteArray& bytes = "x") {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  static QByteArray Read(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  }
  [[nodiscard]] QStringList Names() const { return QDir(Folder()).entryList(QDir::Files, QDir::Name); }
  [[nodiscard]] std::unique_ptr<JournalSlot> Left() const {
    return JournalSlot::TakeLeft(Folder(), [](const JournalSlot&) { return true; });
  }
  /// Leaves the journal of a killed panel, with these bytes in it.
  void BeKilledWith(const QByteArray& bytes) const {
    const pid_t child = fork();
    if (child == 0) {
      const auto slot = JournalSlot::TakeFree(Folder());
      Write(slot->Journal(), bytes);
      raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  pnl::test::TempFolder temp_;
};

TEST_F(Slots, AFolderWithoutJournalsHasNothingLeftAndIsNotMade) {
  EXPECT_EQ(Left(), nullptr);
  EXPECT_FALSE(QDir(Folder()).exists());
}

TEST_F(Slots, TwoPanelsInOneFolderHaveASlotEach) {
  const auto one = JournalSlot::TakeFree(Folder());
  const auto two = JournalSlot::TakeFree(Folder());
  ASSERT_TRUE(one && two);
  EXPECT_NE(one->Journal(), two->Journal());
  EXPECT_NE(one->Copy(0), one->Copy(1));
  EXPECT_NE(one->Copy(0), two->Copy(0));
}

TEST_F(Slots, SixteenPanelsShareAFolderAndTheNextHasNoSlot) {
  std::vector<std::unique_ptr<JournalSlot>> taken;
  for (int number = 1; number <= 16; ++number) {
    taken.push_back(JournalSlot::TakeFree(Folder()));
    ASSERT_TRUE(taken.back()) << number;
    const QString base = Folder() + QStringLiteral("/PNLPANEL%1").arg(number);
    EXPECT_EQ(taken.back()->Journal(), base + ".JNL");
    EXPECT_EQ(taken.back()->Copy(0), base + "A.TXT");
    EXPECT_EQ(taken.back()->Copy(1), base + "B.TXT");
  }
  EXPECT_EQ(JournalSlot::TakeFree(Folder()), nullptr);
  taken.back().reset();
  Write(Folder() + "/PNLPANEL16.JNL");
  Write(Folder() + "/PNLPANEL17.JNL");
  const auto left = Left();
  ASSERT_TRUE(left) << "the last one is looked at too";
  EXPECT_EQ(left->Journal(), Folder() + "/PNLPANEL16.JNL");
}

TEST_F(Slots, AFolderOfAJournalsNameIsNoJournal) {
  ASSERT_TRUE(QDir().mkpath(Folder() + "/PNLPANEL1.JNL"));
  EXPECT_EQ(Left(), nullptr);
}

TEST_F(Slots, ALockIsItsOwnersAloneAndNoChildHasIt) {
  const int next = dup(STDIN_FILENO);
  close(next);
  {
    const auto slot = JournalSlot::TakeFree(Folder());
    ASSERT_TRUE(slot);
    EXPECT_EQ(fcntl(next, F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(QFile::permissions(Folder() + "/PNLPANEL1.LCK"),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
    // A second look at the taken slot leaves no file open.
    const auto other = JournalSlot::TakeFree(Folder());
    EXPECT_EQ(fcntl(next + 1, F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(fcntl(next + 2, F_GETFD), -1);
    EXPECT_EQ(Names(), QStringList({"PNLPANEL1.LCK", "PNLPANEL2.LCK"}));
  }
  EXPECT_EQ(fcntl(next, F_GETFD), -1) << "it is closed";
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Slots, ALockThatLeadsElsewhereIsNotTaken) {
  const std::string folder = temp_.Folder("user");
  ASSERT_EQ(symlink((temp_.Path() / "elsewhere").c_str(), (folder + "/PNLPANEL1.LCK").c_str()), 0);
  const auto slot = JournalSlot::TakeFree(Folder());
  ASSERT_TRUE(slot);
  EXPECT_EQ(slot->Journal(), Folder() + "/PNLPANEL2.JNL");
  EXPECT_FALSE(temp_.Has("elsewhere"));
}

TEST_F(Slots, TheJournalOfALivingPanelIsNotLeft) {
  const auto one = JournalSlot::TakeFree(Folder());
  Write(one->Journal());
  EXPECT_EQ(Left(), nullptr);
}

TEST_F(Slots, TheJournalOfAKilledPanelIsLeftAndNotWrittenOver) {
  BeKilledWith("G1 X10");
  const auto other = JournalSlot::TakeFree(Folder());
  ASSERT_TRUE(other);
  Write(other->Journal(), "another panel's");
  const auto left = Left();
  ASSERT_TRUE(left);
  EXPECT_EQ(Read(left->Journal()), "G1 X10");
  // Nobody else can take it now.
  EXPECT_EQ(Left(), nullptr);
}

TEST_F(Slots, TheNewestOfTheWantedOnesIsTaken) {
  BeKilledWith("older");
  BeKilledWith("damaged");
  const auto age = [this](int number, int seconds) {
    QFile file(Folder() + QStringLiteral("/PNLPANEL%1.JNL").arg(number));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(1'700'000'000 + seconds), QFile::FileModificationTime));
  };
  age(1, 0);
  age(2, 5);
  {
    const auto newest = Left();
    ASSERT_TRUE(newest);
    EXPECT_EQ(Read(newest->Journal()), "damaged");
  }
  const auto readable =
      JournalSlot::TakeLeft(Folder(), [](const JournalSlot& slot) { return Read(slot.Journal()) != "damaged"; });
  ASSERT_TRUE(readable);
  EXPECT_EQ(Read(readable->Journal()), "older");
}

TEST_F(Slots, AClearedSlotLeavesNothingInTheFolder) {
  auto slot = JournalSlot::TakeFree(Folder());
  Write(slot->Journal());
  Write(slot->Copy(0));
  Write(slot->Copy(1));
  slot->Clear();
  slot.reset();
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Slots, AFolderThatCannotBeMadeHasNoSlot) {
  temp_.Write("user", "a file");
  EXPECT_EQ(JournalSlot::TakeFree(Folder()), nullptr);
  EXPECT_EQ(JournalSlot::TakeFree(QString()), nullptr);
}

}  // namespace
}  // namespace panel
