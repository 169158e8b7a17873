// SPDX-License-Identifier: MIT
// What the panel with the machine behind it shows: units, how long a message stays, covers, and texts from outside that
// are never markup.
#include <gtest/gtest.h>
#include <pnltools/rig.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTextDocument>
#include <QTimerEvent>

#include "panel/machine/qt/demo_machine.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "support/text_catcher.h"
#include "ui/axis_display.h"
#include "ui/error_list.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_window.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/readings.h"
#include "ui/soft_key_bar.h"
#include "ui/theme.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

class PanelLookTest : public ::testing::Test {
 protected:
  PanelLookTest() : rig_(DemoMachine()) {
    UseWords("en");
    rig_.Machine()->Reset();
    rig_.Advance(1000);
    rig_.Cnc().ClearErrors();
    session_.OfferAll();
    op_ = std::make_unique<Operator>(session_, &rig_);
    window_ = std::make_unique<PanelWindow>(session_, *op_, [this](const QString& path) {
      const auto host = rig_.Files().HostPath(path.toStdU16String());
      return host ? QString::fromStdString(*host) : QString();
    });
    window_->show();
    window_->activateWindow();
    op_->Desk().StartTools();
    Settle();
  }
  ~PanelLookTest() override {
    rig_.Cnc().ClearErrors();
    window_.reset();
    op_.reset();
    rig_.Machine()->Reset();
    rig_.Advance(1000);
  }

