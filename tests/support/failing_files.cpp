// SPDX-License-Identifier: MIT
#include "support/failing_files.h"

#include <algorithm>

namespace pnl::test {
namespace {

bool IsFor(const Text& told, TextView path) { return told.empty() || EqualNoCase(told, path); }

class BrokenReader final : public FileReader {
 public:
  BrokenReader(std::unique_ptr<FileReader> inner, std::uint64_t good) : inner_(std::move(inner)), good_(good) {}

  std::int64_t Read(char* buffer, std::size_t size) override {
    if (size != 0 && inner_->Position() >= good_) return -1;
    const std::uint64_t left = good_ - std::min(good_, inner_->Position());
    return inner_->Read(buffer, static_cast<std::size_t>(std::min<std::uint64_t>(size, left)));
  }
  bool Seek(std::uint64_t position) override { return inner_->Seek(position); }
  std::uint64_t Position() const override { return inner_->Position(); }
  std::uint64_t Size() const override { return inner_->Size(); }

 private:
  std::unique_ptr<FileReader> inner_;
  std::uint64_t good_;
};

}  // namespace

void FailingFiles::Fail(Call call, TextView path, FileStatus status, int first, int count) {
  failures_.push_back({call, Text(path), status, first - 1, count});
}

void FailingFiles::FailReadsAfter(TextView path, std::uint64_t bytes) { brokenReads_.push_back({Text(path), bytes}); }

void FailingFiles::Heal() {
  failures_.clear();
  brokenReads_.clear();
  away_.clear();
  room_.reset();
}

bool FailingFiles::IsAway(TextView path) const {
  return std::any_of(away_.begin(), away_.end(), [path](const Text& folder) {
    const TextView beginning = path.substr(0, folder.size());
    const bool whole = path.size() <= folder.size() || folder.empty() || path[folder.size()] == u'\\';
    return whole && EqualNoCase(beginning, folder);
  });
}

std::optional<FileStatus> FailingFiles::Due(Call call, TextView path) const {
  if (IsAway(path)) return FileStatus::kOutOfReach;
  std::optional<FileStatus> due;
  for (Failure& failure : failures_) {
    if (failure.call != call || !IsFor(failure.path, path)) continue;
    if (failure.skip > 0) {
      --failure.skip;
    } else if (failure.count > 0) {
      if (failure.count != kForEver) --failure.count;
      if (!due) due = failure.status;
    }
  }
  return due;
}

FileStatus FailingFiles::Record(Call call, TextView path, FileStatus answer) const {
  asked_.push_back({call, Text(path), answer});
  return answer;
}

FileInfo FailingFiles::Query(TextView panelPath) const {
  if (!IsAway(panelPath)) return inner_.Query(panelPath);
  FileInfo unknown;
  unknown.outOfReach = true;
  return unknown;
}

std::unique_ptr<FileReader> FailingFiles::OpenRead(TextView panelPath, FileStatus* status) const {
  FileStatus answer = FileStatus::kOk;
  std::unique_ptr<FileReader> reader;
  if (const auto due = Due(Call::kOpenRead, panelPath)) {
    answer = *due;
  } else {
    reader = inner_.OpenRead(panelPath, &answer);
  }
  if (status != nullptr) *status = answer;
  Record(Call::kOpenRead, panelPath, answer);
  if (!reader) return nullptr;
  for (const BrokenRead& broken : brokenReads_) {
    if (IsFor(broken.path, panelPath)) reader = std::make_unique<BrokenReader>(std::move(reader), broken.bytes);
  }
  return reader;
}

FileStatus FailingFiles::CanReplace(TextView panelPath) const {
  const auto due = Due(Call::kCanReplace, panelPath);
  return Record(Call::kCanReplace, panelPath, due ? *due : inner_.CanReplace(panelPath));
}

FileStatus FailingFiles::Replace(TextView panelPath, std::string_view bytes) {
  if (const auto due = Due(Call::kReplace, panelPath)) return Record(Call::kReplace, panelPath, *due);
  if (room_ && bytes.size() > *room_) return Record(Call::kReplace, panelPath, FileStatus::kDiscFull);
  const FileStatus answer = inner_.Replace(panelPath, bytes);
  if (room_ && answer == FileStatus::kOk) *room_ -= bytes.size();
  return Record(Call::kReplace, panelPath, answer);
}

FileStatus FailingFiles::MakeFolder(TextView panelPath) {
  const auto due = Due(Call::kMakeFolder, panelPath);
  return Record(Call::kMakeFolder, panelPath, due ? *due : inner_.MakeFolder(panelPath));
}

}  // namespace pnl::test
