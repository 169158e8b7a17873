// SPDX-License-Identifier: MIT
#include "scenario/qt/panel_client.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <csignal>

namespace panel::test {

namespace {

QByteArray Compact(const QJsonValue& value) {
  const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
  return list.mid(1, list.size() - 2);
}

QByteArray Line(int id, const QString& method, const QJsonObject& params) {
  return Compact(QJsonObject{{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}}) + "\n";
}

/// "host HostToolOpening [6]", "cnc SetMdi [1,1] 1", "write [1].E.PNLMODE 2", …
QByteArray InWords(const QJsonObject& event) {
  const QString kind = event["kind"].toString();
  const QByteArray name = event["name"].toString().toUtf8();
  if (kind == "host") return "host " + name + " " + Compact(event["args"]);
  if (kind == "cnc") return "cnc " + name + " " + Compact(event["args"]) + " " + Compact(event["result"]);
  if (kind == "write") {
    return "write " + name + " " + Compact(event["value"]) + (event["ok"].toBool() ? "" : " failed");
  }
  if (kind == "message") {
    return "message " + event["to"].toString().toUtf8() + " " + Compact(event["message"]) + " " +
           Compact(event["first"]) + " " + Compact(event["second"]);
  }
  return "box " + Compact(event["style"]) + " " + Compact(event["title"]) + " " + Compact(event["text"]) + " " +
         Compact(event["answer"]);
}

}  // namespace

PanelClient::PanelClient(const QStringList& options) {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(PNL_PANEL_PROGRAM, QStringList{"--headless", "--rpc"} + options);
  EXPECT_TRUE(process_.waitForStarted(-1)) << process_.errorString().toStdString();
}

PanelClient::~PanelClient() {
  if (process_.state() == QProcess::NotRunning) return;
  Kill();
}

void PanelClient::Send(const QByteArray& bytes) {
  process_.write(bytes);
  while (process_.bytesToWrite() > 0 && process_.state() == QProcess::Running) process_.waitForBytesWritten(-1);
}

QByteArray PanelClient::ReadLine() {
  while (!process_.canReadLine()) {
    if (process_.waitForReadyRead(-1)) continue;
    if (process_.canReadLine()) break;
    ADD_FAILURE() << "the panel has ended, its last words: " << process_.readAll().constData();
    return {};
  }
  const QByteArray line = process_.readLine();
  return line.left(line.size() - 1);
}

void PanelClient::Post(const QString& method, const QJsonObject& params) { Send(Line(++lastId_, method, params)); }

QJsonObject PanelClient::Ask(const QString& method, const QJsonObject& params) {
  Post(method, params);
  const QJsonObject reply = QJsonDocument::fromJson(ReadLine()).object();
  EXPECT_EQ(reply["id"], lastId_) << method.toStdString();
  return reply;
}

QJsonValue PanelClient::Call(const QString& method, const QJsonObject& params) {
  const QJsonObject reply = Ask(method, params);
  EXPECT_FALSE(reply.contains("error")) << method.toStdString() << " " << Compact(reply["error"]).constData();
  return reply["result"];
}

QString PanelClient::Refused(const QString& method, const QJsonObject& params) {
  const QJsonObject error = Ask(method, params)["error"].toObject();
  EXPECT_FALSE(error.isEmpty()) << method.toStdString();
  return QString("%1 %2").arg(error["code"].toInt()).arg(error["message"].toString());
}

int PanelClient::Finish() {
  process_.closeWriteChannel();
  return WaitForEnd();
}

int PanelClient::WaitForEnd() {
  while (process_.state() != QProcess::NotRunning) process_.waitForFinished(-1);
  return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

void PanelClient::Signal(int number) { ::kill(static_cast<pid_t>(process_.processId()), number); }

void PanelClient::Kill() {
  process_.kill();
  WaitForEnd();
}

int PanelClient::Load(int tool) { return Call("tool.load", {{"tool", tool}})["window"].toInt(); }

qint64 PanelClient::Tell(int window, qint64 message, qint64 first, const QJsonValue& second) {
  return Call("tool.send", {{"window", window}, {"message", message}, {"first", first}, {"second", second}})["result"]
      .toInteger();
}

qint64 PanelClient::Start(int window, int channel) {
  return Tell(window, 0x800, 1, QJsonObject{{"start", QJsonObject{{"channel", channel}}}});
}

QJsonObject PanelClient::Window(int window) { return Call("ui.window", {{"window", window}}).toObject(); }

QJsonObject PanelClient::Control(int window, int id) {
  return Call("ui.control", {{"window", window}, {"id", id}}).toObject();
}

QJsonArray PanelClient::Trace(const QStringList& kinds) {
  QJsonObject params;
  if (!kinds.isEmpty()) params["kinds"] = QJsonArray::fromStringList(kinds);
  return Call("trace.take", params)["events"].toArray();
}

std::string PanelClient::TraceText(const QStringList& kinds) {
  QByteArray text;
  for (const QJsonValue& event : Trace(kinds)) text += InWords(event.toObject()) + "\n";
  return text.toStdString();
}

void PanelClient::Define(const QString& name, const QJsonValue& value) {
  const char* type = value.isString() ? "text" : "int";
  Call("cnc.define", {{"name", name}, {"type", type}, {"value", value}});
}

void PanelClient::Set(const QString& name, const QJsonValue& value) {
  Call("cnc.set", {{"name", name}, {"value", value}});
}

QJsonValue PanelClient::Get(const QString& name) { return Call("cnc.get", {{"name", name}})["value"]; }

void PanelClient::Advance(int milliseconds) { Call("time.advance", {{"ms", milliseconds}}); }

}  // namespace panel::test
