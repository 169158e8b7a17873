// SPDX-License-Identifier: MIT
// The methods on windows and controls, asked as a script asks: what they do to a tool with an edit, a list, a combo box
// and a report, and that a request with anything wrong in it does nothing.
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeWidget>
#include <algorithm>
#include <array>

#include "panel/qt/remote_fixture.h"
#include "remote/methods.h"
#include "support/temp_folder.h"

namespace panel {
namespace {

class RemoteControls : public RemoteMethods {
 protected:
  struct Tool : QWidget {
    using QWidget::QWidget;
    void keyPressEvent(QKeyEvent* event) override { typed += event->text(); }
    QString typed;
  };
  RemoteControls() {
    tool->setGeometry(10, 20, 300, 200);
    tool->setFocusPolicy(Qt::StrongFocus);
    handle = PnlAttachWidget(tool, &RemoteControls::Hear, this);
    edit->setText("abcdef");
    list->addItems({"G0", "G1", "G2"});
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    combo->addItems({"one", "two"});
    report->setRootIsDecorated(false);
    report->setColumnCount(2);
    report->setSortingEnabled(true);
    report->addTopLevelItem(new QTreeWidgetItem({"a", "1"}));
    report->header()->setSortIndicator(0, Qt::AscendingOrder);
    face.panel.show();
    face.panel.activateWindow();
  }
  ~RemoteControls() override { delete tool; }
  static std::intptr_t Hear(void* context, PnlWindow, std::uint32_t message, std::intptr_t first,
                            std::intptr_t second) {
    static_cast<RemoteControls*>(context)->heard = {message, first, second};
    return 42;
  }
  template <typename W>
  W* Put(int id, const QRect& place) {
    auto* widget = new W(tool);
    widget->setProperty("pnlId", id);
    widget->setGeometry(place);
    return widget;
  }
  /// The same with the tool's window among the parameters.
  std::string OnTool(const QString& method, const QByteArray& params) {
    return Ask(method, "{\"window\":" + QByteArray::number(handle) + (params.isEmpty() ? "" : ",") + params + "}");
  }
  [[nodiscard]] QList<int> Selected() const {
    QList<int> rows;
    for (const QModelIndex& index : list->selectionModel()->selectedIndexes()) rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  Tool* tool = new Tool(&face.area);
  QLineEdit* edit = Put<QLineEdit>(1, {0, 0, 100, 20});
  QListWidget* list = Put<QListWidget>(2, {0, 30, 100, 80});
  QComboBox* combo = Put<QComboBox>(3, {120, 0, 100, 20});
  QTreeWidget* report = Put<QTreeWidget>(4, {120, 30, 180, 80});
  PnlWindow handle = 0;
  QList<qint64> heard;
};

TEST_F(RemoteControls, EveryParameterIsNamedWhenItIsWrongOrMissing) {
  struct Row {
    const char* method;
    const char* params;
    QStringList optional;
  };
  const Row rows[] = {{"ui.window", "{}", {}},
                      {"ui.control", R"({"id":1})", {}},
                      {"ui.key", R"({"key":"F12","mods":[]})", {"mods"}},
                      {"ui.type", R"({"text":""})", {}},
                      {"ui.command", R"({"id":1})", {}},
                      {"ui.text", R"({"id":1,"text":"abcdef"})", {}},
                      {"ui.mark", R"({"id":1,"start":0,"end":0})", {}},
                      {"ui.pick", R"({"id":2,"index":-1})", {}},
                      {"ui.pick", R"({"id":2,"indices":[]})", {"indices"}},
                      {"ui.focus", R"({"id":2,"index":0})", {"index"}},
                      {"ui.click", R"({"id":4,"index":-1,"column":0})", {"index"}},
                      {"ui.doubleClick", R"({"id":2,"index":0})", {"index"}}};
  for (const Row& row : rows) {
    QJsonObject whole = QJsonDocument::fromJson(row.params).object();
    whole["window"] = handle;
    const auto ask = [&](const QJsonObject& params) {
      return Ask(row.method, QJsonDocument(params).toJson(QJsonDocument::Compact));
    };
    EXPECT_EQ(ask(whole).find("-32602"), std::string::npos) << row.method << ask(whole);
    for (const QString& name : whole.keys()) {
      const std::string at = std::string(row.method) + " " + name.toStdString();
      QJsonObject other = whole;
      other[name] = QJsonArray{QJsonArray()};
      heard.clear();
      EXPECT_TRUE(ask(other).starts_with("-32602 " + name.toStdString() + ": ")) << at << ": " << ask(other);
      EXPECT_TRUE(heard.isEmpty()) << at;
      other.remove(name);
      if (!row.optional.contains(name)) {
        EXPECT_EQ(ask(other), "-32602 " + name.toStdString() + ": missing") << at;
      }
    }
    whole["window"] = 99999;
    EXPECT_EQ(ask(whole), "-32602 window: there is no such window") << row.method;
  }
}

TEST_F(RemoteControls, AControlThatIsNotThereOrNotSeenIsRefusedByEveryMethod) {
  for (const char* method : {"ui.control", "ui.focus", "ui.click", "ui.doubleClick"}) {
    EXPECT_EQ(OnTool(method, R"("id":9)"), "-32602 id: the window has no such control") << method;
  }
  edit->hide();
  EXPECT_NE(OnTool("ui.control", R"("id":1)").find(R"("visible":false)"), std::string::npos);
  for (const char* method : {"ui.focus", "ui.click", "ui.doubleClick"}) {
    EXPECT_EQ(OnTool(method, R"("id":1)"), "-32602 id: the control can't be seen") << method;
  }
}

TEST_F(RemoteControls, AControlOnAPageThatScrollsIsBroughtIntoSightFirst) {
  auto* page = new QScrollArea(tool);
  page->setGeometry(0, 120, 250, 60);
  auto* sheet = new QWidget;
  sheet->resize(150, 500);
  page->setWidget(sheet);
  int presses = 0;
  std::vector<QPushButton*> keys;
  for (const int id : {11, 12}) {
    keys.push_back(new QPushButton(sheet));
    keys.back()->setProperty("pnlId", id);
    keys.back()->setGeometry(0, id == 11 ? 0 : 400, 100, 30);
    QObject::connect(keys.back(), &QPushButton::clicked, tool, [&presses] { ++presses; });
  }
  page->show();
  const auto isSeen = [this](const char* id) {
    return OnTool("ui.control", QByteArray(R"("id":)") + id).find(R"("visible":true)") != std::string::npos;
  };
  EXPECT_TRUE(isSeen("11"));
  EXPECT_FALSE(isSeen("12")) << "an operator doesn't see it yet";
  EXPECT_EQ(OnTool("ui.click", R"("id":12)"), "{}");
  EXPECT_EQ(presses, 1);
  EXPECT_TRUE(isSeen("12"));
  EXPECT_FALSE(isSeen("11"));
  EXPECT_EQ(OnTool("ui.focus", R"("id":11)"), "{}");
  EXPECT_TRUE(keys[0]->hasFocus());
  EXPECT_TRUE(isSeen("11"));
}

TEST_F(RemoteControls, AWindowIsToldByItsNumber) {
  tool->setProperty("pnlTitle", "MDI");
  const QJsonObject told = Reply("ui.window", "{\"window\":" + QByteArray::number(handle) + "}")["result"].toObject();
  EXPECT_EQ(told["title"], "MDI");
  EXPECT_EQ(told["rect"], QJsonValue(QJsonArray({10, 20, 300, 200})));
  EXPECT_EQ(told["parent"], QJsonValue(QJsonArray({400, 300})));
  EXPECT_EQ(told["controls"], QJsonValue(QJsonArray({1, 2, 3, 4})));
}

TEST_F(RemoteControls, MarkingSelectsFromTheFirstPlaceToTheLast) {
  EXPECT_EQ(OnTool("ui.mark", R"("id":1,"start":1,"end":3)"), "{}");
  EXPECT_EQ(edit->selectedText(), "bc");
  EXPECT_EQ(OnTool("ui.mark", R"("id":1,"start":-1,"end":3)"),
            "-32602 start: an integer from 0 to 2147483647 is needed");
  EXPECT_EQ(OnTool("ui.mark", R"("id":1,"start":0,"end":-1)"), "-32602 end: an integer from 0 to 2147483647 is needed");
  EXPECT_EQ(edit->selectedText(), "bc");
}

TEST_F(RemoteControls, MarkingOnePlacePutsTheCaretThereAndSelectsNothing) {
  for (const char* place : {R"("start":2,"end":2)", R"("start":900,"end":999)"}) {
    edit->selectAll();
    EXPECT_EQ(OnTool("ui.mark", R"("id":1,)" + QByteArray(place)), "{}");
    EXPECT_FALSE(edit->hasSelectedText()) << place;
  }
  EXPECT_EQ(edit->cursorPosition(), edit->text().size());
}

TEST_F(RemoteControls, ItemsArePickedByIndexAndByIndices) {
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"indices":[2,0])"), "{}");
  EXPECT_EQ(Selected(), QList<int>({0, 2}));
  EXPECT_EQ(list->currentRow(), 2);
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"indices":[0,3])"), "-32602 indices: there are 3 items");
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"indices":[-1])"), "-32602 indices: integers from 0 to 2147483647 are needed");
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"index":1,"indices":[1])"), "-32602 indices: stands in the place of index");
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"index":-2)"), "-32602 index: an integer from -1 to 2147483647 is needed");
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"index":3)"), "-32602 index: there are 3 items");
  EXPECT_EQ(Selected(), QList<int>({0, 2}));
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"index":0)"), "{}");
  EXPECT_EQ(Selected(), QList<int>{0});
  EXPECT_EQ(OnTool("ui.pick", R"("id":2,"index":-1)"), "{}");
  EXPECT_EQ(Selected(), QList<int>());
  EXPECT_EQ(OnTool("ui.pick", R"("id":3,"index":1)"), "{}");
  EXPECT_EQ(combo->currentText(), "two");
}

