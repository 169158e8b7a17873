// SPDX-License-Identifier: MIT
// The session: typing in the list, the path in the heading, the preview, and shares and servers that fail.
#include <gmock/gmock.h>

#include "explorer/xplr_stage.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class XplrNews : public XplrSessionTest {
 protected:
  void TypeInList(TextView letters) {
    for (const char16_t c : letters) Call(&XplrSession::OnListTyped, TextView(&c, 1));
    Drain();
  }
  void TouchPath(std::size_t at) {
    Call(&XplrSession::OnPathTouched, at);
    Drain();
  }
  NodeId Node(const std::vector<Text>& names) {
    NodeId node = kNoNode;
    Tell([&](XplrSession& session) {
      for (const Text& name : names) node = session.Nodes().FindChild(node, name);
    });
    return node;
  }
  void Walk(NodeId node) {
    Call(&XplrSession::OnNodeSelected, node, true);
    Drain();
  }
  bool HasFailed(NodeId node) {
    bool failed = false;
    Tell([&](XplrSession& session) { failed = session.Nodes().At(node).failed; });
    return failed;
  }
  [[nodiscard]] long TimesAsked(const Text& line) const {
    const std::vector<Text>& asked = places.disc->asked;
    return std::count(asked.begin(), asked.end(), line);
  }
};

// ---------------------------------------------------------------- typing

TEST_F(XplrNews, TypingChoosesTheFirstNameThatBeginsSo) {
  Open();
  Forget();
  TypeInList(u"a.");
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = A.NC");
  EXPECT_THAT(All(), testing::IsSupersetOf({"view row 2", "view scroll 2", "view mark 1", "view mark 2"}));
  TypeInList(u"x");
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = A.NC") << "no name begins so";
  Call(&XplrSession::OnListBackspace);
  Call(&XplrSession::OnListBackspace);
  EXPECT_THAT(All(), Contains("view mark 0"));
  TypeInList(u"s");
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = ") << "a folder is no name";
}

TEST_F(XplrNews, WhatWasTypedEndsWithEveryOtherChoice) {
  const std::function<void()> ends[] = {
      [this] { PickRow(u"B.TXT"); },          [this] { Menu(32790); },       [this] { Menu(32770); },
      [this] { Focus(xplr_control::kName); }, [this] { PickNode({u"C:"}); },
  };
  for (const auto& end : ends) {
    Open();
    Focus(xplr_control::kList);
    TypeInList(u"a");
    Forget();
    end();
    EXPECT_THAT(All(), Contains("view mark 0"));
  }
}

TEST_F(XplrNews, EscapeClosesWhateverWasTyped) {
  Open();
  TypeInList(u"a");
  Forget();
  Escape();
  EXPECT_THAT(Asked(), Contains("HostToolClosed(5,2)"));
}

// ---------------------------------------------------------------- the path

TEST_F(XplrNews, APieceOfThePathLeadsToItsFolder) {
  places.disc->AddFile(u"C:\\CNC\\SUB\\DEEP\\D.NC");
  SetField(request.Path, u"C:\\CNC\\SUB\\DEEP");
  Open();
  TouchPath(4);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
  EXPECT_THAT(RowNames(), ElementsAre("SUB", "B.TXT", "A.NC"));
  EXPECT_EQ(view->focused, xplr_control::kList) << "the focus stays";
  EXPECT_EQ(view->selected, Node({u"C:", u"CNC"}));
  Forget();
  TouchPath(4);
  EXPECT_THAT(All(), IsEmpty()) << "the folder itself";
  TouchPath(1000);
  EXPECT_THAT(All(), IsEmpty()) << "beyond the path";
}

TEST_F(XplrNews, ThePathLeadsInAPinnedListButNotInARequestForAListOnly) {
  SetField(request.Path, u"C:\\CNC\\SUB");
  for (const std::uint32_t flags : {0u, static_cast<std::uint32_t>(XPLR_LISTONLY)}) {
    request.Flags = flags;
    Open();
    if (flags == 0) Menu(32791);
    EXPECT_EQ(view->layout.pathLeads, flags == 0);
    TouchPath(4);
    EXPECT_EQ(view->labels[xplr_control::kFolder], flags == 0 ? u"C:\\CNC" : u"C:\\CNC\\SUB");
    EXPECT_THAT(RowNames(), flags == 0 ? Contains("A.NC") : Contains("C.NC"));
  }
  request.Flags = 0;
}

