// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_merge.h"

#include <algorithm>
#include <random>
#include <string>

#include "cutting_rig.h"
#include "support/failing_files.h"

namespace pnl {

void PrintTo(const MaterialRow& row, std::ostream* out) {
  *out << ToUtf8(TextOf(row.record->descripcion)) << " " << static_cast<int>(row.origin);
}

namespace test {
namespace {

constexpr CuttingOrder kByDate{0, true, true};
constexpr CuttingOrder kFactoryFirst{0, false, true};
constexpr CuttingOrder kAToZ{1, true, true};
constexpr CuttingOrder kZToA{1, true, false};
constexpr CuttingOrder kByType{2, true, true};
constexpr CuttingOrder kByTypeDown{2, true, false};

/// A row as text: the description, its date if it has one, and the files that have it.
template <typename Rows>
std::string Shown(const Rows& rows) {
  std::string shown;
  for (const auto& row : rows) {
    const char* const origin[] = {"F", "U", "B"};
    shown += (shown.empty() ? "" : ", ") + ToUtf8(TextOf(row.record->descripcion));
    if (row.record->Date) shown += "@" + ToUtf8(*row.record->Date);
    shown += std::string(":") + origin[static_cast<int>(row.origin)];
  }
  return shown;
}

CT_MaterialesDefinition Materials(std::vector<CT_MaterialDefinition> records) { return {std::move(records)}; }
CT_Operaciones Operations(std::vector<CT_Operacion> records) { return {std::move(records)}; }

std::string Merged(const CT_MaterialesDefinition& factory, const CT_MaterialesDefinition& user, CuttingOrder order,
                   HiddenRecords hidden = HiddenRecords::kSkip) {
  return Shown(MergeMaterials(factory, user, order, hidden));
}
std::string Merged(const CT_Operaciones& factory, const CT_Operaciones& user, CuttingOrder order,
                   HiddenRecords hidden = HiddenRecords::kSkip) {
  return Shown(MergeOperations(factory, user, order, hidden));
}

TEST(CuttingMerge, TheLastEditedComesFirstAndTheUndatedLast) {
  const auto user = Materials({Material(u"a", u"2024/01/01"), Material(u"none"), Material(u"b", u"2024/03/01"),
                               Material(u"c", u"2024/01/01"), Material(u"zero"), Material(u"d", u"2023/12/31")});
  EXPECT_EQ(Merged(Materials({}), user, kByDate),
            "b@2024/03/01:U, a@2024/01/01:U, c@2024/01/01:U, d@2023/12/31:U, none:U, zero:U");
}

TEST(CuttingMerge, DatesCompareAsPlainText) {
  const auto user = Materials(
      {Material(u"a", u"2024/1/9"), Material(u"b", u"2024/10/01"), Material(u"c", u"z"), Material(u"d", u"Z")});
  EXPECT_EQ(Merged(Materials({}), user, kByDate), "c@z:U, d@Z:U, b@2024/10/01:U, a@2024/1/9:U");
}

TEST(CuttingMerge, CustomRecordsComeBeforeTheFactorysOrBehind) {
  const auto factory = Materials({Material(u"f1"), Material(u"f2"), Material(u"f3")});
  const auto user = Materials({Material(u"own", u"1"), Material(u"f2", u"2"), Material(u"mine", u"3")});
  EXPECT_EQ(Merged(factory, user, kByDate), "mine@3:U, own@1:U, f2@2:B, f1:F, f3:F");
  EXPECT_EQ(Merged(factory, user, kFactoryFirst), "f2@2:B, f1:F, f3:F, mine@3:U, own@1:U");
}

TEST(CuttingMerge, AHiddenRecordHidesNoneThatDiffersInItsCase) {
  const auto factory = Materials({Material(u"Steel"), Material(u"STEEL")});
  EXPECT_EQ(Merged(factory, Materials({Material(u"Steel", u"1", true)}), kByDate), "STEEL:F");
  EXPECT_EQ(Merged(factory, Materials({}), kByDate), "Steel:F") << "of two the first is shown";
}

TEST(CuttingMerge, AUsersRecordReplacesTheFactorysAndHidesItInBothOrderings) {
  const auto factory = Materials({Material(u"Brass"), Material(u"Steel")});
  const auto changed = Materials({Material(u"Steel", u"1")});
  const auto hiding = Materials({Material(u"Steel", u"1", true)});
  for (const CuttingOrder& order : {kByDate, kFactoryFirst}) {
    EXPECT_EQ(Merged(factory, changed, order), "Steel@1:B, Brass:F");
    EXPECT_EQ(Merged(factory, hiding, order), "Brass:F");
  }
  EXPECT_EQ(Merged(factory, changed, kAToZ), "Brass:F, Steel@1:B");
  EXPECT_EQ(Merged(factory, hiding, kAToZ), "Brass:F");
  EXPECT_EQ(Merged(factory, hiding, kZToA), "Brass:F");
}

TEST(CuttingMerge, HiddenRecordsAreRowsOfTheTables) {
  const auto factory = Materials({Material(u"Brass"), Material(u"Steel")});
  const auto user = Materials({Material(u"Steel", u"1", true), Material(u"own", u"2", true)});
  EXPECT_EQ(Merged(factory, user, kByDate, HiddenRecords::kList), "own@2:U, Steel@1:B, Brass:F");
  EXPECT_EQ(Merged(factory, user, kFactoryFirst, HiddenRecords::kList), "Steel@1:B, Brass:F, own@2:U");
  EXPECT_EQ(Merged(factory, user, kAToZ, HiddenRecords::kList), "Brass:F, own@2:U, Steel@1:B");
}

TEST(CuttingMerge, AFactoryRecordsOwnMarkHidesOnlyInAlphabeticalLists) {
  const auto factory = Materials({Material(u"Brass", {}, true), Material(u"Steel")});
  EXPECT_EQ(Merged(factory, Materials({}), kByDate), "Brass:F, Steel:F");
  EXPECT_EQ(Merged(factory, Materials({}), kAToZ), "Steel:F");
  EXPECT_EQ(Merged(factory, Materials({}), kAToZ, HiddenRecords::kList), "Brass:F, Steel:F");
  const auto operations = Operations({Operation(u"Boring", u"1", u"", u"", true), Operation(u"Milling", u"2")});
  EXPECT_EQ(Merged(operations, Operations({}), kByDate), "Boring:F, Milling:F");
  EXPECT_EQ(Merged(operations, Operations({}), kByType), "Milling:F");
}

TEST(CuttingMerge, OfDescriptionsThatDifferInCaseTheUsersIsKept) {
  const auto factory = Materials({Material(u"STEEL")});
  const auto user = Materials({Material(u"Steel", u"1")});
  // By date the user's record is custom, since it isn't exactly the factory's, and then the list has the word already.
  EXPECT_EQ(Merged(factory, user, kByDate), "Steel@1:U");
  EXPECT_EQ(Merged(factory, user, kAToZ), "Steel@1:U");
  EXPECT_EQ(Merged(factory, user, kZToA), "Steel@1:U");
  // With the factory's first, the list doesn't have it yet, and custom records aren't searched for.
  EXPECT_EQ(Merged(factory, user, kFactoryFirst), "STEEL:F, Steel@1:U");
}

TEST(CuttingMerge, AHidingRecordOfAnotherCaseHidesInAlphabeticalListsAlone) {
  const auto factory = Materials({Material(u"STEEL")});
  const auto user = Materials({Material(u"Steel", u"1", true)});
  EXPECT_EQ(Merged(factory, user, kByDate), "STEEL:F");
  EXPECT_EQ(Merged(factory, user, kAToZ), "");
}

TEST(CuttingMerge, EqualDescriptionsOfOneFileAreRowsByDateAndOneRowByName) {
  const auto user = Materials({Material(u"a", u"1"), Material(u"a", u"2"), Material(u"A", u"3")});
  EXPECT_EQ(Merged(Materials({}), user, kByDate), "A@3:U, a@2:U, a@1:U");
  // Two of exactly the same name count as one that is in both files, whatever file they are in.
  EXPECT_EQ(Merged(Materials({}), user, kAToZ), "a@1:B");
  EXPECT_EQ(Merged(user, Materials({}), kByDate), "a@1:F");
  EXPECT_EQ(Merged(user, Materials({}), kAToZ), "a@1:B");
}

TEST(CuttingMerge, NamesSortByCodeWithoutRegardToCase) {
  const auto user = Materials({Material(u"b"), Material(u"_"), Material(u"\u00e9"), Material(u"B2"), Material(u"Z"),
                               Material(u"a1"), Material(u"A10"), Material(u"A 9"), Material(u"")});
  EXPECT_EQ(Merged(Materials({}), user, kAToZ), ":U, A 9:U, a1:U, A10:U, b:U, B2:U, Z:U, _:U, \xC3\xA9:U");
  EXPECT_EQ(Merged(Materials({}), user, kZToA), "\xC3\xA9:U, _:U, Z:U, B2:U, b:U, A10:U, a1:U, A 9:U, :U");
}

TEST(CuttingMerge, MaterialsTakeEveryOtherTypeAsAlphabeticalAndOperationsAsNothing) {
  const auto user = Materials({Material(u"a", u"1"), Material(u"b", u"2")});
  const auto operations = Operations({Operation(u"a", u"1", u"", u"1"), Operation(u"b", u"2", u"", u"2")});
  const struct {
    int type;
    const char* materials;
    const char* operations;
  } kRows[] = {
      {0, "b@2:U, a@1:U", "b@2:U, a@1:U"},
      {1, "a@1:U, b@2:U", "a@1:U, b@2:U"},
      {2, "a@1:U, b@2:U", "a@1:U, b@2:U"},
      {3, "a@1:U, b@2:U", ""},
      {-1, "a@1:U, b@2:U", ""},
      {2147483647, "a@1:U, b@2:U", ""},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Merged(Materials({}), user, {row.type, true, true}), row.materials) << row.type;
    EXPECT_EQ(Merged(Operations({}), operations, {row.type, true, true}), row.operations) << row.type;
    EXPECT_EQ(Merged(Operations({}), operations, {row.type, true, true}, HiddenRecords::kList), row.operations);
  }
}

TEST(CuttingMerge, AnOperationWithAnotherIdIsCustomButAMaterialIsNot) {
  const auto factory = Operations({Operation(u"Drilling", u"1"), Operation(u"Milling", u"2")});
  const auto user = Operations({Operation(u"Drilling", u"", u"", u"1"), Operation(u"Milling", u"2", u"", u"2")});
  // The factory's drilling isn't shown beside it all the same: the list has the word.
  EXPECT_EQ(Merged(factory, user, kByDate), "Drilling@1:U, Milling@2:B");
  EXPECT_EQ(Merged(factory, user, kFactoryFirst), "Milling@2:B, Drilling:F, Drilling@1:U");
  auto other = Material(u"Steel", u"1");
  other.id = u"1.0503##";
  EXPECT_EQ(Merged(Materials({Material(u"Steel")}), Materials({other}), kByDate), "Steel@1:B");
}

TEST(CuttingMerge, AnOperationWithoutDateLeavesTheFactorysAtItsPlace) {
  const auto factory = Operations({Operation(u"Boring", u"1"), Operation(u"Drilling", u"2")});
  const auto user = Operations({Operation(u"Boring", u"1"), Operation(u"own")});
  EXPECT_EQ(Merged(factory, user, kByDate), "own:U, Boring:F, Drilling:F");
  const auto dated = Operations({Operation(u"Drilling", u"2", u"", u"1"), Operation(u"Boring", u"1")});
  EXPECT_EQ(Merged(factory, dated, kByDate), "Drilling@1:B, Boring:F");
}

TEST(CuttingMerge, AHiddenOperationWithoutDateHidesAndIsARowOfTheTable) {
  const auto factory = Operations({Operation(u"Boring", u"1"), Operation(u"Drilling", u"2"), Operation(u"Milling")});
  const auto user = Operations({Operation(u"Drilling", u"2", u"", u"", true)});
  EXPECT_EQ(Merged(factory, user, kByDate), "Boring:F, Milling:F");
  EXPECT_EQ(Merged(factory, user, kByDate, HiddenRecords::kList), "Boring:F, Drilling:B, Milling:F");
  const auto rows = MergeOperations(factory, user, kByDate, HiddenRecords::kList);
  EXPECT_EQ(rows.at(1).record, user.Operacion.data());
}

TEST(CuttingMerge, TheNewestRecordOfADescriptionDecidesWhetherItIsHidden) {
  const auto factory = Operations({Operation(u"Boring", u"1")});
  const auto hidden = Operations({Operation(u"Boring", u"1"), Operation(u"Boring", u"9", u"", u"1", true)});
  EXPECT_EQ(Merged(factory, hidden, kByDate), "");
  const auto shown = Operations({Operation(u"Boring", u"1", u"", u"", true), Operation(u"Boring", u"9", u"", u"1")});
  EXPECT_EQ(Merged(factory, shown, kFactoryFirst), "Boring:F, Boring@1:U");
}

TEST(CuttingMerge, OperationsSortByToolTypeAndThenByDescriptionInOneSense) {
  const auto user =
      Operations({Operation(u"b", u"1", u"mill"), Operation(u"a", u"2", u"Mill"), Operation(u"z", u"3", u"Drill"),
                  Operation(u"y", u"4"), Operation(u"C", u"5", u"drill")});
  EXPECT_EQ(Merged(Operations({}), user, kByType), "y:U, C:U, z:U, a:U, b:U");
  EXPECT_EQ(Merged(Operations({}), user, kByTypeDown), "b:U, a:U, z:U, C:U, y:U");
}

TEST(CuttingMerge, ByToolTypeTheSameDescriptionWithAnotherTypeIsKept) {
  const auto factory = Operations({Operation(u"Boring", u"1", u"Drill"), Operation(u"Milling", u"2", u"Mill")});
  const auto user = Operations({Operation(u"Boring", u"1", u"Tap"), Operation(u"milling", u"2", u"MILL")});
  EXPECT_EQ(Merged(factory, user, kByType), "Boring:F, milling:U, Boring:B");
  EXPECT_EQ(Merged(factory, user, kAToZ), "Boring:B, milling:U");
}

TEST(CuttingMerge, ARowWithAUsersRecordPointsToIt) {
  const auto factory = Materials({Material(u"Steel", {}, false, u"1")});
  const auto user = Materials({Material(u"Steel", u"1", false, u"2")});
  for (const CuttingOrder& order : {kByDate, kAToZ}) {
    const auto rows = MergeMaterials(factory, user, order, HiddenRecords::kSkip);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].record->KC, u"2");
    EXPECT_EQ(rows[0].origin, CuttingOrigin::kBoth);
  }
}

