// SPDX-License-Identifier: MIT
// The compiler of the cutting data: reads the tables of materials, operations and pairs and writes the factory file of
// one language. It stops at the first mistake with its file and line, so that wrong data never get into a build.
//
//   cuttingc TABLE_FOLDER LANGUAGE OUTPUT
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"

namespace {

namespace fs = std::filesystem;

constexpr double kHighest = 1e5;  // of a figure in the tables

/// A line of a table, without comments. The first field is its key, but for pairs, which have two.
struct Row {
  std::string place;  // file and line, for messages
  std::vector<std::string> fields;
};
using Table = std::vector<Row>;

[[noreturn]] void Fail(const std::string& place, const std::string& what) {
  throw std::runtime_error(place + ": " + what);
}

Table ReadTable(const fs::path& file, std::size_t columns) {
  std::ifstream in(file);
  if (!in) Fail(file.string(), "cannot be read");
  Table table;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    Row row{file.string() + ":" + std::to_string(++number), {}};
    if (line.empty() || line[0] == '#') continue;
    if (!pnl::IsUtf8(line)) Fail(row.place, "not UTF-8");
    for (std::size_t begin = 0; begin <= line.size();) {
      const std::size_t end = std::min(line.find(';', begin), line.size());
      row.fields.push_back(line.substr(begin, end - begin));
      if (row.fields.back().empty()) Fail(row.place, "an empty field; what is absent is \"-\"");
      begin = end + 1;
    }
    if (row.fields.size() != columns) Fail(row.place, "has not " + std::to_string(columns) + " fields");
    table.push_back(std::move(row));
  }
  return table;
}

/// The row with that key. Fails at the place that names it when there is none.
const Row& Find(const Table& table, const std::string& key, const std::string& place) {
  for (const Row& row : table) {
    if (row.fields[0] == key) return row;
  }
  Fail(place, key + " is unknown");
}

void CheckKeys(const Table& table, std::size_t keys) {
  std::map<std::string, std::string> places;
  for (const Row& row : table) {
    const std::string key = keys == 1 ? row.fields[0] : row.fields[0] + ";" + row.fields[1];
    if (!places.emplace(key, row.place).second) Fail(row.place, key + " is there twice");
  }
}

std::optional<double> NumberOf(const Row& row, std::size_t column) {
  const std::string& field = row.fields[column];
  if (field == "-") return std::nullopt;
  const std::optional<double> number = pnl::ParseDouble(pnl::FromUtf8(field));
  if (!number || !(*number > 0 && *number <= kHighest)) Fail(row.place, field + " is no limit");
  return number;
}

void AddText(pugi::xml_node parent, const char* name, const std::string& text) {
  parent.append_child(name).text().set(text.c_str());
}

void AddText(pugi::xml_node parent, const char* name, const Row& row, std::size_t column) {
  if (row.fields[column] != "-") AddText(parent, name, row.fields[column]);
}

/// Adds the limits in the file's units. Adds nothing when the pair has none.
void AddLimits(pugi::xml_node parent, const char* name, const Row& row, std::size_t column, double unit) {
  const std::optional<double> low = NumberOf(row, column);
  const std::optional<double> high = NumberOf(row, column + 1);
  if (low.has_value() != high.has_value()) Fail(row.place, "one limit without the other");
  if (!low) return;
  if (*low > *high) Fail(row.place, "limits in the wrong order");
  pugi::xml_node limits = parent.append_child(name);
  AddText(limits, "Min", std::to_string(std::llround(*low * unit)));
  AddText(limits, "Max", std::to_string(std::llround(*high * unit)));
}