TEST_F(XplrNews, ThePathDoesNotLeadWhileADialogIsOpen) {
  SetField(request.Path, u"C:\\CNC\\SUB");
  Open();
  Menu(32774);
  TouchPath(4);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC\\SUB");
}

TEST_F(XplrNews, InFolderModeTheFolderOfThePieceIsTheOneThatIsChosen) {
  request.Flags = XPLR_FOLDERMODE;
  SetField(request.Path, u"C:\\CNC\\SUB");
  Open();
  TouchPath(4);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = CNC");
  request.Flags = 0;
}

// ---------------------------------------------------------------- the preview

TEST_F(XplrNews, TheSelectedFileIsShownFrom1200PixelsOn) {
  places.disc->bytes[u"C:\\CNC\\A.NC"] = "G0\n";
  SetField(request.File, u"A.NC");
  Open();
  EXPECT_EQ(TimesAsked(u"read C:\\CNC\\A.NC"), 0);
  Call(&XplrSession::OnResized, 1199, 520);
  EXPECT_FALSE(view->preview.there);
  Call(&XplrSession::OnResized, 1200, 520);
  EXPECT_TRUE((view->preview == XplrPreviewFace{true, u"A.NC", {u"G0"}}));
  EXPECT_EQ(view->layout, LayOutXplr(1200, 520, LayoutMode::kTreeAndList)) << "everything has its place";
  PickRow(u"SUB");
  EXPECT_TRUE((view->preview == XplrPreviewFace{true, {}, {}}));
  TypeInList(u"a");
  EXPECT_TRUE(view->preview.name == u"A.NC");
  PickNode({u"C:"});
  EXPECT_TRUE((view->preview == XplrPreviewFace{true, {}, {}}));
  SetField(request.File, u"");
}

// ---------------------------------------------------------------- shares and servers that fail

