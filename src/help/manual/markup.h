// SPDX-License-Identifier: MIT
// Reads markup piece by piece: tags with their attributes, and the text between them. Takes any text, however broken,
// in time that grows with its length alone, and never fails. Knows no element but those whose content isn't markup.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl {

/// A start tag, an end tag, or the text up to the next tag.
struct MarkupPiece {
  enum class Kind { kText, kStart, kEnd };
  Kind kind = Kind::kText;
  /// The text as it is in the markup, entities included; the name of a tag in capitals. The content of a script or a
  /// style sheet comes as one text.
  Text text;
  /// Names in capitals, values with their entities replaced. Only start tags have attributes; further ones than
  /// kMostAttributes are skipped.
  std::vector<std::pair<Text, Text>> attributes;

  static constexpr std::size_t kMostAttributes = 64;
  /// The value of the first attribute of that name; nothing when there is none.
  [[nodiscard]] std::optional<TextView> Attribute(TextView name) const;
  [[nodiscard]] bool IsStart(TextView name) const { return kind == Kind::kStart && text == name; }
  [[nodiscard]] bool IsEnd(TextView name) const { return kind == Kind::kEnd && text == name; }
};

class MarkupReader {
 public:
  /// The markup must outlive the reader.
  explicit MarkupReader(TextView markup) : markup_(markup) {}
  /// Reads the next piece. Returns nothing at the end. Comments and declarations are skipped; what is cut off at the
  /// end counts as far as it goes, a tag without its end not at all.
  [[nodiscard]] std::optional<MarkupPiece> Next();

 private:
  [[nodiscard]] bool SkipDeclaration();
  [[nodiscard]] bool BeginsTag(std::size_t at) const;
  std::optional<MarkupPiece> ReadTag();
  [[nodiscard]] bool ReadAttribute(MarkupPiece& tag);
  [[nodiscard]] Text ReadValue();
  MarkupPiece ReadText();
  std::optional<MarkupPiece> ReadRaw();
  void SkipSpace();
  [[nodiscard]] bool AtEnd() const { return at_ >= markup_.size(); }

  TextView markup_;
  std::size_t at_ = 0;
  Text raw_;  // the element whose content is read as it is
};

/// The text with its character references replaced: "&amp;", "&#233;", "&#xE9;". What is none stays as it is.
[[nodiscard]] Text ReplaceReferences(TextView text);

}  // namespace pnl
