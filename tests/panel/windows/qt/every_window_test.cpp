// SPDX-License-Identifier: MIT
// Every text of every window can be read, by its colours and by its size, and everything that a finger presses is big
// enough: at three sizes, in both languages. The panel is walked through once; each test looks at what was found.
#include "panel/windows/qt/every_window.h"

#include <QPushButton>
#include <array>
#include <map>

#include "support/painted_texts.h"
#include "support/touch_targets.h"
#include "ui/operator_keys.h"
#include "ui/reserved_row.h"
#include "ui/theme.h"

namespace panel {
namespace {

using pnl::test::PaintedText;
using pnl::test::TouchTarget;
using pnl::test::TouchTargets;

/// The findings by name: the worst value, and the first place where it was found.
struct Worst {
  double value;
  std::string where;
};
using Findings = std::map<std::string, Worst>;

struct Exception {
  const char* name;
  double least;  // it may not become worse
  const char* reason;
};

/// The class of the control to which a widget belongs, with the control's number.
std::string OwnerOf(const QWidget* widget) {
  for (const QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
    std::string name = at->metaObject()->className();
    const QVariant id = at->property("pnlId");
    if (name.starts_with('Q') && !id.isValid() && at->parentWidget() != nullptr) continue;
    if (const auto colon = name.rfind(':'); colon != std::string::npos) name.erase(0, colon + 1);
    return id.isValid() ? name + ' ' + std::to_string(id.toInt()) : name;
  }
  return "nothing";
}

struct Walk {
  Findings pale;   // texts, by owner and colours; the contrast
  Findings low;    // texts, by owner; the letters in pixels
  Findings small;  // targets, by part and owner; the shorter side in millimetres
  int texts = 0;
  int targets = 0;
  int machineKeys = 0;
  int looks = 0;
};

void Note(Findings& into, const std::string& name, double value, const std::string& where) {
  const auto [found, isNew] = into.try_emplace(name, Worst{value, where});
  if (!isNew && value < found->second.value) found->second = {value, where};
}

/// Whether the widget belongs to a tool, or else to the panel.
bool IsOfTool(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const std::string_view name = widget->metaObject()->className();
    if (name.starts_with("pnl::")) return true;
    if (name.starts_with("panel::")) return false;
  }
  return false;
}

/// The least height of letters, in pixels. A tool is read from further away than the keys at the operator's hand.
constexpr int kLeastLetters = 11;
constexpr int kLeastLettersOfTool = 12;

/// No colour depends on the language, but the room for the letters does.
void LookAtTexts(Walk& walk, QWidget& window, const std::string& where, bool colours = true) {
  for (const PaintedText& text : pnl::test::PaintedTextsOf(window)) {
    ++walk.texts;
    const QWidget* at = window.childAt(text.place.center());
    if (at == nullptr) at = &window;
    const std::string here = where + ", '" + text.text.left(30).toStdString() + "'";
    if (text.letters < (IsOfTool(at) ? kLeastLettersOfTool : kLeastLetters)) {
      Note(walk.low, OwnerOf(at), text.letters, here);
    }
    if (!colours || text.contrast >= theme::kLeastContrast) continue;
    const std::string name =
        OwnerOf(at) + ": " + text.ink.name().toStdString() + " on " + text.field.name().toStdString();
    Note(walk.pale, name, text.contrast, here);
  }
}

/// Whether an operator presses it while the machine moves.
bool IsForTheMachine(const TouchTarget& target) {
  const QObject* bar = target.widget->parentWidget();
  return qobject_cast<const OperatorKeys*>(bar) != nullptr || qobject_cast<const ReservedRow*>(bar) != nullptr ||
         qobject_cast<const TouchKeyboard*>(target.widget) != nullptr;
}

/// 12 mm in pixels, from the pixels of 9 mm, which have been rounded up already.
int MovingPixels(int touch) { return (touch - 1) * 4 / 3 + 1; }

void LookAtTargets(Walk& walk, const QWidget& window, const std::string& where) {
  TouchTargets found(window);
  for (const TouchKeyboard* keys : window.findChildren<TouchKeyboard*>()) {
    if (!keys->isVisible()) continue;
    for (const TouchKeyboard::Cell& cell : keys->Cells()) found.AddPart(*keys, "key", cell.place);
  }
  constexpr double kMillimetres = 9;
  const int touch = theme::TouchPixels(window);
  for (const TouchTarget& target : found.All()) {
    const bool machine = IsForTheMachine(target);
    ++(machine ? walk.machineKeys : walk.targets);
    const int side = std::min(target.place.width(), target.place.height());
    if (side >= (machine ? MovingPixels(touch) : touch)) continue;
    Note(walk.small, target.part + " of " + OwnerOf(target.widget), kMillimetres * side / touch, where);
  }
}

const Walk& Walked() {
  static const Walk walk = [] {
    Walk made;
    for (const QSize& size : {QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)}) {
      for (const char* language : {"en", "es"}) {
        EveryWindow all(size, language);
        all.Walk([&](const std::string& name) {
          const std::string where = name + " at " + std::to_string(size.width()) + ' ' + language;
          ++made.looks;
          for (QWidget* window : all.Windows()) {
            LookAtTexts(made, *window, where, language == std::string_view("en"));
            LookAtTargets(made, *window, where);
          }
        });
      }
    }
    return made;
  }();
  return walk;
}

