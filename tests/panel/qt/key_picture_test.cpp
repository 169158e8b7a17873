// SPDX-License-Identifier: MIT
// How the keys look and where they stand: the keys themselves, the bars made of them, the indicator of errors.
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <cmath>
#include <set>

#include "common/words.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "ui/error_indicator.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

using pnl::test::StrokesOf;
using pnl::test::TextsOf;
using theme::Font;

const QByteArray kSquare =
    "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'><rect width='8' height='8'/></svg>";

class KeyPictureTest : public ::testing::Test {
 protected:
  KeyPictureTest() {
    UseWords("en");
    key_.resize(120, 60);
    key_.setText("Save");
    key_.SetKeyName("F1");
  }
  PanelKey key_{nullptr};
};

Picture& KeyName(Picture& picture, QRgb color, int width = 120, int height = 60) {
  return picture.Text({6, 3, width - 11, height - 3}, Qt::AlignLeft | Qt::AlignTop, "F1", Font(12), QColor(color));
}

TEST_F(KeyPictureTest, AKeyHasItsNameInTheCornerAndItsCaptionBelowIt) {
  EXPECT_EQ(StrokesOf(key_), Pictured([](Picture& picture) {
              KeyName(picture.Field({0, 0, 120, 60}, theme::kRaised, theme::kBorder), theme::kMuted)
                  .Middle({5, 16, 110, 40}, "Save", Font(15), theme::kText);
            }));
  key_.SetKeyName("");
  EXPECT_EQ(StrokesOf(key_).back(), Pictured([](Picture& picture) {
                                      picture.Middle({5, 4, 110, 52}, "Save", Font(15), theme::kText);
                                    }).back());
}

TEST_F(KeyPictureTest, TheNameGrowsWithTheCaption) {
  key_.SetFontPixels(28);
  EXPECT_EQ(StrokesOf(key_), Pictured([](Picture& picture) {
              picture.Field({0, 0, 120, 60}, theme::kRaised, theme::kBorder)
                  .Text({6, 3, 109, 57}, Qt::AlignLeft | Qt::AlignTop, "F1", Font(24), theme::kMuted)
                  .Middle({5, 28, 110, 28}, "Save", Font(28), theme::kText);
            }));
}

TEST_F(KeyPictureTest, ALongCaptionGetsSmallerDownToElevenPixels) {
  key_.setText(QString(200, 'W'));
  EXPECT_EQ(StrokesOf(key_).back(), Pictured([](Picture& picture) {
                                      picture.Middle({5, 16, 110, 40}, QString(200, 'W'), Font(11), theme::kText);
                                    }).back());
  key_.setText("WWWWWWWW");
  EXPECT_EQ(StrokesOf(key_).back(),
            Pictured([](Picture& picture) {
              picture.Middle({5, 16, 110, 40}, "WWWWWWWW", theme::FittingFont("WWWWWWWW", 106, 15, 11), theme::kText);
            }).back());
}

TEST_F(KeyPictureTest, ALatchedKeyHasATick) {
  key_.setCheckable(true);
  key_.setChecked(true);
  const auto ticked = [](QColor fill, QColor edge, QRgb ink, QRgb soft) {
    return Pictured([&](Picture& picture) {
      KeyName(picture.Field({0, 0, 120, 60}, fill, edge), soft);
      picture.Painter().setRenderHint(QPainter::Antialiasing);
      picture.Painter().setPen(QPen(QColor(ink), 2.4));
      picture.Painter().drawPolyline(QPolygonF({{101, 12}, {105, 16}, {113, 7}}));
      picture.Middle({5, 16, 110, 40}, "Save", Font(15), QColor(ink));
    });
  };
  EXPECT_EQ(StrokesOf(key_), ticked(QColor(theme::kSteel), QColor(theme::kBorder), theme::kText, theme::kText));
  key_.setEnabled(false);
  EXPECT_EQ(StrokesOf(key_), ticked(QColor(theme::kSurface), QColor(theme::kRaised), theme::kFaint, theme::kFaint));
  key_.setEnabled(true);
  key_.SetTint(QColor(theme::kViolet));
  EXPECT_EQ(StrokesOf(key_),
            ticked(theme::LatchedOf(theme::kViolet), QColor(theme::kViolet), theme::kText, theme::kMuted));
}

TEST_F(KeyPictureTest, AKeyThatLeadsOnHasATipInItsCorner) {
  key_.SetLeadsOn(true);
  EXPECT_EQ(StrokesOf(key_), Pictured([](Picture& picture) {
              KeyName(picture.Field({0, 0, 120, 60}, theme::kRaised, theme::kBorder), theme::kMuted);
              picture.Painter().setRenderHint(QPainter::Antialiasing);
              picture.Painter().setPen(Qt::NoPen);
              picture.Painter().setBrush(QColor(theme::kMuted));
              picture.Painter().drawPolygon(QPolygonF({{115, 50}, {108, 45}, {108, 55}}));
              picture.Middle({5, 16, 110, 40}, "Save", Font(15), theme::kText);
            }));
}

struct ColorRow {
  const char* what;
  bool enabled;
  bool down;
  bool checked;
  bool mouse;
  bool filled;
  QColor tint;
  QColor fill;
  QColor edge;
  QColor name;
};

