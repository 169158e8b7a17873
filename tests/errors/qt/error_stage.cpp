// SPDX-License-Identifier: MIT
#include "error_stage.h"

#include "host/pack_files.h"

namespace pnl::test {
namespace {

std::function<void(const std::string&)>* listener = nullptr;

void Told(const std::string& call) {
  if (listener != nullptr) (*listener)(call);
}

LanguagePack BuiltPack() {
  const std::string program = QCoreApplication::applicationFilePath().toStdString();
  const auto bytes = ReadPackFile(PackFolders(nullptr, program), "en");
  LanguagePack pack;
  EXPECT_TRUE(bytes && pack.Parse(*bytes));
  return pack;
}

}  // namespace

ErrorStage::ErrorStage() : area(new QWidget(&panel)), other(new QLineEdit(&panel)) {
  static std::function<void(const std::string&)> note;
  note = [this](const std::string& call) {
    hostCalls.push_back(call);
    if (onHostCall) onHostCall(call);
  };
  listener = &note;
  table.toolOpening = [](int id) { Told("opening " + std::to_string(id)); };
  table.toolClosed = [](int id, int reason) { Told("closed " + std::to_string(id) + "," + std::to_string(reason)); };
  table.showError = [](const HostErrorLine* line) {
    Told("show " + ToUtf8(line->headerText));
    return 0;
  };
  table.errorsGone = [] { Told("gone"); };
  drives.Set('C', disc.Path().string());
  cnc.Storage().MakeFolders();
  cnc.Define(u"E.NERRORS", rig::VariableType::kInt, std::int64_t{0}, true, true);
  cnc.Define(u"E.ERRORPRI", rig::VariableType::kInt, std::int64_t{0}, true, true);
  for (const int number : {1000, 1001, 1002}) {
    cnc.ErrorText("error_to_txt", number, u"|fault " + FromUtf8(std::to_string(number)), u"", false);
  }
  language.Use(BuiltPack());
  // No language module lies on this disc, and the texts that are shared say so once.
  windows.SetBoxAnswerer([](const BoxSpec&) { return BoxAnswer::kOk; });
  panel.resize(900, 700);
  area->setGeometry(20, 10, 800, 600);
  other->setGeometry(20, 650, 100, 30);
  WindowRegistry::Instance().Attach(area, nullptr, nullptr);
  Activate(panel);
}

ErrorStage::~ErrorStage() {
  delete area;
  Settle();
  listener = nullptr;
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(cnc.OpenReports(), 0u);
}

void ErrorStage::Open() {
  tool = new ZCErrorManager(context, area);
  tool->Start();
  Settle();
}

void ErrorStage::Push(const ErrorRecord& record) {
  cnc.PushErrorRecord({reinterpret_cast<const char*>(record.bytes), sizeof record.bytes});
  Settle();
}

void ErrorStage::Send(std::uint32_t number, std::intptr_t first, std::intptr_t second) {
  windows.Send(WindowRegistry::Instance().HandleOf(tool), {number, first, second});
  Settle();
}

void ErrorStage::Disc(const std::string& path, const std::string& bytes) const {
  DiscFiles onDisc(drives);
  ASSERT_EQ(onDisc.Replace(FromUtf8(path), bytes), FileStatus::kOk);
}

void ErrorStage::Key(int key, Qt::KeyboardModifiers modifiers) {
  PressKey(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &panel, key, {}, modifiers);
  Settle();
}

void ErrorStage::Touch(int id) {
  PressMouse(Control(id), Control(id)->rect().center());
  Settle();
}

void ErrorStage::TouchTwice(QWidget* widget, QPoint place) {
  const QPointer<QWidget> alive = widget;
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                          QEvent::MouseButtonRelease}) {
    // The host may have deleted it between two of them.
    if (alive) PressMouse(widget, place, type);
  }
  Settle();
}

}  // namespace pnl::test
