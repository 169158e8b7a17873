// SPDX-License-Identifier: MIT
#include "mdi_stage.h"

namespace pnl::test {

MdiStage::MdiStage() : WindowStage({700, 500}, {20, 10, 600, 400}) {
  for (const char16_t* name : {u"[1].G.CNCAUTSTATUS", u"[1].G.CNCMANSTATUS", u"[1].E.MANUALMODE", u"[1].E.PNLMODE",
                               u"[1].E.APISTATUS", u"[1].G.STATUS", u"[1].G.FULLSTATUS", u"E.XPLRDATA"}) {
    cnc.Define(name, rig::VariableType::kInt, std::int64_t{0}, true, true);
  }
  Status(1);
}

void MdiStage::Open() {
  if (tool.isNull()) Make();
  ASSERT_EQ(Command(2), 0);
  Settle();
}

void MdiStage::OpenMda() {
  Open();
  SwitchRole();
  Settle();
}

void MdiStage::StartKey() {
  PnlCycleStart record = {};
  record.channel = 1;
  Send(PNL_MSG_CYCLE_START, 1, reinterpret_cast<std::intptr_t>(&record));
}

void MdiStage::Status(int byte) {
  cnc.Set(u"[1].G.FULLSTATUS", std::int64_t{byte << 8});
  Settle();
}

void MdiStage::History(int blocks) const {
  std::string all;
  for (int i = 0; i < blocks; ++i) all += "G1 X" + std::to_string(i) + "\r\n";
  Disc("MDIC1.DAT", all);
  Disc("MDIMAN.INI", "[PRIVATE]\nNItems=" + std::to_string(std::max(blocks, 10)) + "\n");
}

ZCMDIList* MdiStage::Drop() const {
  for (ZCMDIList* list : panel.findChildren<ZCMDIList*>()) {
    if (WindowRegistry::Instance().HandleOf(list) != 0) return list;
  }
  return nullptr;
}

}  // namespace pnl::test
