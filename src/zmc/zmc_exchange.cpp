// SPDX-License-Identifier: MIT
#include "zmc/zmc_exchange.h"

#include <ctime>
#include <utility>

#include "base/format.h"
#include "facade/utilities.h"
#include "host/records.h"
#include "host/storage_messages.h"
#include "zmc/logic/zmc_fields.h"
#include "zmc/zmc_tables.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_MACHINING_CALCULATOR;
constexpr int kOwnerBase = 1000;
constexpr TextView kProposedName = u"materials.csv";
constexpr std::string_view kMark = "\xEF\xBB\xBF";  // by which a spreadsheet knows the encoding
constexpr std::uint64_t kLargestTable = 16u << 20;
constexpr std::size_t kMostLines = 200;

namespace exchange_text {
constexpr int kExport = 7101;
constexpr int kImport = 7102;
constexpr int kExported = 7103;
constexpr int kFaults = 7105;
constexpr int kNothingNew = 7106;
constexpr int kQuestion = 7107;
constexpr int kImported = 7108;
constexpr int kUnreadable = 7109;
constexpr int kFirstFault = 7110;
constexpr int kNewMaterial = 7120;
constexpr int kNewOperation = 7121;
constexpr int kMaterial = 7122;
constexpr int kOperation = 7123;
constexpr int kFieldChanged = 7124;
constexpr int kFieldIs = 7125;
constexpr int kHidden = 7126;
constexpr int kShown = 7127;
constexpr int kNone = 7128;
constexpr int kChanges = 7130;
constexpr int kNoChanges = 7131;
constexpr int kPair = 7132;
}  // namespace exchange_text

struct FieldRow {
  CuttingField field;
  int text;
};
constexpr FieldRow kFields[] = {
    {CuttingField::kNormGermany, zmc_text::kNormGermany}, {CuttingField::kNormUne, zmc_text::kNormUne},
    {CuttingField::kNormAisi, zmc_text::kNormAisi},       {CuttingField::kForce, zmc_text::kCuttingForce},
    {CuttingField::kToolType, zmc_text::kToolType},
};

int TextOfField(CuttingField field) {
  for (const FieldRow& row : kFields) {
    if (row.field == field) return row.text;
  }
  return zmc_text::kHidden;
}

/// The lines under their heading; of very many the first ones and how many there are.
class Lines {
 public:
  explicit Lines(Text heading) : text_(std::move(heading)) {}
  void Add(const Text& line) {
    if (++count_ <= kMostLines) text_.append(u"\n").append(line);
  }
  [[nodiscard]] Text All() const {
    return count_ > kMostLines ? text_ + Format(u"\n... (%d)", static_cast<int>(count_)) : text_;
  }

 private:
  Text text_;
  std::size_t count_ = 0;
};

}  // namespace

ZmcExchange::ZmcExchange(ZmcDesk& desk, std::function<void()> reload) : desk_(desk), reload_(std::move(reload)) {
  request_.Owner = kOwnerBase + kTool;
}

ZmcExchange::~ZmcExchange() { WithdrawRecord(PublishRecord(&request_)); }

// The file.

void ZmcExchange::Request(Kind kind) {
  waiting_ = kind;
  const bool out = kind == Kind::kExport;
  SetField(request_.Title, desk_.LoadText(out ? exchange_text::kExport : exchange_text::kImport));
  SetField(request_.Path, desk_.Context().cnc.Util().Get7340Path(path_id::kUserCuttingData));
  SetField(request_.File, out ? kProposedName : TextView());
  SetField(request_.Filter, u"*.csv");
  SetField(request_.Extension, u"csv");
  request_.Flags = out ? XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY : XPLR_MUSTEXIST;
  desk_.Host().HostExplorerRequest(request_);
}

void ZmcExchange::OnExplorerEnded(bool accepted) {
  const Kind kind = std::exchange(waiting_, Kind::kNone);
  if (kind == Kind::kNone || !accepted) return;
  const Text name = FieldText(request_.File);
  const Text path = JoinPath(FieldText(request_.Path), name);
  if (kind == Kind::kExport) {
    ExportTo(path);
  } else {
    ImportFrom(path, name);
  }
}

void ZmcExchange::ExportTo(const Text& path) {
  const CuttingRecords records = UserRecords();
  const std::string bytes = std::string(kMark) + ToUtf8(WriteCuttingCsv(records));
  if (desk_.Context().files.Replace(path, bytes) != FileStatus::kOk) {
    return ShowNotSaved(desk_.Context(), kTool, {Text(FileNameOf(path))});
  }
  desk_.ShowMessage(0, Format(desk_.LoadText(exchange_text::kExported), path,
                              static_cast<int>(records.materials.size()), static_cast<int>(records.operations.size())));
}

void ZmcExchange::ImportFrom(const Text& path, const Text& name) {
  const auto bytes = ReadWhole(desk_.Context().files, path, kLargestTable);
  if (!bytes) return ShowText(Format(desk_.LoadText(exchange_text::kUnreadable), name));
  CsvReading reading = ReadCuttingCsv(DecodeFile(*bytes));
  if (!reading.faults.empty()) {
    Lines lines(Format(desk_.LoadText(exchange_text::kFaults), name));
    for (const CsvFaultAt& fault : reading.faults) lines.Add(FaultText(fault));
    return ShowText(lines.All());
  }
  const std::vector<CuttingChange> changes = CompareCutting(UserRecords(), reading.records);
  if (changes.empty()) return ShowText(Format(desk_.LoadText(exchange_text::kNothingNew), name));
  Lines lines(desk_.LoadText(exchange_text::kQuestion));
  for (const CuttingChange& change : changes) lines.Add(ChangeText(change));
  if (desk_.AskText(lines.All())) Store(std::move(reading.records));
}

