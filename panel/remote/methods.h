// SPDX-License-Identifier: MIT
// The methods of the remote control: one table from name to function, filled group by group. A method reads all its
// parameters, answers the first problem if there is one, and only then acts.
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

/// What the message boxes to come are answered with.
class BoxAnswers {
 public:
  void Append(const QStringList& answers);
  /// The next one, else what goes on: "yes" to a question, "ok" to the others.
  [[nodiscard]] std::string Take(std::string_view style);

 private:
  std::deque<std::string> answers_;
};

/// The explorer request that a script has published; its address is given out until the next one.
class PublishedRequest {
 public:
  PublishedRequest() = default;
  ~PublishedRequest() { Withdraw(); }
  PublishedRequest(const PublishedRequest&) = delete;
  PublishedRequest& operator=(const PublishedRequest&) = delete;

  /// The number that stands for the record's address.
  std::int32_t Publish(const XPLRDATA_ST& record);
  void Withdraw();

 private:
  XPLRDATA_ST record_{};
  std::int32_t number_ = 0;
};

/// What the methods work on.
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

/// The answer of a method that acts.
[[nodiscard]] inline RpcResult Done() { return QJsonValue(QJsonObject()); }
[[nodiscard]] inline RpcResult BadParameter(const QString& name, const QString& text) {
  return RpcError{rpc_code::kInvalidParams, name + ": " + text};
}

}  // namespace panel