  void Settle() {
    while (window_->Working()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  void Do(Action action) {
    window_->Trigger(action);
    Settle();
  }
  void Key(int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    Settle();
  }
  void Run(const QString& block) {
    Do(Action::kOpenMdi);
    for (const QChar c : block) Key(c.toUpper().unicode(), QString(c));
    Do(Action::kCycleStart);
    rig_.Advance(20'000);
    Settle();
  }
  [[nodiscard]] QString ZoneText() const {
    QStringList lines;
    for (const auto& line : window_->Zone().Lines()) lines << line.text;
    return lines.join('|');
  }
  void Push(std::vector<pnl::rig::Field> fields) {
    pnl::rig::ErrorSpec spec;
    spec.fields = std::move(fields);
    std::string problem;
    ASSERT_TRUE(rig_.Cnc().PushError(spec, problem)) << problem;
    Settle();
  }

  pnl::rig::Rig& rig_;
  HostSession session_;
  std::unique_ptr<Operator> op_;
  std::unique_ptr<PanelWindow> window_;
};

TEST_F(PanelLookTest, InchesAndFeedPerRevolutionShowAsSoonAsTheyAreProgrammed) {
  Run("G1 X25.4 F1000");
  EXPECT_EQ(window_->ReadingsShown().Shown().at(0).caption, "F  mm/min");
  const QString metric = window_->Axes().accessibleName();
  Run("G20 G95 F0.01 M3 S1000");
  EXPECT_EQ(window_->ReadingsShown().Shown().at(0).caption, "F  in/rev");
  EXPECT_EQ(window_->ReadingsShown().Shown().at(0).detail, "F0.01");
  EXPECT_NE(window_->Axes().accessibleName(), metric);
  EXPECT_TRUE(window_->Axes().accessibleName().startsWith("X 1.0000"))
      << window_->Axes().accessibleName().toStdString();
  Run("G21 G94 F100");
  EXPECT_EQ(window_->ReadingsShown().Shown().at(0).caption, "F  mm/min");
  EXPECT_EQ(window_->Axes().accessibleName(), metric);
}

TEST_F(PanelLookTest, ThatAnErrorStaysIsSaidNoLongerThanItStays) {
  rig_.Machine()->Raise(Fault::kConfirm);
  Settle();
  Do(Action::kClearError);
  ASSERT_EQ(ZoneText(), Say(Word::kErrorStays));
  Key(Qt::Key_Return);
  EXPECT_TRUE(rig_.Cnc().ErrorQueue().empty());
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(PanelLookTest, ThatThereIsNothingToStartIsSaidUntilThereIs) {
  Do(Action::kCycleStart);
  ASSERT_EQ(ZoneText(), Say(Word::kNothingToStart));
  Key(Qt::Key_A, "a");
  EXPECT_EQ(ZoneText(), Say(Word::kNothingToStart)) << "a warning outlives a key that has nothing to do with it";
  ASSERT_NE(session_.LoadTool(PNL_TOOL_MDI, session_.ToolArea()), 0u);
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_TOOL_COMMAND, 2, 1);
  Settle();
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(PanelLookTest, WhatOnlyTellsGoesWithTheNextPress) {
  window_->Editor().Insert("G0\n");
  window_->Desk().Store("C:\\TOLD.NC");
  Settle();
  ASSERT_EQ(ZoneText(), "Saved: C:\\TOLD.NC");
  Key(Qt::Key_X, "x");
  EXPECT_EQ(ZoneText(), "");
  window_->Desk().Store("C:\\TOLD.NC");
  Settle();
  ASSERT_EQ(ZoneText(), "Saved: C:\\TOLD.NC");
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), window_->Zone().mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window_->Zone(), &press);
  Settle();
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(PanelLookTest, ThatAProgramCouldNotBeWrittenIsNotTypedAway) {
  window_->Editor().Insert("G0\n");
  window_->Desk().Store("C:\\NONE\\X.NC");
  Settle();
  Key(Qt::Key_X, "x");
  EXPECT_EQ(ZoneText(), "Can't be written: C:\\NONE\\X.NC");
}

TEST_F(PanelLookTest, ACoverSlicesNoKey) {
  for (const QSize size : {QSize(640, 480), QSize(800, 600), QSize(1024, 768), QSize(1600, 860), QSize(1920, 1080)}) {
    window_->resize(size);
    Settle();
    Do(Action::kErrorList);
    ASSERT_TRUE(window_->ErrorsShown().IsOpen());
    const QRect cover = window_->ErrorsShown().geometry();
    for (const PanelKey* key : window_->findChildren<PanelKey*>()) {
      if (!key->isVisible() || window_->ErrorsShown().isAncestorOf(key)) continue;
      const QRect place(key->mapTo(window_.get(), QPoint(0, 0)), key->size());
      EXPECT_TRUE(cover.contains(place) || !cover.intersects(place)) << key->text().toStdString() << size.width();
    }
    Do(Action::kErrorList);
    EXPECT_TRUE(window_->SideBar().isVisible());
  }
}

TEST_F(PanelLookTest, AnErrorHasOneClassInWindowIndicatorAndList) {
  struct Row {
    std::int64_t number;
    std::int64_t severity;
    std::int64_t marked;
    ErrorKind kind;
    const char* name;
  };
  for (const Row& row :
       {Row{3753, 1, 0, ErrorKind::kConfirm, "to be confirmed 3753"},
        Row{3753, 0, 0, ErrorKind::kWarning, "warning 3753"}, Row{14, 7, 1, ErrorKind::kMarked, "error 14"},
        Row{15, 7, 0, ErrorKind::kFatal, "fatal error 15"}, Row{16, 0, 1, ErrorKind::kWarning, "warning 16"},
        Row{17, 1, 0, ErrorKind::kError, "error 17"}}) {
    Push({{"number", row.number}, {"severity", row.severity}, {"marked", row.marked}, {"source", std::int64_t{12}}});
    EXPECT_EQ(rig_.Cnc().Errors().at(0).errorClass, row.kind) << row.name;
    EXPECT_EQ(TextOfRow(op_->Desk().History().Rows().front(), op_->Desk().Now()).name, row.name);
    const PnlWindow tool = session_.ToolWindow(PNL_TOOL_ERRORS);
    PnlSendMessage(tool, PNL_MSG_TOOL_NOTIFY, 79, 1);
    Settle();
    EXPECT_EQ(op_->Desk().Sign().kind, row.kind) << row.name;
    PnlSendMessage(tool, PNL_MSG_TOOL_NOTIFY, 79, 0);
    rig_.Cnc().ClearErrors();
    Settle();
  }
}

TEST_F(PanelLookTest, TheErrorWindowStandsWholeOnASmallScreen) {
  for (const QSize size : {QSize(800, 600), QSize(640, 480), QSize(1024, 768)}) {
    window_->resize(size);
    Settle();
    rig_.Machine()->Raise(Fault::kDriveFault);
    Settle();
    const auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
    ASSERT_TRUE(tool->isVisible());
    EXPECT_TRUE(window_->ToolAreaWidget()->rect().contains(tool->geometry())) << size.width();
    rig_.Cnc().ClearErrors();
    Settle();
  }
}

TEST_F(PanelLookTest, AScriptsToolAreaHasTheErrorWindowAsTheToolMakesIt) {
  window_->ResizeToolArea(QSize(320, 240));
  rig_.Machine()->Raise(Fault::kDriveFault);
  Settle();
  const auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  EXPECT_GT(tool->width(), 320);
}

// What looks like markup, in every way that a text could be taken for it.
const char16_t* const kMarkup = u"<b>bold</b> <a href=\"file:///etc/passwd\">open</a> <img src=\"/etc/x.png\">";

/// No label reads a text as markup, and no tooltip shows other than what it was given.
void ExpectAllPlain(const QWidget& root) {
  for (const QLabel* label : root.findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
  }
  QList<const QWidget*> all{&root};
  for (const QWidget* widget : root.findChildren<QWidget*>()) all << widget;
  for (const QWidget* widget : all) {
    for (const QString& told : {widget->toolTip(), widget->whatsThis(), widget->statusTip()}) {
      if (!Qt::mightBeRichText(told)) continue;
      QTextDocument shown;
      shown.setHtml(told);
      EXPECT_TRUE(shown.toPlainText().contains("<b>")) << told.toStdString();
      EXPECT_FALSE(shown.toHtml().contains("<a href")) << told.toStdString();
    }
  }
}

TEST_F(PanelLookTest, AnErrorsTextIsPlainInWindowIndicatorAndList) {
  Push({{"number", std::int64_t{1234}},
        {"severity", std::int64_t{1}},
        {"source", std::int64_t{12}},
        {"messageText", std::u16string(kMarkup)},
        {"module", std::u16string(u"<b>m")}});
  ASSERT_TRUE(op_->Desk().WindowShown());
  ExpectAllPlain(*window_);
  auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  EXPECT_TRUE(pnl::test::TextsOf(*tool).join("").contains("<b>bold</b>")) << "the text itself, letter by letter";
  window_->resize(2400, 1200);
  Do(Action::kErrorList);
  ASSERT_TRUE(window_->ErrorsShown().IsOpen());
  ExpectAllPlain(*window_);
  EXPECT_TRUE(window_->ErrorsShown().Details().contains("<b>bold</b>"));
  const QModelIndex row = window_->ErrorsShown().List().model()->index(0, 0);
  for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole, Qt::StatusTipRole}) {
    EXPECT_FALSE(row.data(role).isValid()) << role;
  }
  Do(Action::kErrorList);
}

TEST_F(PanelLookTest, AMessageOfATextThatLooksLikeMarkupIsPlain) {
  op_->SetHint(QString::fromUtf16(kMarkup));
  Settle();
  ExpectAllPlain(*window_);
  window_->Asking().Ask(QString::fromUtf16(kMarkup), {"<i>Yes</i>", "No"}, [](int) {});
  ExpectAllPlain(*window_);
  window_->Asking().Answer(1);
}

TEST_F(PanelLookTest, NamesOfFilesArePlain) {
  const auto host = rig_.Files().HostPath(u"C:\\<b>x<b>.NC");
  ASSERT_TRUE(host);
  QFile file(QString::fromStdString(*host));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  FileRequest request;
  request.folder = "C:\\";
  op_->Files().Ask(
      request, [](const QString&, const QString&) {}, [] {});
  Settle();
  ExpectAllPlain(*window_);
  op_->Files().Leave();
  Settle();
  window_->Desk().Load("C:\\<b>x<b>.NC");
  Settle();
  ExpectAllPlain(*window_);
  file.remove();
}

TEST_F(PanelLookTest, WhatToolsShowIsPlain) {
  Run("(<b>bold</b>)");
  Do(Action::kSwitchRole);
  Do(Action::kOpenCalculator);
  for (const QChar c : QString("<b>1</b>")) Key(c.unicode(), QString(c));
  ExpectAllPlain(*window_);
}

TEST_F(PanelLookTest, ANoteOfTheListStandsAboveItsRows) {
  window_->resize(800, 600);
  for (int i = 0; i < 11; ++i) {
    Push({{"number", std::int64_t{3000 + i}}, {"severity", std::int64_t{0}}, {"source", std::int64_t{12}}});
  }
  Do(Action::kErrorList);
  ErrorListCover& cover = window_->ErrorsShown();
  ASSERT_EQ(cover.Notes(), QStringList{"Flood: 11 errors in the last ten minutes"});
  const int width = cover.width();
  EXPECT_EQ(pnl::test::StrokesOf(cover), Pictured([&](Picture& picture) {
              picture.Fill(cover.rect(), theme::kBackground)
                  .Field(cover.rect(), theme::kBackground, theme::kAccent, 8)
                  .Left({12, 0, width - 24, 32}, Say(Word::kErrorListTitle), theme::Font(18, true), theme::kText)
                  .Field({10, 33, width - 20, 30}, theme::kAmber, theme::kAmber, 4)
                  .Left({22, 32, width - 44, 32}, cover.Notes()[0], theme::Font(16, true), theme::kDark);
            }));
  EXPECT_EQ(cover.List().y(), 69);
  EXPECT_TRUE(cover.Details().startsWith("warning 3010: ")) << cover.Details().toStdString();
  EXPECT_EQ(cover.List().currentIndex().row(), 0);
  const auto timers = [&cover] { return QAbstractEventDispatcher::instance()->registeredTimers(&cover); };
  ASSERT_EQ(timers().size(), 1) << "the note goes when the flood is over, though nothing happens";
  EXPECT_GT(timers()[0].interval, 9 * 60'000);
  EXPECT_LE(timers()[0].interval, 10 * 60'000 + 1);
  RepaintCount count(cover);
  const auto tick = [&cover, &timers](int after) {
    QTimerEvent event(timers()[0].timerId + after);
    QCoreApplication::sendEvent(&cover, &event);
  };
  EXPECT_TRUE(count.After([&tick] { tick(0); })) << "the notes are read anew";
  EXPECT_FALSE(count.After([&tick] { tick(1000); })) << "a timer of somebody else";
  EXPECT_EQ(timers().size(), 1) << "the flood isn't over yet";
  Do(Action::kErrorList);
  EXPECT_TRUE(timers().isEmpty());
}

TEST_F(PanelLookTest, TheErrorWindowStaysWithinTheToolArea) {
  window_->resize(1600, 900);
  rig_.Machine()->Raise(Fault::kDriveFault);
  Settle();
  auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  const QWidget& area = *window_->ToolAreaWidget();
  const QSize size = tool->size();
  ASSERT_LT(size.width(), area.width());
  ASSERT_LT(size.height(), area.height());
  for (const auto& [to, place] :
       {std::pair(QPoint(-50, -60), QPoint(0, 0)), std::pair(QPoint(10, 20), QPoint(10, 20)),
        std::pair(QPoint(9000, 9000), QPoint(area.width() - size.width(), area.height() - size.height()))}) {
    tool->move(to);
    Settle();
    EXPECT_EQ(tool->geometry(), QRect(place, size));
  }
  tool->resize(area.width() + 100, area.height() + 100);
  Settle();
  EXPECT_EQ(tool->geometry(), area.rect());
}

TEST_F(PanelLookTest, TheProgramHasTheRoomBesideTheToolWhereverItGoes) {
  Do(Action::kOpenCalculator);
  auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_CALCULATOR)));
  const QRect area = window_->ToolAreaWidget()->rect();
  for (const QPoint& place : {QPoint(0, 0), QPoint(area.width() - tool->width(), 0), QPoint(5, area.height() / 2)}) {
    tool->move(place);
    Settle();
    EXPECT_EQ(window_->Editor().geometry(), RoomBeside(area, tool->geometry()));
  }
  tool->hide();
  window_->UpdateDisplay();
  EXPECT_EQ(window_->Editor().geometry(), area);
}