TEST_F(RemoteControls, TheFocusGoesToTheControlAndToItsItem) {
  struct Reasons : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::FocusIn) last = static_cast<QFocusEvent*>(event)->reason();
      return false;
    }
    Qt::FocusReason last = Qt::NoFocusReason;
  } reasons;
  list->installEventFilter(&reasons);
  edit->setFocus();
  EXPECT_EQ(OnTool("ui.focus", R"("id":2,"index":1)"), "{}");
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(reasons.last, Qt::MouseFocusReason) << "as by a touch";
  EXPECT_EQ(Selected(), QList<int>{1});
  EXPECT_EQ(OnTool("ui.focus", R"("id":2,"index":0)"), "{}");
  EXPECT_EQ(Selected(), QList<int>{0});
  EXPECT_EQ(OnTool("ui.focus", R"("id":1)"), "{}");
  EXPECT_TRUE(edit->hasFocus());
  EXPECT_EQ(OnTool("ui.focus", R"("id":4,"index":-1,"column":1)"), "{}");
  EXPECT_TRUE(report->hasFocus());
  EXPECT_TRUE(report->selectionModel()->selectedIndexes().isEmpty()) << "a header is no item";
  list->removeEventFilter(&reasons);
}

TEST_F(RemoteControls, AClickIsOneAndADoubleClickIsTwo) {
  QStringList clicks;
  QObject::connect(list, &QListWidget::itemClicked, [&clicks](auto* item) { clicks << "1" + item->text(); });
  QObject::connect(list, &QListWidget::itemDoubleClicked, [&clicks](auto* item) { clicks << "2" + item->text(); });
  EXPECT_EQ(OnTool("ui.click", R"("id":2,"index":1)"), "{}");
  EXPECT_EQ(clicks, QStringList{"1G1"});
  clicks.clear();
  EXPECT_EQ(OnTool("ui.doubleClick", R"("id":2,"index":2)"), "{}");
  EXPECT_TRUE(clicks.contains("2G2"));
  EXPECT_EQ(OnTool("ui.click", R"("id":2,"index":3)"), "-32602 index: there is no such place in the control");
  EXPECT_EQ(OnTool("ui.click", R"("id":2,"index":-2)"), "-32602 index: an integer from -1 to 2147483647 is needed");
}

