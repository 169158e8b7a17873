// SPDX-License-Identifier: MIT
#include "host/storage_messages.h"

#include "base/format.h"

namespace pnl {
namespace {

constexpr int kTextNotSaved = 60001;
constexpr int kTextLarge = 60002;

}  // namespace

void ShowNotSaved(const ToolContext& context, int tool, const std::vector<Text>& names) {
  if (names.empty()) return;
  Text all;
  for (const Text& name : names) all += (all.empty() ? u"" : u", ") + name;
  context.host.HostShowMessage(tool, Format(context.language.LoadToolText(kTextNotSaved), all));
}

void ShowLargeFile(const ToolContext& context, int tool, TextView name, std::uint64_t bytes) {
  if (bytes <= kLargeFile) return;
  context.host.HostShowMessage(tool, Format(context.language.LoadToolText(kTextLarge), name));
}

}  // namespace pnl