TEST_F(KeyPictureTest, EveryStateHasItsColours) {
  const QColor raised(theme::kRaised);
  const QColor border(theme::kBorder);
  const QColor muted(theme::kMuted);
  const QColor green(theme::kGreen);
  const QColor surface(theme::kSurface);
  const QColor faint(theme::kFaint);
  for (const ColorRow& row :
       {ColorRow{"ordinary", true, false, false, false, false, {}, raised, border, muted},
        ColorRow{"under a mouse", true, false, false, true, false, {}, theme::kRaisedHover, border, muted},
        ColorRow{"pressed", true, true, false, false, false, {}, theme::kPressed, border, theme::kText},
        ColorRow{"pressed in colour", true, true, false, true, true, green, theme::kPressed, green, theme::kText},
        ColorRow{"latched", true, false, true, true, false, {}, theme::kSteel, border, theme::kText},
        ColorRow{"latched in colour", true, false, true, false, false, green, theme::LatchedOf(green), green, muted},
        ColorRow{"tinted", true, false, false, false, false, green, raised, green, muted},
        ColorRow{"filled", true, false, false, false, true, green, green, green, theme::InkOn(green)},
        ColorRow{"filled under a mouse", true, false, false, true, true, green, theme::HoverOf(green), green,
                 theme::InkOn(theme::HoverOf(green))},
        ColorRow{"filled without a colour", true, false, false, false, true, {}, raised, border, theme::kText},
        ColorRow{"disabled", false, false, false, false, false, {}, surface, raised, faint},
        ColorRow{"disabled in colour", false, false, true, true, true, green, surface, raised, faint}}) {
    PanelKey key(nullptr);
    key.resize(120, 60);
    key.SetKeyName("F1");
    key.SetTint(row.tint);
    key.SetFilled(row.filled);
    key.setCheckable(row.checked);
    key.setChecked(row.checked);
    key.setDown(row.down);
    key.setEnabled(row.enabled);
    key.setAttribute(Qt::WA_UnderMouse, row.mouse);
    EXPECT_EQ(key.Fill(), row.fill) << row.what;
    EXPECT_EQ(key.Ink(), row.enabled ? theme::InkOn(row.fill) : faint) << row.what;
    const auto drawn = StrokesOf(key);
    const auto expected = Pictured([&row](Picture& picture) {
      picture.Field({0, 0, 120, 60}, row.fill, row.edge)
          .Text({6, 3, 109, 57}, Qt::AlignLeft | Qt::AlignTop, "F1", Font(12), row.name);
    });
    EXPECT_EQ(Strokes(drawn.begin(), drawn.begin() + 2), expected) << row.what;
  }
}

TEST_F(KeyPictureTest, AKeyWithTheFocusHasABrightDoubleEdge) {
  QWidget window;
  window.resize(500, 500);
  PanelKey key(&window);
  key.setGeometry(300, 300, 120, 60);
  key.SetTint(QColor(theme::kGreen));
  window.show();
  window.activateWindow();
  key.setFocus(Qt::TabFocusReason);
  QCoreApplication::processEvents();
  ASSERT_TRUE(key.hasFocus());
  EXPECT_EQ(StrokesOf(key), Pictured([](Picture& picture) {
              picture.Field({0, 0, 120, 60}, theme::kRaised, theme::kAccent)
                  .Field({1, 1, 118, 58}, Qt::transparent, theme::kAccent);
            }));
}

TEST_F(KeyPictureTest, AFilledKeyHasABoldCaption) {
  key_.SetTint(QColor(theme::kGreen));
  key_.SetFilled(true);
  EXPECT_EQ(StrokesOf(key_).back(),
            Pictured([](Picture& picture) {
              picture.Middle({5, 16, 110, 40}, "Save", Font(15, true), theme::InkOn(QColor(theme::kGreen)));
            }).back());
}

TEST_F(KeyPictureTest, ACaptionOfWordsTakesTwoLines) {
  const QString words = "Program as another";
  const int both = 2 * static_cast<int>(std::ceil(QFontMetricsF(Font(15)).height()));
  key_.setText(words);
  key_.resize(120, 80);
  EXPECT_EQ(StrokesOf(key_), Pictured([&](Picture& picture) {
              KeyName(picture.Field({0, 0, 120, 80}, theme::kRaised, theme::kBorder), theme::kMuted, 120, 80)
                  .Paragraph({5, 16, 110, 60}, Qt::AlignCenter, words, Font(15), theme::kText);
            }));
  // The body is 20 pixels lower than the key.
  key_.resize(120, 20 + both);
  EXPECT_GT(TextsOf(key_).size(), 2) << "just enough for two";
  key_.resize(120, 19 + both);
  EXPECT_EQ(StrokesOf(key_), Pictured([&](Picture& picture) {
              picture.Field({0, 0, 120, 19 + both}, theme::kRaised, theme::kBorder)
                  .Paragraph({5, 4, 110, both + 11}, Qt::AlignCenter, words, Font(15), theme::kText);
            }))
      << "the caption takes the place of the key's name";
  key_.resize(120, 7 + both);
  EXPECT_EQ(StrokesOf(key_).back(),
            Pictured([&](Picture& picture) {
              picture.Middle({5, 16, 110, both - 13}, words, theme::FittingFont(words, 106, 15, 11), theme::kText);
            }).back())
      << "too flat: one line in smaller letters";
  const int fits = QFontMetrics(Font(15)).horizontalAdvance(words) + 4 + 10;
  key_.resize(fits, 80);
  EXPECT_EQ(TextsOf(key_).size(), 2);
  key_.resize(fits - 5, 80);
  EXPECT_GT(TextsOf(key_).size(), 2);
}

