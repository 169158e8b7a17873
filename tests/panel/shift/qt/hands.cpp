// SPDX-License-Identifier: MIT
#include "panel/shift/qt/hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <array>
#include <utility>

#include "remote/settle.h"
#include "remote/window_inspector.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/touch_desk.h"
#include "ui/touch_keyboard.h"

namespace panel::shift {
namespace {

constexpr int kWorkMilliseconds = 60'000;

QString TextsOf(const QStringList& path) { return path.join(QStringLiteral(" > ")); }

}  // namespace

Hands::Hands(ShiftStage& stage, QString captures)
    : stage_(stage), finger_(stage.Set().pointing, [this] { Rest(); }), captures_(std::move(captures)) {}

// Keys.

void Hands::Row(RowKey key) {
  Touch(Window().Row().Key(key), QStringLiteral("key %1 of the row").arg(static_cast<int>(key)));
}

void Hands::Machine(Action action) { Touch(Window().Keys().Key(action), Say(WordOf(action))); }

void Hands::Main(int item) {
  // The soft keys below are where the touch keyboard is.
  PutKeyboardAway();
  Soft(Window().MainBar(), kMainKeys, item, "below");
}

void Hands::Side(int item) {
  if (!Window().SideBar().isVisible()) PutKeyboardAway();
  Soft(Window().SideBar(), kSideKeys, item, "at the side");
}

void Hands::PutKeyboardAway() {
  if (Window().TouchKeys().isVisible()) Row(RowKey::kKeyboard);
  Expect(!Window().TouchKeys().isVisible(), QStringLiteral("the touch keyboard is still there"));
}

void Hands::Soft(SoftKeyBar& bar, int keys, int item, const char* name) {
  const QString what = QStringLiteral("soft key %1 %2").arg(item).arg(QLatin1String(name));
  for (int page = 0; page < bar.PageCount(); ++page) {
    for (int slot = 0; slot < keys; ++slot) {
      const auto index = static_cast<std::size_t>(bar.Page() * keys + slot);
      if (index >= bar.Items().size() || bar.Items().at(index).id != item) continue;
      ExpectText(bar.Key(slot)->text(), bar.Items().at(index).text, what);
      return Touch(bar.Key(slot), what);
    }
    Touch(bar.MoreKey(), QStringLiteral("more keys ") + QLatin1String(name));
  }
  throw Stuck(QStringLiteral("no ") + what);
}

// What is on the screen.

void Hands::Touch(QWidget* widget, const QString& what) {
  Expect(widget != nullptr, QStringLiteral("no ") + what);
  TouchAt(widget, widget->rect().center(), what);
}

void Hands::TouchAt(QWidget* widget, const QPoint& place, const QString& what, bool twice) {
  Expect(widget != nullptr && widget->isVisible(), what + QStringLiteral(" isn't shown"));
  Expect(widget->isEnabled(), what + QStringLiteral(" is dim"));
  Expect(finger_.Touch(*widget, place, twice), what + QStringLiteral(" is covered"));
}

void Hands::Item(QAbstractItemView* view, const QModelIndex& index, bool twice) {
  Expect(view != nullptr && index.isValid(), QStringLiteral("no such item"));
  const QString what = QStringLiteral("item \"%1\"").arg(index.data().toString());
  const auto seen = [&] { return view->viewport()->rect().contains(view->visualRect(index).center()); };
  // As a finger does on the arrow of the scroll bar's groove: a page at a time.
  QScrollBar* bar = view->verticalScrollBar();
  for (int page = 0; !seen() && bar->isVisible() && page < bar->maximum() + 1; ++page) {
    const bool down = view->visualRect(index).center().y() > view->viewport()->height() / 2;
    const int before = bar->value();
    TouchAt(bar, QPoint(bar->width() / 2, down ? bar->height() - 2 : 1), QStringLiteral("the scroll bar"));
    if (bar->value() == before) break;
  }
  Expect(seen(), what + QStringLiteral(" isn't seen"));
  QRect place = view->visualRect(index) & view->viewport()->rect();
  // A short text in a wide row: where the text is.
  place.setWidth(std::min(place.width(), 60));
  TouchAt(view->viewport(), place.center(), what, twice);
}

void Hands::Item(QAbstractItemView* view, const QString& text, bool twice) {
  Expect(view != nullptr, QStringLiteral("no list for ") + text);
  QStringList all;
  for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
    const QModelIndex index = view->model()->index(row, 0, view->rootIndex());
    if (index.data().toString() == text) return Item(view, index, twice);
    all << index.data().toString();
  }
  throw Stuck(QStringLiteral("no \"%1\" in the list: %2").arg(text, all.join(u'|')));
}

