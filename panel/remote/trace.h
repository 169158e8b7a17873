// SPDX-License-Identifier: MIT
// The trace: everything that happened between the tools, the host and the CNC, in order, as JSON events that a script
// takes out. It only listens. Taken events are forgotten. When too many wait, the oldest are dropped, and an event
// "lost" says how many.
#pragma once

#include <pnltools/rig.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <deque>
#include <map>

#include "host/host_session.h"

namespace panel {

class TraceLog : public pnl::rig::EventSink {
 public:
  /// "host", "cnc", "write", "message", "box".
  static const QStringList& Kinds();

  static constexpr std::size_t kMostEvents = 100'000;
  /// The most memory for all events together, roughly, in bytes.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  explicit TraceLog(const HostSession& session) : session_(session) {}

  void Host(const HostCall& call);
  void Cnc(std::string_view name, const std::vector<pnl::rig::Value>& args, const pnl::rig::Value& result) override;
  void Write(std::u16string_view name, const pnl::rig::Value& value, bool ok) override;
  void MessageToHost(PnlWindow window, std::uint32_t message, std::intptr_t first, std::intptr_t second) override;
  void Box(std::u16string_view title, std::u16string_view text, std::string_view style,
           std::string_view answer) override;

  /// Takes out and forgets the events of these kinds, oldest first; the others stay. When events of these kinds were
  /// dropped since the last take, the first event is "lost" with their count.
  [[nodiscard]] QJsonArray Take(const QStringList& kinds);

 private:
  struct Event {
    QJsonObject fields;
    std::size_t bytes;
  };
  void Add(QJsonObject event);

  const HostSession& session_;
  std::deque<Event> events_;
  std::size_t bytes_ = 0;
  std::map<QString, qint64> lost_;  // by kind
};

/// The ids of a menu's visible items; null when the handle has no menu.
[[nodiscard]] QJsonValue VisibleItemIds(std::uint32_t menu);

}  // namespace panel
