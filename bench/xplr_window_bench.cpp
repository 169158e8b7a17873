// SPDX-License-Identifier: MIT
// The explorer's window with a folder of 100,000 files: the time until the first rows are painted and until all of them
// are there in their order, a new order of the loaded rows, the longest time for which the window's thread doesn't come
// back to its events, and what a row takes. Beside the framework's file model with its view, and a bare walk, all in
// the same run. Each stall has two figures: by the clock, which counts the work of other programs too, and by the
// thread's own clock.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QAbstractItemView>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>
#include <functional>
#include <memory>

#include "bench_folder.h"
#include "bench_host.h"
#include "stalls.h"

namespace {

constexpr int kListId = 1107;
constexpr int kSortCommand = 32770;
constexpr const char* kOrders[] = {"name", "size", "date", "extension"};

int fileCount = 100'000;

/// Bytes that are in use now, as the allocator rounds them.
double BytesInUse() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

/// Lets the events run until a view has been painted, with its rows as they are wanted.
class Painted final : public QObject {
 public:
  explicit Painted(QAbstractItemView& view) : view_(view) {
    view.viewport()->installEventFilter(this);
    QObject::connect(view.model(), &QAbstractItemModel::modelReset, this, [this] { ++resets_; });
    QObject::connect(view.model(), &QAbstractItemModel::layoutChanged, this, [this] { ++resets_; });
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    paints_ += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  void Await(const std::function<bool()>& wanted) {
    while (!wanted()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const int before = paints_;
    view_.viewport()->update();
    while (paints_ == before) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // The picture is out when the event of the paint is over.
    QCoreApplication::processEvents();
  }
  [[nodiscard]] int Resets() const { return resets_; }

 private:
  QAbstractItemView& view_;
  int paints_ = 0;
  int resets_ = 0;
};

/// The explorer's window in the folder.
class Explorer {
 public:
  Explorer() : tool_(LoadPNLTool(PNL_TOOL_EXPLORER, BenchHost::Here().Window())) {
    for (auto* view : static_cast<QWidget*>(PnlWidgetOf(tool_))->findChildren<QTreeView*>()) {
      if (view->property("pnlId").toInt() == kListId) list_ = view;
    }
    if (list_ == nullptr) std::exit(1);
  }
  ~Explorer() { PnlDestroyWindow(tool_); }
  Explorer(const Explorer&) = delete;
  Explorer& operator=(const Explorer&) = delete;

  [[nodiscard]] QTreeView& List() { return *list_; }
  [[nodiscard]] int Rows() const { return list_->model()->rowCount(); }
  void SortBy(int column) { PnlSendMessage(tool_, PNL_MSG_COMMAND, kSortCommand + column, 0); }
  void AwaitAll(Painted& painted) {
    painted.Await([this] { return Rows() == fileCount; });
  }

 private:
  PnlWindow tool_;
  QTreeView* list_ = nullptr;
};

/// The framework's file model with its view in the folder.
class FrameworkView {
 public:
  explicit FrameworkView(const QString& path) : view_(&BenchHost::Here().Widget()) {
    QObject::connect(&model_, &QFileSystemModel::directoryLoaded,
                     [this, path](const QString& loaded) { loaded_ = loaded_ || loaded == path; });
    view_.setUniformRowHeights(true);
    view_.setSortingEnabled(true);
    view_.sortByColumn(0, Qt::AscendingOrder);
    view_.setModel(&model_);
    view_.setRootIndex(model_.setRootPath(path));
    view_.resize(BenchHost::Here().Widget().size());
    view_.show();
  }
  [[nodiscard]] QTreeView& List() { return view_; }
  [[nodiscard]] int Rows() const { return model_.rowCount(view_.rootIndex()); }
  void SortBy(int column, Qt::SortOrder order) { view_.sortByColumn(column, order); }
  void AwaitAll(Painted& painted) {
    painted.Await([this] { return loaded_ && Rows() == fileCount; });
  }

 private:
  QFileSystemModel model_;
  QTreeView view_;
  bool loaded_ = false;
};

void WalkBare(benchmark::State& state, const std::string& path) {
  for (auto _ : state) {
    std::int64_t sum = 0;
    Walk(path, [&](std::string_view, const struct stat& status) { sum += status.st_size; });
    benchmark::DoNotOptimize(sum);
  }
}

/// Opens the window, made by make, and waits until all rows are painted.
template <typename Make>
void Load(benchmark::State& state, Make make) {
  Stalls stalls;
  for (auto _ : state) {
    const double before = BytesInUse();
    const auto start = Clock::now();
    auto window = make();
    Stalls::Keep(state, "to open it, ms", MillisecondsSince(start));
    stalls.Begin();
    Painted painted(window->List());
    painted.Await([&] { return window->Rows() > 0; });
    const double first = MillisecondsSince(start);
    window->AwaitAll(painted);
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
    state.counters["first rows, ms"] += first / static_cast<double>(state.max_iterations);
    stalls.Count(state);
    state.counters["bytes a row"] = (BytesInUse() - before) / fileCount;
  }
}

template <typename Window>
void Scroll(benchmark::State& state, Window& window) {
  Painted painted(window.List());
  window.AwaitAll(painted);
  QScrollBar* bar = window.List().verticalScrollBar();
  Stalls stalls;
  for (auto _ : state) {
    stalls.Begin();
    const auto start = Clock::now();
    for (int i = 0; i <= 50; ++i) {
      bar->setValue(bar->maximum() / 50 * i);
      painted.Await([] { return true; });
    }
    state.SetIterationTime(MillisecondsSince(start) / 51e3);
    stalls.Count(state);
  }
}

void ScrollExplorer(benchmark::State& state) {
  Explorer explorer;
  Scroll(state, explorer);
}

void ScrollFramework(benchmark::State& state, const QString& path) {
  FrameworkView view(path);
  Scroll(state, view);
}

/// Each iteration goes to another column before, so that the order is always a new one.
void OrderExplorer(benchmark::State& state, int column, bool ascending) {
  Explorer explorer;
  Painted painted(explorer.List());
  explorer.AwaitAll(painted);
  const auto sort = [&](int by) {
    const int before = painted.Resets();
    explorer.SortBy(by);
    painted.Await([&] { return painted.Resets() > before; });
  };
  Stalls stalls;
  for (auto _ : state) {
    sort((column + 1) % 4);
    if (!ascending) sort(column);
    stalls.Begin();
    const auto start = Clock::now();
    sort(column);
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
    stalls.Count(state);
  }
}

void OrderFramework(benchmark::State& state, const QString& path, int column, bool ascending) {
  constexpr int kColumns[] = {0, 1, 3, 2};
  FrameworkView view(path);
  Painted painted(view.List());
  view.AwaitAll(painted);
  Stalls stalls;
  for (auto _ : state) {
    view.SortBy(kColumns[(column + 1) % 4], Qt::AscendingOrder);
    stalls.Begin();
    const auto start = Clock::now();
    view.SortBy(kColumns[column], ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    painted.Await([] { return true; });
    state.SetIterationTime(MillisecondsSince(start) / 1e3);
    stalls.Count(state);
  }
}

/// A short run that only shows whether everything works; its figures mean nothing.
bool brief = false;

template <typename Function, typename... Arguments>
void Register(const std::string& name, int iterations, Function function, Arguments... arguments) {
  auto* registered = benchmark::RegisterBenchmark(name.c_str(), function, arguments...);
  registered->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(brief ? 1 : iterations);
}

void RegisterAll(const std::string& path) {
  const QString folder = QString::fromStdString(path);
  benchmark::RegisterBenchmark("walk/bare", WalkBare, path)->Unit(benchmark::kMillisecond)->Iterations(brief ? 1 : 5);
  Register("load/explorer", 5,
           [](benchmark::State& state) { Load(state, [] { return std::make_unique<Explorer>(); }); });
  Register("load/framework", 3,
           [folder](benchmark::State& state) { Load(state, [&] { return std::make_unique<FrameworkView>(folder); }); });
  Register("scroll/explorer", 3, ScrollExplorer);
  Register("scroll/framework", 3, ScrollFramework, folder);
  for (int column = 0; column < 4; ++column) {
    for (const bool ascending : {true, false}) {
      const std::string order = std::string(kOrders[column]) + (ascending ? " ascending" : " descending");
      Register("order/explorer " + order, 3, OrderExplorer, column, ascending);
      if (ascending) Register("order/framework " + order, 1, OrderFramework, folder, column, ascending);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc, fileCount = 200;
  BenchHost host(argc, argv);
  const BenchFolder folder(fileCount);
  pnl::rig::Drive drive;
  drive.letter = 'D';
  drive.dir = folder.Path();
  PnlRig()->Files().SetDrive(drive);
  PnlRig()->Files().SetPath(101, u"D:");
  PnlSetLanguage("en");
  RegisterAll(folder.Path());
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
