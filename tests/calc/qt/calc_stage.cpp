// SPDX-License-Identifier: MIT
#include "calc_stage.h"

#include "calc/expr/calc_store.h"
#include "host/pack_files.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

std::function<void(const std::string&)>* listener = nullptr;

void Told(const std::string& call) {
  if (listener != nullptr) (*listener)(call);
}

}  // namespace

LanguagePack BuiltPack() {
  const std::string program = QCoreApplication::applicationFilePath().toStdString();
  const auto bytes = ReadPackFile(PackFolders(nullptr, program), "en");
  LanguagePack pack;
  EXPECT_TRUE(bytes && pack.Parse(*bytes));
  return pack;
}

CalcStage::CalcStage() : area(new QWidget(&panel)), other(new QLineEdit(&panel)) {
  static std::function<void(const std::string&)> note;
  note = [this](const std::string& call) {
    hostCalls.push_back(call);
    if (onHostCall) onHostCall(call);
  };
  listener = &note;
  table.toolOpening = [](int id) { Told("opening " + std::to_string(id)); };
  table.toolClosed = [](int id, int reason) { Told("closed " + std::to_string(id) + "," + std::to_string(reason)); };
  table.setMainMenu = [](int, HostMenuRef) { Told("main menu"); };
  table.setSideMenu = [](int, HostMenuRef) { Told("side menu"); };
  table.updateMainMenu = [](int, int) { Told("update main"); };
  table.updateSideMenu = [](int, int) { Told("update side"); };
  table.calcResultAccepted = [] { Told("accepted"); };
  table.toolWantsClose = [](int id) { Told("wants close " + std::to_string(id)); };
  table.openMachiningCalculator = [] { Told("machining"); };

  SharedCalcStore() = {};
  drives.Set('C', disc.Path().string());
  cnc.Storage().MakeFolders();
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 0.0, true, true);
  language.Use(BuiltPack());
  // No language module lies on this disc, and the texts that are shared say so once.
  windows.SetBoxAnswerer([](const BoxSpec&) {
    Told("box");
    return BoxAnswer::kOk;
  });

  panel.resize(900, 700);
  area->setGeometry(20, 10, 800, 600);
  other->setGeometry(20, 650, 100, 30);
  WindowRegistry::Instance().Attach(area, nullptr, nullptr);
  Activate(panel);
}

CalcStage::~CalcStage() {
  delete area;
  Settle();
  listener = nullptr;
  EXPECT_EQ(menus.Count(), 0u) << "every menu is given back";
  EXPECT_EQ(timers.Running(), 0u);
}

void CalcStage::Open() {
  tool = new ZCCalc7340(context, area, 0, [this] { return now++; });
  handle = WindowRegistry::Instance().HandleOf(tool);
  tool->Open();
  Settle();
}

std::intptr_t CalcStage::Send(std::uint32_t number, std::intptr_t first, std::intptr_t second) {
  return windows.Send(handle, {number, first, second});
}

void CalcStage::Disc(const std::string& path, const std::string& bytes) const {
  ASSERT_EQ(DiscFiles(drives).Replace(FromUtf8(path), bytes), FileStatus::kOk);
}

std::string CalcStage::OnDisc(const std::string& path) const {
  const auto place = DiscFiles(drives).HostPath(FromUtf8(path));
  QFile file(place ? QString::fromStdString(*place) : QString());
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
}

void CalcStage::History(int rows) const {
  std::string all;
  for (int i = 0; i < rows; ++i) all += std::to_string(i) + "+1\r\n";
  Disc("C:\\P1\\calc.htr", all);
}

bool CalcStage::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  return PressKey(Focus() != nullptr ? Focus() : &panel, key, text, modifiers);
}

void CalcStage::Touch(QWidget* widget) const {
  const QPoint middle = widget->rect().center();
  PressMouse(widget, middle);
  PressMouse(widget, middle, QEvent::MouseButtonRelease);
  Settle();
}

void CalcStage::TouchRow(ListBox* list, int row, Qt::KeyboardModifiers modifiers) const {
  const QModelIndex index = list->model()->index(row, 0);
  list->scrollTo(index);
  const QPoint place = list->visualRect(index).center();
  list->setFocus(Qt::MouseFocusReason);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, list->viewport()->mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, modifiers);
    QApplication::sendEvent(list->viewport(), &event);
  }
}

void CalcStage::WaitForComputing() const {
  const QString computing = ToQString(language.LoadToolText(calc_id::kTextComputing));
  const QString confirming = ToQString(language.LoadToolText(calc_id::kTextConfirming));
  const auto busy = [&] {
    const QString status = QString::fromStdString(Status());
    return status.contains(computing) || status.contains(confirming);
  };
  constexpr int kMostTurns = 100'000;
  for (int turn = 0; turn < kMostTurns && !tool.isNull() && busy(); ++turn) QCoreApplication::processEvents();
  EXPECT_FALSE(!tool.isNull() && busy()) << "it computes and computes";
}

}  // namespace pnl::test
