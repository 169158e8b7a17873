// SPDX-License-Identifier: MIT
// The machining calculator's window: opening it with a factory file of 1.2 MB to the painted page, selecting a material
// in lists of 5,000 to the painted page, and filling the table of materials with 5,000 rows. Beside the kit's own
// dialog with as many controls and rows, and its own list box, in the same run.
#include <benchmark/benchmark.h>

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <chrono>
#include <memory>
#include <string>

#include "bench_host.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kMaterialBox = 3008;
constexpr int kMaterialsTab = 32819;
constexpr int kMainTab = 32818;
constexpr int kMaterialsGrid = 3055;
constexpr int kControls = 47;
constexpr std::size_t kFactoryBytes = 1'200'000;

int rowCount = 5000;

double SecondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

std::string Name(int index) { return "Material " + std::to_string(index); }

/// Materials, operations, and pairs until the file is as large as it has to be.
std::string FactoryFile() {
  std::string file = "<CondicionesCorte><MaterialesDefinition>";
  for (int i = 0; i < rowCount; ++i) {
    file +=
        "<MaterialDefinition><id>##</id><descripcion>" + Name(i) + "</descripcion><KC>2000</KC></MaterialDefinition>";
  }
  file += "</MaterialesDefinition><Operaciones>";
  for (int operation = 0; operation < 10; ++operation) {
    file += "<Operacion><id>1</id><descripcion>Operation " + std::to_string(operation) +
            "</descripcion><ToolType>Milling cutter</ToolType><Materiales>";
    const std::size_t share = kFactoryBytes / 10 * static_cast<std::size_t>(operation + 1);
    for (int i = 0; rowCount >= 5000 && i < rowCount && file.size() < share; ++i) {
      file += "<Parametros><Material>" + Name(i) +
              "</Material><VelocidadCorte><Min>800000000</Min><Max>1600000000</Max></VelocidadCorte></Parametros>";
    }
    file += "</Materiales></Operacion>";
  }
  return file + "</Operaciones></CondicionesCorte>";
}

