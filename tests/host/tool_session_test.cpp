// SPDX-License-Identifier: MIT
#include "host/tool_session.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/fake_places.h"
#include "support/memory_files.h"
#include "support/sim_fixture.h"

namespace pnl::test {
namespace {

class NamedView {
 public:
  [[nodiscard]] std::string Name() const { return "window"; }
};

/// Notes what it does; counts the sessions that live.
class NotingSession final : public ToolSession<NamedView> {
 public:
  NotingSession(const ToolContext& context, NamedView& view) : ToolSession(context, view) { ++living; }
  ~NotingSession() { --living; }

  void End() {
    ++ends;
    MarkEnded();
  }
  /// Calls outside, which may end the session, then asks for the view.
  void AskViewAfter(const std::function<void()>& outside) {
    outside();
    notes.push_back("back");
    notes.push_back(View().Name());
    notes.push_back("done");
  }
  void AskHostAfter(const std::function<void()>& outside) {
    outside();
    Host().HostErrorsGone();
    notes.push_back("done");
  }
  [[nodiscard]] std::function<void(int)> NoteLater() {
    return Later([this](int value) {
      notes.push_back(std::to_string(value));
      notes.push_back(View().Name());
    });
  }

  static inline int living = 0;
  static inline int ends = 0;
  static inline std::vector<std::string> notes;
};

class ToolSessionTest : public SimFixture {
 protected:
  ToolSessionTest() {
    table.errorsGone = [] { NotingSession::notes.emplace_back("HostErrorsGone"); };
    NotingSession::ends = 0;
    NotingSession::notes.clear();
    link->Make(context, *view);
  }
  ~ToolSessionTest() override { EXPECT_EQ(NotingSession::living, link ? 1 : 0); }
  /// As a window's destructor does.
  void DestroyWindow() {
    link->End();
    link.reset();
    view.reset();
  }

  MenuTable menus;
  FakePlaces places;
  FakeNetwork network;
  InlineWorker worker;
  Language language{menus, cnc.Util(), files, windows};
  HostApiTable table = {};
  HostBridge host{table, cnc.Vars()};
  ToolContext context{host, cnc, windows, timers, language, files, places, network, worker};
  std::optional<NamedView> view = NamedView();
  std::optional<ToolLink<NotingSession>> link{std::in_place};
};

using Notes = std::vector<std::string>;

TEST_F(ToolSessionTest, WithoutASessionNothingIsTold) {
  const ToolLink<NotingSession> empty;
  EXPECT_FALSE(empty.Tell([](NotingSession&) { ADD_FAILURE(); }));
}

TEST_F(ToolSessionTest, ASessionIsToldUntilItsEnd) {
  EXPECT_TRUE(link->Tell([](NotingSession& session) { session.AskViewAfter([] {}); }));
  EXPECT_EQ(NotingSession::notes, (Notes{"back", "window", "done"}));
  link->End();
  link->End();
  EXPECT_EQ(NotingSession::ends, 1);
  EXPECT_EQ(NotingSession::living, 0);
  EXPECT_FALSE(link->Tell([](NotingSession&) { ADD_FAILURE(); }));
  link.reset();
}

TEST_F(ToolSessionTest, AnOperationEndsWhereItAsksForAWindowThatIsGone) {
  const bool windowIsThere = link->Tell([this](NotingSession& session) {
    session.AskViewAfter([this] {
      DestroyWindow();
      EXPECT_EQ(NotingSession::living, 1) << "kept for the operation";
    });
    ADD_FAILURE();
  });
  EXPECT_FALSE(windowIsThere);
  EXPECT_EQ(NotingSession::notes, Notes{"back"});
  EXPECT_EQ(NotingSession::living, 0);
}

TEST_F(ToolSessionTest, AnOperationEndsWhereItAsksForTheHostOfAToolThatIsGone) {
  EXPECT_FALSE(link->Tell([this](NotingSession& session) { session.AskHostAfter([this] { DestroyWindow(); }); }));
  EXPECT_EQ(NotingSession::notes, Notes{});
}

// The window of an operation that called another one: both end, each where it asks.
TEST_F(ToolSessionTest, ANestedOperationEndsByItselfAndThenTheOuterOne) {
  const auto nested = [this] {
    EXPECT_FALSE(link->Tell([this](NotingSession& session) { session.AskViewAfter([this] { DestroyWindow(); }); }));
    NotingSession::notes.emplace_back("between");
  };
  EXPECT_FALSE(link->Tell([&nested](NotingSession& session) { session.AskViewAfter(nested); }));
  EXPECT_EQ(NotingSession::notes, (Notes{"back", "between", "back"}));
}

TEST_F(ToolSessionTest, ALateCallIsAnOperation) {
  std::function<void(int)> late;
  link->Tell([&late](NotingSession& session) { late = session.NoteLater(); });
  late(1);
  EXPECT_EQ(NotingSession::notes, (Notes{"1", "window"}));
}

TEST_F(ToolSessionTest, ALateCallToASessionThatHasEndedOrIsGoneDoesNothing) {
  std::function<void(int)> late;
  link->Tell([&](NotingSession& session) {
    late = session.NoteLater();
    session.End();
    late(1);
  });
  DestroyWindow();
  late(2);
  EXPECT_EQ(NotingSession::notes, Notes{});
}

}  // namespace
}  // namespace pnl::test
