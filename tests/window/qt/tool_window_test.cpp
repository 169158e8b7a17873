// SPDX-License-Identifier: MIT
// The bases of the library's windows: what they show of themselves, how they hide, and the registry that knows them.
#include "window/qt/tool_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <memory>
#include <utility>

#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/message_control.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_window_system.h"

namespace pnl {
namespace {

using test::Activate;
using ::testing::ElementsAre;

class PlainTool : public ToolWindow {
 public:
  explicit PlainTool(QWidget* parent) : ToolWindow(6, parent) {}
  void Start() override {}
  using ToolWindow::DropFocus;
  using ToolWindow::HideWithFocus;
  using ToolWindow::ParentArea;
  using ToolWindow::SetBackProperty;
  using ToolWindow::SetRemovedProperty;
  using ToolWindow::SetTitleProperty;
  std::function<void()> onMessage;

 protected:
  std::intptr_t OnMessage(const Message& message) override {
    if (onMessage) onMessage();
    return ToolWindow::OnMessage(message);
  }
};

class PlainDialog : public ToolDialog {
 public:
  using ToolDialog::SetTitleProperty;
  using ToolDialog::ToolDialog;
};

class ToolWindowTest : public ::testing::Test {
 protected:
  WindowRegistry& registry_ = WindowRegistry::Instance();
  QtWindowSystem windows_{registry_};
  QWidget host_;
};

TEST_F(ToolWindowTest, AToolIsHiddenUntilItShowsItself) {
  PlainTool tool(&host_);
  Activate(host_);
  EXPECT_FALSE(tool.isVisible());
  EXPECT_EQ(tool.ToolId(), 6);
}

TEST_F(ToolWindowTest, AToolHasAnEmptyTitleFromTheStart) {
  const PlainTool tool(&host_);
  EXPECT_TRUE(tool.property(property::kTitle).isValid());
  EXPECT_EQ(tool.property(property::kTitle).toString(), "");
}

TEST_F(ToolWindowTest, ARemovalIsToldOnceByItsNumber) {
  PlainTool tool(&host_);
  int told = 0;
  class Listener final : public QObject {
   public:
    explicit Listener(int& told) : told_(told) {}
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::DynamicPropertyChange) ++told_;
      return false;
    }

   private:
    int& told_;
  } listener(told);
  tool.installEventFilter(&listener);
  tool.SetRemovedProperty(3);
  tool.SetRemovedProperty(3);
  EXPECT_EQ(tool.property(property::kRemoved).toInt(), 3);
  EXPECT_EQ(told, 1);
  tool.SetRemovedProperty(0);
  EXPECT_EQ(tool.property(property::kRemoved).toInt(), 0);
  EXPECT_EQ(told, 2);
}

TEST_F(ToolWindowTest, ToolsAreCountedUntilTheyAreDeleted) {
  const int before = ToolWindow::Living();
  auto first = std::make_unique<PlainTool>(&host_);
  {
    const PlainTool second(&host_);
    EXPECT_EQ(ToolWindow::Living(), before + 2);
  }
  registry_.Unregister(first->Handle());
  EXPECT_EQ(ToolWindow::Living(), before + 1) << "without its handle it still lives";
  first.reset();
  EXPECT_EQ(ToolWindow::Living(), before);
}

TEST_F(ToolWindowTest, AMessageThatNobodyHandlesIsAnsweredZero) {
  PlainTool tool(&host_);
  EXPECT_EQ(windows_.Send(tool.Handle(), {1, 2, 3}), 0);
  EXPECT_FALSE(tool.InMessage());
}

TEST_F(ToolWindowTest, TitleAndGroundAreProperties) {
  PlainTool tool(&host_);
  tool.SetTitleProperty(u"Año");
  tool.SetBackProperty(0x0180FF);
  EXPECT_EQ(tool.property("pnlTitle").toString().toStdU16String(), u"Año");
  EXPECT_EQ(tool.property("pnlBack").toUInt(), 0x0180FFu);
  PlainDialog dialog(&tool);
  EXPECT_EQ(dialog.property("pnlTitle"), QVariant(QString()));
  dialog.SetTitleProperty(u"Find");
  EXPECT_EQ(dialog.property("pnlTitle").toString(), "Find");
}

