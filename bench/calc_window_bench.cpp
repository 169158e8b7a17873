// SPDX-License-Identifier: MIT
// The calculator with a history of ten thousand rows: opening and closing the list, and a step of scrolling, painted
// each time. Beside it a plain QListWidget that holds the same rows in the same size.
#include <benchmark/benchmark.h>
#include <pnltools/pnltools.h>
#include <pnltools/rig.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QListWidget>
#include <QScrollBar>
#include <QTemporaryDir>
#include <memory>

namespace {

constexpr int kRows = 10'000;
constexpr int kHistoryId = 1038;

QString Row(int index) { return QStringLiteral("%1*SIN(%2)+A/3").arg(index).arg(index % 360); }

void Paint(QWidget& widget) {
  QImage image(widget.size(), QImage::Format_RGB32);
  widget.render(&image);
  benchmark::DoNotOptimize(image);
}

/// A calculator in a window of 800x600, its history on a disc of its own.
class Calculator {
 public:
  Calculator() {
    pnl::rig::Drive drive;
    drive.letter = 'C';
    drive.dir = QFile::encodeName(root_.path()).toStdString();
    PnlRig()->Files().SetDrive(drive);
    PnlRig()->StartBare();
    QFile file(QString::fromStdString(*PnlRig()->Files().HostPath(u"C:\\P1\\calc.htr")));
    if (!file.open(QIODevice::WriteOnly)) std::abort();
    for (int i = 0; i < kRows; ++i) file.write((Row(i) + QStringLiteral("\r\n")).toUtf8());
    file.close();
    area_.resize(800, 600);
    area_.show();
    tool_ =
        static_cast<QWidget*>(PnlWidgetOf(LoadPNLTool(PNL_TOOL_CALCULATOR, PnlAttachWidget(&area_, nullptr, nullptr))));
    for (auto* view : tool_->findChildren<QAbstractItemView*>()) {
      if (view->property("pnlId").toInt() == kHistoryId) list_ = view;
    }
    QCoreApplication::processEvents();
  }
  void Key(int key) const {
    QWidget* focus = tool_->focusWidget();
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(focus, &event);
  }
  [[nodiscard]] QWidget& Tool() const { return *tool_; }
  [[nodiscard]] QAbstractItemView& List() const { return *list_; }

 private:
  QTemporaryDir root_;
  QWidget area_;
  QWidget* tool_ = nullptr;
  QAbstractItemView* list_ = nullptr;
};

Calculator& TheCalculator() {
  static Calculator calculator;
  return calculator;
}

std::unique_ptr<QListWidget> PlainList() {
  auto list = std::make_unique<QListWidget>();
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  for (int i = 0; i < kRows; ++i) list->addItem(Row(i));
  list->resize(TheCalculator().List().size().isEmpty() ? QSize(276, 138) : TheCalculator().List().size());
  return list;
}

void OpenAndCloseHistory(benchmark::State& state) {
  const Calculator& calculator = TheCalculator();
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
  const Calculator& calculator = TheCalculator();
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
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
