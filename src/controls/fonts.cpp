// SPDX-License-Identifier: MIT
#include "controls/fonts.h"

#include <QtWidgets/QApplication>
#include <algorithm>

namespace pnl {
namespace {

constexpr int kLongestFace = 31;
constexpr int kTallest = 4000;
constexpr int kHeaviest = 1000;
constexpr int kNormalWeight = 400;

/// Fonts are measured at this size, so that rounding hardly matters: a font's proportions hardly depend on its size.
constexpr int kMeasureSize = 1000;

/// The largest pixel size whose line isn't higher than the cell.
int PixelSizeOfCell(QFont font, int cell) {
  font.setPixelSize(kMeasureSize);
  const int tall = CellHeight(QFontMetrics(font));
  int size = tall <= 0 ? cell : cell * kMeasureSize / tall + 1;
  for (; size > 1; --size) {
    font.setPixelSize(size);
    if (CellHeight(QFontMetrics(font)) <= cell) break;
  }
  return std::max(1, size);
}

}  // namespace

std::optional<QFont> MakeFont(const QString& face, int height, int weight) {
  if (face.isEmpty() || face.size() > kLongestFace) return std::nullopt;
  if (height > kTallest || height < -kTallest || weight < 0 || weight > kHeaviest) return std::nullopt;
  QFont font;
  if (face.compare(QLatin1String("Arial"), Qt::CaseInsensitive) == 0) {
    font.setFamilies({face, QStringLiteral("Liberation Sans")});
  } else if (face.compare(QLatin1String("Times New Roman"), Qt::CaseInsensitive) == 0) {
    font.setFamilies({face, QStringLiteral("Liberation Serif")});
  } else {
    font.setFamilies({face});
  }
  font.setWeight(static_cast<QFont::Weight>(weight == 0 ? kNormalWeight : weight));
  if (height < 0) font.setPixelSize(-height);
  if (height > 0) font.setPixelSize(PixelSizeOfCell(font, height));
  return font;
}

}  // namespace pnl
