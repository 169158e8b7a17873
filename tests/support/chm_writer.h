// SPDX-License-Identifier: MIT
// Writes compiled manuals for tests, above all such as no compiler writes: with any names, lengths and orders. Nothing
// is compressed. Manuals of the compiler's own are in tests/help/manual/data.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pnl::test {

/// An object of the manual.
struct ChmObject {
  std::string name;  // as the manual has it; usually with a slash at its start
  std::uint64_t start = 0;
  std::uint64_t length = 0;
};

class ChmWriter {
 public:
  /// Adds an object with a content of its own.
  ChmWriter& Add(const std::string& name, std::string_view content) {
    objects_.push_back({name, content_.size(), content.size()});
    content_.append(content);
    return *this;
  }
  /// Adds an object with the content of the one that was added last.
  ChmWriter& AddSame(const std::string& name) {
    objects_.push_back({name, objects_.back().start, objects_.back().length});
    return *this;
  }
  /// Adds an object that claims to be somewhere.
  ChmWriter& AddClaim(const ChmObject& object) {
    objects_.push_back(object);
    return *this;
  }
  /// Adds the table in which the manual says what it is.
  ChmWriter& AddSystem(const std::string& title, const std::string& page, const std::string& contents,
                       const std::string& index, std::uint32_t language);
  /// The manual's bytes. The list of objects is in their order; whoever asks for one by name needs the order of their
  /// names, without regard to case.
  [[nodiscard]] std::string Bytes() const;
  /// The same with the objects sorted by name.
  [[nodiscard]] std::string SortedBytes() const;

 private:
  std::vector<ChmObject> objects_;
  std::string content_;
};

}  // namespace pnl::test
