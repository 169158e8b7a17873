// SPDX-License-Identifier: MIT
// Sends any bytes of standard input through line cutting, JSON-RPC and the readers of parameters. No input may crash
// them; each line has at most one reply, and each reply is one line.
#include <QJsonDocument>
#include <cstddef>
#include <cstdint>

#include "fuzz_check.h"
#include "remote/json_rpc.h"
#include "remote/params.h"

namespace {

/// A method that reads every parameter in every way.
panel::RpcResult ReadEverything(const QString& method, const QJsonObject& object) {
  panel::Params params(object);
  for (const QString& name : object.keys()) {
    (void)params.Int(name, 0);
    (void)params.Bool(name, false);
    (void)params.Text(name, QString());
    (void)params.Choice(name, {"main", "side"}, "main");
    (void)params.List(name, QJsonArray());
    (void)params.Object(name);
    (void)params.HostFile(name);
    (void)params.Integers(name, 0, 18);
    (void)params.Texts(name, QStringList());
  }
  if (params.Problem()) return *params.Problem();
  if (method.isEmpty()) return panel::RpcError{panel::rpc_code::kUnknownMethod, "method: none"};
  return QJsonValue(object);
}

void Answer(const panel::LineCutter::Line& line) {
  const QByteArray reply = line.tooLong ? panel::AnswerTooLong() : panel::AnswerLine(line.bytes, ReadEverything);
  FUZZ_CHECK(!reply.contains('\n'));
  FUZZ_CHECK(reply.isEmpty() || !QJsonDocument::fromJson(reply).isNull());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  panel::LineCutter cutter(512);
  const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  constexpr qsizetype kPiece = 100;
  for (qsizetype at = 0; at < input.size(); at += kPiece) {
    cutter.Feed(input.mid(at, kPiece));
    while (const auto line = cutter.Next()) Answer(*line);
  }
  if (const auto rest = cutter.Rest()) Answer(*rest);
  return 0;
}
