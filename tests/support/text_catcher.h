// SPDX-License-Identifier: MIT
// Paints a widget onto nothing and keeps the texts that it drew, as they were drawn: cut, wrapped, plain or not.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QStringList>
#include <QWidget>

namespace pnl::test {

class TextCatcher : public QPaintDevice {
 public:
  explicit TextCatcher(QSize size) : size_(size) {}

  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
  [[nodiscard]] const QStringList& Texts() const { return engine_.texts; }

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
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawPolygon(const QPoint* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawImage(const QRectF& /*to*/, const QImage& /*image*/, const QRectF& /*from*/,
                   Qt::ImageConversionFlags /*flags*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/, const QRectF& /*from*/) override {}
    void drawTextItem(const QPointF& /*at*/, const QTextItem& item) override { texts << item.text(); }
    [[nodiscard]] Type type() const override { return User; }
    QStringList texts;
  };

  QSize size_;
  mutable Engine engine_;
};

/// What a widget, with all in it, draws at this moment.
inline QStringList TextsOf(QWidget& widget) {
  TextCatcher catcher(widget.size());
  widget.render(&catcher);
  return catcher.Texts();
}

}  // namespace pnl::test
