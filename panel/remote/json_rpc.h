// SPDX-License-Identifier: MIT
// JSON-RPC 2.0 over lines: cuts bytes into lines, reads requests and writes replies. It knows no method: a handler
// returns the result or the error of each request. No input can crash it or stop it.
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
inline constexpr int kRefused = -32000;
}  // namespace rpc_code

struct RpcError {
  int code = rpc_code::kInvalidParams;
  QString text;
};

/// What a method returns: its result, or an error. After an error nothing was done.
using RpcResult = std::variant<QJsonValue, RpcError>;
using RpcHandler = std::function<RpcResult(const QString& method, const QJsonObject& params)>;

/// In bytes. Longer lines are refused and skipped; a request needs only a small part of this.
inline constexpr qsizetype kLongestLine = qsizetype{16} << 20;
/// In requests. A longer batch is refused as a whole, so that a line of commas can't ask for a flood of replies.
inline constexpr qsizetype kLongestBatch = 1000;
/// In bytes. Once the replies to a batch are longer than this, its remaining requests are refused.
inline constexpr qsizetype kLongestBatchReply = qsizetype{16} << 20;

/// Cuts a stream into lines. A line over the limit comes out once, empty and marked, and the next line follows as
/// usual.
class LineCutter {
 public:
  explicit LineCutter(qsizetype longest = kLongestLine) : longest_(longest) {}

  struct Line {
    QByteArray bytes;
    bool tooLong = false;
  };
  void Feed(const QByteArray& bytes);
  /// Takes the next whole line, without its line feed. Nothing when more bytes are needed.
  [[nodiscard]] std::optional<Line> Next();
  /// Takes what is left after the last line feed. For the end of the stream.
  [[nodiscard]] std::optional<Line> Rest();

 private:
  qsizetype longest_;
  QByteArray held_;
  qsizetype searched_ = 0;  // there is no line feed before this index
  bool skipping_ = false;   // inside a line that is over the limit
};

/// Returns the reply to one line, without a line feed. Empty when the line needs none: a blank line, notifications.
[[nodiscard]] QByteArray AnswerLine(const QByteArray& line, const RpcHandler& handler);
/// Returns the reply to a line that was over the limit.
[[nodiscard]] QByteArray AnswerTooLong();

}  // namespace panel
