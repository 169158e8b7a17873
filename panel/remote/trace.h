// SPDX-License-Identifier: MIT
// The trace: everything that happened between the tools, the host and the CNC, in order, as JSON events that a script
// takes out. It listens and never interferes; what was taken is forgotten.
#pragma once

#include <pnltools/rig.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <vector>

#include "host/host_session.h"

namespace panel {

class TraceLog : public pnl::rig::EventSink {
 public:
  /// "host", "cnc", "write", "message", "box".
  static const QStringList& Kinds();

  explicit TraceLog(const HostSession& session) : session_(session) {}

  void Host(const HostCall& call);
  void Cnc(std::string_view name, const std::vector<pnl::rig::Value>& args, const pnl::rig::Value& result) override;
  void Write(std::u16string_view name, const pnl::rig::Value& value, bool ok) override;
  void MessageToHost(PnlWindow window, std::uint32_t message, std::intptr_t first, std::intptr_t second) override;
  void Box(std::u16string_view title, std::u16string_view text, std::string_view style,
           std::string_view answer) override;

  /// The events of these kinds, oldest first, which are then forgotten; the others stay.
  [[nodiscard]] QJsonArray Take(const QStringList& kinds);

 private:
  const HostSession& session_;
  std::vector<QJsonObject> events_;
};

/// The ids of a menu's visible items, or null for a handle behind which there is no menu.
[[nodiscard]] QJsonValue VisibleItemIds(std::uint32_t menu);

}  // namespace panel