// The field of two lines was a fraction too low, so that the caption lost its middle on a big screen.
TEST_F(KeyPictureTest, ACaptionOfTwoLinesLosesNoLetter) {
  key_.setText("Program another");
  for (const bool drawn : {false, true}) {
    key_.SetPicture(drawn ? kSquare : QByteArray());
    for (int pixels = 16; pixels <= 26; ++pixels) {
      key_.SetFontPixels(pixels);
      for (int height = 3 * pixels; height < 8 * pixels; ++height) {
        key_.resize(8 * pixels, height);
        EXPECT_FALSE(TextsOf(key_).join("").contains(QChar(0x2026))) << pixels << " in " << height;
      }
    }
  }
}

TEST_F(KeyPictureTest, TwoLinesAreAsBigAsAllTheirWordsAllow) {
  const QString words = "Go to it or go on to the end";
  key_.SetKeyName("");
  key_.SetFontPixels(30);
  key_.setText(words);
  std::set<int> sizes;
  const int whole = QFontMetrics(Font(30)).horizontalAdvance(words);
  for (int width = whole / 3; width < whole * 2 / 3; width += 2) {
    key_.resize(width, 120);
    const QRect body(5, 4, width - 10, 112);
    int pixels = 30;
    while (pixels > 11 && theme::ParagraphIn(words, Font(pixels), body.size()) != words) --pixels;
    sizes.insert(pixels);
    EXPECT_EQ(StrokesOf(key_).back(), Pictured([&](Picture& picture) {
                                        picture.Paragraph(body, Qt::AlignCenter, words, Font(pixels), theme::kText);
                                      }).back())
        << width;
  }
  EXPECT_GT(sizes.size(), 3u) << "a wider key has bigger letters";
}

TEST_F(KeyPictureTest, TheLongestWordDecidesHowBigTwoLinesAre) {
  key_.setText("a WWWWWWWWW of");
  key_.resize(120, 90);
  const QFont font = theme::FittingFont("WWWWWWWWW", 106, 15, 11);
  ASSERT_LT(font.pixelSize(), 15);
  EXPECT_EQ(StrokesOf(key_), Pictured([&](Picture& picture) {
              KeyName(picture.Field({0, 0, 120, 90}, theme::kRaised, theme::kBorder), theme::kMuted, 120, 90)
                  .Paragraph({5, 16, 110, 70}, Qt::AlignCenter, "a WWWWWWWWW of", font, theme::kText);
            }));
}

struct PictureRow {
  const char* what;
  int height;
  const char* keyName;
  const char* text;
  QRect body;  // what picture and caption share
  bool twoLines;
  int pixels;
};

TEST_F(KeyPictureTest, APictureStandsAboveTheCaption) {
  for (const PictureRow& row : {PictureRow{"high", 160, "F1", "Save", {5, 16, 110, 140}, false, 15},
                                PictureRow{"without a caption", 160, "F1", "", {5, 16, 110, 140}, false, 15},
                                PictureRow{"without a name", 160, "", "Save", {5, 4, 110, 152}, false, 15},
                                PictureRow{"flat", 74, "F1", "Save", {5, 3, 110, 69}, false, 15},
                                PictureRow{"not flat", 75, "F1", "Save", {5, 16, 110, 55}, false, 15},
                                PictureRow{"flat with a short name", 74, "F12", "Save", {5, 3, 110, 69}, false, 15},
                                PictureRow{"flat with a long name", 74, "Ctrl", "Save", {5, 16, 110, 54}, false, 15},
                                PictureRow{"words", 160, "F1", "Program as another", {5, 16, 110, 140}, true, 12}}) {
    PanelKey key(nullptr);
    key.resize(120, row.height);
    key.SetKeyName(row.keyName);
    key.setText(row.text);
    key.SetPicture(kSquare);
    const QFont font = Font(row.pixels);
    const int both = 2 * static_cast<int>(std::ceil(QFontMetricsF(font).height()));
    const int caption = *row.text == '\0' ? 0 : row.twoLines ? both : QFontMetrics(font).height();
    const int side = std::min({row.body.height() - caption, 110, 64});
    const int top = row.body.top() + (row.body.height() - side - caption) / 2;
    EXPECT_EQ(
        StrokesOf(key), Pictured([&](Picture& picture) {
          picture.Field({0, 0, 120, row.height}, theme::kRaised, theme::kBorder)
              .Text({6, 3, 109, row.height - 3}, Qt::AlignLeft | Qt::AlignTop, row.keyName, Font(12), theme::kMuted);
          picture.Painter().setRenderHint(QPainter::SmoothPixmapTransform);
          picture.Painter().drawImage(QRect(59 - side / 2, top, side, side), QImage(64, 64, QImage::Format_RGB32));
          const QRect below(5, top + side, 110, caption);
          if (row.twoLines) {
            picture.Paragraph(below, Qt::AlignCenter, row.text, font, theme::kText);
          } else {
            picture.Middle(below, row.text, font, theme::kText);
          }
        }))
        << row.what;
  }
}

