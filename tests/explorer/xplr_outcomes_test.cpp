// SPDX-License-Identifier: MIT
#include "explorer/xplr_outcomes.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

TEST(XplrOutcomes, EachHasItsTextAndColour) {
  struct {
    int outcome;
    XplrNotice notice;
  } const rows[] = {{0, {26, 160}},    {1, {27, 6586468}}, {2, {0, 2916452}}, {3, {28, 160}},     {4, {0, 2916452}},
                    {5, {0, 2916452}}, {6, {29, 160}},     {7, {30, 160}},    {8, {31, 160}},     {9, {0, 2916452}},
                    {10, {32, 160}},   {11, {33, 160}},    {12, {35, 160}},   {13, {0, 2916452}}, {-1, {0, 2916452}}};
  for (const auto& row : rows) EXPECT_EQ(NoticeOf(static_cast<Outcome>(row.outcome)), row.notice) << row.outcome;
}

TEST(XplrOutcomes, APlaceThatIsNotAcceptedHasItsText) {
  EXPECT_EQ(NoticeOfPlace(NodeKind::kUnavailable), (XplrNotice{34, 160}));
  for (const NodeKind kind : {NodeKind::kNone, NodeKind::kCd, NodeKind::kNetworkRoot, NodeKind::kProvider,
                              NodeKind::kDomain, NodeKind::kServer}) {
    EXPECT_EQ(NoticeOfPlace(kind), (XplrNotice{26, 160})) << static_cast<int>(kind);
  }
}

TEST(XplrOutcomes, EachErrorOfAFolderHasItsOutcome) {
  struct {
    int error;
    int outcome;
    bool connects;
  } const rows[] = {{0, 2, false},  {2, 2, false},  {3, 3, false}, {267, 3, false},  {21, 10, false},
                    {5, 0, false},  {51, 0, false}, {86, 1, true}, {1326, 1, true},  {2118, 1, true},
                    {53, 0, false}, {-1, 0, false}, {1, 0, false}, {1208, 0, false}, {10, 0, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(static_cast<int>(OutcomeOfError(row.error)), row.outcome) << row.error;
    EXPECT_EQ(WantsConnection(row.error), row.connects) << row.error;
  }
}

}  // namespace
}  // namespace pnl
