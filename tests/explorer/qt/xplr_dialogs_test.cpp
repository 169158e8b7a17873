// SPDX-License-Identifier: MIT
// The explorer's two dialogs: where they are, how they look, and which keys they have for themselves.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <vector>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "explorer/qt/xplr_window_stage.h"
#include "host/pack_files.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

class XplrDialogPartTest : public testing::Test {
 protected:
  XplrDialogPartTest() {
    panel.resize(900, 700);
    frame = new QWidget(&panel);
    frame->resize(800, 600);
    other = new QLineEdit(frame);
    Activate(panel);
  }
  template <typename Dialog>
  Dialog* Open(int fontHeight = 16, const QString& text = {}) {
    auto* made = new Dialog("Seek", fontHeight, frame);
    dialog = made;
    edit = made->template findChild<QLineEdit*>();
    QObject::connect(made, &XplrDialog::Typed, made, [this] { ++typed; });
    QObject::connect(made, &XplrDialog::Closing, made, [this] { ++closing; });
    made->Open(text);
    return made;
  }

  QWidget panel;
  QWidget* frame = nullptr;
  QLineEdit* other = nullptr;
  QPointer<XplrDialog> dialog;
  QLineEdit* edit = nullptr;
  int typed = 0;
  int closing = 0;
};

struct FrameRow {
  QSize frame;
  int width;
};

TEST_F(XplrDialogPartTest, TakesTwoThirdsOfTheWidthAboveTheNameField) {
  for (const FrameRow& row : {FrameRow{{800, 600}, 533}, {{400, 300}, 266}, {{72, 300}, 48}, {{60, 300}, 36}}) {
    frame->resize(row.frame);
    Open<ZCFind>();
    const int height = dialog->sizeHint().height();
    EXPECT_EQ(dialog->geometry(),
              QRect((row.frame.width() - row.width) / 2, row.frame.height() - height - 48, row.width, height));
    delete dialog;
  }
  frame->resize(800, 90);
  Open<ZCFind>();
  EXPECT_EQ(dialog->y(), 0) << "never above the frame";
}

TEST_F(XplrDialogPartTest, ItsLineIsHighEnoughForAFingerAndForItsFont) {
  for (const auto& [font, height] : {std::pair(16, 40), {20, 40}, {21, 42}, {30, 60}}) {
    Open<ZCFind>(font);
    EXPECT_EQ(edit->height(), height);
    EXPECT_EQ(dialog->height(), height + 2 * 12) << "with its margins";
    EXPECT_EQ(edit->font().pixelSize(), MakeFont("Arial", font, 600)->pixelSize());
    EXPECT_EQ(edit->font().weight(), 600);
    EXPECT_EQ(edit->geometry().right(), dialog->width() - 12 - 1);
    EXPECT_EQ(dialog->findChild<QLabel*>()->x(), 12);
    delete dialog;
  }
}

TEST_F(XplrDialogPartTest, HasAnEdgeAndTheColoursOfTheForm) {
  Open<ZCFind>();
  const QImage image = Paint(*dialog);
  const int right = image.width() - 1;
  const int bottom = image.height() - 1;
  for (const int in : {0, 1}) {
    for (const QPoint place : {QPoint(in, 20), QPoint(right - in, 20), QPoint(20, in), QPoint(20, bottom - in)}) {
      EXPECT_EQ(ColorAt(image, place.x(), place.y()), 4608090u) << place.x() << "," << place.y();
    }
  }
  for (const QPoint place : {QPoint(2, 20), QPoint(right - 2, 20), QPoint(20, 2), QPoint(20, bottom - 2)}) {
    EXPECT_EQ(ColorAt(image, place.x(), place.y()), 12569043u) << place.x() << "," << place.y();
  }
  const QPalette line = edit->palette();
  EXPECT_EQ(line.color(QPalette::Base), ToQColor(660510));
  EXPECT_EQ(line.color(QPalette::Text), QColor(Qt::white));
  EXPECT_EQ(line.color(QPalette::Highlight), QColor(Qt::white)) << "a marked text is turned around";
  EXPECT_EQ(line.color(QPalette::HighlightedText), ToQColor(660510));
  const auto* caption = dialog->findChild<QLabel*>();
  EXPECT_EQ(caption->palette().color(QPalette::WindowText), QColor(Qt::black));
  EXPECT_EQ(caption->font().pixelSize(), MakeFont("Arial", 16, 600)->pixelSize());
  EXPECT_EQ(caption->font().weight(), 600);
  EXPECT_EQ(caption->text(), "Seek");
  EXPECT_EQ(caption->textFormat(), Qt::PlainText);
  EXPECT_EQ(dialog->property("pnlTitle").toString(), "Seek");
}

