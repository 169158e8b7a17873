// SPDX-License-Identifier: MIT
// A program of 24 MB in the panel: opening, saving, leaving it for a new one, searching it and replacing in it. The
// figure is the longest time for which the event loop was away, because every key of the operator waits that long. The
// first figure is the time until the first page is painted. Beside a plain text edit that takes the same text in one
// go, in the same run.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "bench_host.h"
#include "common/words.h"
#include "ui/find_bar.h"
#include "ui/panel_key.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace {

qint64 programBytes = 24'000'000;

/// Nobody asks for a file here.
class NoFiles : public panel::FileAsker {
 public:
  void Ask(const panel::FileRequest&, Accepted, Left left) override { left(); }
};

QByteArray Program() {
  QByteArray text;
  text.reserve(programBytes + 64);
  for (int block = 1; text.size() < programBytes; ++block) {
    text += "N" + QByteArray::number(block) + " G1 X" + QByteArray::number(block % 500) + ".125 Y-12.5 F800\r\n";
  }
  return text;
}

/// Turns the event loop until work has ended, and returns the longest turn in seconds.
double LongestTurn(const std::function<void()>& start, const std::function<bool()>& works) {
  qint64 longest = 0;
  QElapsedTimer turn;
  const auto note = [&] { longest = std::max(longest, turn.nsecsElapsed()); };
  turn.start();
  start();
  note();
  while (works()) {
    turn.start();
    QCoreApplication::processEvents();
    // Only a loop that runs would do this by itself.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    note();
  }
  return static_cast<double>(longest) / 1e9;
}

/// Sees the first painting of a text, which isn't known before the painting.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(std::function<QWidget*()> text) : text_(std::move(text)) { qApp->installEventFilter(this); }
  [[nodiscard]] bool HasPainted() const { return painted_; }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched == text_()) painted_ = true;
    return false;
  }

 private:
  std::function<QWidget*()> text_;
  bool painted_ = false;
};

/// The panel's editor over a folder of its own.
class Panel {
 public:
  Panel() : editor_(&window_), question_(&window_) {
    QFile file(folder_.filePath(QStringLiteral("big.nc")));
    if (file.open(QIODevice::WriteOnly)) file.write(Program());
    window_.resize(800, 600);
    editor_.setGeometry(window_.rect());
    window_.show();
  }
  double Open() {
    return LongestTurn([this] { desk_.Load(QStringLiteral("C:\\big.nc")); }, [this] { return desk_.Working(); });
  }
  /// From the wish to the first page on the screen, in seconds.
  double FirstPage() {
    const panel::CodeEdit* const old = &editor_.Edit();
    const PaintWatch watch([this, old]() -> QWidget* {
      panel::CodeEdit& seen = editor_.Edit();
      return &seen == old ? nullptr : seen.viewport();
    });
    QElapsedTimer clock;
    clock.start();
    desk_.Load(QStringLiteral("C:\\big.nc"));
    // The painting is over when the turn that has brought it returns.
    while (!watch.HasPainted() && desk_.Working()) QCoreApplication::processEvents();
    const double seconds = watch.HasPainted() ? static_cast<double>(clock.nsecsElapsed()) / 1e9 : -1;
    (void)LongestTurn([] {}, [this] { return desk_.Working(); });
    return seconds;
  }
  double Save() {
    return LongestTurn([this] { desk_.Store(QStringLiteral("C:\\copy.nc")); }, [this] { return desk_.Working(); });
  }
  double Clear() {
    const QPointer<panel::CodeEdit> old = &editor_.Edit();
    return LongestTurn([this] { editor_.Fill({}, {}); }, [&old] { return old != nullptr; });
  }
  double Search() {
    return LongestTurn([this] { Find("X499"); }, [this] { return editor_.Working(); });
  }
  double ReplaceAll() {
    Find("X499");
    (void)LongestTurn([] {}, [this] { return editor_.Working(); });
    return LongestTurn([this] { editor_.Finding().AllKey()->click(); }, [this] { return editor_.Working(); });
  }
  [[nodiscard]] bool IsShown() const { return editor_.RawText().size() > programBytes / 2; }

 private:
  void Find(const char* what) {
    editor_.Do(panel::Action::kReplace);
    editor_.Finding().What().setText(QString::fromLatin1(what));
    editor_.Finding().With().setText(QStringLiteral("Z1"));
  }
  QTemporaryDir folder_;
  QWidget window_;
  panel::ProgramEditor editor_;
  panel::Question question_;
  NoFiles files_;
  panel::ProgramDesk desk_{editor_, files_, question_,
                           [this](const QString& path) { return folder_.filePath(path.mid(3)); }, nullptr};
};

enum class Work { kOpen, kSave, kClear, kSearch, kReplace };

void InPanel(benchmark::State& state, Work work) {
  Panel panel;
  for ([[maybe_unused]] auto step : state) {
    const double open = panel.Open();
    if (!panel.IsShown()) return state.SkipWithError("the program isn't shown");
    state.SetIterationTime(work == Work::kOpen     ? open
                           : work == Work::kSave   ? panel.Save()
                           : work == Work::kSearch ? panel.Search()
                           : work == Work::kClear  ? panel.Clear()
                                                   : panel.ReplaceAll());
  }
}

void UntilFirstPage(benchmark::State& state) {
  Panel panel;
  for ([[maybe_unused]] auto step : state) {
    const double seconds = panel.FirstPage();
    if (seconds < 0 || !panel.IsShown()) return state.SkipWithError("the program isn't shown");
    state.SetIterationTime(seconds);
  }
}

void InPlainEdit(benchmark::State& state) {
  const QString text = QString::fromUtf8(Program());
  for ([[maybe_unused]] auto step : state) {
    QPlainTextEdit edit;
    edit.resize(800, 600);
    edit.show();
    state.SetIterationTime(LongestTurn([&] { edit.setPlainText(text); }, [] { return false; }));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc, programBytes = 500'000;
  BenchHost host(argc, argv);
  panel::UseWords("en");
  const auto add = [brief](const char* name, auto function, auto... arguments) {
    auto* added = benchmark::RegisterBenchmark(name, function, arguments...);
    added->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(brief ? 1 : 3);
  };
  add("first page/open", UntilFirstPage);
  add("longest turn/open", InPanel, Work::kOpen);
  add("longest turn/save", InPanel, Work::kSave);
  add("longest turn/clear", InPanel, Work::kClear);
  add("longest turn/search", InPanel, Work::kSearch);
  add("longest turn/replace all", InPanel, Work::kReplace);
  add("longest turn/plain edit", InPlainEdit);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
