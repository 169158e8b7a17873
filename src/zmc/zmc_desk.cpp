// SPDX-License-Identifier: MIT
#include "zmc/zmc_desk.h"

#include <utility>

#include "base/format.h"
#include "host/storage_messages.h"

namespace pnl {

ZmcDesk::ZmcDesk(const ToolContext& context, ViewAccess view, HostAccess host)
    : data(context.files, context.cnc.Util()),
      settings(context.files, context.cnc.Util()),
      menus(context.language),
      context_(context),
      view_(std::move(view)),
      host_(std::move(host)) {}

BoxAnswer ZmcDesk::Ask(Text text, BoxStyle style) const {
  ZmcView& view = View();
  const BoxSpec box{Text(u"CNC"), std::move(text), style, [&view](const BoxSpec& spec) { return view.AskInBox(spec); }};
  return context_.windows.ShowBox(view.Handle(), box);
}

void ZmcDesk::ShowInfo(int text) const { (void)Ask(LoadText(text), BoxStyle::kInfo); }

bool ZmcDesk::AskYesNo(int text) const { return Ask(LoadText(text), BoxStyle::kQuestion) == BoxAnswer::kYes; }

bool ZmcDesk::AskYesNoWith(int text, TextView inserted) const {
  return Ask(Format(LoadText(text), inserted), BoxStyle::kQuestion) == BoxAnswer::kYes;
}

void ZmcDesk::ShowMessage(int color, TextView text) const {
  // The text is read before the call returns.
  const Text kept(text);
  context_.windows.Send(View().Handle(),
                        {RegisterMessage(zmc_message::kShow), color, reinterpret_cast<std::intptr_t>(kept.c_str())});
}

void ZmcDesk::ResetMessage() const { context_.windows.Send(View().Handle(), {RegisterMessage(zmc_message::kReset)}); }

bool ZmcDesk::CheckRead(CuttingError error) const {
  if (error == CuttingError::kXmlEngine) ShowInfo(zmc_text::kDamaged);
  return error == CuttingError::kNone;
}

bool ZmcDesk::CheckStored(CuttingError error) const {
  if (error == CuttingError::kXmlEngine || error == CuttingError::kNone) return CheckRead(error);
  // Whatever the operator typed is still on the screen.
  (void)View();
  ShowNotSaved(context_, PNL_TOOL_MACHINING_CALCULATOR, {Text(kUserFileName)});
  return false;
}

bool ZmcDesk::CheckLoaded(const ZmcLoad& load) const {
  if (load.noFactoryFile) ShowInfo(zmc_text::kNoFactoryFile);
  return CheckRead(load.error);
}

}  // namespace pnl
