// SPDX-License-Identifier: MIT
// The remote control on standard input and output: lines in, replies out, the end of input and "quit", and the panel's
// own questions as boxes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <array>

#include "panel/qt/remote_fixture.h"
#include "remote/standard_streams.h"

namespace panel {
namespace {

/// Its question is the test's to ask, its work the test's to end.
class AskingPanel : public PlainPanel {
 public:
  /// A little more is done with each turn of the events.
  bool Working() const override {
    if (work == 0) return false;
    --work;
    QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::User));
    return true;
  }
  void AnswerQuestions(const std::function<bool(const QString& text)>& answer) override { ask = answer; }

  QString ProgramText() const override { return program; }

  std::function<bool(const QString& text)> ask;
  mutable int work = 0;
  QString program;
};

/// Pipes in the place of standard input and output.
class RemoteSession : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(PnlRig()->StartBare()); }
  RemoteSession() {
    EXPECT_EQ(pipe(in_.data()) + pipe(out_.data()), 0);
    dup2(in_[0], STDIN_FILENO);
    dup2(out_[1], STDOUT_FILENO);
    session.SetToolArea(&face.area);
    session.SetMainWindow(&face.panel);
    remote = std::make_unique<RemoteControl>(session, face, RemoteOptions{true, false});
    remote->Start();
  }
  ~RemoteSession() override {
    remote.reset();
    EndInput();
    dup2(oldIn_, STDIN_FILENO);
    dup2(oldOut_, STDOUT_FILENO);
    for (const int descriptor : {oldIn_, oldOut_, in_[0], out_[0], out_[1]}) close(descriptor);
  }
  void Put(const QByteArray& bytes) const {
    EXPECT_EQ(write(in_[1], bytes.data(), static_cast<std::size_t>(bytes.size())), bytes.size());
  }
  void EndInput() {
    if (in_[1] >= 0) close(in_[1]);
    in_[1] = -1;
  }
  /// The ids of the replies that came, and the codes of those that are errors.
  QStringList Replies() {
    QByteArray bytes;
    for (int round = 0; round < 200; ++round) {
      QCoreApplication::processEvents();
      int there = 0;
      if (ioctl(out_[0], FIONREAD, &there) != 0 || there == 0) continue;
      QByteArray piece(there, '\0');
      EXPECT_EQ(read(out_[0], piece.data(), static_cast<std::size_t>(there)), there);
      bytes += piece;
    }
    EXPECT_TRUE(bytes.isEmpty() || bytes.endsWith('\n'));
    QStringList replies;
    for (const QByteArray& line : bytes.split('\n')) {
      if (line.isEmpty()) continue;
      const QJsonObject reply = QJsonDocument::fromJson(line).object();
      const QString id = reply["id"].isNull() ? QString("null") : reply["id"].toVariant().toString();
      replies << (reply.contains("error") ? id + " " + QString::number(reply["error"].toObject()["code"].toInt()) : id);
    }
    return replies;
  }
  /// What the application's event loop ends with; -1 when nobody ends it.
  static int Exec() {
    struct Guard : QObject {
      bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        constexpr int kMostRounds = 10000;
        if (++rounds > kMostRounds) {
          QCoreApplication::exit(-1);
        } else {
          QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
        return true;
      }
      int rounds = 0;
    } guard;
    QCoreApplication::postEvent(&guard, new QEvent(QEvent::User));
    return QCoreApplication::exec();
  }

  AskingPanel face;
  HostSession session;
  std::unique_ptr<RemoteControl> remote;

 private:
  std::array<int, 2> in_{-1, -1};
  std::array<int, 2> out_{-1, -1};
  int oldIn_ = dup(STDIN_FILENO);
  int oldOut_ = dup(STDOUT_FILENO);
};

TEST_F(RemoteSession, LinesAreAnsweredInOrderOneReplyALine) {
  Put("{\"id\":1,\"method\":\"ui.dialogs\"}\n\n{\"id\":2,\"method\":\"no.such\"}\nwhat\n{\"method\":\"ui.dialogs\"}\n{"
      "\"i");
  EXPECT_EQ(Replies(), QStringList({"1", "2 -32601", "null -32700"}));
  Put("d\":3,\"method\":\"ui.dialogs\"}\n");
  EXPECT_EQ(Replies(), QStringList{"3"});
}

TEST_F(RemoteSession, TheEndOfInputAnswersTheLastLineAndEndsThePanel) {
  Put("{\"id\":1,\"method\":\"ui.dialogs\"}");
  EXPECT_EQ(Replies(), QStringList());
  const PnlWindow tool = session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea());
  ASSERT_NE(tool, 0);
  EndInput();
  EXPECT_EQ(Exec(), 0);
  EXPECT_EQ(Replies(), QStringList{"1"});
  EXPECT_EQ(PnlIsAlive(tool), 0) << "every tool is closed";
}

