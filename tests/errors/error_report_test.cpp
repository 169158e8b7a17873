// SPDX-License-Identifier: MIT
// What a report of the primary error does, for every class, setting, wish of the host and help that opens by itself.
#include "errors/error_rig.h"

namespace pnl::test {
namespace {

/// What the host hears, one letter each: O HostToolOpening, C HostToolClosed, G HostErrorsGone, H HostShowError,
/// P the count posted, Z a count of zero posted.
std::string Heard(const Log& log) {
  std::string heard;
  for (const std::string& line : log) {
    const auto is = [&line](const char* start) { return line.rfind(start, 0) == 0; };
    if (is("HostToolOpening")) heard += 'O';
    if (is("HostToolClosed")) heard += 'C';
    if (is("HostErrorsGone")) heard += 'G';
    if (is("HostShowError")) heard += 'H';
    if (is("ZM_UPDATE_NERRORS")) heard += line.find("count 0") == std::string::npos ? 'P' : 'Z';
  }
  return heard;
}

enum class Hides { kNothing, kWarnings, kErrors };
enum class Kind { kWarning, kError, kFatal };

struct ReportCase {
  Kind kind;
  Hides hides;
  bool suppressed;
  bool blocked;
  // From Idle and from Quiet; then both again where the error opens its help.
  const char* idle;
  const char* quiet;
  const char* idleHelp;
  const char* quietHelp;
};

constexpr auto kW = Kind::kWarning;
constexpr auto kE = Kind::kError;
constexpr auto kF = Kind::kFatal;

// clang-format off
constexpr ReportCase kCases[] = {
    // A fatal error that comes back while the window is away stays away only where the host suppresses or blocks it.
    {kW, Hides::kNothing,  false, false, "O",  "ZGO", "OCPH", "PH"},
    {kW, Hides::kNothing,  true,  false, "P",  "P",   "PH",   "PH"},
    {kW, Hides::kNothing,  false, true,  "P",  "P",   "PH",   "PH"},
    {kW, Hides::kNothing,  true,  true,  "P",  "P",   "PH",   "PH"},
    {kW, Hides::kWarnings, false, false, "CP", "CP",  "PH",   "PH"},
    {kW, Hides::kWarnings, true,  false, "P",  "P",   "PH",   "PH"},
    {kW, Hides::kWarnings, false, true,  "CP", "CP",  "PH",   "PH"},
    {kW, Hides::kWarnings, true,  true,  "P",  "P",   "PH",   "PH"},
    {kW, Hides::kErrors,   false, false, "P",  "P",   "PH",   "PH"},
    {kW, Hides::kErrors,   true,  false, "P",  "P",   "PH",   "PH"},
    {kW, Hides::kErrors,   false, true,  "P",  "P",   "PH",   "PH"},
    {kW, Hides::kErrors,   true,  true,  "P",  "P",   "PH",   "PH"},
    {kE, Hides::kNothing,  false, false, "O",  "ZGO", "OCPH", "PH"},
    {kE, Hides::kNothing,  true,  false, "P",  "P",   "PH",   "PH"},
    {kE, Hides::kNothing,  false, true,  "P",  "P",   "PH",   "PH"},
    {kE, Hides::kNothing,  true,  true,  "P",  "P",   "PH",   "PH"},
    {kE, Hides::kWarnings, false, false, "O",  "ZGO", "OCPH", "PH"},
    {kE, Hides::kWarnings, true,  false, "P",  "P",   "PH",   "PH"},
    {kE, Hides::kWarnings, false, true,  "P",  "P",   "PH",   "PH"},
    {kE, Hides::kWarnings, true,  true,  "P",  "P",   "PH",   "PH"},
    {kE, Hides::kErrors,   false, false, "P",  "P",   "PH",   "PH"},
    {kE, Hides::kErrors,   true,  false, "P",  "P",   "PH",   "PH"},
    {kE, Hides::kErrors,   false, true,  "P",  "P",   "PH",   "PH"},
    {kE, Hides::kErrors,   true,  true,  "P",  "P",   "PH",   "PH"},
    {kF, Hides::kNothing,  false, false, "O",  "ZGO", "OCPH", "PH"},
    {kF, Hides::kNothing,  true,  false, "O",  "P",   "OCPH", "PH"},
    {kF, Hides::kNothing,  false, true,  "P",  "P",   "PH",   "PH"},
    {kF, Hides::kNothing,  true,  true,  "P",  "P",   "PH",   "PH"},
    {kF, Hides::kWarnings, false, false, "O",  "ZGO", "OCPH", "PH"},
    {kF, Hides::kWarnings, true,  false, "O",  "P",   "OCPH", "PH"},
    {kF, Hides::kWarnings, false, true,  "P",  "P",   "PH",   "PH"},
    {kF, Hides::kWarnings, true,  true,  "P",  "P",   "PH",   "PH"},
    {kF, Hides::kErrors,   false, false, "O",  "ZGO", "OCPH", "PH"},
    {kF, Hides::kErrors,   true,  false, "O",  "P",   "OCPH", "PH"},
    {kF, Hides::kErrors,   false, true,  "P",  "P",   "PH",   "PH"},
    {kF, Hides::kErrors,   true,  true,  "P",  "P",   "PH",   "PH"},
};
// clang-format on

class ErrorReport : public ErrorToolTest {
 protected:
  void Report() {
    const ZCVariable priority(cnc.Vars(), u"E.ERRORPRI");
    std::intptr_t first = 0;
    while (!priority.HandleReport(first, 0)) ++first;
    Tell([first](ErrorSession& session) { session.OnReport(first, 0); });
  }
  /// The tool with one error in the queue of which it hasn't heard yet.
  void Prepare(const ReportCase& row, RecordBuilder record, bool help) {
    const char* const inis[] = {"", "[PRIVATE]\r\nHideWarnings=TRUE\r\n", "[PRIVATE]\r\nHideErrors=TRUE\r\n"};
    cnc.ClearErrors();
    windows.posted.clear();
    Ini() = inis[static_cast<int>(row.hides)];
    MakeTool();
    Notify(1, row.suppressed ? 1 : 0);
    Notify(79, row.blocked ? 1 : 0);
    cnc.ErrorText("error_to_txt", 1000, u"|fault", help ? u"C:\\H.TXT#1" : u"", help);
    cnc.ErrorText("error_to_txt", 3753, u"|fault", help ? u"C:\\H.TXT#1" : u"", help);
    const ErrorRecord& built = record;
    PushRecord(cnc, built);
    windows.posted.clear();
    All();
  }
};

TEST_F(ErrorReport, DoesWhatClassSettingsAndHostSay) {
  const std::vector<RecordBuilder> records[] = {
      {RecordBuilder().Severity(0), RecordBuilder().Severity(0).Marked()},
      {RecordBuilder(), RecordBuilder().Marked(), RecordBuilder().Severity(7).Marked()},
      {RecordBuilder().Severity(7), RecordBuilder().Number(3753)},
  };
  for (const ReportCase& row : kCases) {
    for (const RecordBuilder& record : records[static_cast<int>(row.kind)]) {
      for (const bool help : {false, true}) {
        SCOPED_TRACE(testing::Message() << "class " << static_cast<int>(ClassifyError(record)) << " hides "
                                        << static_cast<int>(row.hides) << " suppressed " << row.suppressed
                                        << " blocked " << row.blocked << " help " << help);
        Prepare(row, record, help);
        Report();
        EXPECT_EQ(Heard(All()), help ? row.idleHelp : row.idle);
        EXPECT_TRUE(tool->IsActive());
        EXPECT_EQ(view->visible, std::string(help ? row.idleHelp : row.idle) == "O");
        if (view->visible) tool->OnHotKey();
        All();
        Report();
        EXPECT_EQ(Heard(All()), help ? row.quietHelp : row.quiet) << "from Quiet";
      }
    }
  }
}

// A reference alone doesn't open the help, and neither does the wish for it without one.
TEST_F(ErrorReport, OpensHelpByItselfOnlyWithBothWishAndReference) {
  for (const auto& [reference, wish, heard] :
       {std::tuple(u"C:\\H.TXT#1", false, "O"), {u"", true, "O"}, {u"C:\\H.TXT#1", true, "OCPH"}}) {
    Prepare(kCases[12], RecordBuilder(), false);
    cnc.ErrorText("error_to_txt", 1000, u"|fault", reference, wish);
    Report();
    EXPECT_EQ(Heard(All()), heard);
  }
}

}  // namespace
}  // namespace pnl::test
