// SPDX-License-Identifier: MIT
// Composes one error record with five parameters, beside the same lines written with std::snprintf, which knows no
// units, no words by number and no 16-bit text. Prints the time and the number of allocations of each.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <string>

#include "errors/error_composer.h"
#include "facade/kernel.h"
#include "support/fake_utilities.h"

namespace {

std::size_t allocations = 0;

void* Count(std::size_t size) {
  ++allocations;
  if (void* place = std::malloc(size == 0 ? 1 : size)) return place;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return Count(size); }
void* operator new[](std::size_t size) { return Count(size); }
void operator delete(void* place) noexcept { std::free(place); }
void operator delete[](void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }
void operator delete[](void* place, std::size_t) noexcept { std::free(place); }

namespace {

using pnl::ErrorParameter;
using pnl::ErrorRecord;
using pnl::Text;
using pnl::TextView;

class BenchKernel final : public pnl::Kernel {
 public:
  int ChannelNumber() override { return 4; }
  int ConvertLogToName(int, Text& name) override {
    name.assign(1, u'X');
    return 0;
  }
  int ExisteKernel() override { return 0; }
  int IsNewInspecAllowed(int) override { return 0; }
  int EnProcesoInspec(int) override { return 0; }
  int IsMDIAllowedInResetInspect(int) override { return 0; }
  int CogerPlcFree(int, int) override { return 0; }
  int LiberarPlcFree(int, int, int) override { return 0; }
  int SetMdi(int, int) override { return 0; }
  int EndMDIMode(int) override { return 0; }
  int SetMode(int, int) override { return 0; }
  int MDILine(int, TextView, int, int, int) override { return 0; }
  int NextSingleStep(int) override { return 0; }
  int ClearFeedhold(int) override { return 0; }
  int MDICancel(int) override { return 0; }
  int PosibleMDICancel(int) override { return 0; }
  int WriteTxtInBlackBox(TextView, int) override { return 0; }
  int SWOption_IsZMCON() override { return 0; }
  int ReadError(int, ErrorRecord&) override { return -1; }
  int ResetError(int, int) override { return -1; }
  int ResetErrorWithEnter(int, const ErrorRecord&) override { return -1; }
  int AddLogOnInfo(TextView) override { return 0; }
  int GetTextoMlinkError(int, Text&) override { return -1; }
  int GetTextoSercosError(int, Text&) override { return -1; }
};

class BenchUtilities final : public pnl::test::FakeUtilities {
 public:
  int ErrorText(pnl::ErrorTextFunction, std::int32_t, pnl::Z7340ERRORINFO_ST& info) override {
    constexpr TextView kTitle = u"\nTravel limit exceeded";
    constexpr TextView kHelp = u"C:\\CNC\\HELP\\ERRORS\\en\\MACHINE.TXT#1018";
    kTitle.copy(info.text, kTitle.size());
    kHelp.copy(info.helpRef, kHelp.size());
    return 0;
  }
};

template <typename T>
void Put(ErrorRecord& record, std::size_t index, std::int32_t type, std::int32_t unit, std::int32_t meaning, T value) {
  ErrorParameter parameter{};
  parameter.valueType = type;
  parameter.unit = unit;
  parameter.meaning = meaning;
  std::memcpy(parameter.value, &value, sizeof value);
  record.Set(pnl::error_field::kParametersOffset + index * sizeof parameter, parameter);
}

ErrorRecord TravelLimit() {
  using namespace pnl::error_field;
  ErrorRecord record{};
  record.SetText(kModule.offset, kModule.size, u"NC");
  record.Set(kNumber.offset, std::int32_t{1018});
  record.Set(kIdentifier.offset, std::int32_t{1018});
  record.Set(kSeverity.offset, std::uint16_t{1});
  record.Set(kChannel.offset, std::int8_t{1});
  Put(record, 0, pnl::value_type::kInt32, 0, 6, std::int32_t{1});
  Put(record, 1, pnl::value_type::kDouble, 11, 1, 500.0);
  Put(record, 2, pnl::value_type::kDouble, 11, 10, 501.25);
  Put(record, 3, pnl::value_type::kInt32, 1, 9, std::int32_t{4'999'999});
  ErrorParameter word{};
  word.valueType = pnl::value_type::kText;
  word.meaning = 2;
  std::memcpy(word.value, u"X501.25", 7 * sizeof(char16_t));
  record.Set(kParametersOffset + 4 * sizeof word, word);
  return record;
}

const std::map<int, Text> kWords{{203, u"Error"}, {206, u"Warning"},   {215, u"Limit:"}, {216, u"Value:"},
                                 {220, u"Axis:"}, {223, u"Position:"}, {224, u"Target:"}};

void Report(benchmark::State& state, std::size_t before) {
  state.counters["allocations"] =
      static_cast<double>(allocations - before) / static_cast<double>(std::max<std::int64_t>(1, state.iterations()));
}

void ComposeFiveParameters(benchmark::State& state) {
  BenchKernel kapi;
  BenchUtilities utilities;
  pnl::DriveMap drives;
  const pnl::DiscFiles files(drives);
  const pnl::ErrorWords words(kWords);
  const pnl::TextWidths widths{[](TextView text) { return static_cast<int>(text.size()) * 8; }, 700};
  const ErrorRecord record = TravelLimit();
  const std::size_t before = allocations;
  for (auto _ : state) {
    const pnl::ComposedError error = pnl::ComposeError(record, {kapi, utilities, files, words, widths});
    const Text description = error.Description();
    benchmark::DoNotOptimize(description.data());
    benchmark::DoNotOptimize(error.titleLine.data());
  }
  Report(state, before);
}

void SnprintfFiveParameters(benchmark::State& state) {
  const std::string axis = "X";
  const std::string word = "X501.25";
  double limit = 500.0;
  double target = 501.25;
  const std::size_t before = allocations;
  for (auto _ : state) {
    benchmark::DoNotOptimize(limit);
    benchmark::DoNotOptimize(target);
    char buffer[1024];
    std::snprintf(buffer, sizeof buffer, "%s %d", "ERROR", 1018);
    const std::string box = buffer;
    const std::string title = "Travel limit exceeded";
    std::snprintf(buffer, sizeof buffer,
                  "\n%s%s\n%s %.*f [mm(º)] \n%s %.*f [mm(º)] \n%s %d [mm(º)] \n%s %s \nID: %s-%d",
                  "Axis:", axis.c_str(), "Limit:", 4, limit, "Target:", 4, target, "Position:", 499,
                  "Value:", word.c_str(), "NC", 1018);
    const std::string description = buffer;
    benchmark::DoNotOptimize(description.data());
    benchmark::DoNotOptimize(box.data());
    benchmark::DoNotOptimize(title.data());
  }
  Report(state, before);
}

BENCHMARK(ComposeFiveParameters);
BENCHMARK(SnprintfFiveParameters);

}  // namespace

BENCHMARK_MAIN();
