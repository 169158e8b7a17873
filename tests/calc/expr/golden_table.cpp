// SPDX-License-Identifier: MIT
#include "calc/expr/golden_table.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace pnl::test {
namespace {

std::vector<std::string> Columns(const std::string& line) {
  std::vector<std::string> columns;
  std::istringstream stream(line);
  for (std::string column; std::getline(stream, column, '\t');) columns.push_back(column);
  return columns;
}

double Number(const std::string& text) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  EXPECT_TRUE(!text.empty() && *end == '\0') << "not a number: " << text;
  return value;
}

std::vector<std::pair<std::string, double>> Settings(const std::string& column) {
  std::vector<std::pair<std::string, double>> settings;
  if (column == "-") return settings;
  std::istringstream stream(column);
  for (std::string setting; stream >> setting;) {
    const std::size_t sign = setting.find('=');
    settings.emplace_back(setting.substr(0, sign), Number(setting.substr(sign + 1)));
  }
  return settings;
}

std::string Unescaped(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
    } else if (text[i + 1] == 'u') {
      out += static_cast<char>(std::stoi(text.substr(i + 2, 4), nullptr, 16));
      i += 5;
    } else {
      const char code = text[++i];
      out += code == 't' ? '\t' : code == 'n' ? '\n' : code == 'r' ? '\r' : code;
    }
  }
  return out;
}

void ReadAnswer(Golden& golden) {
  static const std::map<std::string, Answer> kinds = {
      {"=", Answer::kExactly}, {"~", Answer::kWithinPlaces}, {"8", Answer::kToEightDigits}, {"at", Answer::kRefused}};
  if (golden.wanted == "domain") {
    golden.answer = Answer::kDomainFailure;
    return;
  }
  const std::size_t blank = golden.wanted.find(' ');
  const auto kind = kinds.find(golden.wanted.substr(0, blank));
  ASSERT_TRUE(kind != kinds.end() && blank != std::string::npos) << golden.wanted;
  golden.answer = kind->second;
  golden.value = Number(golden.wanted.substr(blank + 1));
  if (golden.answer == Answer::kRefused) golden.place = static_cast<int>(golden.value);
}

Golden GoldenOf(const std::string& line, int number) {
  Golden golden;
  golden.line = number;
  const std::vector<std::string> columns = Columns(line);
  if (columns.size() != 4 && columns.size() != 6) {
    ADD_FAILURE() << "line " << number << " of the table has " << columns.size() << " columns";
    return golden;
  }
  golden.before = Settings(columns[0]);
  golden.radians = columns[1] == "rad";
  golden.expression = FromUtf8(Unescaped(columns[2]));
  golden.wanted = columns[3];
  ReadAnswer(golden);
  EXPECT_EQ(columns.size() == 4, golden.answer == Answer::kRefused) << "line " << number << " of the table";
  if (columns.size() == 6) {
    golden.changes = Settings(columns[4]);
    golden.tree = FromUtf8(columns[5]);
  }
  return golden;
}

std::vector<Golden> ReadTable() {
  std::vector<Golden> table;
  std::ifstream file(PNL_TESTS_FOLDER "/calc/expr/golden/expressions.txt");
  EXPECT_TRUE(file.is_open()) << "the table isn't there";
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.rfind('#', 0) != 0) table.push_back(GoldenOf(line, number));
  }
  return table;
}

}  // namespace

const std::vector<Golden>& GoldenTable() {
  static const std::vector<Golden> table = ReadTable();
  return table;
}

void Set(CalcStore& store, const std::string& name, double value) {
  if (name == "ACC") {
    store.Acc = value;
  } else {
    store.Variables.at(static_cast<std::size_t>(name.at(0) - 'A')) = value;
  }
}

CalcStore StoreWith(const std::vector<std::pair<std::string, double>>& settings) {
  CalcStore store;
  for (const auto& [name, value] : settings) Set(store, name, value);
  return store;
}

}  // namespace pnl::test
