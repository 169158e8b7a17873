// SPDX-License-Identifier: MIT
// A folder of 100,000 files as the explorer's list: read, made into rows and sorted, beside a bare walk over the same
// folder by readdir with fstatat; each of the four orders of the loaded rows in both directions, beside
// std::stable_sort of the same names. Prints the bytes that a row takes beyond the characters of its name.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "bench_folder.h"
#include "explorer/xplr_loading.h"
#include "explorer/xplr_names.h"
#include "explorer/xplr_rows.h"
#include "explorer/xplr_sort.h"
#include "places/disc_places.h"

namespace {

using pnl::ListFor;
using pnl::LocalZone;
using pnl::PlaceEntry;
using pnl::SortColumn;
using pnl::SortState;
using pnl::Text;
using pnl::XplrRow;

PlaceEntry EntryOf(std::string_view name, const struct stat& status) {
  PlaceEntry entry;
  entry.name = pnl::FromUtf8(name);
  entry.folder = S_ISDIR(status.st_mode);
  entry.dots = name == "." || name == "..";
  entry.hidden = name.front() == '.' && !entry.dots;
  entry.size = static_cast<std::uint64_t>(status.st_size);
  entry.written = status.st_mtime;
  return entry;
}

std::vector<XplrRow> ReadRows(const std::string& path) {
  std::vector<XplrRow> rows;
  LocalZone zone;
  Walk(path, [&](std::string_view name, const struct stat& status) {
    PlaceEntry entry = EntryOf(name, status);
    if (entry.hidden || entry.dots || !pnl::MatchesPattern(entry.name, u"*")) return;
    rows.push_back(MakeRow(std::move(entry), ListFor::kFiles, static_cast<std::uint32_t>(rows.size()), zone));
  });
  return rows;
}

/// Bytes that are in use now, as the allocator rounds them. 0 with an allocator that doesn't count.
double BytesInUse() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

SortState By(SortColumn column, bool ascending) {
  SortState state{{true, true, true, true}, column};
  state.ascending[static_cast<std::size_t>(column)] = ascending;
  return state;
}

void WalkBare(benchmark::State& state, const std::string& path) {
  for (auto _ : state) {
    std::int64_t sum = 0;
    Walk(path, [&](std::string_view, const struct stat& status) { sum += status.st_size; });
    benchmark::DoNotOptimize(sum);
  }
}

/// As the explorer does it, with the rows that it would show first.
void WalkAndSort(benchmark::State& state, const std::string& path, SortColumn column, bool ascending) {
  pnl::DriveMap drives;
  drives.Set('D', path);
  const auto reader = pnl::MakeDiscReader(drives, 0);
  const pnl::XplrLoadRequest request{u"D:", u"*", ListFor::kFiles, By(column, ascending)};
  for (auto _ : state) {
    const auto rows = LoadFolder(*reader, request, {[] { return true; }, [](std::vector<XplrRow>&&) {}});
    benchmark::DoNotOptimize(rows.data());
  }
}

void MakeAgain(benchmark::State& state, const std::string& path) {
  std::vector<PlaceEntry> entries;
  Walk(path, [&](std::string_view name, const struct stat& status) { entries.push_back(EntryOf(name, status)); });
  double characters = 0;
  for (const PlaceEntry& entry : entries) characters += 2.0 * static_cast<double>(entry.name.size());
  double taken = 0;
  for (auto _ : state) {
    const double before = BytesInUse();
    std::vector<XplrRow> rows;
    {
      LocalZone zone;
      for (const PlaceEntry& entry : entries) {
        rows.push_back(MakeRow(entry, ListFor::kFiles, static_cast<std::uint32_t>(rows.size()), zone));
      }
    }
    taken = BytesInUse() - before;
    benchmark::DoNotOptimize(rows.data());
  }
  state.counters["bytes beyond the name"] = (taken - characters) / static_cast<double>(entries.size());
}

void SortAgain(benchmark::State& state, const std::string& path, SortColumn column, bool ascending) {
  const std::vector<XplrRow> rows = ReadRows(path);
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<XplrRow> sorted = rows;
    state.ResumeTiming();
    SortRows(sorted, By(column, ascending));
    benchmark::DoNotOptimize(sorted.data());
    state.PauseTiming();
    sorted = {};
    state.ResumeTiming();
  }
}

void SortNames(benchmark::State& state, const std::string& path, bool (*less)(const Text&, const Text&)) {
  std::vector<Text> names;
  for (XplrRow& row : ReadRows(path)) names.push_back(std::move(row.name));
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<Text> sorted = names;
    state.ResumeTiming();
    std::stable_sort(sorted.begin(), sorted.end(), less);
    benchmark::DoNotOptimize(sorted.data());
    state.PauseTiming();
    sorted = {};
    state.ResumeTiming();
  }
}

bool Less(const Text& a, const Text& b) { return a < b; }
bool LessNoCase(const Text& a, const Text& b) { return pnl::CompareNoCase(a, b) < 0; }

/// A short run that only shows whether everything works; its figures mean nothing.
bool brief = false;

template <typename Function, typename... Arguments>
void Register(const std::string& name, Function function, Arguments... arguments) {
  auto* registered = benchmark::RegisterBenchmark(name.c_str(), function, arguments...);
  registered->Unit(benchmark::kMillisecond)->MinTime(brief ? 0.001 : 0.5)->Repetitions(brief ? 1 : 5);
  registered->ReportAggregatesOnly();
}

}  // namespace

int main(int argc, char** argv) {
  brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc;
  const BenchFolder folder(brief ? 200 : 100'000);
  Register("walk/bare", WalkBare, folder.Path());
  Register("rows", MakeAgain, folder.Path());
  const char* columns[] = {"name", "size", "date", "extension"};
  for (int i = 0; i < 4; ++i) {
    for (const bool ascending : {true, false}) {
      const std::string order = std::string(columns[i]) + (ascending ? " ascending" : " descending");
      const auto column = static_cast<SortColumn>(i);
      Register("walk/rows by " + order, WalkAndSort, folder.Path(), column, ascending);
      Register("order/" + order, SortAgain, folder.Path(), column, ascending);
    }
  }
  Register("order/std::stable_sort of names", SortNames, folder.Path(), Less);
  Register("order/std::stable_sort of names without case", SortNames, folder.Path(), LessNoCase);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
