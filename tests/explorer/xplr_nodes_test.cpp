// SPDX-License-Identifier: MIT
#include "explorer/xplr_nodes.h"

#include <gtest/gtest.h>

#include "support/fake_places.h"

namespace pnl::test {
namespace {

XplrNode Named(TextView text, NodeKind kind = NodeKind::kFolder, int image = 2) {
  return {Text(text), image, image, kind, true};
}

TEST(XplrNodes, ADriveHasTheNodeOfItsType) {
  FakePlaces places;
  places.types = {{'A', 2}, {'B', 3}, {'C', 3}, {'D', 2}, {'E', 4}, {'F', 5}, {'G', 6}, {'H', 1}, {'I', 0}};
  struct {
    char letter;
    int image;
    NodeKind kind;
  } const rows[] = {{'A', 4, NodeKind::kRemovable}, {'B', 4, NodeKind::kFixed},   {'C', 5, NodeKind::kFixed},
                    {'D', 5, NodeKind::kRemovable}, {'E', 6, NodeKind::kNetwork}, {'F', 7, NodeKind::kCd}};
  for (const auto& row : rows) {
    const auto node = DriveNode(row.letter, places, false, u"none");
    ASSERT_TRUE(node) << row.letter;
    EXPECT_EQ(node->image, row.image) << row.letter;
    EXPECT_EQ(node->selectedImage, row.image) << row.letter;
    EXPECT_EQ(node->kind, row.kind) << row.letter;
    EXPECT_TRUE(node->hasChildren) << row.letter;
  }
  for (const char letter : {'G', 'H', 'I'}) EXPECT_FALSE(DriveNode(letter, places, false, u"none")) << letter;
}

TEST(XplrNodes, ADrivesTextHasItsLabelOrItsRemoteName) {
  FakePlaces places;
  places.types = {{'C', 3}, {'D', 3}, {'E', 3}, {'F', 2}, {'G', 4}, {'H', 4}, {'I', 4}, {'J', 4}};
  places.labels = {{'C', u"SYSTEM"}, {'D', u""}, {'F', u"STICK"}};
  places.remotes = {
      {'G', {0, u"\\\\SRV\\A"}}, {'H', {2250, u"\\\\SRV\\B"}}, {'I', {0, u""}}, {'J', {53, u"\\\\SRV\\C"}}};
  const std::pair<char, TextView> rows[] = {
      {'C', u"C:  (SYSTEM)"},     {'D', u"D:"}, {'E', u"E:"}, {'F', u"F:"}, {'G', u"G:  (\\\\SRV\\A)"},
      {'H', u"H:  (\\\\SRV\\B)"}, {'I', u"I:"}, {'J', u"J:"}};
  for (const auto& [letter, text] : rows) {
    EXPECT_TRUE(DriveNode(letter, places, false, u"none")->text == text) << letter;
  }
}

TEST(XplrNodes, ALockedDriveIsUnavailableOnlyIfTheRequestHidesLockedDrives) {
  FakePlaces places;
  places.types = {{'C', 3}, {'D', 6}};
  places.labels = {{'C', u"SYSTEM"}};
  places.locked = DriveBit(u'C') | DriveBit(u'D');
  const auto shown = DriveNode('C', places, false, u"locked");
  EXPECT_TRUE(shown->text == u"C:  (locked)");
  EXPECT_EQ(shown->image, 11);
  EXPECT_EQ(shown->kind, NodeKind::kFixed);
  EXPECT_TRUE(shown->hasChildren);
  const auto hidden = DriveNode('C', places, true, u"locked");
  EXPECT_EQ(hidden->image, 11);
  EXPECT_EQ(hidden->kind, NodeKind::kUnavailable);
  EXPECT_FALSE(hidden->hasChildren);
  EXPECT_FALSE(DriveNode('D', places, false, u"locked")) << "a type without a node";
  ASSERT_TRUE(DriveNode('D', places, true, u"locked")) << "what is unavailable has a node whatever its type";
  EXPECT_EQ(DriveNode('D', places, true, u"locked")->kind, NodeKind::kUnavailable);
}

TEST(XplrNodes, ARememberedDriveThatIsNotConnectedIsANetworkDrive) {
  FakePlaces places;
  places.remembered = DriveBit(u'N');
  places.remotes = {{'N', {2250, u"\\\\SRV\\A"}}};
  const auto node = DriveNode('N', places, false, u"");
  EXPECT_EQ(node->kind, NodeKind::kNetwork);
  EXPECT_TRUE(node->text == u"N:  (\\\\SRV\\A)");
}

TEST(XplrNodes, AResourceOfTheNetworkHasTheNodeOfItsDisplayType) {
  struct {
    NetworkResource resource;
    TextView text;
    int image;
    int selected;
    NodeKind kind;
  } const rows[] = {{{0, u"\\\\S\\A", u"E:", u"", u""}, u"E:", 2, 3, NodeKind::kNetwork},
                    {{0, u"\\\\S\\A", u"", u"", u""}, u"\\\\S\\A", 2, 3, NodeKind::kNetwork},
                    {{9, u"\\\\S\\A", u"", u"", u""}, u"\\\\S\\A", 2, 3, NodeKind::kNetwork},
                    {{7, u"", u"", u"All", u""}, u"All", 12, 12, NodeKind::kNetworkRoot},
                    {{7, u"", u"", u"", u""}, u"Entire Network", 12, 12, NodeKind::kNetworkRoot},
                    {{6, u"", u"", u"x", u"Net"}, u"Net", 8, 8, NodeKind::kProvider},
                    {{1, u"DOM", u"", u"", u"Net"}, u"DOM", 9, 9, NodeKind::kDomain},
                    {{2, u"\\\\S", u"", u"", u"Net"}, u"\\\\S", 10, 10, NodeKind::kServer},
                    {{3, u"\\\\S\\A B", u"", u"", u"Net"}, u"A B", 2, 3, NodeKind::kNetwork}};
  for (const auto& row : rows) {
    const auto node = NetworkNodeOf(row.resource);
    ASSERT_TRUE(node) << row.resource.display;
    EXPECT_TRUE(node->text == row.text) << ToUtf8(node->text);
    EXPECT_EQ(node->image, row.image) << row.resource.display;
    EXPECT_EQ(node->selectedImage, row.selected) << row.resource.display;
    EXPECT_EQ(node->kind, row.kind) << row.resource.display;
    EXPECT_TRUE(node->hasChildren);
  }
  for (const int display : {4, 5, 8, 10, -1}) EXPECT_FALSE(NetworkNodeOf({display, u"x", u"", u"", u""})) << display;
}

TEST(XplrNodes, WhatIsEnumeratedBelowANodeDependsOnItsKind) {
  struct {
    NodeKind kind;
    NetworkResource resource;
  } const rows[] = {{NodeKind::kProvider, {6, u"", u"", u"Name", u"Net"}},
                    {NodeKind::kDomain, {1, u"Name", u"", u"", u"Net"}},
                    {NodeKind::kServer, {2, u"Name", u"", u"", u"Net"}},
                    {NodeKind::kNetwork, {0, u"", u"", u"Name", u"Net"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(ResourceBelow(row.kind, u"Name", u"Net"), row.resource) << static_cast<int>(row.kind);
  }
}

TEST(XplrNodes, AResourceCountsOnlyBelowWhatItFits) {
  const std::pair<NodeKind, std::set<int>> rows[] = {{NodeKind::kProvider, {1, 2}},
                                                     {NodeKind::kDomain, {2}},
                                                     {NodeKind::kServer, {0, 3}},
                                                     {NodeKind::kNetworkRoot, {}},
                                                     {NodeKind::kFolder, {}}};
  for (const auto& [kind, fitting] : rows) {
    for (int display = -1; display < 12; ++display) {
      EXPECT_EQ(FitsBelow(kind, display), fitting.count(display) != 0) << static_cast<int>(kind) << ' ' << display;
    }
  }
}

class NodePaths : public testing::Test {
 protected:
  XplrNodes nodes_;
  NodeId drive_ = nodes_.Add(kNoNode, Named(u"C:  (SYSTEM)", NodeKind::kFixed, 5));
  NodeId locked_ = nodes_.Add(kNoNode, Named(u"D:  (not now)", NodeKind::kUnavailable, 11));
  NodeId root_ = nodes_.Add(kNoNode, Named(u"Entire Network", NodeKind::kNetworkRoot, 12));
  NodeId provider_ = nodes_.Add(root_, Named(u"Microsoft Network", NodeKind::kProvider, 8));
  NodeId domain_ = nodes_.Add(provider_, Named(u"DOM", NodeKind::kDomain, 9));
  NodeId server_ = nodes_.Add(domain_, Named(u"\\\\SRV", NodeKind::kServer, 10));
  NodeId share_ = nodes_.Add(server_, Named(u"DATA", NodeKind::kNetwork));
};

TEST_F(NodePaths, AFolderOfADriveBeginsWithItsLetter) {
  const NodeId folder = nodes_.Add(drive_, Named(u"A: B"));
  const NodeId below = nodes_.Add(folder, Named(u"X:Y"));
  EXPECT_TRUE(nodes_.BuildNodePath(drive_) == u"C:");
  EXPECT_TRUE(nodes_.BuildNodePath(below) == u"C:\\A: B\\X:Y") << "only a root is cut at its colon";
}

TEST_F(NodePaths, AnUnavailableDriveIsNamedByItsLetter) {
  EXPECT_TRUE(nodes_.NodeName(locked_) == u"D:");
  EXPECT_TRUE(nodes_.BuildNodePath(locked_) == u"D:");
  const NodeId odd = nodes_.Add(kNoNode, Named(u" x", NodeKind::kUnavailable, 11));
  EXPECT_TRUE(nodes_.NodeName(odd) == u" x") << "nothing before the first blank";
}

TEST_F(NodePaths, AShareBeginsWithItsServer) {
  EXPECT_TRUE(nodes_.BuildNodePath(server_) == u"\\\\SRV");
  EXPECT_TRUE(nodes_.BuildNodePath(share_) == u"\\\\SRV\\DATA");
  EXPECT_TRUE(nodes_.BuildNodePath(nodes_.Add(share_, Named(u"SUB"))) == u"\\\\SRV\\DATA\\SUB");
  EXPECT_TRUE(nodes_.BuildNodePath(domain_) == u"Entire Network\\Microsoft Network\\DOM");
}

TEST_F(NodePaths, AChildIsFoundByNameWithoutRegardToCaseARootUpToItsColon) {
  EXPECT_EQ(nodes_.FindChild(kNoNode, u"c:"), drive_);
  EXPECT_EQ(nodes_.FindChild(kNoNode, u"C:  (SYSTEM)"), kNoNode);
  EXPECT_EQ(nodes_.FindChild(server_, u"data"), share_);
  EXPECT_EQ(nodes_.FindChild(server_, u"dat"), kNoNode);
  EXPECT_EQ(nodes_.FindChild(share_, u"data"), kNoNode);
}

TEST_F(NodePaths, TheProviderOfANodeIsDirectlyBelowTheNetworksRoot) {
  for (const NodeId node : {provider_, domain_, server_, share_}) {
    EXPECT_TRUE(nodes_.ProviderOf(node, root_) == u"Microsoft Network") << node;
  }
  EXPECT_TRUE(nodes_.ProviderOf(drive_, root_).empty());
  EXPECT_TRUE(nodes_.ProviderOf(drive_, kNoNode).empty()) << "without a network";
}

TEST_F(NodePaths, FoldersAreSortedWithoutRegardToCase) {
  EXPECT_EQ(nodes_.AddFolders(drive_, {u"b", u"A", u"a", u"C", u"ä"}), 5u);
  std::vector<Text> names;
  for (const NodeId child : nodes_.Children(drive_)) names.push_back(nodes_.At(child).text);
  EXPECT_EQ(names, (std::vector<Text>{u"A", u"a", u"b", u"C", u"ä"}));
  const XplrNode& first = nodes_.At(nodes_.Children(drive_).front());
  EXPECT_EQ(first.image, 2);
  EXPECT_EQ(first.selectedImage, 3);
  EXPECT_EQ(first.kind, NodeKind::kFolder);
  EXPECT_TRUE(first.hasChildren);
}

TEST_F(NodePaths, ARemovedNodeTakesEverythingBelowItAlong) {
  nodes_.Remove(root_);
  for (const NodeId gone : {root_, provider_, domain_, server_, share_}) EXPECT_FALSE(nodes_.Exists(gone)) << gone;
  EXPECT_EQ(nodes_.Children(kNoNode), (std::vector<NodeId>{drive_, locked_}));
  nodes_.Remove(root_);
  EXPECT_GT(nodes_.Add(kNoNode, Named(u"E:")), share_) << "a number is never used twice";
}

TEST(XplrNodes, AnInsertedNodeHasItsPlaceAmongItsSiblings) {
  XplrNodes nodes;
  const auto named = [](TextView text) {
    XplrNode node;
    node.text = text;
    return node;
  };
  const NodeId c = nodes.Add(kNoNode, named(u"C:"));
  const NodeId e = nodes.Insert(kNoNode, 1, named(u"E:"));
  const NodeId a = nodes.Insert(kNoNode, 0, named(u"A:"));
  const NodeId d = nodes.Insert(kNoNode, 2, named(u"D:"));
  EXPECT_THAT(nodes.Children(kNoNode), testing::ElementsAre(a, c, d, e));
  const NodeId below = nodes.Insert(d, 0, named(u"x"));
  EXPECT_EQ(nodes.Parent(below), d);
}

}  // namespace
}  // namespace pnl::test