TEST_F(RemoteControls, AHeaderNeedsItsColumnAndAnItemDoesNot) {
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":-1,"column":1)"), "{}");
  EXPECT_EQ(report->header()->sortIndicatorSection(), 1);
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":-1,"column":0)"), "{}");
  EXPECT_EQ(report->header()->sortIndicatorSection(), 0);
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":-1)"), "-32602 column: missing");
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":-1,"column":-1)"),
            "-32602 column: an integer from 0 to 2147483647 is needed");
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":-1,"column":2)"),
            "-32602 column: there is no such place in the control");
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":0)"), "{}");
  EXPECT_EQ(report->currentIndex(), report->model()->index(0, 0));
  EXPECT_EQ(OnTool("ui.click", R"("id":4,"index":0,"column":1)"), "{}");
  EXPECT_EQ(report->currentColumn(), 1);
}

TEST_F(RemoteControls, AKeyTakesOneModifierAsATextAndSeveralAsAList) {
  EXPECT_EQ(OnTool("ui.focus", R"("id":1)"), "{}");
  EXPECT_EQ(OnTool("ui.key", R"("key":"a","mods":"Ctrl")"), "{}");
  EXPECT_EQ(edit->selectedText(), "abcdef");
  EXPECT_EQ(OnTool("ui.key", R"("key":"Home")"), "{}");
  EXPECT_EQ(OnTool("ui.key", R"("key":"Right","mods":["Ctrl","Shift"])"), "{}");
  EXPECT_EQ(edit->selectedText(), "abcdef") << "to the end of the word";
  EXPECT_EQ(OnTool("ui.key", R"("key":"a","mods":"Meta")"),
            R"(-32602 mods: "Ctrl", "Shift", "Alt" and "Keypad" are there)");
}

