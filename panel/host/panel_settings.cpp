// SPDX-License-Identifier: MIT
#include "host/panel_settings.h"

#include <pnltools/pnltools.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringList>
#include <cmath>
#include <utility>
#include <vector>

namespace panel {
namespace {

constexpr QLatin1String kSection("Panel");
constexpr QLatin1String kLanguage("Language");
constexpr QLatin1String kScreenWidth("ScreenWidth");
constexpr QLatin1String kTouchKeyboard("TouchKeyboard");

/// The lines of a file, without their ends. Bytes that aren't a text have no lines.
QStringList LinesOf(const QByteArray& bytes) {
  if (bytes.size() > kMostSettingsBytes) return {};
  // The decoder removes a byte order mark.
  QStringDecoder decoder(QStringDecoder::Utf8);
  QString text = decoder(bytes);
  if (decoder.hasError() || text.contains(QChar(u'\0'))) return {};
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  QStringList lines = text.split(QLatin1Char('\n'));
  if (lines.last().isEmpty()) lines.removeLast();
  return lines;
}

bool Same(QStringView one, QLatin1String other) { return one.trimmed().compare(other, Qt::CaseInsensitive) == 0; }

/// The name of the section that begins with this line; nothing for any other line.
std::optional<QString> SectionIn(const QString& line) {
  const QString trimmed = line.trimmed();
  if (!trimmed.startsWith(QLatin1Char('[')) || !trimmed.endsWith(QLatin1Char(']'))) return std::nullopt;
  return trimmed.mid(1, trimmed.size() - 2);
}

/// The lines of the panel's section, by place.
std::vector<qsizetype> PanelLines(const QStringList& lines) {
  std::vector<qsizetype> places;
  bool inside = false;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const auto section = SectionIn(lines.at(i));
    if (section) inside = Same(*section, kSection);
    if (!section && inside) places.push_back(i);
  }
  return places;
}

/// The place of the first line with that key, which is the one that counts; -1 without such a line.
qsizetype PlaceOf(const QStringList& lines, QLatin1String key) {
  for (const qsizetype place : PanelLines(lines)) {
    const QString& line = lines.at(place);
    const qsizetype sign = line.indexOf(QLatin1Char('='));
    if (sign > 0 && Same(QStringView(line).left(sign), key)) return place;
  }
  return -1;
}

QString ValueOf(const QStringList& lines, QLatin1String key) {
  const qsizetype place = PlaceOf(lines, key);
  if (place < 0) return {};
  const QString& line = lines.at(place);
  return line.mid(line.indexOf(QLatin1Char('=')) + 1).trimmed();
}

void SetValue(QStringList& lines, QLatin1String key, const QString& value) {
  const QString line = QString(key) + QLatin1Char('=') + value;
  if (const qsizetype place = PlaceOf(lines, key); place >= 0) {
    lines[place] = line;
    return;
  }
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const auto section = SectionIn(lines.at(i));
    if (!section || !Same(*section, kSection)) continue;
    qsizetype end = i + 1;
    while (end < lines.size() && !SectionIn(lines.at(end))) ++end;
    while (lines.at(end - 1).trimmed().isEmpty()) --end;
    lines.insert(end, line);
    return;
  }
  if (!lines.isEmpty()) lines << QString();
  lines << QLatin1Char('[') + QString(kSection) + QLatin1Char(']') << line;
}

/// The bytes of a file: empty when there is none, nothing when it can't be read.
std::optional<QByteArray> BytesOf(const QString& path) {
  const QFileInfo info(path);
  // A link that leads nowhere is no missing file.
  if (!info.exists() && !info.isSymLink()) return QByteArray();
  QFile file(path);
  // Reading a pipe or a device would wait for its writer.
  if (!info.isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  QByteArray bytes = file.read(kMostSettingsBytes + 1);
  if (file.error() != QFileDevice::NoError) return std::nullopt;
  return bytes;
}

}  // namespace

void PanelSettings::Update(const PanelSettings& newer) {
  if (!newer.language.isEmpty()) language = newer.language;
  if (newer.screenMillimetres) screenMillimetres = newer.screenMillimetres;
  if (newer.touchKeyboard) touchKeyboard = newer.touchKeyboard;
}

PanelSettings ReadSettings(const QByteArray& bytes) {
  const QStringList lines = LinesOf(bytes);
  PanelSettings settings;
  const QString language = ValueOf(lines, kLanguage).toLower();
  if (language == QLatin1String("en") || language == QLatin1String("es")) settings.language = language;
  bool isNumber = false;
  const double width = ValueOf(lines, kScreenWidth).toDouble(&isNumber);
  if (isNumber && width >= kLeastScreenMillimetres && width <= kMostScreenMillimetres) {
    settings.screenMillimetres = width;
  }
  const QString touch = ValueOf(lines, kTouchKeyboard);
  if (touch == QLatin1String("0") || touch == QLatin1String("1")) settings.touchKeyboard = touch == QLatin1String("1");
  return settings;
}

QByteArray WithSettings(const QByteArray& bytes, const PanelSettings& changed) {
  QStringList lines = LinesOf(bytes);
  if (!changed.language.isEmpty()) SetValue(lines, kLanguage, changed.language);
  if (changed.screenMillimetres) {
    SetValue(lines, kScreenWidth, QString::number(*changed.screenMillimetres, 'f', 1));
  }
  if (changed.touchKeyboard) SetValue(lines, kTouchKeyboard, QLatin1String(*changed.touchKeyboard ? "1" : "0"));
  return lines.isEmpty() ? QByteArray() : (lines.join(QLatin1String("\r\n")) + QLatin1String("\r\n")).toUtf8();
}

PanelSettings LoadSettings(const QString& file) { return ReadSettings(BytesOf(file).value_or(QByteArray())); }

bool StoreSettings(const QString& file, const PanelSettings& changed) {
  const auto old = BytesOf(file);
  if (!old || !QDir().mkpath(QFileInfo(file).path())) return false;
  const QByteArray bytes = WithSettings(*old, changed);
  // A file that already has these settings isn't written again.
  if (bytes == *old) return true;
  return PnlReplaceFile(QFile::encodeName(file).constData(), bytes.constData(),
                        static_cast<std::size_t>(bytes.size())) == PNL_FILE_DONE;
}

}  // namespace panel