TEST(CuttingMerge, ASelectionTakesTheFactorysRecordAndTheUsersForce) {
  const auto factory = Materials({Material(u"Steel", u"f", false, u"1"), Material(u"Brass", u"f", false, u"2")});
  const auto user = Materials({Material(u"Steel", u"u", false, u"3"), Material(u"Brass", u"u"),
                               Material(u"own", u"u", false, u"4"), Material(u"bare", u"u")});
  const struct {
    const char16_t* description;
    CuttingLeaf date;
    CuttingLeaf force;
  } kRows[] = {{u"Steel", u"f", u"3"},
               {u"Brass", u"f", u"2"},
               {u"own", u"u", u"4"},
               {u"bare", u"u", std::nullopt},
               {u"none", std::nullopt, std::nullopt},
               {u"steel", std::nullopt, std::nullopt}};
  for (const auto& row : kRows) {
    const auto selected = SelectedMaterial(factory, user, row.description);
    EXPECT_EQ(selected.has_value(), row.date.has_value()) << ToUtf8(row.description);
    EXPECT_EQ(selected.value_or(CT_MaterialDefinition()).Date, row.date);
    EXPECT_EQ(SelectedKC(factory, user, row.description), row.force) << ToUtf8(row.description);
  }
  const auto factoryOperations = Operations({Operation(u"a", u"f")});
  const auto userOperations = Operations({Operation(u"a", u"u"), Operation(u"b", u"u")});
  EXPECT_EQ(SelectedOperation(factoryOperations, userOperations, u"a")->id, u"f");
  EXPECT_EQ(SelectedOperation(factoryOperations, userOperations, u"b")->id, u"u");
  EXPECT_FALSE(SelectedOperation(factoryOperations, userOperations, u"c"));
}

