// SPDX-License-Identifier: MIT
#include "host/cutting_data.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace panel {
namespace {

constexpr std::int32_t kCuttingDataPath = 24;
constexpr const char16_t* kFile = u"CondicionesCorte.xml";

QString SourceFile(const QString& source, const QString& language) {
  const QString name = QString::fromUtf16(kFile);
  const QString file = source + QLatin1Char('/') + language + QLatin1Char('/') + name;
  return QFile::exists(file) ? file : source + QStringLiteral("/en/") + name;
}

}  // namespace

bool PlaceCuttingData(pnl::rig::Storage& files, const QString& source, const QString& language) {
  const std::u16string folder = files.Path(kCuttingDataPath);
  if (folder.empty()) return false;
  const auto host = files.HostPath(folder + u"\\" + kFile);
  if (!host) return false;
  const QString target = QFile::decodeName(QByteArray::fromStdString(*host));
  if (QFile::exists(target)) return true;
  QFile data(SourceFile(source, language));
  if (!data.open(QIODevice::ReadOnly)) return false;
  const std::string bytes = data.readAll().toStdString();
  return QDir().mkpath(QFileInfo(target).path()) && files.Replace(*host, bytes);
}

}  // namespace panel
