// SPDX-License-Identifier: MIT
#include "host/demo_disc.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace panel {
namespace {

bool CopyFile(const QString& from, const QString& to) {
  if (QFile::exists(to)) return true;
  QFile source(from);
  if (!source.open(QIODevice::ReadOnly)) return false;
  const QByteArray bytes = source.readAll();
  QFile target(to);
  return target.open(QIODevice::WriteOnly | QIODevice::NewOnly) && target.write(bytes) == bytes.size();
}

bool CopyTree(const QString& source, const QString& folder) {
  const QDir from(source);
  QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
  bool whole = QDir().mkpath(folder);
  while (files.hasNext()) {
    const QString path = files.next();
    const QString target = folder + QLatin1Char('/') + from.relativeFilePath(path);
    whole = QDir().mkpath(QFileInfo(target).path()) && CopyFile(path, target) && whole;
  }
  return whole;
}

QString SeriesProgram(int number) { return QStringLiteral("P%1.NC").arg(number, 5, 10, QLatin1Char('0')); }

bool MakeSeries(const QString& folder) {
  // The last one is made last, so the series is whole when it is there.
  if (QFile::exists(folder + QLatin1Char('/') + SeriesProgram(kSeriesPrograms))) return true;
  if (!QDir().mkpath(folder)) return false;
  for (int number = 1; number <= kSeriesPrograms; ++number) {
    QFile program(folder + QLatin1Char('/') + SeriesProgram(number));
    if (program.exists()) continue;
    const QByteArray text = QStringLiteral("(SERIES %1)\r\nG0 X%2 Y%3\r\nM30\r\n")
                                .arg(number)
                                .arg(number % 100)
                                .arg(number / 100)
                                .toLatin1();
    if (!program.open(QIODevice::WriteOnly) || program.write(text) != text.size()) return false;
  }
  return true;
}

}  // namespace

bool MakeDemoDisc(const QString& source, const QString& folder) {
  const bool copied = CopyTree(source, folder);
  return MakeSeries(folder + QStringLiteral("/SERIES")) && copied;
}

}  // namespace panel