CT_Parametros Block(const Text& mark) {
  const auto row = [&](const char16_t* name) {
    return CT_VelocidadCorte{mark + name + u"s", mark + name + u"min", mark + name + u"max"};
  };
  return {row(u"v"), row(u"f"), row(u"d"), row(u"r"), {mark + u"remark"}, {mark + u"quality"}};
}

TEST(CuttingMerge, APairOfTheFactoryHasItsLimitsAndTheUsersChoice) {
  const CT_Parametros expected{{u"Uvs", u"Fvmin", u"Fvmax"},
                               {u"Ufs", u"Ffmin", u"Ffmax"},
                               {u"Uds", u"Fdmin", u"Fdmax"},
                               {u"Urs", u"Frmin", u"Frmax"},
                               {u"Uremark"},
                               {u"Fquality"}};
  EXPECT_EQ(MergeParametros(Block(u"F"), Block(u"U"), true), expected);
  EXPECT_EQ(MergeParametros(Block(u"F"), Block(u"U"), false), Block(u"U"));
}

TEST(CuttingMerge, APairOfTheFactoryNeverHasTheUsersLimits) {
  const CT_Parametros expected{{u"Uvs", {}, {}}, {u"Ufs", {}, {}}, {u"Uds", {}, {}},
                               {u"Urs", {}, {}}, {u"Uremark"},     {}};
  EXPECT_EQ(MergeParametros(std::nullopt, Block(u"U"), true), expected);
}

