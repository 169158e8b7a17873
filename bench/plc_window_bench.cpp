// SPDX-License-Identifier: MIT
// The time from a PLC message to its painted document, beside a plain Qt window with the same document. With --memory,
// a number and perhaps a kind instead: what the process holds in memory and open after so many documents of each kind.
#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBrowser>
#include <QUrl>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "bench_host.h"

namespace {

constexpr std::uint32_t kPageMessage = 0x00000001;
constexpr std::uint32_t kTextMessage = 0x10000001;

void HandlePosted() { QCoreApplication::sendPostedEvents(); }

/// Paints what a screen would show.
void PaintHost() { benchmark::DoNotOptimize(BenchHost::Here().Widget().grab()); }

/// The PLC message view on the demo machine.
class View {
 public:
  View() : tool_(LoadPNLTool(PNL_TOOL_PLC_MESSAGES, BenchHost::Here().Window())) {
    Widget().setGeometry(BenchHost::Here().Widget().rect());
    HandlePosted();
  }
  ~View() { PnlDestroyWindow(tool_); }
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  static void Raise(std::uint32_t code) {
    PnlRig()->Machine()->RaisePlcMessage(code);
    HandlePosted();
  }
  void Leave() const {
    PnlSendMessage(tool_, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL, 0);
    HandlePosted();
  }
  [[nodiscard]] QWidget& Widget() const { return *static_cast<QWidget*>(PnlWidgetOf(tool_)); }

 private:
  PnlWindow tool_;
};

void MessageToPainted(benchmark::State& state, std::uint32_t code) {
  const View view;
  for (auto _ : state) {
    View::Raise(code);
    PaintHost();
    state.PauseTiming();
    if (!view.Widget().isVisible()) state.SkipWithError("the window didn't open");
    view.Leave();
    PaintHost();
    state.ResumeTiming();
  }
}
BENCHMARK_CAPTURE(MessageToPainted, text, kTextMessage)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MessageToPainted, page, kPageMessage)->Unit(benchmark::kMillisecond);

QString DocumentFolder() { return QString::fromStdString(*PnlRig()->Files().HostPath(u"C:\\CNC\\PLC\\EN")); }

/// Shows and paints a window with a title, whose document show() has set, as often as is asked.
template <typename Document, typename Show>
void PlainQtToPainted(benchmark::State& state, Show show) {
  QWidget window(&BenchHost::Here().Widget());
  window.setGeometry(BenchHost::Here().Widget().rect());
  QLabel title(" PLC message", &window);
  title.setGeometry(0, 0, window.width(), 30);
  Document document(&window);
  document.setGeometry(0, 30, window.width(), window.height() - 30);
  for (auto _ : state) {
    show(document);
    window.show();
    window.raise();
    HandlePosted();
    PaintHost();
    state.PauseTiming();
    document.clear();
    window.hide();
    PaintHost();
    state.ResumeTiming();
  }
}

void PlainQtTextToPainted(benchmark::State& state) {
  std::ifstream file(DocumentFolder().toStdString() + "/messages.txt");
  const std::string all{std::istreambuf_iterator<char>(file), {}};
  const QString text = QString::fromStdString(all).section('[', 1, 1);
  if (text.isEmpty()) state.SkipWithError("the text isn't there");
  PlainQtToPainted<QPlainTextEdit>(state, [&text](QPlainTextEdit& document) { document.setPlainText(text); });
}
BENCHMARK(PlainQtTextToPainted)->Unit(benchmark::kMillisecond);

void PlainQtPageToPainted(benchmark::State& state) {
  const QUrl page = QUrl::fromLocalFile(DocumentFolder() + "/coolant.htm");
  PlainQtToPainted<QTextBrowser>(state, [&page](QTextBrowser& document) {
    document.setSource(page);
    document.reload();
  });
}
BENCHMARK(PlainQtPageToPainted)->Unit(benchmark::kMillisecond);

// Memory.

struct Held {
  double megabytes = 0;
  long files = 0;
  long threads = 0;
};

long Entries(const char* folder) {
  return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

Held HeldNow() {
  std::ifstream status("/proc/self/status");
  Held held{0, Entries("/proc/self/fd"), Entries("/proc/self/task")};
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmRSS:", 0) == 0) held.megabytes = std::stod(line.substr(6)) / 1024;
  }
  return held;
}

void RunEvents(int milliseconds) {
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < milliseconds) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

struct Kind {
  const char* name;
  std::uint32_t code;
  int moving;  // how many milliseconds it is looked at, because it moves
};

constexpr Kind kKinds[] = {
    {"text", kTextMessage, 0},        {"page", kPageMessage, 0}, {"plain file", 0x00000004, 0}, {"JPG", 0x10000004, 0},
    {"animated GIF", 0x00000002, 20}, {"BMP", 0x10000003, 0},    {"video", 0x00000003, 100},
};

void MeasureMemory(int openings, std::string_view only) {
  std::printf("%-14s %10s %10s %10s   %s\n", "", "after 10", "after 100", ("after " + std::to_string(openings)).c_str(),
              "open files and threads, after 10 and at the end");
  const View view;
  for (const Kind& kind : kKinds) {
    if (!only.empty() && only != kind.name) continue;
    Held early, middle;
    for (int i = 1; i <= openings; ++i) {
      View::Raise(kind.code);
      PaintHost();
      RunEvents(kind.moving);
      view.Leave();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      if (i == 10) early = HeldNow();
      if (i == 100) middle = HeldNow();
    }
    const Held late = HeldNow();
    std::printf("%-14s %7.1f MB %7.1f MB %7.1f MB   %ld, %ld and %ld, %ld\n", kind.name, early.megabytes,
                middle.megabytes, late.megabytes, early.files, early.threads, late.files, late.threads);
    std::fflush(stdout);
  }
}

void LetToolsOpen() {
  SetPNLApi([](int) { return 1; }, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
            nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  const bool memory = argc >= 2 && std::string_view(argv[1]) == "--memory";
  const int openings = memory && argc >= 3 ? std::atoi(argv[2]) : 1000;
  BenchHost host(argc, argv);
  if (!PnlRig()->StartMachine("demo")) return 1;
  PnlSetLanguage("en");
  LetToolsOpen();
  if (memory) {
    MeasureMemory(openings, argc >= 4 ? argv[3] : "");
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
