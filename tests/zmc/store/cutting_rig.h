// SPDX-License-Identifier: MIT
// A disc with the two files of cutting data, and short ways to write their contents and records.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/memory_files.h"
#include "zmc/store/cutting_parser.h"
#include "zmc/store/cutting_records.h"

namespace pnl {

inline void PrintTo(CuttingError error, std::ostream* out) { *out << "error " << static_cast<int>(error); }

namespace test {

inline constexpr TextView kFactoryPath = u"C:\\P24\\CondicionesCorte.xml";
inline constexpr TextView kUserPath = u"C:\\P118\\CondicionesCorteP.xml";

/// A file's text with these records.
inline std::string CuttingFile(const std::string& materials, const std::string& operations = "") {
  return "<CondicionesCorte><MaterialesDefinition>" + materials + "</MaterialesDefinition><Operaciones>" + operations +
         "</Operaciones></CondicionesCorte>";
}

inline CT_MaterialDefinition Material(TextView description, TextView date = {}, bool hidden = false,
                                      TextView force = {}) {
  CT_MaterialDefinition record;
  record.id = u"##";
  record.descripcion = LeafOf(description);
  record.Date = LeafOf(date);
  record.Oculto = hidden;
  record.KC = LeafOf(force);
  return record;
}

inline CT_Operacion Operation(TextView description, TextView id = {}, TextView type = {}, TextView date = {},
                              bool hidden = false) {
  CT_Operacion record;
  record.id = LeafOf(id);
  record.descripcion = LeafOf(description);
  record.ToolType = LeafOf(type);
  record.Date = LeafOf(date);
  record.Oculto = hidden;
  return record;
}

class CuttingRig : public testing::Test {
 protected:
  void PutFactory(const std::string& bytes) { files.disc[ToUtf8(kFactoryPath)] = bytes; }
  void PutUser(const std::string& bytes) { files.disc[ToUtf8(kUserPath)] = bytes; }
  [[nodiscard]] std::string Factory() const { return files.disc.at(ToUtf8(kFactoryPath)); }
  [[nodiscard]] std::string User() const { return files.disc.at(ToUtf8(kUserPath)); }
  /// The user file's materials; fails the test when there is no list.
  [[nodiscard]] CT_MaterialesDefinition UserMaterials() {
    auto list = parser.GetListaMateriales(kUserPath);
    EXPECT_EQ(list.Error(), CuttingError::kNone);
    return std::move(list).Value();
  }
  [[nodiscard]] CT_Operaciones UserOperations() {
    auto list = parser.GetListaOperaciones(kUserPath);
    EXPECT_EQ(list.Error(), CuttingError::kNone);
    return std::move(list).Value();
  }
  /// The block of a pair in the user file; fails the test when there is none.
  [[nodiscard]] CT_Parametros UserBlock(TextView material, TextView operation) {
    const auto block = parser.GetCondicionesCorte(kUserPath, material, operation);
    EXPECT_EQ(block.Error(), CuttingError::kNone);
    EXPECT_TRUE(block.Value().has_value());
    return block.Value().value_or(CT_Parametros());
  }
  [[nodiscard]] CuttingError Update(int param, double value, TextView text = {}) {
    return parser.UpdateCondicionesCorteParam(kUserPath, Operation(u"Drilling", u"7", u"Drill", u"2024/01/01"),
                                              Material(u"Steel"), param, value, text);
  }

  MemoryFiles files;
  CondicionesCorteParser parser{files};
};

}  // namespace test
}  // namespace pnl
