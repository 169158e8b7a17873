// SPDX-License-Identifier: MIT
#include "help/manual/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

#include "base/encoding.h"
#include "base/numbers.h"
#include "help/manual/markup.h"

namespace pnl {
namespace {

constexpr std::size_t kDeclarationBytes = 2048;
constexpr char16_t kReplacement = 0xFFFD;

struct LanguagePage {
  std::uint32_t language;  // the primary language, or a whole id
  int codePage;
};

/// Whole ids whose script differs from that of the primary language.
constexpr LanguagePage kWhole[] = {{0x0404, 950},  {0x0C04, 950},  {0x1404, 950},  {0x0C1A, 1251}, {0x1C1A, 1251},
                                   {0x082C, 1251}, {0x0843, 1251}, {0x201A, 1251}, {0x281A, 1251}, {0x301A, 1251}};

constexpr LanguagePage kPrimary[] = {{0x01, 1256}, {0x02, 1251}, {0x04, 936},  {0x05, 1250}, {0x08, 1253}, {0x0D, 1255},
                                     {0x0E, 1250}, {0x11, 932},  {0x12, 949},  {0x15, 1250}, {0x18, 1250}, {0x19, 1251},
                                     {0x1A, 1250}, {0x1B, 1250}, {0x1C, 1250}, {0x1E, 874},  {0x1F, 1254}, {0x20, 1256},
                                     {0x22, 1251}, {0x23, 1251}, {0x24, 1250}, {0x25, 1257}, {0x26, 1257}, {0x27, 1257},
                                     {0x29, 1256}, {0x2A, 1258}, {0x2C, 1254}, {0x2F, 1251}, {0x3F, 1251}, {0x40, 1251},
                                     {0x43, 1254}, {0x44, 1251}, {0x50, 1251}};

class Converter {
 public:
  explicit Converter(const std::string& charset) : handle_(iconv_open("UTF-16LE", charset.c_str())) {}
  ~Converter() {
    if (*this) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  explicit operator bool() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  [[nodiscard]] Text Convert(std::string_view bytes) const {
    // iconv's signature isn't const, but it writes nothing there.
    char* in = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    std::vector<char16_t> buffer(std::min<std::size_t>(bytes.size() + 16, 16'384));
    Text text;
    while (left > 0) {
      auto* out = reinterpret_cast<char*>(buffer.data());
      std::size_t room = buffer.size() * sizeof(char16_t);
      const std::size_t all = room;
      const std::size_t result = iconv(handle_, &in, &left, &out, &room);
      text.append(buffer.data(), (all - room) / sizeof(char16_t));
      if (result != static_cast<std::size_t>(-1) || errno == E2BIG) continue;
      text.push_back(kReplacement);
      ++in;
      --left;
    }
    return text;
  }

 private:
  iconv_t handle_;
};

Text Latin1(std::string_view bytes) {
  Text text;
  Decode(Encoding::kLatin1, bytes, true, text);
  return text;
}

std::optional<Text> DecodeCharset(std::string_view bytes, const std::string& charset) {
  const Converter converter(charset);
  return converter ? std::optional(converter.Convert(bytes)) : std::nullopt;
}

bool IsCharsetName(TextView name) {
  return !name.empty() && name.size() <= 32 && std::all_of(name.begin(), name.end(), [](char16_t c) {
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'-' || c == u'_';
  });
}

/// The name after "charset=" in a content type.
TextView CharsetIn(TextView contentType) {
  const Text capitals = ToUpper(contentType);
  const std::size_t mark = capitals.find(u"CHARSET=");
  if (mark == Text::npos) return {};
  const TextView rest = contentType.substr(mark + 8);
  return Trim(rest.substr(0, rest.find(u';')));
}

}  // namespace

int CodePageOfLanguage(std::uint32_t language) {
  for (const LanguagePage& row : kWhole) {
    if (row.language == language) return row.codePage;
  }
  for (const LanguagePage& row : kPrimary) {
    if (row.language == (language & 0x3FF)) return row.codePage;
  }
  return kWesternCodePage;
}

Text DecodeCodePage(std::string_view bytes, int codePage) {
  if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
    return Latin1(bytes);
  }
  if (codePage == 65001) return FromUtf8(bytes);
  auto text = DecodeCharset(bytes, "CP" + std::to_string(codePage));
  return text ? std::move(*text) : Latin1(bytes);
}

std::optional<std::string> DeclaredCharset(std::string_view page) {
  const Text start = Latin1(page.substr(0, kDeclarationBytes));
  MarkupReader reader(start);
  while (const auto piece = reader.Next()) {
    if (piece->IsEnd(u"HEAD") || piece->IsStart(u"BODY")) break;
    if (!piece->IsStart(u"META")) continue;
    TextView name = piece->Attribute(u"CHARSET").value_or(TextView());
    if (name.empty()) name = CharsetIn(piece->Attribute(u"CONTENT").value_or(TextView()));
    if (IsCharsetName(name)) return ToUtf8(name);
  }
  return std::nullopt;
}

Text DecodePage(std::string_view bytes, int codePage) {
  if (MarkOf(bytes)) return DecodeFile(bytes);
  if (const auto charset = DeclaredCharset(bytes)) {
    const Text name = ToUpper(FromUtf8(*charset));
    if (name == u"UTF-8" || name == u"UTF8") return FromUtf8(bytes);
    // A page that was read as single bytes up to its declaration can't be in 16-bit units.
    if (!name.starts_with(u"UTF-16") && !name.starts_with(u"UTF-32") && !name.starts_with(u"UCS")) {
      if (auto text = DecodeCharset(bytes, *charset)) return std::move(*text);
    }
  }
  return DecodeCodePage(bytes, codePage);
}

}  // namespace pnl
