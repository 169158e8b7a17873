// SPDX-License-Identifier: MIT
// Which keys a cover takes, and where Tab and the arrow keys move on it.
#include "ui/cover.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <array>
#include <utility>

namespace panel {
namespace {

/// A cover with three widgets that leave every key to it.
class ThreeFields : public Cover {
 public:
  enum class Kind { kList, kKeys, kFields };
  ThreeFields(QWidget* parent, Kind kind)
      : Cover(parent, kind == Kind::kList   ? Arrows::kNone
                      : kind == Kind::kKeys ? Arrows::kLeftRight
                                            : Arrows::kUpDown) {
    for (QWidget& field : fields) {
      field.setParent(this);
      field.setFocusPolicy(Qt::StrongFocus);
    }
    setFocusPolicy(Qt::StrongFocus);
  }
  [[nodiscard]] bool IsOpen() const override { return isVisible(); }
  void Leave() override { ++left; }
  [[nodiscard]] std::vector<QWidget*> TabOrder() const override { return order; }

  std::array<QWidget, 3> fields;
  std::vector<QWidget*> order{&fields[0], &fields[1], &fields[2]};
  int left = 0;
};

class CoverTest : public ::testing::Test {
 protected:
  void ShowPanel() {
    panel.show();
    panel.activateWindow();
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    ASSERT_TRUE(panel.isActiveWindow());
  }
  void Show(ThreeFields& cover) {
    cover.show();
    ShowPanel();
    cover.order[0]->setFocus();
  }
  /// Presses a key where the focus is.
  void Press(int key) const {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  /// Counts the keys that it hears.
  struct Panel : QWidget {
    void keyPressEvent(QKeyEvent*) override { ++keys; }
    int keys = 0;
  };
  Panel panel;
};

using Kind = ThreeFields::Kind;

TEST_F(CoverTest, NoKeyReachesThePanelBelow) {
  for (const Kind kind : {Kind::kList, Kind::kKeys, Kind::kFields}) {
    ThreeFields cover(&panel, kind);
    Show(cover);
    for (const int key : {Qt::Key_A, Qt::Key_F1, Qt::Key_Return, Qt::Key_Left, Qt::Key_Down, Qt::Key_Tab}) Press(key);
    EXPECT_EQ(panel.keys, 0);
    EXPECT_EQ(cover.left, 0);
    Press(Qt::Key_Escape);
    EXPECT_EQ(panel.keys, 0);
    EXPECT_EQ(cover.left, 1) << "Escape leaves";
  }
}

TEST_F(CoverTest, OnlyItsArrowsMoveTheFocus) {
  struct Row {
    Kind kind;
    std::array<int, 2> arrows;  // the keys that move on and back
    std::array<int, 2> others;
  };
  constexpr std::array<int, 2> kSide{Qt::Key_Right, Qt::Key_Left};
  constexpr std::array<int, 2> kHigh{Qt::Key_Down, Qt::Key_Up};
  for (const Row& row : {Row{Kind::kKeys, kSide, kHigh}, Row{Kind::kFields, kHigh, kSide}}) {
    ThreeFields cover(&panel, row.kind);
    Show(cover);
    for (const int key : row.others) {
      Press(key);
      EXPECT_TRUE(cover.order[0]->hasFocus()) << key;
    }
    Press(row.arrows[0]);
    EXPECT_TRUE(cover.order[1]->hasFocus());
    Press(row.arrows[1]);
    Press(row.arrows[1]);
    EXPECT_TRUE(cover.order[2]->hasFocus());
  }
  ThreeFields list(&panel, Kind::kList);
  Show(list);
  for (const int key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up}) {
    Press(key);
    EXPECT_TRUE(list.order[0]->hasFocus()) << key;
  }
}

TEST_F(CoverTest, TabStaysOnTheCover) {
  QWidget outside(&panel);
  outside.setFocusPolicy(Qt::StrongFocus);
  ThreeFields cover(&panel, Kind::kList);
  Show(cover);
  std::swap(cover.order[1], cover.order[2]);
  for (const int place : {1, 2, 0, 1}) {
    Press(Qt::Key_Tab);
    EXPECT_TRUE(cover.order[static_cast<std::size_t>(place)]->hasFocus()) << place;
  }
  Press(Qt::Key_Backtab);
  EXPECT_TRUE(cover.order[0]->hasFocus());
}

TEST_F(CoverTest, TabMovesAmongWhatIsSeenAndEnabled) {
  QWidget a(&panel);
  QWidget b(&panel);
  QWidget c(&panel);
  for (QWidget* widget : {&a, &b, &c}) widget->setFocusPolicy(Qt::StrongFocus);
  ShowPanel();
  const auto next = [&](bool forward) { return FocusAmong({&a, &b, &c}, forward); };
  a.clearFocus();
  EXPECT_TRUE(next(true));
  EXPECT_TRUE(a.hasFocus()) << "from nowhere to the first";
  a.clearFocus();
  EXPECT_TRUE(next(false));
  EXPECT_TRUE(c.hasFocus()) << "or the last";
  EXPECT_TRUE(next(true));
  EXPECT_TRUE(a.hasFocus());
  b.setEnabled(false);
  EXPECT_TRUE(next(true));
  EXPECT_TRUE(c.hasFocus());
  EXPECT_TRUE(next(false));
  EXPECT_TRUE(a.hasFocus());
  c.hide();
  EXPECT_TRUE(next(false));
  EXPECT_TRUE(a.hasFocus());
  a.setEnabled(false);
  EXPECT_FALSE(next(true));
}

}  // namespace
}  // namespace panel
