// SPDX-License-Identifier: MIT
// Drives that come and go while the tree is open.
#include <gmock/gmock.h>

#include "explorer/xplr_tree_rig.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class XplrDrives : public XplrTreeTest {
 protected:
  XplrDrives() {
    Places().types = {{'C', 3}, {'E', 2}};
    Places().disc->AddFolder(u"E:\\JOBS\\OLD");
    ground_.network.around->below[u""] = {{7, u"", u"", u"Net", u""}};
  }
  FakePlaces& Places() { return ground_.places; }
  std::vector<std::string> Roots() { return Texts(kNoNode); }
};

TEST_F(XplrDrives, ADriveThatComesHasItsPlaceAmongTheDrivesBeforeTheNetwork) {
  Fill(u"C:\\CNC");
  ground_.Take();
  for (const char letter : {'G', 'A', 'D', 'Z'}) Places().types[letter] = drive_type::kRemovable;
  tree_.UpdateDrives();
  EXPECT_THAT(Roots(), ElementsAre("A:", "C:", "D:", "E:", "G:", "Z:", "Net"));
  EXPECT_THAT(ground_.Take(),
              ElementsAre("view nodes 0 0 1", "view nodes 0 2 1", "view nodes 0 4 1", "view nodes 0 5 1"))
      << "nothing else happens: the operator stays where he is";
  EXPECT_TRUE(ground_.state.Path == u"C:\\CNC");
}

TEST_F(XplrDrives, ADriveThatGoesElsewhereLeavesTheSelectionAlone) {
  Fill(u"C:\\CNC");
  const NodeId stick = Find({u"E:"});
  ground_.Take();
  Places().types.erase('E');
  tree_.UpdateDrives();
  EXPECT_THAT(Roots(), ElementsAre("C:", "Net"));
  EXPECT_THAT(ground_.Take(), ElementsAre("view removing " + std::to_string(stick)));
  EXPECT_EQ(tree_.Selected(), Find({u"C:", u"CNC"}));
}

TEST_F(XplrDrives, ADriveThatHasGoneTakesAllItsFoldersAndComesBackUnread) {
  FillAndOpen(u"E:\\JOBS");
  tree_.OnNodeSelected(Find({u"C:"}), true);
  const NodeId below = Find({u"E:", u"JOBS"});
  Places().types.erase('E');
  tree_.UpdateDrives();
  EXPECT_FALSE(tree_.Nodes().Exists(below));
  Places().types['E'] = drive_type::kRemovable;
  tree_.UpdateDrives();
  EXPECT_FALSE(tree_.Nodes().IsLoaded(Find({u"E:"})));
  EXPECT_TRUE(tree_.Nodes().At(Find({u"E:"})).hasChildren);
}

struct NeighbourCase {
  std::map<char, int> drives;
  Text from;
  Text to;
  const char* why;
};

TEST_F(XplrDrives, TheSelectionOfADriveThatGoesGoesToTheDriveBesideIt) {
  const NeighbourCase rows[] = {
      {{{'C', 3}, {'E', 2}, {'G', 3}}, u"E:\\JOBS\\OLD", u"G:", "the next one"},
      {{{'C', 3}, {'E', 2}}, u"E:\\JOBS", u"C:", "the one before, and not the network"},
      {{{'A', 2}, {'C', 3}, {'E', 2}}, u"E:", u"C:", "the nearest one before"},
      {{{'E', 2}}, u"E:", u"Net", "the next root, without a drive"},
  };
  for (const NeighbourCase& row : rows) {
    XplrTree tree({ground_.state, ground_.folders, ground_.posts, ground_.access, [](const XplrNotice&) {}});
    Places().types = row.drives;
    ground_.state.Path = row.from;
    ground_.state.File.clear();
    tree.Fill(u"unavailable", [] {});
    ASSERT_TRUE(ground_.state.Path == row.from) << row.why;
    Places().types.erase('E');
    ground_.Take();
    tree.UpdateDrives();
    EXPECT_TRUE(ground_.state.Path == row.to) << row.why;
    EXPECT_THAT(ground_.Take(), Contains("post form XPLR_UPDATE_LIST")) << row.why;
  }
}

TEST_F(XplrDrives, WithoutAnyRootNothingIsSelected) {
  ground_.network.around->below.clear();
  Places().types = {{'E', 2}};
  Fill(u"E:\\JOBS");
  Places().types.clear();
  ground_.Take();
  tree_.UpdateDrives();
  EXPECT_EQ(tree_.Selected(), kNoNode);
  EXPECT_TRUE(ground_.state.Path.empty());
  EXPECT_THAT(ground_.Sent(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = '", "post form XPLR_UPDATE_FOLDER",
                                          "post form XPLR_RESET_LIST", "post frame XPLR_UPDATE"));
}

