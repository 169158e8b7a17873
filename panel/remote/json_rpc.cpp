// SPDX-License-Identifier: MIT
#include "remote/json_rpc.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <utility>

namespace panel {

namespace {

QJsonObject ErrorReply(const QJsonValue& id, const RpcError& error) {
  return {{"jsonrpc", "2.0"}, {"id", id}, {"error", QJsonObject{{"code", error.code}, {"message", error.text}}}};
}

QJsonObject InvalidRequest(const QString& text) {
  return ErrorReply(QJsonValue::Null, {rpc_code::kInvalidRequest, text});
}

QByteArray OneLine(const QJsonObject& reply) { return QJsonDocument(reply).toJson(QJsonDocument::Compact); }

bool IsId(const QJsonValue& id) { return id.isString() || id.isDouble() || id.isNull(); }

/// Returns the reply to one request, or nothing for a notification.
std::optional<QJsonObject> AnswerRequest(const QJsonValue& value, const RpcHandler& handler) {
  if (!value.isObject()) return InvalidRequest("a request is an object");
  const QJsonObject request = value.toObject();
  const QJsonValue id = request.value("id");
  const bool notification = !request.contains("id");
  if (!notification && !IsId(id)) return InvalidRequest("id: a number, a text or null is needed");
  const auto invalid = [&](const QString& text) {
    return ErrorReply(notification ? QJsonValue(QJsonValue::Null) : id, {rpc_code::kInvalidRequest, text});
  };
  // The member may be missing, so that a request is quick to type by hand. Another version is refused.
  if (request.contains("jsonrpc") && request.value("jsonrpc") != QJsonValue("2.0")) {
    return invalid("jsonrpc: \"2.0\" is needed");
  }
  if (!request.value("method").isString()) return invalid("method: a text is needed");
  const QJsonValue params = request.value("params");
  if (!params.isUndefined() && !params.isObject() && !params.isArray()) return invalid("params: an object is needed");

  const RpcResult result = params.isArray()
                               ? RpcResult(RpcError{rpc_code::kInvalidParams, "params: an object with names is needed"})
                               : handler(request.value("method").toString(), params.toObject());
  if (notification) return std::nullopt;
  if (const auto* error = std::get_if<RpcError>(&result)) return ErrorReply(id, *error);
  return QJsonObject{{"jsonrpc", "2.0"}, {"id", id}, {"result", std::get<QJsonValue>(result)}};
}

/// Whether the line is a lone text, number or word. That is valid JSON, but QJsonDocument reads it only inside a list.
bool IsScalar(const QByteArray& line) { return QJsonDocument::fromJson("[" + line + "]").array().size() == 1; }

QByteArray AnswerBatch(const QJsonArray& batch, const RpcHandler& handler) {
  if (batch.isEmpty()) return OneLine(InvalidRequest("the batch is empty"));
  if (batch.size() > kLongestBatch) {
    return OneLine(InvalidRequest(QString("a batch holds at most %1 requests").arg(kLongestBatch)));
  }
  // The replies are kept as bytes: as JSON values a thousand long ones would take many times that memory.
  QByteArray replies;
  for (const QJsonValue request : batch) {
    if (replies.size() > kLongestBatchReply) {
      const RpcHandler tooMuch = [](const QString&, const QJsonObject&) -> RpcResult {
        return RpcError{rpc_code::kInvalidRequest, "the replies to this batch are too long"};
      };
      if (const auto reply = AnswerRequest(request, tooMuch)) replies += ',' + OneLine(*reply);
    } else if (const auto reply = AnswerRequest(request, handler)) {
      replies += ',' + OneLine(*reply);
    }
  }
  if (replies.isEmpty()) return {};
  replies[0] = '[';
  return replies + ']';
}

}  // namespace

void LineCutter::Feed(const QByteArray& bytes) { held_.append(bytes); }

std::optional<LineCutter::Line> LineCutter::Next() {
  for (;;) {
    const qsizetype end = held_.indexOf('\n', searched_);
    if (end < 0) {
      if (held_.size() > longest_ || skipping_) {
        skipping_ = true;
        held_.clear();
      }
      searched_ = held_.size();
      return std::nullopt;
    }
    Line line{held_.left(end), false};
    held_.remove(0, end + 1);
    searched_ = 0;
    if (!std::exchange(skipping_, false) && line.bytes.size() <= longest_) return line;
    return Line{QByteArray(), true};
  }
}

std::optional<LineCutter::Line> LineCutter::Rest() {
  if (!skipping_ && held_.isEmpty()) return std::nullopt;
  Line line{std::exchange(held_, QByteArray()), std::exchange(skipping_, false)};
  searched_ = 0;
  if (line.bytes.size() > longest_) line.tooLong = true;
  if (line.tooLong) line.bytes.clear();
  return line;
}

QByteArray AnswerLine(const QByteArray& line, const RpcHandler& handler) {
  if (line.trimmed().isEmpty()) return {};
  QJsonParseError problem;
  const QJsonDocument document = QJsonDocument::fromJson(line, &problem);
  if (problem.error != QJsonParseError::NoError) {
    if (IsScalar(line)) return OneLine(InvalidRequest("a request is an object"));
    const QString text = QString("%1 at byte %2").arg(problem.errorString()).arg(problem.offset);
    return OneLine(ErrorReply(QJsonValue::Null, {rpc_code::kParse, text}));
  }
  if (document.isArray()) return AnswerBatch(document.array(), handler);
  const auto reply = AnswerRequest(document.object(), handler);
  return reply ? OneLine(*reply) : QByteArray();
}

QByteArray AnswerTooLong() {
  const QString text = QString("a line holds at most %1 bytes").arg(kLongestLine);
  return OneLine(ErrorReply(QJsonValue::Null, {rpc_code::kParse, text}));
}

}  // namespace panel
