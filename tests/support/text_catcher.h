// SPDX-License-Identifier: MIT
// A paint device without pixels that records what a widget draws: each text as it is drawn, and each shape with its
// place and colours. A test can compare that with shapes that it draws itself.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace pnl::test {

class TextCatcher : public QPaintDevice {
 public:
  explicit TextCatcher(QSize size) : size_(size) {}

  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
  [[nodiscard]] const QStringList& Texts() const { return engine_.texts; }
  /// One line for each text, shape and picture drawn, in order.
  [[nodiscard]] const std::vector<std::string>& Strokes() const { return engine_.strokes; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric which) const override {
    constexpr int kDotsPerInch = 96;
    switch (which) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return kDotsPerInch;
      case PdmDepth:
        return 32;
      case PdmDevicePixelRatio:
        return 1;
      default:
        return QPaintDevice::metric(which);
    }
  }

 private:
  class Engine : public QPaintEngine {
   public:
    Engine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPath(const QPainterPath& path) override {
      const QPainterPath::Element begin = path.elementAt(0);
      Note(QStringLiteral("path %1 of %2 from %3")
               .arg(Text(path.boundingRect()))
               .arg(path.elementCount())
               .arg(Text(begin)),
           true);
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode /*mode*/) override {
      QString text = QStringLiteral("polygon");
      for (int i = 0; i < count; ++i) text += QLatin1Char(' ') + Text(points[i]);
      Note(text, true);
    }
    void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override {
      QPaintEngine::drawPolygon(points, count, mode);
    }
    void drawImage(const QRectF& to, const QImage& /*image*/, const QRectF& /*from*/,
                   Qt::ImageConversionFlags /*flags*/) override {
      const bool smooth = painter()->testRenderHint(QPainter::SmoothPixmapTransform);
      Note(QStringLiteral("image %1 opacity %2%3")
               .arg(Text(to))
               .arg(painter()->opacity())
               .arg(smooth ? QStringLiteral(" smooth") : QString()),
           false);
    }
    void drawPixmap(const QRectF& to, const QPixmap& /*pixmap*/, const QRectF& /*from*/) override {
      Note(QStringLiteral("pixmap %1").arg(Text(to)), false);
    }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
      texts << item.text();
      const QFont font = item.font();
      Note(QStringLiteral("text '%1' at %2 in %3 %4 px weight %5 %6")
               .arg(item.text(), Text(at), font.family())
               .arg(font.pixelSize())
               .arg(font.weight())
               .arg(painter()->pen().color().name()),
           false);
    }
    [[nodiscard]] Type type() const override { return User; }
    QStringList texts;
    std::vector<std::string> strokes;

   private:
    [[nodiscard]] QString Text(const QPointF& point) const {
      const QPointF at = painter()->deviceTransform().map(point);
      return QStringLiteral("%1,%2").arg(at.x()).arg(at.y());
    }
    [[nodiscard]] QString Text(const QRectF& rect) const {
      return Text(rect.topLeft()) + QStringLiteral(" to ") + Text(rect.bottomRight());
    }
    void Note(const QString& what, bool shape) {
      const auto name = [](const QColor& color) { return color.name(QColor::HexArgb); };
      const QPen pen = painter()->pen();
      const QBrush brush = painter()->brush();
      QString text = what;
      if (shape && brush.style() != Qt::NoBrush) text += QStringLiteral(" fill ") + name(brush.color());
      if (shape && pen.style() != Qt::NoPen) {
        text += QStringLiteral(" edge %1 of %2").arg(name(pen.color())).arg(pen.widthF());
      }
      if (shape && painter()->testRenderHint(QPainter::Antialiasing)) text += QStringLiteral(" smooth");
      strokes.push_back(text.toStdString());
    }
  };

  QSize size_;
  mutable Engine engine_;
};

/// Returns the texts that a widget and its children draw now.
inline QStringList TextsOf(QWidget& widget) {
  TextCatcher catcher(widget.size());
  widget.render(&catcher);
  return catcher.Texts();
}

/// Returns what a widget draws now, without its background and its children.
inline std::vector<std::string> StrokesOf(QWidget& widget) {
  TextCatcher catcher(widget.size());
  widget.render(&catcher, QPoint(), QRegion(), QWidget::RenderFlags());
  return catcher.Strokes();
}

/// Returns what a test draws, for comparison with StrokesOf.
inline std::vector<std::string> Drawn(const std::function<void(QPainter&)>& draw) {
  TextCatcher catcher(QSize(10'000, 10'000));
  QPainter painter(&catcher);
  draw(painter);
  painter.end();
  return catcher.Strokes();
}

}  // namespace pnl::test
