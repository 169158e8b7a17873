// SPDX-License-Identifier: MIT
// The guided session as ./run and the script for the pictures of the docs start it, and the pictures that the docs
// show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <memory>

#include "support/temp_folder.h"

namespace panel::test {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr int kFailed = 1;
const QString kSources = QStringLiteral(PNL_SOURCE_FOLDER);

struct Session {
  int exitCode = -1;
  QStringList steps;  // the lines that it has printed
};

Session RunSession(const QString& folder, const QStringList& options = {}) {
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QStringLiteral(PNL_PANEL_PROGRAM), QStringList{"--headless", "--guided", folder} + options);
  Session session;
  if (!process.waitForFinished(-1)) return session;
  if (process.exitStatus() == QProcess::NormalExit) session.exitCode = process.exitCode();
  session.steps = QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  return session;
}

std::vector<std::string> Names(const QStringList& names) {
  std::vector<std::string> all;
  for (const QString& name : names) all.push_back(name.toStdString());
  std::sort(all.begin(), all.end());
  return all;
}

QStringList PicturesIn(const QString& folder) { return QDir(folder).entryList({"*.png"}, QDir::Files, QDir::Name); }

/// Pictures that scripts of their own make.
bool IsOfOthers(const QString& picture) { return picture.contains("explorer-") || picture.contains("shift-"); }

/// The whole session in English, played once for all tests.
class Guided : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<pnl::test::TempFolder>();
    english_ = RunSession(Folder());
  }
  static void TearDownTestSuite() { folder_.reset(); }
  static QString Folder() { return QString::fromStdString((folder_->Path() / "en").string()); }

  static inline std::unique_ptr<pnl::test::TempFolder> folder_;
  static inline Session english_;
};

TEST_F(Guided, EveryStepDoesWhatItSaysAndLeavesAPicture) {
  EXPECT_EQ(english_.exitCode, 0);
  const QStringList pictures = PicturesIn(Folder());
  ASSERT_EQ(pictures.size(), english_.steps.size());
  for (int i = 0; i < pictures.size(); ++i) {
    const QString number = QStringLiteral("%1").arg(i + 1, 2, 10, QLatin1Char('0'));
    EXPECT_TRUE(pictures[i].startsWith(number + "-")) << pictures[i].toStdString();
    EXPECT_TRUE(english_.steps[i].startsWith(number + " ")) << english_.steps[i].toStdString();
    EXPECT_FALSE(english_.steps[i].contains("FAILED"));
    EXPECT_GE(QImage(Folder() + "/" + pictures[i]).width(), 800) << pictures[i].toStdString();
  }
}

TEST_F(Guided, MessagesAndHelpHaveTheirSteps) {
  QStringList names;
  for (const QString& picture : PicturesIn(Folder())) {
    if (picture.contains("-message-") || picture.contains("-help-")) names << picture.mid(3);
  }
  EXPECT_THAT(Names(names),
              ElementsAreArray({"help-block.png", "help-closed.png", "help-contents.png", "help-find.png",
                                "help-index.png", "help-manuals.png", "help-search.png", "message-done.png",
                                "message-error-back.png", "message-error-help.png", "message-page.png",
                                "message-picture.png", "message-queue.png", "message-text.png", "message-video.png"}));
}

TEST_F(Guided, TheListOfManualsLiesOverThePanel) {
  const QString name = PicturesIn(Folder()).filter("help-manuals").value(0);
  const QString before = PicturesIn(Folder()).filter("help-find").value(0);
  const QImage list(Folder() + "/" + name);
  const QImage panel(Folder() + "/" + before);
  ASSERT_EQ(list.size(), panel.size());
  // Around the dialog the panel is as it was; in the middle is the dialog.
  const QRect state(0, 0, list.width() / 5, 40);
  EXPECT_EQ(list.copy(state), panel.copy(state));
  const QRect middle(list.width() / 2 - 50, list.height() / 2 - 50, 100, 100);
  EXPECT_NE(list.copy(middle), panel.copy(middle));
}

TEST_F(Guided, TheOtherLanguageAndALargePanelGoTheSameWay) {
  const QString folder = QString::fromStdString((folder_->Path() / "es").string());
  const Session spanish = RunSession(folder, {"--lang", "es", "--size", "1600x860"});
  EXPECT_EQ(spanish.exitCode, 0);
  EXPECT_EQ(Names(PicturesIn(folder)), Names(PicturesIn(Folder())));
}

TEST_F(Guided, APictureThatCantBeSavedEndsTheSessionAtItsStep) {
  const QString folder = QString::fromStdString(folder_->Folder("blocked"));
  ASSERT_TRUE(QDir(folder).mkpath("02-mdi.png"));
  const Session session = RunSession(folder);
  EXPECT_EQ(session.exitCode, kFailed);
  ASSERT_EQ(session.steps.size(), 2);
  EXPECT_FALSE(session.steps[0].contains("FAILED"));
  EXPECT_TRUE(session.steps[1].endsWith("  -- FAILED"));
}

TEST_F(Guided, AFolderThatCantBeMadeIsAFailure) {
  folder_->Write("file", "");
  const Session session = RunSession(QString::fromStdString((folder_->Path() / "file" / "out").string()));
  EXPECT_EQ(session.exitCode, kFailed);
  EXPECT_THAT(Names(session.steps), IsEmpty());
}

// The pictures of the docs.

/// The names of the pictures that the pages show, each once.
QStringList ShownByPages() {
  const QRegularExpression picture(R"(!\[[^\]]*\]\((?:docs/)?images/([^)]+)\))");
  QSet<QString> names;
  for (const char* page : {"/README.md", "/docs/operating.md"}) {
    QFile file(kSources + page);
    if (!file.open(QIODevice::ReadOnly)) return {};
    for (auto found = picture.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
      names << found.next().captured(1);
    }
  }
  return names.values();
}

TEST_F(Guided, TheDocsHaveThePicturesThatTheirPagesShowAndNoOthers) {
  EXPECT_GT(ShownByPages().size(), 20);
  EXPECT_EQ(Names(PicturesIn(kSources + "/docs/images")), Names(ShownByPages())) << "scripts/captures makes them again";
}

TEST_F(Guided, ThePicturesOfTheDocsAreOfStepsThatTheSessionHas) {
  QStringList shown;
  for (const QString& picture : ShownByPages()) {
    if (!IsOfOthers(picture)) shown << picture;
  }
  EXPECT_THAT(Names(PicturesIn(Folder())), IsSupersetOf(Names(shown))) << "scripts/captures makes them again";
}

}  // namespace
}  // namespace panel::test
