// SPDX-License-Identifier: MIT
// The panel with a real server of shares: it asks for the password, goes on meanwhile, and keeps the password nowhere.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <utility>

#include "scenario/qt/panel_client.h"
#include "support/samba_server.h"

namespace panel::test {
namespace {

using pnl::test::SambaServer;

constexpr int kExplorer = 5;
constexpr int kMainWindow = 2;
constexpr int kList = 1107;
constexpr int kListOnly = 0x8;
constexpr const char* kPassword = SambaServer::kPassword;

class NetworkScenario : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (!SambaServer::WhyNot().empty()) return;
    std::ifstream config(PNL_SAMBA_CONFIG, std::ios::binary);
    server = new SambaServer(std::string(std::istreambuf_iterator<char>(config), {}));
    problem = server->Start();
    std::ofstream(server->Files() + "/part 1.nc") << "G0\n";
  }
  static void TearDownTestSuite() { delete std::exchange(server, nullptr); }
  void SetUp() override {
    if (server == nullptr) GTEST_SKIP() << SambaServer::WhyNot();
    ASSERT_EQ(problem, "");
    temp.Write("network.ini", "[SERVER OFFICE]\nAddress=" + server->Address().Text() + "\n");
    qputenv("PNLTOOLS_NETWORK_FILE", (temp.Path() / "network.ini").c_str());
    qputenv("HOME", temp.Folder("home").c_str());
  }
  void TearDown() override {
    qunsetenv("PNLTOOLS_NETWORK_FILE");
    qputenv("HOME", home);
  }
  QStringList Options() { return {"--root", QString::fromStdString(temp.Folder("root"))}; }
  /// Opens the explorer with that folder.
  static int Open(PanelClient& client, const QString& folder) {
    client.Call(
        "xplr.publish",
        {{"record",
          QJsonObject{
              {"Owner", 1006}, {"Path", folder}, {"File", "part 1.nc"}, {"Filter", "*"}, {"Flags", kListOnly}}}});
    return client.Load(kExplorer);
  }
  static QJsonArray Rows(PanelClient& client, int window) {
    return client.Control(client.Window(window)["view"].toInt(), kList)["items"].toArray();
  }
  static void Type(PanelClient& client, const QString& text) {
    client.Call("ui.type", {{"window", kMainWindow}, {"text", text}});
  }
  static void Press(PanelClient& client, int window, const char* key) {
    client.Call("ui.key", {{"window", window}, {"key", key}});
  }
  /// Whether the program has that library in memory.
  static bool HasLoaded(const PanelClient& client, const char* library) {
    QFile maps(QString("/proc/%1/maps").arg(client.ProcessId()));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
  }
  /// The files below the folder of the test that contain the text, as UTF-8 or as the library has texts.
  [[nodiscard]] std::vector<std::string> FilesWith(const QString& text) const {
    const QByteArray narrow = text.toUtf8();
    const QByteArray wide(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    std::vector<std::string> found;
    for (const auto& each : std::filesystem::recursive_directory_iterator(temp.Path())) {
      if (!each.is_regular_file()) continue;
      QFile file(QString::fromStdString(each.path().string()));
      if (!file.open(QIODevice::ReadOnly)) continue;
      const QByteArray bytes = file.readAll();
      if (bytes.contains(narrow) || bytes.contains(wide)) found.push_back(each.path().filename());
    }
    return found;
  }

  /// The texts that the explorer has shown since the last question, one a line; "closed" for its end.
  static std::string Said(PanelClient& client) {
    std::string said;
    for (const QJsonValue& each : client.Trace({"host"})) {
      const QJsonArray args = each["args"].toArray();
      const QString name = each["name"].toString();
      if (name == "HostShowMessage") said += args[1]["text"].toString().toStdString() + "\n";
      if (name == "HostToolClosed") said += "closed\n";
    }
    return said;
  }

  inline static SambaServer* server = nullptr;
  inline static std::string problem;
  pnl::test::TempFolder temp;
  const QByteArray home = qgetenv("HOME");
};

TEST_F(NetworkScenario, TheModuleIsLoadedWithTheFirstServerAndNotBefore) {
  PanelClient client(Options());
  const int local = Open(client, "C:");
  EXPECT_FALSE(HasLoaded(client, "pnl-shares"));
  EXPECT_FALSE(HasLoaded(client, "libsmbclient"));
  client.Tell(local, 0x802, 20);
  const int open = Open(client, "\\\\OFFICE\\open");
  EXPECT_TRUE(HasLoaded(client, "libsmbclient"));
  EXPECT_EQ(Rows(client, open).size(), 1);
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(NetworkScenario, ThePasswordIsAskedForAndKeptNowhere) {
  testing::internal::CaptureStderr();
  PanelClient client(Options());
  int window = Open(client, "\\\\OFFICE\\programs");
  EXPECT_TRUE(Rows(client, window).isEmpty());
  QElapsedTimer clock;
  clock.start();
  Press(client, window, "Enter");
  // The replies don't wait for the operator.
  EXPECT_LT(clock.elapsed(), 4000);
  Said(client);
  Type(client, QString("%1\n\nwrong\n").arg(SambaServer::kUser));
  EXPECT_EQ(Said(client), "");
  // The name is still there.
  Type(client, QString("%1\n").arg(kPassword));
  // The folder can be used and the file is accepted.
  EXPECT_EQ(Said(client), "\nclosed\n");
  window = Open(client, "\\\\OFFICE\\programs");
  EXPECT_EQ(Rows(client, window).size(), 1);
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(FilesWith(kPassword), std::vector<std::string>());
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_EQ(errors.find(kPassword), std::string::npos);
  EXPECT_EQ(errors.find("pnltools"), std::string::npos) << errors;
}

TEST_F(NetworkScenario, APanelQuitsWhileAQuestionIsOpen) {
  PanelClient client(Options());
  const int window = Open(client, "\\\\OFFICE\\programs");
  Said(client);
  Press(client, window, "Enter");
  // Neither connected nor refused.
  EXPECT_EQ(Said(client), "");
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(NetworkScenario, APanelQuitsWhileAServerSaysNothing) {
  const pnl::test::SilentServer silent;
  temp.Write("network.ini", "[SERVER SILENT]\nAddress=" + silent.Address().Text() + "\n");
  PanelClient client(Options());
  client.Call("xplr.publish", {{"record", QJsonObject{{"Path", "\\\\SILENT\\x"}, {"Flags", kListOnly}}}});
  client.Post("tool.load", {{"tool", kExplorer}});
  ASSERT_TRUE(silent.AwaitCaller());
  client.Signal(SIGTERM);
  EXPECT_EQ(client.WaitForEnd(), 0);
}

TEST_F(NetworkScenario, AnOperatorWhoRefusesIsToldThatTheConnectionFailed) {
  PanelClient client(Options());
  const int window = Open(client, "\\\\OFFICE\\programs");
  Press(client, window, "Enter");
  Said(client);
  Press(client, kMainWindow, "Escape");
  EXPECT_EQ(Said(client), "The network connection failed.\n");
  EXPECT_EQ(client.Finish(), 0);
}

}  // namespace
}  // namespace panel::test
