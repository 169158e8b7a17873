// SPDX-License-Identifier: MIT
// A session with the error window on a CNC that only records; texts read as their numbers.
#pragma once

#include <gtest/gtest.h>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {

inline constexpr int kErrors = 0;
inline constexpr int kErrorTitleLine = 1000;
inline constexpr int kErrorDescription = 1002;
inline constexpr int kErrorTitleBox = 1004;
inline constexpr int kErrorBefore = 1006;
inline constexpr int kErrorAfter = 1007;
inline constexpr int kErrorPrevious = 1040;
inline constexpr int kErrorNext = 1041;
inline constexpr int kErrorHelp = 1042;
inline constexpr int kErrorAcknowledge = 1043;
inline constexpr int kErrorMarked = 1045;
inline constexpr int kToolNotify = 0x801;

class BareErrors : public ::testing::Test {
 protected:
  BareErrors() : client(Options()) {}
  QStringList Options() {
    return {"--bare", "--lang", "none", "--time", "manual", "--root", QString::fromStdString(temp.Folder("root"))};
  }
  void Load() {
    client.Define("E.NERRORS", 0);
    client.Define("E.ERRORPRI", 0);
    client.Define("DM.HMI.ERROR.CURRENT", "");
    tool = client.Load(kErrors);
    client.Trace();
  }
  void Text(int number, const QString& text, const QString& helpRef = {}) {
    client.Call("cnc.errortext", {{"function", "error_to_txt"},
                                  {"number", number},
                                  {"text", "\n" + text},
                                  {"helpRef", helpRef},
                                  {"hasHelp", false}});
  }
  void Push(int number, int severity, QJsonObject more = {}) {
    more["number"] = number;
    more["severity"] = severity;
    client.Call("cnc.error.push", {{"fields", more}});
  }
  void Key(const QString& key, const QJsonArray& mods = {}) {
    client.Call("ui.key", {{"window", tool}, {"key", key}, {"mods", mods}});
  }
  void Click(int id) { client.Call("ui.click", {{"window", tool}, {"id", id}}); }
  bool Visible() { return client.Window(tool)["visible"].toBool(); }
  bool Visible(int id) { return client.Control(tool, id)["visible"].toBool(); }
  QString Text(int id) { return client.Text(tool, id); }
  QJsonArray Queue() { return client.Call("cnc.error.queue").toObject()["numbers"].toArray(); }

  pnl::test::TempFolder temp;
  PanelClient client;
  int tool = 0;
};

}  // namespace panel::test
