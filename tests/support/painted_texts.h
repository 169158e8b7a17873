// SPDX-License-Identifier: MIT
// Every text that a window paints, with the size of its letters, its colour and the colours of the field on which its
// letters lie. The window is painted on a picture, and just before a text comes, the picture below its letters is read.
// So gradients, selections and fields that end in the middle of a text are seen as an operator sees them.
#pragma once

#include <QFontInfo>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <vector>

namespace pnl::test {

/// The contrast ratio of two colours, from 1 to 21: (L1 + 0.05) / (L2 + 0.05), where L1 and L2 are the relative
/// luminances of the brighter and the darker one, as the Web Content Accessibility Guidelines 2.1 define both.
inline double ContrastRatio(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double channel) {
      return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
  };
  const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
  return (bright + 0.05) / (dark + 0.05);
}

struct PaintedText {
  QString text;
  QRect place;      // of the letters, in the window
  QColor ink;       // of the text
  QColor field;     // below the letters that are hardest to read
  double contrast;  // of these two
  int letters;      // the pixel size of its font, as it is on the screen
};

/// The paint device: a picture on which everything is painted, and the texts among it.
class TextPicture : public QPaintDevice {
 public:
  explicit TextPicture(QSize size) : engine_(size) {}
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
  [[nodiscard]] const QImage& Picture() const { return engine_.picture; }
  /// The texts that nothing painted afterwards has covered.
  [[nodiscard]] std::vector<PaintedText> Texts() const {
    std::vector<PaintedText> seen;
    for (const Drawn& drawn : engine_.drawn) {
      const auto left = std::count_if(drawn.letters.begin(), drawn.letters.end(), [this](const Letter& letter) {
        return engine_.picture.pixel(letter.place) == letter.color;
      });
      if (2 * static_cast<std::size_t>(left) >= drawn.letters.size()) seen.push_back(drawn.text);
    }
    return seen;
  }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric which) const override {
    switch (which) {
      case PdmWidth:
        return engine_.picture.width();
      case PdmHeight:
        return engine_.picture.height();
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return 96;
      case PdmDepth:
        return 32;
      case PdmDevicePixelRatio:
        return 1;
      default:
        return QPaintDevice::metric(which);
    }
  }

 private:
  /// A pixel of a letter, with the colour that it has when the letter has just been painted.
  struct Letter {
    QPoint place;
    QRgb color;
  };
  struct Drawn {
    PaintedText text;
    std::vector<Letter> letters;
  };

  class Engine : public QPaintEngine {
   public:
    explicit Engine(QSize size) : QPaintEngine(AllFeatures), picture(size, QImage::Format_RGB32) {
      picture.fill(Qt::magenta);
    }
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    [[nodiscard]] Type type() const override { return User; }
    void drawPath(const QPainterPath& path) override {
      QPainter to(&picture);
      Copy(to, {});
      to.drawPath(path);
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
      QPainter to(&picture);
      Copy(to, {});
      if (mode == PolylineMode) return to.drawPolyline(points, count);
      to.drawPolygon(points, count, mode == OddEvenMode ? Qt::OddEvenFill : Qt::WindingFill);
    }
    void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override {
      QPaintEngine::drawPolygon(points, count, mode);
    }
    void drawImage(const QRectF& place, const QImage& image, const QRectF& from,
                   Qt::ImageConversionFlags flags) override {
      QPainter to(&picture);
      Copy(to, {});
      to.drawImage(place, image, from, flags);
    }
    void drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF& from) override {
      QPainter to(&picture);
      Copy(to, {});
      to.drawPixmap(place, pixmap, from);
    }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
      const QRectF box(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent());
      const QRect area =
          painter()->deviceTransform().mapRect(box).toAlignedRect().adjusted(-2, -2, 2, 2) & picture.rect();
      const std::vector<QPoint> letters = LettersOf(at, item, area);
      const double scale = painter()->deviceTransform().mapRect(QRectF(0, 0, 1, 1)).height();
      const int pixels = qRound(QFontInfo(item.font()).pixelSize() * scale);
      Drawn text{{item.text(), {}, painter()->pen().color(), {}, 0, pixels}, {}};
      if (!letters.empty()) Measure(letters, text.text);
      {
        QPainter to(&picture);
        Copy(to, {});
        to.drawTextItem(at, item);
      }
      if (letters.empty()) return;
      for (const QPoint& place : letters) text.letters.push_back({place, picture.pixel(place)});
      drawn.push_back(std::move(text));
    }

    QImage picture;
    std::vector<Drawn> drawn;

   private:
    /// Gives a painter the state of the one that paints here; origin is the place of its picture.
    void Copy(QPainter& to, QPoint origin) const {
      const QRegion around = systemClip();
      if (!around.isEmpty()) to.setClipRegion(around.translated(-origin));
      QTransform place = painter()->deviceTransform();
      place *= QTransform::fromTranslate(-origin.x(), -origin.y());
      to.setWorldTransform(place);
      if (painter()->hasClipping()) to.setClipPath(painter()->clipPath(), Qt::IntersectClip);
      to.setRenderHints(painter()->renderHints());
      to.setPen(painter()->pen());
      to.setBrush(painter()->brush());
      to.setBrushOrigin(painter()->brushOrigin());
      to.setBackground(painter()->background());
      to.setOpacity(painter()->opacity());
      to.setCompositionMode(painter()->compositionMode());
    }
    /// The pixels that the letters of a text fill.
    std::vector<QPoint> LettersOf(const QPointF& at, const QTextItem& item, const QRect& area) const {
      constexpr int kFilled = 110;
      std::vector<QPoint> letters;
      if (area.isEmpty() || item.text().trimmed().isEmpty()) return letters;
      QImage mask(area.size(), QImage::Format_Grayscale8);
      mask.fill(Qt::black);
      QPainter to(&mask);
      Copy(to, area.topLeft());
      to.setOpacity(1);
      to.setPen(Qt::white);
      to.drawTextItem(at, item);
      to.end();
      for (int y = 0; y < mask.height(); ++y) {
        const uchar* line = mask.constScanLine(y);
        for (int x = 0; x < mask.width(); ++x) {
          if (line[x] > kFilled) letters.push_back(area.topLeft() + QPoint(x, y));
        }
      }
      return letters;
    }
    /// Compares the text's colour with that of each pixel below its letters. A few pixels, such as those of a line that
    /// crosses the text, don't count.
    void Measure(const std::vector<QPoint>& letters, PaintedText& text) const {
      constexpr std::size_t kFew = 10;  // one in so many
      struct Pixel {
        double contrast;
        QRgb field;
        QRgb ink;
      };
      std::vector<Pixel> pixels;
      QRgb lastField = 0;
      for (const QPoint& place : letters) {
        text.place |= QRect(place, QSize(1, 1));
        const QRgb field = picture.pixel(place);
        if (!pixels.empty() && field == lastField) {
          pixels.push_back(pixels.back());
          continue;
        }
        lastField = field;
        const QColor ink = Blended(QColor(field));
        pixels.push_back({ContrastRatio(ink, QColor(field)), field, ink.rgb()});
      }
      const auto least = pixels.begin() + static_cast<std::ptrdiff_t>(pixels.size() / kFew);
      std::nth_element(pixels.begin(), least, pixels.end(),
                       [](const Pixel& one, const Pixel& other) { return one.contrast < other.contrast; });
      text.contrast = least->contrast;
      text.field = QColor(least->field);
      text.ink = QColor(least->ink);
    }
    /// The colour of a letter on a field, where its pen or painter lets the field through.
    [[nodiscard]] QColor Blended(const QColor& field) const {
      const QColor pen = painter()->pen().color();
      const double share = pen.alphaF() * painter()->opacity();
      const auto mix = [share](double ink, double below) { return ink * share + below * (1 - share); };
      return QColor::fromRgbF(static_cast<float>(mix(pen.redF(), field.redF())),
                              static_cast<float>(mix(pen.greenF(), field.greenF())),
                              static_cast<float>(mix(pen.blueF(), field.blueF())));
    }
  };

  mutable Engine engine_;
};

/// The texts that can be seen in a window and its children now.
inline std::vector<PaintedText> PaintedTextsOf(QWidget& window) {
  TextPicture picture(window.size());
  window.render(&picture);
  return picture.Texts();
}

}  // namespace pnl::test
