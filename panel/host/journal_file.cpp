// SPDX-License-Identifier: MIT
#include "host/journal_file.h"

#include <QStringDecoder>
#include <array>
#include <limits>

namespace panel {
namespace {

constexpr QByteArrayView kFirstLine = "PNLPANEL JOURNAL 1\n";
constexpr QByteArrayView kEnd = "end ";
constexpr int kHashDigits = 16;
constexpr std::array<const char*, 3> kBases = {"none", "file", "copy"};
constexpr std::array<const char*, 3> kKinds = {"line", "new", "change"};

quint64 HashOfBytes(QByteArrayView bytes) {
  quint64 hash = 0xcbf29ce484222325u;
  for (const char byte : bytes) {
    hash ^= static_cast<unsigned char>(byte);
    hash *= 0x100000001b3u;
  }
  return hash;
}

QByteArray Hex(quint64 hash) { return QByteArray::number(hash, 16).rightJustified(kHashDigits, '0'); }

void Append(QByteArray& bytes, const char* key, const QByteArray& value) {
  bytes += key;
  bytes += ' ' + QByteArray::number(value.size()) + '\n' + value + '\n';
}

void Append(QByteArray& bytes, const char* key, const QString& value) { Append(bytes, key, value.toUtf8()); }

void Append(QByteArray& bytes, const char* key, qint64 value) { Append(bytes, key, QByteArray::number(value)); }

/// Reads the entries of a journal one after the other: "key length", a line feed, the value, a line feed.
class Entries {
 public:
  explicit Entries(QByteArrayView bytes) : left_(bytes) {}

  [[nodiscard]] bool AtEnd() const { return left_.isEmpty(); }
  /// Goes to the next entry. Returns false when what is left isn't one.
  [[nodiscard]] bool Next() {
    const qsizetype line = left_.indexOf('\n');
    const qsizetype blank = left_.indexOf(' ');
    if (line < 0 || blank <= 0 || blank > line) return false;
    const auto length = NumberIn(left_.sliced(blank + 1, line - blank - 1));
    if (!length || *length > left_.size() - line - 2) return false;
    key = left_.first(blank);
    value = left_.sliced(line + 1, *length);
    if (left_.at(line + 1 + *length) != '\n') return false;
    left_ = left_.sliced(line + *length + 2);
    return true;
  }

  /// A number in decimal digits as the writer writes it: no sign, no leading zero, at most 2^53.
  [[nodiscard]] static std::optional<qint64> NumberIn(QByteArrayView digits) {
    constexpr qint64 kMost = qint64{1} << 53;
    bool isNumber = false;
    const qint64 number = digits.toLongLong(&isNumber);
    if (!isNumber || number < 0 || number > kMost || QByteArray::number(number) != digits) return std::nullopt;
    return number;
  }

  QByteArrayView key;
  QByteArrayView value;

