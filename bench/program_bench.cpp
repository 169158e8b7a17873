// SPDX-License-Identifier: MIT
// A program of 24 MB in the panel: opening, saving, leaving it for a new one, searching it and
// replacing in it. The figure is the longest time for
// which the event loop was away, because every key of the operator waits that long. Beside a plain text edit that takes
// the same text in one go, in the same run.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <algorithm>
#include <functional>
#include <string_view>

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
    note();
  }
  return static_cast<double>(longest) / 1e9;
}

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
