// SPDX-License-Identifier: MIT
// Kills a process that saves files, in front of each of its system calls and at random instants, and looks at what it
// left.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <random>
#include <vector>

#include "base/files.h"
#include "base/format.h"
#include "base/ini_file.h"
#include "base/numbers.h"
#include "base/text_file.h"
#include "system_calls.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

constexpr int kKills = 80;
constexpr TextView kIniPath = u"C:\\MDIMAN.INI";
constexpr TextView kTextPath = u"C:\\MDIC1.DAT";

/// A folder for one test, in memory where there is such a place: hundreds of flushes to a disc would only make the test
/// slow.
class Folder {
 public:
  Folder() {
    const fs::path memory = "/dev/shm";
    std::error_code ignored;
    const bool usable = fs::is_directory(memory, ignored) && access(memory.c_str(), W_OK) == 0;
    std::string pattern = ((usable ? memory : fs::temp_directory_path()) / "pnl-kill-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::string Path() const { return path_.string(); }
  [[nodiscard]] int Count() const { return static_cast<int>(std::distance(fs::directory_iterator(path_), {})); }
  /// Files of a replacement that was cut off.
  [[nodiscard]] int CountHidden() const {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(path_)) {
      if (entry.path().filename().string().starts_with(".")) ++count;
    }
    return count;
  }

 private:
  fs::path path_;
};

/// A generation's content: a count, many lines that depend on it, and their sum.
std::vector<std::int32_t> NumbersOf(std::int32_t generation) {
  std::minstd_rand random(static_cast<unsigned>(generation));
  std::vector<std::int32_t> numbers(200 + static_cast<std::size_t>(generation) % 300);
  for (std::int32_t& number : numbers) number = static_cast<std::int32_t>(random() % 1'000'000);
  return numbers;
}

bool SaveIni(Files& files, std::int32_t generation) {
  CIniFile ini(files);
  ini.WriteInt(u"PRIVATE", u"Generation", generation);
  const auto numbers = NumbersOf(generation);
  for (std::size_t i = 0; i < numbers.size(); ++i) ini.WriteInt(u"PRIVATE", Format(u"N%u", i), numbers[i]);
  ini.WriteInt(u"END", u"Count", static_cast<std::int32_t>(numbers.size()));
  return ini.WriteIniFile(kIniPath);
}

bool SaveText(Files& files, std::int32_t generation) {
  CStdioFileEx file(files);
  if (!file.Open(kTextPath, CStdioFileEx::kCreate)) return false;
  file.WriteString(Format(u"%d\r\n", generation));
  for (const std::int32_t number : NumbersOf(generation)) file.WriteString(Format(u"%d\r\n", number));
  file.WriteString(u"end\r\n");
  return file.Close();
}

/// The generation of the whole file that is there; nothing when it is damaged.
std::optional<std::int32_t> LoadIni(Files& files) {
  CIniFile ini(files);
  if (!ini.ReadIniFile(kIniPath)) return std::nullopt;
  const std::int32_t generation = ini.ReadInt(u"PRIVATE", u"Generation", -1);
  const auto numbers = NumbersOf(generation);
  if (ini.ReadInt(u"END", u"Count", -1) != static_cast<std::int32_t>(numbers.size())) return std::nullopt;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (ini.ReadInt(u"PRIVATE", Format(u"N%u", i), -1) != numbers[i]) return std::nullopt;
  }
  return generation;
}

std::optional<std::int32_t> LoadText(Files& files) {
  CStdioFileEx file(files);
  Text line;
  if (!file.Open(kTextPath, CStdioFileEx::kRead) || !file.ReadString(line)) return std::nullopt;
  const std::int32_t generation = ParseIntPrefix(line);
  for (const std::int32_t number : NumbersOf(generation)) {
    if (!file.ReadString(line) || ParseInt(line) != number) return std::nullopt;
  }
  if (!file.ReadString(line) || line != u"end" || file.ReadString(line)) return std::nullopt;
  return generation;
}

