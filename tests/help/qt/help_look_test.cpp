// SPDX-License-Identifier: MIT
// How the help viewer looks: colours, sizes and places of its keys, lines, lists and notes, and its picker.
#include "help/qt/help_look.h"

#include <QScrollBar>

#include "controls/page_browser.h"
#include "controls/qt/paint_counter.h"
#include "help/qt/manual_list_dialog.h"
#include "help_stage.h"
#include "support/text_catcher.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

class HelpLook : public HelpStage {
 protected:
  /// On a panel of the usual height.
  void Make() {
    ASSERT_TRUE(cnc.Returns("UTIL7340_FitFontSize", {17}));
    HelpStage::Make();
  }
  /// The colour of a widget's pixel, as the panel's colours are written.
  static std::uint32_t At(QWidget* widget, int x, int y) { return ColorAt(Paint(*widget), x, y); }
  [[nodiscard]] HelpKeyButton* KeyOf(int id) const { return static_cast<HelpKeyButton*>(Control(id)); }
  static QRect Dark(QWidget* key) {
    const QImage image = Paint(*key);
    QRegion dark;
    for (int y = 4; y < image.height() - 4; ++y) {
      for (int x = 4; x < image.width() - 4; ++x) {
        if (image.pixelColor(x, y).lightness() < 40) dark += QRect(x, y, 1, 1);
      }
    }
    return dark.boundingRect();
  }
};

TEST_F(HelpLook, AKeyIsFlatAndTheChosenTabLooksPressedIn) {
  Make();
  OpenAt();
  HelpKeyButton* const chosen = KeyOf(help_id::kContentsTab);
  HelpKeyButton* const plain = KeyOf(help_id::kIndexTab);
  EXPECT_EQ(At(chosen, chosen->width() / 2, 4), help_look::kChosenBack);
  EXPECT_EQ(At(plain, plain->width() / 2, 4), help_look::kKeyBack);
  EXPECT_LT(Paint(*plain).pixelColor(plain->width() / 2, 0).lightness(), 90) << "its edge is dark";
  EXPECT_FALSE(plain->property("pnlChecked").toBool());
  plain->setDown(true);
  const QColor down = Paint(*plain).pixelColor(plain->width() / 2, 4);
  EXPECT_NEAR(down.red(), ToQColor(help_look::kKeyBack).darker(120).red(), 1);
  EXPECT_NEAR(down.blue(), ToQColor(help_look::kKeyBack).darker(120).blue(), 1);
  plain->setDown(false);
  Touch(help_id::kIndexTab);
  EXPECT_EQ(At(chosen, chosen->width() / 2, 4), help_look::kKeyBack);
  EXPECT_EQ(At(plain, plain->width() / 2, 4), help_look::kChosenBack);
  EXPECT_FALSE(chosen->property("pnlChecked").toBool());
  EXPECT_THAT(StrokesOf(*plain), Contains(HasSubstr("'Index'")));
}

TEST_F(HelpLook, AKeyThatChangesIsPaintedAnew) {
  Make();
  OpenAt();
  HelpKeyButton* const key = KeyOf(help_id::kPanesKey);
  EXPECT_GT(PaintsAfter(*key, [key] { key->SetSign(HelpKeyButton::Sign::kRight); }), 0);
  EXPECT_GT(PaintsAfter(*key, [key] { key->SetChosen(true); }), 0);
  EXPECT_EQ(PaintsAfter(*key, [] {}), 0);
}

TEST_F(HelpLook, LinesAndTheFieldForFindingHaveTheViewersFont) {
  Make();
  OpenAt(u"OPT0777");
  const QFont font = HelpScale(context.cnc.Util()).MakeText();
  for (const int id : {help_id::kIndexLine, help_id::kSearchLine, help_id::kFindLine, help_id::kNotice,
                       help_id::kSearchStatus, help_id::kMissing, help_id::kSearchKey, help_id::kIndexTab}) {
    EXPECT_EQ(Control(id)->font().families(), font.families()) << id;
    EXPECT_EQ(Control(id)->font().pixelSize(), font.pixelSize()) << id;
    EXPECT_EQ(Control(id)->font().weight(), 500) << id;
  }
}