TEST_F(XplrDialogPartTest, OpensWithTheTextMarkedSoThatTypingReplacesIt) {
  Open<ZCFind>(16, "OLD");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(QApplication::focusWidget(), edit);
  EXPECT_EQ(edit->selectedText(), "OLD");
  PressKey(edit, Qt::Key_N, "n");
  EXPECT_EQ(dialog->Text(), "n");
  EXPECT_EQ(typed, 1);
}

TEST_F(XplrDialogPartTest, AWordHasAHundredCharactersAndAPathAsManyAsAPathMayHave) {
  Open<ZCFind>();
  EXPECT_EQ(edit->maxLength(), 100);
  delete dialog;
  Open<ZCFolder>();
  EXPECT_EQ(edit->maxLength(), 32767);
}

TEST_F(XplrDialogPartTest, KeysThatSearchAreNotTyped) {
  std::vector<int> searched;
  QObject::connect(Open<ZCFind>(16, "a"), &ZCFind::SearchKey, frame, [&](int key) { searched.push_back(key); });
  const std::vector<int> keys = {Qt::Key_Return, Qt::Key_Enter,  Qt::Key_PageDown,
                                 Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_Up};
  for (const int key : keys) EXPECT_TRUE(PressKey(edit, key)) << key;
  EXPECT_EQ(searched, keys);
  EXPECT_EQ(typed, 0);
  for (const int key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_B, Qt::Key_Space}) {
    PressKey(edit, key, key == Qt::Key_B ? "b" : key == Qt::Key_Space ? " " : "");
  }
  EXPECT_EQ(searched.size(), keys.size());
  EXPECT_EQ(typed, 4) << "each may have changed the text";
  EXPECT_EQ(dialog->Text(), "b a");
  EXPECT_EQ(closing, 0);
}

TEST_F(XplrDialogPartTest, TabStaysInItsLine) {
  // It took the focus to the panel and left an open dialog without keys.
  Open<ZCFind>(16, "ab");
  for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) EXPECT_TRUE(PressKey(edit, key)) << key;
  EXPECT_EQ(QApplication::focusWidget(), edit);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->Text(), "ab");
  EXPECT_EQ(closing, 0);
}

