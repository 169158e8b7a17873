// SPDX-License-Identifier: MIT
#include "explorer/xplr_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "explorer/xplr_tree_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// ---------------------------------------------------------------- filling

TEST_F(XplrTreeTest, DrivesComeInTheOrderOfTheirLettersThenTheNetwork) {
  ground_.places.types = {{'A', 2}, {'C', 3}, {'D', 3}, {'E', 6}, {'Z', 3}};
  ground_.places.hidden = DriveBit(u'D');
  ground_.places.remembered = DriveBit(u'N') | DriveBit(u'D');
  ground_.network.around->below[u""] = {{7, u"", u"", u"Whole Net", u""}, {6, u"", u"", u"", u"Net A"},
                                        {6, u"", u"", u"", u"Net A"},     {6, u"", u"", u"", u"Net B"},
                                        {4, u"x", u"", u"", u""},         {9, u"\\\\T\\U", u"", u"", u""}};
  ground_.network.around->connected = {{0, u"\\\\S\\A", u"M:", u"", u""}, {3, u"\\\\S\\B", u"O:", u"", u""}};
  Fill(u"C:");
  EXPECT_THAT(Texts(kNoNode), ElementsAre("A:", "C:", "N:", "Z:", "Whole Net", "\\\\T\\U", "M:"))
      << "drive Z shows, although it counts as absent as a start folder";
  EXPECT_THAT(Texts(Find({u"Whole Net"})), ElementsAre("Net A", "Net B"));
  EXPECT_EQ(filled_, 1);
}

TEST_F(XplrTreeTest, AProviderWithoutARootMakesTheRootFirst) {
  ground_.network.around->below[u""] = {{6, u"", u"", u"", u"Net A"}};
  Fill(u"C:");
  EXPECT_THAT(Texts(kNoNode), ElementsAre("C:", "Entire Network"));
  EXPECT_THAT(Texts(Find({u"Entire Network"})), ElementsAre("Net A"));
}

TEST_F(XplrTreeTest, NothingBelowADriveIsReadUntilItOpens) {
  Fill(u"C:");
  EXPECT_THAT(ground_.places.disc->asked, IsEmpty());
}

// ---------------------------------------------------------------- walking

TEST_F(XplrTreeTest, TheStartFolderIsSelected) {
  Fill(u"C:\\cnc\\programs");
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.Path == u"C:\\cnc\\programs") << "as it was asked for";
  EXPECT_EQ(ground_.state.ResultFlags, 0u);
  EXPECT_EQ(ground_.state.Kind, NodeKind::kFolder);
  EXPECT_THAT(ground_.Sent(), ElementsAre("post form XPLR_UPDATE_FOLDER 4"));
}

TEST_F(XplrTreeTest, AStartPathThatEndsInAMissingFolderStopsOneLevelUp) {
  Fill(u"C:\\CNC\\GONE");
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC"}));
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC");
  EXPECT_EQ(ground_.state.ResultFlags, xplr_result::kElsewhere) << "so the name field gets the focus";
  EXPECT_THAT(ground_.Sent(), IsEmpty());
}

TEST_F(XplrTreeTest, AHiddenFolderIsNoPlaceToStart) {
  Fill(u"C:\\CNC\\.HIDDEN");
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC");
  EXPECT_EQ(ground_.state.ResultFlags, xplr_result::kElsewhere);
}

TEST_F(XplrTreeTest, AFolderWithoutFoldersLosesItsMarkAtItsFirstExpansion) {
  Fill(u"C:\\CNC\\EMPTY\\X");
  EXPECT_FALSE(tree_.Nodes().At(Find({u"C:", u"CNC", u"EMPTY"})).hasChildren);
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\EMPTY");
}

TEST_F(XplrTreeTest, WithoutTheDriveNothingIsSelectedAndThePathIsEmptied) {
  ground_.places.hidden = DriveBit(u'C');
  Fill(u"C:\\CNC");
  EXPECT_EQ(tree_.Selected(), kNoNode);
  EXPECT_TRUE(ground_.state.Path.empty());
  EXPECT_EQ(ground_.state.ResultFlags, xplr_result::kElsewhere);
}

TEST_F(XplrTreeTest, InFolderModeTheProposedFolderIsPartOfTheWay) {
  ground_.state.Flags = XPLR_FOLDERMODE;
  Fill(u"C:\\CNC", u"programs");
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\programs");
  EXPECT_TRUE(ground_.state.File.empty());
  EXPECT_EQ(ground_.state.ResultFlags, 0u);
}

