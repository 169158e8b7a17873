// SPDX-License-Identifier: MIT
#include "mdi/mdi_session.h"

#include "base/format.h"
#include "host/records.h"
#include "mdi/mdi_no_view.h"

namespace pnl {

namespace {

MdiNoView& NoView() {
  static MdiNoView view;
  return view;
}

constexpr HostApiTable kNoServices = {};
constexpr std::int32_t kOwnerBase = 1000;

}  // namespace

std::optional<std::int32_t> ReadPresent(ZCVariable& variable) {
  if (!variable.IsValid()) return std::nullopt;
  variable.UpdateCache();
  std::int32_t value = 0;
  if (variable.ReadInt(value) != 0) return std::nullopt;
  return value;
}

MdiSession::MdiSession(const ToolContext& toolContext, MdiView& window, WindowHandle host)
    : context(toolContext),
      settings(context.files, context.cnc.Util()),
      history(context.files, context.cnc.Util(), settings),
      HostWindow(host),
      view_(&window),
      noHost_(kNoServices, context.cnc.Vars()) {
  ExplorerRequest.Owner = kOwnerBase + tool_id::kMdi;
}

void MdiSession::DetachView() {
  view_ = &NoView();
  ended_ = true;
  // Publishing gives the number that the record may have got from a request; without one it is made and dropped.
  WithdrawRecord(PublishRecord(&ExplorerRequest));
}

int MdiSession::NumberOfChannels() const {
  ZCVariable variable(context.cnc.Vars(), u"MPG.NCHANNEL");
  const std::int32_t count = ReadPresent(variable).value_or(1);
  // One channel at most, although everything is kept by channel.
  return count == 0 ? 0 : 1;
}

void MdiSession::MakeRecords() {
  const int count = NumberOfChannels();
  records.reserve(static_cast<std::size_t>(count));
  for (int channel = 1; channel <= count; ++channel) {
    MDIDATA_ST& record = records.emplace_back(context.cnc.Vars(), static_cast<std::int8_t>(channel));
    record.StatusVar.SetNombre(Format(u"[%d].G.FULLSTATUS", channel));
    if (Kapi().IsNewInspecAllowed(0) == 0) continue;
    record.InspectVar.SetNombre(Format(u"[%d].E.INSPECSTATUS", channel));
    record.StartVar.SetNombre(Format(u"[%d].E.STARTONMDI", channel));
    if (record.InspectVar.IsValid()) record.InspectVar.OpenReport(View().Handle());
    if (record.StartVar.IsValid()) record.StartVar.WriteInt(0);
  }
}

MDIDATA_ST* MdiSession::Record(std::intptr_t channel) {
  const bool known = channel >= 1 && channel <= static_cast<std::intptr_t>(records.size());
  return known ? &records[static_cast<std::size_t>(channel - 1)] : nullptr;
}

ZCVariable MdiSession::ChannelVariable(int channel, TextView name) const {
  return {context.cnc.Vars(), Format(u"[%d].%s", channel, name)};
}

}  // namespace pnl
