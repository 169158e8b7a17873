// SPDX-License-Identifier: MIT
// JSON-RPC 2.0 over lines: cuts bytes into lines, reads requests and writes replies. Knows no method: a handler gives
// each request its result or its error. Any bytes are answered; none can crash or stall it.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <functional>
#include <optional>
#include <variant>

namespace panel {

namespace rpc_code {
inline constexpr int kParse = -32700;
inline constexpr int kInvalidRequest = -32600;
inline constexpr int kUnknownMethod = -32601;
inline constexpr int kInvalidParams = -32602;
}  // namespace rpc_code

struct RpcError {
  int code = rpc_code::kInvalidParams;
  QString text;
};

/// What a method answers: its result, or an error when nothing was done.
using RpcResult = std::variant<QJsonValue, RpcError>;
using RpcHandler = std::function<RpcResult(const QString& method, const QJsonObject& params)>;

/// Longer lines are refused and skipped; requests need a small part of this.
inline constexpr qsizetype kLongestLine = qsizetype{16} << 20;
/// A longer batch is refused whole, so that a line of commas can't ask for a flood of replies.
inline constexpr qsizetype kLongestBatch = 1000;
/// Behind that many bytes of replies the rest of a batch is refused: somebody has to take them first.
inline constexpr qsizetype kLongestBatchReply = qsizetype{16} << 20;

/// Cuts a stream into lines. A line over the limit comes out once, empty and marked, and the stream goes on behind its
/// end.
class LineCutter {
 public:
  explicit LineCutter(qsizetype longest = kLongestLine) : longest_(longest) {}

  struct Line {
    QByteArray bytes;
    bool tooLong = false;
  };
  void Feed(const QByteArray& bytes);
  /// The next whole line without its line feed; nothing when more bytes are needed.
  [[nodiscard]] std::optional<Line> Next();
  /// What stands behind the last line feed when the stream has ended.
  [[nodiscard]] std::optional<Line> Rest();

 private:
  qsizetype longest_;
  QByteArray held_;
  qsizetype searched_ = 0;  // no line feed before this place
  bool skipping_ = false;   // inside a line that is over the limit
};

/// The reply to one line, without its line feed; empty when the line asks for none (a blank line, notifications).
[[nodiscard]] QByteArray AnswerLine(const QByteArray& line, const RpcHandler& handler);
/// The reply to a line that was over the limit.
[[nodiscard]] QByteArray AnswerTooLong();

}  // namespace panel
