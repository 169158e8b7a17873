// SPDX-License-Identifier: MIT
#include "help/manual/chm/reports.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "help/manual/chm/queue.h"

namespace pnl::chm {
namespace {

/// The bytes of reports as they come out of the pipe.
class Pipe {
 public:
  Pipe() { EXPECT_EQ(pipe(ends_.data()), 0); }
  ~Pipe() {
    close(ends_[0]);
    close(ends_[1]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  [[nodiscard]] int Writing() const { return ends_[1]; }
  [[nodiscard]] std::string Read() const {
    std::string bytes(200'000, '\0');
    bytes.resize(static_cast<std::size_t>(read(ends_[0], bytes.data(), bytes.size())));
    return bytes;
  }

 private:
  std::array<int, 2> ends_{};
};

TEST(Reports, ComeOutAsTheyWentInWhereverTheyAreCut) {
  const Pipe pipe;
  ASSERT_TRUE(SendReport(pipe.Writing(), Report::kOpened));
  ASSERT_TRUE(SendReport(pipe.Writing(), Report::kQueued, "/a.htm"));
  ASSERT_TRUE(SendReport(pipe.Writing(), Report::kUnpacked, NumberBytes(5) + "a.htm"));
  const std::string bytes = pipe.Read();
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    ReportReader reader;
    std::string seen;
    for (const std::string& piece : {bytes.substr(0, cut), bytes.substr(cut)}) {
      reader.Add(piece);
      while (const auto frame = reader.Next()) seen += static_cast<char>(frame->report) + frame->bytes + "|";
    }
    EXPECT_EQ(seen, "o|q/a.htm|u" + NumberBytes(5) + "a.htm|") << cut;
    EXPECT_FALSE(reader.IsBroken());
  }
}

TEST(Reports, OneThatClaimsToBeTooLongEndsTheReading) {
  ReportReader reader;
  reader.Add("q" + NumberBytes(kLongestReport + 1).substr(0, 4) + std::string(kLongestReport + 100, 'x'));
  EXPECT_FALSE(reader.Next().has_value());
  EXPECT_TRUE(reader.IsBroken());
}

TEST(Reports, ALongOneIsCut) {
  ReportReader reader;
  const Pipe pipe;
  // The pipe takes less than this at once, so it is read meanwhile.
  const pid_t pid = fork();
  if (pid == 0) _exit(SendReport(pipe.Writing(), Report::kSystem, std::string(100'000, 'x')) ? 0 : 1);
  std::optional<ReportFrame> frame;
  while (!(frame = reader.Next())) reader.Add(pipe.Read());
  EXPECT_EQ(frame->bytes.size(), kLongestReport);
  int status = 0;
  EXPECT_EQ(waitpid(pid, &status, 0), pid);
  EXPECT_EQ(status, 0);
}

TEST(Reports, NumbersAreReadAsFarAsTheyGo) {
  for (const std::uint64_t number : {0ull, 1ull, 256ull, 0x123456789ABCDEF0ull, ~0ull}) {
    EXPECT_EQ(NumberFrom(NumberBytes(number)), number);
  }
  EXPECT_EQ(NumberFrom("\x01\x02"), 0x201u);
  EXPECT_EQ(NumberFrom(""), 0u);
}

TEST(ObjectQueue, TakesEachObjectOnceInWhateverCase) {
  ObjectQueue queue;
  EXPECT_TRUE(queue.IsEmpty());
  EXPECT_TRUE(queue.Add("/b.htm"));
  EXPECT_TRUE(queue.Add("/\xC3\xB1.htm"));
  EXPECT_FALSE(queue.Add("/B.HTM"));
  EXPECT_FALSE(queue.Add("/\xC3\x91.htm"));
  EXPECT_EQ(queue.Take(), "/b.htm");
  EXPECT_FALSE(queue.Add("/b.htm"));
  EXPECT_EQ(queue.Take(), "/\xC3\xB1.htm");
  EXPECT_TRUE(queue.IsEmpty());
}

}  // namespace
}  // namespace pnl::chm