/// A record of the factory's that isn't in the user's file yet keeps the factory's id, as when a table saves it.
void ZmcExchange::Store(CuttingRecords records) {
  const CuttingLists& lists = desk_.data.Lists();
  for (CT_MaterialDefinition& record : records.materials) {
    if (!record.Date) record.Date = CuttingDate(std::time(nullptr));
  }
  for (CT_Operacion& record : records.operations) {
    if (!record.Date) record.Date = CuttingDate(std::time(nullptr));
    record.id =
        CondicionesCorteParser::GetOperationByDescription(lists.OperacionesFabrica, TextOf(record.descripcion)).id;
  }
  if (!desk_.CheckStored(desk_.data.Store().UpdateRecords(desk_.data.UserPath(), records))) return;
  reload_();
  desk_.ShowMessage(0, Format(desk_.LoadText(exchange_text::kImported),
                              static_cast<int>(records.materials.size() + records.operations.size())));
}

void ZmcExchange::ShowText(Text text) const { desk_.ShowText(std::move(text)); }

// What the user's data change.

void ZmcExchange::ShowChanges() {
  Lines lines(desk_.LoadText(exchange_text::kChanges));
  const std::vector<CuttingChange> changes = CompareCutting(FactoryRecords(), UserRecords());
  for (const CuttingChange& change : changes) lines.Add(ChangeText(change));
  const auto pairs = desk_.data.Store().GetPairs(desk_.data.UserPath());
  if (!desk_.CheckRead(pairs.Error())) return;
  for (const CuttingPair& pair : pairs.Value()) lines.Add(PairText(pair));
  const bool none = changes.empty() && pairs.Value().empty();
  ShowText(none ? desk_.LoadText(exchange_text::kNoChanges) : lines.All());
}

CuttingRecords ZmcExchange::UserRecords() const {
  const CuttingLists& lists = desk_.data.Lists();
  return {lists.MaterialesUsuario.MaterialDefinition, lists.OperacionesUsuario.Operacion};
}

CuttingRecords ZmcExchange::FactoryRecords() const {
  const CuttingLists& lists = desk_.data.Lists();
  return {lists.MaterialesFabrica.MaterialDefinition, lists.OperacionesFabrica.Operacion};
}

// Words.

Text ZmcExchange::FaultText(const CsvFaultAt& fault) const {
  return Format(desk_.LoadText(exchange_text::kFirstFault + static_cast<int>(fault.fault)), fault.line, fault.value);
}

Text ZmcExchange::ChangeText(const CuttingChange& change) const {
  const int newText = change.material ? exchange_text::kNewMaterial : exchange_text::kNewOperation;
  const int oldText = change.material ? exchange_text::kMaterial : exchange_text::kOperation;
  Text text = Format(desk_.LoadText(change.added ? newText : oldText), change.description);
  const Text none = desk_.LoadText(exchange_text::kNone);
  for (std::size_t at = 0; at < change.fields.size(); ++at) {
    const CuttingFieldChange& field = change.fields[at];
    text += at != 0 || change.added ? u", " : u" ";
    if (field.field == CuttingField::kHidden) {
      text += desk_.LoadText(field.after.empty() ? exchange_text::kShown : exchange_text::kHidden);
      continue;
    }
    const Text name = desk_.LoadText(TextOfField(field.field));
    const Text& after = field.after.empty() ? none : field.after;
    text += change.added ? Format(desk_.LoadText(exchange_text::kFieldIs), name, after)
                         : Format(desk_.LoadText(exchange_text::kFieldChanged), name,
                                  field.before.empty() ? none : field.before, after);
  }
  return text;
}

/// The values that the user has selected, as the screen shows them, and the remark.
Text ZmcExchange::PairText(const CuttingPair& pair) const {
  struct {
    int text;
    int parameter;
    const CuttingLeaf& leaf;
  } const values[] = {{zmc_text::kCuttingSpeed, 2, pair.block.VelocidadCorte.Selected},
                      {zmc_text::kFeedPerTooth, 5, pair.block.AvancePorDiente.Selected},
                      {zmc_text::kDepth, 8, pair.block.Profundidad.Selected},
                      {zmc_text::kRadialPass, 11, pair.block.PasadaRadial.Selected}};
  Text text = Format(desk_.LoadText(exchange_text::kPair), pair.material, pair.operation);
  for (const auto& value : values) {
    if (!value.leaf) continue;
    const double shown = ZmcToScreen(desk_.machine.units, value.parameter, DecimalOf(*value.leaf));
    text += text.back() == u':' ? u" " : u", ";
    text += Format(desk_.LoadText(exchange_text::kFieldIs), desk_.LoadText(value.text), Format(u"%g", shown));
  }
  if (const TextView remark = TextOf(pair.block.Observaciones.Descripcion); !remark.empty()) {
    text.append(text.back() == u':' ? u" " : u", ").append(remark);
  }
  return text;
}

}  // namespace pnl