TEST_F(KeyPictureTest, APictureIsPaleOnADisabledKeyAndLeftOutWhereItWouldBeTiny) {
  const int line = QFontMetrics(Font(15)).height();
  const auto pictures = [this] {
    Strokes found;
    for (const std::string& stroke : StrokesOf(key_)) {
      if (stroke.starts_with("image")) found.push_back(stroke);
    }
    return found;
  };
  key_.SetPicture(kSquare);
  key_.resize(120, 12 + line + 5);
  ASSERT_EQ(pictures().size(), 1u);
  EXPECT_THAT(pictures()[0], ::testing::HasSubstr("opacity 1 "));
  key_.setEnabled(false);
  EXPECT_THAT(pictures()[0], ::testing::HasSubstr("opacity 0.35 "));
  EXPECT_THAT(StrokesOf(key_).back(), ::testing::HasSubstr(QColor(theme::kFaint).name().toStdString()));
  key_.resize(120, 11 + line + 5);
  EXPECT_TRUE(pictures().empty());
}

TEST_F(KeyPictureTest, APictureIsDrawnWholeAndInItsProportions) {
  key_.setText("");
  key_.resize(100, 160);
  key_.SetPicture(
      "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 4'><rect width='8' height='4' fill='lime'/>"
      "</svg>");
  const QImage image = key_.grab().toImage();
  EXPECT_EQ(image.pixelColor(50, 86), QColor(Qt::green));
  EXPECT_EQ(image.pixelColor(50, 64), QColor(theme::kRaised)) << "half as high as broad";
  EXPECT_EQ(image.pixelColor(22, 86), QColor(Qt::green));
}

TEST_F(KeyPictureTest, AnArrowStandsBeforeItsCaptionOrAlone) {
  PanelKey key(nullptr);
  key.resize(120, 60);
  key.SetArrow(Qt::UpArrow);
  const auto expected = [](const QString& text, const QRect& arrow, const QRect& rest) {
    return Pictured([&](Picture& picture) {
      picture.Field({0, 0, 120, 60}, theme::kRaised, theme::kBorder);
      theme::DrawArrow(picture.Painter(), arrow, Qt::UpArrow, QColor(theme::kText));
      picture.Left(rest, text, Font(15), theme::kText);
    });
  };
  EXPECT_EQ(StrokesOf(key), expected("", {52, 4, 15, 52}, {}));
  key.setText("Up");
  const int words = QFontMetrics(Font(15)).horizontalAdvance("Up") + 8;
  const int left = 5 + (110 - 15 - words) / 2;
  EXPECT_EQ(StrokesOf(key), expected("Up", {left, 4, 15, 52}, {left + 23, 4, 115 - left - 23, 52}));
  const QString wide(60, 'W');
  key.setText(wide);
  EXPECT_EQ(StrokesOf(key)[2], Pictured([&](Picture& picture) {
              picture.Left({28, 4, 87, 52}, wide, Font(11), theme::kText);
            })[0]);
  key.setText("");
  key.resize(120, 20);
  EXPECT_EQ(StrokesOf(key)[1], Pictured([](Picture& picture) {
              theme::DrawArrow(picture.Painter(), {54, 4, 12, 12}, Qt::UpArrow, QColor(theme::kText));
            })[0]);
}

TEST_F(KeyPictureTest, EveryChangeOfAKeyShowsAtOnce) {
  RepaintCount count(key_);
  EXPECT_TRUE(count.After([this] { key_.SetArrow(Qt::LeftArrow); }));
  EXPECT_TRUE(count.After([this] { key_.SetKeyName("F2"); }));
  EXPECT_TRUE(count.After([this] { key_.SetPicture(kSquare); }));
  EXPECT_FALSE(count.After([this] { key_.SetPicture(kSquare); }));
  EXPECT_TRUE(count.After([this] { key_.SetPicture({}); }));
  EXPECT_FALSE(key_.HasPicture());
  EXPECT_TRUE(count.After([this] { key_.SetTint(QColor(theme::kRed)); }));
  EXPECT_FALSE(count.After([this] { key_.SetTint(QColor(theme::kRed)); }));
  EXPECT_TRUE(count.After([this] { key_.SetFilled(true); }));
  EXPECT_TRUE(count.After([this] { key_.SetNote("No block"); }));
  EXPECT_FALSE(count.After([this] { key_.SetNote("No block"); }));
  EXPECT_TRUE(count.After([this] { key_.SetFontPixels(20); }));
  EXPECT_TRUE(count.After([this] { key_.SetLeadsOn(true); }));
  EXPECT_FALSE(count.After([this] { key_.SetLeadsOn(true); }));
  EXPECT_TRUE(count.After([this] {
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(&key_, &enter);
  }));
  EXPECT_TRUE(count.After([this] {
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&key_, &leave);
  }));
}

TEST_F(KeyPictureTest, ANoteIsAtTheLowerEdgeAndTakesNoMoreThanAThird) {
  const QString note = "Nothing to start";
  const auto fitting = [&note](int width) { return theme::FittingFont(note, width, 12, 8); };
  // The narrowest field for letters of 12 pixels.
  int full = 1;
  while (fitting(full).pixelSize() < 12) ++full;
  key_.SetNote(note);
  for (const int height : {30, 60, 120}) {
    for (const int width : {full + 6, full, full / 2}) {
      key_.resize(width, height);
      const QFont font = fitting(width - 6);
      const int high = std::min(QFontMetrics(font).height(), height / 3);
      EXPECT_THAT(StrokesOf(key_),
                  ::testing::Contains(
                      Pictured([&](Picture& picture) {
                        picture.Middle({3, height - 3 - high, width - 6, high}, note, font, QColor(theme::kAmber));
                      }).at(0)))
          << width << " x " << height;
    }
  }
}

