// SPDX-License-Identifier: MIT
// Loads and merges cutting data of 1.2 MB and 22 MB, in UTF-8 and in 16-bit characters, beside the bare parse of the
// same bytes by the XML library; asks for a pair; and updates a pair of a 1.2 MB user file until it is on the disc.
// With --brief only the small file.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "base/files.h"
#include "base/format.h"
#include "bench_folder.h"
#include "zmc/store/cutting_merge.h"
#include "zmc/store/cutting_parser.h"

namespace {

using pnl::CuttingError;
using pnl::Text;
using pnl::TextView;
using pnl::ToUtf8;

constexpr TextView kFactory = u"C:\\CondicionesCorte.xml";
constexpr TextView kUser = u"C:\\CondicionesCorteP.xml";

std::string Numbered(const char16_t* format, int number) { return ToUtf8(pnl::Format(format, number)); }

std::string MaterialText(int i) {
  return "\t\t<MaterialDefinition>\n\t\t\t<id>" + Numbered(u"%d", i) + "##</id>\n\t\t\t<descripcion>" +
         Numbered(u"Steel %d", i) + "</descripcion>\n\t\t\t<Norma>\n\t\t\t\t<AlemaniaW>" + Numbered(u"1.%04d", i) +
         "</AlemaniaW>\n\t\t\t\t<UNE>" + Numbered(u"F-%d", i) + "</UNE>\n\t\t\t</Norma>\n\t\t\t<KC>" +
         Numbered(u"%d", 1500 + i) + "</KC>\n\t\t\t<Date>" + Numbered(u"2024/05/06 07:%02d:00", i % 60) +
         "</Date>\n\t\t</MaterialDefinition>\n";
}

std::string RangeText(const char* name, int value) {
  return std::string("\t\t\t\t\t<") + name + ">\n\t\t\t\t\t\t<Selected>" + Numbered(u"%d0000", value) +
         "</Selected>\n\t\t\t\t\t\t<Min>" + Numbered(u"%d000", value) + "</Min>\n\t\t\t\t\t\t<Max>" +
         Numbered(u"%d00000", value) + "</Max>\n\t\t\t\t\t</" + name + ">\n";
}

std::string BlockText(int material) {
  return "\t\t\t<Materiales>\n\t\t\t\t<Parametros>\n\t\t\t\t\t<Material>" + Numbered(u"Steel %d", material) +
         "</Material>\n" + RangeText("VelocidadCorte", 10 + material) + RangeText("AvancePorDiente", 20 + material) +
         RangeText("Profundidad", 30 + material) + RangeText("PasadaRadial", 40 + material) +
         "\t\t\t\t\t<Observaciones>\n\t\t\t\t\t\t<Descripcion>with coolant</Descripcion>\n"
         "\t\t\t\t\t</Observaciones>\n\t\t\t\t</Parametros>\n\t\t\t</Materiales>\n";
}

/// A file of about so many bytes: as many operations as fit, each with a block for every material.
std::string MakeFile(std::size_t size, int materials) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CondicionesCorte>\n\t<MaterialesDefinition>\n";
  for (int i = 0; i < materials; ++i) text += MaterialText(i);
  text += "\t</MaterialesDefinition>\n\t<Operaciones>\n";
  for (int i = 0; text.size() < size; ++i) {
    text += "\t\t<Operacion>\n\t\t\t<id>" + Numbered(u"%d", i) + "</id>\n\t\t\t<descripcion>" +
            Numbered(u"Drilling %d", i) +
            "</descripcion>\n\t\t\t<Date>2024/05/06 07:08:09</Date>\n"
            "\t\t\t<ToolType>Drill</ToolType>\n";
    for (int material = 0; material < materials; ++material) text += BlockText(material);
    text += "\t\t</Operacion>\n";
  }
  return text + "\t</Operaciones>\n</CondicionesCorte>\n";
}

std::string Wide(const std::string& text) {
  std::string bytes("\xFF\xFE");
  for (const char16_t c : pnl::FromUtf8(text)) {
    bytes += static_cast<char>(c & 0xFF);
    bytes += static_cast<char>(c >> 8);
  }
  return bytes;
}