/// Texts that may be paler, each with the reason.
constexpr Exception kPale[] = {
    {"ZCXPLRList 1107: #c0c0c0 on #808080", 2.17,
     "The colours of the selected row without the focus belong to the list's fixed look. The row's name is in the name "
     "field too, black on grey"},
    {"ZWCStatic 1101: #ffffff on #978d83", 3.2,
     "The colours of the caption belong to the explorer's fixed look. Its letters are big"},
    {"ZWCStatic 3013: #786e64 on #3a342d", 2.4, "The tool names this colour for labels of what its tool hasn't got"},
    {"ZWCStatic 3015: #786e64 on #3a342d", 2.4, "The tool names this colour for labels of what its tool hasn't got"},
    {"ZWCStatic 3026: #786e64 on #3a342d", 2.4, "The tool names this colour for labels of what its tool hasn't got"},
    {"ZWCStatic 3036: #786e64 on #3a342d", 2.4, "The tool names this colour for labels of what its tool hasn't got"},
    {"ZWCStatic 3019: #978d83 on #786e64", 1.5, "The tool names the colours of the label without DMC and of the band"},
    {"ZWCStatic 3022: #978d83 on #786e64", 1.5, "The tool names the colours of the label without DMC and of the band"},
    {"ZWCStatic 3025: #978d83 on #786e64", 1.5, "The tool names the colours of the label without DMC and of the band"},
    {"ZWCStatic 3019: #d3c9bf on #786e64", 3, "The tool names the colours of the label with DMC and of the band"},
    {"ZWCStatic 3022: #d3c9bf on #786e64", 3, "The tool names the colours of the label with DMC and of the band"},
    {"ZWCStatic 3025: #d3c9bf on #786e64", 3, "The tool names the colours of the label with DMC and of the band"},
};

/// Letters that may be smaller, each with the reason: none. The least height is in pixels.
constexpr std::array<Exception, 0> kLow{};

/// Targets that may be smaller, each with the reason. The least side is in millimetres.
constexpr Exception kSmall[] = {
    {"field of MdiEdit *", 7.5, "The command line has a fixed height of 30 pixels"},
    {"field of ZCEdit 1105", 6.5, "The explorer's form has fixed places; the name field is 26 pixels high"},
    {"path of XplrPathHeading 1103", 7.5, "The explorer's form has fixed places; the tree leads to the same folders"},
    {"row of ZCXPLRList 1107", 4.5, "The list's row is as high as its font and 5 pixels, which is fixed"},
    {"heading of ZCXPLRList 1107", 2, "The columns take what their texts need. The soft keys sort too"},
    {"button of CalcKeyWidget *", 6.5, "The calculator is a dialog with fixed places in dialog units"},
    {"field of CalcLine 1008", 6.5, "The calculator is a dialog with fixed places in dialog units"},
    {"box of ZmcBox *", 4.5, "The machining calculator's page has fixed places, which follow the panel's size"},
    {"field of ZCDatoWrap *", 4.5, "The machining calculator's page has fixed places, which follow the panel's size"},
    {"field of ZWCEdit *", 4.5, "The machining calculator's page has fixed places, which follow the panel's size"},
    {"check of CMultistatic *", 4.2, "The machining calculator's page has fixed places, which follow the panel's size"},
    {"cell of ZCGridXWrap 3028", 4.5,
     "The machining calculator's page has fixed places, which follow the panel's size"},
    {"heading of GridHeader", 4.5, "A heading of the page with fixed places; those of the tables are for a finger"},
    {"field of ZCGridXWrap 3055", 7,
     "The line in a cell, which has been touched to open it; the frame around is its own"},
};

/// An asterisk at the end of an exception's name stands for any control of that class.
bool IsOf(const std::string& name, const Exception& exception) {
  const std::string_view known = exception.name;
  return known.ends_with('*') ? name.starts_with(known.substr(0, known.size() - 1)) : name == known;
}

