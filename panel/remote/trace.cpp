// SPDX-License-Identifier: MIT
#include "remote/trace.h"

#include <utility>

#include "remote/json_values.h"
#include "remote/message_names.h"

namespace panel {

namespace {

constexpr int kSetMainMenuSlot = 3;
constexpr int kSetSideMenuSlot = 4;

bool CarriesChannelRecord(std::uint32_t message, std::intptr_t first, std::intptr_t second) {
  return message == PNL_MSG_TOOL_NOTIFY && (first == PNL_NOTIFY_CHANNEL_TAKEN || first == PNL_NOTIFY_CHANNEL_GIVEN) &&
         second != 0;
}

QJsonValue SecondArgument(std::uint32_t message, std::intptr_t first, std::intptr_t second) {
  if (!CarriesChannelRecord(message, first, second)) return static_cast<qint64>(second);
  // A message carries its record as an address. NOLINTNEXTLINE(performance-no-int-to-ptr)
  const auto* record = reinterpret_cast<const PnlToolNotify*>(second);
  return QJsonObject{{"channel", record->channel}, {"window", record->window}};
}

/// The memory that a value takes, in bytes, roughly.
std::size_t RoughSize(const QJsonValue& value) {
  constexpr std::size_t kNode = 32;
  std::size_t size = kNode + 2 * static_cast<std::size_t>(value.toString().size());
  for (const QJsonValue item : value.toArray()) size += RoughSize(item);
  const QJsonObject fields = value.toObject();
  for (auto field = fields.begin(); field != fields.end(); ++field) {
    size += kNode + 2 * static_cast<std::size_t>(field.key().size()) + RoughSize(field.value());
  }
  return size;
}

}  // namespace

QJsonValue VisibleItemIds(std::uint32_t menu) {
  const int count = menu == 0 ? -1 : PnlMenuItemCount(menu);
  if (count < 0) return QJsonValue::Null;
  QJsonArray ids;
  for (int i = 0; i < count; ++i) {
    PnlMenuItem item{};
    if (PnlMenuItemAt(menu, i, &item) != 0 && item.visible != 0) ids.append(item.id);
  }
  return ids;
}

const QStringList& TraceLog::Kinds() {
  static const QStringList kinds{"host", "cnc", "write", "message", "box"};
  return kinds;
}

void TraceLog::Host(const HostCall& call) {
  QJsonArray args;
  const bool menu = call.slot == kSetMainMenuSlot || call.slot == kSetSideMenuSlot;
  for (qsizetype i = 0; i < call.args.size(); ++i) {
    const QVariant& arg = call.args[i];
    // A script can't use the menu's handle, and the items may change before it looks. So the ids of the items are
    // recorded.
    args.append(menu && i == 1 ? VisibleItemIds(arg.toUInt()) : QJsonValue::fromVariant(arg));
  }
  const QString name = call.slot >= 0 && call.slot < kSlotCount ? kSlotNames[static_cast<std::size_t>(call.slot)] : "";
  Add({{"kind", "host"}, {"slot", call.slot}, {"name", name}, {"args", args}});
}

void TraceLog::Cnc(std::string_view name, const std::vector<pnl::rig::Value>& args, const pnl::rig::Value& result) {
  QJsonArray list;
  for (const auto& arg : args) list.append(ToJson(arg));
  Add({{"kind", "cnc"}, {"name", Narrow(name)}, {"args", list}, {"result", ToJson(result)}});
}

void TraceLog::Write(std::u16string_view name, const pnl::rig::Value& value, bool ok) {
  Add({{"kind", "write"}, {"name", Narrow(name)}, {"value", ToJson(value)}, {"ok", ok}});
}

void TraceLog::MessageToHost(PnlWindow window, std::uint32_t message, std::intptr_t first, std::intptr_t second) {
  Add({{"kind", "message"},
       {"to", window == session_.ToolArea() ? "parent" : "main"},
       {"message", MessageToJson(message)},
       {"first", static_cast<qint64>(first)},
       {"second", SecondArgument(message, first, second)}});
}

void TraceLog::Box(std::u16string_view title, std::u16string_view text, std::string_view style,
                   std::string_view answer) {
  Add({{"kind", "box"},
       {"title", Narrow(title)},
       {"text", Narrow(text)},
       {"style", Narrow(style)},
       {"answer", Narrow(answer)}});
}

QJsonArray TraceLog::Take(const QStringList& kinds) {
  QJsonArray taken;
  qint64 lost = 0;
  for (const QString& kind : kinds) lost += std::exchange(lost_[kind], 0);
  if (lost != 0) taken.append(QJsonObject{{"kind", "lost"}, {"count", lost}});
  std::deque<Event> kept;
  bytes_ = 0;
  for (Event& event : events_) {
    if (kinds.contains(event.fields.value("kind").toString())) {
      taken.append(event.fields);
    } else {
      bytes_ += event.bytes;
      kept.push_back(std::move(event));
    }
  }
  events_ = std::move(kept);
  return taken;
}

void TraceLog::Add(QJsonObject event) {
  const std::size_t bytes = RoughSize(event);
  bytes_ += bytes;
  events_.push_back({std::move(event), bytes});
  while (events_.size() > kMostEvents || bytes_ > kMostBytes) {
    ++lost_[events_.front().fields.value("kind").toString()];
    bytes_ -= events_.front().bytes;
    events_.pop_front();
  }
}

}  // namespace panel
