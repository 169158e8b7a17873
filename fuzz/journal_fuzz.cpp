// SPDX-License-Identifier: MIT
// Reads any bytes as the panel's journal, and again with the end that makes them whole, so that the entries are reached
// too. What is read must be the same after it was written, and its pieces must be in their base.
#include <QString>

#include "fuzz_check.h"
#include "host/journal_file.h"

namespace {

using panel::JournalContents;

/// Bases longer than this are not made up.
constexpr qint64 kMostBase = 100'000;

void CheckContents(const JournalContents& contents) {
  const QByteArray written = panel::JournalBytes(contents);
  const auto again = panel::ReadJournal(written);
  FUZZ_CHECK(again.has_value());
  FUZZ_CHECK(again->SaysTheSameAs(contents) && again->written == contents.written);
  if (!contents.program || contents.program->baseLength > kMostBase) return;
  const QString base(contents.program->baseLength, u'N');
  qint64 length = 0;
  for (const panel::EditPiece& piece : contents.program->pieces) length += piece.Length();
  // Many pieces may each be the whole base.
  if (length > kMostBase * 10) return;
  const auto text = panel::Compose(base, contents.program->pieces);
  FUZZ_CHECK(text.has_value() && text->size() == length);
}

/// The bytes with the first line and the end of a journal.
QByteArray Completed(const QByteArray& entries) {
  const QByteArray empty = panel::JournalBytes({});
  const QByteArray first = empty.left(empty.indexOf('\n') + 1);
  quint64 hash = 0xcbf29ce484222325u;
  for (const char byte : first + entries) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
  return first + entries + "end " + QByteArray::number(hash, 16).rightJustified(16, '0') + "\n";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  for (const QByteArray& journal : {bytes, Completed(bytes)}) {
    if (const auto contents = panel::ReadJournal(journal)) CheckContents(*contents);
  }
  return 0;
}
