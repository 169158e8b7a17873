// SPDX-License-Identifier: MIT
// Runs a fuzz target over the named files and over every file of the named folders: a corpus as a test, or one input
// that a fuzzer found. Fails when there is nothing to run.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz_check.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> InputsOf(const fs::path& place) {
  if (!fs::is_directory(place)) return {place};
  std::vector<fs::path> inputs;
  for (const auto& entry : fs::directory_iterator(place)) {
    if (entry.is_regular_file()) inputs.push_back(entry.path());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

bool Run(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    std::fprintf(stderr, "%s can't be read\n", path.c_str());
    return false;
  }
  // The name is printed first, so that a crash shows which input it was.
  std::printf("%s\n", path.c_str());
  std::fflush(stdout);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  // The copy has exactly this size, so that the sanitizer notices a read beyond its end.
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  std::size_t done = 0;
  for (int i = 1; i < count; ++i) {
    for (const fs::path& path : InputsOf(arguments[i])) {
      if (!Run(path)) return 1;
      ++done;
    }
  }
  std::printf("%zu inputs\n", done);
  return done == 0 ? 1 : 0;
}
