// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_document.h"

#include <algorithm>
#include <array>

#include "zmc/store/cutting_text.h"

namespace pnl {
namespace {

// White space alone is text where an element contains nothing else: a remark may be one blank. Elsewhere it is
// indentation. Text outside the root is kept only to be seen.
constexpr unsigned kParse = (pugi::parse_full | pugi::parse_ws_pcdata_single | pugi::parse_fragment) & ~pugi::parse_eol;

// Deeper documents aren't indented: the indentation would grow with the square of the depth.
constexpr int kDeepestIndented = 64;

constexpr std::string_view kBlanks = " \t\r\n";

bool IsBlank(std::string_view text) { return text.find_first_not_of(kBlanks) == std::string_view::npos; }

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool EqualAsciiNoCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

/// Collects what is printed. The printer writes a carriage return in a text as it is, and a reader would take it for a
/// line end. None comes from elsewhere: parsing leaves them only where a reference was.
class Collector final : public pugi::xml_writer {
 public:
  explicit Collector(std::string& text) : text_(text) {}
  void write(const void* data, std::size_t size) override {
    std::string_view piece(static_cast<const char*>(data), size);
    for (std::size_t at = piece.find('\r'); at != std::string_view::npos; at = piece.find('\r')) {
      text_.append(piece.substr(0, at)).append("&#13;");
      piece.remove_prefix(at + 1);
    }
    text_.append(piece);
  }

 private:
  std::string& text_;
};

/// True when nothing lies deeper below the node than that. The walk ends where it gets too deep.
bool IsShallow(pugi::xml_node top, int limit) {
  int depth = 0;
  pugi::xml_node at = top;
  for (;;) {
    if (const pugi::xml_node child = at.first_child()) {
      if (++depth > limit) return false;
      at = child;
      continue;
    }
    while (at != top && !at.next_sibling()) {
      at = at.parent();
      --depth;
    }
    if (at == top) return true;
    at = at.next_sibling();
  }
}

}  // namespace

std::unique_ptr<CuttingDocument> CuttingDocument::Parse(std::string_view bytes) {
  auto text = DecodeCuttingData(bytes);
  if (!text) return nullptr;
  std::unique_ptr<CuttingDocument> parsed(new CuttingDocument(std::move(*text)));
  if (!parsed->ParseText()) return nullptr;
  // ASCII means the same in every encoding that a file may declare. The parser has changed the text, so look again.
  if (!parsed->IsDeclaredEncodingRead() && !IsAscii(DecodeCuttingData(bytes).value_or(""))) return nullptr;
  return parsed;
}

bool CuttingDocument::ParseText() {
  // The parser passes over text after the last tag.
  const std::size_t end = text_.find_last_not_of(kBlanks);
  if (end == std::string::npos || text_[end] != '>') return false;
  const pugi::xml_parse_result result =
      document_.load_buffer_inplace(text_.data(), text_.size(), kParse, pugi::encoding_utf8);
  return result && IsOneDocument();
}

bool CuttingDocument::IsOneDocument() const {
  int elements = 0;
  for (const pugi::xml_node node : document_) {
    if (node.type() == pugi::node_element) ++elements;
    if (node.type() == pugi::node_cdata) return false;
    if (node.type() == pugi::node_pcdata && !IsBlank(node.value())) return false;
  }
  return elements == 1 && Root();
}

bool CuttingDocument::IsDeclaredEncodingRead() const {
  constexpr std::array<std::string_view, 4> kRead = {"UTF-8", "UTF8", "UTF-16", "UTF-16LE"};
  const pugi::xml_node first = document_.first_child();
  const std::string_view name = first.type() == pugi::node_declaration ? first.attribute("encoding").value() : "";
  return name.empty() ||
         std::any_of(kRead.begin(), kRead.end(), [&](std::string_view each) { return EqualAsciiNoCase(each, name); });
}

void CuttingDocument::Declare() {
  pugi::xml_node first = document_.first_child();
  if (first.type() != pugi::node_declaration) {
    first = document_.prepend_child(pugi::node_declaration);
    first.append_attribute("version").set_value("1.0");
  }
  pugi::xml_attribute encoding = first.attribute("encoding");
  if (!encoding) encoding = first.insert_attribute_after("encoding", first.attribute("version"));
  if (!encoding) encoding = first.append_attribute("encoding");
  encoding.set_value("UTF-8");
}

std::string CuttingDocument::Print() {
  Declare();
  std::string text;
  text.reserve(text_.size() + text_.size() / 8 + 256);
  Collector collector(text);
  const unsigned format = IsShallow(document_, kDeepestIndented) ? pugi::format_indent : pugi::format_raw;
  document_.save(collector, "\t", format, pugi::encoding_utf8);
  return text;
}

}  // namespace pnl
