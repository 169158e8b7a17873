// SPDX-License-Identifier: MIT
#include "places/credentials_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <future>
#include <optional>
#include <string>

namespace pnl {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SharedCredentials Someone() { return std::make_shared<const Credentials>(u"ana", u"HALL", u"secret"); }

/// The test is the window's thread: it runs the steps that come.
class CredentialsDeskTest : public testing::Test {
 protected:
  ~CredentialsDeskTest() override { desk->Close(); }

  static void Ask(void* context, std::uint32_t request, const char16_t* server, int again) {
    auto& test = *static_cast<CredentialsDeskTest*>(context);
    test.asked.push_back(ToUtf8(server) + (again != 0 ? " again" : ""));
    test.request = request;
    if (test.answerAtOnce) test.desk->Answer(request, Someone());
  }
  /// Asks on another thread.
  std::future<SharedCredentials> AskBeside(TextView server, bool again = false) {
    return std::async(std::launch::async, [this, server = Text(server), again] { return desk->Ask(server, again); });
  }
  /// Waits for a step and runs it. Returns false when none comes.
  bool RunStep() {
    std::function<void()> step;
    {
      std::unique_lock lock(mutex);
      if (!came.wait_for(lock, std::chrono::seconds(60), [&] { return !steps.empty(); })) return false;
      step = std::move(steps.front());
      steps.pop_front();
    }
    step();
    return true;
  }

  std::mutex mutex;
  std::condition_variable came;
  std::deque<std::function<void()>> steps;
  std::vector<std::string> asked;
  std::uint32_t request = 0;
  bool answerAtOnce = false;
  std::shared_ptr<CredentialsDesk> desk = std::make_shared<CredentialsDesk>([this](std::function<void()> step) {
    const std::lock_guard lock(mutex);
    steps.push_back(std::move(step));
    came.notify_all();
  });
};

TEST_F(CredentialsDeskTest, WithoutAHostAQuestionIsRefusedAtOnce) {
  EXPECT_EQ(desk->Ask(u"SRV", false), nullptr);
  EXPECT_THAT(steps, IsEmpty());
}

TEST_F(CredentialsDeskTest, TheHostIsAskedOnTheWindowsThreadAndTheAnswerComesBack) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto answer = AskBeside(u"SRV", true);
  ASSERT_TRUE(RunStep());
  EXPECT_THAT(asked, ElementsAre("SRV again"));
  desk->Answer(request, Someone());
  const SharedCredentials got = answer.get();
  ASSERT_NE(got, nullptr);
  EXPECT_EQ(got->user, u"ana");
  EXPECT_EQ(got->domain, u"HALL");
  EXPECT_EQ(got->password, u"secret");
}

TEST_F(CredentialsDeskTest, AHostMayAnswerAtOnce) {
  answerAtOnce = true;
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto answer = AskBeside(u"SRV");
  ASSERT_TRUE(RunStep());
  EXPECT_NE(answer.get(), nullptr);
}

TEST_F(CredentialsDeskTest, AnOperatorWhoRefusesAnswersNothing) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto answer = AskBeside(u"SRV");
  ASSERT_TRUE(RunStep());
  desk->Answer(request, nullptr);
  EXPECT_EQ(answer.get(), nullptr);
}

TEST_F(CredentialsDeskTest, ItIsAskingFromTheHostsCallToTheAnswer) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  EXPECT_FALSE(desk->IsAsking());
  auto answer = AskBeside(u"SRV");
  {
    std::unique_lock lock(mutex);
    ASSERT_TRUE(came.wait_for(lock, std::chrono::seconds(60), [&] { return !steps.empty(); }));
  }
  // The host knows nothing of it yet.
  EXPECT_FALSE(desk->IsAsking());
  ASSERT_TRUE(RunStep());
  EXPECT_TRUE(desk->IsAsking());
  desk->Answer(request, nullptr);
  EXPECT_FALSE(desk->IsAsking());
  answer.wait();
}

TEST_F(CredentialsDeskTest, AnAnswerToAnotherQuestionHasNoEffect) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto answer = AskBeside(u"SRV");
  ASSERT_TRUE(RunStep());
  desk->Answer(request + 1, Someone());
  desk->Answer(0, Someone());
  EXPECT_TRUE(desk->IsAsking());
  desk->Answer(request, nullptr);
  // The first answer counts.
  desk->Answer(request, Someone());
  EXPECT_EQ(answer.get(), nullptr);
}

TEST_F(CredentialsDeskTest, TwoServersAreAskedAboutAtTheSameTime) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto first = AskBeside(u"A");
  ASSERT_TRUE(RunStep());
  const std::uint32_t one = request;
  auto second = AskBeside(u"B");
  ASSERT_TRUE(RunStep());
  desk->Answer(request, Someone());
  EXPECT_NE(second.get(), nullptr);
  desk->Answer(one, nullptr);
  EXPECT_EQ(first.get(), nullptr);
}

TEST_F(CredentialsDeskTest, AHostThatGoesRefusesItsQuestions) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto shown = AskBeside(u"A");
  ASSERT_TRUE(RunStep());
  auto onItsWay = AskBeside(u"B");
  {
    std::unique_lock lock(mutex);
    ASSERT_TRUE(came.wait_for(lock, std::chrono::seconds(60), [&] { return !steps.empty(); }));
  }
  desk->SetHost(nullptr, nullptr);
  EXPECT_EQ(shown.get(), nullptr);
  EXPECT_EQ(onItsWay.get(), nullptr);
  ASSERT_TRUE(RunStep());
  EXPECT_THAT(asked, ElementsAre("A"));
}

TEST_F(CredentialsDeskTest, ClosingRefusesAllAndNobodyIsAskedAfterwards) {
  desk->SetHost(&CredentialsDeskTest::Ask, this);
  auto answer = AskBeside(u"A");
  ASSERT_TRUE(RunStep());
  desk->Close();
  EXPECT_EQ(answer.get(), nullptr);
  EXPECT_EQ(desk->Ask(u"B", false), nullptr);
  EXPECT_THAT(steps, IsEmpty());
}

}  // namespace
}  // namespace pnl
