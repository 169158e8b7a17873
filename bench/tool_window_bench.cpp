// SPDX-License-Identifier: MIT
// The command line's window beside similar plain Qt windows, and the cost of a message beside a bare event.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "bench_host.h"

namespace {

constexpr int kHistory = 10000;

void LoadToolToPainted(benchmark::State& state) {
  for (auto _ : state) {
    const PnlWindow tool = LoadPNLTool(PNL_TOOL_MDI, BenchHost::Here().Window());
    if (PnlSendMessage(tool, PNL_MSG_TOOL_COMMAND, 2, 1) != 0) state.SkipWithError("the tool didn't open");
    static_cast<QWidget*>(PnlWidgetOf(tool))->repaint();
    PnlSendMessage(tool, PNL_MSG_TOOL_COMMAND, 5, 1);
    PnlDestroyWindow(tool);
  }
}
BENCHMARK(LoadToolToPainted)->Unit(benchmark::kMillisecond);

void PlainQtWindowToPainted(benchmark::State& state) {
  for (auto _ : state) {
    auto* window = new QWidget(&BenchHost::Here().Widget());
    window->setGeometry(0, 571, 800, 29);
    auto* title = new QLabel("MDI", window);
    title->setGeometry(0, 0, 65, 30);
    auto* edit = new QLineEdit(window);
    edit->setGeometry(65, 1, 704, 30);
    auto* list = new QListWidget(window);
    list->hide();
    auto* more = new QPushButton("+", window);
    more->setGeometry(769, 1, 30, 30);
    window->show();
    window->repaint();
    delete window;
  }
}
BENCHMARK(PlainQtWindowToPainted)->Unit(benchmark::kMillisecond);

void SendMessage(benchmark::State& state) {
  const PnlWindow tool = LoadPNLTool(PNL_TOOL_MDI, BenchHost::Here().Window());
  for (auto _ : state) benchmark::DoNotOptimize(PnlSendMessage(tool, PNL_MSG_CYCLE_START, 3, 0));
  PnlDestroyWindow(tool);
}
BENCHMARK(SendMessage);

/// A window whose event handler does as little as possible.
class BareWindow : public QWidget {
 public:
  using QWidget::QWidget;
  int received = 0;

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::User) {
      ++received;
      return true;
    }
    return QWidget::event(event);
  }
};

void BareSendEvent(benchmark::State& state) {
  BareWindow window(&BenchHost::Here().Widget());
  for (auto _ : state) {
    QEvent event(QEvent::User);
    benchmark::DoNotOptimize(QCoreApplication::sendEvent(&window, &event));
  }
}
BENCHMARK(BareSendEvent);

QWidget* EditOf(QWidget* tool) {
  for (QWidget* child : tool->findChildren<QWidget*>()) {
    if (child->property("pnlId").toInt() == 5000) return child;
  }
  return nullptr;
}

void Press(QWidget* widget, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(widget, &press);
}

void DropListOfTenThousandToPainted(benchmark::State& state) {
  const PnlWindow tool = LoadPNLTool(PNL_TOOL_MDI, BenchHost::Here().Window());
  if (PnlSendMessage(tool, PNL_MSG_TOOL_COMMAND, 2, 1) != 0) state.SkipWithError("the tool didn't open");
  QWidget* edit = EditOf(static_cast<QWidget*>(PnlWidgetOf(tool)));
  for (auto _ : state) {
    Press(edit, Qt::Key_Down);
    BenchHost::Here().Widget().repaint();
    benchmark::DoNotOptimize(BenchHost::Here().Widget().grab());
    Press(edit, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  PnlSendMessage(tool, PNL_MSG_TOOL_COMMAND, 5, 1);
  PnlDestroyWindow(tool);
}
BENCHMARK(DropListOfTenThousandToPainted)->Unit(benchmark::kMillisecond);

void PlainQtListOfTenThousandToPainted(benchmark::State& state) {
  for (auto _ : state) {
    auto* list = new QListWidget(&BenchHost::Here().Widget());
    list->setGeometry(65, 420, 734, 150);
    for (int i = 0; i < kHistory; ++i) list->addItem(QString("G1 X%1 F1000").arg(i));
    list->show();
    BenchHost::Here().Widget().repaint();
    benchmark::DoNotOptimize(BenchHost::Here().Widget().grab());
    delete list;
  }
}
BENCHMARK(PlainQtListOfTenThousandToPainted)->Unit(benchmark::kMillisecond);

void WriteHistory(const QString& folder) {
  QDir().mkpath(folder);
  QFile settings(folder + "/MDIMAN.INI");
  QFile history(folder + "/MDIC1.DAT");
  if (!settings.open(QFile::WriteOnly) || !history.open(QFile::WriteOnly)) return;
  settings.write("[PRIVATE]\r\nNItems=10000\r\n");
  for (int i = 0; i < kHistory; ++i) history.write(QString("G1 X%1 F1000\r\n").arg(i).toUtf8());
}

}  // namespace

int main(int argc, char** argv) {
  BenchHost host(argc, argv);
  if (!PnlRig()->StartMachine("demo")) return 1;
  const auto folder = PnlRig()->Files().HostPath(PnlRig()->Files().Path(108));
  if (!folder) return 1;
  WriteHistory(QString::fromStdString(*folder));
  PnlSetLanguage("en");
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