 private:
  QByteArrayView left_;
};

std::optional<QString> TextIn(QByteArrayView utf8) {
  // A mark at the start is a character of the text here.
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  QString text = decoder(utf8);
  if (decoder.hasError()) return std::nullopt;
  return text;
}

template <typename Names>
std::optional<int> IndexIn(const Names& names, QByteArrayView name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (name == names[i]) return static_cast<int>(i);
  }
  return std::nullopt;
}

/// Takes the value of one entry. Returns false when it isn't one of that key.
bool TakeText(QByteArrayView value, QString& into) {
  auto text = TextIn(value);
  if (text) into = std::move(*text);
  return text.has_value();
}

bool TakeNumber(QByteArrayView value, qint64& into) {
  const auto number = Entries::NumberIn(value);
  if (number) into = *number;
  return number.has_value();
}

bool TakeHash(QByteArrayView value, quint64& into) {
  bool isHash = false;
  into = value.toByteArray().toULongLong(&isHash, 16);
  return isHash && Hex(into) == value;
}

bool TakePiece(QByteArrayView value, JournalProgram& program, bool kept) {
  EditPiece piece;
  if (kept) {
    const qsizetype blank = value.indexOf(' ');
    if (blank < 0 || !TakeNumber(value.first(blank), piece.from)) return false;
    if (!TakeNumber(value.sliced(blank + 1), piece.length) || piece.length == 0) return false;
    if (piece.length > program.baseLength - piece.from) return false;
  } else if (!TakeText(value, piece.text) || piece.text.isEmpty()) {
    return false;
  }
  program.pieces.push_back(std::move(piece));
  return true;
}

bool TakeProgram(const Entries& entry, std::optional<JournalProgram>& program) {
  if (entry.key == "program") return !program && TakeText(entry.value, program.emplace().path);
  if (!program) return false;
  if (entry.key == "caret") return TakeNumber(entry.value, program->caret);
  if (entry.key == "length") return program->pieces.empty() && TakeNumber(entry.value, program->baseLength);
  if (entry.key == "hash") return TakeHash(entry.value, program->baseHash);
  if (entry.key == "kept" || entry.key == "typed") return TakePiece(entry.value, *program, entry.key == "kept");
  if (entry.key == "base") {
    const auto base = IndexIn(kBases, entry.value);
    if (base) program->base = static_cast<JournalProgram::Base>(*base);
    return base.has_value();
  }
  if (entry.key != "copy" || (entry.value != "0" && entry.value != "1")) return false;
  program->copy = entry.value == "1" ? 1 : 0;
  return true;
}

bool TakeBlock(const Entries& entry, std::optional<JournalBlock>& block) {
  if (entry.key == "block") return !block && TakeText(entry.value, block.emplace().text);
  if (!block) return false;
  if (entry.key == "original") return TakeText(entry.value, block->original);
  if (entry.key == "item") {
    qint64 item = -1;
    if (!TakeNumber(entry.value, item) || item > std::numeric_limits<int>::max()) return false;
    block->item = static_cast<int>(item);
    return true;
  }
  const auto kind = entry.key == "kind" ? IndexIn(kKinds, entry.value) : std::nullopt;
  if (kind) block->kind = static_cast<JournalBlock::Kind>(*kind);
  return kind.has_value();
}

bool TakeEntry(const Entries& entry, JournalContents& contents) {
  if (entry.key == "written") return TakeNumber(entry.value, contents.written);
  if (entry.key == "expression") return TakeText(entry.value, contents.expression);
  for (const char* key : {"block", "kind", "item", "original"}) {
    if (entry.key == key) return TakeBlock(entry, contents.block);
  }
  return TakeProgram(entry, contents.program);
}

/// The entries between the first line and the end. Nothing when one of the two is missing or a byte has changed.
std::optional<QByteArrayView> EntriesIn(QByteArrayView bytes) {
  const qsizetype endSize = kEnd.size() + kHashDigits + 1;
  if (bytes.size() > kMostJournalBytes || bytes.size() < kFirstLine.size() + endSize) return std::nullopt;
  if (!bytes.startsWith(kFirstLine)) return std::nullopt;
  const QByteArrayView body = bytes.chopped(endSize);
  if (bytes.last(endSize) != kEnd.toByteArray() + Hex(HashOfBytes(body)) + '\n') return std::nullopt;
  return body.sliced(kFirstLine.size());
}

}  // namespace

QByteArray JournalBytes(const JournalContents& contents) {
  QByteArray bytes = kFirstLine.toByteArray();
  Append(bytes, "written", contents.written);
  if (const auto& program = contents.program) {
    Append(bytes, "program", program->path);
    Append(bytes, "caret", program->caret);
    Append(bytes, "base", QByteArray(kBases[static_cast<std::size_t>(program->base)]));
    Append(bytes, "copy", qint64{program->copy});
    Append(bytes, "length", program->baseLength);
    Append(bytes, "hash", Hex(program->baseHash));
    for (const EditPiece& piece : program->pieces) {
      if (piece.IsKept()) {
        Append(bytes, "kept", QByteArray::number(piece.from) + ' ' + QByteArray::number(piece.length));
      } else {
        Append(bytes, "typed", piece.text);
      }
    }
  }
  if (const auto& block = contents.block) {
    Append(bytes, "block", block->text);
    Append(bytes, "kind", QByteArray(kKinds[static_cast<std::size_t>(block->kind)]));
    if (block->item >= 0) Append(bytes, "item", qint64{block->item});
    if (!block->original.isEmpty()) Append(bytes, "original", block->original);
  }
  if (!contents.expression.isEmpty()) Append(bytes, "expression", contents.expression);
  return bytes + kEnd.toByteArray() + Hex(HashOfBytes(bytes)) + '\n';
}

std::optional<JournalContents> ReadJournal(const QByteArray& bytes) {
  const auto body = EntriesIn(bytes);
  if (!body) return std::nullopt;
  JournalContents contents;
  Entries entries(*body);
  while (!entries.AtEnd()) {
    if (!entries.Next() || !TakeEntry(entries, contents)) return std::nullopt;
  }
  if (contents.program && contents.program->base == JournalProgram::Base::kNone && contents.program->baseLength != 0) {
    return std::nullopt;
  }
  return contents;
}

}  // namespace panel
