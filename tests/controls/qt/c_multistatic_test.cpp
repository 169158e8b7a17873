// SPDX-License-Identifier: MIT
#include "controls/c_multistatic.h"

#include <map>

#include "controls/grid_look.h"
#include "paint_counter.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"

namespace pnl::test {
namespace {

using Face = CMultistatic::Face;

class CMultistaticTest : public testing::Test {
 protected:
  CMultistaticTest() {
    box = new CMultistatic(228, Face::kCheckBox, &window);
    box->setGeometry(10, 10, 24, 24);
    QObject::connect(box, &CMultistatic::Changed, &window, [this](int state) { emitted.push_back(state); });
    window.resize(200, 100);
    Activate(window);
  }
  void Touch(QPoint release = {12, 12}) {
    PressMouse(box, QPoint(12, 12));
    PressMouse(box, release, QEvent::MouseButtonRelease);
  }
  std::vector<int> emitted;
  QWidget window;
  CMultistatic* box;
};

TEST_F(CMultistaticTest, TouchAndSpaceTurnACheckBox) {
  Touch();
  EXPECT_EQ(box->State(), 1);
  EXPECT_TRUE(PressKey(box, Qt::Key_Space, " "));
  EXPECT_EQ(box->State(), 0);
  EXPECT_EQ(emitted, (std::vector<int>{1, 0}));
  EXPECT_FALSE(PressKey(box, Qt::Key_Return)) << "Enter belongs to the window";
  EXPECT_FALSE(PressKey(box, Qt::Key_Down));
  EXPECT_EQ(emitted.size(), 2u);
}

TEST_F(CMultistaticTest, AnyStateButZeroIsOn) {
  box->SetState(5);
  EXPECT_TRUE(box->IsOn());
  EXPECT_TRUE(emitted.empty()) << "the program's own change emits nothing";
  EXPECT_EQ(box->property(property::kState).toInt(), 5);
  EXPECT_EQ(box->property(property::kChecked), QVariant(true));
  EXPECT_EQ(ControlKind(box), "check");
  Touch();
  EXPECT_EQ(box->State(), 0);
  EXPECT_EQ(box->property(property::kChecked), QVariant(false));
}

TEST_F(CMultistaticTest, ATouchReleasedElsewhereOrWithAnotherButtonTurnsNothing) {
  Touch({60, 12});
  PressMouse(box, QPoint(12, 12), QEvent::MouseButtonRelease);
  PressMouse(box, QPoint(12, 12), QEvent::MouseButtonPress, Qt::RightButton);
  PressMouse(box, QPoint(12, 12), QEvent::MouseButtonRelease, Qt::RightButton);
  EXPECT_EQ(box->State(), 0);
  EXPECT_TRUE(emitted.empty());
}

TEST_F(CMultistaticTest, ADisabledOneDoesNotTurn) {
  box->setEnabled(false);
  Touch();
  EXPECT_EQ(box->State(), 0);
}

TEST_F(CMultistaticTest, OnOffDisabledAndFocusedLookDifferent) {
  box->clearFocus();
  const QImage off = Paint(*box);
  box->SetState(1);
  const QImage on = Paint(*box);
  box->setFocus();
  const QImage focused = Paint(*box);
  box->clearFocus();
  box->setEnabled(false);
  const QImage disabled = Paint(*box);
  EXPECT_NE(off, on);
  EXPECT_NE(on, focused);
  EXPECT_NE(on, disabled);
}

TEST_F(CMultistaticTest, ABandIsAPlainColour) {
  CMultistatic band(503, Face::kBand, nullptr);
  band.resize(40, 20);
  band.SetBackColor(0x838D97);
  EXPECT_EQ(Count(Paint(band), 0x838D97), 800);
  EXPECT_EQ(band.focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(ControlKind(&band), "static");
  EXPECT_FALSE(band.property(property::kChecked).isValid());
  PressMouse(&band, QPoint(5, 5));
  PressMouse(&band, QPoint(5, 5), QEvent::MouseButtonRelease);
  EXPECT_EQ(band.State(), 0);
}

TEST_F(CMultistaticTest, APictureShowsTheSvgOfItsState) {
  const std::map<int, std::string> svgs = {
      {1,
       R"(<svg xmlns="http://www.w3.org/2000/svg" width="10" height="10"><rect width="10" height="10" fill="#f00"/></svg>)"},
      {2, "no picture"}};
  CMultistatic picture(501, Face::kPicture, nullptr);
  picture.resize(40, 20);
  picture.SetBackColor(0x112233);
  picture.SetState(1);
  picture.SetPictures([&svgs](int state) {
    const auto found = svgs.find(state);
    return found == svgs.end() ? nullptr : &found->second;
  });
  EXPECT_EQ(Count(Paint(picture), 0x0000FF), 400) << "as large as it fits, in its shape";
  EXPECT_EQ(ColorAt(Paint(picture), 20, 10), 0x0000FFu) << "in the middle";
  for (const int state : {2, 3, -1}) {
    picture.SetState(state);
    EXPECT_EQ(Count(Paint(picture), 0x112233), 800) << state;
    EXPECT_EQ(picture.property(property::kState).toInt(), state);
  }
  EXPECT_EQ(ControlKind(&picture), "picture");
}

TEST_F(CMultistaticTest, MayBeDestroyedByWhoListens) {
  for (const bool byKey : {false, true}) {
    auto* own = new CMultistatic(1, Face::kCheckBox, &window);
    const QPointer<CMultistatic> alive(own);
    own->resize(24, 24);
    own->show();
    QObject::connect(own, &CMultistatic::Changed, &window, [own] { delete own; });
    if (byKey) {
      PressKey(own, Qt::Key_Space, " ");
    } else {
      PressMouse(own, QPoint(12, 12));
      PressMouse(own, QPoint(12, 12), QEvent::MouseButtonRelease);
    }
    EXPECT_TRUE(alive.isNull()) << byKey;
  }
}

TEST_F(CMultistaticTest, ABoxFillsTheAreaAndMakesRoomForTheFrameOfTheFocus) {
  const auto expected = [this](int side, const QColor& ink, const QColor& ground) {
    QImage image(box->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    DrawCheckMark(painter, box->rect(), side, box->IsOn(), ink, ground);
    return image;
  };
  const QColor ink(0x14, 0x1A, 0x21);
  const QColor ground(0xF4, 0xF7, 0xFA);
  box->SetBackColor(0xFFFFFF);
  box->resize(40, 24);
  box->clearFocus();
  EXPECT_EQ(Paint(*box), expected(24, ink, ground));
  box->SetState(1);
  EXPECT_EQ(Paint(*box), expected(24, ink, ground));
  box->setFocus();
  const QImage focused = Paint(*box);
  const QColor frame(0x4D, 0xB2, 0xFF);
  for (const int x : {8, 9, 30, 31}) EXPECT_EQ(focused.pixelColor(x, 12), frame) << x;
  for (const int y : {0, 1, 22, 23}) EXPECT_EQ(focused.pixelColor(20, y), frame) << y;
  for (const int x : {7, 32}) EXPECT_EQ(focused.pixelColor(x, 12), QColor(Qt::white)) << x;
  const QRect inside(10, 2, 20, 20);
  EXPECT_EQ(focused.copy(inside), expected(20, ink, ground).copy(inside));
  box->setEnabled(false);
  EXPECT_EQ(Paint(*box), expected(24, QColor(0x5A, 0x62, 0x6B), QColor(0xA8, 0xAE, 0xB5)));
}

TEST_F(CMultistaticTest, AKeyThatIsHeldTurnsABoxOnce) {
  box->setFocus();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  QApplication::sendEvent(box, &held);
  EXPECT_EQ(box->State(), 0);
  EXPECT_FALSE(held.isAccepted());
  EXPECT_EQ(box->focusPolicy(), Qt::StrongFocus);
}

TEST_F(CMultistaticTest, EveryChangeIsPainted) {
  PaintCounter paints(*box);
  box->SetState(1);
  Settle();
  EXPECT_EQ(paints.Count(), 1);
  box->SetBackColor(0x00FF00);
  Settle();
  EXPECT_EQ(paints.Count(), 2);
  EXPECT_EQ(ColorAt(Paint(*box), 0, 0), 0x00FF00u);
}

TEST_F(CMultistaticTest, ADisabledPictureIsPale) {
  const std::string svg =
      R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10"><rect width="20" height="10" fill="#000"/></svg>)";
  CMultistatic picture(501, Face::kPicture, nullptr);
  picture.resize(40, 40);
  picture.SetBackColor(0xFFFFFF);
  picture.SetPictures([&svg](int) { return &svg; });
  const QImage usual = Paint(picture);
  EXPECT_EQ(Ink(usual, 0xFFFFFF), QRect(0, 10, 40, 20));
  EXPECT_EQ(ColorAt(usual, 20, 20), 0u);
  picture.setEnabled(false);
  const QColor pale = Paint(picture).pixelColor(20, 20);
  EXPECT_NEAR(pale.red(), 255 * 0.55, 2);
}

TEST_F(CMultistaticTest, APressThatTurnsNothingIsLeftToTheWindow) {
  const auto taken = [](CMultistatic& pressed, Qt::MouseButton button) {
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(2, 2), pressed.mapToGlobal(QPointF(2, 2)), button, button,
                      Qt::NoModifier);
    event.accept();
    // Sent to the control alone, because its window would accept it.
    static_cast<QObject&>(pressed).event(&event);
    return event.isAccepted();
  };
  EXPECT_TRUE(taken(*box, Qt::LeftButton));
  EXPECT_FALSE(taken(*box, Qt::RightButton));
  CMultistatic picture(229, Face::kPicture, &window);
  EXPECT_FALSE(taken(picture, Qt::LeftButton));
}

}  // namespace
}  // namespace pnl::test
