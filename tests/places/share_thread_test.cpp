// SPDX-License-Identifier: MIT
#include "places/share_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <stdexcept>

#include "places/share_errors.h"
#include "places/share_module.h"
#include "support/fake_share_client.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using std::chrono::milliseconds;
using testing::SizeIs;
using Result = ShareThread::Result;

constexpr milliseconds kLong{60'000};
constexpr milliseconds kShort{30};

TEST(ShareErrors, EachErrnoHasItsMeaning) {
  struct Row {
    int error;
    int nobody;
    int somebody;
  };
  const Row rows[] = {{0, 0, 0},           {EACCES, 1326, 5},      {EPERM, 1326, 5},       {ENOENT, 3, 3},
                      {ENODEV, 3, 3},      {ENOTDIR, 267, 267},    {EEXIST, 183, 183},     {EROFS, 5, 5},
                      {EBUSY, 5, 5},       {ENOSPC, 5, 5},         {ENOMEDIUM, 21, 21},    {EIO, 21, 21},
                      {ETIMEDOUT, 51, 51}, {ECONNREFUSED, 51, 51}, {ECONNABORTED, 51, 51}, {ECONNRESET, 51, 51},
                      {EPIPE, 51, 51},     {EHOSTUNREACH, 51, 51}, {ENETUNREACH, 51, 51},  {EHOSTDOWN, 51, 51},
                      {EINVAL, 51, 51},    {ENOMEM, 51, 51},       {12345, 51, 51}};
  for (const Row& row : rows) {
    EXPECT_EQ(ShareErrorOf(row.error, false), row.nobody) << row.error;
    EXPECT_EQ(ShareErrorOf(row.error, true), row.somebody) << row.error;
  }
}

TEST(ShareUrl, NamesCantMeanAnythingElse) {
  struct Row {
    SharePlace place;
    const char* url;
  };
  const Row rows[] = {
      {{"srv", 0, u"", {}, {}}, "smb://srv/"},
      {{"10.0.0.1", 1445, u"", {}, {}}, "smb://10.0.0.1:1445/"},
      {{"srv", 0, u"x", {}, {}}, "smb://srv/x"},
      {{"srv", 0, u"My Files", {u"ñ", u"a&b;c"}, {}}, "smb://srv/My%20Files/%C3%B1/a%26b%3Bc"},
      {{"srv", 0, u"x", {u"100%", u"a?b#c", u"a:b@c", u"a/b"}, {}}, "smb://srv/x/100%25/a%3Fb%23c/a%3Ab%40c/a%2Fb"},
      {{"srv", 0, u"C$", {u"A-Z_0.9"}, {}}, "smb://srv/C%24/A-Z_0.9"},
      {{"srv", 0, u"az", {u"@[`{", u"/:"}, {}}, "smb://srv/az/%40%5B%60%7B/%2F%3A"},
  };
  for (const Row& row : rows) EXPECT_EQ(ShareUrl(row.place), row.url);
}

class ShareThreadTest : public testing::Test {
 protected:
  ~ShareThreadTest() override { servers->Release(); }

  /// Starts a call on a thread of its own.
  static std::thread CallOn(ShareThread& thread, std::optional<Result>& result) {
    return std::thread([&] { result = thread.Run([](ShareClient& client) { std::ignore = client.Look({}); }); });
  }
  std::shared_ptr<test::FakeServers> servers = std::make_shared<test::FakeServers>();
};

TEST_F(ShareThreadTest, TheClientIsMadeWithTheFirstCallAndAskedOnItsThreadAlone) {
  {
    ShareThread thread(test::ClientOf(servers), kLong);
    EXPECT_EQ(servers->clients, 0);
    std::vector<std::thread> callers;
    std::vector<std::optional<Result>> results(8);
    callers.reserve(results.size());
    for (auto& result : results) callers.push_back(CallOn(thread, result));
    for (std::thread& caller : callers) caller.join();
    for (const auto& result : results) EXPECT_EQ(result, Result::kDone);
    EXPECT_EQ(servers->clients, 1);
    EXPECT_THAT(servers->asked, SizeIs(8));
  }
  // Destroyed there too.
  EXPECT_EQ(servers->clients, 0);
  EXPECT_THAT(servers->threads, SizeIs(1));
  EXPECT_EQ(servers->threads.count(std::this_thread::get_id()), 0U);
}

TEST_F(ShareThreadTest, AThreadThatWasNeverAskedMakesNoClient) {
  const ShareThread thread(test::ClientOf(servers), kLong);
  EXPECT_THAT(servers->threads, SizeIs(0));
}

TEST_F(ShareThreadTest, WithoutAClientNothingIsRunAndItIsNotMadeAgain) {
  int made = 0;
  ShareThread thread(
      [&made]() -> std::unique_ptr<ShareClient> {
        ++made;
        return nullptr;
      },
      kLong);
  bool ran = false;
  EXPECT_EQ(thread.Run([&](ShareClient&) { ran = true; }), Result::kNoClient);
  EXPECT_EQ(thread.Run([&](ShareClient&) { ran = true; }), Result::kNoClient);
  EXPECT_FALSE(ran);
  EXPECT_EQ(made, 1);
}

TEST_F(ShareThreadTest, ACallThatOverrunsIsGivenUp) {
  ShareThread thread(test::ClientOf(servers), kShort);
  servers->Hold();
  std::optional<Result> result;
  CallOn(thread, result).join();
  EXPECT_EQ(result, Result::kOverrun);
}

TEST_F(ShareThreadTest, ThoseBehindACallThatOverrunsAreGivenUpWithItAndNeverRun) {
  ShareThread thread(test::ClientOf(servers), milliseconds(300));
  servers->Hold();
  std::optional<Result> first;
  std::thread hanging = CallOn(thread, first);
  ASSERT_TRUE(servers->AwaitHanging(1));
  std::optional<Result> second;
  std::thread waiting = CallOn(thread, second);
  hanging.join();
  waiting.join();
  EXPECT_EQ(first, Result::kOverrun);
  EXPECT_EQ(second, Result::kOverrun);
  // From now on nobody waits at all.
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(thread.Run([](ShareClient&) {}), Result::kOverrun);
  EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(250));
  servers->Release();
  while (thread.Run([](ShareClient&) {}) == Result::kOverrun) std::this_thread::yield();
  EXPECT_THAT(servers->asked, SizeIs(1));
}