void Hands::TreePath(QAbstractItemView* view, const QStringList& path) {
  auto* tree = qobject_cast<QTreeView*>(view);
  Expect(tree != nullptr, QStringLiteral("no tree"));
  QModelIndex at;
  for (const QString& name : path) {
    QModelIndex next;
    const auto find = [&] {
      for (int row = 0; row < tree->model()->rowCount(at); ++row) {
        const QModelIndex index = tree->model()->index(row, 0, at);
        if (index.data().toString() == name) next = index;
      }
      return next.isValid();
    };
    Until(find, TextsOf(path) + QStringLiteral(": no ") + name);
    Item(tree, next);
    at = next;
    if (name == path.last() || tree->isExpanded(at)) continue;
    // The arrow is at the left of the icon.
    const QRect place = tree->visualRect(at);
    TouchAt(tree->viewport(), QPoint(place.left() - tree->indentation() / 2, place.center().y()), name);
    Until([&] { return tree->isExpanded(at); }, name + QStringLiteral(" doesn't open"));
  }
}

void Hands::Pick(QComboBox* box, const QString& startsWith) {
  Expect(box != nullptr, QStringLiteral("no drop list for ") + startsWith);
  TouchAt(box, QPoint(box->width() - 8, box->height() / 2), QStringLiteral("a drop list"));
  Expect(box->view()->isVisible(), QStringLiteral("the drop list doesn't open"));
  const int row = box->findText(startsWith, Qt::MatchStartsWith);
  Expect(row >= 0, QStringLiteral("the drop list has no ") + startsWith);
  Item(box->view(), box->model()->index(row, box->modelColumn()));
  Expect(!box->view()->isVisible(), QStringLiteral("the drop list stays open"));
}

// The touch keyboard.

void Hands::Raise(QWidget* field, const QString& what) {
  if (!Window().TouchKeys().isVisible()) Touch(field, what);
  Expect(Window().TouchKeys().isVisible(), QStringLiteral("no touch keyboard for ") + what);
}

void Hands::Type(const QString& text) {
  for (const QChar c : text) {
    const auto is = [c](bool shifted) {
      return [c, shifted](const TouchKey& key) {
        return key.act == TouchAct::kCharacter && CharacterOf(key, shifted) == c;
      };
    };
    Expect(TapWhere(is(false), false) || TapWhere(is(true), true), QStringLiteral("no key for ") + c);
  }
}

void Hands::Tap(TouchAct act, int times) {
  for (int i = 0; i < times; ++i) {
    Expect(TapWhere([act](const TouchKey& key) { return key.act == act; }, false),
           QStringLiteral("no key of kind %1").arg(static_cast<int>(act)));
  }
}

bool Hands::TapSeen(const std::function<bool(const TouchKey&)>& fits) {
  TouchKeyboard& keys = Window().TouchKeys();
  for (const TouchKeyboard::Cell& cell : keys.Cells()) {
    if (!fits(cell.key)) continue;
    TouchAt(&keys, cell.place.center(), QStringLiteral("the touch keyboard"));
    return true;
  }
  return false;
}

bool Hands::TapOnLayout(const std::function<bool(const TouchKey&)>& fits) {
  for (int page = 0; page < Window().TouchKeys().PageCount(); ++page) {
    if (TapSeen(fits)) return true;
    TapSeen([](const TouchKey& key) { return key.act == TouchAct::kMore; });
  }
  return false;
}

