// SPDX-License-Identifier: MIT
// The reader of failing lines against a disc that answers when the test lets it.
#include "errors/threaded_line_reader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "errors/error_words.h"
#include "support/event_wait.h"
#include "support/temp_folder.h"
#include "window/qt/qt_worker.h"

namespace pnl::test {
namespace {

/// What the test and the disc's thread share.
struct Gate {
  std::mutex mutex;
  std::condition_variable changed;
  bool open = false;
  int reads = 0;
  int closed = 0;  // files

  void Open() {
    const std::lock_guard lock(mutex);
    open = true;
    changed.notify_all();
  }
  /// False when nobody has closed so many files after a minute.
  bool WaitForClosed(int files) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, std::chrono::minutes(1), [&] { return closed >= files; });
  }
  int Reads() {
    const std::lock_guard lock(mutex);
    return reads;
  }
};

/// A file whose bytes come when the gate is open.
class GatedReader final : public FileReader {
 public:
  GatedReader(std::unique_ptr<FileReader> file, std::shared_ptr<Gate> gate)
      : file_(std::move(file)), gate_(std::move(gate)) {}
  ~GatedReader() override {
    const std::lock_guard lock(gate_->mutex);
    ++gate_->closed;
    gate_->changed.notify_all();
  }
  std::int64_t Read(char* buffer, std::size_t size) override {
    std::unique_lock lock(gate_->mutex);
    gate_->changed.wait(lock, [this] { return gate_->open; });
    ++gate_->reads;
    return file_->Read(buffer, size);
  }
  bool Seek(std::uint64_t position) override { return file_->Seek(position); }
  std::uint64_t Position() const override { return file_->Position(); }
  std::uint64_t Size() const override { return file_->Size(); }

 private:
  std::unique_ptr<FileReader> file_;
  std::shared_ptr<Gate> gate_;
};

class GatedFiles final : public DiscFiles {
 public:
  GatedFiles(const DriveMap& drives, std::shared_ptr<Gate> gate)
      : DiscFiles(drives), drives_(drives), gate_(std::move(gate)) {}
  std::unique_ptr<FileReader> OpenRead(TextView path, FileStatus* status) const override {
    auto file = DiscFiles::OpenRead(path, status);
    if (!file) return nullptr;
    return std::make_unique<GatedReader>(std::move(file), gate_);
  }
  std::unique_ptr<Files> ForAnotherThread() const override {
    if (!threads) return nullptr;
    return std::make_unique<GatedFiles>(drives_, gate_);
  }

  bool threads = true;

 private:
  const DriveMap& drives_;
  std::shared_ptr<Gate> gate_;
};

class LineReader : public testing::Test {
 protected:
  LineReader() {
    drives.Set('C', folder.Path().string());
    folder.Write("A.NC", "G0 X1\r\nG1 X2 F0\r\n");
  }
  ~LineReader() override { gate->Open(); }
  std::optional<ProgramLines> Read(TextView path, std::int32_t position) {
    return reader.Read({Text(path), position, 0}, {u"N", u"L"},
                       [this](const ProgramLines& lines) { late.push_back(lines); });
  }

  TempFolder folder;
  DriveMap drives;
  std::shared_ptr<Gate> gate = std::make_shared<Gate>();
  GatedFiles files{drives, gate};
  QtWorker worker;
  ThreadedLineReader reader{files, worker};
  std::vector<ProgramLines> late;
};

TEST_F(LineReader, WhatADiscGivesTooLateIsToldOnce) {
  EXPECT_FALSE(Read(u"C:\\A.NC", 7));
  EXPECT_TRUE(late.empty());
  gate->Open();
  ASSERT_TRUE(RunUntil([this] { return !late.empty(); }));
  ASSERT_EQ(late.size(), 1u);
  EXPECT_EQ(late[0].lineNumber, u"\nN 2");
  EXPECT_EQ(late[0].lineText, u"\nL <G>1 X2 F0");
}