TEST_F(XplrTreeTest, InFileModeTheNameIsNoPartOfTheWay) {
  Fill(u"C:\\CNC", u"PROGRAMS");
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC"}));
  EXPECT_TRUE(ground_.state.File == u"PROGRAMS");
}

TEST_F(XplrTreeTest, ANetworkPathSelectsTheNetworksRootAndIsNotWalked) {
  ground_.network.around->below[u""] = {{6, u"", u"", u"", u"Net"}};
  Fill(u"\\\\SRV\\DATA\\SUB");
  EXPECT_EQ(tree_.Selected(), Find({u"Entire Network"}));
  EXPECT_EQ(ground_.state.Kind, NodeKind::kNetwork);
  EXPECT_TRUE(ground_.state.Path == u"\\\\SRV\\DATA\\SUB");
  EXPECT_EQ(ground_.state.ResultFlags, 0u);
  EXPECT_EQ(filled_, 1);
}

TEST_F(XplrTreeTest, AnyOtherPathBecomesTheCurrentDrive) {
  ground_.places.types = {{'C', 3}, {'D', 3}};
  ground_.places.current = 'D';
  for (const TextView path : {u"", u"x", u"PROGRAMS", u"\\PROGRAMS"}) {
    ground_.state.Path = path;
    tree_.LocateTreeNode([] {});
    if (filled_ == 0) Fill(path);
    EXPECT_TRUE(ground_.state.Path == u"D:") << ToUtf8(path);
  }
}

// ---------------------------------------------------------------- selecting

TEST_F(XplrTreeTest, SelectingIsIgnoredUntilTheTreeIsFilled) {
  Pick(kNoNode);
  EXPECT_THAT(ground_.Sent(), IsEmpty());
}

