// SPDX-License-Identifier: MIT
// Numbers of the machining calculator: its controls, soft keys, texts and colours. An id of a control counts within its
// tab: the main tab and the operations table both have a 3058.
#pragma once

#include <cstdint>

#include "base/text.h"

namespace pnl {

/// The tabs, in the order of their soft keys.
enum class ZmcTab { kMain, kMaterials, kOperations };
inline constexpr ZmcTab kZmcTabs[] = {ZmcTab::kMain, ZmcTab::kMaterials, ZmcTab::kOperations};

/// Controls of the main tab, by their role.
namespace zmc_control {
inline constexpr int kTitle = 3027;
inline constexpr int kMaterialLabel = 3018;
inline constexpr int kMaterial = 3008;
inline constexpr int kOperationLabel = 3009;
inline constexpr int kOperation = 3010;
inline constexpr int kGrid = 3028;
inline constexpr int kRemarkCheck = 228;
inline constexpr int kRemarkLabel = 3014;
inline constexpr int kRemark = 3033;
inline constexpr int kToolCheck = 229;
inline constexpr int kToolLabel = 3011;
inline constexpr int kTool = 3012;
inline constexpr int kDiameterLabel = 3013;
inline constexpr int kPartLabel = 3024;
inline constexpr int kDiameter = 3029;
inline constexpr int kDiameterUnit = 3026;
inline constexpr int kTeethLabel = 3015;
inline constexpr int kTeeth = 3030;
inline constexpr int kTeethUnit = 3036;
inline constexpr int kPicture = 501;
inline constexpr int kM6Check = 230;
inline constexpr int kM6Label = 3023;
inline constexpr int kBandTitle = 3007;
inline constexpr int kFCheck = 225;
inline constexpr int kFLabel = 3020;
inline constexpr int kF = 3034;
inline constexpr int kFUnit = 3016;
inline constexpr int kSCheck = 226;
inline constexpr int kSLabel = 3021;
inline constexpr int kS = 3035;
inline constexpr int kSUnit = 3017;
inline constexpr int kLine = 3061;
inline constexpr int kPowerLabel = 3019;
inline constexpr int kPower = 3031;
inline constexpr int kPercent = 3025;
inline constexpr int kDmcCheck = 227;
inline constexpr int kDmcOffCheck = 231;
inline constexpr int kDmcLabel = 3022;
inline constexpr int kDmcText = 3038;
inline constexpr int kReasonOption = 3058;
inline constexpr int kReasonDrive = 3059;
inline constexpr int kReasonSpindle = 3062;
inline constexpr int kReasonTool = 3057;
inline constexpr int kBand = 503;
inline constexpr int kInnerBand = 504;
// Beyond the dialog: in the room that it leaves free.
inline constexpr int kFormula = 3101;
inline constexpr int kPowerBar = 3102;
// The tables.
inline constexpr int kMaterialsTitle = 3056;
inline constexpr int kMaterialsGrid = 3055;
inline constexpr int kOperationsTitle = 3060;
inline constexpr int kOperationsGrid = 3058;
}  // namespace zmc_control

namespace zmc_command {
inline constexpr int kMainTab = 32818;
inline constexpr int kMaterialsTab = 32819;
inline constexpr int kOperationsTab = 32820;
inline constexpr int kInsert = 32902;
inline constexpr int kCopy = 32777;
inline constexpr int kAddMaterial = 32779;
inline constexpr int kDeleteMaterials = 32781;
inline constexpr int kSaveMaterials = 32783;
inline constexpr int kAddOperation = 32785;
inline constexpr int kDeleteOperations = 32787;
inline constexpr int kSaveOperations = 32788;
inline constexpr int kCalculator = 32822;
}  // namespace zmc_command

namespace zmc_text {
inline constexpr int kBandTitle = 50;
inline constexpr int kPower = 51;
inline constexpr int kF = 52;
inline constexpr int kDmc = 54;
inline constexpr int kTitle = 55;
inline constexpr int kMaterial = 56;
inline constexpr int kOperation = 57;
inline constexpr int kTool = 58;
inline constexpr int kDiameter = 59;
inline constexpr int kTeeth = 60;
inline constexpr int kRemark = 61;
inline constexpr int kMinimum = 62;  // 62 to 64: the grid's columns
inline constexpr int kCuttingSpeed = 65;
inline constexpr int kFeedPerTooth = 66;
inline constexpr int kDepth = 67;
inline constexpr int kRadialPass = 68;
inline constexpr int kDescription = 69;
inline constexpr int kNormGermany = 70;
inline constexpr int kNormUne = 71;
inline constexpr int kNormAisi = 72;
inline constexpr int kCuttingForce = 73;
inline constexpr int kHidden = 74;
inline constexpr int kRevolutions = 85;
inline constexpr int kToolType = 88;
inline constexpr int kPartDiameter = 105;
inline constexpr int kOk = 266;
inline constexpr int kNo = 267;
inline constexpr int kYes = 277;
inline constexpr int kSaveMaterials = 268;
inline constexpr int kSaveOperations = 272;
inline constexpr int kRowsRefused = 270;
inline constexpr int kDeleteOne = 271;
inline constexpr int kDeleteMany = 283;
inline constexpr int kNoSuchTool = 275;
inline constexpr int kDamaged = 278;
inline constexpr int kFactoryRow = 281;
inline constexpr int kNoFactoryFile = 285;
}  // namespace zmc_text

/// Colours 0x00BBGGRR.
namespace zmc_color {
inline constexpr std::uint32_t kMessages[] = {0x2C8064, 0x648064, 0xA0};
inline constexpr std::uint32_t kNoMessage = 0x646E78;
inline constexpr std::uint32_t kLine = 0x808080;
inline constexpr std::uint32_t kBand = 0x646E78;
inline constexpr std::uint32_t kInnerBand = 0x838D97;
}  // namespace zmc_color

/// Names of the messages that the frame gets.
namespace zmc_message {
inline constexpr char kCancel[] = "ZMC_CANCELDLG";
inline constexpr char kShow[] = "ZMC_SHOWMSG";
inline constexpr char kReset[] = "ZMC_RESETMSG";
inline constexpr char kShowMenu[] = "ZMC_SHOWMENU";
inline constexpr char kUpdateMenu[] = "ZMC_UPDATEMENU";
}  // namespace zmc_message

inline constexpr TextView kFactoryFileName = u"CondicionesCorte.xml";
inline constexpr TextView kUserFileName = u"CondicionesCorteP.xml";
inline constexpr TextView kZmcHelpMark = u"OPT0330";

}  // namespace pnl
