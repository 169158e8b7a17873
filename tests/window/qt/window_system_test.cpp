// SPDX-License-Identifier: MIT
#include "window/qt/qt_window_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "window/qt/control_properties.h"
#include "window/qt/pnl_event.h"
#include "window/qt/qt_text.h"
#include "window/qt/tool_window.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

std::vector<std::string>& Log() {
  static std::vector<std::string> log;
  return log;
}

/// A tool that notes what it is told and answers first + second.
class NotingTool : public ToolWindow {
 public:
  explicit NotingTool(QWidget* parent, const char* name = "tool") : ToolWindow(6, parent), name_(name) {}
  void Start() override {}
  std::function<void(const Message&)> onMessage;

 protected:
  std::intptr_t OnMessage(const Message& message) override {
    Log().push_back(std::string(name_) + " " + std::to_string(message.number));
    if (onMessage) onMessage(message);
    return message.first + message.second;
  }

 private:
  const char* name_;
};

std::intptr_t HostProc(void* context, PnlWindow window, std::uint32_t message, std::intptr_t first,
                       std::intptr_t second) {
  Log().push_back("host " + std::to_string(window) + " " + std::to_string(message));
  if (context != nullptr) *static_cast<std::intptr_t*>(context) = first + second;
  return first * second;
}

class WindowSystemTest : public ::testing::Test {
 protected:
  void SetUp() override { Log().clear(); }
  WindowRegistry& registry_ = WindowRegistry::Instance();
  QtWindowSystem windows_{registry_};
  QWidget host_;
};

TEST_F(WindowSystemTest, SendDeliversAtOnceAndBringsTheAnswerBack) {
  NotingTool tool(&host_);
  EXPECT_EQ(windows_.Send(tool.Handle(), {0x802, 2, 40}), 42);
  EXPECT_THAT(Log(), ElementsAre("tool 2050"));
}

TEST_F(WindowSystemTest, ArgumentsAreAsWideAsAnAddress) {
  NotingTool tool(&host_);
  std::intptr_t seen = 0;
  tool.onMessage = [&seen](const Message& message) { seen = message.second; };
  int record = 0;
  windows_.Send(tool.Handle(), {0x801, 41, reinterpret_cast<std::intptr_t>(&record)});
  EXPECT_EQ(reinterpret_cast<int*>(seen), &record);
}

TEST_F(WindowSystemTest, PostDeliversInOrderAndNotBeforeTheLoopRuns) {
  NotingTool tool(&host_);
  windows_.Post(tool.Handle(), {1, 0, 0});
  windows_.Post(tool.Handle(), {2, 0, 0});
  EXPECT_THAT(Log(), ElementsAre());
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(Log(), ElementsAre("tool 1", "tool 2"));
}

