// SPDX-License-Identifier: MIT
// The user's rows of the machining calculator in the panel: what asks about rows that aren't saved, how they leave and
// come in as a table, and the dialogs that show them.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QAbstractScrollArea>
#include <QPointer>
#include <QScrollBar>
#include <csignal>

#include "panel/machine/qt/machining_fixture.h"
#include "ui/program_desk.h"
#include "ui/question.h"

namespace panel {
namespace {

using namespace machining;

constexpr char kHeading[] = "\xEF\xBB\xBFkind;description;alemaniaw;une;aisi;kc;tooltype;hidden;date\r\n";
constexpr int kFirstButton = 3058;

class MachiningRows : public MachiningFixture {
 protected:
  MachiningRows() {
    std::remove(Host("MINE.CSV").c_str());
    Answer({});
  }
  /// Notes the boxes that come, and gives these answers in turn; then "ok" and "yes".
  void Answer(std::vector<std::string> answers) {
    asked_ = 0;
    rig_.AnswerBoxes([this, answers](std::string_view style) -> std::string {
      const int at = asked_++;
      if (at < static_cast<int>(answers.size())) return answers[static_cast<std::size_t>(at)];
      return style == "question" ? "yes" : "ok";
    });
  }
  [[nodiscard]] std::string Host(const char* name) const {
    return rig_.Files().HostPath(rig_.Files().Path(118) + u"\\" + QString(name).toStdU16String()).value_or("");
  }
  [[nodiscard]] static std::string BytesOf(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
  }
  [[nodiscard]] std::string UserFile() const { return BytesOf(Host("CondicionesCorteP.xml")); }
  void AddMaterial(const QString& name) {
    Send(kMaterialsTab);
    Send(kAdd);
    TypeOnKeyboard(name);
    Press(Qt::Key_Return);
  }
  void OpenWithRow(const QString& name) {
    Open();
    AddMaterial(name);
    ASSERT_EQ(PnlSendMessage(session_.ToolWindow(kTool), PNL_MSG_TOOL_COMMAND, PNL_COMMAND_ASK_UNSAVED, 0),
              PNL_UNSAVED_WORK);
  }
  void Export() {
    TouchMiddle(window_->MainBar().Key(3));
    ASSERT_TRUE(ExplorerShown());
    AcceptName("MINE.CSV");
    ASSERT_FALSE(ExplorerShown());
  }
  void Import(const std::string& bytes) {
    QFile file(QString::fromStdString(Host("MINE.CSV")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes.c_str(), static_cast<qint64>(bytes.size())) >= 0);
    file.close();
    TouchMiddle(window_->MainBar().Key(4));
    ASSERT_TRUE(ExplorerShown());
    AcceptName("MINE.CSV");
    ASSERT_FALSE(ExplorerShown());
  }
  /// Does something with the tool's own dialog as soon as it is open, and then answers no.
  void WhenAsked(const std::function<void(QDialog&)>& look) {
    rig_.AnswerBoxes({});
    auto* watch = new QTimer(window_.get());
    QObject::connect(watch, &QTimer::timeout, watch, [watch, look] {
      const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      watch->deleteLater();
      watch->stop();
      look(*dialog);
      if (dialog) dialog->reject();
    });
    watch->start(0);
  }

