// SPDX-License-Identifier: MIT
// One file of cutting data as a parsed document. It keeps everything that was in the file: unknown elements,
// attributes, comments, processing instructions and the document type. Entities that a document type declares are never
// expanded: a reference to one is plain text. It knows no records; zmc/store/cutting_nodes.h does.
#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace pnl {

class CuttingDocument {
 public:
  /// Returns null when the bytes aren't one well-formed document with the root element CondicionesCorte.
  [[nodiscard]] static std::unique_ptr<CuttingDocument> Parse(std::string_view bytes);

  [[nodiscard]] pugi::xml_node Root() const { return document_.child("CondicionesCorte"); }
  /// The document in UTF-8, with a declaration and indented. Reading it gives the same document.
  [[nodiscard]] std::string Print();

 private:
  explicit CuttingDocument(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] bool ParseText();
  [[nodiscard]] bool IsOneDocument() const;
  [[nodiscard]] bool IsDeclaredEncodingRead() const;
  void Declare();

  std::string text_;  // the nodes point into it
  pugi::xml_document document_;
};

}  // namespace pnl
