// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_merge.h"

#include <algorithm>
#include <functional>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace pnl {
namespace {

const std::vector<CT_MaterialDefinition>& RecordsOf(const CT_MaterialesDefinition& list) {
  return list.MaterialDefinition;
}
const std::vector<CT_Operacion>& RecordsOf(const CT_Operaciones& list) { return list.Operacion; }

template <typename Record>
TextView DescriptionOf(const Record& record) {
  return TextOf(record.descripcion);
}

/// What a user's record and a factory's have in common when they are one and the same, in the ordering by date. An
/// operation with another id is another operation, a material with another id isn't.
using Identity = std::pair<TextView, TextView>;
Identity IdentityOf(const CT_MaterialDefinition& record) { return {DescriptionOf(record), {}}; }
Identity IdentityOf(const CT_Operacion& record) { return {DescriptionOf(record), TextOf(record.id)}; }

struct IdentityHash {
  std::size_t operator()(const Identity& identity) const {
    const std::hash<TextView> hash;
    return hash(identity.first) * 31 + hash(identity.second);
  }
};

/// An operation without a date was made by saving a cell of a pair and isn't the operator's own edit of the operation.
bool IsEdited(const CT_MaterialDefinition&) { return true; }
bool IsEdited(const CT_Operacion& record) { return record.Date.has_value(); }

/// The ordering by date: what the user edited last comes first.
template <typename List, typename Record>
class DateMerge {
 public:
  DateMerge(const List& factory, const List& user, HiddenRecords hidden) : factory_(factory), hidden_(hidden) {
    for (const Record& each : RecordsOf(user)) user_.push_back(&each);
    // No other order: equal dates keep the file's, and a record without a date is the oldest.
    std::stable_sort(user_.begin(), user_.end(),
                     [](const Record* a, const Record* b) { return TextOf(a->Date) > TextOf(b->Date); });
    for (const Record* each : user_) userByDescription_.emplace(DescriptionOf(*each), each);
    factoryRecords_.reserve(RecordsOf(factory).size());
    for (const Record& each : RecordsOf(factory)) factoryRecords_.insert(IdentityOf(each));
    visible_.reserve(user_.size() + RecordsOf(factory).size());
  }

  std::vector<CuttingRow<Record>> Merge(bool customFirst) && {
    if (customFirst) AddCustom();
    AddFactory();
    if (!customFirst) AddCustom();
    return std::move(rows_);
  }

 private:
  void AddCustom() {
    for (const Record* each : user_) {
      if (factoryRecords_.count(IdentityOf(*each)) == 0) AddUser(*each, CuttingOrigin::kUser);
    }
  }

  void AddFactory() {
    for (const Record* each : user_) {
      if (factoryRecords_.count(IdentityOf(*each)) != 0 && IsEdited(*each)) AddUser(*each, CuttingOrigin::kBoth);
    }
    for (const Record& each : RecordsOf(factory_)) AddUnlessVisible(each);
  }

  /// A factory record with a hidden mark of its own is a row all the same: only the user hides.
  void AddUnlessVisible(const Record& record) {
    const auto [word, isNew] = visible_.insert(ToUpper(DescriptionOf(record)));
    if (!isNew) return;
    const auto found = userByDescription_.find(DescriptionOf(record));
    if (found == userByDescription_.end() || !found->second->Oculto) {
      rows_.push_back({&record, CuttingOrigin::kFactory});
    } else if (hidden_ == HiddenRecords::kList) {
      // Hidden by a record that no pass has taken, because it has no date.
      rows_.push_back({found->second, CuttingOrigin::kBoth});
    } else {
      visible_.erase(word);
    }
  }

  void AddUser(const Record& record, CuttingOrigin origin) {
    if (record.Oculto && hidden_ == HiddenRecords::kSkip) return;
    rows_.push_back({&record, origin});
    visible_.insert(ToUpper(DescriptionOf(record)));
  }

