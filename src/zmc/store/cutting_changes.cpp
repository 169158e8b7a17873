// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_changes.h"

#include <algorithm>
#include <map>
#include <utility>

namespace pnl {
namespace {

constexpr TextView kOn = u"1";

struct Facts {
  CuttingField field;
  Text value;
};

std::vector<Facts> FactsOf(const CT_MaterialDefinition& record) {
  return {{CuttingField::kNormGermany, Text(TextOf(record.Norma.AlemaniaW))},
          {CuttingField::kNormUne, Text(TextOf(record.Norma.UNE))},
          {CuttingField::kNormAisi, Text(TextOf(record.Norma.AISI))},
          {CuttingField::kForce, Text(TextOf(record.KC))},
          {CuttingField::kHidden, record.Oculto ? Text(kOn) : Text()}};
}

std::vector<Facts> FactsOf(const CT_Operacion& record) {
  return {{CuttingField::kToolType, Text(TextOf(record.ToolType))},
          {CuttingField::kHidden, record.Oculto ? Text(kOn) : Text()}};
}

template <typename Record>
void Compare(const std::vector<Record>& before, const std::vector<Record>& after, bool material,
             std::vector<CuttingChange>& changes) {
  std::map<Text, const Record*> known;
  for (const Record& record : before) known.emplace(TextOf(record.descripcion), &record);
  for (const Record& record : after) {
    CuttingChange change;
    change.material = material;
    change.description = Text(TextOf(record.descripcion));
    const auto found = known.find(change.description);
    change.added = found == known.end();
    const std::vector<Facts> old = FactsOf(change.added ? Record() : *found->second);
    std::vector<Facts> now = FactsOf(record);
    for (std::size_t at = 0; at < now.size(); ++at) {
      if (old[at].value != now[at].value) {
        change.fields.push_back({now[at].field, old[at].value, std::move(now[at].value)});
      }
    }
    if (change.added || !change.fields.empty()) changes.push_back(std::move(change));
  }
}

}  // namespace

std::vector<CuttingChange> CompareCutting(const CuttingRecords& before, const CuttingRecords& after) {
  std::vector<CuttingChange> changes;
  Compare(before.materials, after.materials, true, changes);
  Compare(before.operations, after.operations, false, changes);
  return changes;
}

}  // namespace pnl