TEST_F(XplrDialogPartTest, EscapeEndsTheSearchOnce) {
  Open<ZCFind>();
  EXPECT_TRUE(PressKey(edit, Qt::Key_Escape));
  EXPECT_EQ(closing, 1);
  EXPECT_FALSE(dialog->isVisible());
  dialog->Close();
  EXPECT_EQ(closing, 1);
  Settle();
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(XplrDialogPartTest, EndsWhenTheFocusGoesElsewhere) {
  Open<ZCFind>();
  other->setFocus();
  EXPECT_EQ(closing, 1);
  Settle();
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(XplrDialogPartTest, NoShortcutOfThePanelTakesItsKeys) {
  Open<ZCFind>();
  for (const int key : {Qt::Key_Escape, Qt::Key_F5, Qt::Key_A}) {
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(edit, &event);
    EXPECT_TRUE(event.isAccepted()) << key;
  }
}

TEST_F(XplrDialogPartTest, ComesBeforeWhateverIsInTheFrameAlready) {
  ZCFind find("Seek", 16, frame);
  QWidget cover(frame);
  cover.resize(frame->size());
  cover.show();
  find.Open({});
  EXPECT_EQ(frame->childAt(find.geometry().topLeft()), &find);
}

TEST_F(XplrDialogPartTest, NothingUnderItIsPaintedWithIt) {
  Open<ZCFind>();
  Settle();
  const PaintCounter paints(*frame);
  dialog->update();
  Settle();
  EXPECT_EQ(paints.Count(), 0);
}

TEST_F(XplrDialogPartTest, NoMessageReachesItAfterItsEnd) {
  QtWindowSystem windows(WindowRegistry::Instance());
  int messages = 0;
  Open<ZCFind>()->SetMessageHandler([&](const Message&) { return ++messages; });
  const WindowHandle handle = dialog->Handle();
  EXPECT_EQ(windows.Send(handle, {1, 0, 0}), 1);
  dialog->Close();
  EXPECT_EQ(windows.Send(handle, {1, 0, 0}), 0);
  EXPECT_EQ(messages, 1);
}

TEST_F(XplrDialogPartTest, NoKeySearchesAfterItsEnd) {
  int searched = 0;
  QObject::connect(Open<ZCFind>(), &ZCFind::SearchKey, frame, [&] { ++searched; });
  PressKey(edit, Qt::Key_Escape);
  PressKey(edit, Qt::Key_Down);
  PressKey(edit, Qt::Key_B, "b");
  EXPECT_EQ(searched, 0);
  EXPECT_EQ(typed, 0);
}

TEST_F(XplrDialogPartTest, ItsLineHearsThatItHasLostTheFocus) {
  Open<ZCFind>();
  int left = 0;
  QObject::connect(edit, &QLineEdit::editingFinished, frame, [&] { ++left; });
  other->setFocus();
  EXPECT_EQ(left, 1);
}

TEST_F(XplrDialogPartTest, AFontThatCannotBeMadeLeavesTheOrdinaryOne) {
  Open<ZCFind>(4001);
  EXPECT_EQ(edit->font(), frame->font());
  EXPECT_EQ(dialog->findChild<QLabel*>()->font(), frame->font());
}

TEST_F(XplrDialogPartTest, EnterTakesThePathAndEscapeNone) {
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    closing = 0;
    auto* folder = Open<ZCFolder>(16, "C:\\P100");
    EXPECT_EQ(folder->Folder(), QString()) << "before";
    PressKey(edit, Qt::Key_Down);
    PressKey(edit, Qt::Key_End);
    EXPECT_EQ(closing, 0);
    QString taken = "none";
    QObject::connect(folder, &XplrDialog::Closing, frame, [&] { taken = folder->Folder(); });
    EXPECT_TRUE(PressKey(edit, key));
    EXPECT_EQ(closing, 1);
    EXPECT_EQ(taken, key == Qt::Key_Escape ? QString() : QString("C:\\P100")) << key;
    Settle();
  }
}

// ---------------------------------------------------------------- in the window

class XplrDialogsTest : public XplrWindowTest {
 protected:
  XplrDialogsTest() {
    const std::string program = QCoreApplication::applicationFilePath().toStdString();
    Disc("C:\\P15\\LPNLTOOLS.DLL", *ReadPackFile(PackFolders(nullptr, program), "en"));
    Disc("C:\\P108\\HMI_Settings.ini", "[CALIDAD]\nTest=SI\n");
    for (const char* name : {"D.NC", "E.NC"}) Disc(std::string("C:\\P100\\") + name, "G0");
  }
  ~XplrDialogsTest() override { ForgetQualityTest(); }
  void Command(int id) {
    Send(PNL_MSG_COMMAND, id);
    Idle();
  }
};

TEST_F(XplrDialogsTest, EachKeyOfTheSearchGoesItsWay) {
  Open();
  ASSERT_EQ(Rows(), QStringList({"SUB", "E.NC", "D.NC", "B.TXT", "A.NC"}));
  Command(xplr_command::kFind);
  for (const QChar c : QStringLiteral(".nc")) PressKeyAndIdle(0, c);
  const std::pair<int, const char*> steps[] = {
      {Qt::Key_Down, "E.NC"},   {Qt::Key_PageDown, "D.NC"}, {Qt::Key_Return, "A.NC"}, {Qt::Key_Up, "D.NC"},
      {Qt::Key_PageUp, "E.NC"}, {Qt::Key_PageUp, "A.NC"},   {Qt::Key_Enter, "E.NC"}};
  for (const auto& [key, name] : steps) {
    PressKeyAndIdle(key);
    EXPECT_EQ(TextOf(xplr_control::kCaption), std::string(" Pick = ") + name) << key;
  }
}

TEST_F(XplrDialogsTest, ATypedPathIsGoneToAndAnUnknownOneIsnt) {
  Open();
  const auto go = [this](const QString& path, int key) {
    Command(xplr_command::kFindFolder);
    ASSERT_EQ(explorer->findChildren<ZCFolder*>().size(), 1);
    for (const QChar c : path) PressKeyAndIdle(0, c);
    PressKeyAndIdle(key);
    EXPECT_TRUE(explorer->findChildren<ZCFolder*>().isEmpty());
  };
  go("C:\\P100\\SUB", Qt::Key_Escape);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100");
  go("C:\\P100\\GONE", Qt::Key_Return);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100");
  go("C:\\P100\\SUB", Qt::Key_Return);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100\\SUB");
  EXPECT_EQ(Rows(), QStringList({"DEEP", "C.NC"}));
}

TEST_F(XplrDialogsTest, EscapeAtTheFrameGoesToTheDialogFirst) {
  Open();
  for (const int dialog : {xplr_command::kFind, xplr_command::kFindFolder}) {
    Command(dialog);
    ASSERT_EQ(explorer->findChildren<XplrDialog*>().size(), 1) << dialog;
    PressKey(explorer, Qt::Key_Escape);
    Idle();
    ASSERT_FALSE(explorer.isNull());
    EXPECT_TRUE(explorer->findChildren<XplrDialog*>().isEmpty()) << dialog;
  }
}

TEST_F(XplrDialogsTest, ADoubleClickWhileASearchIsOpenGivesTheDialogTheKeys) {
  Open();
  PressRow(1);
  PressRow(1, QEvent::MouseButtonRelease);
  Command(xplr_command::kFind);
  auto* dialog = explorer->findChild<ZCFind*>();
  ASSERT_NE(dialog, nullptr);
  emit List()->RowDoubleClicked(1);
  Idle();
  EXPECT_TRUE(dialog->isAncestorOf(Focus()));
  EXPECT_FALSE(explorer.isNull()) << "nothing is accepted";
}

TEST_F(XplrDialogsTest, EachGivesTheLanguageLibraryBack) {
  Open();
  for (const int dialog : {xplr_command::kFind, xplr_command::kFindFolder}) {
    Command(dialog);
    ASSERT_EQ(explorer->findChildren<XplrDialog*>().size(), 1) << dialog;
    EXPECT_EQ(language.CountModules(), 0u) << dialog;
    PressKeyAndIdle(Qt::Key_Escape);
  }
}

TEST_F(XplrDialogsTest, ADialogThatWasDeletedTakesNoFocus) {
  Open();
  PressRow(1);
  Command(xplr_command::kFind);
  delete explorer->findChild<ZCFind*>();
  List()->setFocus();
  emit List()->RowDoubleClicked(1);
  Idle();
  EXPECT_EQ(Focus(), List());
  EXPECT_FALSE(explorer.isNull());
}

}  // namespace
}  // namespace pnl::test