TEST_F(XplrTreeTest, SelectingAFolderMovesThePathAndReloadsTheList) {
  FillAndOpen(u"C:\\CNC");
  Pick(Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\PROGRAMS");
  EXPECT_EQ(ground_.state.Kind, NodeKind::kFolder);
  EXPECT_THAT(ground_.Sent(),
              ElementsAre("post form XPLR_UPDATE_FOLDER 4", "post frame XPLR_UPDATE", "post form XPLR_UPDATE_LIST"));
}

TEST_F(XplrTreeTest, InFolderModeSelectingPutsTheFolderIntoTheCaptionAndEmptiesTheName) {
  ground_.state.Flags = XPLR_FOLDERMODE;
  FillAndOpen(u"C:\\CNC");
  ground_.state.File = u"OLD";
  Pick(Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.File.empty());
  EXPECT_THAT(ground_.Sent(),
              ElementsAre("post form XPLR_UPDATE_FOLDER 4", "send form XPLR_UPDATE_CAPTION ' Pick = PROGRAMS'",
                          "post form XPLR_UPDATE_EDIT", "post frame XPLR_UPDATE", "post form XPLR_UPDATE_LIST"));
}

TEST_F(XplrTreeTest, AFolderThatCannotBeReadEmptiesTheListAndSaysWhy) {
  FillAndOpen(u"C:\\CNC");
  ground_.state.File = u"OLD";
  ground_.places.disc->errors[u"C:\\CNC\\PROGRAMS"] = place_error::kNotReady;
  Pick(Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.File.empty());
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\PROGRAMS");
  EXPECT_THAT(ground_.Sent(), ElementsAre("post form XPLR_UPDATE_FOLDER 4", "send form XPLR_UPDATE_CAPTION ' Pick = '",
                                          "send form XPLR_RESET_LIST", "post frame XPLR_UPDATE"));
  EXPECT_THAT(shown_, ElementsAre(XplrNotice{32, 160}));
}

TEST_F(XplrTreeTest, WithoutTheFocusTheFolderIsNotLookedAt) {
  FillAndOpen(u"C:\\CNC");
  ground_.places.disc->errors[u"C:\\CNC\\PROGRAMS"] = place_error::kNotReady;
  ground_.places.disc->asked.clear();
  ground_.view.focused = xplr_control::kList;
  tree_.OnNodeSelected(Find({u"C:", u"CNC", u"PROGRAMS"}), true);
  EXPECT_THAT(ground_.Sent(),
              ElementsAre("post form XPLR_UPDATE_FOLDER 4", "post frame XPLR_UPDATE", "post form XPLR_UPDATE_LIST"));
  EXPECT_THAT(ground_.places.disc->asked, IsEmpty());
  EXPECT_THAT(shown_, IsEmpty()) << "the reason comes at Enter";
}

TEST_F(XplrTreeTest, SelectingNothingEmptiesPathListAndCaption) {
  for (const bool folderMode : {false, true}) {
    ground_.state.Flags = folderMode ? std::uint32_t{XPLR_FOLDERMODE} : 0u;
    if (filled_ == 0) Fill(u"C:\\CNC");
    ground_.Take();
    ground_.state.File = u"OLD";
    Pick(kNoNode);
    EXPECT_TRUE(ground_.state.Path.empty());
    EXPECT_EQ(ground_.state.File.empty(), folderMode);
    EXPECT_EQ(ground_.state.Kind, NodeKind::kNone);
    EXPECT_THAT(ground_.Sent(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = '", "post form XPLR_UPDATE_FOLDER",
                                            "post form XPLR_RESET_LIST", "post frame XPLR_UPDATE"));
  }
}

class NetworkTree : public XplrTreeTest {
 protected:
  NetworkTree() {
    auto& around = *ground_.network.around;
    around.below[u""] = {{7, u"", u"", u"", u""}, {6, u"", u"", u"", u"Net"}};
    around.below[u"Net"] = {{1, u"DOM", u"", u"", u""}, {2, u"\\\\SRV", u"", u"", u""}, {3, u"\\\\NO", u"", u"", u""}};
    around.below[u"DOM"] = {{2, u"\\\\OTHER", u"", u"", u""}, {1, u"NO", u"", u"", u""}};
    around.below[u"\\\\SRV"] = {
        {3, u"\\\\SRV\\DATA", u"", u"", u""}, {0, u"\\\\SRV\\MORE", u"", u"", u""}, {2, u"\\\\NO", u"", u"", u""}};
    ground_.places.disc->AddFolder(u"\\\\SRV");
    ground_.places.disc->AddFolder(u"\\\\SRV\\DATA");
    Fill(u"C:");
    tree_.OnNodeOpening(provider_ = Find({u"Entire Network", u"Net"}));
    ground_.Take();
  }
  NodeId provider_ = kNoNode;
};

TEST_F(NetworkTree, AProviderHasDomainsAndServersADomainServersAServerShares) {
  EXPECT_THAT(Texts(provider_), ElementsAre("DOM", "\\\\SRV"));
  tree_.OnNodeOpening(Find({u"Entire Network", u"Net", u"DOM"}));
  EXPECT_THAT(Texts(Find({u"Entire Network", u"Net", u"DOM"})), ElementsAre("\\\\OTHER"));
  const NodeId server = Find({u"Entire Network", u"Net", u"\\\\SRV"});
  tree_.OnNodeOpening(server);
  EXPECT_THAT(Texts(server), ElementsAre("DATA", "MORE"));
  for (const NodeId share : tree_.Nodes().Children(server)) {
    EXPECT_EQ(tree_.Nodes().At(share).kind, NodeKind::kNetwork);
  }
  EXPECT_THAT(ground_.network.around->asked,
              ElementsAre(u"open Net of Net", u"open DOM of Net", u"open \\\\SRV of Net"));
}

TEST_F(NetworkTree, SelectingAProviderWithTheFocusEmptiesTheListAndTheName) {
  ground_.state.File = u"OLD";
  Pick(provider_);
  EXPECT_TRUE(ground_.state.File.empty());
  EXPECT_THAT(ground_.Sent(), ElementsAre("post form XPLR_UPDATE_FOLDER 4", "send form XPLR_UPDATE_CAPTION ' Pick = '",
                                          "send form XPLR_RESET_LIST", "post frame XPLR_UPDATE"));
  EXPECT_THAT(shown_, IsEmpty());
}

TEST_F(NetworkTree, AServerListsItsSharesAndItsDomainNothing) {
  ground_.view.focused = 0;
  tree_.OnNodeSelected(Find({u"Entire Network", u"Net", u"\\\\SRV"}), true);
  EXPECT_THAT(ground_.Sent(),
              ElementsAre("post form XPLR_UPDATE_FOLDER 4", "send form XPLR_UPDATE_CAPTION ' Pick = '",
                          "post form XPLR_UPDATE_EDIT", "post frame XPLR_UPDATE", "post form XPLR_UPDATE_LIST 1"));
  tree_.OnNodeSelected(Find({u"Entire Network", u"Net", u"DOM"}), true);
  EXPECT_EQ(ground_.Sent().back(), "post form XPLR_UPDATE_LIST 2");
  tree_.OnNodeSelected(Find({u"Entire Network", u"Net", u"DOM"}), false);
  EXPECT_EQ(ground_.Sent().back(), "post frame XPLR_UPDATE") << "unless the list isn't to be updated";
}

TEST_F(NetworkTree, ANodeThatCannotBeOpenedLosesItsMark) {
  ground_.network.around->closed = {u"DOM"};
  const NodeId domain = Find({u"Entire Network", u"Net", u"DOM"});
  tree_.OnNodeOpening(domain);
  EXPECT_FALSE(tree_.Nodes().At(domain).hasChildren);
  EXPECT_THAT(ground_.Take(), ElementsAre("view changed " + std::to_string(domain)));
}

TEST_F(NetworkTree, AShareThatWantsCredentialsIsConnectedFirst) {
  ground_.places.disc->errors[u"\\\\SRV\\DATA"] = place_error::kLogonFailed;
  const NodeId server = Find({u"Entire Network", u"Net", u"\\\\SRV"});
  tree_.OnNodeOpening(server);
  ground_.Take();
  ground_.network.around->connectError = 1;
  Pick(tree_.Nodes().Children(server)[0]);
  EXPECT_THAT(shown_, ElementsAre(XplrNotice{27, 6586468}));
  ground_.network.around->connectError = 0;
  tree_.OnNodeSelected(server, true);
  Pick(tree_.Nodes().Children(server)[0]);
  EXPECT_EQ(shown_.size(), 1u);
  EXPECT_EQ(ground_.Sent().back(), "post form XPLR_UPDATE_LIST");
}

// ---------------------------------------------------------------- opening

TEST_F(XplrTreeTest, OpeningAFolderShowsItsFoldersSorted) {
  ground_.places.disc->AddFolder(u"C:\\CNC\\apple");
  Fill(u"C:");
  const NodeId cnc = (tree_.OnNodeOpening(Find({u"C:"})), Find({u"C:", u"CNC"}));
  ground_.Take();
  tree_.OnNodeOpening(cnc);
  EXPECT_THAT(Texts(cnc), ElementsAre("apple", "EMPTY", "PROGRAMS")) << "neither files nor what is hidden";
  const std::string number = std::to_string(cnc);
  EXPECT_THAT(ground_.Take(), ElementsAre("view nodes " + number + " 0 3", "view open " + number));
  tree_.OnNodeOpening(cnc);
  EXPECT_THAT(ground_.Take(), ElementsAre("view open " + number)) << "read once";
}

TEST_F(XplrTreeTest, AFolderThatIsReadInPartsShowsAllItsFolders) {
  ground_.places.disc->batch = 1;
  FillAndOpen(u"C:\\CNC");
  EXPECT_THAT(Texts(Find({u"C:", u"CNC"})), ElementsAre("EMPTY", "PROGRAMS"));
}

TEST_F(XplrTreeTest, WithTheFocusAFolderThatCannotBeReadStaysClosedAndKeepsItsMark) {
  Fill(u"C:\\CNC");
  tree_.OnNodeOpening(tree_.Selected());
  const NodeId node = Find({u"C:", u"CNC", u"PROGRAMS"});
  ground_.places.disc->errors[u"C:\\CNC\\PROGRAMS"] = place_error::kAccessDenied;
  ground_.view.focused = xplr_control::kTree;
  ground_.Take();
  tree_.OnNodeOpening(node);
  EXPECT_THAT(ground_.Take(), IsEmpty());
  EXPECT_TRUE(tree_.Nodes().At(node).hasChildren);
  ground_.view.focused = 0;
  tree_.OnNodeOpening(node);
  EXPECT_FALSE(tree_.Nodes().At(node).hasChildren) << "without the focus it is opened, and has no children";
}

TEST_F(XplrTreeTest, StepIntoChildSelectsTheChildNamedByFile) {
  Fill(u"C:\\CNC");
  ground_.Take();
  ground_.state.File = u"programs";
  tree_.StepIntoChild();
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\PROGRAMS");
  EXPECT_EQ(ground_.view.selected, tree_.Selected());
}

TEST_F(XplrTreeTest, StepIntoAChildThatIsNotThereSelectsNothing) {
  Fill(u"C:\\CNC");
  ground_.state.File = u"NOPE";
  tree_.StepIntoChild();
  EXPECT_TRUE(ground_.state.Path.empty());
  EXPECT_EQ(ground_.state.Kind, NodeKind::kNone);
}

TEST_F(XplrTreeTest, TakeSelectionAppliesTheSelectionAndGetsTheFocus) {
  ground_.state.Flags = XPLR_FOLDERMODE;
  Fill(u"C:\\CNC");
  ground_.Take();
  tree_.TakeSelection();
  EXPECT_THAT(ground_.Take(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = CNC'", "view focus 1106"));
}

TEST_F(XplrTreeTest, TheFocusAppliesTheSelectionOnceFilled) {
  ground_.state.Flags = XPLR_FOLDERMODE;
  tree_.OnFocus();
  EXPECT_THAT(ground_.Take(), IsEmpty());
  Fill(u"C:\\CNC");
  ground_.Take();
  tree_.OnFocus();
  EXPECT_THAT(ground_.Take(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = CNC'"));
}

TEST_F(XplrTreeTest, GoingToAFolderSelectsItAndReloadsTheList) {
  Fill(u"C:");
  ground_.Take();
  tree_.GoTo(u"C:\\CNC\\PROGRAMS");
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC", u"PROGRAMS"}));
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\PROGRAMS");
  const Log sent = ground_.Take();
  EXPECT_EQ(sent.back(), "view focus 1106");
  EXPECT_THAT(sent, testing::Contains("post form XPLR_UPDATE_LIST"));
  tree_.GoTo(u"C:\\CNC");
  EXPECT_THAT(ground_.Take(), testing::Contains("view open " + std::to_string(Find({u"C:"})))) << "though it is read";
  tree_.GoTo(u"C:");
  ground_.Take();
  tree_.GoTo(u"C:");
  EXPECT_THAT(ground_.Take(), testing::Contains("post form XPLR_UPDATE_LIST")) << "to where it is already";
}

// ---------------------------------------------------------------- between question and answer

TEST_F(XplrTreeSteps, TheNetworkDoesNotHoldUpADrive) {
  Fill(u"C:");
  EXPECT_EQ(filled_, 1);
  EXPECT_EQ(ground_.worker.Waits(), 1u) << "the network is still being asked";
}

TEST_F(XplrTreeSteps, AnAnswerForAnEarlierSelectionIsDropped) {
  Fill(u"C:\\CNC");
  ground_.worker.RunAll();
  tree_.OnNodeOpening(tree_.Selected());
  ground_.worker.RunAll();
  ground_.places.disc->errors[u"C:\\CNC\\EMPTY"] = place_error::kNotReady;
  ground_.Take();
  Pick(Find({u"C:", u"CNC", u"EMPTY"}));
  EXPECT_EQ(ground_.Sent().back(), "send form XPLR_RESET_LIST") << "no row of the folder before may be picked";
  Pick(Find({u"C:", u"CNC", u"PROGRAMS"}));
  ground_.worker.RunAll();
  EXPECT_THAT(shown_, IsEmpty());
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC\\PROGRAMS");
  EXPECT_EQ(ground_.Sent().back(), "post form XPLR_UPDATE_LIST");
}

TEST_F(XplrTreeSteps, AFolderThatIsOpenedTwiceIsReadOnce) {
  Fill(u"C:");
  ground_.worker.RunAll();
  tree_.OnNodeOpening(Find({u"C:"}));
  tree_.OnNodeOpening(Find({u"C:"}));
  EXPECT_EQ(ground_.worker.Waits(), 1u);
  ground_.worker.RunAll();
  EXPECT_THAT(Texts(Find({u"C:"})), ElementsAre("CNC"));
}

TEST_F(XplrTreeSteps, AFolderThatCannotBeAskedForLosesItsMark) {
  Fill(u"C:");
  ground_.worker.RunAll();
  ASSERT_TRUE(tree_.Nodes().At(Find({u"C:"})).hasChildren);
  ground_.worker.refuses = true;
  tree_.OnNodeOpening(Find({u"C:"}));
  EXPECT_FALSE(tree_.Nodes().At(Find({u"C:"})).hasChildren) << "and nobody waits for its folders";
}

TEST_F(XplrTreeSteps, AWalkEndsWhereTheOperatorHasGoneMeanwhile) {
  ground_.places.types['D'] = 3;
  ground_.places.disc->AddFolder(u"D:\\X");
  Fill(u"C:\\CNC\\PROGRAMS");
  tree_.OnNodeSelected(Find({u"D:"}), true);
  ground_.worker.RunAll();
  EXPECT_EQ(tree_.Selected(), Find({u"D:"}));
  EXPECT_TRUE(ground_.state.Path == u"D:");
  EXPECT_EQ(filled_, 1);
}

TEST_F(XplrTreeSteps, WithoutAWorkerNothingHangs) {
  ground_.worker.refuses = true;
  Fill(u"C:\\CNC");
  EXPECT_EQ(filled_, 1);
  EXPECT_TRUE(ground_.state.Path == u"C:");
}

}  // namespace
}  // namespace pnl::test
