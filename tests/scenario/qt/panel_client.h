// SPDX-License-Identifier: MIT
// A script's side of the panel: starts the panel program head-less, sends it requests and reads its replies. Waits as
// long as the program lives, however slow the machine is; a program that dies ends the waiting.
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>
#include <QStringList>

namespace panel::test {

class PanelClient {
 public:
  /// Starts the panel with --headless --rpc and these options.
  explicit PanelClient(const QStringList& options);
  /// Ends the program if it still runs.
  ~PanelClient();
  PanelClient(const PanelClient&) = delete;
  PanelClient& operator=(const PanelClient&) = delete;

  /// The result of a request; a failed test and null for an error.
  QJsonValue Call(const QString& method, const QJsonObject& params = {});
  /// The code and text of the error that a request is answered with; a failed test when it isn't.
  QString Refused(const QString& method, const QJsonObject& params = {});
  /// Sends bytes as they are.
  void Send(const QByteArray& bytes);
  /// Sends a request without waiting for its reply.
  void Post(const QString& method, const QJsonObject& params = {});
  /// The next line of output without its line feed; a failed test and nothing when the program is gone.
  QByteArray ReadLine();
  /// Closes the input and answers the exit code, or -1 for a crash.
  int Finish();
  /// The exit code of a program that ends by itself, or -1 for a crash.
  int WaitForEnd();
  /// Sends the program that signal.
  void Signal(int number);
  /// Ends the program as a power cut does.
  void Kill();
  [[nodiscard]] qint64 ProcessId() const { return process_.processId(); }
  [[nodiscard]] bool Runs() const { return process_.state() == QProcess::Running; }

  // What scripts do again and again.
  /// Loads a tool and gives its window.
  int Load(int tool);
  qint64 Tell(int window, qint64 message, qint64 first, const QJsonValue& second = 0);
  /// Cycle start for a channel.
  qint64 Start(int window, int channel = 1);
  QJsonObject Window(int window);
  QJsonObject Control(int window, int id);
  QString Text(int window, int id) { return Control(window, id)["text"].toString(); }
  QJsonArray Trace(const QStringList& kinds = {});
  /// The trace in words, one event a line, for comparison with what a test expects.
  std::string TraceText(const QStringList& kinds = {});
  void Define(const QString& name, const QJsonValue& value);
  void Set(const QString& name, const QJsonValue& value);
  QJsonValue Get(const QString& name);
  void Advance(int milliseconds);

 private:
  QJsonObject Ask(const QString& method, const QJsonObject& params);

  QProcess process_;
  int lastId_ = 0;
};

}  // namespace panel::test
