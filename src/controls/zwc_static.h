// SPDX-License-Identifier: MIT
// ZWCStatic: a field with a frame, a background and a text that is drawn by draw flags. A blinking triangle may be
// before the text, or a plus sign in its place. The tool that owns it sets text and colours. It takes neither the focus
// nor the mouse: a press on it is a press on its parent.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>
#include <optional>

#include "base/files.h"
#include "controls/system_colors.h"
#include "window/timers.h"

namespace pnl {

class ZWCStatic : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ WindowText)
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)
  Q_PROPERTY(uint pnlFrame READ FrameColor)
  Q_PROPERTY(bool pnlBlinking READ IsBlinking)
  Q_PROPERTY(bool pnlPhase READ Phase)
  Q_PROPERTY(int pnlPeriod READ Period)

 public:
  enum FitMode { kFitNone = 0, kFitPath = 1, kFitWrap = 2, kPlusSign = 3 };

  /// The control asks files whether a path exists when it fits one, and blinks with timers. Both must outlive it.
  ZWCStatic(int id, Timers& timers, const Files& files, QWidget* parent);
  ~ZWCStatic() override;

  void SetFont(const QString& face, int height, int weight);
  void SetTextW(const QString& text, bool redraw);
  void SetColors(Color frame, Color back, Color text, bool redraw);
  /// Gives frame and background the same colour.
  void SetColors(Color frameAndBack, Color text, bool redraw);
  void SetFrameColor(Color color);
  void SetBackColor(Color color);
  void SetTextColor(Color color);
  void GetColors(Color& frame, Color& back, Color& text) const;
  void SetFormat(std::uint32_t flags);
  void SetPathFit() { m_FitMode = kFitPath; }
  void SetWrapFit() { m_FitMode = kFitWrap; }
  void SetPlusSign();
  /// Starts or stops blinking; period is in milliseconds. Does nothing when the control is in that state already. With
  /// a period of 0 it blinks only with the repaints that happen anyway.
  void SetBlink(bool on, int period);
  void Lock() { m_bLocked = true; }
  void Unlock() { m_bLocked = false; }

  [[nodiscard]] bool IsLocked() const { return m_bLocked; }
  [[nodiscard]] QString WindowText() const { return text_; }
  [[nodiscard]] std::uint32_t Format() const { return m_Format; }
  [[nodiscard]] bool IsBlinking() const { return m_bBlink; }
  [[nodiscard]] bool Phase() const { return m_bPhase; }
  [[nodiscard]] int Period() const { return period_; }
  [[nodiscard]] uint FrameColor() const { return m_Frame; }
  [[nodiscard]] uint BackColor() const { return m_Back; }
  [[nodiscard]] uint TextColor() const { return m_Text; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  [[nodiscard]] QFont Font() const { return m_pFont ? *m_pFont : font(); }

 private:
  void ChooseFormat();
  void PaintText(QPainter& painter);
  void PaintTriangle(QPainter& painter, const QRect& strip) const;
  void PaintPlusSign(QPainter& painter) const;
  [[nodiscard]] QRect Centred(QPainter& painter, QRect rect, QString& text) const;
  const Files& files_;
  QString text_;
  std::optional<QFont> m_pFont;
  Color m_Frame = SystemColor(kColorWindow);
  Color m_Back = SystemColor(kColorWindow);
  Color m_Text = SystemColor(kColorWindowText);
  bool m_bLocked = false;
  std::uint32_t m_Format = 0x8b65;
  FitMode m_FitMode = kFitNone;
  bool m_bBlink = false;
  bool m_bPhase = false;
  ScopedTimer m_Timer;
  int period_ = 0;
};

}  // namespace pnl
