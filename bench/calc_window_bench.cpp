// SPDX-License-Identifier: MIT
// The calculator with a history of ten thousand rows: opening and closing the list, and one step of scrolling, painted
// each time. The peer is a plain QListWidget with the same rows and size.
#include <benchmark/benchmark.h>
#include <pnltools/pnltools.h>
#include <pnltools/rig.h>

#include <QAbstractItemView>
#include <QImage>
#include <QKeyEvent>
#include <QListWidget>
#include <QScrollBar>
#include <memory>

#include "bench_host.h"

namespace {

constexpr int kRows = 10'000;
constexpr int kHistoryId = 1038;

QString Row(int index) { return QStringLiteral("%1*SIN(%2)+A/3").arg(index).arg(index % 360); }

void Paint(QWidget& widget) {
  QImage image(widget.size(), QImage::Format_RGB32);
  widget.render(&image);
  benchmark::DoNotOptimize(image);
}

void WriteHistory() {
  QFile file(QString::fromStdString(*PnlRig()->Files().HostPath(u"C:\\P1\\calc.htr")));
  if (!file.open(QIODevice::WriteOnly)) std::abort();
  for (int i = 0; i < kRows; ++i) file.write((Row(i) + QStringLiteral("\r\n")).toUtf8());
}

/// A calculator that has read its history from the disc. Destroying this object destroys it.
class Calculator {
 public:
  Calculator()
      : window_(LoadPNLTool(PNL_TOOL_CALCULATOR, BenchHost::Here().Window())),
        tool_(static_cast<QWidget*>(PnlWidgetOf(window_))) {
    for (auto* view : tool_->findChildren<QAbstractItemView*>()) {
      if (view->property("pnlId").toInt() == kHistoryId) list_ = view;
    }
    QCoreApplication::processEvents();
  }
  ~Calculator() { PnlDestroyWindow(window_); }
  Calculator(const Calculator&) = delete;
  Calculator& operator=(const Calculator&) = delete;

  void Key(int key) const {
    QWidget* focus = tool_->focusWidget();
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(focus, &event);
  }
  [[nodiscard]] QWidget& Tool() const { return *tool_; }
  [[nodiscard]] QAbstractItemView& List() const { return *list_; }

 private:
  PnlWindow window_;
  QWidget* tool_;
  QAbstractItemView* list_ = nullptr;
};

std::unique_ptr<QListWidget> PlainList() {
  const Calculator calculator;
  auto list = std::make_unique<QListWidget>();
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  for (int i = 0; i < kRows; ++i) list->addItem(Row(i));
  list->resize(calculator.List().size().isEmpty() ? QSize(276, 138) : calculator.List().size());
  return list;
}

void OpenAndCloseHistory(benchmark::State& state) {
  const Calculator calculator;
  for (auto _ : state) {
    calculator.Key(Qt::Key_Down);
    Paint(calculator.Tool());
    calculator.Key(Qt::Key_Escape);
  }
}

void ShowAndHidePlainList(benchmark::State& state) {
  const auto list = PlainList();
  for (auto _ : state) {
    list->show();
    Paint(*list);
    list->hide();
  }
}

void ScrollHistory(benchmark::State& state) {
  const Calculator calculator;
  calculator.Key(Qt::Key_Down);
  int step = 0;
  for (auto _ : state) {
    QScrollBar* bar = calculator.List().verticalScrollBar();
    bar->setValue(++step * 997 % bar->maximum());
    Paint(calculator.List());
  }
  calculator.Key(Qt::Key_Escape);
}

void ScrollPlainList(benchmark::State& state) {
  const auto list = PlainList();
  list->show();
  int step = 0;
  for (auto _ : state) {
    QScrollBar* bar = list->verticalScrollBar();
    bar->setValue(++step * 997 % bar->maximum());
    Paint(*list);
  }
}

BENCHMARK(OpenAndCloseHistory)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowAndHidePlainList)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollHistory)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollPlainList)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  BenchHost host(argc, argv);
  PnlRig()->StartBare();
  WriteHistory();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
