// SPDX-License-Identifier: MIT
#include "facade/sim/sim_network.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <thread>

#include "facade/sim/sim_shares.h"
#include "support/sim_fixture.h"
#include "support/temp_folder.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Node = rig::NetworkNode;

Node MakeNode(int display, TextView remote, std::vector<Node> children = {}) {
  Node node;
  node.display = display;
  node.remote = remote;
  node.children = std::move(children);
  return node;
}

Node Provider(TextView name, std::vector<Node> children) {
  Node node = MakeNode(network_display::kProvider, u"", std::move(children));
  node.provider = name;
  return node;
}

/// What an enumeration has, by remote name, else comment, else provider. "none" when it can't be opened.
std::vector<Text> Names(const NetworkReader& reader, NetworkScope scope,
                        const std::optional<NetworkResource>& below = {}) {
  const auto enumeration = reader.Open(scope, below);
  if (!enumeration) return {u"none"};
  std::vector<Text> names;
  std::vector<NetworkResource> batch;
  while (enumeration->Next(batch) == network_status::kOk) {
    for (const NetworkResource& each : batch) {
      names.push_back(!each.remote.empty() ? each.remote : !each.comment.empty() ? each.comment : each.provider);
    }
  }
  return names;
}

NetworkResource Resource(int display, TextView remote, TextView comment, TextView provider) {
  return {display, Text(remote), {}, Text(comment), Text(provider)};
}

class SimNetworkTest : public test::SimFixture {
 protected:
  [[nodiscard]] std::vector<Text> Below(const NetworkResource& resource) {
    return Names(*network.Reader(), NetworkScope::kEverything, resource);
  }

  test::TempFolder temp;
  SimStorage& storage = cnc.Storage();
  SimNetwork network{storage};
};

TEST_F(SimNetworkTest, EachLevelIsEnumeratedFromTheOneAbove) {
  storage.SetNetwork({Provider(u"Net", {MakeNode(network_display::kDomain, u"WORKS",
                                                 {MakeNode(network_display::kServer, u"\\\\OFFICE",
                                                           {MakeNode(network_display::kShare, u"\\\\OFFICE\\A"),
                                                            MakeNode(network_display::kShare, u"\\\\OFFICE\\B")})})})});
  EXPECT_THAT(Names(*network.Reader(), NetworkScope::kEverything), ElementsAre(u"Net"));
  EXPECT_THAT(Below(Resource(6, u"", u"Net", u"Net")), ElementsAre(u"WORKS"));
  EXPECT_THAT(Below(Resource(1, u"WORKS", u"", u"Net")), ElementsAre(u"\\\\OFFICE"));
  EXPECT_THAT(Below(Resource(2, u"\\\\OFFICE", u"", u"Net")), ElementsAre(u"\\\\OFFICE\\A", u"\\\\OFFICE\\B"));
  EXPECT_THAT(Below(Resource(3, u"\\\\OFFICE\\A", u"", u"Net")), IsEmpty());
}

TEST_F(SimNetworkTest, AResourceIsFoundByItsNameAndDisplayType) {
  Node commented = MakeNode(network_display::kProvider, u"", {MakeNode(network_display::kDomain, u"two")});
  commented.comment = u"Commented";
  storage.SetNetwork({Provider(u"Net", {MakeNode(network_display::kDomain, u"one")}), commented,
                      MakeNode(network_display::kProvider, u"Remote", {MakeNode(network_display::kDomain, u"three")}),
                      MakeNode(network_display::kServer, u"\\\\S", {MakeNode(network_display::kShare, u"\\\\S\\x")})});
  const struct {
    NetworkResource below;
    Text name;
  } rows[] = {
      {Resource(6, u"", u"Net", u""), u"one"},         {Resource(6, u"", u"NET", u"net"), u"one"},
      {Resource(6, u"", u"commented", u""), u"two"},   {Resource(6, u"", u"Remote", u"Remote"), u"three"},
      {Resource(6, u"Remote", u"x", u""), u"three"},   {Resource(6, u"", u"", u"Net"), u"none"},
      {Resource(6, u"", u"Nobody", u"Net"), u"none"},  {Resource(1, u"", u"Net", u""), u"none"},
      {Resource(2, u"\\\\s", u"", u""), u"\\\\S\\x"},  {Resource(2, u"\\\\S", u"", u"Elsewhere"), u"\\\\S\\x"},
      {Resource(2, u"\\\\T", u"\\\\S", u""), u"none"}, {Resource(0, u"", u"", u""), u"none"},
  };
  for (const auto& row : rows) {
    EXPECT_THAT(Below(row.below), ElementsAre(row.name)) << ToUtf8(row.below.remote + u"," + row.below.comment);
  }
}

