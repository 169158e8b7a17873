// SPDX-License-Identifier: MIT
// How the cells of a grid are painted: their colours, their frames and where
// their content lies.
#include "controls/grid_look.h"

#include <functional>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr GridColors kColors{0xFFFFFF, 0xC0C0C0, 0xF0F0F0};
constexpr QRect kCell(10, 5, 120, 40);
const QColor kLine(0xAB, 0xAC, 0xAD);
const QColor kFrame(0x0A, 0x6E, 0xC8);

QFont CellFont() { return MakeFont("Arial", 16, 400).value(); }

template <typename Draw>
QImage Drawn(Draw draw) {
  QImage image(160, 60, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  painter.setFont(CellFont());
  draw(painter);
  return image;
}

QImage DrawnCell(const GridCellFace& face) {
  return Drawn([&](QPainter& painter) { DrawGridCell(painter, kCell, kColors, face); });
}

/// The colour of a cell's pixel, counted from the cell's corner; negative
/// numbers count from its end.
QColor At(const QImage& cell, int x, int y) {
  return cell.pixelColor(x < 0 ? kCell.right() + 1 + x : kCell.left() + x,
                         y < 0 ? kCell.bottom() + 1 + y : kCell.top() + y);
}

struct FaceRow {
  const char* what;
  GridCellFace face;
  const char* ground;
  const char* text;
};

GridCellFace Face(GridRowState state, bool editable = true) {
  GridCellFace face;
  face.state = state;
  face.editable = editable;
  return face;
}

GridCellFace Marked(GridCellFace face, bool selected, bool focused, bool tint = false) {
  face.selected = selected;
  face.focused = focused;
  face.tint = tint;
  return face;
}

GridCellFace Alternate(GridCellFace face) {
  face.alternate = true;
  return face;
}

GridCellFace Disabled(GridCellFace face) {
  face.enabled = false;
  return face;
}

TEST(GridLook, ACellsColoursTellItsStateSelectionAndTint) {
  const GridCellFace normal = Face(GridRowState::kNormal);
  const GridCellFace locked = Face(GridRowState::kNormal, false);
  const GridCellFace factory = Face(GridRowState::kFactory, false);
  const GridCellFace failed = Face(GridRowState::kFailed);
  const FaceRow rows[] = {
      {"normal", normal, "#ffffff", "#141a21"},
      {"in the focused grid", Marked(normal, false, true), "#ffffff", "#141a21"},
      {"every second row", Alternate(normal), "#f0f0f0", "#141a21"},
      {"read-only", locked, "#e9e9e9", "#141a21"},
      {"factory", factory, "#e9e9e9", "#505459"},
      {"failed", failed, "#f3bcc0", "#141a21"},
      {"failed and read-only", Face(GridRowState::kFailed, false), "#f3bcc0", "#141a21"},
      {"tinted", Marked(normal, false, false, true), "#face83", "#141a21"},
      {"selected", Marked(normal, true, false), "#d2e2f0", "#141a21"},
      {"selected with the focus", Marked(normal, true, true), "#aac8e2", "#141a21"},
      {"failed and selected", Marked(failed, true, false), "#deb4bf", "#141a21"},
      {"failed, selected, with the focus", Marked(failed, true, true), "#cbadbd", "#141a21"},
      {"tinted and selected", Marked(normal, true, false, true), "#e4c588", "#141a21"},
      {"tinted, selected, with the focus", Marked(normal, true, true, true), "#d0bc8c", "#141a21"},
      {"all at once", Marked(Alternate(locked), true, false), "#b9c9d6", "#141a21"},
      {"disabled", Disabled(normal), "#ffffff", "#8a8d90"},
      {"disabled factory", Disabled(factory), "#e9e9e9", "#7f8285"},
  };
  for (const FaceRow& row : rows) {
    EXPECT_EQ(GridCellGround(kColors, row.face).name().toStdString(), row.ground) << row.what;
    EXPECT_EQ(GridCellText(kColors, row.face).name().toStdString(), row.text) << row.what;
  }
}

TEST(GridLook, LinesAreABitDarkerOrBrighterThanTheFixedCells) {
  EXPECT_EQ(GridLine(kColors), kLine);
  EXPECT_EQ(GridLine({0, 0x342A20, 0}).name().toStdString(), "#39434c");
}

TEST(GridLook, TextIsDarkOnWhatIsBrighterThanTheMiddleAndBrightOnTheRest) {
  EXPECT_EQ(ReadableOn(QColor(129, 129, 129)), QColor(0x14, 0x1A, 0x21));
  EXPECT_EQ(ReadableOn(QColor(128, 128, 128)), QColor(0xF4, 0xF7, 0xFA));
  EXPECT_EQ(ReadableOn(QColor(0, 255, 0)), QColor(0x14, 0x1A, 0x21)) << "green is a bright colour";
  EXPECT_EQ(ReadableOn(QColor(255, 0, 255)), QColor(0xF4, 0xF7, 0xFA));
}

TEST(GridLook, ACellEndsInALineAtItsRightAndItsBottom) {
  const QImage image = DrawnCell({});
  EXPECT_EQ(At(image, 0, 0), QColor(Qt::white));
  EXPECT_EQ(At(image, -2, -2), QColor(Qt::white));
  for (const QPoint place : {QPoint(-1, 0), QPoint(-1, -1), QPoint(0, -1), QPoint(60, -1), QPoint(-1, 20)}) {
    EXPECT_EQ(At(image, place.x(), place.y()), kLine) << place.x() << " " << place.y();
  }
  EXPECT_EQ(Ink(image, 0xFF00FF), kCell) << "nothing outside";
}

TEST(GridLook, ThePresentCellHasAFrameOfThreePixelsWithTheFocusAndAPaleOneWithoutIt) {
  GridCellFace face;
  face.current = true;
  face.focused = true;
  const QImage focused = DrawnCell(face);
  for (const int x : {0, 2, -2, -4}) EXPECT_EQ(At(focused, x, 20), kFrame) << x;
  for (const int y : {0, 2, -2, -4}) EXPECT_EQ(At(focused, 60, y), kFrame) << y;
  EXPECT_EQ(At(focused, 3, 20), QColor(Qt::white));
  EXPECT_EQ(At(focused, -5, 20), QColor(Qt::white));
  EXPECT_EQ(At(focused, 60, 3), QColor(Qt::white));
  EXPECT_EQ(At(focused, 60, -5), QColor(Qt::white));
  EXPECT_EQ(At(focused, -1, 20), kLine) << "the line stays";
  face.focused = false;
  const QImage pale = DrawnCell(face);
  const QColor line(0x65, 0x97, 0xC4);
  for (const int x : {0, -2}) EXPECT_EQ(At(pale, x, 20), line) << x;
  for (const int y : {0, -2}) EXPECT_EQ(At(pale, 60, y), line) << y;
  EXPECT_EQ(At(pale, 1, 20), QColor(Qt::white));
  EXPECT_EQ(At(pale, -3, 20), QColor(Qt::white));
}

/// The cell with what another way of drawing puts into it.
template <typename Draw>
QImage Expected(const GridCellFace& face, Draw draw) {
  GridCellFace empty = face;
  empty.kind = GridCellKind::kText;
  empty.text.clear();
  return Drawn([&](QPainter& painter) {
    DrawGridCell(painter, kCell, kColors, empty);
    painter.setClipRect(kCell);
    painter.setPen(GridCellText(kColors, face));
    draw(painter);
  });
}

TEST(GridLook, TextsLieAtTheLeftAndNumbersAtTheRightInTheMiddleOfTheHeight) {
  constexpr std::uint32_t kFlags =
      draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kExpandTabs | draw::kEndEllipsis;
  const QRect area = kCell.adjusted(8, 0, -9, -1);
  for (const char* const text : {"G0 &X", "a\tb", "a text that is far too long for the width of its cell"}) {
    GridCellFace face;
    face.text = text;
    EXPECT_EQ(DrawnCell(face), Expected(face, [&](QPainter& painter) { DrawText(painter, area, face.text, kFlags); }))
        << text;
    face.kind = GridCellKind::kNumber;
    EXPECT_EQ(DrawnCell(face),
              Expected(face, [&](QPainter& painter) { DrawText(painter, area, face.text, kFlags | draw::kRight); }))
        << text;
  }
}

TEST(GridLook, AListCellHasATriangleThatItsTextLeavesFree) {
  const int width = CellHeight(QFontMetrics(CellFont())) * 2 / 3;
  const QRect area = kCell.adjusted(8, 0, -9, -1);
  GridCellFace face;
  face.kind = GridCellKind::kList;
  face.text = "a text that is far too long for the width of its cell";
  const auto expected = [&](QPainter& painter) {
    const QColor ink = GridCellText(kColors, face);
    if (face.editable) {
      DrawTriangle(painter, QRect(area.right() - width, area.top(), width, area.height()), width, false, ink);
    }
    painter.setPen(ink);
    const int room = face.editable ? width + 8 : 0;
    DrawText(painter, area.adjusted(0, 0, -room, 0), face.text, 0x20 | 0x4 | 0x800 | 0x8000);
  };
  EXPECT_EQ(DrawnCell(face), Expected(face, expected));
  face.editable = false;
  EXPECT_EQ(DrawnCell(face), Expected(face, expected)) << "one that takes no edit shows none";
}

TEST(GridLook, ATrianglePointsUpOrDown) {
  const QRect area(20, 10, 40, 40);
  const auto widthOf = [&](const QImage& image, int y) {
    return Ink(image, 0xFF00FF, QRect(0, y, image.width(), 1)).width();
  };
  for (const bool up : {true, false}) {
    const QImage image = Drawn([&](QPainter& painter) { DrawTriangle(painter, area, 20, up, QColor(Qt::black)); });
    const QRect ink = Ink(image, 0xFF00FF);
    EXPECT_NEAR(ink.width(), 20, 1);
    EXPECT_NEAR(ink.height(), 10, 1);
    EXPECT_NEAR(ink.center().x(), area.center().x(), 1);
    EXPECT_NEAR(ink.center().y(), area.center().y(), 1);
    const int wide = up ? ink.bottom() - 1 : ink.top() + 1;
    const int narrow = up ? ink.top() + 1 : ink.bottom() - 1;
    EXPECT_GT(widthOf(image, wide), widthOf(image, narrow) + 8) << up;
  }
}

TEST(GridLook, ACheckIsInABoxWhoseSizeFollowsTheCellWithinLimits) {
  const struct {
    int height;
    int side;
  } rows[] = {{20, 16}, {25, 16}, {26, 17}, {33, 24}, {39, 30}, {40, 30}, {50, 30}};
  for (const auto& row : rows) {
    const QRect cell(10, 5, 60, row.height);
    GridCellFace face;
    face.kind = GridCellKind::kCheck;
    for (const bool checked : {false, true}) {
      face.checked = checked;
      const QImage drawn = Drawn([&](QPainter& painter) { DrawGridCell(painter, cell, kColors, face); });
      GridCellFace empty;
      const QImage expected = Drawn([&](QPainter& painter) {
        DrawGridCell(painter, cell, kColors, empty);
        painter.setClipRect(cell);
        DrawCheckMark(painter, cell.adjusted(8, 0, -9, -1), row.side, checked, QColor(0x14, 0x1A, 0x21), Qt::white);
      });
      EXPECT_EQ(drawn, expected) << row.height << checked;
    }
  }
}

TEST(GridLook, ACheckThatCannotBeTurnedIsPale) {
  GridCellFace face;
  face.kind = GridCellKind::kCheck;
  const auto darkest = [](const QImage& image) {
    int least = 255;
    for (int x = kCell.left() + 40; x < kCell.right() - 40; ++x) {
      least = std::min(least, image.pixelColor(x, kCell.center().y()).lightness());
    }
    return least;
  };
  const int usual = darkest(DrawnCell(face));
  EXPECT_LT(usual, 40);
  face.editable = false;
  EXPECT_NEAR(darkest(DrawnCell(face)), 112, 8);
  face.editable = true;
  face.enabled = false;
  EXPECT_GT(darkest(DrawnCell(face)), 150) << "disabled: paler still";
}

TEST(GridLook, ACheckMarkIsASquareInTheMiddleWithAHookWhenItIsOn) {
  const auto draw = [](bool checked) {
    return Drawn([checked](QPainter& painter) {
      DrawCheckMark(painter, QRect(20, 10, 60, 40), 30, checked, QColor(Qt::black), QColor(Qt::yellow));
    });
  };
  const QImage off = draw(false);
  EXPECT_EQ(Ink(off, 0xFF00FF), QRect(35, 15, 30, 30));
  EXPECT_EQ(off.pixelColor(36, 30), QColor(Qt::black)) << "an edge of two pixels";
  EXPECT_EQ(off.pixelColor(37, 30), QColor(Qt::yellow));
  EXPECT_EQ(off.pixelColor(63, 30), QColor(Qt::black));
  EXPECT_EQ(off.pixelColor(62, 30), QColor(Qt::yellow));
  EXPECT_NE(off.pixelColor(35, 15), QColor(Qt::black)) << "its corners are round";
  const QImage on = draw(true);
  // From the left middle to the lower middle and up to the right: in a box of
  // 28 with its corner at 36, 16.
  for (const QPoint place : {QPoint(42, 31), QPoint(48, 36), QPoint(58, 23)}) {
    EXPECT_EQ(on.pixelColor(place), QColor(Qt::black)) << place.x();
    EXPECT_EQ(off.pixelColor(place), QColor(Qt::yellow)) << place.x();
  }
  for (const QPoint place : {QPoint(42, 22), QPoint(50, 24), QPoint(58, 36)}) {
    EXPECT_EQ(on.pixelColor(place), QColor(Qt::yellow)) << place.x();
  }
}

TEST(GridLook, ADrawingLeavesThePainterAsItWas) {
  GridCellFace face = Face(GridRowState::kNormal);
  face.current = true;
  const std::function<void(QPainter&)> drawings[] = {
      [](QPainter& painter) { DrawTriangle(painter, kCell, 12, true, Qt::black); },
      [](QPainter& painter) { DrawCheckMark(painter, kCell, 20, true, Qt::black, Qt::white); },
      [&](QPainter& painter) { DrawGridCell(painter, kCell, kColors, face); },
  };
  for (const auto& draw : drawings) {
    Drawn([&](QPainter& painter) {
      painter.setPen(Qt::green);
      painter.setBrush(Qt::cyan);
      draw(painter);
      EXPECT_EQ(painter.pen(), QPen(Qt::green));
      EXPECT_EQ(painter.brush(), QBrush(Qt::cyan));
      EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
      EXPECT_FALSE(painter.hasClipping());
    });
  }
}

TEST(GridLook, ThePresentCellsFrameIsEmptyWhateverThePainterHad) {
  const GridCellFace plain = Face(GridRowState::kNormal);
  GridCellFace face = plain;
  face.current = true;
  const QImage image = Drawn([&](QPainter& painter) {
    painter.setBrush(Qt::red);
    DrawGridCell(painter, kCell, kColors, face);
  });
  EXPECT_EQ(At(image, 20, 20), GridCellGround(kColors, plain));
}

TEST(GridLook, SignsHaveSoftEdges) {
  const auto other = [](const QImage& image) {
    return image.width() * image.height() - Count(image, 0xFF00FF) - Count(image, 0) - Count(image, 0xFFFFFF);
  };
  EXPECT_GT(other(Drawn([](QPainter& painter) { DrawTriangle(painter, kCell, 12, true, Qt::black); })), 4);
  EXPECT_GT(other(Drawn([](QPainter& painter) { DrawCheckMark(painter, kCell, 20, true, Qt::black, Qt::white); })), 4);
}

TEST(GridLook, NothingIsPaintedBesideALowCell) {
  GridCellFace face = Face(GridRowState::kNormal);
  face.kind = GridCellKind::kCheck;
  const QRect low(10, 20, 120, 8);
  const QImage image = Drawn([&](QPainter& painter) { DrawGridCell(painter, low, kColors, face); });
  EXPECT_EQ(Ink(image, 0xFF00FF), low);
}

TEST(GridLook, AFailedRowHasARedBarOfFivePixelsAboveItsLine) {
  const QImage image = Drawn([](QPainter& painter) { DrawFailedBar(painter, kCell); });
  EXPECT_EQ(Ink(image, 0xFF00FF), QRect(kCell.left(), kCell.top(), 5, kCell.height() - 1));
  EXPECT_EQ(At(image, 0, 0), QColor(0xD8, 0x1E, 0x2C));
}

}  // namespace
}  // namespace pnl::test
