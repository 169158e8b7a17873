// SPDX-License-Identifier: MIT
// The questions of the first start as a cover over the panel: the language, then the width of the screen. The operator
// makes a bar as long as a bank card, so nobody has to know a number, and touches are enough for every answer. The
// cover decides nothing about the panel: its owner changes the language, sets the screen's width and stores both.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "ui/cover.h"

namespace panel {

class PanelKey;

class FirstStart : public Cover {
  Q_OBJECT

 public:
  enum class Page { kLanguage, kScreen };
  /// The two languages, and the keys below the bar.
  enum Key { kEnglish, kSpanish, kBack, kShorter, kLonger, kOk, kKeyCount };

  explicit FirstStart(QWidget* parent);
  /// Asks, beginning with that page. leave says what Leave does.
  void Ask(Page page, bool leave);
  /// Goes back to the language or, if Ask was told so, ends the question without an answer.
  void Leave() override;
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] Page Shown() const { return page_; }
  /// Gives the keyboard to the key that goes on.
  void FocusFirst();

  /// The bar, in pixels of the screen.
  [[nodiscard]] QRect Bar() const;
  /// Makes the bar that long, within the limits of the room and of the screens that there are.
  void SetBarLength(int pixels);
  /// The greatest density with which the panel still has room for what it shows; 0 for any.
  void SetMostDensity(qreal dotsPerInch);
  /// How wide the screen is when the bar is as long as a card.
  [[nodiscard]] double ScreenMillimetres() const;

  [[nodiscard]] PanelKey* KeyOf(Key key) const { return keys_[key]; }
  /// The text above the keys, and the line below the bar.
  [[nodiscard]] QString Text() const;
  [[nodiscard]] QString Reading() const;
  void SetFontPixels(int pixels);

  /// The long side of a bank card.
  static constexpr double kCardMillimetres = 85.6;

 signals:
  /// The operator has chosen a language, "en" or "es".
  void LanguageChosen(const QString& language);
  /// The questions are answered; the cover is closed.
  void Answered(double screenMillimetres);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  [[nodiscard]] std::vector<QWidget*> TabOrder() const override;

 private:
  struct Drag {
    int from = 0;    // where the finger was put down
    int length = 0;  // of the bar then
  };
  void Choose(Key language);
  void GoBack();
  void Finish();
  void Close();
  void ShowPage(Page page);
  void ShowWords();
  void Place();
  void LimitBar();
  /// The place of the text, and the font in which all of it fits there.
  [[nodiscard]] QRect TextPlace() const;
  [[nodiscard]] QFont TextFont() const;
  [[nodiscard]] int ScreenPixels() const;

  std::array<PanelKey*, kKeyCount> keys_{};
  Page page_ = Page::kLanguage;
  bool open_ = false;
  bool leave_ = false;
  int length_ = 0;     // of the bar
  qreal assumed_ = 0;  // the density by which the keys are made
  qreal mostDensity_ = 0;
  std::optional<Drag> drag_;
  int fontPixels_ = 16;
};

}  // namespace panel