TEST(CuttingMerge, TheFactorysChoiceIsNeverRead) {
  CT_Parametros limits = Block(u"F");
  for (auto* row : {&limits.VelocidadCorte, &limits.AvancePorDiente, &limits.Profundidad, &limits.PasadaRadial}) {
    row->Selected.reset();
  }
  limits.Observaciones = {};
  EXPECT_EQ(MergeParametros(Block(u"F"), std::nullopt, true), limits);
  EXPECT_EQ(MergeParametros(Block(u"F"), std::nullopt, false), CT_Parametros());
}

TEST(CuttingMerge, APairIsTheFactorysWhenBothNamesAreInItsLists) {
  CuttingLists lists;
  lists.MaterialesFabrica = Materials({Material(u"Steel")});
  lists.OperacionesFabrica = Operations({Operation(u"Drilling", u"1")});
  lists.MaterialesUsuario = Materials({Material(u"own")});
  lists.OperacionesUsuario = Operations({Operation(u"own")});
  EXPECT_TRUE(IsFactoryPair(lists, u"Steel", u"Drilling"));
  EXPECT_FALSE(IsFactoryPair(lists, u"own", u"Drilling"));
  EXPECT_FALSE(IsFactoryPair(lists, u"Steel", u"own"));
  EXPECT_FALSE(IsFactoryPair(lists, u"steel", u"Drilling"));
}