TEST_F(ToolWindowTest, TheParentsAreaIsItsSize) {
  host_.setGeometry(30, 40, 320, 200);
  EXPECT_EQ(PlainTool(&host_).ParentArea(), (Rect{0, 0, 320, 200}));
  EXPECT_EQ(PlainTool(nullptr).ParentArea(), (Rect{0, 0, 0, 0}));
}

TEST_F(ToolWindowTest, HidingGivesTheFocusToNobody) {
  QLineEdit other(&host_);
  auto* tool = new PlainTool(&host_);
  auto* edit = new QLineEdit(tool);
  Activate(host_);
  tool->show();
  for (QWidget* const focused : {static_cast<QWidget*>(edit), static_cast<QWidget*>(tool)}) {
    tool->setFocusPolicy(Qt::StrongFocus);
    tool->show();
    focused->setFocus();
    ASSERT_TRUE(focused->hasFocus());
    tool->HideWithFocus();
    EXPECT_FALSE(tool->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
  }
  other.setFocus();
  tool->show();
  tool->DropFocus();
  EXPECT_TRUE(other.hasFocus()) << "another's focus is left alone";
  tool->HideWithFocus();
  EXPECT_TRUE(other.hasFocus());
}

TEST_F(ToolWindowTest, AToolMayEndAfterAMessageWithinItsMessage) {
  auto* tool = new PlainTool(&host_);
  const WindowHandle window = tool->Handle();
  int depth = 0;
  tool->onMessage = [&] {
    if (++depth == 2) return;
    windows_.Send(window, {2, 0, 0});
    delete tool;
  };
  EXPECT_EQ(windows_.Send(window, {1, 0, 0}), 0);
  EXPECT_EQ(depth, 2);
  EXPECT_FALSE(windows_.IsAlive(window));
}

// The registry.

TEST_F(ToolWindowTest, AHostsWidgetShowsItsNumberAndIsNoToolsWindow) {
  const std::vector<WindowHandle> before = registry_.ToolWindows();
  const WindowHandle window = registry_.Attach(&host_, nullptr, nullptr);
  EXPECT_GT(window, 0);
  EXPECT_EQ(host_.property("pnlWindow").toInt(), window);
  EXPECT_EQ(registry_.HandleOf(&host_), window);
  EXPECT_EQ(registry_.ToolWindows(), before);
  const PlainTool first(&host_);
  const PlainTool second(&host_);
  const PlainTool third(&host_);
  std::vector<WindowHandle> expected = before;
  expected.insert(expected.end(), {first.Handle(), second.Handle(), third.Handle()});
  EXPECT_EQ(registry_.ToolWindows(), expected) << "in the order of their making";
}

TEST_F(ToolWindowTest, AWidgetThatOnlyClaimsANumberHasNone) {
  const PlainTool tool(&host_);
  QWidget claiming;
  claiming.setProperty("pnlWindow", tool.Handle());
  EXPECT_EQ(registry_.HandleOf(&claiming), 0);
  EXPECT_EQ(registry_.HandleOf(nullptr), 0);
  EXPECT_EQ(registry_.HandleOf(&host_), 0);
  const WindowHandle own = registry_.Attach(&claiming, nullptr, nullptr);
  EXPECT_NE(own, tool.Handle());
  EXPECT_EQ(registry_.HandleOf(&claiming), own);
}

TEST_F(ToolWindowTest, OnlyMessagesToTheHostAreCallsOut) {
  static QtWindowSystem* windows = nullptr;
  static std::vector<bool> inside;
  windows = &windows_;
  inside.clear();
  const WindowHandle window = registry_.Attach(
      &host_,
      [](void*, PnlWindow, std::uint32_t, std::intptr_t, std::intptr_t) -> std::intptr_t {
        inside.push_back(windows->InCallOut());
        return 0;
      },
      nullptr);
  PlainTool tool(&host_);
  tool.onMessage = [] { inside.push_back(windows->InCallOut()); };
  windows_.Send(window, {1, 0, 0});
  windows_.Send(tool.Handle(), {1, 0, 0});
  windows_.Post(tool.Handle(), {1, 0, 0});
  QCoreApplication::sendPostedEvents();
  EXPECT_THAT(inside, ElementsAre(true, false, false));
  EXPECT_FALSE(windows_.InCallOut());
}

TEST_F(ToolWindowTest, ABoxIsAnsweredByTheAnswererElseByTheToolsOwnBox) {
  std::vector<std::string> asked;
  BoxSpec box{u"t", u"x", BoxStyle::kQuestion};
  box.show = [&](const BoxSpec& shown) {
    asked.push_back("tool " + ToUtf8(shown.text) + (windows_.InCallOut() ? " inside" : ""));
    return BoxAnswer::kCancel;
  };
  windows_.onBoxAnswered = [&](const BoxSpec&, BoxAnswer) {
    asked.emplace_back(windows_.InCallOut() ? "told inside" : "told outside");
  };
  EXPECT_EQ(windows_.ShowBox(0, box), BoxAnswer::kCancel);
  windows_.SetBoxAnswerer([&](const BoxSpec&) {
    asked.emplace_back(windows_.InCallOut() ? "answerer inside" : "answerer");
    return BoxAnswer::kYes;
  });
  EXPECT_EQ(windows_.ShowBox(0, box), BoxAnswer::kYes);
  EXPECT_THAT(asked, ElementsAre("tool x inside", "told inside", "answerer inside", "told inside"));
  EXPECT_FALSE(windows_.InCallOut());
}

TEST_F(ToolWindowTest, ABoxIsOverItsOwnerElseOverTheMainWindowAndGoesWithItsAnswer) {
  const PlainTool tool(&host_);
  const WindowHandle main = registry_.Attach(&host_, nullptr, nullptr);
  const auto parentOf = [this](WindowHandle owner) {
    QWidget* parent = nullptr;
    QTimer::singleShot(0, [&parent] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      parent = box->parentWidget();
      box->accept();
    });
    EXPECT_EQ(windows_.ShowBox(owner, {u"", u"?", BoxStyle::kInfo}), BoxAnswer::kOk);
    return parent;
  };
  EXPECT_EQ(parentOf(tool.Handle()), &tool);
  EXPECT_EQ(parentOf(0), nullptr);
  windows_.SetMainWindow(main);
  EXPECT_EQ(parentOf(0), &host_);
  EXPECT_TRUE(host_.findChildren<QMessageBox*>().isEmpty());
}

