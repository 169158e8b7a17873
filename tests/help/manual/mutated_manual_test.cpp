// SPDX-License-Identifier: MIT
// Damaged manuals: seeded mutations of a compiled one. PNL_MANUAL_MUTATIONS says how many; the usual number suits every
// test run.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <random>

#include "extractor_rig.h"
#include "help/manual/manual_search.h"

namespace pnl {
namespace {

constexpr int kUsualCount = 200;

std::string Compiled() {
  std::ifstream in(std::string(PNL_TESTS_FOLDER) + "/help/manual/data/small.chm", std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Changes one to sixteen places: a byte, a bit, a number, a block that moves, the end that is cut off. Half of them
/// hit the headers and lists, where most of the harm is.
std::string Mutated(std::string bytes, std::mt19937& random) {
  const auto any = [&random](std::size_t most) { return static_cast<std::size_t>(random()) % most; };
  for (std::size_t left = 1 + any(16); left > 0 && !bytes.empty(); --left) {
    const std::size_t reach = random() % 2 == 0 ? std::min<std::size_t>(bytes.size(), 8'300) : bytes.size();
    const std::size_t at = any(reach);
    switch (random() % 8) {
      case 0:
      case 1:
        bytes[at] = static_cast<char>(random());
        break;
      case 2:
      case 3:
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
        break;
      case 4:
        for (std::size_t i = at; i < std::min(at + 4, bytes.size()); ++i) bytes[i] = '\xFF';
        break;
      case 5:
        for (std::size_t i = at; i < std::min(at + 8, bytes.size()); ++i) bytes[i] = '\0';
        break;
      case 6:
        bytes.replace(at, std::min<std::size_t>(64, bytes.size() - at), bytes.substr(any(bytes.size()), 64));
        break;
      default:
        if (random() % 4 == 0) bytes.resize(bytes.size() - any(bytes.size()));
        break;
    }
  }
  return bytes;
}

using MutatedManual = test::ExtractorTest;

TEST_F(MutatedManual, NeverHarmsWhoOpensIt) {
  const char* const wish = std::getenv("PNL_MANUAL_MUTATIONS");
  const int count = wish != nullptr ? std::atoi(wish) : kUsualCount;
  const std::string whole = Compiled();
  ASSERT_FALSE(whole.empty());
  int done = 0;
  int damaged = 0;
  int crashed = 0;
  for (int seed = 1; seed <= count; ++seed) {
    std::mt19937 random(static_cast<std::uint32_t>(seed));
    const Extraction result = Unpack(Mutated(whole, random));
    ASSERT_TRUE(result == Extraction::kDone || result == Extraction::kNothing) << "seed " << seed;
    ASSERT_FALSE(HasFailure()) << "seed " << seed;
    if (!manual_) continue;
    ++done;
    damaged += manual_->IsDamaged() ? 1 : 0;
    crashed += manual_->Listing().crashes > 0 ? 1 : 0;
    for (const Text& page : manual_->Pages()) static_cast<void>(manual_->ReadText(page));
    ASSERT_NE(SearchIndex::Build(*manual_, [] { return false; }), nullptr);
  }
  std::printf("%d mutations: %d unpacked, %d of them with damage that shows, %d after a crash\n", count, done, damaged,
              crashed);
  EXPECT_GT(done, 0);
}

}  // namespace
}  // namespace pnl