class CuttingPair : public CuttingRig {
 protected:
  static std::string Pair(const std::string& mark) {
    return CuttingFile("<MaterialDefinition><descripcion>Steel</descripcion></MaterialDefinition>",
                       "<Operacion><descripcion>Drilling</descripcion><Materiales><Parametros>"
                       "<Material>Steel</Material><Profundidad><Selected>" +
                           mark + "s</Selected><Min>" + mark +
                           "min</Min></Profundidad></Parametros></Materiales></Operacion>");
  }
  [[nodiscard]] CuttingResult<std::optional<CT_Parametros>> Load() {
    return LoadPair(parser, kFactoryPath, kUserPath, lists, u"Steel", u"Drilling");
  }
  CuttingLists lists;
};

TEST_F(CuttingPair, IsReadFromBothFiles) {
  PutFactory(Pair("F"));
  PutUser(Pair("U"));
  lists.MaterialesFabrica = parser.GetListaMateriales(kFactoryPath).Value();
  lists.OperacionesFabrica = parser.GetListaOperaciones(kFactoryPath).Value();
  EXPECT_EQ(Load().Value()->Profundidad, (CT_Profundidad{u"Us", u"Fmin", {}}));
  lists.OperacionesFabrica = {};
  EXPECT_EQ(Load().Value()->Profundidad, (CT_Profundidad{u"Us", u"Umin", {}}));
}

TEST_F(CuttingPair, ThatOnlyTheUserFileHoldsHasItsLimitsFromThere) {
  PutFactory(CuttingFile(""));
  PutUser(Pair("U"));
  EXPECT_EQ(Load().Value()->Profundidad, (CT_Profundidad{u"Us", u"Umin", {}}));
}

TEST_F(CuttingPair, IsNotLoadedWhenAFileIsMissing) {
  PutFactory(Pair("F"));
  EXPECT_TRUE(Load().Ok());
  EXPECT_FALSE(Load().Value());
  files.disc.clear();
  PutUser(Pair("U"));
  EXPECT_TRUE(Load().Ok());
  EXPECT_FALSE(Load().Value());
}

