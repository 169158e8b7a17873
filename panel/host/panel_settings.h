// SPDX-License-Identifier: MIT
// The panel's own settings and the small ini file that keeps them: the language, how wide the screen is, and whether
// the touch keyboard rises by itself. It knows neither widgets nor the command line. A damaged file counts as an empty
// one, a wrong value as missing; lines and keys that aren't the panel's are kept. The format is described in
// docs/formats/pnlpanel-ini.md.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace panel {

/// The settings that are known. An empty language or value isn't known.
struct PanelSettings {
  QString language;                         // "en" or "es"
  std::optional<double> screenMillimetres;  // the width
  std::optional<bool> touchKeyboard;
  bool operator==(const PanelSettings&) const = default;

  [[nodiscard]] bool IsEmpty() const { return *this == PanelSettings(); }
  /// Takes over the settings that are known in newer.
  void Update(const PanelSettings& newer);
};

/// The limits of a screen's width. Any other width counts as unknown.
inline constexpr double kLeastScreenMillimetres = 50;
inline constexpr double kMostScreenMillimetres = 3000;
/// A bigger file counts as damaged.
inline constexpr qint64 kMostSettingsBytes = 64LL * 1024;

/// The settings in the bytes of a file, whatever the bytes are.
[[nodiscard]] PanelSettings ReadSettings(const QByteArray& bytes);
/// The bytes of that file with these settings in it. A setting that isn't known in changed stays as it is in the file.
[[nodiscard]] QByteArray WithSettings(const QByteArray& bytes, const PanelSettings& changed);

/// The settings in a file of this machine. Empty when there is no such file or it can't be read.
[[nodiscard]] PanelSettings LoadSettings(const QString& file);
/// Changes the file, or makes it and its folder. Reads the file again first, because another panel may have changed it,
/// and replaces it whole. Returns false if that fails, or if the file exists and can't be read. The file is then as it
/// was before. Any thread may call it.
[[nodiscard]] bool StoreSettings(const QString& file, const PanelSettings& changed);

}  // namespace panel