TEST(Rectangles, GoBothWaysUnchanged) {
  const Rect rect{3, 4, 13, 24};
  EXPECT_EQ(ToQRect(rect), QRect(3, 4, 10, 20));
  EXPECT_EQ(FromQRect(QRect(3, 4, 10, 20)), rect);
  EXPECT_EQ(FromQRect(ToQRect(Rect{})), Rect{});
}

/// A control with messages.
class Sending : public QWidget {
 public:
  Sending(int id, QWidget* parent) : QWidget(parent) { MarkControl(this, id, control_kind::kStatic); }
};

TEST_F(ToolWindowTest, AControlGetsMessagesUntilItsHandleIsGivenBack) {
  auto control = std::make_unique<MessageControl<Sending>>(7, &host_);
  const WindowHandle window = control->Handle();
  EXPECT_EQ(windows_.Send(window, {1, 2, 3}), 0) << "without a handler";
  control->SetMessageHandler([](const Message& message) { return message.first * 10 + message.second; });
  EXPECT_EQ(windows_.Send(window, {1, 2, 3}), 23);
  control->EndMessages();
  EXPECT_EQ(control->Handle(), 0);
  EXPECT_FALSE(windows_.IsAlive(window));
  control->EndMessages();
  auto* gone = new MessageControl<Sending>(8, &host_);
  gone->SetMessageHandler([gone](const Message&) {
    delete gone;
    return std::intptr_t{5};
  });
  const WindowHandle own = gone->Handle();
  EXPECT_EQ(windows_.Send(own, {1, 0, 0}), 5);
  EXPECT_FALSE(windows_.IsAlive(own));
}

}  // namespace
}  // namespace pnl
