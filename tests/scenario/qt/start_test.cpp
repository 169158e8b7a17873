// SPDX-License-Identifier: MIT
// How the panel starts and what it says when it can't: exit codes, standard output and standard error.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

struct Ended {
  int code = -1;
  std::string out;
  std::string errors;
};

class Start : public ::testing::Test {
 protected:
  /// Runs the panel until it ends, with that input and without those variables of the environment.
  Ended Run(const QStringList& options, const QStringList& without = {}, const std::string& input = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : without) environment.remove(name);
    QProcess process;
    process.setProcessEnvironment(environment);
    temp_.Write("input", input);
    process.setStandardInputFile(QString::fromStdString((temp_.Path() / "input").string()));
    process.start(PNL_PANEL_PROGRAM, options);
    EXPECT_TRUE(process.waitForFinished(-1));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
  }
  [[nodiscard]] QString Root() const { return QString::fromStdString((temp_.Path() / "root").string()); }

  pnl::test::TempFolder temp_;
};

TEST_F(Start, APageThatIsAskedForIsPrintedAndNothingStarts) {
  const Ended help = Run({"--help", "--root", Root()});
  EXPECT_EQ(help.code, 0);
  EXPECT_TRUE(QString::fromStdString(help.out).startsWith("pnlpanel: the panel program of the tool library\n"));
  const Ended keys = Run({"--keys", "--lang", "es", "--root", Root()});
  EXPECT_EQ(keys.code, 0);
  EXPECT_TRUE(QString::fromStdString(keys.out).startsWith("| keys | what |\n"));
  EXPECT_TRUE(QString::fromStdString(keys.out).contains("| F9, Ctrl+Return, Ctrl+Enter | Marcha |")) << keys.out;
  EXPECT_EQ(help.errors + keys.errors, "");
  EXPECT_FALSE(temp_.Has("root"));
}

TEST_F(Start, AWrongCommandLineIsSaidOnStandardError) {
  const Ended ended = Run({"--hurry"});
  EXPECT_EQ(ended.code, 2);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.errors, "pnlpanel: unknown option: --hurry\nTry pnlpanel --help.\n");
}

TEST_F(Start, WithoutADisplayThePanelSaysWhatToDo) {
  const QStringList displays{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  const Ended ended = Run({"--bare", "--until-painted", "--root", Root()}, displays);
  EXPECT_EQ(ended.code, 2);
  EXPECT_EQ(ended.errors, "pnlpanel: there is no display; --headless draws off screen\nTry pnlpanel --help.\n");
  EXPECT_FALSE(temp_.Has("root"));
  EXPECT_EQ(Run({"--headless", "--bare", "--until-painted", "--root", Root()}, displays).code, 0)
      << "head-less needs none";
}

TEST_F(Start, AFolderThatCannotBeMadeIsNamed) {
  temp_.Write("root", "a file in its place");
  const QString folder = Root() + "/below";
  const Ended ended = Run({"--headless", "--bare", "--root", folder});
  EXPECT_EQ(ended.code, 2);
  EXPECT_TRUE(QString::fromStdString(ended.errors).contains("--root: the folder " + folder + " can't be made\n"))
      << ended.errors;
}

TEST_F(Start, AMissingLanguageIsSaidAndThePanelWorks) {
  const Ended ended = Run({"--headless", "--rpc", "--bare", "--lang", "xx", "--root", Root()});
  EXPECT_EQ(ended.code, 0);
  EXPECT_TRUE(QString::fromStdString(ended.errors).contains("pnlpanel: no language pack for xx\n")) << ended.errors;
}

TEST_F(Start, ThePanelEndsOnceItIsPaintedWhenAskedTo) {
  EXPECT_EQ(Run({"--headless", "--until-painted", "--root", Root()}).code, 0);
  EXPECT_TRUE(temp_.Has("root/.demo-disc/SERIES/P10000.NC")) << "what was begun is ended";
}

TEST_F(Start, WithoutADiscTheDemoMachineIsAScripts) {
  PanelClient client({"--root", Root()});
  const QString disc = client.Call("file.resolve", {{"path", "D:\\A.NC"}}).toObject()["host"].toString();
  EXPECT_EQ(disc, "") << "a script begins with drive C: alone";
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_FALSE(temp_.Has("root/.demo-disc"));
}

TEST_F(Start, TheToolAreaHasItsSizeOrTheOneThatIsGiven) {
  const auto areaOf = [this](const QStringList& options) {
    PanelClient client(QStringList{"--bare", "--root", Root()} + options);
    const QJsonArray size = client.Window(client.Load(1))["parent"].toArray();
    EXPECT_EQ(client.Finish(), 0);
    return QSize(size[0].toInt(), size[1].toInt());
  };
  EXPECT_EQ(areaOf({}), QSize(800, 600));
  EXPECT_EQ(areaOf({"--size", "900x700"}), QSize(900, 700));
}

TEST_F(Start, OnADisplayThePanelFillsTheScreenUnlessASizeIsGiven) {
  std::string requests = R"({"id":0,"method":"tool.load","params":{"tool":1}})"
                         "\n";
  for (int window = 1; window < 10; ++window) {
    requests += R"({"id":1,"method":"ui.window","params":{"window":)" + std::to_string(window) + "}}\n";
  }
  const QStringList options{"--rpc", "--bare", "--root", Root()};
  const Ended given = Run(options + QStringList{"--size", "900x700"}, {}, requests);
  EXPECT_EQ(given.code, 0);
  EXPECT_NE(given.out.find(R"("parent":[900,700])"), std::string::npos) << given.out;
  const Ended filled = Run(options, {}, requests);
  EXPECT_EQ(filled.code, 0);
  EXPECT_NE(filled.out.find(R"("parent":[)"), std::string::npos);
  EXPECT_EQ(filled.out.find(R"("parent":[800,600])"), std::string::npos) << "that is its size without a display";
}

TEST_F(Start, AScriptsClockIsItsOwnOnlyWhenItAsksForThat) {
  PanelClient real({"--bare", "--root", Root()});
  EXPECT_TRUE(real.Refused("time.advance", {{"ms", 1}}).contains("--time manual"));
  EXPECT_EQ(real.Finish(), 0);
  PanelClient manual({"--bare", "--time", "manual", "--root", Root()});
  EXPECT_TRUE(manual.Call("time.advance", {{"ms", 1}}).isObject());
  EXPECT_EQ(manual.Finish(), 0);
}

}  // namespace
}  // namespace panel::test