void ExpectOnly(const Findings& found, std::span<const Exception> exceptions) {
  for (const auto& [name, worst] : found) {
    const auto known = std::find_if(exceptions.begin(), exceptions.end(),
                                    [&name = name](const Exception& each) { return IsOf(name, each); });
    EXPECT_NE(known, exceptions.end()) << name << ": " << worst.value << " in " << worst.where;
    if (known == exceptions.end()) continue;
    EXPECT_GE(worst.value, known->least) << name << " in " << worst.where;
  }
}

void ExpectAllNeeded(const Findings& found, std::span<const Exception> exceptions) {
  for (const Exception& each : exceptions) {
    EXPECT_TRUE(std::any_of(found.begin(), found.end(), [&](const auto& one) { return IsOf(one.first, each); }))
        << each.name << " isn't needed any more";
    EXPECT_GT(std::string(each.reason).size(), 10u) << each.name;
  }
}

TEST(EveryWindowTest, EveryTextCanBeRead) { ExpectOnly(Walked().pale, kPale); }

TEST(EveryWindowTest, NoExceptionForATextIsLeftOver) { ExpectAllNeeded(Walked().pale, kPale); }

TEST(EveryWindowTest, AllLettersAreBigEnough) { ExpectOnly(Walked().low, kLow); }

TEST(EveryWindowTest, NoExceptionForLettersIsLeftOver) { ExpectAllNeeded(Walked().low, kLow); }

TEST(EveryWindowTest, EverythingThatIsPressedIsBigEnough) { ExpectOnly(Walked().small, kSmall); }

TEST(EveryWindowTest, NoExceptionForASizeIsLeftOver) { ExpectAllNeeded(Walked().small, kSmall); }

// What would otherwise only be seen on the day when somebody breaks a colour or a size.
TEST(EveryWindowTest, ABrokenColourAndABrokenSizeAreSeen) {
  EveryWindow all(QSize(800, 600), "en");
  PanelKey& start = *all.Panel().Keys().Key(Action::kCycleStart);
  start.resize(start.width(), MovingPixels(theme::TouchPixels(start)) - 1);
  QPalette pale;
  pale.setColor(QPalette::ButtonText, QColor(theme::kFaint).darker(120));
  QPushButton button("pale", &all.Panel());
  button.setPalette(pale);
  button.resize(theme::TouchPixels(button) - 1, 100);
  button.setFont(theme::Font(kLeastLetters - 1));
  button.show();
  Walk walk;
  LookAtTexts(walk, all.Panel(), "here");
  LookAtTargets(walk, all.Panel(), "here");
  ASSERT_EQ(walk.low.size(), 1u);
  EXPECT_EQ(walk.low["PanelWindow"].value, kLeastLetters - 1);
  ASSERT_EQ(walk.pale.size(), 1u);
  EXPECT_NE(walk.pale.begin()->second.where.find("'pale'"), std::string::npos) << walk.pale.begin()->first;
  EXPECT_EQ(walk.small.size(), 2u);
  EXPECT_TRUE(walk.small.contains("button of PanelKey"));
  EXPECT_TRUE(walk.small.contains("button of PanelWindow"));
}

TEST(EveryWindowTest, LettersThatAreTooSmallForAToolAreSeenThereAlone) {
  EveryWindow all(QSize(800, 600), "en");
  int looks = 0;
  all.Calculator([&] {
    ++looks;
    QWidget* tool = nullptr;
    for (QWidget* each : all.Panel().ToolAreaWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      if (each->isVisible() && IsOfTool(each)) tool = each;
    }
    ASSERT_NE(tool, nullptr);
    for (QWidget* parent : {tool, static_cast<QWidget*>(&all.Panel())}) {
      QPushButton button("small", parent);
      button.setFont(theme::Font(kLeastLetters));
      button.resize(100, 50);
      button.show();
      button.raise();
      Walk walk;
      LookAtTexts(walk, all.Panel(), "here");
      EXPECT_EQ(walk.low.size(), parent == tool ? 1u : 0u);
    }
  });
  EXPECT_GT(looks, 0);
}

TEST(EveryWindowTest, EachLookSawTheMachinesKeysAndMuchMore) {
  const Walk& walk = Walked();
  const auto rows = static_cast<int>(EveryWindowRows().size());
  EXPECT_GE(walk.looks, 6 * rows);
  // The nine keys of the machine are always there, and the eight of the reserved row.
  EXPECT_GE(walk.machineKeys, walk.looks * 17);
  EXPECT_GT(walk.targets, walk.looks * 5);
  EXPECT_GT(walk.texts, walk.looks * 20);
}

}  // namespace
}  // namespace panel
