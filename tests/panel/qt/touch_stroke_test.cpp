// SPDX-License-Identifier: MIT
// Where the strokes of the touch keyboard go, and with which key and modifiers a character is typed.
#include "ui/touch_stroke.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace panel {
namespace {

/// Writes down the keys that reach its widgets.
class KeyLog : public QObject {
 public:
  void Watch(QWidget& widget, const QString& name) {
    widget.setObjectName(name);
    widget.installEventFilter(this);
  }
  [[nodiscard]] std::vector<std::string> Take() { return std::exchange(lines_, {}); }
  std::function<void()> atPress;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool press = event->type() == QEvent::KeyPress;
    lines_.push_back(watched->objectName().toStdString() + (press ? " down " : " up ") + std::to_string(key->key()) +
                     " '" + key->text().toStdString() + "'" + (key->isAutoRepeat() ? " again" : "") +
                     (key->modifiers() == Qt::ShiftModifier ? " shift" : ""));
    event->accept();
    // Taken out first, so that it is done once.
    if (press && atPress) std::exchange(atPress, nullptr)();
    return true;
  }

 private:
  std::vector<std::string> lines_;
};

using Lines = std::vector<std::string>;

class TouchStrokeTest : public ::testing::Test {
 protected:
  TouchStrokeTest() : panel(std::make_unique<QWidget>()) {
    panel->setFocusPolicy(Qt::NoFocus);
    first = new QLineEdit(panel.get());
    second = new QLineEdit(panel.get());
    log.Watch(*panel, "panel");
    log.Watch(*first, "first");
    log.Watch(*second, "second");
    panel->show();
    panel->activateWindow();
    first->setFocus();
    Settle();
  }
  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }

  KeyLog log;
  std::unique_ptr<QWidget> panel;
  QLineEdit* first = nullptr;
  QLineEdit* second = nullptr;
};

TEST_F(TouchStrokeTest, ACapitalIsTypedWithShiftAndEveryOtherCharacterWithout) {
  EXPECT_EQ(StrokeOf('G'), (TouchStroke{Qt::Key_G, Qt::ShiftModifier, "G"}));
  EXPECT_EQ(StrokeOf('g'), (TouchStroke{Qt::Key_G, Qt::NoModifier, "g"}));
  EXPECT_EQ(StrokeOf('7'), (TouchStroke{Qt::Key_7, Qt::NoModifier, "7"}));
  EXPECT_EQ(StrokeOf(QChar(0xF1)), (TouchStroke{Qt::Key_Ntilde, Qt::NoModifier, QString(QChar(0xF1))}));
  EXPECT_EQ(StrokeOf(QChar(0xD1)), (TouchStroke{Qt::Key_Ntilde, Qt::ShiftModifier, QString(QChar(0xD1))}));
}

TEST_F(TouchStrokeTest, AStrokeIsAPressAndAReleaseForWhatHasTheFocus) {
  SendStroke(*panel, StrokeOf('G'), false);
  EXPECT_EQ(log.Take(), (Lines{"first down 71 'G' shift", "first up 71 'G' shift"}));
  SendStroke(*panel, StrokeOf('g'), true);
  EXPECT_EQ(log.Take(), (Lines{"first down 71 'g' again", "first up 71 'g' again"}));
}

TEST_F(TouchStrokeTest, WithoutAFocusThePanelGetsIt) {
  first->clearFocus();
  Settle();
  ASSERT_EQ(QApplication::focusWidget(), nullptr);
  SendStroke(*panel, StrokeOf('7'), false);
  EXPECT_EQ(log.Take(), (Lines{"panel down 55 '7'", "panel up 55 '7'"}));
}

TEST_F(TouchStrokeTest, TheReleaseGoesToWhatHasTheFocusByThen) {
  log.atPress = [this] { second->setFocus(); };
  SendStroke(*panel, StrokeOf('7'), false);
  EXPECT_EQ(log.Take(), (Lines{"first down 55 '7'", "second up 55 '7'"}));
}

TEST_F(TouchStrokeTest, AnOpenListGetsItBeforeTheField) {
  QWidget list(panel.get(), Qt::Popup);
  log.Watch(list, "list");
  list.show();
  Settle();
  ASSERT_EQ(QApplication::activePopupWidget(), &list);
  SendStroke(*panel, StrokeOf('7'), false);
  EXPECT_EQ(log.Take(), (Lines{"list down 55 '7'", "list up 55 '7'"}));
  QLineEdit inner(&list);
  log.Watch(inner, "inner");
  inner.show();
  inner.setFocus();
  Settle();
  ASSERT_EQ(list.focusWidget(), &inner);
  SendStroke(*panel, StrokeOf('7'), false);
  EXPECT_EQ(log.Take(), (Lines{"inner down 55 '7'", "inner up 55 '7'"}));
}

TEST_F(TouchStrokeTest, APanelThatGoesWithThePressGetsNoRelease) {
  QWidget other;
  QLineEdit field(&other);
  log.Watch(field, "other");
  other.show();
  log.atPress = [&] {
    panel.reset();
    other.activateWindow();
    field.setFocus();
    Settle();
  };
  SendStroke(*panel, StrokeOf('7'), false);
  EXPECT_EQ(log.Take(), (Lines{"first down 55 '7'"}));
}

}  // namespace
}  // namespace panel
