// SPDX-License-Identifier: MIT
// Kills a process while it updates a pair, hundreds of times: the file is the old one or the new one.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <random>

#include "base/format.h"
#include "base/numbers.h"
#include "cutting_rig.h"

namespace pnl::test {
namespace {

namespace fs = std::filesystem;

constexpr int kKills = 300;
constexpr TextView kPath = u"C:\\CondicionesCorteP.xml";

/// A folder in memory where there is such a place: flushes to a disc would only make the test slow.
class KillFolder {
 public:
  KillFolder() {
    std::error_code ignored;
    const bool usable = fs::is_directory("/dev/shm", ignored) && access("/dev/shm", W_OK) == 0;
    std::string pattern = (fs::path(usable ? "/dev/shm" : fs::temp_directory_path()) / "pnl-cut-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~KillFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  KillFolder(const KillFolder&) = delete;
  KillFolder& operator=(const KillFolder&) = delete;
  [[nodiscard]] const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

constexpr int kMaterials = 100;

Text NameOf(int material) { return Format(u"material %d", material); }

/// Stores one value of a pair.
bool Store(CondicionesCorteParser& store, int material, int value) {
  return store.UpdateCondicionesCorteParam(kPath, Operation(u"Drilling", u"7"), Material(NameOf(material)), 11, value,
                                           {}) == CuttingError::kNone;
}

/// The value that a pair has in the file as another program reads it; -1 when there is none.
int Stored(CondicionesCorteParser& store, int material) {
  const auto block = store.GetCondicionesCorte(kPath, NameOf(material), u"Drilling");
  if (!block.Ok() || !block.Value()) return -1;
  return ParseInt(TextOf(block.Value()->PasadaRadial.Selected)).value_or(-1);
}

/// Stores value after value in one pair, until it is killed. Reports through the pipe when the first is stored and how
/// long one update takes.
[[noreturn]] void StoreForEver(Files& files, int first, int ready) {
  CondicionesCorteParser store(files);
  int value = first;
  if (!Store(store, 50, value++)) _exit(3);
  const auto begin = std::chrono::steady_clock::now();
  if (!Store(store, 50, value++)) _exit(3);
  const long taken = static_cast<long>(std::chrono::nanoseconds(std::chrono::steady_clock::now() - begin).count());
  if (write(ready, &taken, sizeof taken) != sizeof taken) _exit(4);
  while (Store(store, 50, value++)) continue;
  _exit(3);
}

TEST(CuttingKill, AtAnyInstantOfAnUpdateLeavesTheOldFileOrTheNewOne) {
  const KillFolder folder;
  DriveMap drives;
  drives.Set('C', folder.Path().string());
  DiscFiles files(drives);
  ASSERT_EQ(files.Replace(kPath, CuttingFile("")), FileStatus::kOk);
  CondicionesCorteParser writer(files);
  for (int i = 0; i < kMaterials; ++i) ASSERT_TRUE(Store(writer, i, i));
  std::mt19937 random(21);
  std::uniform_real_distribution<double> part(0, 2);
  int value = 1000;
  for (int round = 0; round < kKills && !testing::Test::HasFailure(); ++round) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) StoreForEver(files, value, ready[1]);
    close(ready[1]);
    long taken = 0;
    EXPECT_EQ(read(ready[0], &taken, sizeof taken), static_cast<ssize_t>(sizeof taken));
    close(ready[0]);
    const timespec moment{0, std::min(static_cast<long>(part(random) * static_cast<double>(taken)), 900'000'000L)};
    nanosleep(&moment, nullptr);
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer gave up with code " << WEXITSTATUS(status);
    CondicionesCorteParser reader(files);
    const int stored = Stored(reader, 50);
    ASSERT_GE(stored, value + 1);
    for (int i = 0; i < kMaterials; ++i) ASSERT_EQ(Stored(reader, i), i == 50 ? stored : i);
    // What a cut off update left beside the file is cleared up by the next one.
    ASSERT_LE(std::distance(fs::directory_iterator(folder.Path()), {}), 2);
    value = stored + 1;
  }
  ASSERT_TRUE(Store(writer, 50, value));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace pnl::test
