// SPDX-License-Identifier: MIT
#include "facade/sim/machine_fakes.h"

namespace pnl::test {
namespace {

TEST(MachineMotion, AFeedMoveTakesLengthByFeed) {
  MachineBench bench;
  EXPECT_EQ(bench.Duration(u"G1 X100 F1000"), 6000);
  EXPECT_EQ(bench.At(0), 100);
}

}  // namespace
}  // namespace pnl::test
