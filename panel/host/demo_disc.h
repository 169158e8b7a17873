// SPDX-License-Identifier: MIT
// The disc of the demo machine: some forty files in nested folders, and one folder of ten thousand.
#pragma once

#include <QString>

namespace panel {

inline constexpr int kSeriesPrograms = 10'000;

/// Makes what is missing of the disc in a folder of this machine: a copy of what is below source, and the folder
/// SERIES. What is there already stays as it is. Returns false when something couldn't be made. May be called on any
/// thread.
bool MakeDemoDisc(const QString& source, const QString& folder);

}  // namespace panel
