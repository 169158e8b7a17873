// SPDX-License-Identifier: MIT
// The help viewer's window: from the host's command to the painted page of a mark, for a manual of 500 pages that has
// to be unpacked first and for one that is unpacked already, beside a plain text browser with the same page. And a
// manual of 2,000 pages: a query to its painted results, and the longest time for which the window's thread doesn't
// come back to its events while that manual is unpacked, read and indexed. With --brief fewer pages.
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDir>
#include <QLineEdit>
#include <QTextBrowser>
#include <QTextDocument>
#include <functional>
#include <string_view>

#include "bench_host.h"
#include "bench_manual.h"
#include "stalls.h"

namespace {

constexpr int kPage = 1020;
constexpr int kSearchTab = 1003;
constexpr int kSearchLine = 1013;
constexpr int kSearchKey = 1014;
constexpr int kResults = 1015;
constexpr int kHelpFolder = 113;

bool brief = false;

void Run(const std::function<bool()>& until) {
  while (!until()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Counts how often a widget is painted.
class Paints final : public QObject {
 public:
  explicit Paints(QWidget& widget) : widget_(widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count_ += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  /// Runs events until the widget is painted from now on.
  void Await() {
    const int before = count_;
    widget_.update();
    Run([&] { return count_ > before; });
  }

 private:
  QWidget& widget_;
  int count_ = 0;
};

/// The cache of manuals, and the folder with the index files and two manuals.
class Manuals {
 public:
  Manuals() : folder_(root_.filePath("help")), cache_(root_.filePath("cache")) {
    qputenv("XDG_CACHE_HOME", QFile::encodeName(cache_));
    QDir().mkpath(folder_);
    Write("Cnc7340.helps", "[MANUALS]\r\nSML=small.chm\r\nLRG=large.chm\r\n");
    for (const auto& [name, pages] : {std::pair("small", brief ? 20 : 500), std::pair("large", brief ? 40 : 2'000)}) {
      Write(QString(name) + ".chm", QByteArray::fromStdString(BenchManual(pages)));
      Write(QString(name) + ".mrk", "[MARKS]\r\nSML1=page10007.htm\r\nLRG1=page10007.htm\r\n");
    }
  }
  [[nodiscard]] const QString& Folder() const { return folder_; }
  void ForgetUnpacked() { QDir(cache_).removeRecursively(); }

 private:
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(folder_ + "/" + name);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size()) std::exit(1);
  }
  QTemporaryDir root_;
  const QString folder_;
  const QString cache_;
};

class Viewer {
 public:
  Viewer()
      : tool_(LoadPNLTool(PNL_TOOL_HELP, BenchHost::Here().Window())),
        browser_(*Control<QWidget>(kPage)->findChild<QTextBrowser*>()),
        paints_(*browser_.viewport()) {}
  ~Viewer() { PnlDestroyWindow(tool_); }
  Viewer(const Viewer&) = delete;
  Viewer& operator=(const Viewer&) = delete;

  /// Opens the manual at the mark and waits for the painted page.
  void Open(const char16_t* mark) {
    PnlRig()->Cnc().Set(u"E.HELPDATA", std::u16string(mark));
    if (PnlSendMessage(tool_, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_OPEN, 0) != 0) std::exit(1);
    Run([this] { return !browser_.document()->isEmpty(); });
    paints_.Await();
  }
  void Close() { PnlSendMessage(tool_, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_HIDE, 0); }
  /// Asks for pages with the word and waits for the painted list; at first this is how long indexing takes.
  void Search(const QString& word) {
    auto* results = Control<QAbstractItemView>(kResults);
    Control<QAbstractButton>(kSearchTab)->click();
    Control<QLineEdit>(kSearchLine)->setText(word);
    Control<QAbstractButton>(kSearchKey)->click();
    Run([results] { return results->model()->rowCount() > 0; });
    Paints(*results->viewport()).Await();
  }
  [[nodiscard]] QString Page() const { return browser_.toHtml(); }

 private:
  template <typename Widget>
  [[nodiscard]] Widget* Control(int id) const {
    for (auto* each : static_cast<QWidget*>(PnlWidgetOf(tool_))->findChildren<Widget*>()) {
      if (each->property("pnlId").toInt() == id) return each;
    }
    std::exit(1);
  }
  PnlWindow tool_;
  QTextBrowser& browser_;
  Paints paints_;
};

void MarkToPaintedPage(benchmark::State& state, Manuals& manuals, bool cold) {
  Viewer viewer;
  viewer.Open(u"SML1");
  for (auto _ : state) {
    viewer.Close();
    if (cold) manuals.ForgetUnpacked();
    const auto start = Clock::now();
    viewer.Open(u"SML1");
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
  }
}

void PlainBrowserToPaintedPage(benchmark::State& state) {
  QString html;
  {
    Viewer viewer;
    viewer.Open(u"SML1");
    html = viewer.Page();
  }
  QTextBrowser browser(&BenchHost::Here().Widget());
  browser.resize(500, 560);
  browser.show();
  Paints paints(*browser.viewport());
  for (auto _ : state) {
    browser.clear();
    const auto start = Clock::now();
    browser.setHtml(html);
    paints.Await();
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
  }
}

void UnpackAndIndex(benchmark::State& state, Manuals& manuals) {
  Stalls stalls;
  for (auto _ : state) {
    Viewer viewer;
    manuals.ForgetUnpacked();
    stalls.Begin();
    const auto start = Clock::now();
    viewer.Open(u"LRG1");
    state.counters["page painted, ms"] = MillisecondsSince(start);
    viewer.Search(QStringLiteral("ma"));
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
    stalls.Count(state);
  }
}

void QueryToPaintedResults(benchmark::State& state) {
  Viewer viewer;
  viewer.Open(u"LRG1");
  viewer.Search(QStringLiteral("ma"));
  for (auto _ : state) {
    const auto start = Clock::now();
    viewer.Search(QStringLiteral("m"));
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
  }
}

template <typename Function, typename... Arguments>
void Register(const char* name, int iterations, Function function, Arguments&&... arguments) {
  auto* registered = benchmark::RegisterBenchmark(name, function, std::forward<Arguments>(arguments)...);
  registered->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(brief ? 1 : iterations);
}

}  // namespace

int main(int argc, char** argv) {
  brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc;
  BenchHost host(argc, argv);
  if (!PnlRig()->StartMachine("demo")) return 1;
  PnlSetLanguage("en");
  Manuals manuals;
  pnl::rig::Drive drive;
  drive.letter = 'D';
  drive.dir = QFile::encodeName(manuals.Folder()).toStdString();
  PnlRig()->Files().SetDrive(drive);
  PnlRig()->Files().SetPath(kHelpFolder, u"D:");
  Register("MarkToPaintedPage/cold", 10, MarkToPaintedPage, std::ref(manuals), true);
  Register("MarkToPaintedPage/warm", 50, MarkToPaintedPage, std::ref(manuals), false);
  Register("PlainBrowserToPaintedPage", 50, PlainBrowserToPaintedPage);
  Register("UnpackAndIndex", 3, UnpackAndIndex, std::ref(manuals));
  Register("QueryToPaintedResults", 20, QueryToPaintedResults);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
