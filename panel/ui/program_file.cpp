// SPDX-License-Identifier: MIT
#include "ui/program_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

namespace panel {
namespace {

QString Decode(const QByteArray& bytes) {
  if (const auto marked = QStringConverter::encodingForData(bytes)) {
    QStringDecoder decoder(*marked);
    return decoder(bytes);
  }
  QStringDecoder decoder(QStringConverter::Utf8);
  QString text = decoder(bytes);
  return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

}  // namespace

ProgramText ReadProgram(const QString& path) {
  ProgramText program;
  QFile file(path);
  // A pipe or a device would make the panel wait for whoever writes to it.
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    program.outcome = FileOutcome::kCannotOpen;
    return program;
  }
  if (file.size() > kMostProgramBytes) {
    program.outcome = FileOutcome::kTooBig;
    return program;
  }
  program.text = Decode(file.read(kMostProgramBytes));
  if (file.error() != QFileDevice::NoError) {
    program.outcome = FileOutcome::kCannotOpen;
  } else if (program.text.contains(QChar(u'\0'))) {
    program.outcome = FileOutcome::kNotAText;
  }
  program.carriageReturns = program.text.contains(QLatin1String("\r\n"));
  program.text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return program;
}

FileOutcome WriteProgram(const QString& path, const QString& text, bool carriageReturns) {
  const QFileInfo old(path);
  // Renaming over a read-only file would work; the operator who protected it wants it kept.
  if (old.exists() && (!old.isFile() || !(old.permissions() & QFileDevice::WriteOwner))) {
    return FileOutcome::kCannotSave;
  }
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return FileOutcome::kCannotSave;
  QString lines = text;
  if (carriageReturns) lines.replace(QLatin1String("\n"), QLatin1String("\r\n"));
  const QByteArray bytes = lines.toUtf8();
  if (file.write(bytes) != bytes.size()) return FileOutcome::kCannotSave;
  return file.commit() ? FileOutcome::kDone : FileOutcome::kCannotSave;
}

}  // namespace panel