TEST_F(SimNetworkTest, OfTwoDomainsWithOneNameTheProvidersOwnIsTaken) {
  const auto domain = [](TextView server) {
    return MakeNode(network_display::kDomain, u"WORKS", {MakeNode(network_display::kServer, server)});
  };
  storage.SetNetwork({Provider(u"One", {domain(u"\\\\A")}), Provider(u"Two", {domain(u"\\\\B")})});
  EXPECT_THAT(Below(Resource(1, u"WORKS", u"", u"One")), ElementsAre(u"\\\\A"));
  EXPECT_THAT(Below(Resource(1, u"WORKS", u"", u"two")), ElementsAre(u"\\\\B"));
  EXPECT_THAT(Below(Resource(1, u"WORKS", u"", u"Three")), ElementsAre(u"\\\\A"));
  EXPECT_THAT(Below(Resource(1, u"WORKS", u"", u"")), ElementsAre(u"\\\\A"));
}

TEST_F(SimNetworkTest, WhatHasAnErrorCannotBeOpened) {
  Node server = MakeNode(network_display::kServer, u"\\\\S", {MakeNode(network_display::kShare, u"\\\\S\\x")});
  server.error = 5;
  storage.SetNetwork({server});
  EXPECT_THAT(Names(*network.Reader(), NetworkScope::kEverything), ElementsAre(u"\\\\S"));
  EXPECT_THAT(Below(Resource(2, u"\\\\S", u"", u"")), ElementsAre(u"none"));
}

TEST_F(SimNetworkTest, AnEntryHasAllFieldsOfItsNode) {
  Node node;
  node.display = network_display::kTree;
  node.remote = u"r";
  node.local = u"E:";
  node.comment = u"c";
  node.provider = u"p";
  storage.SetNetwork({node});
  const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, {});
  std::vector<NetworkResource> batch;
  ASSERT_EQ(enumeration->Next(batch), network_status::kOk);
  EXPECT_THAT(batch, ElementsAre(NetworkResource{9, u"r", u"E:", u"c", u"p"}));
}

TEST_F(SimNetworkTest, BelowTheRootNodeItsChildrenFollow) {
  Node root = MakeNode(network_display::kRoot, u"", {Provider(u"Net", {})});
  root.comment = u"All";
  storage.SetNetwork({root, Provider(u"Other", {})});
  EXPECT_THAT(Names(*network.Reader(), NetworkScope::kEverything), ElementsAre(u"All", u"Net", u"Other"));
}

TEST_F(SimNetworkTest, TheConnectedOnesAreFoundWhereverTheyAre) {
  Node share = MakeNode(network_display::kShare, u"\\\\S\\x");
  share.connected = true;
  Node drive = MakeNode(network_display::kGeneric, u"\\\\S\\y");
  drive.connected = true;
  drive.error = 5;
  storage.SetNetwork({drive, Provider(u"Net", {MakeNode(network_display::kServer, u"\\\\S", {share})})});
  EXPECT_THAT(Names(*network.Reader(), NetworkScope::kConnected), ElementsAre(u"\\\\S\\y", u"\\\\S\\x"));
  storage.SetNetwork({});
  EXPECT_THAT(Names(*network.Reader(), NetworkScope::kConnected), IsEmpty());
}

TEST_F(SimNetworkTest, AnEmptyLevelHasNoMore) {
  const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, {});
  std::vector<NetworkResource> batch{NetworkResource{}};
  EXPECT_EQ(enumeration->Next(batch), network_status::kNoMore);
  EXPECT_THAT(batch, IsEmpty());
  EXPECT_EQ(enumeration->Next(batch), network_status::kNoMore);
}

TEST_F(SimNetworkTest, ABatchIsNoLargerThanItMayBe) {
  // 32 bytes and twice 112: 64 of them fill a batch exactly.
  const Node exact = MakeNode(network_display::kShare, Text(111, u'x'));
  storage.SetNetwork(std::vector<Node>(130, exact));
  const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, {});
  std::vector<NetworkResource> batch;
  std::vector<std::size_t> sizes;
  while (enumeration->Next(batch) == network_status::kOk) sizes.push_back(batch.size());
  EXPECT_THAT(sizes, ElementsAre(64, 64, 2));
}

