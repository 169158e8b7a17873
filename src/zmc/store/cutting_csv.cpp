// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_csv.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "base/numbers.h"
#include "zmc/store/cutting_text.h"

namespace pnl {
namespace {

enum Column { kKind, kDescription, kGermany, kUne, kAisi, kForce, kToolType, kHidden, kDate, kColumns };
constexpr TextView kNames[kColumns] = {u"kind", u"description", u"alemaniaw", u"une", u"aisi",
                                       u"kc",   u"tooltype",    u"hidden",    u"date"};
constexpr TextView kMaterial = u"material";
constexpr TextView kOperation = u"operation";
constexpr TextView kYes = u"1";
constexpr double kLargestForce = 99999.9999;
constexpr std::size_t kMostFaults = 1000;

using Cells = std::array<Text, kColumns>;

// Writing.

Text Quoted(TextView text) {
  if (text.find_first_of(u";,\t\"\r\n") == TextView::npos) return Text(text);
  Text quoted(1, u'"');
  for (const char16_t c : text) quoted.append(c == u'"' ? 2 : 1, c);
  return quoted += u'"';
}

void AppendLine(Text& table, const Cells& cells) {
  for (int column = 0; column < kColumns; ++column) {
    if (column != 0) table += u';';
    table += Quoted(cells[static_cast<std::size_t>(column)]);
  }
  table += u"\r\n";
}

Text TextOfLeaf(const CuttingLeaf& leaf) { return Text(TextOf(leaf)); }

// Reading: text to lines of cells.

struct Line {
  int number = 0;
  std::vector<Text> cells;
};

class LineReader {
 public:
  LineReader(TextView text, char16_t separator) : text_(text), separator_(separator) {}

  /// Returns nothing at the end. A blank line has one empty cell.
  std::optional<Line> Next() {
    if (at_ >= text_.size()) return std::nullopt;
    Line line;
    line.number = number_;
    do {
      line.cells.push_back(Cell());
    } while (Take(separator_));
    TakeLineEnd();
    return line;
  }
  [[nodiscard]] bool IsQuoteOpen() const { return open_; }

 private:
  Text Cell() {
    if (!Take(u'"')) return Until();
    Text cell;
    for (;;) {
      if (at_ >= text_.size()) return open_ = true, cell;
      const char16_t c = text_[at_++];
      if (c == u'\n') ++number_;
      if (c != u'"' || Take(u'"')) {
        cell += c;
      } else {
        return cell += Until();
      }
    }
  }
  Text Until() {
    const std::size_t from = at_;
    while (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != u'\n' && text_[at_] != u'\r') ++at_;
    return Text(text_.substr(from, at_ - from));
  }
  bool Take(char16_t c) {
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  void TakeLineEnd() {
    Take(u'\r');
    Take(u'\n');
    ++number_;
  }

  const TextView text_;
  const char16_t separator_;
  std::size_t at_ = 0;
  int number_ = 1;
  bool open_ = false;
};

char16_t SeparatorOf(TextView text) {
  const TextView first = text.substr(0, text.find_first_of(u"\r\n"));
  for (const char16_t separator : {u';', u'\t'}) {
    if (first.find(separator) != TextView::npos) return separator;
  }
  return u',';
}

/// For each column of the file which of ours it is; kColumns for one that isn't ours.
std::vector<int> ColumnsOf(const Line& header) {
  std::vector<int> columns;
  for (const Text& name : header.cells) {
    const auto found = std::find_if(std::begin(kNames), std::end(kNames),
                                    [&](TextView known) { return EqualNoCase(known, Trim(name)); });
    columns.push_back(static_cast<int>(found - std::begin(kNames)));
  }
  return columns;
}

bool Has(const std::vector<int>& columns, int column) {
  return std::find(columns.begin(), columns.end(), column) != columns.end();
}

// Reading: cells to records.

class RecordReader {
 public:
  explicit RecordReader(CsvReading& reading) : reading_(reading) {}

  void Read(const Cells& cells) {
    for (const Text& cell : cells) {
      if (!CanHoldCuttingText(cell)) Fault(CsvFault::kBadText, cell);
    }
    const bool material = EqualNoCase(cells[kKind], kMaterial);
    if (!material && !EqualNoCase(cells[kKind], kOperation)) return Fault(CsvFault::kUnknownKind, cells[kKind]);
    CheckDescription(material, cells[kDescription]);
    if (material) {
      CheckForce(cells[kForce]);
      reading_.records.materials.push_back(MaterialOf(cells));
    } else {
      reading_.records.operations.push_back(OperationOf(cells));
    }
  }
  void Fault(CsvFault fault, const Text& value) {
    if (reading_.faults.size() < kMostFaults) reading_.faults.push_back({line_, fault, value});
  }
  void At(int line) { line_ = line; }