TEST_F(CuttingPair, OfADamagedFileIsAFailure) {
  PutFactory(Pair("F"));
  PutUser("<CondicionesCorte>");
  EXPECT_EQ(Load().Error(), CuttingError::kXmlEngine);
  PutUser(Pair("U"));
  PutFactory("");
  EXPECT_EQ(Load().Error(), CuttingError::kXmlEngine);
}

// A second implementation of the rules for comparison, slow and plain: it walks the lists from the front and inserts
// each record at its place.

template <typename Record>
struct Plain {
  std::vector<Record> factory;
  std::vector<Record> user;
  bool operations = false;
  bool listHidden = false;

  [[nodiscard]] static Text Name(const Record& record) { return Text(TextOf(record.descripcion)); }
  [[nodiscard]] static Text Type(const CT_MaterialDefinition&) { return {}; }
  [[nodiscard]] static Text Type(const CT_Operacion& record) { return Text(TextOf(record.ToolType)); }

  [[nodiscard]] bool InFactory(const Record& record) const {
    for (const Record& each : factory) {
      if (Name(each) == Name(record) && (!operations || TextOf(each.id) == TextOf(record.id))) return true;
    }
    return false;
  }

  [[nodiscard]] std::vector<const Record*> ByDate() const {
    std::vector<const Record*> sorted;
    for (const Record& each : user) {
      auto place = sorted.begin();
      while (place != sorted.end() && !(TextOf((*place)->Date) < TextOf(each.Date))) ++place;
      sorted.insert(place, &each);
    }
    return sorted;
  }

  [[nodiscard]] std::vector<CuttingRow<Record>> Dated(bool customFirst) const {
    std::vector<CuttingRow<Record>> rows;
    const auto sorted = ByDate();
    for (const bool custom : {customFirst, !customFirst}) {
      for (const Record* each : sorted) {
        if (InFactory(*each) == custom || (each->Oculto && !listHidden)) continue;
        if (!custom && operations && !each->Date) continue;
        rows.push_back({each, custom ? CuttingOrigin::kUser : CuttingOrigin::kBoth});
      }
      if (!custom) AddRest(sorted, rows);
    }
    return rows;
  }

  void AddRest(const std::vector<const Record*>& sorted, std::vector<CuttingRow<Record>>& rows) const {
    for (const Record& each : factory) {
      bool visible = false;
      for (const auto& row : rows) visible = visible || EqualNoCase(Name(*row.record), Name(each));
      if (visible) continue;
      const Record* own = nullptr;
      for (const Record* candidate : sorted) {
        if (own == nullptr && Name(*candidate) == Name(each)) own = candidate;
      }
      if (own == nullptr || !own->Oculto) {
        rows.push_back({&each, CuttingOrigin::kFactory});
      } else if (listHidden) {
        rows.push_back({own, CuttingOrigin::kBoth});
      }
    }
  }

  [[nodiscard]] std::vector<CuttingRow<Record>> Alphabetical(bool byType, bool aToZ) const {
    std::vector<CuttingRow<Record>> rows;
    const auto before = [&](const Record& a, const Record& b) {
      const int types = byType ? CompareNoCase(Type(a), Type(b)) : 0;
      const int order = types != 0 ? types : CompareNoCase(Name(a), Name(b));
      return aToZ ? order < 0 : order > 0;
    };
    const auto insert = [&](const Record& record, CuttingOrigin origin) {
      auto place = rows.begin();
      while (place != rows.end() && before(*place->record, record)) ++place;
      if (place != rows.end() && !before(record, *place->record)) {
        if (Name(*place->record) == Name(record)) place->origin = CuttingOrigin::kBoth;
      } else {
        rows.insert(place, {&record, origin});
      }
    };
    for (const Record& each : user) insert(each, CuttingOrigin::kUser);
    for (const Record& each : factory) insert(each, CuttingOrigin::kFactory);
    for (auto& row : rows) {
      if (row.origin != CuttingOrigin::kUser) continue;
      for (const Record& each : factory) {
        if (Name(each) == Name(*row.record)) row.origin = CuttingOrigin::kBoth;
      }
    }
    std::erase_if(rows, [&](const auto& row) { return row.record->Oculto && !listHidden; });
    return rows;
  }
};

