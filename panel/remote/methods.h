// SPDX-License-Identifier: MIT
// The methods of the remote control: one table from name to function, filled group by group. A method reads all its
// parameters, returns the first problem if there is one, and only then acts.
#pragma once

#include <pnltools/rig.h>

#include <QHash>
#include <deque>
#include <string>

#include "host/host_session.h"
#include "remote/message_arguments.h"
#include "remote/panel_face.h"
#include "remote/params.h"
#include "remote/remote_options.h"
#include "remote/trace.h"

namespace panel {

/// The answers to the next message boxes.
class BoxAnswers {
 public:
  void Append(const QStringList& answers);
  /// Takes the next answer. Without one the answer lets the work go on: "yes" to a question, "ok" to any other box.
  [[nodiscard]] std::string Take(std::string_view style);

 private:
  std::deque<std::string> answers_;
};

/// The explorer request that a script has published. It stays published until the next one, Withdraw, or the end of
/// this object.
class PublishedRequest {
 public:
  PublishedRequest() = default;
  ~PublishedRequest() { Withdraw(); }
  PublishedRequest(const PublishedRequest&) = delete;
  PublishedRequest& operator=(const PublishedRequest&) = delete;

  /// Publishes a copy of the record and returns the number that resolves to its address.
  std::int32_t Publish(const XPLRDATA_ST& record);
  void Withdraw();

 private:
  XPLRDATA_ST record_{};
  std::int32_t number_ = 0;
};

/// Everything that the methods work on.
struct RemoteWorld {
  HostSession& session;
  PanelFace& face;
  pnl::rig::Rig& rig;
  RemoteOptions options;
  TraceLog& trace;
  BoxAnswers& boxes;
  MessageArguments& arguments;
  PublishedRequest& request;
};

using Method = RpcResult (*)(RemoteWorld&, Params&);
using MethodTable = QHash<QString, Method>;

void AddHostMethods(MethodTable& table);
void AddCncMethods(MethodTable& table);
void AddErrorMethods(MethodTable& table);
void AddStorageMethods(MethodTable& table);
void AddWindowMethods(MethodTable& table);
void AddControlMethods(MethodTable& table);
void AddGridMethods(MethodTable& table);
void AddTraceMethods(MethodTable& table);
[[nodiscard]] MethodTable AllMethods();

/// The result of a method that only acts: an empty object.
[[nodiscard]] inline RpcResult Done() { return QJsonValue(QJsonObject()); }
[[nodiscard]] inline RpcResult BadParameter(const QString& name, const QString& text) {
  return RpcError{rpc_code::kInvalidParams, name + ": " + text};
}

}  // namespace panel