 private:
  void CheckDescription(bool material, const Text& description) {
    if (description.empty()) return Fault(CsvFault::kNoDescription, description);
    if (!known_.insert({material, description}).second) Fault(CsvFault::kRepeated, description);
  }
  void CheckForce(const Text& force) {
    if (force.empty()) return;
    const std::optional<double> value =
        force.find_first_not_of(u"0123456789.") == Text::npos ? ParseDouble(force) : std::nullopt;
    if (!value || *value > kLargestForce) Fault(CsvFault::kBadNumber, force);
  }
  static bool IsHidden(const Text& cell) { return !cell.empty() && cell != u"0" && !EqualNoCase(cell, u"false"); }
  static CT_MaterialDefinition MaterialOf(const Cells& cells) {
    CT_MaterialDefinition record;
    record.descripcion = LeafOf(cells[kDescription]);
    record.Norma = {LeafOf(cells[kGermany]), LeafOf(cells[kUne]), LeafOf(cells[kAisi])};
    record.id = MaterialId(record.Norma);
    record.KC = LeafOf(cells[kForce]);
    record.Oculto = IsHidden(cells[kHidden]);
    record.Date = LeafOf(cells[kDate]);
    return record;
  }
  static CT_Operacion OperationOf(const Cells& cells) {
    CT_Operacion record;
    record.descripcion = LeafOf(cells[kDescription]);
    record.ToolType = LeafOf(cells[kToolType]);
    record.Oculto = IsHidden(cells[kHidden]);
    record.Date = LeafOf(cells[kDate]);
    return record;
  }

  CsvReading& reading_;
  int line_ = 1;
  std::set<std::pair<bool, Text>> known_;
};

bool IsBlank(const Line& line) {
  return std::all_of(line.cells.begin(), line.cells.end(), [](const Text& cell) { return Trim(cell).empty(); });
}

}  // namespace

Text WriteCuttingCsv(const CuttingRecords& records) {
  Text table;
  Cells header;
  for (std::size_t column = 0; column < kColumns; ++column) header[column] = Text(kNames[column]);
  AppendLine(table, header);
  for (const CT_MaterialDefinition& record : records.materials) {
    AppendLine(table, {Text(kMaterial), TextOfLeaf(record.descripcion), TextOfLeaf(record.Norma.AlemaniaW),
                       TextOfLeaf(record.Norma.UNE), TextOfLeaf(record.Norma.AISI), TextOfLeaf(record.KC), Text(),
                       record.Oculto ? Text(kYes) : Text(), TextOfLeaf(record.Date)});
  }
  for (const CT_Operacion& record : records.operations) {
    AppendLine(table, {Text(kOperation), TextOfLeaf(record.descripcion), Text(), Text(), Text(), Text(),
                       TextOfLeaf(record.ToolType), record.Oculto ? Text(kYes) : Text(), TextOfLeaf(record.Date)});
  }
  return table;
}

CsvReading ReadCuttingCsv(TextView text) {
  CsvReading reading;
  RecordReader records(reading);
  LineReader lines(text, SeparatorOf(text));
  const std::optional<Line> header = lines.Next();
  const std::vector<int> columns = header ? ColumnsOf(*header) : std::vector<int>();
  if (!Has(columns, kKind) || !Has(columns, kDescription)) {
    records.Fault(CsvFault::kNoHeader, header && !header->cells.empty() ? header->cells[0] : Text());
    return reading;
  }
  while (const std::optional<Line> line = lines.Next()) {
    records.At(line->number);
    if (IsBlank(*line)) continue;
    if (line->cells.size() > columns.size()) {
      records.Fault(CsvFault::kColumnCount, line->cells.back());
      continue;
    }
    Cells cells;
    for (std::size_t column = 0; column < line->cells.size(); ++column) {
      if (columns[column] != kColumns)
        cells[static_cast<std::size_t>(columns[column])] = Text(Trim(line->cells[column]));
    }
    records.Read(cells);
  }
  if (lines.IsQuoteOpen()) records.Fault(CsvFault::kOpenQuote, {});
  if (!reading.faults.empty()) reading.records = {};
  return reading;
}

}  // namespace pnl