class Disc {
 public:
  Disc() { drives_.Set('C', folder_.Path()); }
  void Put(TextView path, const std::string& bytes) {
    if (files_.Replace(path, bytes) != pnl::FileStatus::kOk) std::abort();
  }
  pnl::DiscFiles& Files() { return files_; }

 private:
  BenchFolder folder_{0};
  pnl::DriveMap drives_;
  pnl::DiscFiles files_{drives_};
};

void BareParse(benchmark::State& state, const std::string& bytes) {
  for (auto _ : state) {
    pugi::xml_document document;
    if (!document.load_buffer(bytes.data(), bytes.size())) state.SkipWithError("not parsed");
    benchmark::DoNotOptimize(document.first_child());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) * state.iterations());
}

/// Reads and parses the file from the disc, makes the records of both lists and merges them with an empty user's.
void LoadAndMerge(benchmark::State& state, const std::string& bytes) {
  Disc disc;
  disc.Put(kFactory, bytes);
  for (auto _ : state) {
    pnl::CondicionesCorteParser store(disc.Files());
    const auto materials = store.GetListaMateriales(kFactory);
    const auto operations = store.GetListaOperaciones(kFactory);
    if (!materials.Ok() || !operations.Ok()) state.SkipWithError("not loaded");
    const auto materialRows = pnl::MergeMaterials(materials.Value(), {}, {}, pnl::HiddenRecords::kSkip);
    const auto operationRows = pnl::MergeOperations(operations.Value(), {}, {}, pnl::HiddenRecords::kSkip);
    benchmark::DoNotOptimize(materialRows.data());
    benchmark::DoNotOptimize(operationRows.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) * state.iterations());
}

void AskForAPair(benchmark::State& state, const std::string& bytes) {
  Disc disc;
  disc.Put(kFactory, bytes);
  pnl::CondicionesCorteParser store(disc.Files());
  for (auto _ : state) {
    const auto block = store.GetCondicionesCorte(kFactory, u"Steel 29", u"Drilling 5");
    if (!block.Ok() || !block.Value()) state.SkipWithError("not found");
  }
}

void UpdateAPair(benchmark::State& state, const std::string& bytes) {
  Disc disc;
  disc.Put(kUser, bytes);
  pnl::CT_Operacion operation;
  operation.descripcion = u"Drilling 5";
  pnl::CT_MaterialDefinition material;
  material.descripcion = u"Steel 29";
  double value = 0;
  for (auto _ : state) {
    // Knows nothing of the file, as after a change by somebody else.
    pnl::CondicionesCorteParser fresh(disc.Files());
    if (fresh.UpdateCondicionesCorteParam(kUser, operation, material, 2, ++value, {}) != CuttingError::kNone) {
      state.SkipWithError("not stored");
    }
  }
}

bool brief = false;

void Register(const std::string& name, void (*run)(benchmark::State&, const std::string&), const std::string& bytes) {
  benchmark::RegisterBenchmark(name.c_str(), [run, &bytes](auto& state) { run(state, bytes); })
      ->Unit(benchmark::kMillisecond)
      ->MeasureProcessCPUTime()
      ->MinTime(brief ? 0.001 : 0.5);
}

/// Ours beside the bare parse.
void RegisterLoad(const std::string& name, const std::string& bytes) {
  Register("BareParse/" + name, BareParse, bytes);
  Register("LoadAndMerge/" + name, LoadAndMerge, bytes);
}

}  // namespace

int main(int argc, char** argv) {
  brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc;
  // Memory stays with the process, so that no side pays for getting it from the system again in every round.
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  const std::string small = MakeFile(1'200'000, 40);
  const std::string smallWide = Wide(small);
  const std::string large = brief ? std::string() : MakeFile(22'000'000, 150);
  const std::string largeWide = Wide(large);
  RegisterLoad("1.2MB", small);
  RegisterLoad("1.2MB_in_16_bit", smallWide);
  if (!brief) {
    RegisterLoad("22MB", large);
    RegisterLoad("22MB_in_16_bit", largeWide);
  }
  Register("AskForAPair/1.2MB", AskForAPair, small);
  Register("UpdateAPair/1.2MB", UpdateAPair, small);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