class CuttingMergeProperty : public testing::TestWithParam<unsigned> {
 protected:
  template <typename Choices>
  auto OneOf(const Choices& choices) {
    return choices[random_() % choices.size()];
  }
  /// Few words, so that they meet: in one file, in two, in another case, and not at all.
  Text Word() {
    static const std::vector<Text> kWords = {u"", u"a", u"A", u"ab", u"AB", u"b", u"B", u"\u00e9", u"\u00c9", u"z"};
    Text word = OneOf(kWords);
    if (random_() % 3 == 0) word += static_cast<char16_t>(u'0' + random_() % 10);
    return word;
  }
  Text Date() {
    static const std::vector<Text> kDates = {u"", u"", u"2024/01/01", u"2024/01/02", u"2024/01/01 10:00:00", u"x"};
    return OneOf(kDates);
  }
  std::vector<CT_MaterialDefinition> RandomMaterials() {
    std::vector<CT_MaterialDefinition> records(random_() % 25);
    for (auto& each : records) each = Material(Word(), Date(), random_() % 4 == 0);
    return records;
  }
  std::vector<CT_Operacion> RandomOperations() {
    static const std::vector<Text> kTypes = {u"", u"Mill", u"mill", u"Drill"};
    static const std::vector<Text> kIds = {u"", u"1", u"2"};
    std::vector<CT_Operacion> records(random_() % 25);
    for (auto& each : records) each = Operation(Word(), OneOf(kIds), OneOf(kTypes), Date(), random_() % 4 == 0);
    return records;
  }
  std::mt19937 random_{GetParam()};
};

TEST_P(CuttingMergeProperty, MaterialsAreMergedAsThePlainWay) {
  for (int round = 0; round < 40; ++round) {
    const auto factory = Materials(RandomMaterials());
    const auto user = Materials(RandomMaterials());
    for (const HiddenRecords hidden : {HiddenRecords::kSkip, HiddenRecords::kList}) {
      const Plain<CT_MaterialDefinition> plain{factory.MaterialDefinition, user.MaterialDefinition, false,
                                               hidden == HiddenRecords::kList};
      for (const bool flag : {true, false}) {
        ASSERT_EQ(Shown(MergeMaterials(factory, user, {0, flag, true}, hidden)), Shown(plain.Dated(flag)));
        ASSERT_EQ(Shown(MergeMaterials(factory, user, {1, true, flag}, hidden)),
                  Shown(plain.Alphabetical(false, flag)));
      }
    }
  }
}

TEST_P(CuttingMergeProperty, OperationsAreMergedAsThePlainWay) {
  for (int round = 0; round < 40; ++round) {
    const auto factory = Operations(RandomOperations());
    const auto user = Operations(RandomOperations());
    for (const HiddenRecords hidden : {HiddenRecords::kSkip, HiddenRecords::kList}) {
      const Plain<CT_Operacion> plain{factory.Operacion, user.Operacion, true, hidden == HiddenRecords::kList};
      for (const bool flag : {true, false}) {
        ASSERT_EQ(Shown(MergeOperations(factory, user, {0, flag, true}, hidden)), Shown(plain.Dated(flag)));
        ASSERT_EQ(Shown(MergeOperations(factory, user, {1, true, flag}, hidden)),
                  Shown(plain.Alphabetical(false, flag)));
        ASSERT_EQ(Shown(MergeOperations(factory, user, {2, true, flag}, hidden)),
                  Shown(plain.Alphabetical(true, flag)));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CuttingMergeProperty, testing::Range(1u, 9u));

TEST(CuttingMerge, TwentyThousandRecordsTakeNoSquareOfTime) {
  CT_MaterialesDefinition factory;
  CT_MaterialesDefinition user;
  for (int i = 0; i < 20000; ++i) {
    const Text name = FromUtf8("m" + std::to_string(i * 7919 % 20000));
    factory.MaterialDefinition.push_back(Material(name));
    user.MaterialDefinition.push_back(Material(name + (i % 2 == 0 ? u"" : u"x"), name));
  }
  EXPECT_EQ(MergeMaterials(factory, user, kByDate, HiddenRecords::kSkip).size(), 30000u);
  EXPECT_EQ(MergeMaterials(factory, user, kAToZ, HiddenRecords::kSkip).size(), 30000u);
}

}  // namespace
}  // namespace test
}  // namespace pnl
