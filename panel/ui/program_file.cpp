// SPDX-License-Identifier: MIT
#include "ui/program_file.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringEncoder>
#include <algorithm>
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

ProgramText Refused(FileOutcome outcome) { return {outcome, {}, {}}; }

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

ProgramText ReadProgram(const QString& path) {
  QFile file(path);
  // Reading a pipe or a device would wait for its writer.
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return Refused(FileOutcome::kCannotOpen);
  if (file.size() > kMostProgramBytes) return Refused(FileOutcome::kTooBig);
  ProgramText program;
  program.text = Decode(file.read(kMostProgramBytes), program.layout);
  if (file.error() != QFileDevice::NoError) return Refused(FileOutcome::kCannotOpen);
  if (program.text.contains(QChar(u'\0')) || !TakeLines(program.text, program.layout)) {
    return Refused(FileOutcome::kNotAText);
  }
  return program;
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