// A press on a key must not take the keyboard from the line that it works for, nor from the page.
TEST_F(HelpLook, KeysTakeNoFocusOfTheirOwn) {
  Make();
  OpenAt();
  Menu(40002);
  for (const int id : {help_id::kContentsTab, help_id::kIndexTab, help_id::kSearchTab, help_id::kPanesKey}) {
    EXPECT_EQ(Control(id)->focusPolicy(), Qt::NoFocus) << id;
  }
  for (const int id : {help_id::kFindPrevious, help_id::kFindNext, help_id::kFindClose}) {
    EXPECT_EQ(Control(id)->focusProxy(), Control(help_id::kFindLine)) << id;
    EXPECT_EQ(Control(id)->focusPolicy(), Qt::ClickFocus) << id;
  }
  EXPECT_EQ(Control(help_id::kSearchKey)->focusProxy(), Control(help_id::kSearchLine));
}

TEST_F(HelpLook, AKeyIsAsWideAsItsWordAndAWordThatIsTooLongIsCut) {
  ASSERT_TRUE(cnc.Returns("UTIL7340_FitFontSize", {17}));
  const HelpScale scale(context.cnc.Util());
  HelpKeyButton key(77, "WWWWWWWWWWWW", scale, area);
  EXPECT_EQ(key.sizeHint(), QSize(key.fontMetrics().horizontalAdvance(key.text()) + 22, 44));
  EXPECT_EQ(HelpKeyButton(78, {}, scale, area).sizeHint(), QSize(44, 44));
  EXPECT_EQ(key.focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(key.font().weight(), 500);
  key.resize(60, 44);
  EXPECT_TRUE(TextsOf(key).join("").contains(QChar(0x2026)));
  key.resize(key.sizeHint());
  EXPECT_EQ(TextsOf(key).join(""), "WWWWWWWWWWWW");
}

TEST_F(HelpLook, TheTrianglesPointWhereTheirKeysLead) {
  Make();
  OpenAt();
  Menu(40002);
  HelpKeyButton* const panes = KeyOf(help_id::kPanesKey);
  EXPECT_EQ(panes->ShownSign(), HelpKeyButton::Sign::kLeft);
  EXPECT_EQ(panes->width(), FingerPixels(*panes));
  EXPECT_EQ(KeyOf(help_id::kFindPrevious)->ShownSign(), HelpKeyButton::Sign::kUp);
  EXPECT_EQ(KeyOf(help_id::kFindNext)->ShownSign(), HelpKeyButton::Sign::kDown);
  EXPECT_EQ(KeyOf(help_id::kFindClose)->ShownSign(), HelpKeyButton::Sign::kNone);
  // The point is thin: fewer dark pixels are on its side than on the side of the base.
  const auto weights = [](QWidget* key) {
    const QRect dark = Dark(key);
    const QImage image = Paint(*key);
    const auto count = [&image](QRect part) {
      int all = 0;
      for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) all += image.pixelColor(x, y).lightness() < 40 ? 1 : 0;
      }
      return all;
    };
    const int w = dark.width() / 3;
    const int h = dark.height() / 3;
    return std::array{count({dark.left(), dark.top(), w, dark.height()}),
                      count({dark.right() + 1 - w, dark.top(), w, dark.height()}),
                      count({dark.left(), dark.top(), dark.width(), h}),
                      count({dark.left(), dark.bottom() + 1 - h, dark.width(), h})};
  };
  const auto left = weights(panes);
  EXPECT_LT(left[0], left[1]);
  const auto up = weights(KeyOf(help_id::kFindPrevious));
  EXPECT_LT(up[2], up[3]);
  const auto down = weights(KeyOf(help_id::kFindNext));
  EXPECT_GT(down[2], down[3]);
  EXPECT_GE(Dark(panes).height(), 12);
  EXPECT_LE(Dark(KeyOf(help_id::kFindNext)).width(), 26) << "no more than it needs";
  Touch(help_id::kPanesKey);
  EXPECT_EQ(panes->ShownSign(), HelpKeyButton::Sign::kRight);
  const auto right = weights(panes);
  EXPECT_GT(right[0], right[1]);
}

