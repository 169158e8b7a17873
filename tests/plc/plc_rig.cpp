// SPDX-License-Identifier: MIT
#include "plc/plc_rig.h"

namespace pnl::test {
namespace {

PackContents Contents() {
  PackContents contents;
  contents.texts[101] = u"Message";
  contents.texts[102] = u"PLC error";
  contents.texts[110] = u"%d of %d";
  contents.texts[111] = u"%s unreadable";
  contents.texts[112] = u"Looked in:";
  contents.texts[113] = u"%s too large";
  contents.texts[114] = u"%s damaged";
  contents.texts[115] = u"no link: %s";
  return contents;
}

}  // namespace

PlcToolTest::PlcToolTest() : ToolStage(Contents()) {
  current_ = this;
  table.mayOpenTool = [](int id) {
    current_->noting.Note("HostMayOpenTool(" + std::to_string(id) + ")");
    return current_->mayOpen ? 1 : 0;
  };
  cnc.Define(u"E.PLCMSGDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
  files.disc["C:\\P61\\text.txt"] = "";
  files.disc["C:\\P61\\page.htm"] = "<p>page</p>";
  files.disc["C:\\P61\\other.htm"] = "<p>other</p>";
  files.disc["C:\\P61\\photo.jpg"] = "jpg";
  files.disc["C:\\P61\\film.avi"] = "avi";
  // Two by three pixels.
  files.disc["C:\\P61\\plan.bmp"] =
      "BM" + std::string(12, '\0') + std::string("\x28\0\0\0\x02\0\0\0\x03\0\0\0", 12) + "pixels";
  for (int number = 1; number <= 9; ++number) {
    cnc.Description(u"C:\\P61\\text.txt", number, u"Text " + FromUtf8(std::to_string(number)));
  }
}

void PlcToolTest::MakeTool() {
  DestroyTool();
  view = std::make_unique<FakePlcView>(log, windows);
  view->onResized = [this] { Call(&PlcSession::OnResized); };
  tool = std::make_shared<PlcSession>(context, *view);
  Call(&PlcSession::Start);
  Drain();
}

void PlcToolTest::Drain() {
  windows.Drain([this](WindowHandle target, const pnl::Message& message) {
    if (!view || target != view->handle || message.number != PNL_MSG_VARIABLE_REPORT) return;
    Call(&PlcSession::OnReport, message.first, message.second);
  });
}

void PlcToolTest::Help(TextView file, TextView title) {
  const Text fileText(file);
  const Text titleText(title);
  const ShowFileRecord record{0x112233, 0xFFFFFF, fileText.c_str(), titleText.c_str()};
  Call(&PlcSession::ShowErrorHelp, &record);
}

void PlcToolTest::File(TextView file, TextView title) {
  const Text fileText(file);
  const Text titleText(title);
  const ShowFileRecord record{0x445566, 0x010101, fileText.c_str(), titleText.c_str()};
  Call(&PlcSession::ShowFile, std::intptr_t{77}, &record);
}

Log PlcToolTest::HostCalls() {
  Log calls = All();
  std::erase_if(calls, [](const std::string& line) { return !line.starts_with("Host"); });
  return calls;
}

}  // namespace pnl::test
