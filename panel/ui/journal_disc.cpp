// SPDX-License-Identifier: MIT
#include "ui/journal_disc.h"

#include <pnltools/pnltools.h>

#include <QFile>
#include <QStringDecoder>
#include <utility>

#include "ui/program_file.h"

namespace panel {
namespace {

bool Replace(const QString& path, const QByteArray& bytes) {
  const auto size = static_cast<std::size_t>(bytes.size());
  return PnlReplaceFile(QFile::encodeName(path).constData(), bytes.constData(), size) == PNL_FILE_DONE;
}

QString TextOf(const QByteArray& utf8) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  return decoder(utf8);
}

/// The bytes of a file up to a size that no such file exceeds.
std::optional<QByteArray> BytesOf(const QString& path, qint64 most) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > most) return std::nullopt;
  QByteArray bytes = file.read(most);
  if (file.error() != QFileDevice::NoError) return std::nullopt;
  return bytes;
}

std::optional<JournalContents> ContentsOf(const JournalSlot& slot) {
  const auto bytes = BytesOf(slot.Journal(), kMostJournalBytes);
  auto contents = bytes ? ReadJournal(*bytes) : std::nullopt;
  if (!contents || contents->IsEmpty()) return std::nullopt;
  return contents;
}

/// The base of a program, or nothing when it isn't the one to which the pieces belong.
std::optional<QString> BaseOf(const JournalProgram& program, const JournalSlot& slot, const ProgramText& file) {
  // Three bytes for a UTF-16 unit are the most.
  constexpr qint64 kMostCopyBytes = 4 * kMostProgramBytes;
  QString base;
  if (program.base == JournalProgram::Base::kCopy) {
    const auto bytes = BytesOf(slot.Copy(program.copy), kMostCopyBytes);
    if (!bytes) return std::nullopt;
    base = TextOf(*bytes);
  } else if (program.base == JournalProgram::Base::kFile) {
    if (file.outcome != FileOutcome::kDone) return std::nullopt;
    base = file.text;
  } else {
    return base;
  }
  if (base.size() != program.baseLength || HashOf(base) != program.baseHash) return std::nullopt;
  return base;
}

QString TypedPieces(const JournalProgram& program) {
  QStringList typed;
  for (const EditPiece& piece : program.pieces) {
    if (!piece.IsKept()) typed << piece.text;
  }
  return typed.join(QLatin1Char('\n'));
}

}  // namespace

JournalDisc::Written JournalDisc::Write(JournalContents contents, const std::optional<QString>& copy) {
  Written written;
  if (contents.IsEmpty()) {
    Clear();
    written.done = true;
    return written;
  }
  if (!slot_) slot_ = JournalSlot::TakeFree(folder_);
  if (!slot_) return written;
  if (copy && contents.program) {
    const QByteArray bytes = QString(*copy).replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n')).toUtf8();
    if (!Replace(slot_->Copy(contents.program->copy), bytes)) return written;
    // The hash is that of the text as it will be read: what isn't well-formed is replaced on the way.
    contents.program->baseHash = HashOf(TextOf(bytes));
  }
  written.done = Replace(slot_->Journal(), JournalBytes(contents));
  if (!written.done) return written;
  if (copy && contents.program) written.copyHash = contents.program->baseHash;
  for (int number = 0; number < 2; ++number) {
    const bool used =
        contents.program && contents.program->base == JournalProgram::Base::kCopy && contents.program->copy == number;
    if (!used) QFile::remove(slot_->Copy(number));
  }
  return written;
}

void JournalDisc::Clear() {
  if (slot_) slot_->Clear();
  slot_.reset();
}

std::optional<LeftJournal> FindLeftJournal(const QString& folder) {
  LeftJournal left;
  left.slot = JournalSlot::TakeLeft(folder, [&left](const JournalSlot& slot) {
    auto contents = ContentsOf(slot);
    if (!contents) return false;
    left.contents = std::move(*contents);
    return true;
  });
  if (!left.slot) return std::nullopt;
  return left;
}

LeftProgram ProgramOf(const LeftJournal& left, const QString& file) {
  LeftProgram result;
  if (!left.contents.program) return result;
  const JournalProgram& program = *left.contents.program;
  ProgramText stored;
  stored.outcome = FileOutcome::kCannotOpen;
  if (!file.isEmpty()) stored = ReadProgram(file);
  const auto base = BaseOf(program, *left.slot, stored);
  const auto text = base ? Compose(*base, program.pieces) : std::nullopt;
  result.whole = text.has_value();
  result.text = text ? *text : TypedPieces(program);
  result.saved = result.whole && stored.outcome == FileOutcome::kDone && stored.text == result.text;
  return result;
}

}  // namespace panel