  int asked_ = 0;
};

/// What is sent when boxes come, with their texts.
class BoxTexts : public pnl::rig::EventSink {
 public:
  void Cnc(std::string_view, const std::vector<pnl::rig::Value>&, const pnl::rig::Value&) override {}
  void Write(std::u16string_view, const pnl::rig::Value&, bool) override {}
  void MessageToHost(PnlWindow, std::uint32_t, std::intptr_t, std::intptr_t) override {}
  void Box(std::u16string_view, std::u16string_view text, std::string_view, std::string_view) override {
    texts << QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
  }
  QStringList texts;
};

TEST_F(MachiningRows, ClosingThePanelAsksAboutRowsAndStoresThemOnYes) {
  OpenWithRow("My steel");
  window_->SetAsksBeforeClosing(true);
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(asked_, 1);
  EXPECT_NE(UserFile().find("My steel"), std::string::npos);
}

TEST_F(MachiningRows, ClosingThePanelForgetsThemOnNo) {
  OpenWithRow("My steel");
  window_->SetAsksBeforeClosing(true);
  Answer({"no"});
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(asked_, 1);
  EXPECT_EQ(UserFile().find("My steel"), std::string::npos);
}

TEST_F(MachiningRows, ARowThatCannotBeSavedKeepsThePanelOpen) {
  OpenWithRow("Plastic POM-C");
  Do(Action::kOpenCalculator);
  window_->SetAsksBeforeClosing(true);
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(asked_, 2) << "the question, and what is wrong";
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(Has(Grid(kMaterials))) << "the row can be mended at once";
  Answer({"no"});
  EXPECT_TRUE(window_->close());
}

TEST_F(MachiningRows, TheProgramIsAskedAboutFirstAndAgainAfterARefusal) {
  OpenWithRow("Plastic POM-C");
  window_->Editor().Insert("G0");
  window_->SetAsksBeforeClosing(true);
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(asked_, 0);
  ASSERT_TRUE(window_->Asking().IsOpen());
  window_->Asking().Answer(0);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(asked_, 2);
  EXPECT_FALSE(window_->close());
  EXPECT_TRUE(window_->Asking().IsOpen());
  window_->Asking().Answer(1);
  EXPECT_TRUE(IsShown());
}

TEST_F(MachiningRows, APanelThatEndsByItselfAsksNothing) {
  OpenWithRow("My steel");
  session_.CloseAll();
  EXPECT_EQ(asked_, 0);
  EXPECT_EQ(UserFile().find("My steel"), std::string::npos);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(MachiningRows, WithoutUnsavedRowsNothingIsAsked) {
  Open();
  Send(kMaterialsTab);
  window_->SetAsksBeforeClosing(true);
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(asked_, 0);
}

TEST_F(MachiningRows, AnotherTabTheCalculatorAndTheKeyCloseAskFirst) {
  struct Row {
    const char* what;
    std::function<void()> leave;
  };
  const Row rows[] = {{"another tab", [this] { TouchMiddle(window_->MainBar().Key(0)); }},
                      {"the calculator", [this] { TouchMiddle(window_->SideBar().Key(3)); }},
                      {"the key", [this] { TouchMiddle(window_->MainBar().Key(kCloseSlot)); }},
                      {"Escape", [this] { Press(Qt::Key_Escape); }}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    OpenWithRow("Plastic POM-C");
    Answer({});
    row.leave();
    EXPECT_EQ(asked_, 2);
    EXPECT_TRUE(Has(Grid(kMaterials)));
    EXPECT_EQ(Tool(PNL_TOOL_CALCULATOR), nullptr);
    session_.DestroyTool(session_.ToolWindow(kTool));
    Settle();
  }
}

TEST_F(MachiningRows, LeaveWritesATableThatComesBackAsNothingNew) {
  OpenWithRow("My steel");
  Send(kSave);
  Export();
  EXPECT_EQ(Zone(), "Exported to C:\\CNC\\USER\\CUTTING\\MINE.CSV: 1 materials, 0 operations.")
      << "said once, by the tool";
  const std::string table = BytesOf(Host("MINE.CSV"));
  EXPECT_EQ(table.rfind(std::string(kHeading) + "material;My steel;", 0), 0u) << table;
  EXPECT_TRUE(Has(Grid(kMaterials)));
  BoxTexts boxes;
  rig_.SetSink(&boxes);
  Import(table);
  rig_.SetSink(nullptr);
  EXPECT_EQ(boxes.texts, QStringList{"MINE.CSV contains nothing new."});
}

TEST_F(MachiningRows, AnImportIsShownFirstAndStoresNothingOnNo) {
  Open();
  const std::string before = UserFile();
  const std::string table =
      "\xEF\xBB\xBFkind,description,kc\r\nmaterial,\"Two\nlines, quoted\",1500.5\r\noperation,Mine,\r\n";
  BoxTexts boxes;
  rig_.SetSink(&boxes);
  Answer({"no"});
  Import(table);
  EXPECT_EQ(UserFile(), before);
  Answer({"yes"});
  Import(table);
  rig_.SetSink(nullptr);
  const QString question = "Import this?\nNew material: Two\nlines, quoted, KC 1500.5\nNew operation: Mine";
  EXPECT_EQ(boxes.texts, (QStringList{question, question}));
  EXPECT_EQ(Zone(), "Imported: 2 records.");
  EXPECT_GE(Box(kMaterial)->findText("Two\nlines, quoted"), 0);
  EXPECT_GE(Box(kOperation)->findText("Mine"), 0);
  EXPECT_TRUE(Has(Box(kMaterial)));
}

TEST_F(MachiningRows, ATableWithFaultsIsRefusedWholeAndAllItsFaultsAreListed) {
  struct Row {
    const char* what;
    std::string table;
    QString said;
  };
  const Row rows[] = {
      {"no table", std::string("\x89PNG\r\n\x1a\n\0\0", 10),
       "Nothing was imported. What is wrong in MINE.CSV:\nLine 1: the columns kind and description are missing."},
      {"empty", "",
       "Nothing was imported. What is wrong in MINE.CSV:\nLine 1: the columns kind and description are missing."},
      {"four faults", "kind;description;kc\nmaterial;;5\nfoo;bar;\nmaterial;Good;1\nmaterial;A;x\nmaterial;Good;1\n",
       "Nothing was imported. What is wrong in MINE.CSV:\nLine 2 has no description.\nLine 3: foo is neither material "
       "nor "
       "operation.\nLine 5: x is no cutting force.\nLine 6: Good is there twice."},
  };
  Open();
  const std::string before = UserFile();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    BoxTexts boxes;
    rig_.SetSink(&boxes);
    Import(row.table);
    rig_.SetSink(nullptr);
    EXPECT_EQ(boxes.texts, QStringList{row.said});
    EXPECT_EQ(UserFile(), before);
  }
}

TEST_F(MachiningRows, LeavingTheExplorerExportsAndImportsNothing) {
  for (const int slot : {3, 4}) {
    Open();
    TouchMiddle(window_->MainBar().Key(slot));
    ASSERT_TRUE(ExplorerShown());
    EXPECT_EQ(session_.MainBar().first, PNL_TOOL_EXPLORER);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(ExplorerShown());
    EXPECT_TRUE(IsShown());
    EXPECT_TRUE(Has(Box(kMaterial)));
    EXPECT_EQ(session_.MainBar().first, kTool);
    EXPECT_EQ(Zone(), "");
  }
  EXPECT_EQ(asked_, 0);
  EXPECT_EQ(BytesOf(Host("MINE.CSV")), "no file");
}

TEST_F(MachiningRows, AToolThatClosesMeanwhileTakesItsRequestAlong) {
  Open();
  TouchMiddle(window_->MainBar().Key(4));
  ASSERT_TRUE(ExplorerShown());
  Do(Action::kOpenMachining);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsShown());
  EXPECT_FALSE(ExplorerShown());
  EXPECT_FALSE(op_->Files().IsWaiting());
  EXPECT_TRUE(Has(Program()));
}

TEST_F(MachiningRows, OnAFullDiscNothingIsLost) {
  OpenWithRow("My steel");
  Send(kSave);
  Export();
  const std::string table = BytesOf(Host("MINE.CSV"));
  const std::string user = UserFile();
  rlimit whole{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &whole), 0);
  const rlimit full{16, whole.rlim_max};
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  TouchMiddle(window_->MainBar().Key(3));
  setrlimit(RLIMIT_FSIZE, &full);
  AcceptName("MINE.CSV");
  setrlimit(RLIMIT_FSIZE, &whole);
  EXPECT_TRUE(ZoneText().contains("MINE.CSV")) << Zone();
  EXPECT_FALSE(ZoneText().contains("Exported")) << Zone();
  EXPECT_EQ(BytesOf(Host("MINE.CSV")), table);
  const std::string more = table + "material;Another;;;;;;;\r\n";
  std::remove(Host("MINE.CSV").c_str());
  QFile file(QString::fromStdString(Host("MINE.CSV")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(more.c_str()) > 0);
  file.close();
  TouchMiddle(window_->MainBar().Key(4));
  setrlimit(RLIMIT_FSIZE, &full);
  AcceptName("MINE.CSV");
  setrlimit(RLIMIT_FSIZE, &whole);
  std::signal(SIGXFSZ, before);
  EXPECT_EQ(UserFile(), user);
  EXPECT_FALSE(ZoneText().contains("Imported")) << Zone();
  EXPECT_NE(Zone(), "");
}

TEST_F(MachiningRows, AProtectedTableIsNotReplaced) {
  Open();
  QFile file(QString::fromStdString(Host("MINE.CSV")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
  file.close();
  ASSERT_TRUE(file.setPermissions(QFileDevice::ReadOwner));
  TouchMiddle(window_->MainBar().Key(3));
  ASSERT_TRUE(ExplorerShown());
  AcceptName("MINE.CSV");
  EXPECT_TRUE(ExplorerShown()) << "another name is needed";
  Press(Qt::Key_Escape);
  EXPECT_EQ(BytesOf(Host("MINE.CSV")), "mine");
}

TEST_F(MachiningRows, TwoHundredChangesCanBeReadAtTheSmallestPanel) {
  window_->ResizeToolArea(QSize(800, 600));
  Open();
  std::string table = "kind;description;kc\n";
  for (int i = 1; i <= 200; ++i)
    table += "material;A material with quite a long name, number " + std::to_string(i) + ";1500\n";
  int seen = 0;
  WhenAsked([&](QDialog& dialog) {
    ++seen;
    EXPECT_TRUE(window_->frameGeometry().contains(dialog.frameGeometry()));
    for (const int id : {kFirstButton, kFirstButton + 1}) {
      QWidget* found = nullptr;
      for (QWidget* child : dialog.findChildren<QWidget*>()) {
        if (child->property("pnlId").toInt() == id) found = child;
      }
      ASSERT_NE(found, nullptr) << id;
      EXPECT_TRUE(dialog.rect().contains(QRect(found->mapTo(&dialog, QPoint()), found->size()))) << id;
      EXPECT_GE(found->height(), 40) << id;
    }
    QAbstractScrollArea* area = nullptr;
    for (auto* each : dialog.findChildren<QAbstractScrollArea*>()) {
      if (each->verticalScrollBar()->maximum() > 0) area = each;
    }
    ASSERT_NE(area, nullptr) << "the last line can be reached";
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << "no line is cut at its end";
  });
  Import(table);
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(Zone(), "") << "it was answered with no";
}

TEST_F(MachiningRows, ThePanelEndsWhileAQuestionIsOpen) {
  OpenWithRow("My steel");
  int seen = 0;
  WhenAsked([&](QDialog&) {
    ++seen;
    session_.CloseAll();
  });
  Press(Qt::Key_Escape);
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(UserFile().find("My steel"), std::string::npos);
}

}  // namespace
}  // namespace panel
