// SPDX-License-Identifier: MIT
// Runs a fuzz target over every file of the folders and over the files that are named: the corpus as a test, or one
// input that a fuzzer found. Fails when there is nothing to run.
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
  // The name comes first, so that a crash tells which input it was.
  std::printf("%s\n", path.c_str());
  std::fflush(stdout);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  // A copy of exactly this size, so that the sanitizer sees a read behind its end.
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
