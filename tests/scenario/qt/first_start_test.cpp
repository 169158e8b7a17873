// SPDX-License-Identifier: MIT
// The first start of the panel program: it asks before anything can be typed, the next one doesn't, and an option goes
// before what is remembered. Keys of a script answer, as touches do.
#include <gtest/gtest.h>

#include <QJsonDocument>
#include <memory>
#include <string>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kPanel = 2;
constexpr int kCalculator = 3;
constexpr const char* kFile = "CNC/USER/PNLPANEL.INI";

class FirstStartScenario : public ::testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<PanelClient> Start(const QStringList& more = {"--settings"}) const {
    const QStringList options{"--time", "manual", "--root", QString::fromStdString(folder_.Path().string())};
    return std::make_unique<PanelClient>(options + more);
  }
  static void Key(PanelClient& client, const QString& key) {
    client.Call("ui.key", {{"window", kPanel}, {"key", key}});
  }
  /// What a typed text does to the program. While a question covers it, nothing.
  static std::string Typed(PanelClient& client) {
    client.Call("ui.type", {{"window", kPanel}, {"text", "G1"}});
    return client.Call("program.text")["text"].toString().toStdString();
  }
  /// The calculator's keys, which its language names.
  static std::string CalculatorKeys(PanelClient& client) {
    client.Load(kCalculator);
    return QJsonDocument(client.Call("ui.menu", {{"bar", "main"}}).toArray()).toJson().toStdString();
  }
  pnl::test::TempFolder folder_;
};

TEST_F(FirstStartScenario, AsksOnceAndRemembers) {
  auto panel = Start();
  EXPECT_EQ(Typed(*panel), "");
  Key(*panel, "Right");
  Key(*panel, "Enter");
  EXPECT_EQ(Typed(*panel), "") << "the size is still asked";
  Key(*panel, "Enter");
  EXPECT_EQ(Typed(*panel), "G1");
  EXPECT_EQ(panel->Finish(), 0);
  const std::string stored = folder_.Read(kFile);
  EXPECT_EQ(stored.rfind("[Panel]\r\nLanguage=es\r\nScreenWidth=", 0), 0U) << stored;
  EXPECT_EQ(Typed(*Start()), "G1") << "the second start asks nothing";
  EXPECT_EQ(folder_.Read(kFile), stored);
}

TEST_F(FirstStartScenario, AnOptionGoesBeforeWhatIsRemembered) {
  folder_.Write(kFile, "[Panel]\r\nLanguage=es\r\nScreenWidth=300.0\r\n");
  const std::string spanish = CalculatorKeys(*Start({"--settings"}));
  const std::string english = CalculatorKeys(*Start({"--settings", "--lang", "en"}));
  EXPECT_NE(spanish, english);
  EXPECT_EQ(CalculatorKeys(*Start({"--lang", "es"})), spanish);
  EXPECT_EQ(CalculatorKeys(*Start({})), english) << "a script finds the panel as ever";
  EXPECT_EQ(folder_.Read(kFile), "[Panel]\r\nLanguage=es\r\nScreenWidth=300.0\r\n");
}

TEST_F(FirstStartScenario, AScriptIsAskedNothingAndLeavesNothing) {
  auto panel = Start({});
  EXPECT_EQ(Typed(*panel), "G1");
  EXPECT_EQ(panel->Finish(), 0);
  EXPECT_FALSE(folder_.Has(kFile));
}

TEST_F(FirstStartScenario, ADamagedFileIsAskedAboutAgain) {
  folder_.Write(kFile, std::string("[Panel]\nScreenWidth=300\0\n", 25));
  auto panel = Start();
  EXPECT_EQ(Typed(*panel), "");
  Key(*panel, "Enter");
  Key(*panel, "Enter");
  EXPECT_EQ(Typed(*panel), "G1");
  EXPECT_EQ(panel->Finish(), 0);
  EXPECT_EQ(folder_.Read(kFile).rfind("[Panel]\r\nLanguage=en\r\nScreenWidth=", 0), 0U);
}

}  // namespace
}  // namespace panel::test
