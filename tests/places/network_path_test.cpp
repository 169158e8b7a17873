// SPDX-License-Identifier: MIT
#include "places/network_path.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places/network_batches.h"

namespace pnl {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

TEST(NetworkPath, IsSplitIntoServerShareAndNames) {
  struct Row {
    TextView path;
    TextView server;
    TextView share;
    std::vector<Text> names;
  };
  const Row rows[] = {
      {u"\\\\srv", u"srv", u"", {}},
      {u"\\\\srv\\", u"srv", u"", {}},
      {u"\\\\srv\\x", u"srv", u"x", {}},
      {u"\\\\srv\\x\\\\", u"srv", u"x", {}},
      {u"\\\\Srv\\My Files\\a\\b", u"Srv", u"My Files", {u"a", u"b"}},
      {u"\\\\srv\\x\\a\\..\\b\\.", u"srv", u"x", {u"b"}},
      {u"\\\\srv\\x\\..\\..\\b", u"srv", u"x", {u"b"}},
  };
  for (const Row& row : rows) {
    const auto path = ParseNetworkPath(row.path);
    ASSERT_TRUE(path) << ToUtf8(row.path);
    EXPECT_EQ(path->server, row.server) << ToUtf8(row.path);
    EXPECT_EQ(path->share, row.share) << ToUtf8(row.path);
    EXPECT_EQ(path->names, row.names) << ToUtf8(row.path);
  }
}

TEST(NetworkPath, AnythingElseIsNone) {
  for (const TextView path : {TextView(u""), TextView(u"C:\\a"), TextView(u"\\srv\\x"), TextView(u"\\\\"),
                              TextView(u"\\\\\\x"), TextView(u"//srv/x"), TextView(u"\\\\srv\\\\x"),
                              TextView(u"\\\\srv\\..\\x"), TextView(u"\\\\srv\\.\\x"), TextView(u"\\\\srv\\x\0y", 9)}) {
    EXPECT_FALSE(ParseNetworkPath(path)) << ToUtf8(path);
  }
}

TEST(NetworkPath, IsPutTogetherAgain) {
  EXPECT_EQ(ServerPath(u"srv"), u"\\\\srv");
  EXPECT_EQ(SharePath(u"srv", u"x"), u"\\\\srv\\x");
}

/// The sizes of the batches; the last status at the end.
std::vector<std::size_t> BatchesOf(std::vector<NetworkResource> all) {
  const auto enumeration = EnumerateAll(std::move(all));
  std::vector<std::size_t> sizes;
  std::vector<NetworkResource> batch;
  int status = network_status::kOk;
  while ((status = enumeration->Next(batch)) == network_status::kOk) sizes.push_back(batch.size());
  EXPECT_TRUE(batch.empty());
  sizes.push_back(static_cast<std::size_t>(status));
  return sizes;
}

TEST(NetworkBatches, TakeAsManyEntriesAsFit) {
  NetworkResource half;
  half.remote = Text((kBatchBytes / 2 - kEntryBytes) / 2 - 1, u'x');
  EXPECT_THAT(BatchesOf({}), ElementsAre(259));
  EXPECT_THAT(BatchesOf({half}), ElementsAre(1, 259));
  EXPECT_THAT(BatchesOf({half, half}), ElementsAre(2, 259));
  EXPECT_THAT(BatchesOf({half, half, half}), ElementsAre(2, 1, 259));
  NetworkResource more = half;
  more.comment = u"x";
  EXPECT_THAT(BatchesOf({half, more}), ElementsAre(1, 1, 259));
}

TEST(NetworkBatches, AreOfSixteenKilobytes) {
  EXPECT_EQ(kBatchBytes, 16384U);
  EXPECT_EQ(kEntryBytes, 32U);
  // An entry without texts takes its bytes alone.
  EXPECT_THAT(BatchesOf(std::vector<NetworkResource>(513)), ElementsAre(512, 1, 259));
}

TEST(NetworkBatches, AnEntryLargerThanABatchEndsThem) {
  NetworkResource small;
  NetworkResource large;
  large.provider = Text(kBatchBytes / 2, u'x');
  EXPECT_THAT(BatchesOf({small, large, small}), ElementsAre(1, 8));
}

}  // namespace
}  // namespace pnl