TEST_F(RemoteControls, ALongTextIsTypedAndALongerOneRefused) {
  tool->setFocus();
  EXPECT_EQ(OnTool("ui.type", R"("text":")" + QByteArray(65537, 'x') + R"(")"),
            "-32602 text: at most 65536 characters are typed");
  EXPECT_EQ(tool->typed, "");
  // A key that nobody waits for long: the first ends the window, and the rest goes nowhere.
  struct Ender : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() != QEvent::KeyPress) return false;
      watched->deleteLater();
      ++keys;
      return true;
    }
    int keys = 0;
  } ender;
  tool->installEventFilter(&ender);
  EXPECT_EQ(OnTool("ui.type", R"("text":")" + QByteArray(65536, 'x') + R"(")"), "{}");
  EXPECT_EQ(ender.keys, 1);
  EXPECT_EQ(PnlIsAlive(handle), 0);
  tool = nullptr;
}

TEST_F(RemoteControls, ACommandAndAMessageReachTheToolWithTheirNumbers) {
  EXPECT_EQ(OnTool("ui.command", R"("id":32773)"), "{}");
  EXPECT_EQ(heard, QList<qint64>({0x111, 32773, 0}));
  EXPECT_EQ(OnTool("tool.send", R"("message":7,"first":3,"second":4)"), R"({"result":42})");
  EXPECT_EQ(heard, QList<qint64>({7, 3, 4}));
  EXPECT_EQ(OnTool("tool.send", R"("message":4294967295)"), R"({"result":42})");
  EXPECT_EQ(heard, QList<qint64>({4294967295, 0, 0}));
  EXPECT_EQ(OnTool("tool.send", R"("message":4294967296)"),
            "-32602 message: an integer from 0 to 4294967295 is needed");
  EXPECT_EQ(OnTool("tool.send", R"("message":"MDI_ENDLIST","first":1)"), R"({"result":42})");
  EXPECT_EQ(heard, QList<qint64>({PnlRegisterMessage("MDI_ENDLIST"), 1, 0}));
  EXPECT_EQ(OnTool("tool.post", R"("message":8,"first":5,"second":6)"), "{}");
  EXPECT_EQ(heard, QList<qint64>({8, 5, 6}));
}

