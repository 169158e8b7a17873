// SPDX-License-Identifier: MIT
// What a finger finds in the whole panel beside sizes: no menus of the kit, and scroll bars that leave room for the
// text.
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>

#include "panel/windows/qt/every_window.h"
#include "ui/theme.h"

namespace panel {
namespace {

class FingerPanelTest : public MachiningFixture {
 protected:
  FingerPanelTest() { theme::Apply(*qApp); }
  static void ExpectNoMenu(QWidget& field) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&field, &event);
    for (QWidget* each : QApplication::topLevelWidgets()) {
      EXPECT_FALSE(each->isVisible() && qobject_cast<QMenu*>(each) != nullptr) << field.metaObject()->className();
      if (qobject_cast<QMenu*>(each) != nullptr) each->close();
    }
  }
};

TEST_F(FingerPanelTest, NoFieldOpensAMenuOfTheKit) {
  Do(Action::kOpenMdi);
  ExpectNoMenu(*Line(PNL_TOOL_MDI));
  ExpectNoMenu(*window_->Editor().Edit().viewport());
  Do(Action::kFind);
  const auto fields = window_->Editor().findChildren<QLineEdit*>();
  ASSERT_GE(fields.size(), 2);
  for (QLineEdit* field : fields) ExpectNoMenu(*field);
}

TEST_F(FingerPanelTest, TheProgramHasBarsForAFingerWhereThereIsRoom) {
  window_->Editor().SetProgram(QString(5000, 'X') + QString(200, '\n'), "C:\\LONG.NC");
  struct Row {
    QSize size;
    bool below;
  };
  for (const Row& row : {Row{{1024, 768}, true}, Row{{640, 480}, false}, Row{{1920, 1080}, true}}) {
    window_->resize(row.size);
    Settle();
    const CodeEdit& edit = window_->Editor().Edit();
    EXPECT_EQ(edit.horizontalScrollBar()->isVisible(), row.below) << row.size.width();
    EXPECT_TRUE(edit.verticalScrollBar()->isVisible());
    EXPECT_EQ(edit.verticalScrollBar()->width(), theme::TouchPixels(edit));
    const int below = edit.horizontalScrollBar()->isVisible() ? edit.horizontalScrollBar()->height() : 0;
    EXPECT_EQ(below, row.below ? theme::TouchPixels(edit) : 0);
    EXPECT_GE(edit.viewport()->height(), 2 * edit.fontMetrics().height()) << "lines that can be read";
  }
}

TEST_F(FingerPanelTest, TheToolsKnowTheFinger) {
  EXPECT_EQ(window_->ToolAreaWidget()->property("pnlFinger").toInt(), theme::TouchPixels(*window_));
}

}  // namespace
}  // namespace panel
