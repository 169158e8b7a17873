// SPDX-License-Identifier: MIT
#include "explorer/xplr_state.h"

#include <gtest/gtest.h>

#include "facade/sim/simulated_cnc.h"
#include "host/records.h"
#include "support/fake_places.h"
#include "support/fake_utilities.h"
#include "support/tool_stage.h"

namespace pnl::test {
namespace {

XPLRDATA_ST Request(TextView path, std::uint32_t flags = 0) {
  XPLRDATA_ST request{};
  request.Owner = 1006;
  SetField(request.Title, u"Save");
  SetField(request.Path, path);
  SetField(request.File, u"P1.NC");
  SetField(request.Filter, u"*.nc");
  SetField(request.Extension, u"nc");
  request.Flags = flags;
  return request;
}

TEST(XplrState, WithoutARequestItListsOnlyAndTheFileMustExist) {
  XplrState state = StartState(nullptr, u"Explorer");
  FakeUtilities utilities;
  FinishStart(state, utilities);
  EXPECT_EQ(state.Owner, -1);
  EXPECT_EQ(state.Flags, 0x1008u);
  EXPECT_TRUE(state.Title == u"Explorer");
  EXPECT_TRUE(state.Path == u"C:\\P101") << "the default start folder";
  EXPECT_TRUE(state.File.empty());
  EXPECT_TRUE(state.Filter == u"*");
  EXPECT_TRUE(state.DefaultExtension.empty());
  EXPECT_EQ(state.ResultFlags, 0u);
  EXPECT_EQ(state.Kind, NodeKind::kFolder);
  EXPECT_EQ(state.Layout, LayoutMode::kNone);
}

TEST(XplrState, ARequestGivesOwnerTitleFolderNameFilterExtensionAndFlags) {
  const XPLRDATA_ST request = Request(u"C:\\PRG", XPLR_CONFIRMOVERWRITE);
  const XplrState state = StartState(&request, u"Explorer");
  EXPECT_EQ(state.Owner, 1006);
  EXPECT_TRUE(state.Title == u"Save");
  EXPECT_TRUE(state.Path == u"C:\\PRG");
  EXPECT_TRUE(state.File == u"P1.NC");
  EXPECT_TRUE(state.Filter == u"*.nc");
  EXPECT_TRUE(state.DefaultExtension == u"nc");
  EXPECT_EQ(state.Flags, XPLR_CONFIRMOVERWRITE);
}

TEST(XplrState, AnEmptyTitleKeepsTheExplorersOwn) {
  XPLRDATA_ST request = Request(u"C:");
  SetField(request.Title, u"");
  EXPECT_TRUE(StartState(&request, u"Explorer").Title == u"Explorer");
}

TEST(XplrState, TheFolderLosesLeadingBlanksAndOneTrailingBackslash) {
  const std::pair<TextView, TextView> rows[] = {{u"  C:\\PRG\\", u"C:\\PRG"},
                                                {u"C:\\PRG\\\\", u"C:\\PRG\\"},
                                                {u"   ", u""},
                                                {u"C:\\PRG  ", u"C:\\PRG  "},
                                                {u"\\", u""}};
  for (const auto& [given, path] : rows) {
    const XPLRDATA_ST request = Request(given);
    EXPECT_TRUE(StartState(&request, u"").Path == path) << ToUtf8(given);
  }
}

TEST(XplrState, TheFilterLosesLeadingBlanksAndAnEmptyOneIsAllFiles) {
  XPLRDATA_ST request = Request(u"C:");
  SetField(request.Filter, u"  *.nc, *.txt ");
  EXPECT_TRUE(StartState(&request, u"").Filter == u"*.nc, *.txt ");
  SetField(request.Filter, u"   ");
  XplrState state = StartState(&request, u"");
  FakeUtilities utilities;
  FinishStart(state, utilities);
  EXPECT_TRUE(state.Filter == u"*");
}

TEST(XplrState, InFolderModeTheFilterIsFixedAndThereIsNoDefaultExtension) {
  const XPLRDATA_ST request = Request(u"C:", XPLR_FOLDERMODE);
  const XplrState state = StartState(&request, u"");
  EXPECT_TRUE(state.Filter == u"*.*");
  EXPECT_TRUE(state.DefaultExtension.empty());
}

TEST(XplrState, ARequestWhoseFieldsHaveNoTerminatorIsReadToTheirEnds) {
  XPLRDATA_ST request = Request(u"C:");
  std::fill(std::begin(request.Path), std::end(request.Path), u'x');
  std::fill(std::begin(request.Filter), std::end(request.Filter), u'y');
  const XplrState state = StartState(&request, u"");
  EXPECT_EQ(state.Path.size(), 260u);
  EXPECT_EQ(state.Filter.size(), 256u);
}

TEST(XplrState, TheCaptionHasTitleAndNameAndAtMost520Characters) {
  XplrState state;
  state.Title = u"Save";
  EXPECT_TRUE(state.Caption(u"P1") == u" Save = P1");
  EXPECT_TRUE(state.Caption(u"") == u" Save = ");
  EXPECT_EQ(state.Caption(Text(600, u'x')).size(), 520u);
  state.Title = u"%s%d";
  EXPECT_TRUE(state.Caption(u"%s") == u" %s%d = %s") << "a title is no format";
}

TEST(XplrState, OnlyDrivesFoldersAndConnectedSharesAreAcceptedPlaces) {
  const std::pair<NodeKind, bool> rows[] = {
      {NodeKind::kNone, false},     {NodeKind::kRemovable, true},   {NodeKind::kFixed, true},
      {NodeKind::kNetwork, true},   {NodeKind::kCd, false},         {NodeKind::kNetworkRoot, false},
      {NodeKind::kProvider, false}, {NodeKind::kDomain, false},     {NodeKind::kServer, false},
      {NodeKind::kFolder, true},    {NodeKind::kUnavailable, false}};
  for (const auto& [kind, accepted] : rows) EXPECT_EQ(IsAcceptedPlace(kind), accepted) << static_cast<int>(kind);
}

class DriveStates : public testing::Test {
 protected:
  DriveStates() {
    for (const char letter : {'C', 'D', 'E', 'Y', 'Z'}) places_.types[letter] = drive_type::kFixed;
    places_.hidden = DriveBit(u'D') | DriveBit(u'E');
    places_.locked = DriveBit(u'E') | DriveBit(u'Y');
  }
  Text Sanitized(TextView path, std::uint32_t flags) {
    XplrState state;
    state.Path = path;
    state.Flags = flags;
    SanitizeStartFolder(state, places_, utilities_);
    return state.Path;
  }
  FakePlaces places_;
  FakeUtilities utilities_;
};

TEST_F(DriveStates, ADrivesLetterTellsItsState) {
  struct {
    TextView path;
    DriveState state;
  } const rows[] = {{u"C:\\PRG", DriveState::kUsable},
                    {u"c:", DriveState::kUsable},
                    {u"D:\\X", DriveState::kHidden},
                    {u"e:\\X", DriveState::kHidden},
                    {u"Y:", DriveState::kLocked},
                    {u"F:\\X", DriveState::kAbsent},
                    {u"\\\\SRV\\S", DriveState::kNetworkPath},
                    {u"", DriveState::kNetworkPath},
                    {u"1:", DriveState::kAbsent},
                    {u"é:", DriveState::kAbsent}};
  for (const auto& row : rows) EXPECT_EQ(StateOfDrive(row.path, places_), row.state) << ToUtf8(row.path);
}

TEST_F(DriveStates, DriveZCountsAsAbsentAlthoughItIsThere) {
  EXPECT_EQ(StateOfDrive(u"Z:\\PRG", places_), DriveState::kAbsent);
  EXPECT_TRUE(Sanitized(u"Z:\\PRG", 0) == u"C:\\P100") << "so a start folder on it is replaced by the safe folder";
}

TEST_F(DriveStates, AStartFolderOnAnAbsentOrHiddenDriveIsReplacedByTheSafeFolder) {
  EXPECT_TRUE(Sanitized(u"F:\\X", 0) == u"C:\\P100");
  EXPECT_TRUE(Sanitized(u"D:\\X", 0) == u"C:\\P100");
  EXPECT_TRUE(Sanitized(u"C:\\GONE", 0) == u"C:\\GONE") << "only the drive is looked at";
  EXPECT_TRUE(Sanitized(u"\\\\SRV\\S", 0) == u"\\\\SRV\\S");
}

TEST_F(DriveStates, AStartFolderOnALockedDriveIsReplacedOnlyIfTheRequestHidesLockedDrives) {
  EXPECT_TRUE(Sanitized(u"Y:\\X", 0) == u"Y:\\X");
  EXPECT_TRUE(Sanitized(u"Y:\\X", XPLR_HIDELOCKED) == u"C:\\P100");
}

TEST(XplrRequest, TheVariableNamesTheRecordUntilItsOwnerWithdrawsIt) {
  SimGround ground;
  EXPECT_EQ(RequestNumber(ground.cnc.Vars()), 0) << "without the variable there is no request";
  ground.cnc.Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
  XPLRDATA_ST request = Request(u"C:");
  const std::int32_t number = PublishRecord(&request);
  ZCVariable variable(ground.cnc.Vars(), u"E.XPLRDATA");
  variable.WriteInt(number);
  EXPECT_EQ(RequestNumber(ground.cnc.Vars()), number);
  EXPECT_EQ(RequestOf(number), &request);
  WithdrawRecord(number);
  EXPECT_EQ(RequestOf(number), nullptr);
  EXPECT_EQ(RequestOf(0), nullptr);
}

TEST(XplrRequest, TheAnswerIsPathWithoutItsTrailingBackslashAndName) {
  XPLRDATA_ST request = Request(u"C:");
  AnswerRequest(request, u"C:\\PRG\\", u"P2.NC");
  EXPECT_TRUE(FieldText(request.Path) == u"C:\\PRG");
  EXPECT_TRUE(FieldText(request.File) == u"P2.NC");
  AnswerRequest(request, Text(300, u'x'), Text(300, u'y'));
  EXPECT_EQ(FieldText(request.Path).size(), 259u) << "cut to the field, with its terminator";
  EXPECT_EQ(FieldText(request.File).size(), 255u);
}

}  // namespace
}  // namespace pnl::test