TEST_F(RemoteControls, TheToolAreaTakesSizesWithinItsLimits) {
  EXPECT_EQ(Ask("ui.resize", R"({"width":16,"height":8192})"), "{}");
  EXPECT_EQ(face.area.size(), QSize(16, 8192));
  EXPECT_EQ(Ask("ui.resize", R"({"width":8192,"height":16})"), "{}");
  EXPECT_EQ(face.area.size(), QSize(8192, 16));
  for (const char* bad : {R"({"width":15,"height":100})", R"({"width":8193,"height":100})"}) {
    EXPECT_EQ(Ask("ui.resize", bad), "-32602 width: an integer from 16 to 8192 is needed");
  }
  for (const char* bad : {R"({"width":100,"height":15})", R"({"width":100,"height":8193})"}) {
    EXPECT_EQ(Ask("ui.resize", bad), "-32602 height: an integer from 16 to 8192 is needed");
  }
  EXPECT_EQ(face.area.size(), QSize(8192, 16));
}

TEST_F(RemoteControls, ACaptureOfAWindowIsThatWindowAlone) {
  const pnl::test::TempFolder temp;
  const QByteArray file = QByteArray::fromStdString((temp.Path() / "a.png").string());
  EXPECT_EQ(OnTool("ui.capture", R"("file":")" + file + R"(")"), "{}");
  EXPECT_EQ(QImage(file).size(), QSize(300, 200));
  EXPECT_EQ(Ask("ui.capture", R"({"window":99999,"file":")" + file + R"("})"),
            "-32602 window: there is no such window");
}

/// The arguments that a message had when it arrived, as a text.
class RemoteArguments : public RemoteControls, public ::testing::WithParamInterface<std::array<const char*, 2>> {
 protected:
  RemoteArguments() { PnlAttachWidget(tool, &RemoteArguments::Read, this); }
  static std::string Text(const char16_t* text) { return QString::fromUtf16(text).toStdString(); }
  static std::intptr_t Read(void* context, PnlWindow, std::uint32_t message, std::intptr_t first,
                            std::intptr_t second) {
    std::string& told = static_cast<RemoteArguments*>(context)->told;
    if (message == PNL_MSG_CYCLE_START) {
      const auto* start = reinterpret_cast<const PnlCycleStart*>(second);
      told = std::to_string(start->reserved) + " " + std::to_string(start->channel);
    } else if (message == PnlRegisterMessage("ZM_SHOW_FILE")) {
      const auto* file = reinterpret_cast<const ShowFileRecord*>(second);
      told = std::to_string(file->backColor) + " " + std::to_string(file->textColor) + " " + Text(file->file) + " " +
             Text(file->title);
    } else if (message == PnlRegisterMessage("HELPHTML_GOTOMANUAL")) {
      told = Text(reinterpret_cast<const char16_t*>(first));
    } else if (message == 1000) {
      const auto* request = reinterpret_cast<const XPLRDATA_ST*>(first);
      told = std::to_string(request->Owner) + " " + Text(request->Title) + " " + Text(request->Path) + " " +
             Text(request->File) + " " + Text(request->Filter) + " " + Text(request->Extension) + " " +
             std::to_string(request->Flags);
    } else {
      told = std::to_string(first) + " " + std::to_string(second);
    }
    return 0;
  }
  std::string told;
};