void WriteFile(const QString& folder, const QString& name, const std::string& bytes) {
  QDir().mkpath(folder);
  QFile file(folder + "/" + name);
  if (!file.open(QIODevice::WriteOnly)) std::exit(1);
  file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

/// Everything that is posted is handled and everything that is to be painted is painted.
void Paint() {
  for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
  BenchHost::Here().Widget().grab();
}

QWidget* ControlOf(QWidget* window, int id) {
  for (auto* widget : window->findChildren<QWidget*>()) {
    if (widget->property("pnlId").toInt() == id) return widget;
  }
  std::exit(1);
}

class Calculator {
 public:
  Calculator() : tool_(LoadPNLTool(PNL_TOOL_MACHINING_CALCULATOR, BenchHost::Here().Window())) {}
  ~Calculator() { PnlDestroyWindow(tool_); }
  Calculator(const Calculator&) = delete;
  Calculator& operator=(const Calculator&) = delete;

  void Menu(int id) { PnlSendMessage(tool_, PNL_MSG_COMMAND, id, 0); }
  [[nodiscard]] QWidget* Window() const { return static_cast<QWidget*>(PnlWidgetOf(tool_)); }

 private:
  PnlWindow tool_;
};

/// The kit's own dialog with as many controls as the page, and two lists of as many rows.
class PlainDialog {
 public:
  PlainDialog() : dialog_(&BenchHost::Here().Widget(), Qt::Widget) {
    for (int i = 0; i < kControls; ++i) {
      QWidget* control = i % 2 == 0 ? static_cast<QWidget*>(new QLabel("Label", &dialog_)) : new QLineEdit(&dialog_);
      control->setGeometry(10 + i % 4 * 190, 10 + i / 4 * 40, 180, 30);
    }
    QStringList names;
    for (int i = 0; i < rowCount; ++i) names << QString::fromStdString(Name(i));
    for (int list = 0; list < 2; ++list) {
      box_ = new QComboBox(&dialog_);
      box_->addItems(names);
      box_->setGeometry(10 + list * 300, 480, 280, 30);
    }
    auto* table = new QTableWidget(4, 3, &dialog_);
    table->setGeometry(10, 520, 500, 70);
    dialog_.resize(BenchHost::Here().Widget().size());
    dialog_.show();
  }
  [[nodiscard]] QComboBox& Box() { return *box_; }

 private:
  QDialog dialog_;
  QComboBox* box_ = nullptr;
};

template <typename Window>
void Open(benchmark::State& state) {
  for (auto _ : state) {
    const auto start = Clock::now();
    auto window = std::make_unique<Window>();
    Paint();
    state.SetIterationTime(SecondsSince(start));
  }
}

/// One material down, by the key that a closed list takes anywhere: the wheel's way through the control's own model.
void Select(benchmark::State& state, QComboBox& box) {
  Paint();
  int item = 0;
  for (auto _ : state) {
    item = (item + rowCount / 7) % rowCount;
    const auto start = Clock::now();
    box.setCurrentIndex(item);
    emit box.textActivated(box.currentText());
    Paint();
    state.SetIterationTime(SecondsSince(start));
  }
}

void SelectCalculator(benchmark::State& state) {
  Calculator calculator;
  Select(state, *qobject_cast<QComboBox*>(ControlOf(calculator.Window(), kMaterialBox)));
}

void SelectPlain(benchmark::State& state) {
  PlainDialog dialog;
  Select(state, dialog.Box());
}

void FillCalculator(benchmark::State& state) {
  for (auto _ : state) {
    Calculator calculator;
    Paint();
    const auto start = Clock::now();
    calculator.Menu(kMaterialsTab);
    Paint();
    state.SetIterationTime(SecondsSince(start));
    auto* grid = qobject_cast<QAbstractItemView*>(ControlOf(calculator.Window(), kMaterialsGrid));
    if (grid == nullptr || grid->model()->rowCount() != rowCount) state.SkipWithError("not all rows are there");
    calculator.Menu(kMainTab);
  }
}

void FillPlain(benchmark::State& state) {
  for (auto _ : state) {
    QTableWidget table(0, 7, &BenchHost::Here().Widget());
    table.resize(BenchHost::Here().Widget().size());
    table.show();
    Paint();
    const auto start = Clock::now();
    table.setRowCount(rowCount);
    for (int row = 0; row < rowCount; ++row) {
      for (int column = 0; column < 7; ++column) {
        table.setItem(row, column, new QTableWidgetItem(column == 0 ? QString::fromStdString(Name(row)) : "2000"));
      }
    }
    Paint();
    state.SetIterationTime(SecondsSince(start));
  }
}

template <typename Function>
void Register(const char* name, int iterations, Function function) {
  benchmark::RegisterBenchmark(name, function)
      ->Unit(benchmark::kMillisecond)
      ->UseManualTime()
      ->Iterations(rowCount < 5000 ? 1 : iterations);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--brief") --argc, rowCount = 50;
  BenchHost host(argc, argv);
  QTemporaryDir disc;
  pnl::rig::Drive drive;
  drive.letter = 'D';
  drive.dir = QFile::encodeName(disc.path()).toStdString();
  PnlRig()->Files().SetDrive(drive);
  PnlRig()->Files().SetPath(24, u"D:\\factory");
  PnlRig()->Files().SetPath(52, u"D:\\setup");
  PnlRig()->Files().SetPath(118, u"D:\\user");
  WriteFile(disc.path() + "/factory", "CondicionesCorte.xml", FactoryFile());
  QDir().mkpath(disc.path() + "/setup");
  QDir().mkpath(disc.path() + "/user");
  PnlSetLanguage("en");
  Register("open/calculator", 10, Open<Calculator>);
  Register("open/plain dialog", 10, Open<PlainDialog>);
  Register("select/calculator", 50, SelectCalculator);
  Register("select/plain list box", 50, SelectPlain);
  Register("fill/calculator", 5, FillCalculator);
  Register("fill/plain table", 5, FillPlain);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