TEST_F(WindowSystemTest, ADeadWindowGetsNothingAndAnswersZero) {
  WindowHandle window = 0;
  {
    const NotingTool tool(&host_);
    window = tool.Handle();
    EXPECT_TRUE(windows_.IsAlive(window));
  }
  EXPECT_FALSE(windows_.IsAlive(window));
  EXPECT_EQ(windows_.Send(window, {1, 2, 3}), 0);
  windows_.Post(window, {1, 2, 3});
  for (const WindowHandle nobody : {0, -1, 0x7FFFFFFF}) {
    EXPECT_EQ(windows_.Send(nobody, {1, 2, 3}), 0);
    windows_.Post(nobody, {1, 2, 3});
    EXPECT_EQ(windows_.WidgetOf(nobody), nullptr);
  }
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(WindowSystemTest, AMessagePostedToAWindowThatDiesBeforeDeliveryIsDropped) {
  auto tool = std::make_unique<NotingTool>(&host_);
  windows_.Post(tool->Handle(), {1, 0, 0});
  tool.reset();
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(WindowSystemTest, AHandleIsNeverUsedTwice) {
  WindowHandle last = 0;
  for (int i = 0; i < 100; ++i) {
    const NotingTool tool(&host_);
    EXPECT_GT(tool.Handle(), last);
    last = tool.Handle();
  }
}

TEST_F(WindowSystemTest, NoHandleStaysBehindWithTheParent) {
  const std::size_t before = registry_.ToolWindows().size();
  {
    QWidget parent;
    new NotingTool(&parent);
    new ToolDialog(new NotingTool(&parent));
    EXPECT_EQ(registry_.ToolWindows().size(), before + 3);
  }
  EXPECT_EQ(registry_.ToolWindows().size(), before);
}

TEST_F(WindowSystemTest, AHostsWidgetGetsMessagesThroughItsProcedure) {
  std::intptr_t sum = 0;
  const WindowHandle window = registry_.Attach(&host_, HostProc, &sum);
  EXPECT_EQ(windows_.Send(window, {0x801, 41, 2}), 82);
  EXPECT_EQ(sum, 43);
  EXPECT_EQ(windows_.WidgetOf(window), &host_);
  EXPECT_THAT(Log(), ElementsAre("host " + std::to_string(window) + " 2049"));
}

TEST_F(WindowSystemTest, AttachedAgainAWidgetKeepsItsNumberAndTakesTheNewProcedure) {
  const WindowHandle window = registry_.Attach(&host_, HostProc, nullptr);
  EXPECT_EQ(registry_.Attach(&host_, nullptr, nullptr), window);
  EXPECT_EQ(windows_.Send(window, {1, 3, 4}), 0) << "no procedure, no answer";
  std::intptr_t sum = 0;
  EXPECT_EQ(registry_.Attach(&host_, HostProc, &sum), window);
  EXPECT_EQ(windows_.Send(window, {1, 3, 4}), 12);
  EXPECT_EQ(sum, 7);
  EXPECT_EQ(registry_.Attach(nullptr, HostProc, nullptr), 0);
}

TEST_F(WindowSystemTest, AToolsWindowKeepsItsOwnDispatchWhenAttached) {
  NotingTool tool(&host_);
  EXPECT_EQ(registry_.Attach(&tool, HostProc, nullptr), tool.Handle());
  EXPECT_EQ(windows_.Send(tool.Handle(), {5, 1, 1}), 2);
  EXPECT_THAT(Log(), ElementsAre("tool 5"));
}

TEST_F(WindowSystemTest, ADestroyedHostWidgetIsDeadAndAnotherOneGetsAnotherNumber) {
  auto widget = std::make_unique<QWidget>();
  const WindowHandle window = registry_.Attach(widget.get(), HostProc, nullptr);
  windows_.Post(window, {1, 0, 0});
  widget.reset();
  EXPECT_FALSE(windows_.IsAlive(window));
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(Log(), ElementsAre());
  QWidget other;
  EXPECT_NE(registry_.Attach(&other, HostProc, nullptr), window);
}

/// Says good-bye to its parent when it goes.
class PartingTool : public ToolWindow {
 public:
  PartingTool(QtWindowSystem& windows, WindowHandle parent, QWidget* widget)
      : ToolWindow(6, widget), windows_(windows), parent_(parent) {}
  ~PartingTool() override { windows_.Send(parent_, {0x801, 42, 0}); }
  void Start() override {}

 private:
  QtWindowSystem& windows_;
  WindowHandle parent_;
};

TEST_F(WindowSystemTest, AToolThatFallsWithItsHostFindsNoWindowAnyMore) {
  auto widget = std::make_unique<QWidget>();
  const WindowHandle window = registry_.Attach(widget.get(), HostProc, nullptr);
  new PartingTool(windows_, window, widget.get());
  widget.reset();
  EXPECT_THAT(Log(), ElementsAre()) << "a half-destroyed host must not be called";
}

TEST_F(WindowSystemTest, AToolThatEndsAloneStillReachesItsHost) {
  const WindowHandle window = registry_.Attach(&host_, HostProc, nullptr);
  delete new PartingTool(windows_, window, &host_);
  EXPECT_THAT(Log(), ElementsAre("host " + std::to_string(window) + " 2049"));
}

TEST_F(WindowSystemTest, MessagesToTheHostAreToldWhenSentAndWhenPosted) {
  const WindowHandle window = registry_.Attach(&host_, HostProc, nullptr);
  NotingTool tool(&host_);
  std::vector<std::uint32_t> told;
  windows_.onMessageToHost = [&](WindowHandle to, const Message& message) {
    EXPECT_EQ(to, window);
    told.push_back(message.number);
  };
  windows_.Post(window, {1, 0, 0});
  EXPECT_THAT(told, ElementsAre(1u)) << "when it is posted, not when it arrives";
  windows_.Send(window, {2, 0, 0});
  windows_.Send(tool.Handle(), {3, 0, 0});
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(told, ElementsAre(1u, 2u));
}

TEST_F(WindowSystemTest, AWindowMayEndInItsOwnMessage) {
  auto* tool = new NotingTool(&host_);
  const WindowHandle window = tool->Handle();
  tool->onMessage = [tool](const Message&) { delete tool; };
  EXPECT_EQ(windows_.Send(window, {1, 2, 3}), 5);
  EXPECT_FALSE(windows_.IsAlive(window));
}

TEST_F(WindowSystemTest, AWindowMayEndInAMessageWithinItsMessage) {
  auto* tool = new NotingTool(&host_);
  const WindowHandle window = tool->Handle();
  std::intptr_t inner = 0;
  tool->onMessage = [&](const Message& message) {
    if (message.number == 3) {
      delete tool;
    } else {
      inner = windows_.Send(window, {message.number + 1, 2, 3});
    }
  };
  EXPECT_EQ(windows_.Send(window, {1, 1, 1}), 2);
  EXPECT_EQ(inner, 5);
  EXPECT_THAT(Log(), ElementsAre("tool 1", "tool 2", "tool 3"));
  EXPECT_FALSE(windows_.IsAlive(window));
}

// A tool that is to be destroyed when its own code is off the stack has no handle any more, but still is.
TEST_F(WindowSystemTest, WhatWasPostedToAWindowWithoutItsHandleIsDropped) {
  NotingTool tool(&host_);
  windows_.Post(tool.Handle(), {1, 0, 0});
  registry_.Unregister(tool.Handle());
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(Log(), ElementsAre());
  EXPECT_EQ(windows_.Send(tool.Handle(), {1, 2, 3}), 0);
}

TEST_F(WindowSystemTest, AHostThatEndsWhileItsMessageIsToldDoesNotGetIt) {
  auto widget = std::make_unique<QWidget>();
  const WindowHandle window = registry_.Attach(widget.get(), HostProc, nullptr);
  bool inside = false;
  windows_.onMessageToHost = [&](WindowHandle, const Message&) {
    inside = windows_.InCallOut();
    widget.reset();
  };
  EXPECT_EQ(windows_.Send(window, {1, 2, 3}), 0);
  EXPECT_TRUE(inside);
  EXPECT_FALSE(windows_.InCallOut());
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(WindowSystemTest, AWindowKnowsThatItIsHandlingAMessage) {
  NotingTool tool(&host_);
  std::vector<bool> inside;
  tool.onMessage = [&](const Message& message) {
    if (message.number == 1) windows_.Send(tool.Handle(), {2, 0, 0});
    inside.push_back(tool.InMessage());
  };
  windows_.Send(tool.Handle(), {1, 0, 0});
  EXPECT_THAT(inside, ElementsAre(true, true)) << "also after a message within it";
  EXPECT_FALSE(tool.InMessage());
}

TEST_F(WindowSystemTest, ToolWindowsAndDialogsShowThemselvesByTheirProperties) {
  NotingTool tool(&host_);
  EXPECT_EQ(tool.property("pnlTool").toInt(), 6);
  EXPECT_EQ(tool.property("pnlWindow").toInt(), tool.Handle());
  EXPECT_EQ(tool.property("pnlTitle").toString(), "");
  EXPECT_FALSE(tool.isVisibleTo(&host_));
  const ToolDialog dialog(&tool);
  EXPECT_TRUE(dialog.property("pnlDialog").toBool());
  EXPECT_EQ(dialog.property("pnlWindow").toInt(), dialog.Handle());
}

TEST_F(WindowSystemTest, AControlIsFoundByItsIdAndAVisibleOneGoesFirst) {
  QLabel hidden(&host_);
  hidden.hide();
  QLabel shown(&host_);
  MarkControl(&hidden, 5000, control_kind::kStatic);
  MarkControl(&shown, 5000, control_kind::kStatic);
  EXPECT_EQ(FindControl(&host_, 5000), &hidden) << "none can be seen: the first";
  host_.show();
  EXPECT_EQ(FindControl(&host_, 5000), &shown);
  EXPECT_EQ(FindControl(&host_, 1), nullptr);
  EXPECT_EQ(ControlId(&shown), 5000);
  EXPECT_EQ(ControlKind(&shown), "static");
  EXPECT_EQ(ControlId(&host_), -1);
}

TEST_F(WindowSystemTest, ThePanelsRectangleIsTheMainWindowsOnTheScreen) {
  EXPECT_EQ(windows_.PanelRect(), (Rect{0, 0, 800, 600}));
  host_.setGeometry(20, 30, 400, 300);
  windows_.SetMainWindow(registry_.Attach(&host_, nullptr, nullptr));
  EXPECT_EQ(windows_.PanelRect(), (Rect{20, 30, 420, 330}));
  windows_.SetMainWindow(999999);
  EXPECT_EQ(windows_.PanelRect(), (Rect{0, 0, 800, 600}));
}

TEST_F(WindowSystemTest, AMainWindowMayNameThePartInWhichItsToolsHaveTheirRoom) {
  host_.setGeometry(20, 30, 400, 300);
  QWidget area(&host_);
  area.setGeometry(5, 60, 320, 200);
  host_.setProperty(property::kPanelArea, QVariant::fromValue(&area));
  windows_.SetMainWindow(registry_.Attach(&host_, nullptr, nullptr));
  EXPECT_EQ(windows_.PanelRect(), (Rect{0, 0, 320, 200})) << "in that part's own coordinates";
}

TEST_F(WindowSystemTest, TheClipboardKeepsEveryCharacter) {
  windows_.SetClipboardText(u"G1 X10 ; Ñ €\tá\n");
  EXPECT_EQ(windows_.ClipboardText(), u"G1 X10 ; Ñ €\tá\n");
}

TEST(QtText, GoesBothWaysUnchangedAndColoursAreRedFirst) {
  const Text odd = u"a\xD800z\0b";
  EXPECT_EQ(FromQString(ToQString(odd)), odd);
  EXPECT_EQ(ToQColor(0x05B9D2), QColor(210, 185, 5));
}

TEST_F(WindowSystemTest, AnInstalledAnswererTakesTheOperatorsPlace) {
  windows_.SetBoxAnswerer(
      [](const BoxSpec& box) { return box.style == BoxStyle::kQuestion ? BoxAnswer::kNo : BoxAnswer::kOk; });
  std::vector<std::string> told;
  windows_.onBoxAnswered = [&](const BoxSpec& box, BoxAnswer answer) {
    told.push_back(ToUtf8(box.title) + "/" + ToUtf8(box.text) + "/" + std::to_string(static_cast<int>(answer)));
  };
  EXPECT_EQ(windows_.ShowBox(0, {u"Save", u"Exists", BoxStyle::kQuestion}), BoxAnswer::kNo);
  EXPECT_EQ(windows_.ShowBox(0, {u"Save", u"Failed", BoxStyle::kError}), BoxAnswer::kOk);
  EXPECT_THAT(told, ElementsAre("Save/Exists/2", "Save/Failed/0"));
  EXPECT_FALSE(windows_.InCallOut());
}

QMessageBox* OpenBox() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

struct BoxCase {
  BoxStyle style;
  QMessageBox::Icon icon;
  QMessageBox::StandardButton press;
  BoxAnswer answer;
};

TEST_F(WindowSystemTest, ABoxShowsPlainTextWithTheIconAndTheButtonsOfItsStyle) {
  const BoxCase cases[] = {{BoxStyle::kInfo, QMessageBox::Information, QMessageBox::Ok, BoxAnswer::kOk},
                           {BoxStyle::kError, QMessageBox::Critical, QMessageBox::Ok, BoxAnswer::kOk},
                           {BoxStyle::kQuestion, QMessageBox::Question, QMessageBox::Yes, BoxAnswer::kYes},
                           {BoxStyle::kQuestion, QMessageBox::Question, QMessageBox::No, BoxAnswer::kNo}};
  for (const BoxCase& row : cases) {
    QTimer::singleShot(0, [&] {
      QMessageBox* box = OpenBox();
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->text(), "<b>C:\\P108\\A</b>");
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->windowTitle(), "Save program");
      EXPECT_EQ(box->icon(), row.icon);
      const bool question = row.style == BoxStyle::kQuestion;
      EXPECT_EQ(box->standardButtons(), question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
      EXPECT_TRUE(windows_.InCallOut());
      ASSERT_NE(box->button(row.press), nullptr);
      box->button(row.press)->click();
    });
    EXPECT_EQ(windows_.ShowBox(0, {u"Save program", u"<b>C:\\P108\\A</b>", row.style}), row.answer);
  }
}

TEST_F(WindowSystemTest, ABoxClosedByEscapeIsANo) {
  QTimer::singleShot(0, [] { OpenBox()->reject(); });
  EXPECT_EQ(windows_.ShowBox(0, {u"", u"Sure?", BoxStyle::kQuestion}), BoxAnswer::kNo);
}

TEST_F(WindowSystemTest, AnOwnerThatDiesUnderItsBoxTakesTheBoxAlong) {
  auto* owner = new NotingTool(nullptr);
  QTimer::singleShot(0, [owner] { delete owner; });
  EXPECT_EQ(windows_.ShowBox(owner->Handle(), {u"", u"Still there?", BoxStyle::kQuestion}), BoxAnswer::kNo);
  EXPECT_EQ(OpenBox(), nullptr);
}

}  // namespace
}  // namespace pnl