TEST_P(RemoteArguments, ArriveWhole) {
  EXPECT_EQ(OnTool("tool.send", GetParam()[0]), R"({"result":0})");
  EXPECT_EQ(told, GetParam()[1]);
  told.clear();
  EXPECT_EQ(OnTool("tool.post", GetParam()[0]), "{}");
  EXPECT_EQ(told, GetParam()[1]);
}

INSTANTIATE_TEST_SUITE_P(
    All, RemoteArguments,
    ::testing::Values(
        std::array{R"("message":5)", "0 0"},
        std::array{R"("message":5,"first":-9223372036854775808,"second":9223372036854775807)",
                   "-9223372036854775808 9223372036854775807"},
        std::array{R"("message":2048,"first":1,"second":{"start":{"channel":-128}})", "0 -128"},
        std::array{R"("message":2048,"first":2,"second":{"start":{"channel":127}})", "0 127"},
        std::array{R"("message":"HELPHTML_GOTOMANUAL","first":{"text":"manual"})", "manual"},
        std::array{R"("message":"ZM_SHOW_FILE","second":{"file":{}})", "0 0  "},
        std::array{R"("message":"ZM_SHOW_FILE","second":{"file":{"back":4294967295,"text":7,"file":"f","title":"t"}})",
                   "4294967295 7 f t"},
        std::array{R"("message":1000,"first":{"xplr":{}})", "0      0"},
        std::array{R"("message":1000,"first":{"xplr":{"Owner":1006,"Title":"t","Path":"p","File":"f",)"
                   R"("Filter":"*.nc","Extension":"nc","Flags":4294967295}})",
                   "1006 t p f *.nc nc 4294967295"}));

TEST_F(RemoteArguments, ATextIsFollowedByTheRoomOfAWholeRecord) {
  struct Room {
    static std::intptr_t Read(void* context, PnlWindow, std::uint32_t, std::intptr_t first, std::intptr_t) {
      const auto* text = reinterpret_cast<const char16_t*>(first);
      *static_cast<bool*>(context) = std::all_of(text + 3, text + 4096, [](char16_t unit) { return unit == 0; });
      return 0;
    }
  };
  bool blank = false;
  PnlAttachWidget(tool, &Room::Read, &blank);
  EXPECT_EQ(OnTool("tool.send", R"("message":5,"first":{"text":"abc"})"), R"({"result":0})");
  EXPECT_TRUE(blank);
}