// The window is gone or shows another error: a file on a dead share is not read to its end for nobody.
TEST_F(LineReader, DroppingEndsTheReading) {
  std::string program = "\xEF\xBB\xBF";
  while (program.size() < 2'000'000) program += "G1 X2 F0 some more of it\r\n";
  folder.Write("BIG.NC", program);
  EXPECT_FALSE(Read(u"C:\\BIG.NC", 1'999'000));
  reader.Drop();
  gate->Open();
  ASSERT_TRUE(gate->WaitForClosed(1));
  EXPECT_LE(gate->Reads(), 2);
  QCoreApplication::processEvents();
  EXPECT_TRUE(late.empty());
}

TEST_F(LineReader, WhatWasDroppedIsNotToldAlthoughItWasRead) {
  EXPECT_FALSE(Read(u"C:\\A.NC", 7));
  gate->Open();
  ASSERT_TRUE(gate->WaitForClosed(1));
  reader.Drop();
  QCoreApplication::processEvents();
  EXPECT_TRUE(late.empty());
}

TEST_F(LineReader, AnotherReadingTakesThePlaceOfTheFirst) {
  folder.Write("B.NC", "M30\r\n");
  EXPECT_FALSE(Read(u"C:\\A.NC", 7));
  EXPECT_FALSE(Read(u"C:\\B.NC", 0));
  gate->Open();
  ASSERT_TRUE(gate->WaitForClosed(2));
  ASSERT_TRUE(RunUntil([this] { return !late.empty(); }));
  QCoreApplication::processEvents();
  ASSERT_EQ(late.size(), 1u);
  EXPECT_EQ(late[0].lineText, u"\nL <M>30");
}

// Whoever waits until the panel is at rest waits for the lines too.
TEST_F(LineReader, TheWorkerIsBusyUntilLateLinesHaveCome) {
  EXPECT_FALSE(Read(u"C:\\A.NC", 7));
  EXPECT_TRUE(worker.IsBusy());
  gate->Open();
  ASSERT_TRUE(RunUntil([this] { return !worker.IsBusy(); }));
  EXPECT_EQ(late.size(), 1u);
}

TEST_F(LineReader, NobodyWaitsForWhatWasDroppedOrReadAtOnce) {
  EXPECT_FALSE(Read(u"C:\\A.NC", 7));
  reader.Drop();
  EXPECT_FALSE(worker.IsBusy());
  gate->Open();
  EXPECT_TRUE(Read(u"C:\\A.NC", 7));
  EXPECT_FALSE(worker.IsBusy());
  QCoreApplication::processEvents();
  EXPECT_TRUE(late.empty()) << "the lines were the answer already";
}

TEST_F(LineReader, WithoutAThreadTheLinesAreEmptyAndNobodyWaits) {
  QtWorker none([](const std::function<void()>&) { return false; });
  ThreadedLineReader without(files, none);
  const auto lines = without.Read({u"C:\\A.NC", 7, 0}, {u"N", u"L"}, [](const ProgramLines&) { ADD_FAILURE(); });
  ASSERT_TRUE(lines);
  EXPECT_EQ(lines->lineText, u"");
}

TEST_F(LineReader, AWorkerThatWorksAtOnceGivesTheLinesOnce) {
  InlineWorker atOnce;
  ThreadedLineReader inlineReader(files, atOnce);
  gate->Open();
  EXPECT_TRUE(inlineReader.Read({u"C:\\A.NC", 7, 0}, {u"N", u"L"}, [](const ProgramLines&) { ADD_FAILURE(); }));
}

TEST_F(LineReader, FilesOfOneThreadAreReadAtOnce) {
  files.threads = false;
  gate->Open();
  const auto lines = Read(u"C:\\A.NC", 7);
  ASSERT_TRUE(lines);
  EXPECT_EQ(lines->lineText, u"\nL <G>1 X2 F0");
}

}  // namespace
}  // namespace pnl::test
