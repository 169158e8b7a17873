// SPDX-License-Identifier: MIT
#include "calc_stage.h"

#include "calc/expr/calc_store.h"
#include "window/qt/qt_text.h"

namespace pnl::test {

CalcStage::CalcStage() : WindowStage({900, 700}, {20, 10, 800, 600}) {
  SharedCalcStore() = {};
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 0.0, true, true);
}

void CalcStage::Open() {
  Use(tool = new ZCCalc7340(context, area, 0, [this] { return now++; }));
  tool->Start();
  Settle();
}

void CalcStage::History(int rows) const {
  std::string all;
  for (int i = 0; i < rows; ++i) all += std::to_string(i) + "+1\r\n";
  Disc("C:\\P1\\calc.htr", all);
}

void CalcStage::TouchRow(ListBox* list, int row, Qt::KeyboardModifiers modifiers) {
  const QModelIndex index = list->model()->index(row, 0);
  list->scrollTo(index);
  const QPoint place = list->visualRect(index).center();
  list->setFocus(Qt::MouseFocusReason);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, list->viewport()->mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, modifiers);
    QApplication::sendEvent(list->viewport(), &event);
  }
}

void CalcStage::WaitForComputing() const {
  const auto busy = [this] {
    if (tool.isNull()) return false;
    const QString status = QString::fromStdString(Status());
    return status.contains(ToQString(language.LoadToolText(calc_id::kTextComputing))) ||
           status.contains(ToQString(language.LoadToolText(calc_id::kTextConfirming)));
  };
  constexpr int kMostTurns = 100'000;
  for (int turn = 0; turn < kMostTurns && busy(); ++turn) QCoreApplication::processEvents();
  EXPECT_FALSE(busy()) << "it computes and computes";
}

}  // namespace pnl::test