TEST_F(RemoteArguments, AWrongObjectIsNamedByItsPlace) {
  struct Row {
    const char* params;
    const char* error;
  };
  const char* const kOneOf = "an integer or an object with \"text\", \"start\", \"file\" or \"xplr\" is needed";
  const Row rows[] = {
      {R"("message":5,"first":{"text":1})", "first.text: a text is needed"},
      {R"("message":5,"first":{"start":{"channel":128}})",
       "first.start.channel: an integer from -128 to 127 is needed"},
      {R"("message":5,"first":{"start":{"channel":-129}})",
       "first.start.channel: an integer from -128 to 127 is needed"},
      {R"("message":5,"first":{"start":7})", "first.start: an object is needed"},
      {R"("message":5,"first":{"file":{"back":4294967296}})",
       "first.file.back: an integer from 0 to 4294967295 is needed"},
      {R"("message":5,"first":{"file":{"back":-1}})", "first.file.back: an integer from 0 to 4294967295 is needed"},
      {R"("message":5,"first":{"file":{"text":4294967296}})",
       "first.file.text: an integer from 0 to 4294967295 is needed"},
      {R"("message":5,"first":{"file":{"file":3}})", "first.file.file: a text is needed"},
      {R"("message":5,"first":{"file":{"title":3}})", "first.file.title: a text is needed"},
      {R"("message":5,"first":{"xplr":{"Owner":"x"}})",
       "first.xplr.Owner: an integer from -2147483648 to 2147483647 is needed"},
      {R"("message":5,"first":{"xplr":{"Flags":4294967296}})",
       "first.xplr.Flags: an integer from 0 to 4294967295 is needed"},
      {R"("message":5,"first":{"text":"a","start":{"channel":1}})", kOneOf},
      {R"("message":5,"first":{})", kOneOf},
      {R"("message":"ZM_SHOW_FILE","second":{"text":"x"})", R"(second: {"file":…} is needed)"},
      {R"("message":"HELPHTML_GOTOMANUAL","first":{"file":{}})", R"(first: {"text":…} is needed)"},
      {R"("message":"HELPHTML_GOTOMANUAL","first":5)", R"(first: {"text":…} is needed, a number is no address)"},
      {R"("message":2049,"first":42,"second":{"text":"x"})", "second: 0 is needed"}};
  for (const Row& row : rows) {
    EXPECT_TRUE(OnTool("tool.send", row.params).ends_with(row.error)) << row.params << OnTool("tool.send", row.params);
  }
  EXPECT_EQ(told, "") << "nothing was sent";
}

TEST_F(RemoteMethods, AFieldOfARequestTakesAllItsCharactersAndNotOneMore) {
  const std::pair<const char*, int> fields[] = {
      {"Title", 99}, {"Path", 259}, {"File", 255}, {"Filter", 255}, {"Extension", 9}};
  for (const auto& [name, most] : fields) {
    const QByteArray whole(most, 'x');
    const QByteArray record = QByteArray(R"({"record":{")") + name + "\":\"";
    EXPECT_EQ(Ask("xplr.publish", record + whole + "\"}}"), "{}") << name;
    EXPECT_EQ(Reply("xplr.record", "{}")["result"].toObject()[name].toString().toUtf8(), whole) << name;
    EXPECT_EQ(Ask("xplr.publish", record + whole + "x\"}}"),
              "-32602 record." + std::string(name) + ": at most " + std::to_string(most) + " characters fit");
    EXPECT_EQ(Reply("xplr.record", "{}")["result"].toObject()[name].toString().toUtf8(), whole) << "it stays";
  }
  EXPECT_EQ(Ask("xplr.publish", R"({"record":null})"), "{}");
}

TEST_F(RemoteMethods, ARequestIsGoneWithItsWithdrawal) {
  EXPECT_EQ(Ask("xplr.publish", R"({"record":{"Owner":1006}})"), "{}");
  const int number = Reply("cnc.get", R"({"name":"E.XPLRDATA"})")["result"].toObject()["value"].toInt();
  ASSERT_NE(PnlResolveRecord(number), nullptr);
  EXPECT_EQ(Ask("xplr.publish", R"({"record":null})"), "{}");
  EXPECT_EQ(PnlResolveRecord(number), nullptr);
  EXPECT_EQ(Ask("cnc.define", R"({"name":"E.XPLRDATA","type":"text","value":"x"})"), "{}");
  EXPECT_EQ(Ask("xplr.record", "{}"), "null") << "a text is no record";
  EXPECT_EQ(Ask("cnc.define", R"({"name":"E.XPLRDATA","type":"int","value":0})"), "{}");
}