TEST_F(RemoteSession, QuitIsAnsweredAndNothingAfterIt) {
  const PnlWindow tool = session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea());
  ASSERT_NE(tool, 0);
  Put("{\"id\":1,\"method\":\"quit\"}\n{\"id\":2,\"method\":\"ui.dialogs\"}\n");
  EXPECT_EQ(Exec(), 0);
  EXPECT_EQ(Replies(), QStringList{"1"});
  EXPECT_EQ(PnlIsAlive(tool), 0);
  Put("{\"id\":3,\"method\":\"ui.dialogs\"}\n");
  EXPECT_EQ(Replies(), QStringList());
  EXPECT_TRUE(remote->Answer("{\"id\":4,\"method\":\"ui.dialogs\"}").contains("the panel is ending"));
}

TEST_F(RemoteSession, WhenQuitIsAnsweredTheToolsHaveGone) {
  const PnlWindow tool = session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea());
  ASSERT_NE(tool, 0);
  bool told = false;
  QObject listener;
  QObject::connect(
      static_cast<QWidget*>(PnlWidgetOf(tool)), &QObject::destroyed, &listener, [&told] { told = true; },
      Qt::QueuedConnection);
  EXPECT_TRUE(remote->Answer("{\"id\":1,\"method\":\"quit\"}").contains("result"));
  EXPECT_EQ(PnlIsAlive(tool), 0);
  EXPECT_TRUE(told) << "and what follows from it is done";
}

TEST_F(RemoteSession, ThePanelsOwnQuestionsAreBoxes) {
  ASSERT_TRUE(face.ask);
  (void)remote->Answer(R"({"id":1,"method":"trace.take"})");
  (void)remote->Answer(R"({"id":1,"method":"ui.answer","params":{"answers":["no","ok","cancel","yes"]}})");
  EXPECT_FALSE(face.ask("Close it?"));
  EXPECT_TRUE(face.ask("ok"));
  EXPECT_FALSE(face.ask("cancel"));
  EXPECT_TRUE(face.ask("yes"));
  EXPECT_TRUE(face.ask("none left"));
  const QJsonArray events = QJsonDocument::fromJson(remote->Answer(R"({"id":1,"method":"trace.take"})"))
                                .object()["result"]
                                .toObject()["events"]
                                .toArray();
  ASSERT_EQ(events.size(), 5);
  EXPECT_EQ(
      events[0].toObject(),
      (QJsonObject{
          {"kind", "box"}, {"title", "pnlpanel"}, {"text", "Close it?"}, {"style", "question"}, {"answer", "no"}}));
  remote.reset();
  EXPECT_FALSE(face.ask) << "the questions are the operator's again";
}

TEST_F(RemoteSession, AReplyWaitsForThePanelsWork) {
  face.work = 3;
  EXPECT_TRUE(remote->Answer(R"({"id":1,"method":"ui.dialogs"})").contains("result"));
  EXPECT_EQ(face.work, 0);
}

TEST_F(RemoteSession, NoLineIsAnsweredInsideAnother) {
  // So much that the next lines wait until somebody takes the first reply.
  face.program = QString(2 << 20, 'x');
  Put("{\"id\":1,\"method\":\"program.text\"}\n{\"id\":2,\"method\":\"ui.dialogs\"}\n"
      "{\"id\":3,\"method\":\"ui.dialogs\"}\n");
  QCoreApplication::processEvents();
  Put("{\"id\":4,\"method\":\"ui.dialogs\"}\n");
  // The second one then works on events, which bring the fourth.
  face.work = 50;
  EXPECT_EQ(Replies(), QStringList({"1", "2", "3", "4"}));
}

TEST_F(RemoteSession, UnderBareThePanelOnlyRecords) {
  EXPECT_FALSE(session.Reacting());
  const RemoteControl other(session, face, {false, false});
  EXPECT_TRUE(session.Reacting());
}

TEST_F(RemoteSession, ACallbackIsToldUntilTheRemoteControlEnds) {
  session.OfferAll();
  (void)remote->Answer(R"({"id":1,"method":"trace.take"})");
  emit session.Called({14, {}});
  EXPECT_TRUE(remote->Answer(R"({"id":1,"method":"trace.take"})").contains("HostErrorsGone"));
  remote.reset();
  emit session.Called({14, {}});
}

TEST(StandardDescriptors, ThoseThatAreMissingAreFilledAndNoMore) {
  for (const int missing : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const int next = open("/dev/null", O_RDWR);
    close(next);
    const pid_t child = fork();
    if (child == 0) {
      close(missing);
      KeepStandardDescriptors();
      const bool kept = fcntl(missing, F_GETFD) >= 0 && open("/dev/null", O_RDWR) == next;
      _exit(kept ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << missing;
  }
}

}  // namespace
}  // namespace panel
