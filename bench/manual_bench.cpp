// SPDX-License-Identifier: MIT
// A manual of 2,000 pages: its full-text index and queries over it, beside a plain scan of the same folded texts. A
// manual of 500 pages: opened cold, by unpacking it, and warm, beside a bare reading of all its objects with libchm in
// this process. With --brief fewer pages.
#include <benchmark/benchmark.h>
#include <chm_lib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "bench_manual.h"
#include "help/manual/manual_cache.h"
#include "help/manual/manual_search.h"
#include "help/manual/page_text.h"
#include "help/manual/search_words.h"
#include "support/temp_folder.h"

namespace {

using pnl::Manual;
using pnl::SearchIndex;
using pnl::Text;
using pnl::TextView;

bool brief = false;
bool Never() { return false; }

/// A compiled manual of so many pages in the folder.
std::string MakeManual(const pnl::test::TempFolder& folder, int pages) {
  const std::string name = "m" + std::to_string(pages) + ".chm";
  folder.Write(name, BenchManual(pages));
  return folder.Path() / name;
}

std::shared_ptr<const Manual> Open(const pnl::test::TempFolder& folder, const std::string& manual) {
  const pnl::ManualCache cache(folder.Path() / "cache", std::make_shared<pnl::ProgramExtractor>(PNL_CHM_PROGRAM));
  return cache.Open(manual, Never).manual;
}

const char16_t* const kQueries[] = {u"ma", u"hu ta", u"m", u"maqui", u"cion ma s"};

void BuildIndex(benchmark::State& state, const Manual& manual) {
  for (auto _ : state) {
    const auto index = SearchIndex::Build(manual, Never);
    benchmark::DoNotOptimize(index);
    state.counters["words"] = static_cast<double>(index->WordCount());
  }
}

void Query(benchmark::State& state, const SearchIndex& index, TextView query) {
  std::size_t found = 0;
  for (auto _ : state) {
    found = index.Find(query).size();
    benchmark::DoNotOptimize(found);
  }
  state.counters["found"] = static_cast<double>(found);
}

/// The words of each page, divided by blanks.
std::vector<Text> FoldedPages(const Manual& manual) {
  std::vector<Text> pages;
  for (const Text& page : manual.Pages()) {
    Text folded = u" ";
    for (const Text& word : pnl::SearchWordsOf(pnl::TextOfPage(*manual.ReadText(page)).text)) folded += word + u" ";
    pages.push_back(folded);
  }
  return pages;
}

void PlainScan(benchmark::State& state, const std::vector<Text>& pages, TextView query) {
  const std::vector<Text> words = pnl::SearchWordsOf(query);
  std::size_t found = 0;
  for (auto _ : state) {
    found = 0;
    for (const Text& page : pages) {
      bool all = true;
      for (const Text& word : words) {
        const Text wanted = u" " + word + (&word == &words.back() ? u"" : u" ");
        all = all && page.find(wanted) != Text::npos;
      }
      found += all ? 1 : 0;
    }
    benchmark::DoNotOptimize(found);
  }
  state.counters["found"] = static_cast<double>(found);
}

void OpenCold(benchmark::State& state, const pnl::test::TempFolder& folder, const std::string& manual) {
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove_all(folder.Path() / "cache");
    state.ResumeTiming();
    if (!Open(folder, manual)) state.SkipWithError("the manual can't be opened");
  }
}

void OpenWarm(benchmark::State& state, const pnl::test::TempFolder& folder, const std::string& manual) {
  if (!Open(folder, manual)) state.SkipWithError("the manual can't be opened");
  for (auto _ : state) benchmark::DoNotOptimize(Open(folder, manual));
}

int ReadBare(chmFile* file, chmUnitInfo* unit, void* context) {
  std::string bytes(unit->length, '\0');
  chm_retrieve_object(file, unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                      static_cast<LONGINT64>(unit->length));
  const std::string name = *static_cast<std::string*>(context) + unit->path;
  std::ofstream(name, std::ios::binary) << bytes;
  return CHM_ENUMERATOR_CONTINUE;
}

void BareLibrary(benchmark::State& state, const pnl::test::TempFolder& folder, const std::string& manual) {
  for (auto _ : state) {
    std::string target = folder.Folder("bare");
    chmFile* const file = chm_open(manual.c_str());
    if (file == nullptr) return state.SkipWithError("the manual can't be opened");
    chm_enumerate(file, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, ReadBare, &target);
    chm_close(file);
    state.PauseTiming();
    std::filesystem::remove_all(target);
    state.ResumeTiming();
  }
}

template <typename Body>
void Register(const std::string& name, Body body) {
  auto* const registered =
      benchmark::RegisterBenchmark(name.c_str(), body)->Unit(benchmark::kMillisecond)->UseRealTime();
  registered->MinTime(brief ? 0.001 : 0.5);
}

}  // namespace

int main(int argc, char** argv) {
  brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc;
  const pnl::test::TempFolder folder;
  const std::string small = MakeManual(folder, brief ? 20 : 500);
  const std::string large = MakeManual(folder, brief ? 40 : 2'000);
  const auto manual = Open(folder, large);
  if (!manual) return 1;
  const auto index = SearchIndex::Build(*manual, Never);
  const std::vector<Text> pages = FoldedPages(*manual);
  Register("Index", [&](benchmark::State& state) { BuildIndex(state, *manual); });
  for (const TextView query : kQueries) {
    const std::string name = pnl::ToUtf8(query);
    Register("Query/" + name, [&, query](benchmark::State& state) { Query(state, *index, query); });
    Register("PlainScan/" + name, [&, query](benchmark::State& state) { PlainScan(state, pages, query); });
  }
  Register("OpenCold", [&](benchmark::State& state) { OpenCold(state, folder, small); });
  Register("OpenWarm", [&](benchmark::State& state) { OpenWarm(state, folder, small); });
  Register("BareLibrary", [&](benchmark::State& state) { BareLibrary(state, folder, small); });
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
