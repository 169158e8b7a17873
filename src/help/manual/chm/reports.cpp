// SPDX-License-Identifier: MIT
#include "help/manual/chm/reports.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace pnl::chm {
namespace {

constexpr std::size_t kHeadBytes = 5;  // the report's letter and its length

}  // namespace

bool SendReport(int pipe, Report report, std::string_view bytes) {
  bytes = bytes.substr(0, kLongestReport);
  std::string frame(1, static_cast<char>(report));
  frame.append(NumberBytes(bytes.size()).substr(0, kHeadBytes - 1)).append(bytes);
  std::string_view left = frame;
  while (!left.empty()) {
    const ssize_t written = write(pipe, left.data(), left.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    left.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::optional<ReportFrame> ReportReader::Next() {
  const std::string_view left = std::string_view(waiting_).substr(at_);
  if (broken_ || left.size() < kHeadBytes) return std::nullopt;
  const std::uint64_t size = NumberFrom(left.substr(1, kHeadBytes - 1));
  broken_ = size > kLongestReport;
  if (broken_ || left.size() < kHeadBytes + size) return std::nullopt;
  ReportFrame frame{static_cast<Report>(left[0]), std::string(left.substr(kHeadBytes, size))};
  at_ += kHeadBytes + size;
  if (at_ > kLongestReport) {
    waiting_.erase(0, at_);
    at_ = 0;
  }
  return frame;
}

std::string NumberBytes(std::uint64_t number) {
  std::string bytes;
  for (std::size_t i = 0; i < kNumberBytes; ++i) bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
  return bytes;
}

std::uint64_t NumberFrom(std::string_view bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = std::min(bytes.size(), kNumberBytes); i > 0; --i) {
    number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
  }
  return number;
}

}  // namespace pnl::chm
