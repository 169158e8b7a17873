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

/// What is known; an empty language and the empty values are not.
struct PanelSettings {
  QString language;                         // "en" or "es"
  std::optional<double> screenMillimetres;  // the width
  std::optional<bool> touchKeyboard;
  bool operator==(const PanelSettings&) const = default;

  [[nodiscard]] bool IsEmpty() const { return *this == PanelSettings(); }
  /// Takes over what is known in the other one.
  void Update(const PanelSettings& newer);
};

/// A screen is between these wide.
inline constexpr double kLeastScreenMillimetres = 50;
inline constexpr double kMostScreenMillimetres = 3000;
/// A bigger file isn't one of settings.
inline constexpr qint64 kMostSettingsBytes = 64LL * 1024;

/// The settings in the bytes of a file, whatever the bytes are.
[[nodiscard]] PanelSettings ReadSettings(const QByteArray& bytes);
/// The bytes of that file with these settings in it. What isn't known in changed stays as it is in the file.
[[nodiscard]] QByteArray WithSettings(const QByteArray& bytes, const PanelSettings& changed);

/// The settings in a file of this machine. Empty when there is no such file or it can't be read.
[[nodiscard]] PanelSettings LoadSettings(const QString& file);
/// Changes the file, or makes it and its folder. It is read again first, because another panel may have changed it, and
/// replaced whole. Returns false when that fails, or when it is there and can't be read; it stays as it was then. Any
/// thread may call it.
[[nodiscard]] bool StoreSettings(const QString& file, const PanelSettings& changed);

}  // namespace panel