TEST_F(KeyPictureTest, AKeyIsMadeForTabAndNotForATouch) {
  EXPECT_EQ(key_.focusPolicy(), Qt::TabFocus);
  EXPECT_TRUE(key_.testAttribute(Qt::WA_Hover));
  const int touch = theme::TouchPixels(key_);
  EXPECT_EQ(key_.sizeHint(), QSize(2 * touch, touch));
  key_.SetTip("<b>x</b>");
  EXPECT_EQ(key_.toolTip(), theme::PlainTip("<b>x</b>"));
}

TEST_F(KeyPictureTest, APressChangesNoLampAndOtherKeysGoOn) {
  int clicks = 0;
  QObject::connect(&key_, &PanelKey::clicked, &key_, [&clicks] { ++clicks; });
  key_.setCheckable(true);
  key_.click();
  EXPECT_FALSE(key_.isChecked());
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent space(type, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(&key_, &space);
  }
  EXPECT_EQ(clicks, 2);
  QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
  QCoreApplication::sendEvent(&key_, &letter);
  EXPECT_FALSE(letter.isAccepted());
}

struct BarRow {
  const char* what;
  Qt::Orientation orientation;
  QSize size;
  int items;
  QRect first;
  QRect second;
  QRect back;
  QRect more;
};

TEST(BarPlacesTest, TheKeysShareWhatThePagingKeysLeave) {
  UseWords("en");
  const int touch = theme::TouchPixels(QWidget());
  const int half = (300 - 2 * (touch + 4) - 4) / 2;
  const int tall = 401 - touch - 4 - 4;
  for (const BarRow& row : {BarRow{"below",
                                   Qt::Horizontal,
                                   {600, 56},
                                   1,
                                   {54, 0, 244, 56},
                                   {302, 0, 244, 56},
                                   {0, 0, 50, 56},
                                   {550, 0, 50, 56}},
                            BarRow{"below, narrow",
                                   Qt::Horizontal,
                                   {300, 56},
                                   1,
                                   {touch + 4, 0, half, 56},
                                   {touch + 8 + half, 0, half, 56},
                                   {0, 0, touch, 56},
                                   {300 - touch, 0, touch, 56}},
                            BarRow{"below, broad",
                                   Qt::Horizontal,
                                   {1201, 56},
                                   1,
                                   {76, 0, 522, 56},
                                   {602, 0, 523, 56},
                                   {0, 0, 72, 56},
                                   {1129, 0, 72, 56}},
                            BarRow{"beside", Qt::Vertical, {101, 400}, 2, {0, 0, 101, 198}, {0, 202, 101, 198}, {}, {}},
                            BarRow{"beside, paged",
                                   Qt::Vertical,
                                   {101, 401},
                                   3,
                                   {0, 0, 101, tall / 2},
                                   {0, tall / 2 + 4, 101, tall - tall / 2},
                                   {0, 401 - touch, 48, touch},
                                   {52, 401 - touch, 49, touch}}}) {
    SoftKeyBar bar(row.orientation, 2, row.orientation == Qt::Horizontal ? &MainKey : &SideKey, nullptr);
    bar.ShowItems(std::vector<SoftKeyItem>(static_cast<std::size_t>(row.items)));
    bar.show();
    bar.resize(row.size);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.Key(0)->geometry(), row.first) << row.what;
    EXPECT_EQ(bar.Key(1)->geometry(), row.second) << row.what;
    EXPECT_EQ(bar.BackKey()->isVisible(), row.back.isValid()) << row.what;
    EXPECT_EQ(bar.MoreKey()->isVisible(), row.more.isValid()) << row.what;
    if (!row.back.isValid()) continue;
    EXPECT_EQ(bar.BackKey()->geometry(), row.back) << row.what;
    EXPECT_EQ(bar.MoreKey()->geometry(), row.more) << row.what;
  }
}

TEST(BarPlacesTest, EveryKeySaysWhatItIs) {
  UseWords("en");
  SoftKeyBar main(Qt::Horizontal, 2, &MainKey, nullptr);
  EXPECT_EQ(main.BackKey()->toolTip(), "Back (Alt+Left)");
  EXPECT_EQ(main.MoreKey()->toolTip(), "More keys (F8)");
  EXPECT_EQ(main.BackKey()->accessibleName(), "Back");
  EXPECT_EQ(main.MoreKey()->accessibleName(), "More keys");
  EXPECT_EQ(main.MoreKey()->KeyName(), "F8");
  SoftKeyBar side(Qt::Vertical, 2, &SideKey, nullptr);
  EXPECT_EQ(side.BackKey()->toolTip(), "Back (Shift+F7)");
  EXPECT_EQ(side.MoreKey()->toolTip(), "More keys (Shift+F8)");
  EXPECT_EQ(side.MoreKey()->KeyName(), "Shift+F8");
  EXPECT_EQ(side.Key(1)->KeyName(), "Shift+F2");
  main.ShowItems({{5, "Tool", ""}});
  EXPECT_EQ(main.Key(0)->toolTip(), "Tool (F1)");
  EXPECT_EQ(main.Key(0)->accessibleName(), "Tool");
  EXPECT_EQ(main.Key(1)->toolTip(), "");
  EXPECT_EQ(main.Key(1)->accessibleName(), "");
}

