// SPDX-License-Identifier: MIT
#include "errors/error_rig.h"

namespace pnl::test {
namespace {

PackContents Contents() {
  PackContents contents;
  for (int id = 1; id < 300; ++id) contents.texts[id] = FromUtf8("T" + std::to_string(id));
  contents.texts[57356] = u"T57356";
  contents.texts[203] = u"Error";
  contents.texts[206] = u"Warning";
  return contents;
}

/// What the panel's main window is told.
std::string Told(const Message& message) {
  const auto low = [](std::intptr_t value) { return std::to_string(value & 0xFFFF); };
  const auto high = [](std::intptr_t value) { return std::to_string((value >> 16) & 0xFFFF); };
  const std::string name(RegisteredMessageName(message.number));
  if (name == "ZM_UPDATE_NERRORS") {
    return name + " number " + low(message.first) + " class " + high(message.first) + " flash " + low(message.second) +
           " count " + high(message.second);
  }
  return name + "(" + std::to_string(message.first) + "," + std::to_string(message.second) + ")";
}

}  // namespace

ErrorToolTest::ErrorToolTest() : ToolStage(Contents()) {
  windows.mainWindow = windows.Open();
  windows.onPost = [this](WindowHandle target, const Message& message) {
    if (target == windows.mainWindow) log.push_back(Told(message));
  };
  sink.quiet = {"ChannelNumber"};
  sink.records = false;
  DefineErrors(cnc);
  cnc.Define(u"DM.HMI.ERROR.CURRENT", rig::VariableType::kText, std::u16string(), true, true);
}

ErrorToolTest::~ErrorToolTest() { DestroyTool(); }

void ErrorToolTest::DestroyTool() {
  ToolStage::DestroyTool();
  if (!view) return;
  EXPECT_FALSE(view->hotKey);
  EXPECT_FALSE(view->waits);
}

void ErrorToolTest::MakeTool(const ToolContext& around) {
  DestroyTool();
  view = std::make_unique<FakeErrorView>(log, windows);
  view->onResized = [this] { Call(&ErrorSession::OnResized); };
  auto lines = std::make_unique<FakeLineReader>(files);
  reader = lines.get();
  tool = std::make_shared<ErrorSession>(around, *view, std::move(lines));
}

void ErrorToolTest::MakeTool() {
  MakeTool(context);
  Call(&ErrorSession::Start);
  Drain();
}

void ErrorToolTest::Drain() {
  windows.Drain([this](WindowHandle target, const Message& message) {
    if (!view || target != view->handle || message.number != PNL_MSG_VARIABLE_REPORT) return;
    Call(&ErrorSession::OnReport, message.first, message.second);
  });
}

std::string ErrorToolTest::Counters() const {
  const auto part = [this](int arrow, int counter) {
    EXPECT_EQ(view->Shows(arrow), view->Shows(counter));
    return view->Shows(arrow) ? view->texts.at(counter) : "-";
  };
  return part(error_id::kPrevious, error_id::kBefore) + "/" + part(error_id::kNext, error_id::kAfter);
}

}  // namespace pnl::test