/// How long one call takes, in nanoseconds.
template <typename Act>
long DurationOf(Act act) {
  const auto begin = std::chrono::steady_clock::now();
  act();
  return static_cast<long>(std::chrono::nanoseconds(std::chrono::steady_clock::now() - begin).count());
}

/// Saves both files, generation after generation, until it is killed. Tells through the pipe how long one generation
/// takes here and now, once it has saved two: the first also copies the memory that a fork shares.
[[noreturn]] void SaveForEver(Files& files, std::int32_t generation, int ready) {
  const auto save = [&] {
    if (!SaveIni(files, generation) || !SaveText(files, generation)) _exit(3);
    ++generation;
  };
  save();
  const long cycle = DurationOf(save);
  if (write(ready, &cycle, sizeof cycle) != sizeof cycle) _exit(4);
  for (;;) save();
}

/// Kills a writer at the given part of the next two generations that it saves.
void KillWithin(Files& files, std::int32_t generation, double part) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) SaveForEver(files, generation, ready[1]);
  close(ready[1]);
  long cycle = 0;
  EXPECT_EQ(read(ready[0], &cycle, sizeof cycle), static_cast<ssize_t>(sizeof cycle));
  close(ready[0]);
  const timespec moment{0, std::min(static_cast<long>(2 * part * static_cast<double>(cycle)), 999'999'999L)};
  nanosleep(&moment, nullptr);
  kill(child, SIGKILL);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status)) << "the writer gave up with code " << WEXITSTATUS(status);
}

class Kill : public testing::Test {
 protected:
  Kill() { drives.Set('C', folder.Path()); }

  /// The ini file is always the first of the two; neither ever goes back.
  void ExpectWholeFiles(std::int32_t atLeast) {
    const auto ini = LoadIni(files);
    const auto text = LoadText(files);
    ASSERT_TRUE(ini);
    ASSERT_TRUE(text);
    ASSERT_GE(*text, atLeast);
    ASSERT_TRUE(*ini == *text || *ini == *text + 1) << *ini << " and " << *text;
    generation = *text;
    // Repairs nothing: the next writer must cope with what the last one left. A file's next replacement clears up.
    ASSERT_LE(folder.Count(), 4);
  }
  void ExpectCleanedByTheNextSave() {
    ASSERT_TRUE(SaveIni(files, generation));
    ASSERT_TRUE(SaveText(files, generation));
    EXPECT_EQ(folder.Count(), 2);
  }

  const Folder folder;
  DriveMap drives;
  DiscFiles files{drives};
  std::int32_t generation = 0;
};

TEST_F(Kill, BeforeAnySystemCallLeavesTheOldFileOrTheNewOne) {
  ASSERT_TRUE(SaveIni(files, 0));
  ASSERT_TRUE(SaveText(files, 0));
  int cutOff = 0;
  int call = 0;
  for (bool whole = false; !whole && !HasFailure(); ++call) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      test::beforeChange = [left = call]() mutable {
        if (left-- == 0) raise(SIGKILL);
      };
      _exit(SaveIni(files, generation + 1) && SaveText(files, generation + 1) ? 0 : 3);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    whole = WIFEXITED(status);
    EXPECT_TRUE(!whole || WEXITSTATUS(status) == 0) << "the writer gave up with code " << WEXITSTATUS(status);
    ExpectWholeFiles(whole ? generation + 1 : generation);
    cutOff += folder.CountHidden();
  }
  // Both files are created, given their mode, written, flushed, renamed, and their folder flushed.
  EXPECT_GE(call, 12);
  EXPECT_GE(cutOff, 6);
  ExpectCleanedByTheNextSave();
}

TEST_F(Kill, AtAnyInstantLeavesTheOldFileOrTheNewOne) {
  std::mt19937 random(20);
  std::uniform_real_distribution<double> part(0, 1);
  for (int round = 0; round < kKills && !HasFailure(); ++round) {
    KillWithin(files, generation + 1, part(random));
    ExpectWholeFiles(generation + 2);
  }
  ExpectCleanedByTheNextSave();
}

}  // namespace
}  // namespace pnl