TEST(BarPlacesTest, EachItemIsShownInEveryWay) {
  SoftKeyBar bar(Qt::Horizontal, 3, &MainKey, nullptr);
  bar.SetFontPixels(20);
  SoftKeyItem latched{1, "A", ""};
  latched.checked = true;
  SoftKeyItem leads{2, "B", ""};
  leads.subMenu = 9;
  SoftKeyItem drawn{3, "C", ""};
  drawn.bitmap = 332;
  bar.ShowItems({latched, leads, drawn});
  bar.resize(800, 56);
  EXPECT_TRUE(bar.Key(0)->isCheckable());
  EXPECT_TRUE(bar.Key(0)->isChecked());
  EXPECT_FALSE(bar.Key(1)->isCheckable());
  EXPECT_THAT(StrokesOf(*bar.Key(1)), ::testing::Contains(::testing::StartsWith("polygon")));
  EXPECT_THAT(StrokesOf(*bar.Key(2)), ::testing::Not(::testing::Contains(::testing::StartsWith("polygon"))));
  EXPECT_FALSE(bar.Key(0)->HasPicture());
  for (PanelKey* key : {bar.Key(0), bar.Key(1)}) {
    EXPECT_THAT(StrokesOf(*key), ::testing::Contains(::testing::HasSubstr(" 20 px")));
  }
  bar.ShowItems({});
  EXPECT_FALSE(bar.Key(0)->isCheckable());
  EXPECT_EQ(bar.Key(0)->text(), "");
  EXPECT_THAT(StrokesOf(*bar.Key(1)), ::testing::Not(::testing::Contains(::testing::StartsWith("polygon"))));
  bar.ShowItems(std::vector<SoftKeyItem>(4, SoftKeyItem{1, "A", ""}));
  EXPECT_THAT(StrokesOf(*bar.MoreKey()), ::testing::Contains(::testing::HasSubstr("'1/2'")));
  EXPECT_THAT(StrokesOf(*bar.MoreKey()), ::testing::Contains(::testing::HasSubstr("'F8'")));
}

TEST(BarPlacesTest, KeysInsideOthersLeadOut) {
  SoftKeyBar bar(Qt::Vertical, 2, &SideKey, nullptr);
  int left = 0;
  QObject::connect(&bar, &SoftKeyBar::Left, &bar, [&left] { ++left; });
  bar.show();
  bar.ShowItems(std::vector<SoftKeyItem>(3, SoftKeyItem{1, "A", ""}));
  EXPECT_FALSE(bar.BackKey()->isEnabled());
  bar.NextPage();
  bar.SetInner(true);
  EXPECT_EQ(bar.Page(), 0);
  EXPECT_TRUE(bar.IsInner());
  EXPECT_TRUE(bar.BackKey()->isEnabled());
  bar.NextPage();
  bar.SetInner(true);
  EXPECT_EQ(bar.Page(), 1) << "nothing new";
  bar.Back();
  EXPECT_EQ(bar.Page(), 0);
  EXPECT_EQ(left, 0) << "first to the first page";
  bar.Back();
  EXPECT_EQ(left, 1);
  bar.ShowItems({{1, "A", ""}});
  EXPECT_TRUE(bar.BackKey()->isVisible()) << "the way out, with one page too";
  bar.SetInner(false);
  EXPECT_FALSE(bar.BackKey()->isVisible());
  EXPECT_FALSE(bar.BackKey()->isEnabled());
  EXPECT_EQ(bar.Menu(), 0u);
}

TEST(BarPlacesTest, AMenuOfATheirsIsNeverInner) {
  SoftKeyBar bar(Qt::Horizontal, 2, &MainKey, nullptr);
  bar.SetMenuSource({[](std::uint32_t) { return true; },
                     [](std::uint32_t menu) {
                       SoftKeyItem sub{static_cast<int>(menu), QString::number(menu), ""};
                       sub.subMenu = menu + 1;
                       return std::vector<SoftKeyItem>(3, sub);
                     }});
  bar.SetInner(true);
  bar.ShowMenu(7);
  EXPECT_FALSE(bar.IsInner());
  EXPECT_FALSE(bar.BackKey()->isEnabled());
  EXPECT_EQ(bar.Menu(), 7u);
  bar.NextPage();
  bar.Press(0);
  EXPECT_EQ(bar.Page(), 0) << "a sub-menu begins at its beginning";
  EXPECT_EQ(bar.Key(0)->text(), "8");
  EXPECT_TRUE(bar.BackKey()->isEnabled());
  EXPECT_EQ(bar.Menu(), 7u);
  bar.Press(1);
  EXPECT_EQ(bar.Key(0)->text(), "9");
  bar.NextPage();
  bar.Back();
  EXPECT_EQ(bar.Key(0)->text(), "8");
  EXPECT_EQ(bar.Page(), 0);
  bar.ShowMenu(7);
  EXPECT_TRUE(bar.InSubMenu());
  bar.ShowMenu(20);
  EXPECT_FALSE(bar.InSubMenu());
}

struct OperatorRow {
  Action action;
  const char* name;
  QColor tint;
  bool filled;
  bool latches;
};