class XplrFailing : public XplrNews {
 protected:
  XplrFailing() {
    network.around->below[u""] = {{6, u"", u"", u"", u"Net"}};
    network.around->below[u"Net"] = {{2, u"\\\\S", u"", u"", u""}};
    network.around->below[u"\\\\S"] = {{3, u"\\\\S\\A", u"", u"", u""}, {3, u"\\\\S\\B", u"", u"", u""}};
    for (const TextView share : {u"\\\\S", u"\\\\S\\A", u"\\\\S\\B"}) places.disc->AddFolder(Text(share));
    places.disc->errors[u"\\\\S\\A"] = place_error::kRemoteNotListening;
  }
  void OpenNetwork() {
    Open();
    Focus(xplr_control::kTree);
    PickNode({u"Entire Network", u"Net", u"\\\\S", u"B"});
    a = Node({u"Entire Network", u"Net", u"\\\\S", u"A"});
    b = Node({u"Entire Network", u"Net", u"\\\\S", u"B"});
    ASSERT_NE(a, kNoNode);
    places.disc->asked.clear();
    messages.clear();
    // Listing the server has asked its shares too.
    Call(&XplrSession::OnNodeTouched, a);
    timers.Advance(30'000);
    Walk(b);
    places.disc->asked.clear();
    messages.clear();
  }
  NodeId a = kNoNode;
  NodeId b = kNoNode;
};

TEST_F(XplrFailing, AShareThatFailedShowsSoAndIsNotAskedForHalfAMinute) {
  OpenNetwork();
  EXPECT_FALSE(HasFailed(a));
  Walk(a);
  EXPECT_TRUE(HasFailed(a));
  EXPECT_FALSE(HasFailed(b));
  EXPECT_EQ(TimesAsked(u"probe \\\\S\\A"), 1);
  EXPECT_EQ(messages.back(), "No access line 1 back 160");
  for (int walk = 0; walk < 3; ++walk) {
    Walk(b);
    EXPECT_EQ(messages.back(), " line 1 back 2916452");
    Walk(a);
    EXPECT_EQ(messages.back(), "No access line 1 back 160") << "it says so again";
  }
  EXPECT_EQ(TimesAsked(u"probe \\\\S\\A"), 1);
  timers.Advance(29'999);
  EXPECT_TRUE(HasFailed(a));
  timers.Advance(1);
  EXPECT_FALSE(HasFailed(a));
  Walk(b);
  Walk(a);
  EXPECT_EQ(TimesAsked(u"probe \\\\S\\A"), 2);
}

TEST_F(XplrFailing, TheOperatorsAskingTriesItAgain) {
  const struct {
    const char* how;
    std::function<void()> ask;
  } rows[] = {
      {"Refresh", [this] { Menu(32790); }},
      {"touching it again", [this] { Call(&XplrSession::OnNodeTouched, a); }},
      {"selecting it again",
       [this] {
         Walk(b);
         Call(&XplrSession::OnNodeSelected, a, false);
       }},
      {"opening it by touch", [this] { Call(&XplrSession::OnNodeOpening, a, false); }},
      {"Enter", [this] { Enter(); }},
  };
  for (const auto& row : rows) {
    places.disc->errors[u"\\\\S\\A"] = place_error::kRemoteNotListening;
    OpenNetwork();
    Walk(a);
    ASSERT_TRUE(HasFailed(a)) << row.how;
    places.disc->errors.clear();
    places.disc->asked.clear();
    row.ask();
    Drain();
    EXPECT_THAT(places.disc->asked, Not(IsEmpty())) << row.how;
    EXPECT_FALSE(HasFailed(a)) << row.how;
  }
}

TEST_F(XplrFailing, APieceOfThePathAsksForAFailedFolderUnlessItIsTheListedOne) {
  OpenNetwork();
  Walk(a);
  ASSERT_EQ(view->labels[xplr_control::kFolder], u"\\\\S\\A");
  places.disc->asked.clear();
  TouchPath(4);
  EXPECT_TRUE(HasFailed(a));
  EXPECT_THAT(places.disc->asked, IsEmpty()) << "the folder itself";
}

TEST_F(XplrFailing, OpeningItWithAnArrowDoesNotAsk) {
  OpenNetwork();
  Walk(a);
  places.disc->asked.clear();
  Call(&XplrSession::OnNodeOpening, a, true);
  Drain();
  EXPECT_THAT(places.disc->asked, IsEmpty());
}

TEST_F(XplrFailing, AShareThatFailsAgainIsLeftAloneForHalfAMinuteFromThenOn) {
  OpenNetwork();
  Walk(a);
  timers.Advance(20'000);
  Call(&XplrSession::OnNodeTouched, a);
  Drain();
  EXPECT_EQ(TimesAsked(u"probe \\\\S\\A"), 2);
  timers.Advance(29'999);
  EXPECT_TRUE(HasFailed(a));
  timers.Advance(1);
  EXPECT_FALSE(HasFailed(a));
}

TEST_F(XplrFailing, TouchingAPlaceThatHasNotFailedIsNothingNew) {
  OpenNetwork();
  places.disc->asked.clear();
  Call(&XplrSession::OnNodeTouched, b);
  EXPECT_THAT(places.disc->asked, IsEmpty());
}

TEST_F(XplrFailing, CredentialsThatAreRefusedAreNotAskedForAgain) {
  places.disc->errors[u"\\\\S\\A"] = place_error::kLogonFailed;
  network.around->connectError = place_error::kLogonFailed;
  OpenNetwork();
  for (int walk = 0; walk < 3; ++walk) {
    Walk(a);
    EXPECT_EQ(messages.back(), "No connection line 1 back 6586468");
    Walk(b);
  }
  EXPECT_EQ(std::count(network.around->asked.begin(), network.around->asked.end(), u"connect \\\\S\\A"), 1);
  EXPECT_TRUE(HasFailed(a));
}

TEST_F(XplrFailing, NoTimerStaysAfterTheEnd) {
  OpenNetwork();
  Walk(a);
  EXPECT_EQ(timers.Running(), 1u);
  DestroyTool();
  EXPECT_EQ(timers.Running(), 0u);
}

}  // namespace
}  // namespace pnl::test
