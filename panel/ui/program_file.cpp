// SPDX-License-Identifier: MIT
#include "ui/program_file.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringEncoder>
#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace panel {
namespace {

int MarkBytes(QStringConverter::Encoding encoding) {
  switch (encoding) {
    case QStringConverter::Utf8:
      return 3;
    case QStringConverter::Utf32:
    case QStringConverter::Utf32LE:
    case QStringConverter::Utf32BE:
      return 4;
    default:
      return 2;
  }
}

QString Decode(const QByteArray& bytes, ProgramLayout& layout) {
  if (const auto marked = QStringConverter::encodingForData(bytes)) {
    layout.encoding = *marked;
    layout.markBytes = MarkBytes(*marked);
    QStringDecoder decoder(*marked);
    return decoder(bytes);
  }
  QStringDecoder decoder(QStringConverter::Utf8);
  QString text = decoder(bytes);
  if (!decoder.hasError()) return text;
  layout.encoding = QStringConverter::Latin1;
  return QString::fromLatin1(bytes);
}

/// Ends every line with \n and notes the original ends in layout. Returns false when a line is too long.
bool TakeLines(QString& text, ProgramLayout& layout) {
  const QString whole = std::exchange(text, QString());
  text.reserve(whole.size());
  bool allTwo = true;
  qsizetype begin = 0;
  while (begin < whole.size()) {
    const auto* end =
        std::find_if(whole.begin() + begin, whole.end(), [](QChar c) { return c == u'\n' || c == u'\r'; });
    const qsizetype at = end - whole.begin();
    if (at - begin > kLongestProgramLine) return false;
    text.append(QStringView(whole).mid(begin, at - begin));
    if (at == whole.size()) break;
    const bool two = whole.at(at) == u'\r' && at + 1 < whole.size() && whole.at(at + 1) == u'\n';
    layout.ends.append(two ? '\2' : '\1');
    allTwo = allTwo && two;
    text.append(QLatin1Char('\n'));
    begin = at + (two ? 2 : 1);
  }
  if (allTwo) layout.ends.clear();
  return true;
}

ProgramText Refused(FileOutcome outcome, qint64 bytes = 0) { return {outcome, {}, {}, bytes}; }

/// The whole lines at the beginning of a file; empty when there are none or the bytes are no text.
QString FirstLines(const QByteArray& bytes) {
  ProgramLayout layout;
  QString text = Decode(bytes, layout);
  // A character or a line end may be cut in two at the end.
  text.truncate(text.lastIndexOf(QLatin1Char('\n')) + 1);
  if (text.contains(QChar(u'\0')) || !TakeLines(text, layout)) return {};
  return text;
}

/// Reads at most a program's size, even if the file grows meanwhile, and tells how far it is.
QByteArray ReadBytes(QFile& file, qint64 size, const ReadTell& tell) {
  constexpr qint64 kPiece = qint64{1024} * 1024;
  QByteArray bytes;
  bytes.reserve(size);
  while (bytes.size() < kMostProgramBytes) {
    const qint64 most = bytes.isEmpty() ? kFirstBytes : kPiece;
    const QByteArray piece = file.read(std::min(most, kMostProgramBytes - bytes.size()));
    if (piece.isEmpty()) break;
    const bool first = bytes.isEmpty();
    bytes += piece;
    if (!tell || size <= kFirstBytes) continue;
    const int percent = static_cast<int>(std::min(bytes.size(), size) * 100 / size);
    if (!tell({first ? FirstLines(bytes) : QString(), size, percent})) break;
  }
  return bytes;
}

ProgramText TextOf(const QByteArray& bytes) {
  ProgramText program;
  program.bytes = bytes.size();
  program.text = Decode(bytes, program.layout);
  if (program.text.contains(QChar(u'\0')) || !TakeLines(program.text, program.layout)) {
    return Refused(FileOutcome::kNotAText);
  }
  return program;
}

}  // namespace

qint64 ProgramLayout::BytesOf(QStringView text) const {
  switch (encoding) {
    case QStringConverter::Latin1:
      return text.size();
    case QStringConverter::Utf8:
      return text.toUtf8().size();
    default:
      return QByteArray(QStringEncoder(encoding, QStringConverter::Flag::Stateless)(text)).size();
  }
}

qint64 ProgramLayout::EndBytes(int line) const {
  const qint64 characters = line < ends.size() ? ends.at(line) : 2;
  return characters * BytesOf(QStringView(u"\n"));
}

ProgramText ReadProgram(const QString& path, const ReadTell& tell) {
  QFile file(path);
  // Reading a pipe or a device would wait for its writer.
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return Refused(FileOutcome::kCannotOpen);
  const qint64 size = file.size();
  if (size > kMostProgramBytes) return Refused(FileOutcome::kTooBig, size);
  const QByteArray bytes = ReadBytes(file, size, tell);
  if (file.error() != QFileDevice::NoError) return Refused(FileOutcome::kCannotOpen);
  return TextOf(bytes);
}

ProgramText ReadProgram(const pnl::rig::Rig::FileStart& file) {
  constexpr auto kMost = static_cast<std::size_t>(kMostProgramBytes);
  const std::optional<std::string> bytes = file ? file(kMost + 1) : std::nullopt;
  if (!bytes) return Refused(FileOutcome::kCannotOpen);
  if (bytes->size() > kMost) return Refused(FileOutcome::kTooBig, static_cast<qint64>(bytes->size()));
  return TextOf(QByteArray::fromStdString(*bytes));
}

int LineAt(const ProgramText& program, qint64 position) {
  qint64 end = program.layout.markBytes;
  int line = 0;
  for (qsizetype begin = 0;; ++line) {
    const qsizetype stop = program.text.indexOf(QLatin1Char('\n'), begin);
    if (stop < 0) return line;
    end += program.layout.BytesOf(QStringView(program.text).mid(begin, stop - begin)) + program.layout.EndBytes(line);
    if (position < end) return line;
    begin = stop + 1;
  }
}

FileOutcome WriteProgram(const pnl::rig::Storage& storage, const QString& path, const QString& text) {
  const QFileInfo old(path);
  // Renaming over a read-only file would succeed, but the operator who protected it wants it kept.
  if (path.isEmpty() || (old.exists() && (!old.isFile() || !(old.permissions() & QFileDevice::WriteOwner)))) {
    return FileOutcome::kCannotSave;
  }
  QString lines = text;
  lines.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
  lines.replace(QLatin1String("\n"), QLatin1String("\r\n"));
  const QByteArray bytes = lines.toUtf8();
  const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  return storage.Replace(QFile::encodeName(path).toStdString(), view) ? FileOutcome::kDone : FileOutcome::kCannotSave;
}

}  // namespace panel
