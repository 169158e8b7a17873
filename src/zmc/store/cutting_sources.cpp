// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_sources.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

namespace pnl {
namespace {

// Of the machine maker and of the user. More are never asked for at a time.
constexpr std::size_t kMostKept = 2;
constexpr std::uint64_t kLargestFile = 1ull << 28;
constexpr std::size_t kPiece = 1 << 16;

CuttingError ReadError(FileStatus status) {
  if (status == FileStatus::kNotFound) return CuttingError::kNotFound;
  return status == FileStatus::kFailed ? CuttingError::kFailed : CuttingError::kOutOfReach;
}

CuttingError WriteError(FileStatus status) {
  switch (status) {
    case FileStatus::kOk:
      return CuttingError::kNone;
    case FileStatus::kNotFound:
    case FileStatus::kOutOfReach:
      return CuttingError::kOutOfReach;
    case FileStatus::kDenied:
    case FileStatus::kIsFolder:
      return CuttingError::kNotWritable;
    case FileStatus::kDiscFull:
      return CuttingError::kDiscFull;
    case FileStatus::kFailed:
      break;
  }
  return CuttingError::kFailed;
}

/// True when the rest of the file is these bytes.
bool ReadsAs(FileReader& reader, std::string_view bytes) {
  if (reader.Size() != bytes.size()) return false;
  std::array<char, kPiece> piece;
  for (;;) {
    const std::int64_t got = reader.Read(piece.data(), piece.size());
    if (got < 0) return false;
    if (got == 0) return bytes.empty();
    const std::string_view read(piece.data(), static_cast<std::size_t>(got));
    if (!bytes.starts_with(read)) return false;
    bytes.remove_prefix(read.size());
  }
}

/// Nothing when the file is too large or reading breaks off.
std::optional<std::string> ReadRest(FileReader& reader) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(std::min(reader.Size(), kLargestFile)));
  std::array<char, kPiece> piece;
  while (bytes.size() <= kLargestFile) {
    const std::int64_t got = reader.Read(piece.data(), piece.size());
    if (got < 0) return std::nullopt;
    if (got == 0) return bytes;
    bytes.append(piece.data(), static_cast<std::size_t>(got));
  }
  return std::nullopt;
}

}  // namespace

std::vector<CuttingSources::Source>::iterator CuttingSources::Find(TextView path) {
  return std::find_if(kept_.begin(), kept_.end(), [&](const Source& each) { return each.path == path; });
}

CuttingResult<CuttingDocument*> CuttingSources::Open(TextView path) {
  FileStatus status = FileStatus::kFailed;
  const auto reader = files_.OpenRead(path, &status);
  if (!reader) return ReadError(status);
  if (const auto kept = Find(path); kept != kept_.end()) {
    if (ReadsAs(*reader, kept->bytes)) return kept->document.get();
    kept_.erase(kept);
    if (!reader->Seek(0)) return CuttingError::kOutOfReach;
  }
  auto bytes = ReadRest(*reader);
  if (!bytes) return CuttingError::kOutOfReach;
  return Keep(path, std::move(*bytes));
}

CuttingResult<CuttingDocument*> CuttingSources::Keep(TextView path, std::string bytes) {
  auto document = CuttingDocument::Parse(bytes);
  if (!document) return CuttingError::kXmlEngine;
  if (kept_.size() == kMostKept) kept_.erase(kept_.begin());
  kept_.push_back({Text(path), std::move(bytes), std::move(document)});
  return kept_.back().document.get();
}

CuttingError CuttingSources::Write(TextView path) {
  const auto source = Find(path);
  if (source == kept_.end()) return CuttingError::kFailed;
  std::string bytes = source->document->Print();
  const CuttingError error = WriteError(files_.Replace(path, bytes));
  if (error == CuttingError::kNone) {
    source->bytes = std::move(bytes);
  } else {
    kept_.erase(source);
  }
  return error;
}

}  // namespace pnl