bool Hands::TapWhere(const std::function<bool(const TouchKey&)>& fits, bool shift) {
  TouchKeyboard& keys = Window().TouchKeys();
  Expect(keys.isVisible(), QStringLiteral("the touch keyboard isn't there"));
  const auto here = [&] {
    for (const TouchPage& page : TouchPages(keys.Layout(), 15, 3)) {
      for (const TouchRow& row : page) {
        if (std::any_of(row.begin(), row.end(), fits)) return true;
      }
    }
    return false;
  };
  // From the block to the letters, to the signs, and back by the letters.
  constexpr std::array kWay = {TouchAct::kLetters, TouchAct::kSigns, TouchAct::kLetters, TouchAct::kBlock};
  for (const TouchAct next : kWay) {
    if (here()) break;
    TapOnLayout([next](const TouchKey& key) { return key.act == next; });
  }
  if (!here()) return false;
  if (shift && !keys.Shifted() && !TapOnLayout([](const TouchKey& key) { return key.act == TouchAct::kShift; })) {
    return false;
  }
  return TapOnLayout(fits);
}

// Time.

void Hands::Rest() {
  // A listing or a program comes from a thread; a machine in real time goes on by itself.
  const auto works = [this] { return stage_.Rig().IsWorking() || Window().Working(); };
  Expect(WaitWhile(works, kWorkMilliseconds), QStringLiteral("the panel works without end"));
  Expect(Settle(), QStringLiteral("the panel never comes to rest"));
}

void Hands::Until(const std::function<bool()>& so, const QString& what) {
  Rest();
  if (!stage_.Set().manualTime) {
    Expect(WaitWhile([&so] { return !so(); }, kWorkMilliseconds), what);
    return Rest();
  }
  constexpr int kSlice = 50;
  for (int passed = 0; !so() && passed < kWorkMilliseconds; passed += kSlice) {
    stage_.Rig().Advance(kSlice);
    Rest();
  }
  Expect(so(), what);
}

// What is seen.

void Hands::Expect(bool so, const QString& what) {
  if (!so) throw Stuck(what);
}

void Hands::ExpectText(const QString& seen, const QString& expected, const QString& what) {
  Expect(seen == expected, QStringLiteral("%1: \"%2\" instead of \"%3\"").arg(what, seen, expected));
}

QWidget* Hands::Tool(int tool) const { return static_cast<QWidget*>(PnlWidgetOf(stage_.Session().ToolWindow(tool))); }

bool Hands::IsSeen(int tool) const { return Tool(tool) != nullptr && Tool(tool)->isVisible(); }

QWidget* Hands::Control(int tool, int id) const {
  Expect(IsSeen(tool), QStringLiteral("tool %1 isn't shown").arg(tool));
  QWidget* control = WindowInspector::Control(Tool(tool), id);
  if (control != nullptr && WindowInspector::IsSeen(control)) return control;
  // Some tools have their controls in a form, which is a window of its own.
  for (QWidget* within : Tool(tool)->findChildren<QWidget*>()) {
    if (within->property("pnlId") == QVariant(id) && WindowInspector::IsSeen(within)) return within;
  }
  throw Stuck(QStringLiteral("control %1 isn't seen").arg(id));
}

QString Hands::TextOf(int tool, int id) const {
  const WindowInspector inspector(stage_.Window().ToolAreaWidget());
  return inspector.DescribeControl(Tool(tool), Control(tool, id))["text"].toString();
}

bool Hands::IsChecked(int tool, int id) const {
  const WindowInspector inspector(stage_.Window().ToolAreaWidget());
  return inspector.DescribeControl(Tool(tool), Control(tool, id))["checked"].toBool();
}

QString Hands::Messages() const {
  QStringList lines;
  for (const auto& line : stage_.Window().Zone().Lines()) lines << line.text;
  return lines.join(u'|');
}

QString Hands::State() const { return stage_.Window().Status().StateText(); }

void Hands::Capture(const QString& name) {
  if (captures_.isEmpty()) return;
  QPixmap picture = Window().grab();
  if (QWidget* over = QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                                   : QApplication::activePopupWidget()) {
    QPainter(&picture).drawPixmap(Window().mapFromGlobal(over->mapToGlobal(QPoint())), over->grab());
  }
  Expect(picture.save(QStringLiteral("%1/%2.png").arg(captures_, name)), QStringLiteral("the capture can't be saved"));
}

}  // namespace panel::shift