TEST_F(HelpLook, LinesListsAndNotesHaveTheirColours) {
  Make();
  OpenAt(u"OPT0777");
  for (const int id : {help_id::kIndexLine, help_id::kSearchLine, help_id::kFindLine}) {
    const QLineEdit* line = Line(id);
    EXPECT_EQ(line->maxLength(), 200) << id;
    EXPECT_EQ(line->minimumHeight(), 38) << id;
    EXPECT_EQ(line->maximumHeight(), 38) << id;
    EXPECT_EQ(line->contextMenuPolicy(), Qt::NoContextMenu) << id;
    EXPECT_EQ(line->palette().color(QPalette::Base), ToQColor(help_look::kLineBack)) << id;
    EXPECT_EQ(line->palette().color(QPalette::Text), ToQColor(help_look::kListText)) << id;
  }
  for (const int id : {help_id::kIndexList, help_id::kResults}) {
    EXPECT_EQ(Back(List(id)), help_look::kListBack) << id;
    EXPECT_EQ(Fore(List(id)), help_look::kListText) << id;
    EXPECT_EQ(List(id)->SelectedBackColor(), help_look::kSelectedBack) << id;
    EXPECT_EQ(List(id)->SelectedTextColor(), help_look::kSelectedText) << id;
    EXPECT_EQ(List(id)->RowHeight(), 36) << id;
  }
  const QPalette tree = Contents()->palette();
  EXPECT_EQ(tree.color(QPalette::Base), ToQColor(help_look::kListBack));
  EXPECT_EQ(tree.color(QPalette::Text), ToQColor(help_look::kListText));
  EXPECT_EQ(tree.color(QPalette::Highlight), ToQColor(help_look::kSelectedBack));
  EXPECT_EQ(tree.color(QPalette::HighlightedText), ToQColor(help_look::kSelectedText));
  EXPECT_EQ(Contents()->frameShape(), QFrame::NoFrame);
  EXPECT_EQ(Contents()->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(Contents()->verticalScrollBar()->sizeHint().width(), FingerPixels(*Contents()));
  EXPECT_FALSE(Contents()->expandsOnDoubleClick());
  EXPECT_EQ(Contents()->indentation(), 25) << "room for a triangle of the row's height";
  QWidget* const note = Control(help_id::kNotice);
  EXPECT_EQ(At(note, 1, 1), help_look::kNoteBack);
  EXPECT_EQ(note->palette().color(QPalette::WindowText), ToQColor(help_look::kNoteText));
  EXPECT_EQ(static_cast<QLabel*>(note)->margin(), 4);
  EXPECT_EQ(At(tool, 1, 1), help_look::kBack);
  EXPECT_EQ(Back(tool), help_look::kBack);
  const QWidget* status = Control(help_id::kSearchStatus);
  EXPECT_EQ(status->palette().color(QPalette::WindowText), ToQColor(help_look::kMissingText));
  EXPECT_EQ(static_cast<PageBrowser*>(Control(help_id::kPage))->TextArea().font().weight(), QFont::Normal);
}

TEST_F(HelpLook, WhatIsMissingStandsInTheMiddleOfTheWindow) {
  Make();
  OpenAt(u"NIX0000");
  const auto* missing = static_cast<QLabel*>(Control(help_id::kMissing));
  EXPECT_EQ(missing->geometry(), tool->rect());
  EXPECT_EQ(missing->alignment(), Qt::AlignCenter);
  EXPECT_EQ(missing->textFormat(), Qt::PlainText);
  EXPECT_TRUE(missing->wordWrap());
  EXPECT_EQ(missing->palette().color(QPalette::WindowText), ToQColor(help_look::kMissingText));
}

TEST_F(HelpLook, ThePanesTakeAThirdOfTheWindowWithinLimits) {
  Make();
  OpenAt();
  for (const auto& [width, panes] : {std::pair(800, 264), std::pair(690, 230), std::pair(400, 230),
                                     std::pair(1560, 514), std::pair(1580, 520), std::pair(2000, 520)}) {
    area->resize(width, 600);
    Settle();
    EXPECT_EQ(Control(help_id::kContents)->width(), panes) << width;
  }
  area->resize(800, 600);
  Settle();
  const auto place = [this](int id) { return QRect(Control(id)->mapTo(tool, QPoint(0, 0)), Control(id)->size()); };
  EXPECT_EQ(place(help_id::kContentsTab).topLeft(), QPoint(4, 4));
  EXPECT_EQ(place(help_id::kContents).top(), 4 + 44 + 4);
  EXPECT_EQ(place(help_id::kContents).bottom(), 600 - 1 - 4);
  EXPECT_EQ(place(help_id::kIndexTab).left(), place(help_id::kContentsTab).right() + 1 + 4);
  const int finger = FingerPixels(*tool);
  EXPECT_EQ(place(help_id::kPanesKey), QRect(4 + 264 + 4, 4, finger, 592));
  EXPECT_EQ(place(help_id::kPage), QRect(276 + finger, 4, 800 - 4 - 276 - finger, 592));
}

TEST_F(HelpLook, InEachPaneTheListTakesTheRoomThatIsLeft) {
  Make();
  OpenAt();
  const auto place = [this](int id) { return QRect(Control(id)->mapTo(tool, QPoint(0, 0)), Control(id)->size()); };
  Touch(help_id::kIndexTab);
  EXPECT_EQ(place(help_id::kIndexLine).topLeft(), QPoint(4, 4 + 44 + 4));
  EXPECT_EQ(place(help_id::kIndexList), QRect(4, 52 + 38 + 4, 264, 596 - 94));
  Touch(help_id::kSearchTab);
  EXPECT_EQ(Control(help_id::kSearchKey)->width(), Control(help_id::kSearchKey)->sizeHint().width());
  EXPECT_EQ(place(help_id::kSearchLine).left(), 4);
  EXPECT_EQ(place(help_id::kSearchLine).right() + 1 + 4, place(help_id::kSearchKey).left());
  EXPECT_EQ(place(help_id::kSearchKey).right(), 4 + 264 - 1);
  Touch(help_id::kSearchKey);
  EXPECT_EQ(place(help_id::kResults).bottom(), 595);
  EXPECT_EQ(place(help_id::kResults).top(), place(help_id::kSearchStatus).bottom() + 1 + 4);
  const auto* status = static_cast<QLabel*>(Control(help_id::kSearchStatus));
  EXPECT_LT(status->height(), 200) << "no higher than its words";
  EXPECT_EQ(status->textFormat(), Qt::PlainText);
  EXPECT_TRUE(status->wordWrap());
}

TEST_F(HelpLook, TheViewerTakesTheFocusOfAPressBesideItsControls) {
  Make();
  OpenAt();
  EXPECT_EQ(tool->focusPolicy(), Qt::StrongFocus);
  EXPECT_EQ(tool->property(property::kTitle).toString(), ToQString(language.LoadToolText(help_text::kTitle)));
  EXPECT_FALSE(tool->property(property::kTitle).toString().isEmpty());
}

TEST_F(HelpLook, ARowOfTheIndexIsIndentedSixTimesAtMost) {
  Make();
  OpenAt();
  book->index.clear();
  for (int depth = 5; depth <= 8; ++depth) book->index.push_back({u"w", depth, {}});
  OpenAt();
  for (const auto& [row, blanks] : {std::pair(0, 20), std::pair(1, 24), std::pair(2, 24), std::pair(3, 24)}) {
    EXPECT_EQ(List(help_id::kIndexList)->Item(row), Text(static_cast<std::size_t>(blanks), u' ') + u"w") << row;
  }
}

TEST_F(HelpLook, TheWordAboutASearchIsThereWhileThereIsOne) {
  Make();
  OpenAt();
  Touch(help_id::kSearchTab);
  EXPECT_FALSE(Shows(help_id::kSearchStatus));
  Touch(help_id::kSearchKey);
  EXPECT_TRUE(Shows(help_id::kSearchStatus));
  EXPECT_TRUE(IsFocused(help_id::kSearchLine)) << "its key leaves the line the focus";
  OpenAt();
  EXPECT_FALSE(Shows(help_id::kSearchStatus));
}

TEST_F(HelpLook, OnlyOneChapterAloneShowsWhatIsInside) {
  Make();
  OpenAt();
  EXPECT_TRUE(Contents()->topLevelItem(0)->isExpanded());
  book->contents.push_back({u"Appendix", {u"start.htm", u"A"}, 0});
  book->contents.push_back({u"Deep", {u"start.htm", u"B"}, 3});
  book->contents.push_back({u"Less deep", {u"start.htm", u"C"}, 2});
  OpenAt(u"OPT0777");
  ASSERT_EQ(Contents()->topLevelItemCount(), 2);
  EXPECT_FALSE(Contents()->topLevelItem(1)->isExpanded());
  EXPECT_EQ(Contents()->topLevelItem(1)->childCount(), 2) << "no row is inside one as deep or deeper";
  Contents()->SelectRow(5);
  EXPECT_EQ(Contents()->SelectedRow(), 5);
  for (const int none : {-1, 7}) {
    Contents()->SelectRow(0);
    Contents()->SelectRow(none);
    EXPECT_EQ(Contents()->SelectedRow(), -1) << none;
  }
  Contents()->SelectRow(6);
  EXPECT_EQ(Contents()->SelectedRow(), 6);
}

// The picker.

TEST_F(HelpLook, ALineIsReadInAPanelOfOtherColours) {
  Make();
  QWidget around;
  QPalette bright;
  bright.setColor(QPalette::Base, Qt::blue);
  bright.setColor(QPalette::Text, Qt::blue);
  around.setPalette(bright);
  const QLineEdit* line = MakeHelpLine(1011, HelpScale(cnc.Util()), &around);
  EXPECT_EQ(line->palette().color(QPalette::Base), ToQColor(help_look::kLineBack));
  EXPECT_EQ(line->palette().color(QPalette::Text), ToQColor(help_look::kListText));
}

class PickerLook : public HelpLook {
 protected:
  ZCListManuals* Open() {
    Menu(2004);
    return qobject_cast<ZCListManuals*>(QApplication::activeModalWidget());
  }
};

TEST_F(PickerLook, ItHasItsDialogsSizeInTheMiddleOfTheViewer) {
  Make();
  OpenAt();
  ZCListManuals* const dialog = Open();
  ASSERT_NE(dialog, nullptr);
  const DialogTemplate* wanted = language.Dialog(help_id::kPicker);
  const QSize size = wanted == nullptr ? QSize(480, 423) : QSize(wanted->width * 6 / 4, wanted->height * 13 / 8);
  EXPECT_NEAR(dialog->width(), size.width(), 1);
  EXPECT_NEAR(dialog->height(), size.height(), 1);
  const QPoint middle = tool->mapFromGlobal(dialog->geometry().center());
  EXPECT_NEAR(middle.x(), 399, 1);
  EXPECT_NEAR(middle.y(), 299, 1);
  for (const int x : {0, 1}) EXPECT_EQ(At(dialog, x, 30), help_look::kEdge);
  EXPECT_EQ(At(dialog, 2, 30), help_look::kBack);
  EXPECT_EQ(At(dialog, dialog->width() - 3, 30), help_look::kBack);
  EXPECT_EQ(At(dialog, dialog->width() - 2, 30), help_look::kEdge);
  EXPECT_EQ(At(dialog, 30, dialog->height() - 2), help_look::kEdge);
  EXPECT_EQ(FindControl(dialog, help_id::kManuals)->x(), 12);
  EXPECT_NEAR(FindControl(dialog, help_id::kManuals)->height(), FindControl(dialog, help_id::kRecent)->height(), 1);
  for (const int id : {help_id::kManuals, help_id::kRecent}) {
    EXPECT_EQ(FindControl(dialog, id)->minimumHeight(), 36) << "a row at least can be seen";
  }
  for (const int id : {help_id::kPickerOk, help_id::kPickerCancel}) {
    EXPECT_GE(FindControl(dialog, id)->width(), 120) << id;
  }
  EXPECT_EQ(FindControl(dialog, help_id::kPickerCancel)->geometry().right(), dialog->width() - 1 - 12);
  for (const QLabel* label : dialog->findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->font().weight(), QFont::Bold);
    EXPECT_EQ(label->palette().color(QPalette::WindowText), ToQColor(help_look::kMissingText));
  }
  EXPECT_EQ(dialog->findChildren<QLabel*>().size(), 2);
  EXPECT_EQ(dialog->focusWidget(), FindControl(dialog, help_id::kManuals));
  dialog->Cancel();
  Settle();
}

