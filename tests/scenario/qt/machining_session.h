// SPDX-License-Identifier: MIT
// A script's session with the machining calculator: its controls and commands by number, and what scripts do with them
// again and again.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {

inline constexpr int kMachining = 4;
inline constexpr int kCommand = 0x802;
inline constexpr int kLeave = 6;
inline constexpr int kAskUnsaved = 14;
inline constexpr int kCloseTool = 20;
inline constexpr int kHelpKey = 0x805;

namespace zmc {
inline constexpr int kMaterial = 3008;
inline constexpr int kOperation = 3010;
inline constexpr int kGrid = 3028;
inline constexpr int kRemarkCheck = 228;
inline constexpr int kRemark = 3033;
inline constexpr int kToolCheck = 229;
inline constexpr int kTool = 3012;
inline constexpr int kDiameter = 3029;
inline constexpr int kM6Check = 230;
inline constexpr int kFCheck = 225;
inline constexpr int kF = 3034;
inline constexpr int kSCheck = 226;
inline constexpr int kS = 3035;
inline constexpr int kSUnit = 3017;
inline constexpr int kDmcCheck = 227;
inline constexpr int kMaterials = 3055;
inline constexpr int kOperations = 3058;  // and a label of the main tab
inline constexpr int kMainTab = 32818;
inline constexpr int kMaterialsTab = 32819;
inline constexpr int kOperationsTab = 32820;
inline constexpr int kInsert = 32902;
inline constexpr int kCopy = 32777;
inline constexpr int kAddMaterial = 32779;
inline constexpr int kSaveMaterials = 32783;
inline constexpr int kAddOperation = 32785;
inline constexpr int kExport = 33001;
}  // namespace zmc

class MachiningSession : public ::testing::Test {
 protected:
  void Start(const QStringList& more) {
    client = std::make_unique<PanelClient>(
        QStringList{"--time", "manual", "--root", QString::fromStdString(temp.Folder("root"))} + more);
  }
  void Open(const QStringList& more = {"--lang", "en"}) {
    Start(more);
    client->Trace();
    tool = client->Load(kMachining);
    ASSERT_NE(tool, 0);
  }
  void Pick(int id, const QString& item) {
    const QJsonArray items = client->Control(tool, id)["items"].toArray();
    qsizetype at = 0;
    while (at < items.size() && items[at].toString() != item) ++at;
    ASSERT_LT(at, items.size()) << item.toStdString();
    client->Call("ui.pick", {{"window", tool}, {"id", id}, {"index", at}});
  }
  void Click(int id) { client->Call("ui.click", {{"window", tool}, {"id", id}}); }
  void Key(const QString& key) { client->Call("ui.key", {{"window", tool}, {"key", key}}); }
  void Type(const QString& text) { client->Call("ui.type", {{"window", tool}, {"text", text}}); }
  void Focus(int id) { client->Call("ui.focus", {{"window", tool}, {"id", id}}); }
  void Menu(int id) { client->Call("ui.command", {{"window", tool}, {"id", id}}); }
  void Cell(int row, const QString& text) {
    client->Call("ui.grid.edit", {{"window", tool}, {"id", zmc::kGrid}, {"row", row}, {"col", 3}, {"text", text}});
  }
  void Send(const QString& name, int first, const QJsonValue& second = 0) {
    client->Call("tool.send", {{"window", tool}, {"message", name}, {"first", first}, {"second", second}});
  }
  std::string TextOf(int id) { return client->Text(tool, id).toStdString(); }
  std::string Program() { return client->Call("program.text")["text"].toString().toStdString(); }
  std::string Clipboard() { return client->Call("clipboard.text")["text"].toString().toStdString(); }
  bool Alive() { return client->Call("window.alive", {{"window", tool}}).toObject()["alive"].toBool(); }
  bool Visible() { return client->Window(tool)["visible"].toBool(); }
  /// The ids of a bar's items, with a minus before those that are disabled.
  std::string Bar(const char* bar) {
    QString ids;
    for (const QJsonValue& item : client->Call("ui.menu", {{"bar", bar}}).toArray()) {
      ids += QString("%1%2 ").arg(item["enabled"].toBool() ? "" : "-").arg(item["id"].toInt());
    }
    return ids.toStdString();
  }
  void AddMaterial(const QString& name) {
    Menu(zmc::kMaterialsTab);
    Menu(zmc::kAddMaterial);
    Type(name);
    Key("Enter");
  }

  pnl::test::TempFolder temp;
  std::unique_ptr<PanelClient> client;
  int tool = 0;
};

}  // namespace panel::test