TEST_F(SimNetworkTest, OneCharacterMoreIsOneEntryLess) {
  std::vector<Node> nodes(64, MakeNode(network_display::kShare, Text(111, u'x')));
  nodes[20].remote += u'x';
  storage.SetNetwork(nodes);
  const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, {});
  std::vector<NetworkResource> batch;
  std::vector<std::size_t> sizes;
  while (enumeration->Next(batch) == network_status::kOk) sizes.push_back(batch.size());
  EXPECT_THAT(sizes, ElementsAre(63, 1));
}

TEST_F(SimNetworkTest, EachTextCountsWithItsTerminatorAndAnAbsentOneNotAtAll) {
  // An entry without texts is 32 bytes, so that 512 fit. A text of one character is four more.
  for (const int texts : {0, 1, 2, 3, 4}) {
    Node node;
    if (texts > 0) node.remote = u"r";
    if (texts > 1) node.local = u"l";
    if (texts > 2) node.comment = u"c";
    if (texts > 3) node.provider = u"p";
    storage.SetNetwork(std::vector<Node>(600, node));
    const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, {});
    std::vector<NetworkResource> batch;
    ASSERT_EQ(enumeration->Next(batch), network_status::kOk);
    EXPECT_EQ(batch.size(), 16384U / (32U + 4U * static_cast<unsigned>(texts)));
  }
}

TEST_F(SimNetworkTest, AnEntryThatIsLargerThanABatchEndsTheEnumeration) {
  const Node large = MakeNode(network_display::kShare, Text(8176, u'x'));
  Node fits = large;
  fits.remote.pop_back();
  storage.SetNetwork({fits, large, fits});
  const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, {});
  std::vector<NetworkResource> batch;
  EXPECT_EQ(enumeration->Next(batch), network_status::kOk);
  EXPECT_EQ(batch.size(), 1U);
  EXPECT_EQ(enumeration->Next(batch), network_status::kTooLarge);
  EXPECT_THAT(batch, IsEmpty());
  EXPECT_EQ(enumeration->Next(batch), network_status::kTooLarge);
}

TEST_F(SimNetworkTest, AReaderKeepsTheNetworkItWasMadeWith) {
  storage.SetNetwork({Provider(u"Net", {})});
  const auto reader = network.Reader();
  const auto enumeration = reader->Open(NetworkScope::kEverything, {});
  storage.SetNetwork({});
  EXPECT_THAT(Names(*reader, NetworkScope::kEverything), ElementsAre(u"Net"));
  std::vector<NetworkResource> batch;
  EXPECT_EQ(enumeration->Next(batch), network_status::kOk);
  EXPECT_THAT(Names(*network.Reader(), NetworkScope::kEverything), IsEmpty());
}

TEST_F(SimNetworkTest, ConnectAnswersAsItWasTold) {
  const auto reader = network.Reader();
  network.Connections().SetAnswer(u"\\\\S\\x", 1326);
  EXPECT_EQ(reader->Connect(u"\\\\s\\X", 7), 1326);
  EXPECT_EQ(reader->Connect(u"\\\\S\\y", 8), 0);
  using Call = SimConnections::Call;
  EXPECT_THAT(network.Connections().Take(), ElementsAre(Call{u"\\\\s\\X", 7}, Call{u"\\\\S\\y", 8}));
  EXPECT_THAT(network.Connections().Take(), IsEmpty());
  network.Connections().SetAnswer(u"\\\\S\\x", 0);
  EXPECT_EQ(reader->Connect(u"\\\\S\\x", 7), 0);
}

TEST_F(SimNetworkTest, AHeldNetworkHangsUntilItIsReleased) {
  storage.SetNetwork({MakeNode(network_display::kServer, u"\\\\S")});
  storage.Hold()->Hold('\\');
  const auto reader = network.Reader();
  const auto shares = MakeShareReader(storage.Network(), storage.Hold());
  std::vector<std::thread> threads;
  threads.emplace_back([&] { static_cast<void>(reader->Open(NetworkScope::kEverything, {})); });
  threads.emplace_back([&] { static_cast<void>(reader->Connect(u"\\\\S", 0)); });
  threads.emplace_back([&] { static_cast<void>(shares->Probe(u"\\\\S")); });
  EXPECT_TRUE(storage.Hold()->AwaitWaiting(3));
  storage.Hold()->Release('\\');
  for (std::thread& each : threads) each.join();
}

