// SPDX-License-Identifier: MIT
// The panel's utilities as a seam: paths, error texts, drives, clipboard, screen facts. What needs no machine behind it
// (colours and rectangles as text, text fields, menus) is free functions here. Ini and text files are in base.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"
#include "facade/error_record.h"
#include "window/menu.h"
#include "window/window.h"

namespace pnl {

/// Folders of the panel by number, with the numbers that the tools use.
namespace path_id {
inline constexpr int kCalcHistory = 1;
inline constexpr int kLanguage = 15;
inline constexpr int kHelpFallback = 18;
inline constexpr int kCuttingData = 24;
inline constexpr int kSetup = 52;
inline constexpr int kHelpThird = 57;
inline constexpr int kPlcFiles = 61;
inline constexpr int kExplorerSafe = 100;
inline constexpr int kExplorerStart = 101;
inline constexpr int kUserSettings = 108;
inline constexpr int kHelpLanguage = 113;
inline constexpr int kUserCuttingData = 118;
inline constexpr int kAll[] = {1, 15, 18, 24, 52, 57, 61, 100, 101, 108, 113, 118};
}  // namespace path_id

/// The error text functions, each by its own name.
enum class ErrorTextFunction {
  kErrorToTxt,           // error_to_txt
  kErrorCs,              // error_CS_to_txt
  kWarningCs,            // warning_CS_to_txt
  kErrorDrive,           // error_drive_to_txt
  kWarningDrive,         // warning_drive_to_txt
  kErrorUnknownDrive,    // error_unknown_drive_to_txt
  kWarningUnknownDrive,  // warning_unknown_drive_to_txt
  kErrorMlink,           // error_mlink_to_txt
  kEmcyCopen,            // emcy_Copen_to_txt
  kReadPlcError,         // ReadPLCError
};
inline constexpr ErrorTextFunction kErrorTextFunctions[] = {
    ErrorTextFunction::kErrorToTxt,          ErrorTextFunction::kErrorCs,      ErrorTextFunction::kWarningCs,
    ErrorTextFunction::kErrorDrive,          ErrorTextFunction::kWarningDrive, ErrorTextFunction::kErrorUnknownDrive,
    ErrorTextFunction::kWarningUnknownDrive, ErrorTextFunction::kErrorMlink,   ErrorTextFunction::kEmcyCopen,
    ErrorTextFunction::kReadPlcError};
/// The function's own name, as in the enumeration's comments.
[[nodiscard]] const char* ErrorTextFunctionName(ErrorTextFunction function);

/// A reference to a long description: "file#number".
struct HelpReference {
  Text file;
  std::int32_t number = 0;
};
/// As "%[^#]#%d" reads it: white space and a sign may stand before the digits, anything behind them. Nothing when one
/// of the two is missing.
[[nodiscard]] std::optional<HelpReference> ParseHelpReference(TextView text);

class Utilities {
 public:
  virtual ~Utilities() = default;
  /// The folder of a path id without trailing backslash; empty for an id that isn't in use.
  [[nodiscard]] virtual Text Get7340Path(int id) = 0;
  /// Fills info; the result isn't looked at by any tool. An unknown number leaves info zeroed.
  virtual int ErrorText(ErrorTextFunction function, std::int32_t number, Z7340ERRORINFO_ST& info) = 0;
  /// The long description with that number in that file; true when it was found.
  virtual bool desc_to_txt(std::int32_t number, Text& text, TextView file) = 0;
  /// 0: the drive can be used; -1: it cannot be written; other values: it isn't ready.
  virtual int UTIL7340_DriveStatus(int drive) = 0;
  virtual void UTIL7340_CopyToClipboard_Text(WindowHandle window, TextView text) = 0;
  /// Gives the help mark for a block. Returns 0 and sets mark when the block has a mark of its own; else mark stays.
  virtual int Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) = 0;
  [[nodiscard]] virtual Rect UTIL7340_GetCNCRect() = 0;
  [[nodiscard]] virtual bool UTIL7340_AreSoftkeyMetricsStandard() = 0;
  /// A font height for the panel's present size, from one meant for 800 by 600.
  [[nodiscard]] virtual int UTIL7340_FitFontSize(int height) = 0;
  [[nodiscard]] virtual int UTIL7340_FitHeight(int height) = 0;
  [[nodiscard]] virtual bool UTIL7340_Is7335() = 0;
};

/// Three decimal numbers, "60 100 120", as a colour 0x00BBGGRR; missing ones are 0, others are taken modulo 256.
[[nodiscard]] std::uint32_t AsciiToColorref(TextView text);
/// "left,top,right,bottom"; missing numbers are 0.
[[nodiscard]] Rect AsciiToCRect(TextView text);
[[nodiscard]] Text CRectToAscii(const Rect& rect);
/// Take the part before the separator off the front of the text; without a separator the whole text.
[[nodiscard]] Text GetData(Text& text, char16_t separator);
[[nodiscard]] std::int32_t GetIntData(Text& text, char16_t separator);

/// Menu operations; byPosition tells whether id is an index in the menu itself. What isn't there is left alone.
void UTIL7340_SetMenuItemBitmap(MenuTable& menus, MenuHandle menu, int id, bool byPosition, int bitmap);
void UTIL7340_SetMenuItemHelper(MenuTable& menus, MenuHandle menu, int id, bool byPosition, TextView helper);
void UTIL7340_ShowMenuItem(MenuTable& menus, MenuHandle menu, int id);
void UTIL7340_HideMenuItem(MenuTable& menus, MenuHandle menu, int id);
/// Takes bitmap and helper off one item, or off all.
void UTIL7340_CleanMenuItem(MenuTable& menus, MenuHandle menu, int id, bool byPosition);
void UTIL7340_CleanMenu(MenuTable& menus, MenuHandle menu);

}  // namespace pnl