TEST_F(RemoteMethods, SlotsAreTakenByNumberAndByName) {
  EXPECT_EQ(Ask("host.returns", R"({"slot":"HostMayOpenTool","value":5})"), "{}");
  EXPECT_EQ(session.ReturnOf(0), 5);
  EXPECT_EQ(Ask("host.returns", R"({"slot":"HostShowError","value":6})"), "{}");
  EXPECT_EQ(session.ReturnOf(13), 6);
  for (const char* slot : {"1", "12", "14", "-1", "19", "\"HostToolOpening\"", "\"\"", "null"}) {
    EXPECT_EQ(Ask("host.returns", QByteArray(R"({"slot":)") + slot + R"(,"value":1})"),
              "-32602 slot: 0 or 13 is needed")
        << slot;
  }
  EXPECT_EQ(Ask("host.returns", R"({"value":1})"), "-32602 slot: 0 or 13 is needed");
  for (const char* offered : {"[18]", "[0]", R"(["HostMayOpenTool","HostOpenMachiningCalculator"])"}) {
    EXPECT_EQ(Ask("host.api", QByteArray(R"({"offered":)") + offered + "}"), "{}") << offered;
  }
  for (const char* offered : {"[-1]", "[19]", "[1.5]", R"([0,"Host"])"}) {
    EXPECT_EQ(Ask("host.api", QByteArray(R"({"offered":)") + offered + "}"),
              "-32602 offered: slots are numbers from 0 to 18 or names")
        << offered;
  }
}

TEST_F(RemoteMethods, AnUnknownMethodIsNamedByItsFirstHundredLetters) {
  EXPECT_EQ(Ask(QString(101, 'm'), "{}"), "-32601 method: there is no \"" + std::string(100, 'm') + "\"");
  EXPECT_EQ(Ask(QString(100, 'n'), "{}"), "-32601 method: there is no \"" + std::string(100, 'n') + "\"");
}

TEST_F(RemoteMethods, AMenuIsToldItemByItemAsTheToolHasIt) {
  ASSERT_NE(session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea()), 0);
  const std::uint32_t menu = session.MainMenu();
  const QJsonArray told = Reply("ui.menu", R"({"bar":"main"})")["result"].toArray();
  ASSERT_GT(told.size(), 0);
  ASSERT_EQ(told.size(), PnlMenuItemCount(menu));
  QJsonArray visible;
  for (int i = 0; i < told.size(); ++i) {
    PnlMenuItem item{};
    ASSERT_NE(PnlMenuItemAt(menu, i, &item), 0);
    const QJsonObject row = told[i].toObject();
    EXPECT_EQ(row["id"].toInt(), item.id);
    EXPECT_EQ(row["text"].toString(), QString::fromUtf16(item.text));
    EXPECT_EQ(row["enabled"].toBool(), item.enabled != 0);
    EXPECT_EQ(row["visible"].toBool(), item.visible != 0);
    EXPECT_EQ(row["bitmap"].toInt(), item.bitmap);
    EXPECT_EQ(row["items"].toArray().size(), item.subMenu == 0 ? 0 : PnlMenuItemCount(item.subMenu));
    EXPECT_EQ(row.contains("items"), item.subMenu != 0);
    for (int sub = 0; sub < row["items"].toArray().size(); ++sub) {
      PnlMenuItem below{};
      ASSERT_NE(PnlMenuItemAt(item.subMenu, sub, &below), 0);
      EXPECT_EQ(row["items"].toArray()[sub].toObject().contains("items"), below.subMenu != 0) << below.id;
    }
    if (item.visible != 0) visible.append(item.id);
  }
  EXPECT_EQ(VisibleItemIds(menu), QJsonValue(visible));
}

TEST_F(RemoteMethods, AMenuThatHasGoneIsToldAsNone) {
  ASSERT_NE(session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea()), 0);
  // The window goes without a word to the host, which still has the menu's number.
  PnlDestroyWindow(session.ToolWindow(PNL_TOOL_CALCULATOR));
  ASSERT_NE(session.MainMenu(), 0u);
  ASSERT_LT(PnlMenuItemCount(session.MainMenu()), 0);
  EXPECT_EQ(Ask("ui.menu", R"({"bar":"main"})"), "null");
}

}  // namespace
}  // namespace panel