  const List& factory_;
  const HiddenRecords hidden_;
  std::vector<const Record*> user_;
  std::unordered_map<TextView, const Record*> userByDescription_;
  std::unordered_set<Identity, IdentityHash> factoryRecords_;
  std::unordered_set<Text> visible_;
  std::vector<CuttingRow<Record>> rows_;
};

/// What the alphabetical orderings sort by, folded to one case: a tool type if it is asked for, then the description.
template <typename Record>
struct KeyedRow {
  Text type;
  Text description;
  CuttingRow<Record> row;
};

Text TypeKey(const CT_MaterialDefinition&) { return {}; }
Text TypeKey(const CT_Operacion& record) { return ToUpper(TextOf(record.ToolType)); }

/// The user's records, then the factory's: among equals the first one will be kept.
template <typename List, typename Record>
std::vector<KeyedRow<Record>> KeyedRows(const List& factory, const List& user, bool byType) {
  std::vector<KeyedRow<Record>> rows;
  rows.reserve(RecordsOf(user).size() + RecordsOf(factory).size());
  const auto add = [&](const std::vector<Record>& records, CuttingOrigin origin) {
    for (const Record& each : records) {
      rows.push_back({byType ? TypeKey(each) : Text(), ToUpper(DescriptionOf(each)), {&each, origin}});
    }
  };
  add(RecordsOf(user), CuttingOrigin::kUser);
  add(RecordsOf(factory), CuttingOrigin::kFactory);
  return rows;
}

/// Alphabetical: one row for each key, the user's record in preference to the factory's, also when it is hidden.
template <typename List, typename Record>
std::vector<CuttingRow<Record>> MergeByKey(const List& factory, const List& user, bool byType, bool aToZ,
                                           HiddenRecords hidden) {
  auto keyed = KeyedRows<List, Record>(factory, user, byType);
  std::stable_sort(keyed.begin(), keyed.end(), [aToZ](const auto& a, const auto& b) {
    const auto& [first, second] = aToZ ? std::tie(a, b) : std::tie(b, a);
    const int types = first.type.compare(second.type);
    return types != 0 ? types < 0 : first.description < second.description;
  });
  std::unordered_set<TextView> inFactory;
  for (const Record& each : RecordsOf(factory)) inFactory.insert(DescriptionOf(each));
  std::vector<CuttingRow<Record>> rows;
  for (std::size_t i = 0; i < keyed.size();) {
    CuttingRow<Record> kept = keyed[i].row;
    std::size_t next = i + 1;
    bool twice = false;
    for (; next < keyed.size() && keyed[next].type == keyed[i].type && keyed[next].description == keyed[i].description;
         ++next) {
      // Equal but for case is no mark: the factory's record is then hidden by another one of the user.
      twice = twice || DescriptionOf(*keyed[next].row.record) == DescriptionOf(*kept.record);
    }
    const bool ofBoth = kept.origin == CuttingOrigin::kUser && inFactory.count(DescriptionOf(*kept.record)) != 0;
    if (twice || ofBoth) kept.origin = CuttingOrigin::kBoth;
    if (!kept.record->Oculto || hidden == HiddenRecords::kList) rows.push_back(kept);
    i = next;
  }
  return rows;
}

template <typename Record>
std::optional<Record> FirstOf(const std::vector<Record>& records, TextView description) {
  const auto found = std::find_if(records.begin(), records.end(),
                                  [&](const Record& each) { return DescriptionOf(each) == description; });
  return found == records.end() ? std::nullopt : std::optional<Record>(*found);
}

}  // namespace

std::vector<MaterialRow> MergeMaterials(const CT_MaterialesDefinition& factory, const CT_MaterialesDefinition& user,
                                        CuttingOrder order, HiddenRecords hidden) {
  using List = CT_MaterialesDefinition;
  using Record = CT_MaterialDefinition;
  if (order.type == 0) return DateMerge<List, Record>(factory, user, hidden).Merge(order.customFirst);
  return MergeByKey<List, Record>(factory, user, false, order.aToZ, hidden);
}

std::vector<OperationRow> MergeOperations(const CT_Operaciones& factory, const CT_Operaciones& user, CuttingOrder order,
                                          HiddenRecords hidden) {
  using List = CT_Operaciones;
  using Record = CT_Operacion;
  if (order.type == 0) return DateMerge<List, Record>(factory, user, hidden).Merge(order.customFirst);
  if (order.type != 1 && order.type != 2) return {};
  return MergeByKey<List, Record>(factory, user, order.type == 2, order.aToZ, hidden);
}

std::optional<CT_MaterialDefinition> SelectedMaterial(const CT_MaterialesDefinition& factory,
                                                      const CT_MaterialesDefinition& user, TextView description) {
  auto record = FirstOf(factory.MaterialDefinition, description);
  return record ? record : FirstOf(user.MaterialDefinition, description);
}

std::optional<CT_Operacion> SelectedOperation(const CT_Operaciones& factory, const CT_Operaciones& user,
                                              TextView description) {
  auto record = FirstOf(factory.Operacion, description);
  return record ? record : FirstOf(user.Operacion, description);
}

CuttingLeaf SelectedKC(const CT_MaterialesDefinition& factory, const CT_MaterialesDefinition& user,
                       TextView description) {
  const auto own = FirstOf(user.MaterialDefinition, description);
  if (own && own->KC) return own->KC;
  const auto record = FirstOf(factory.MaterialDefinition, description);
  return record ? record->KC : std::nullopt;
}

bool IsFactoryPair(const CuttingLists& lists, TextView material, TextView operation) {
  return CondicionesCorteParser::ExistMaterial(lists.MaterialesFabrica, material) &&
         CondicionesCorteParser::ExistOperationByDescription(lists.OperacionesFabrica, operation);
}

CT_Parametros MergeParametros(const std::optional<CT_Parametros>& factory, const std::optional<CT_Parametros>& user,
                              bool factoryPair) {
  const CT_Parametros own = user.value_or(CT_Parametros());
  CT_Parametros merged = factoryPair ? factory.value_or(CT_Parametros()) : own;
  merged.VelocidadCorte.Selected = own.VelocidadCorte.Selected;
  merged.AvancePorDiente.Selected = own.AvancePorDiente.Selected;
  merged.Profundidad.Selected = own.Profundidad.Selected;
  merged.PasadaRadial.Selected = own.PasadaRadial.Selected;
  merged.Observaciones = own.Observaciones;
  return merged;
}

CuttingResult<std::optional<CT_Parametros>> LoadPair(CondicionesCorteParser& parser, TextView factoryPath,
                                                     TextView userPath, const CuttingLists& lists, TextView material,
                                                     TextView operation) {
  if (!parser.CanAccess(factoryPath) || !parser.CanAccess(userPath)) return std::optional<CT_Parametros>();
  const auto factory = parser.GetCondicionesCorte(factoryPath, material, operation);
  if (!factory.Ok()) return factory.Error();
  const auto user = parser.GetCondicionesCorte(userPath, material, operation);
  if (!user.Ok()) return user.Error();
  return std::optional<CT_Parametros>(
      MergeParametros(factory.Value(), user.Value(), IsFactoryPair(lists, material, operation)));
}

}  // namespace pnl