TEST_F(PanelLookTest, ThePasswordBoxEndsForAnErrorThatComes) {
  bool given = true;
  QMetaObject::invokeMethod(
      window_.get(),
      [this] {
        EXPECT_TRUE(window_->Password().isVisible());
        EXPECT_FALSE(window_->MainBar().isEnabled());
        rig_.Machine()->Raise(Fault::kDriveFault);
      },
      Qt::QueuedConnection);
  given = window_->Password().Ask();
  Settle();
  EXPECT_FALSE(given);
  EXPECT_FALSE(window_->Password().isVisible());
  EXPECT_TRUE(window_->MainBar().isEnabled());
}

TEST_F(PanelLookTest, AScriptAnswersTheQuestionToCloseInTheOperatorsPlace) {
  QStringList asked;
  bool answer = false;
  window_->AnswerQuestions([&](const QString& text) {
    asked << text;
    return answer;
  });
  const auto ask = [this] {
    PnlPostMessage(session_.MainWindow(), PnlRegisterMessage("ZM_CLOSE7340"), 1, 0);
    Settle();
  };
  ask();
  EXPECT_EQ(asked, QStringList{Say(Word::kCloseAsked)});
  EXPECT_FALSE(window_->Asking().IsOpen());
  EXPECT_TRUE(window_->isVisible());
  Push({{"number", std::int64_t{201}}, {"severity", std::int64_t{1}}, {"source", std::int64_t{12}}});
  answer = true;
  ask();
  EXPECT_EQ(asked.size(), 2);
  EXPECT_FALSE(window_->isVisible());
}

}  // namespace
}  // namespace panel