TEST_F(PickerLook, WithoutItsDialogItHasTheUsualSize) {
  language.Use(LanguagePack());
  Make();
  OpenAt();
  ZCListManuals* const dialog = Open();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->size(), QSize(480, 423));
  dialog->Cancel();
  Settle();
}

TEST_F(PickerLook, ItIsLeftFromWhereverTheFocusIsAndOnce) {
  Make();
  OpenAt();
  for (const auto& [key, asked] : {std::pair(Qt::Key_Return, "C:\\P113\\prog.chm"),
                                   std::pair(Qt::Key_Enter, "C:\\P113\\prog.chm"), std::pair(Qt::Key_Escape, "")}) {
    world.asked.clear();
    ZCListManuals* const dialog = Open();
    ASSERT_NE(dialog, nullptr);
    static_cast<ListBox*>(FindControl(dialog, help_id::kManuals))->Select(1);
    int finished = 0;
    QObject::connect(dialog, &ZCListManuals::Finished, dialog, [&finished] { ++finished; });
    EXPECT_TRUE(PressKey(dialog, Qt::Key_A)) << "no key goes on to the viewer";
    EXPECT_EQ(finished, 0);
    PressKey(dialog, key);
    PressKey(dialog, key);
    EXPECT_EQ(finished, 1) << key;
    Settle();
    EXPECT_EQ(world.asked, asked) << key;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

TEST_F(PickerLook, ItsKeysComeBeforeThePanelsShortcutsAndClosingItIsCancel) {
  Make();
  OpenAt();
  world.asked.clear();
  ZCListManuals* const dialog = Open();
  ASSERT_NE(dialog, nullptr);
  static_cast<ListBox*>(FindControl(dialog, help_id::kManuals))->Select(1);
  for (const auto& [key, taken] :
       {std::pair(Qt::Key_Escape, true), std::pair(Qt::Key_Return, true), std::pair(Qt::Key_F5, false)}) {
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(FindControl(dialog, help_id::kManuals), &event);
    EXPECT_EQ(event.isAccepted(), taken) << key;
  }
  ASSERT_EQ(QApplication::activeModalWidget(), dialog) << "asking isn't pressing";
  dialog->close();
  Settle();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(world.asked, "");
}

}  // namespace
}  // namespace pnl::test
