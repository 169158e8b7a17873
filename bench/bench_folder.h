// SPDX-License-Identifier: MIT
// A temporary folder of many files for the benchmarks of the explorer, and the bare walk over it: readdir with fstatat.
// The files have names as machine shops give them, sizes up to 3 MB without content, and dates over ten years.
#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

/// Gone with this object.
class BenchFolder {
 public:
  explicit BenchFolder(int count) {
    char path[] = "/tmp/xplr_bench_XXXXXX";
    if (mkdtemp(path) == nullptr) std::exit(1);
    path_ = path;
    std::mt19937 random(1);
    for (int i = 0; i < count; ++i) Put(i, random);
  }
  ~BenchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  void Put(int number, std::mt19937& random) const {
    static constexpr const char* kWords[] = {"part", "Flange", "O", "housing_left", "TEST"};
    static constexpr const char* kExtensions[] = {".nc", ".NC", ".txt", ".pit", ""};
    char name[64];
    std::snprintf(name, sizeof name, "/%s%06d%s", kWords[random() % 5], number, kExtensions[random() % 5]);
    const int file = open((path_ + name).c_str(), O_CREAT | O_WRONLY, 0644);
    const timespec written[2] = {{}, {static_cast<time_t>(1'450'000'000 + random() % 315'000'000), 0}};
    if (file < 0 || ftruncate(file, random() % 3'000'000) != 0 || futimens(file, written) != 0) std::exit(1);
    close(file);
  }
  std::string path_;
};

/// Calls take(name, status) for each entry of the folder.
template <typename Take>
void Walk(const std::string& path, Take take) {
  DIR* folder = opendir(path.c_str());
  if (folder == nullptr) std::exit(1);
  while (const dirent* entry = readdir(folder)) {
    struct stat status {};
    if (fstatat(dirfd(folder), entry->d_name, &status, 0) == 0) take(entry->d_name, status);
  }
  closedir(folder);
}
