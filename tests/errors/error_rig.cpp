// SPDX-License-Identifier: MIT
#include "errors/error_rig.h"

namespace pnl::test {

ErrorRig* ErrorRig::current = nullptr;

namespace {

void Logged(const std::string& line) { ErrorRig::current->log.push_back(line); }

void FillTable(HostApiTable& table) {
  table.toolOpening = [](int tool) { Logged("HostToolOpening(" + std::to_string(tool) + ")"); };
  table.toolClosed = [](int tool, int reason) {
    Logged("HostToolClosed(" + std::to_string(tool) + "," + std::to_string(reason) + ")");
  };
  table.showError = [](const HostErrorLine* line) {
    EXPECT_EQ(line->textColor, 0xFFFFFFu);
    char color[16];
    std::snprintf(color, sizeof color, "%06X", line->backColor);
    Logged("HostShowError(" + std::string(color) + "," + ToUtf8(line->helpRef) + "," + ToUtf8(line->headerText) + ")");
    return 0;
  };
  table.errorsGone = [] { Logged("HostErrorsGone"); };
}

LanguagePack MakePack() {
  PackContents contents;
  for (int id = 1; id < 300; ++id) contents.texts[id] = FromUtf8("T" + std::to_string(id));
  contents.texts[57356] = u"T57356";
  contents.texts[203] = u"Error";
  contents.texts[206] = u"Warning";
  LanguagePack pack;
  EXPECT_TRUE(pack.Parse(BuildPack(contents)));
  return pack;
}

}  // namespace

void LoggingWindows::Post(WindowHandle target, const Message& message) {
  FakeWindowSystem::Post(target, message);
  if (target != mainWindow) return;
  const auto low = [](std::intptr_t value) { return std::to_string(value & 0xFFFF); };
  const auto high = [](std::intptr_t value) { return std::to_string((value >> 16) & 0xFFFF); };
  const std::string name(RegisteredMessageName(message.number));
  if (name == "ZM_UPDATE_NERRORS") {
    log_.push_back(name + " number " + low(message.first) + " class " + high(message.first) + " flash " +
                   low(message.second) + " count " + high(message.second));
  } else {
    log_.push_back(name + "(" + std::to_string(message.first) + "," + std::to_string(message.second) + ")");
  }
}

void LoggingSink::Cnc(std::string_view name, const std::vector<rig::Value>& args, const rig::Value& result) {
  if (name == "ChannelNumber") return;
  std::string line(name);
  line += "(";
  bool first = true;
  for (const rig::Value& arg : args) {
    // A record is too long to show.
    if (std::holds_alternative<std::vector<rig::Field>>(arg)) continue;
    line += (first ? "" : ",") + Describe(arg);
    first = false;
  }
  log_.push_back(line + ")=" + Describe(result));
}

void LoggingSink::Write(std::u16string_view name, const rig::Value& value, bool ok) {
  log_.push_back(ToUtf8(name) + "=" + Describe(value) + (ok ? "" : " failed"));
}

ErrorRig::ErrorRig()
    : language(menus, cnc.Util(), disc, windows), host(table, cnc.Vars()), context{host,   cnc,      windows,
                                                                                   timers, language, disc} {
  current = this;
  windows.mainWindow = windows.Open();
  FillTable(table);
  language.Use(MakePack());
  // Loads the shared texts from the pack in use, without the box for a library that isn't there.
  (void)language.SharedToolTexts();
  windows.boxes.clear();
  cnc.Storage().SetPath(52, u"C:\\P52");
  cnc.SetSink(&sink);
  cnc.Define(u"E.NERRORS", rig::VariableType::kInt, std::int64_t{0}, true, true);
  cnc.Define(u"E.ERRORPRI", rig::VariableType::kInt, std::int64_t{0}, true, true);
  cnc.Define(u"DM.HMI.ERROR.CURRENT", rig::VariableType::kText, std::u16string(), true, true);
  for (const int number : {1000, 1001, 1002, 2000, 201, 3753}) {
    cnc.ErrorText("error_to_txt", number, u"|fault " + FromUtf8(std::to_string(number)), u"", false);
  }
}

ErrorRig::~ErrorRig() {
  DestroyTool();
  cnc.SetSink(nullptr);
}

void ErrorRig::MakeTool() {
  DestroyTool();
  window = windows.Open();
  view = std::make_unique<FakeErrorView>(log, window);
  view->onResized = [this] { Tell([](ErrorSession& session) { session.OnResized(); }); };
  auto lines = std::make_unique<FakeLineReader>(disc, false);
  reader = lines.get();
  tool = std::make_shared<ErrorSession>(context, *view, std::move(lines));
  Tell([](ErrorSession& session) { session.Start(); });
  Drain();
}

void ErrorRig::DestroyTool() {
  const std::shared_ptr<ErrorSession> ending = std::exchange(tool, nullptr);
  if (!ending) return;
  windows.Kill(window);
  ending->End();
  view->dead = true;
  EXPECT_FALSE(view->hotKey);
  EXPECT_FALSE(view->waits);
}

void ErrorRig::Drain() {
  windows.Drain([this](WindowHandle target, const Message& message) {
    if (target != window || message.number != kMsgVariableReport) return;
    Tell([&message](ErrorSession& session) { session.OnReport(message.first, message.second); });
  });
}

void ErrorRig::Push(const ErrorRecord& record) {
  cnc.PushErrorRecord({reinterpret_cast<const char*>(record.bytes), sizeof record.bytes});
  Drain();
}

void ErrorRig::Key(ErrorKey key) {
  Tell([key](ErrorSession& session) { session.OnKey(key); });
  EXPECT_FALSE(view->waits) << "the wait cursor stays";
  Drain();
}

void ErrorRig::Click(int id) {
  Tell([id](ErrorSession& session) { session.OnClick(id); });
  EXPECT_FALSE(view->waits) << "the wait cursor stays";
  Drain();
}

void ErrorRig::DoubleClick(int id) {
  Tell([id](ErrorSession& session) { session.OnDoubleClick(id); });
  Drain();
}

void ErrorRig::Notify(std::intptr_t what, std::intptr_t value) {
  Tell([what, value](ErrorSession& session) { session.OnToolNotify(what, value); });
  Drain();
}

Log ErrorRig::Asked() { return std::exchange(log, {}); }

std::string ErrorRig::Counters() const {
  const auto part = [this](int arrow, int counter) {
    if (!view->Shows(arrow)) return std::string("-");
    EXPECT_EQ(view->Shows(arrow), view->Shows(counter));
    return view->texts.at(counter);
  };
  return part(error_id::kPrevious, error_id::kBefore) + "/" + part(error_id::kNext, error_id::kAfter);
}

std::string ErrorRig::Current() const { return Describe(*cnc.Get(u"DM.HMI.ERROR.CURRENT")); }

}  // namespace pnl::test