class SimSharesTest : public testing::Test {
 protected:
  Node Share(TextView remote, const std::string& folder, int failure = 0) {
    Node node = MakeNode(network_display::kShare, remote);
    if (!folder.empty()) node.dir = temp.Folder(folder);
    node.error = failure;
    return node;
  }
  [[nodiscard]] std::shared_ptr<const FolderReader> Reader(std::vector<Node> shares, int serverError = 0) {
    Node server = MakeNode(network_display::kServer, u"\\\\Office", std::move(shares));
    server.error = serverError;
    return MakeShareReader({Provider(u"Net", {MakeNode(network_display::kDomain, u"WORKS", {server})})}, hold);
  }
  std::vector<Text> List(const FolderReader& reader, TextView folder) {
    std::vector<Text> names;
    error = reader.List(folder, [&](std::vector<PlaceEntry>&& entries) {
      for (const PlaceEntry& entry : entries) names.push_back(entry.name + (entry.dots && entry.folder ? u"/" : u""));
      return true;
    });
    return names;
  }

  test::TempFolder temp;
  std::shared_ptr<SimHold> hold = std::make_shared<SimHold>();
  int error = -1;
};

TEST_F(SimSharesTest, ANetworkPathIsReadInTheSharesFolder) {
  temp.Write("a/sub/x.txt", "12");
  const auto reader = Reader({Share(u"\\\\Office\\A", "a"), Share(u"\\\\Office\\B", "b")});
  for (const TextView path :
       {u"\\\\Office\\A", u"\\\\OFFICE\\a\\", u"\\\\office\\a\\sub\\..", u"\\\\office\\a\\..\\.."}) {
    EXPECT_THAT(List(*reader, path), UnorderedElementsAre(u"./", u"../", u"sub")) << ToUtf8(path);
    EXPECT_EQ(error, place_error::kNone);
    EXPECT_EQ(reader->Probe(path), place_error::kNone);
    EXPECT_TRUE(reader->Exists(path));
    EXPECT_EQ(reader->MakeFolder(path), place_error::kAlreadyExists);
  }
  EXPECT_THAT(List(*reader, u"\\\\office\\a\\SUB"), UnorderedElementsAre(u"./", u"../", u"x.txt"));
  EXPECT_EQ(reader->Probe(u"\\\\office\\a\\none"), place_error::kPathNotFound);
  EXPECT_EQ(reader->Probe(u"\\\\office\\a\\sub\\x.txt"), place_error::kNoFolder);
  EXPECT_TRUE(reader->Exists(u"\\\\office\\a\\sub\\x.txt"));
  EXPECT_FALSE(reader->Exists(u"\\\\office\\b\\sub"));
  EXPECT_FALSE(reader->IsReadOnly(u"\\\\office\\a\\sub\\x.txt"));
  ASSERT_EQ(chmod((temp.Path() / "a/sub/x.txt").c_str(), 0444), 0);
  EXPECT_TRUE(reader->IsReadOnly(u"\\\\office\\a\\sub\\x.txt"));
  EXPECT_EQ(reader->MakeFolder(u"\\\\office\\b\\new\\deep"), place_error::kNone);
  EXPECT_TRUE(temp.Has("b/new/deep"));
}

TEST_F(SimSharesTest, AnEmptyShareHasItsDots) {
  const auto reader = Reader({Share(u"\\\\Office\\A", "a"), Share(u"\\\\Office\\None", "")});
  for (const TextView path : {u"\\\\Office\\A", u"\\\\Office\\None"}) {
    EXPECT_THAT(List(*reader, path), ElementsAre(u"./", u"../")) << ToUtf8(path);
    EXPECT_EQ(error, place_error::kNone);
    EXPECT_EQ(reader->Probe(path), place_error::kNone);
    EXPECT_TRUE(reader->Exists(path));
    EXPECT_FALSE(reader->IsReadOnly(path));
    EXPECT_EQ(reader->MakeFolder(path), place_error::kAlreadyExists);
  }
  EXPECT_EQ(reader->Probe(u"\\\\Office\\None\\x"), place_error::kPathNotFound);
  EXPECT_EQ(reader->MakeFolder(u"\\\\Office\\None\\x"), place_error::kPathNotFound);
}

TEST_F(SimSharesTest, AServerIsThereAndHasNoEntries) {
  const auto reader = Reader({});
  for (const TextView path : {u"\\\\Office", u"\\\\OFFICE\\", u"\\\\office\\\\"}) {
    EXPECT_EQ(reader->Probe(path), place_error::kNone) << ToUtf8(path);
    EXPECT_THAT(List(*reader, path), IsEmpty());
    EXPECT_EQ(error, place_error::kNone);
  }
}