TEST(OperatorKeysTest, EachKeyHasItsNameItsColourAndItsLamp) {
  UseWords("en");
  OperatorKeys keys(nullptr);
  const OperatorRow rows[] = {{Action::kCycleStart, "F9", theme::kGreen, true, false},
                              {Action::kFeedHold, "F10", theme::kAmber, true, false},
                              {Action::kSingleBlock, "F11", theme::kAccent, false, true},
                              {Action::kInspect, "Shift+F10", theme::kViolet, false, true},
                              {Action::kOverrideDown, "Ctrl+-", {}, false, false},
                              {Action::kOverrideUp, "Ctrl++", {}, false, false},
                              {Action::kCancel, "Shift+F9", theme::kAmber, false, false},
                              {Action::kReset, "F12", theme::kRed, false, false},
                              {Action::kClearError, "Shift+Esc", theme::kRed, false, false}};
  ASSERT_EQ(keys.Keys().size(), std::size(rows));
  keys.resize(900, 54);
  keys.show();
  QCoreApplication::processEvents();
  keys.Show([](Action) { return true; }, [](Action) { return true; });
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const OperatorRow& row = rows[i];
    const auto& [action, key] = keys.Keys()[i];
    EXPECT_EQ(action, row.action) << row.name;
    EXPECT_EQ(keys.Key(row.action), key) << row.name;
    EXPECT_EQ(key->text(), Say(WordOf(row.action)));
    EXPECT_EQ(key->accessibleName(), key->text());
    EXPECT_EQ(key->KeyName(), row.name);
    EXPECT_EQ(key->toolTip(), key->text() + " (" + row.name + ")");
    EXPECT_EQ(key->Tint(), row.tint) << row.name;
    key->setAttribute(Qt::WA_UnderMouse, false);
    EXPECT_EQ(key->Fill() == row.tint, row.filled) << row.name;
    EXPECT_EQ(key->isCheckable(), row.latches) << row.name;
    EXPECT_EQ(key->isChecked(), row.latches) << row.name;
    EXPECT_EQ(key->autoRepeatDelay(), 400);
    EXPECT_EQ(key->autoRepeatInterval(), 120);
    EXPECT_TRUE(key->isEnabled());
    const int index = static_cast<int>(i);
    const int left = 904 * index / 9;
    EXPECT_EQ(key->geometry(), QRect(left, 0, 904 * (index + 1) / 9 - 4 - left, 54));
  }
  keys.Show([](Action action) { return action == Action::kReset; }, [](Action) { return false; });
  for (const auto& [action, key] : keys.Keys()) {
    EXPECT_EQ(key->isEnabled(), action == Action::kReset);
    EXPECT_FALSE(key->isChecked());
  }
  EXPECT_EQ(keys.Key(Action::kHelp), nullptr);
  keys.SetFontPixels(20);
  EXPECT_THAT(StrokesOf(*keys.Key(Action::kReset)), ::testing::Contains(::testing::HasSubstr("'Reset' at")));
  EXPECT_THAT(StrokesOf(*keys.Key(Action::kReset)), ::testing::Contains(::testing::HasSubstr(" 17 px")));
}

TEST(OperatorKeysTest, TheStartKeySaysWhyItIsDim) {
  UseWords("en");
  OperatorKeys keys(nullptr);
  PanelKey* key = keys.Key(Action::kCycleStart);
  const QString tip = key->toolTip();
  const struct {
    const char* note;
    const char* reason;
  } rows[] = {{"No block", "There is nothing to start"},
              {"No block", "The door is open"},
              {"Door", "The door is open"},
              {"", ""}};
  for (const auto& row : rows) {
    keys.ShowStartReason(row.note, row.reason);
    EXPECT_EQ(key->Note(), row.note);
    EXPECT_EQ(key->accessibleDescription(), row.reason);
    EXPECT_EQ(key->toolTip(), *row.reason == 0 ? tip : tip + '\n' + row.reason);
  }
}

struct IndicatorRow {
  const char* what;
  ErrorSign sign;
  int standing;
  const char* text;
  const char* spoken;
  QColor fill;
  QColor ink;
  bool bold;
};

TEST(IndicatorPictureTest, TheIndicatorShowsItsCountInItsColours) {
  UseWords("en");
  const QColor warning = theme::FromColorRef(0x648064);
  for (const IndicatorRow& row :
       {IndicatorRow{"none", {}, 0, "no errors", "no errors", theme::kSurface, theme::kMuted, false},
        IndicatorRow{"seen", {}, 3, "Errors: 3", "Errors: 3", theme::kRed, theme::kText, true},
        IndicatorRow{"seen, of another class",
                     {7, ErrorKind::kWarning, 500, 0},
                     3,
                     "Errors: 3",
                     "Errors: 3",
                     theme::kRed,
                     theme::kText,
                     true},
        IndicatorRow{"away",
                     {7, ErrorKind::kWarning, 500, 1},
                     3,
                     "Errors: 1",
                     "Errors: 1, warning",
                     warning,
                     theme::InkOn(warning),
                     true}}) {
    ErrorIndicator indicator(nullptr);
    indicator.resize(186, 40);
    indicator.Show(row.sign, row.standing);
    EXPECT_EQ(indicator.text(), row.text);
    EXPECT_EQ(indicator.accessibleName(), row.spoken);
    EXPECT_EQ(indicator.Fill(), row.fill) << row.what;
    EXPECT_EQ(indicator.Ink(), row.ink) << row.what;
    const auto expected = [&row](QColor fill, int pixels) {
      return Pictured([&](Picture& picture) {
        picture.Field({0, 0, 186, 40}, fill, theme::kBorder)
            .Middle({6, 0, 174, 40}, row.text, Font(pixels, row.bold), row.ink);
      });
    };
    EXPECT_EQ(StrokesOf(indicator), expected(row.fill, 15)) << row.what;
    indicator.SetFontPixels(18);
    EXPECT_EQ(StrokesOf(indicator), expected(row.fill, 18)) << row.what;
    indicator.setDown(true);
    EXPECT_EQ(indicator.Fill(), QColor(theme::kPressed)) << row.what;
    EXPECT_EQ(indicator.Ink(), theme::InkOn(QColor(theme::kPressed))) << row.what;
    indicator.resize(30, 40);
    EXPECT_THAT(StrokesOf(indicator).back(), ::testing::HasSubstr(" 11 px"));
  }
}