TEST_F(ShareThreadTest, OnceTheThreadIsBackItAnswersAgain) {
  ShareThread thread(test::ClientOf(servers), milliseconds(300));
  servers->Hold();
  std::optional<Result> result;
  CallOn(thread, result).join();
  ASSERT_EQ(result, Result::kOverrun);
  servers->Release();
  // The thread may still be on its way back.
  while (thread.Run([](ShareClient&) {}) == Result::kOverrun) std::this_thread::yield();
  CallOn(thread, result).join();
  EXPECT_EQ(result, Result::kDone);
}

TEST_F(ShareThreadTest, ALateAnswerFindsWhatItNeeds) {
  ShareThread thread(test::ClientOf(servers), kShort);
  servers->Hold();
  const auto answer = std::make_shared<int>(0);
  {
    const std::weak_ptr<int> kept = answer;
    EXPECT_EQ(thread.Run([answer](ShareClient& client) {
      std::ignore = client.Look({});
      *answer = 7;
    }),
              Result::kOverrun);
  }
  servers->Release();
  while (thread.Run([](ShareClient&) {}) == Result::kOverrun) std::this_thread::yield();
  EXPECT_EQ(*answer, 7);
}

TEST_F(ShareThreadTest, TheDestructorDoesntWaitForACallThatHangs) {
  std::optional<Result> result;
  servers->Hold();
  auto thread = std::make_unique<ShareThread>(test::ClientOf(servers), milliseconds(300));
  std::thread caller = CallOn(*thread, result);
  ASSERT_TRUE(servers->AwaitHanging(1));
  thread.reset();
  caller.join();
  EXPECT_EQ(result, Result::kNoClient);
}

TEST_F(ShareThreadTest, WorkThatThrowsHasNoAnswerAndTheThreadGoesOn) {
  ShareThread thread(test::ClientOf(servers), kLong);
  EXPECT_EQ(thread.Run([](ShareClient&) { throw std::runtime_error("no memory"); }), Result::kNoClient);
  EXPECT_EQ(thread.Run([](ShareClient&) {}), Result::kDone);
}

TEST(ShareModule, IsBesideTheLibrary) {
  EXPECT_EQ(ShareModuleBeside("/usr/lib/libpnltools.so.0"), "/usr/lib/pnl-shares.so");
  EXPECT_EQ(ShareModuleBeside("libpnltools.so"), "./pnl-shares.so");
}

TEST(ShareModule, WithoutAModuleThereIsNoClientAndAWordOnStandardError) {
  const test::TempFolder temp;
  temp.Write("text.so", "no module");
  for (const char* name : {"none.so", "text.so", "."}) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(ShareClientFrom((temp.Path() / name).string())(), nullptr) << name;
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::StartsWith("pnltools: no Windows shares: ")) << name;
  }
  // A library that isn't the module.
  testing::internal::CaptureStderr();
  EXPECT_EQ(ShareClientFrom("libm.so.6")(), nullptr);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("another version"));
}

}  // namespace
}  // namespace pnl
