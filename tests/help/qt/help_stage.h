// SPDX-License-Identifier: MIT
// A help viewer in a panel's window, off screen, with manuals in memory.
#pragma once

#include <QLabel>
#include <QTextBrowser>

#include "help/help_fake_books.h"
#include "help/help_ids.h"
#include "help/qt/help_window.h"
#include "support/window_stage.h"

namespace pnl::test {

class HelpStage : public WindowStage {
 protected:
  explicit HelpStage(QSize size = {800, 600}) : WindowStage(size + QSize(100, 100), QRect(QPoint(20, 10), size)) {
    cnc.Define(u"E.HELPDATA", rig::VariableType::kText, std::u16string(), true, true);
    Disc("C:\\P113\\Cnc7340.helps", "[MANUALS]\r\nOPT=oper.chm\r\nPRG=prog.chm\r\nNIX=gone.chm\r\n");
    Disc("C:\\P113\\oper.mrk", "[MARKS]\r\nOPT0130=mdi.htm\r\nOPT0000=home.htm\r\n");
    Disc("C:\\P113\\gone.mrk", "[MARKS]\r\nNIX0000=home.htm\r\n");
    Disc("C:\\P113\\oper.chm", "manual");
    Disc("C:\\P113\\prog.chm", "manual");
    other_->title = u"Programming";
    world.books["C:\\P113\\oper.chm"] = {ManualState::kWhole, book};
    world.books["C:\\P113\\prog.chm"] = {ManualState::kWhole, other_};
  }
  /// The tool must go before its shelf's world.
  ~HelpStage() override { delete area; }

  void Make() {
    Use(tool = new ZCHelpHTML(context, std::make_unique<FakeShelf>(world, log), area));
    tool->Start();
    Settle();
  }
  std::intptr_t OpenAt(TextView mark = u"OPT0130") {
    cnc.Set(u"E.HELPDATA", Text(mark));
    const std::intptr_t answer = Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_OPEN);
    Settle();
    return answer;
  }
  /// Opens the viewer with a manual that has the word in one page, and searches for it by touch.
  void SearchForAxis() {
    book->found[u"axis"] = {{u"Start", u"start.htm"}};
    Make();
    OpenAt();
    Touch(help_id::kSearchTab);
    Line(help_id::kSearchLine)->setText("axis");
    Touch(help_id::kSearchKey);
  }
  void Menu(int id) {
    Send(PNL_MSG_COMMAND, id);
    Settle();
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    WindowStage::Key(key, modifiers, text);
    Settle();
  }
  [[nodiscard]] bool Has(int id) const { return Control(id) != nullptr && Control(id)->isAncestorOf(Focus()); }
  [[nodiscard]] bool IsFocused(int id) const { return Control(id) == Focus() || Has(id); }
  [[nodiscard]] std::string PageText() const {
    return Control(help_id::kPage)->findChild<QTextBrowser*>()->toPlainText().toStdString();
  }
  [[nodiscard]] HelpTree* Contents() const { return static_cast<HelpTree*>(Control(help_id::kContents)); }
  [[nodiscard]] ListBox* List(int id) const { return static_cast<ListBox*>(Control(id)); }
  [[nodiscard]] QLineEdit* Line(int id) const { return static_cast<QLineEdit*>(Control(id)); }
  [[nodiscard]] bool Shows(int id) const { return Control(id)->isVisible(); }
  /// A finger on a row of a list.
  static void TouchRow(QAbstractItemView* view, const QModelIndex& index) {
    const QPoint middle = view->visualRect(index).center();
    PressMouse(view->viewport(), middle);
    PressMouse(view->viewport(), middle, QEvent::MouseButtonRelease);
    Settle();
  }

  Log log;
  std::shared_ptr<FakeBook> book = std::make_shared<FakeBook>();
  FakeShelf::World world;
  QPointer<ZCHelpHTML> tool;

 private:
  std::shared_ptr<FakeBook> other_ = std::make_shared<FakeBook>();
};

}  // namespace pnl::test