class FlashTest : public ::testing::Test {
 protected:
  FlashTest() {
    UseWords("en");
    indicator_.resize(186, 40);
  }
  /// The timers that run, by the time between two ticks.
  [[nodiscard]] std::vector<int> Ticks() {
    std::vector<int> ticks;
    for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&indicator_)) {
      ticks.push_back(timer.interval);
    }
    return ticks;
  }
  void Tick() {
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&indicator_);
    ASSERT_EQ(timers.size(), 1);
    QTimerEvent event(timers[0].timerId);
    QCoreApplication::sendEvent(&indicator_, &event);
  }
  ErrorIndicator indicator_{nullptr};
};

TEST_F(FlashTest, ItFlashesAtThePeriodAskedForAndNoQuickerThanAnEyeSees) {
  for (const auto& [period, tick] : {std::pair(500, 500), std::pair(51, 51), std::pair(50, 50), std::pair(1, 50)}) {
    indicator_.Show({5, ErrorKind::kError, period, 1}, 1);
    EXPECT_EQ(Ticks(), std::vector<int>{tick});
  }
  indicator_.Show({5, ErrorKind::kError, -1, 1}, 1);
  EXPECT_TRUE(Ticks().empty());
  indicator_.Show({5, ErrorKind::kError, 500, 0}, 1);
  EXPECT_TRUE(Ticks().empty()) << "nothing is away";
}

TEST_F(FlashTest, ItTurnsItsColoursRoundAtEachTick) {
  indicator_.Show({5, ErrorKind::kError, 500, 1}, 1);
  const QColor fill = indicator_.Fill();
  const QColor ink = indicator_.Ink();
  RepaintCount count(indicator_);
  EXPECT_TRUE(count.After([this] { Tick(); }));
  EXPECT_EQ(indicator_.Fill(), ink);
  EXPECT_EQ(indicator_.Ink(), fill);
  indicator_.Show({6, ErrorKind::kError, 500, 2}, 2);
  EXPECT_EQ(indicator_.Fill(), ink) << "another count goes on in the same beat";
  Tick();
  EXPECT_EQ(indicator_.Fill(), fill);
  Tick();
  indicator_.Show({6, ErrorKind::kError, 400, 2}, 2);
  EXPECT_EQ(indicator_.Fill(), fill) << "another beat begins in the class colour";
  Tick();
  indicator_.Show({6, ErrorKind::kError, 400, 0}, 2);
  indicator_.Show({6, ErrorKind::kError, 400, 1}, 2);
  EXPECT_EQ(indicator_.Fill(), fill) << "and so does an error that is away again";
}

TEST_F(FlashTest, ATimerOfSomebodyElseTurnsNothingRound) {
  indicator_.Show({5, ErrorKind::kError, 500, 1}, 1);
  const QColor fill = indicator_.Fill();
  QTimerEvent other(987654);
  QCoreApplication::sendEvent(&indicator_, &other);
  EXPECT_EQ(indicator_.Fill(), fill);
}

TEST_F(FlashTest, EveryChangeOfTheIndicatorShowsAtOnce) {
  RepaintCount count(indicator_);
  EXPECT_TRUE(count.After([this] { indicator_.Show({5, ErrorKind::kError, 0, 1}, 1); }));
  EXPECT_TRUE(count.After([this] { indicator_.Show({5, ErrorKind::kWarning, 0, 1}, 1); })) << "the colour alone";
  EXPECT_FALSE(count.After([this] { indicator_.Show({5, ErrorKind::kWarning, 0, 1}, 1); }));
  EXPECT_TRUE(count.After([this] { indicator_.SetFontPixels(20); }));
}

TEST_F(FlashTest, EnterAndTheSpaceBarPressIt) {
  int presses = 0;
  QObject::connect(&indicator_, &ErrorIndicator::clicked, &indicator_, [&presses] { ++presses; });
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier);
      QCoreApplication::sendEvent(&indicator_, &event);
    }
  }
  EXPECT_EQ(presses, 3);
  EXPECT_EQ(indicator_.focusPolicy(), Qt::TabFocus);
  EXPECT_EQ(indicator_.toolTip(), TooltipOf(Action::kErrorList));
}

TEST_F(FlashTest, ItHasABrightEdgeWhileItHasTheKeyboard) {
  indicator_.show();
  indicator_.activateWindow();
  indicator_.setFocus();
  QCoreApplication::processEvents();
  ASSERT_TRUE(indicator_.hasFocus());
  EXPECT_EQ(StrokesOf(indicator_)[0], Pictured([](Picture& p) {
              p.Field({0, 0, 186, 40}, theme::kSurface, theme::kAccent);
            })[0]);
}

}  // namespace
}  // namespace panel
