// SPDX-License-Identifier: MIT
// The fixture for tests of methods: the panel is a plain widget, and its remote control acts on the bare simulated CNC.
#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWidget>

#include "remote/remote_control.h"

#include <pnltools/rig.h>

namespace panel {

class PlainPanel : public PanelFace {
 public:
  PlainPanel() {
    panel.resize(800, 600);
    area.resize(400, 300);
  }
  QWidget* PanelWidget() override { return &panel; }
  QWidget* ToolAreaWidget() override { return &area; }
  QString ProgramText() const override { return "G0 X0\n"; }
  void ResizeToolArea(const QSize& size) override { area.resize(size); }

  QWidget panel;
  QWidget area{&panel};
};

/// A process has only one rig, so all tests share the CNC behind it. Each test begins by emptying the trace.
class RemoteMethods : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(PnlRig()->StartBare()); }
  RemoteMethods() {
    session.SetToolArea(&face.area);
    session.SetMainWindow(&face.panel);
    session.OfferAll();
    Ask("trace.take", "{}");
  }
  QJsonObject Reply(const QString& method, const QByteArray& params) {
    const QByteArray line = R"({"jsonrpc":"2.0","id":1,"method":")" + method.toUtf8() + R"(","params":)" + params + "}";
    return QJsonDocument::fromJson(remote.Answer(line)).object();
  }
  /// The result as text, or the error's text with its code.
  std::string Ask(const QString& method, const QByteArray& params) {
    const QJsonObject reply = Reply(method, params);
    if (reply.contains("error")) {
      const QJsonObject error = reply["error"].toObject();
      return QString("%1 %2").arg(error["code"].toInt()).arg(error["message"].toString()).toStdString();
    }
    const QByteArray list = QJsonDocument(QJsonArray{reply["result"]}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2).toStdString();
  }

  PlainPanel face;
  HostSession session;
  RemoteControl remote{session, face, {true, false}};
};

}  // namespace panel
