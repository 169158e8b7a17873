// SPDX-License-Identifier: MIT
#include "support/chm_writer.h"

#include <strings.h>

#include <algorithm>

namespace pnl::test {
namespace {

constexpr std::size_t kChunkBytes = 4096;
constexpr std::size_t kHeadBytes = 0x60;
constexpr std::size_t kFileSizeBytes = 0x18;
constexpr std::size_t kDirectoryHeadBytes = 0x54;
constexpr std::size_t kListHeadBytes = 20;
constexpr std::size_t kIndexHeadBytes = 8;
constexpr std::size_t kCountBytes = 2;  // at the end of a chunk

template <typename Number>
void Put(std::string& out, Number value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i) & 0xFF));
}

/// A number in groups of seven bits, the highest first.
void PutPacked(std::string& out, std::uint64_t value) {
  std::string bytes(1, static_cast<char>(value & 0x7F));
  while ((value >>= 7) != 0) bytes.insert(bytes.begin(), static_cast<char>((value & 0x7F) | 0x80));
  out += bytes;
}

/// Chunks of entries, each of which has its count at its end.
class Chunks {
 public:
  explicit Chunks(std::size_t headBytes) : room_(kChunkBytes - headBytes - kCountBytes) {}

  void Add(const std::string& entry, const std::string& name) {
    if (entries_.empty() || entries_.back().size() + entry.size() > room_) {
      entries_.emplace_back();
      counts_.push_back(0);
      firstNames_.push_back(name);
    }
    entries_.back() += entry;
    ++counts_.back();
  }
  [[nodiscard]] std::size_t Count() const { return entries_.size(); }
  [[nodiscard]] const std::string& FirstName(std::size_t chunk) const { return firstNames_[chunk]; }
  [[nodiscard]] std::uint32_t Free(std::size_t chunk) const {
    return static_cast<std::uint32_t>(room_ + kCountBytes - entries_[chunk].size());
  }
  [[nodiscard]] std::string Finish(std::string head, std::size_t chunk) const {
    head += entries_[chunk];
    head.resize(kChunkBytes - kCountBytes);
    Put(head, counts_[chunk], kCountBytes);
    return head;
  }

 private:
  std::size_t room_;
  std::vector<std::string> entries_;
  std::vector<int> counts_;
  std::vector<std::string> firstNames_;
};

std::string ListChunk(const Chunks& lists, std::size_t number) {
  std::string head = "PMGL";
  Put(head, lists.Free(number), 4);
  Put(head, 0, 4);
  Put(head, static_cast<std::int64_t>(number) - 1, 4);
  Put(head, number + 1 < lists.Count() ? static_cast<std::int64_t>(number) + 1 : -1, 4);
  return lists.Finish(head, number);
}

std::string IndexChunk(const Chunks& index, std::size_t number) {
  std::string head = "PMGI";
  Put(head, index.Free(number), 4);
  return index.Finish(head, number);
}

/// The levels of index chunks above the lists, the lowest first. The last one has a single chunk.
std::string IndexChunks(const Chunks& lists, int& depth, std::int64_t& root) {
  std::string bytes;
  const Chunks* below = &lists;
  std::vector<Chunks> levels;
  levels.reserve(8);
  std::size_t first = 0;
  std::size_t next = lists.Count();
  depth = 1;
  root = -1;
  while (below->Count() > 1) {
    levels.emplace_back(kIndexHeadBytes);
    for (std::size_t i = 0; i < below->Count(); ++i) {
      std::string entry;
      PutPacked(entry, below->FirstName(i).size());
      entry += below->FirstName(i);
      PutPacked(entry, first + i);
      levels.back().Add(entry, below->FirstName(i));
    }
    first = next;
    for (std::size_t i = 0; i < levels.back().Count(); ++i) bytes += IndexChunk(levels.back(), i);
    next += levels.back().Count();
    below = &levels.back();
    ++depth;
    root = static_cast<std::int64_t>(next) - 1;
  }
  return bytes;
}

std::string Directory(const std::vector<ChmObject>& objects) {
  Chunks lists(kListHeadBytes);
  for (const ChmObject& object : objects) {
    std::string entry;
    PutPacked(entry, object.name.size());
    entry += object.name;
    PutPacked(entry, 0);
    PutPacked(entry, object.start);
    PutPacked(entry, object.length);
    lists.Add(entry, object.name);
  }
  int depth = 1;
  std::int64_t root = -1;
  const std::string index = IndexChunks(lists, depth, root);
  std::string out = "ITSP";
  Put(out, 1, 4);
  Put(out, kDirectoryHeadBytes, 4);
  Put(out, 10, 4);
  Put(out, kChunkBytes, 4);
  Put(out, 2, 4);
  Put(out, depth, 4);
  Put(out, root, 4);
  Put(out, 0, 4);
  Put(out, lists.Count() - 1, 4);
  Put(out, -1, 4);
  Put(out, lists.Count() + index.size() / kChunkBytes, 4);
  Put(out, 0x409, 4);
  out += "\x6A\x92\x02\x5D\x2E\x21\xD0\x11\x9D\xF9";
  out.append("\x00\xA0\xC9\x22\xE6\xEC", 6);
  Put(out, kDirectoryHeadBytes, 4);
  for (int i = 0; i < 3; ++i) Put(out, -1, 4);
  for (std::size_t i = 0; i < lists.Count(); ++i) out += ListChunk(lists, i);
  return out + index;
}

void PutText(std::string& out, int code, const std::string& text) {
  Put(out, code, 2);
  Put(out, text.size() + 1, 2);
  out += text;
  out.push_back('\0');
}

}  // namespace

ChmWriter& ChmWriter::AddSystem(const std::string& title, const std::string& page, const std::string& contents,
                                const std::string& index, std::uint32_t language) {
  std::string table;
  Put(table, 3, 4);
  PutText(table, 0, contents);
  PutText(table, 1, index);
  PutText(table, 2, page);
  PutText(table, 3, title);
  Put(table, 4, 2);
  Put(table, 0x24, 2);
  Put(table, language, 4);
  table.resize(table.size() + 0x20);
  return Add("/#SYSTEM", table);
}

std::string ChmWriter::Bytes() const {
  const std::string directory = Directory(objects_);
  const std::size_t content = kHeadBytes + kFileSizeBytes + directory.size();
  std::string out = "ITSF";
  Put(out, 3, 4);
  Put(out, kHeadBytes, 4);
  Put(out, 1, 4);
  Put(out, 0, 4);
  Put(out, 0x409, 4);
  for (const char first : {'\x10', '\x11'}) {
    out.push_back(first);
    out.append("\xFD\x01\x7C\xAA\x7B\xD0\x11\x9E\x0C", 9);
    out.append("\x00\xA0\xC9\x22\xE6\xEC", 6);
  }
  Put(out, kHeadBytes, 8);
  Put(out, kFileSizeBytes, 8);
  Put(out, kHeadBytes + kFileSizeBytes, 8);
  Put(out, directory.size(), 8);
  Put(out, content, 8);
  Put(out, 0x1FE, 4);
  Put(out, 0, 4);
  Put(out, content + content_.size(), 8);
  Put(out, 0, 8);
  return out + directory + content_;
}

std::string ChmWriter::SortedBytes() const {
  ChmWriter sorted = *this;
  std::stable_sort(sorted.objects_.begin(), sorted.objects_.end(), [](const ChmObject& a, const ChmObject& b) {
    return strcasecmp(a.name.c_str(), b.name.c_str()) < 0;
  });
  return sorted.Bytes();
}

}  // namespace pnl::test
