// SPDX-License-Identifier: MIT
// The operator's hands on the screen: they touch the panel's keys, what is in lists and trees, and the keys of the
// touch keyboard, each at the place where it is painted. Each call returns when the panel has answered. When something
// that is to be touched can't be seen, or what is expected doesn't come, they throw Stuck.
#pragma once

#include <QModelIndex>
#include <functional>
#include <stdexcept>
#include <string>

#include "common/shortcuts.h"
#include "panel/shift/qt/finger.h"
#include "panel/shift/qt/shift_stage.h"
#include "ui/reserved_row.h"
#include "ui/touch_layouts.h"

class QAbstractItemView;
class QComboBox;

namespace panel {
class SoftKeyBar;
}

namespace panel::shift {

/// The shift can't go on: the message says where.
class Stuck : public std::runtime_error {
 public:
  explicit Stuck(const QString& what) : std::runtime_error(what.toStdString()) {}
};

class Hands {
 public:
  /// captures: the folder for the captures; empty for none.
  Hands(ShiftStage& stage, QString captures);

  [[nodiscard]] ShiftStage& Stage() { return stage_; }
  [[nodiscard]] PanelWindow& Window() { return stage_.Window(); }
  [[nodiscard]] Finger& TheFinger() { return finger_; }

  // Keys.
  void Row(RowKey key);
  void Machine(Action action);
  /// A soft key by the number of its menu item or action; turns the pages of its bar until it is seen.
  void Main(int item);
  void Main(Action action) { Main(static_cast<int>(action)); }
  void Side(int item);
  void Side(Action action) { Side(static_cast<int>(action)); }
  /// Puts the touch keyboard away when it is up.
  void PutKeyboardAway();

  // What is on the screen.
  void Touch(QWidget* widget, const QString& what);
  void TouchAt(QWidget* widget, const QPoint& place, const QString& what, bool twice = false);
  /// Touches an item of a list, a tree or a table; scrolls by touch to where it is seen.
  void Item(QAbstractItemView* view, const QModelIndex& index, bool twice = false);
  /// The row of a list whose first column has that text.
  void Item(QAbstractItemView* view, const QString& text, bool twice = false);
  /// Opens the nodes of a tree one below the other, and selects the last one.
  void TreePath(QAbstractItemView* tree, const QStringList& path);
  /// Opens a drop list and touches an item in it. startsWith: the beginning of the item.
  void Pick(QComboBox* box, const QString& startsWith);

  // The touch keyboard. It must be up, or come when there is something to type in.
  /// Touches a field for the keyboard, when it isn't up already.
  void Raise(QWidget* field, const QString& what);
  void Type(const QString& text);
  void Tap(TouchAct act, int times = 1);

  // Time.
  void Rest();
  /// Lets time pass until that is so.
  void Until(const std::function<bool()>& so, const QString& what);
  /// Reads what has come, as long as the panel wants it to be read.
  void Read() { stage_.PassGuard(); }

  // What is seen.
  static void Expect(bool so, const QString& what);
  static void ExpectText(const QString& seen, const QString& expected, const QString& what);
  [[nodiscard]] QWidget* Tool(int tool) const;
  [[nodiscard]] bool IsSeen(int tool) const;
  /// A control of a tool that is seen; Stuck when there is none.
  [[nodiscard]] QWidget* Control(int tool, int id) const;
  /// The same as a control of that class.
  template <typename T>
  [[nodiscard]] T* Control(int tool, int id) const {
    auto* control = qobject_cast<T*>(Control(tool, id));
    Expect(control != nullptr, QStringLiteral("control %1 of another kind").arg(id));
    return control;
  }
  /// The text that a control shows.
  [[nodiscard]] QString TextOf(int tool, int id) const;
  /// Whether a box of a tool is checked.
  [[nodiscard]] bool IsChecked(int tool, int id) const;
  /// The lines of the message zone.
  [[nodiscard]] QString Messages() const;
  [[nodiscard]] QString Program() const { return stage_.Window().ProgramText(); }
  /// The words of the panel's state, as they are painted.
  [[nodiscard]] QString State() const;
  /// Saves what is seen now.
  void Capture(const QString& name);

 private:
  void Soft(SoftKeyBar& bar, int keys, int item, const char* name);
  /// Touches the key of the touch keyboard that fits; turns pages and layouts. Returns false when none has it.
  bool TapWhere(const std::function<bool(const TouchKey& key)>& fits, bool shift);
  bool TapOnLayout(const std::function<bool(const TouchKey& key)>& fits);
  bool TapSeen(const std::function<bool(const TouchKey& key)>& fits);

  ShiftStage& stage_;
  Finger finger_;
  QString captures_;
};

}  // namespace panel::shift
