// SPDX-License-Identifier: MIT
// The time from the kernel's record to the painted error window, beside a plain Qt window with the same texts, and the
// time until the window is right again after ten thousand records at once.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QLabel>
#include <QPushButton>

#include "bench_host.h"

namespace {

pnl::rig::CncControl& Cnc() { return PnlRig()->Cnc(); }

pnl::rig::ErrorSpec Spec() {
  pnl::rig::ErrorSpec spec;
  spec.fields = {{"number", std::int64_t{1018}}, {"severity", std::int64_t{1}}, {"module", std::u16string(u"NC")}};
  for (std::int32_t i = 0; i < 5; ++i) spec.parameters.push_back({8, 11, 2 + i, 12.5});
  return spec;
}

void Push() {
  std::string problem;
  Cnc().PushError(Spec(), problem);
}

void HandlePosted() { QCoreApplication::sendPostedEvents(); }

/// Paints what a screen would show.
void PaintHost() { benchmark::DoNotOptimize(BenchHost::Here().Widget().grab()); }

void RecordToPaintedWindow(benchmark::State& state) {
  const PnlWindow tool = LoadPNLTool(PNL_TOOL_ERRORS, BenchHost::Here().Window());
  HandlePosted();
  for (auto _ : state) {
    Push();
    HandlePosted();
    PaintHost();
    state.PauseTiming();
    if (!static_cast<QWidget*>(PnlWidgetOf(tool))->isVisible()) state.SkipWithError("the window didn't open");
    Cnc().ClearErrors();
    HandlePosted();
    PaintHost();
    state.ResumeTiming();
  }
  PnlDestroyWindow(tool);
}
BENCHMARK(RecordToPaintedWindow)->Unit(benchmark::kMillisecond);

void PlainQtWindowToPainted(benchmark::State& state) {
  auto* window = new QWidget(&BenchHost::Here().Widget());
  window->setGeometry(0, 0, 710, 298);
  auto* title = new QLabel("ERROR 1018", window);
  title->setGeometry(195, 10, 320, 42);
  auto* line = new QLabel("Travel limit exceeded", window);
  line->setGeometry(10, 63, 690, 34);
  auto* text = new QLabel(window);
  text->setGeometry(10, 109, 690, 174);
  for (int i = 0; i < 4; ++i) (new QPushButton("x", window))->setGeometry(525 + i * 40, 10, 30, 32);
  window->hide();
  for (auto _ : state) {
    text->setText("Value: 12.5 mm\nLowest value: 12.5 mm\nHighest value: 12.5 mm\nParameter: 12.5 mm\nID: NC-0");
    window->show();
    window->raise();
    HandlePosted();
    PaintHost();
    state.PauseTiming();
    window->hide();
    PaintHost();
    state.ResumeTiming();
  }
  delete window;
}
BENCHMARK(PlainQtWindowToPainted)->Unit(benchmark::kMillisecond);

void TenThousandRecordsAtOnce(benchmark::State& state) {
  const PnlWindow tool = LoadPNLTool(PNL_TOOL_ERRORS, BenchHost::Here().Window());
  HandlePosted();
  for (auto _ : state) {
    for (int i = 0; i < 10000; ++i) Push();
    HandlePosted();
    PaintHost();
    state.PauseTiming();
    if (Cnc().ErrorQueue().size() != 10000) state.SkipWithError("records were lost");
    Cnc().ClearErrors();
    HandlePosted();
    state.ResumeTiming();
  }
  PnlDestroyWindow(tool);
}
BENCHMARK(TenThousandRecordsAtOnce)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  BenchHost host(argc, argv);
  if (!PnlRig()->StartMachine("demo")) return 1;
  PnlSetLanguage("en");
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