TEST_F(XplrDrives, WithTheFocusOnTheTreeTheNeighbourIsLookedAtFirst) {
  Fill(u"E:\\JOBS");
  ground_.view.focused = xplr_control::kTree;
  Places().disc->errors[u"C:"] = place_error::kNotReady;
  Places().types.erase('E');
  tree_.UpdateDrives();
  EXPECT_THAT(shown_, ElementsAre(XplrNotice{xplr_text::kNotReady, xplr_color::kRefusal}));
}

TEST_F(XplrDrives, TheMasksCount) {
  Fill(u"C:\\CNC");
  Places().remembered = DriveBit(u'N');
  Places().remotes['N'] = {place_error::kNotConnected, u"\\\\S\\D"};
  tree_.UpdateDrives();
  EXPECT_THAT(Roots(), ElementsAre("C:", "E:", "N:  (\\\\S\\D)", "Net"));
  Places().hidden = DriveBit(u'E') | DriveBit(u'N');
  tree_.UpdateDrives();
  EXPECT_THAT(Roots(), ElementsAre("C:", "Net"));
  Places().hidden = 0;
  Places().locked = DriveBit(u'E');
  tree_.UpdateDrives();
  EXPECT_THAT(Roots(), ElementsAre("C:", "E:  (unavailable)", "N:  (\\\\S\\D)", "Net"));
}

TEST_F(XplrDrives, ADriveThatIsLockedIsAnotherNodeAndOneWithAnotherLabelIsTheSame) {
  Places().types['E'] = drive_type::kFixed;
  Places().labels['E'] = u"OLD";
  Fill(u"E:\\JOBS");
  const NodeId before = Find({u"E:"});
  Places().labels['E'] = u"NEW";
  ground_.Take();
  tree_.UpdateDrives();
  EXPECT_EQ(tree_.Nodes().At(before).text, u"E:  (NEW)");
  EXPECT_THAT(ground_.Take(), ElementsAre("view changed " + std::to_string(before)));
  EXPECT_EQ(tree_.Selected(), Find({u"E:", u"JOBS"}));
  Places().locked = DriveBit(u'E');
  tree_.UpdateDrives();
  EXPECT_NE(Find({u"E:"}), before);
  EXPECT_THAT(Roots(), ElementsAre("C:", "E:  (unavailable)", "Net"));
  EXPECT_TRUE(ground_.state.Path == u"C:");
}

TEST_F(XplrDrives, WithoutAChangeNothingIsAskedOfTheWindow) {
  Fill(u"C:\\CNC");
  ground_.Take();
  tree_.UpdateDrives();
  EXPECT_THAT(ground_.Take(), IsEmpty());
}

using XplrDrivesSteps = XplrTreeSteps;

TEST_F(XplrDrivesSteps, AFolderOfADriveThatGoesWhileItIsReadIsNotAdded) {
  ground_.places.types = {{'C', 3}, {'E', 2}};
  ground_.places.disc->AddFolder(u"E:\\JOBS");
  Fill(u"C:");
  ground_.worker.RunAll();
  tree_.OnNodeOpening(Find({u"E:"}));
  ground_.places.types.erase('E');
  tree_.UpdateDrives();
  ground_.Take();
  ground_.worker.RunAll();
  EXPECT_THAT(ground_.Take(), IsEmpty());
}

TEST_F(XplrDrivesSteps, AWalkIntoADriveThatGoesEndsAtItsNeighbour) {
  ground_.places.types = {{'C', 3}, {'E', 2}};
  ground_.places.disc->AddFolder(u"E:\\JOBS");
  Fill(u"E:\\JOBS");
  EXPECT_EQ(filled_, 0) << "the drive is being read";
  ground_.places.types.erase('E');
  tree_.UpdateDrives();
  ground_.worker.RunAll();
  EXPECT_EQ(filled_, 1);
  EXPECT_TRUE(ground_.state.Path == u"C:");
  EXPECT_EQ(ground_.state.ResultFlags, xplr_result::kElsewhere);
}

TEST_F(XplrDrivesSteps, AnAnswerAboutADriveThatHasGoneIsDropped) {
  ground_.places.types = {{'C', 3}, {'E', 2}};
  Fill(u"C:");
  ground_.worker.RunAll();
  ground_.places.disc->errors[u"E:"] = place_error::kNotReady;
  Pick(Find({u"E:"}));
  ground_.places.types.erase('E');
  tree_.UpdateDrives();
  ground_.worker.RunAll();
  EXPECT_THAT(shown_, IsEmpty());
  EXPECT_TRUE(ground_.state.Path == u"C:");
}

}  // namespace
}  // namespace pnl::test
