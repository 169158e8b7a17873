// SPDX-License-Identifier: MIT
#include "mdi_stage.h"

namespace pnl::test {
namespace {

std::function<void(const std::string&)>* listener = nullptr;

void Note(const std::string& call) {
  if (listener != nullptr) (*listener)(call);
}

}  // namespace

MdiStage::MdiStage() : other(new QLineEdit(&panel)) {
  static std::function<void(const std::string&)> note;
  note = [this](const std::string& call) {
    hostCalls.push_back(call);
    if (onHostCall) onHostCall(call);
  };
  listener = &note;
  table.toolOpening = [](int id) { Note("opening " + std::to_string(id)); };
  table.toolClosed = [](int id, int reason) { Note("closed " + std::to_string(id) + "," + std::to_string(reason)); };
  table.setMainMenu = [](int, HostMenuRef) { Note("main menu"); };
  table.setSideMenu = [](int, HostMenuRef) { Note("side menu"); };
  table.updateMainMenu = [](int, int) { Note("update menu"); };
  table.showMessage = [](int, const HostMessage*) { Note("message"); };
  table.explorerRequest = [] { Note("explorer"); };
  // A real box would wait for an operator.
  windows.SetBoxAnswerer([](const BoxSpec&) { return BoxAnswer::kOk; });
  windows.onMessageToHost = [](WindowHandle, const Message& message) {
    Note("notify " + std::to_string(message.first));
  };

  drives.Set('C', disc.Path().string());
  cnc.Storage().MakeFolders();
  for (const char16_t* name : {u"[1].G.CNCAUTSTATUS", u"[1].G.CNCMANSTATUS", u"[1].E.MANUALMODE", u"[1].E.PNLMODE",
                               u"[1].E.APISTATUS", u"[1].G.STATUS"}) {
    cnc.Define(name, rig::VariableType::kInt, std::int64_t{0}, true, true);
  }
  cnc.Define(u"[1].G.FULLSTATUS", rig::VariableType::kInt, std::int64_t{0x100}, true, true);
  cnc.Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);

  panel.resize(700, 500);
  other->setGeometry(20, 450, 100, 30);
  MakeArea();
  Activate(panel);
}

MdiStage::~MdiStage() {
  delete area;
  Settle();
  listener = nullptr;
  EXPECT_EQ(menus.Count(), 0u) << "every menu is given back";
  EXPECT_EQ(cnc.OpenReports(), 0u);
  EXPECT_EQ(timers.Running(), 0u);
}

void MdiStage::MakeArea() {
  area = new QWidget(&panel);
  area->setGeometry(20, 10, 600, 400);
  if (panel.isVisible()) area->show();
  WindowRegistry::Instance().Attach(area, nullptr, nullptr);
}

void MdiStage::Make() {
  tool = new ZCMDIWindow(context, area);
  handle = WindowRegistry::Instance().HandleOf(tool);
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

std::intptr_t MdiStage::Send(std::uint32_t number, std::intptr_t first, std::intptr_t second) {
  return windows.Send(handle, {number, first, second});
}

void MdiStage::StartKey() {
  PnlCycleStart record = {};
  record.channel = 1;
  Send(kMsgCycleStart, 1, reinterpret_cast<std::intptr_t>(&record));
}

void MdiStage::Status(int byte) {
  cnc.Set(u"[1].G.FULLSTATUS", std::int64_t{byte << 8});
  Settle();
}

void MdiStage::Disc(const std::string& name, const std::string& bytes) const {
  ASSERT_EQ(DiscFiles(drives).Replace(u"C:\\P108\\" + FromUtf8(name), bytes), FileStatus::kOk);
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
