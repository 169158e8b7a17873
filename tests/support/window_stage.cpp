// SPDX-License-Identifier: MIT
#include "support/window_stage.h"

#include <QFile>

#include "host/pack_files.h"

namespace pnl::test {

LanguagePack BuiltPack() {
  const std::string program = QCoreApplication::applicationFilePath().toStdString();
  const auto bytes = ReadPackFile(PackFolders(nullptr, program), "en");
  LanguagePack pack;
  EXPECT_TRUE(bytes && pack.Parse(*bytes));
  return pack;
}

WindowStage::WindowStage(QSize panelSize, const QRect& areaPlace)
    : other(new QLineEdit(&panel)), areaPlace_(areaPlace) {
  // A real box would wait for an operator.
  windows.SetBoxAnswerer([this](const BoxSpec&) {
    Note("box");
    return BoxAnswer::kOk;
  });
  windows.onMessageToHost = [this](WindowHandle, const Message& message) {
    Note((message.number == PNL_MSG_TOOL_NOTIFY ? "ToolNotify " : "message ") + std::to_string(message.first));
  };
  drives.Set('C', disc.Path().string());
  cnc.Storage().MakeFolders();
  language.Use(BuiltPack());
  panel.resize(panelSize);
  other->setGeometry(20, panelSize.height() - 50, 100, 30);
  MakeArea();
  Activate(panel);
}

WindowStage::~WindowStage() {
  delete area;
  Settle();
  EXPECT_EQ(menus.Count(), 0u) << "every menu is given back";
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(cnc.OpenReports(), 0u);
}

void WindowStage::MakeArea() {
  area = new QWidget(&panel);
  area->setGeometry(areaPlace_);
  if (panel.isVisible()) area->show();
  WindowRegistry::Instance().Attach(area, nullptr, nullptr);
}

void WindowStage::Use(QWidget* window) {
  window_ = window;
  handle = WindowRegistry::Instance().HandleOf(window);
}

void WindowStage::Disc(const std::string& path, const std::string& bytes) const {
  ASSERT_EQ(DiscFiles(drives).Replace(FromUtf8(path), bytes), FileStatus::kOk);
}

std::string WindowStage::OnDisc(const std::string& path) const {
  const auto place = DiscFiles(drives).HostPath(FromUtf8(path));
  QFile file(place ? QString::fromStdString(*place) : QString());
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
}

bool WindowStage::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  return PressKey(Focus() != nullptr ? Focus() : &panel, key, text, modifiers);
}

void WindowStage::Touch(QWidget* widget) {
  const QPointer<QWidget> alive = widget;
  const QPoint middle = widget->rect().center();
  PressMouse(widget, middle);
  // The press may have brought its end.
  if (alive) PressMouse(widget, middle, QEvent::MouseButtonRelease);
  Settle();
}

}  // namespace pnl::test