/// The tables, and the column of the language in those that have texts.
class Compiler {
 public:
  Compiler(const fs::path& folder, std::size_t language)
      : language_(language),
        types_(ReadTable(folder / "tool_types.csv", 3)),
        qualities_(ReadTable(folder / "qualities.csv", 3)),
        operations_(ReadTable(folder / "operations.csv", 4)),
        materials_(ReadTable(folder / "materials.csv", 7)),
        pairs_(ReadTable(folder / "pairs.csv", 12)) {
    for (const Table* table : {&types_, &qualities_, &operations_, &materials_}) CheckKeys(*table, 1);
    CheckKeys(pairs_, 2);
    for (const Row& pair : pairs_) Find(operations_, pair.fields[0], pair.place);
  }

  void Write(pugi::xml_document& document) const {
    pugi::xml_node root = document.append_child("CondicionesCorte");
    pugi::xml_node materials = root.append_child("MaterialesDefinition");
    for (const Row& material : materials_) AddMaterial(materials, material);
    pugi::xml_node operations = root.append_child("Operaciones");
    int number = 0;
    for (const Row& operation : operations_) AddOperation(operations, operation, ++number);
  }

 private:
  static constexpr double kSpeedUnit = 1e7;   // of a speed in m/min
  static constexpr double kLengthUnit = 1e4;  // of a length in mm

  void AddMaterial(pugi::xml_node parent, const Row& row) const {
    pugi::xml_node node = parent.append_child("MaterialDefinition");
    std::string id;
    for (std::size_t column = 1; column <= 3; ++column) {
      id += (column == 1 ? "" : "#") + (row.fields[column] == "-" ? std::string() : row.fields[column]);
    }
    AddText(node, "id", id);
    AddText(node, "descripcion", row, 5 + language_);
    pugi::xml_node standards = node.append_child("Norma");
    AddText(standards, "AlemaniaW", row, 1);
    AddText(standards, "UNE", row, 2);
    AddText(standards, "AISI", row, 3);
    if (!NumberOf(row, 4)) Fail(row.place, "no cutting force");
    AddText(node, "KC", row, 4);
  }

  void AddOperation(pugi::xml_node parent, const Row& row, int number) const {
    pugi::xml_node node = parent.append_child("Operacion");
    AddText(node, "id", std::to_string(number));
    AddText(node, "descripcion", row, 2 + language_);
    AddText(node, "ToolType", Find(types_, row.fields[1], row.place), 1 + language_);
    for (const Row& pair : pairs_) {
      if (pair.fields[0] == row.fields[0]) AddPair(node, pair);
    }
  }

  void AddPair(pugi::xml_node operation, const Row& row) const {
    pugi::xml_node block = operation.append_child("Materiales").append_child("Parametros");
    AddText(block, "Material", Find(materials_, row.fields[1], row.place), 5 + language_);
    AddLimits(block, "VelocidadCorte", row, 2, kSpeedUnit);
    AddLimits(block, "AvancePorDiente", row, 4, kLengthUnit);
    AddLimits(block, "Profundidad", row, 6, kLengthUnit);
    AddLimits(block, "PasadaRadial", row, 8, 1);
    if (row.fields[10] == "-") return;
    pugi::xml_node features = block.append_child("CaracteristicasHta");
    AddText(features, "Calidad", Find(qualities_, row.fields[10], row.place), 1 + language_);
  }

  std::size_t language_;
  Table types_;
  Table qualities_;
  Table operations_;
  Table materials_;
  Table pairs_;
};

std::size_t ColumnOf(const std::string& language) {
  const std::vector<std::string> languages{"en", "es"};
  for (std::size_t i = 0; i < languages.size(); ++i) {
    if (languages[i] == language) return i;
  }
  Fail(language, "no such language");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: cuttingc TABLE_FOLDER LANGUAGE OUTPUT\n";
    return 2;
  }
  try {
    pugi::xml_document document;
    Compiler(argv[1], ColumnOf(argv[2])).Write(document);
    const fs::path output(argv[3]);
    fs::create_directories(output.parent_path());
    if (!document.save_file(output.c_str(), " ", pugi::format_indent, pugi::encoding_utf8)) {
      Fail(output.string(), "cannot be written");
    }
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
  return 0;
}