TEST_F(SimSharesTest, TheErrorOfAShareOrOfItsServerIsTheAnswer) {
  const auto shares = [&] {
    return std::vector<Node>{Share(u"\\\\Office\\A", "a", 1326), Share(u"\\\\Office\\B", "b")};
  };
  struct Row {
    int serverError;
    TextView path;
    int error;
  };
  const Row rows[] = {{0, u"\\\\office", 0},      {0, u"\\\\office\\a", 1326},  {0, u"\\\\office\\a\\x", 1326},
                      {0, u"\\\\office\\b", 0},   {51, u"\\\\office", 51},      {51, u"\\\\office\\a", 1326},
                      {51, u"\\\\office\\b", 51}, {51, u"\\\\office\\b\\x", 51}};
  for (const Row& row : rows) {
    const auto reader = Reader(shares(), row.serverError);
    EXPECT_EQ(reader->Probe(row.path), row.error) << ToUtf8(row.path);
    static_cast<void>(List(*reader, row.path));
    EXPECT_EQ(error, row.error) << ToUtf8(row.path);
    EXPECT_EQ(reader->Exists(row.path), row.error == 0) << ToUtf8(row.path);
    if (row.error != 0) {
      EXPECT_EQ(reader->MakeFolder(row.path), row.error) << ToUtf8(row.path);
    }
  }
}

TEST_F(SimSharesTest, TheErrorOfADomainIsNotThatOfItsServers) {
  Node domain = MakeNode(network_display::kDomain, u"WORKS", {MakeNode(network_display::kServer, u"\\\\Office")});
  domain.error = 5;
  EXPECT_EQ(MakeShareReader({domain}, hold)->Probe(u"\\\\Office"), place_error::kNone);
}

TEST_F(SimSharesTest, WhatTheNetworkDoesNotHaveIsNotFound) {
  const auto reader = Reader({Share(u"\\\\Office\\A", "a")});
  const TextView paths[] = {u"\\\\",
                            u"\\\\\\",
                            u"\\\\other",
                            u"\\\\other\\A",
                            u"\\\\office\\c",
                            u"\\\\office\\..",
                            u"\\\\WORKS",
                            u"\\\\office/a",
                            u"C:",
                            u"",
                            TextView(u"\\\\office\\a\\\0", 12)};
  for (const TextView path : paths) {
    EXPECT_EQ(reader->Probe(path), place_error::kPathNotFound) << ToUtf8(path);
    EXPECT_THAT(List(*reader, path), IsEmpty());
    EXPECT_EQ(error, place_error::kPathNotFound) << ToUtf8(path);
    EXPECT_FALSE(reader->Exists(path)) << ToUtf8(path);
    EXPECT_EQ(reader->MakeFolder(path), place_error::kPathNotFound) << ToUtf8(path);
  }
}

TEST_F(SimSharesTest, NoPathLeavesItsShare) {
  temp.Write("secret", "1");
  const auto reader = Reader({Share(u"\\\\Office\\A", "a")});
  for (const TextView path :
       {u"\\\\office\\a\\..\\secret", u"\\\\office\\a/../secret", u"\\\\office\\a\\..\\..\\secret"}) {
    EXPECT_FALSE(reader->Exists(path)) << ToUtf8(path);
  }
}

TEST_F(SimSharesTest, OfAShareThatOccursTwiceTheOneWithAnErrorSaysIt) {
  const Node good = Share(u"\\\\Office\\A", "a");
  const Node bad = Share(u"\\\\OFFICE\\A", "a", 5);
  const Node worse = Share(u"\\\\OFFICE\\A", "a", 51);
  const std::pair<std::vector<Node>, int> rows[] = {{{good, bad}, 5}, {{bad, good}, 5}, {{bad, worse}, 5}};
  for (const auto& [roots, expected] : rows) {
    EXPECT_EQ(MakeShareReader(roots, hold)->Probe(u"\\\\Office\\A"), expected);
  }
}

TEST_F(SimSharesTest, AConnectedResourceMayBackAShareThatHasNoFolder) {
  temp.Write("a/x", "1");
  Node connected = Share(u"\\\\Office\\A", "a");
  connected.display = network_display::kGeneric;
  const Node server = MakeNode(network_display::kServer, u"\\\\Office", {Share(u"\\\\OFFICE\\A", "")});
  // Whichever of the two comes first.
  for (const std::vector<Node>& roots : {std::vector<Node>{server, connected}, std::vector<Node>{connected, server}}) {
    EXPECT_TRUE(MakeShareReader(roots, hold)->Exists(u"\\\\Office\\A\\x"));
  }
}

}  // namespace
}  // namespace pnl::sim
