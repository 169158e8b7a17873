// SPDX-License-Identifier: MIT
// The seam to the panel's utilities: paths, error texts, drives, clipboard, facts about the screen. Functions that need
// no machine (colours and rectangles as text, fields of a text, menus) are free functions here. Ini and text files are
// in base.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"
#include "facade/error_record.h"
#include "window/menu.h"
#include "window/window.h"

namespace pnl {

/// The numbers of the panel's folders that the tools use.
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

/// The error text functions; each comment gives the function's own name.
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
/// The function's own name.
[[nodiscard]] const char* ErrorTextFunctionName(ErrorTextFunction function);

/// A reference to a long description: "file#number".
struct HelpReference {
  Text file;
  std::int32_t number = 0;
};
/// Reads a reference as scanf's "%[^#]#%d" would: white space and a sign may come before the digits, anything after
/// them. Returns nothing when the file or the number is missing.
[[nodiscard]] std::optional<HelpReference> ParseHelpReference(TextView text);

class Utilities {
 public:
  virtual ~Utilities() = default;
  /// The folder of a path id, without a trailing backslash. Empty for an id that isn't in use.
  [[nodiscard]] virtual Text Get7340Path(int id) = 0;
  /// Fills info with the text of the number; for an unknown number with zeros. No tool uses the result.
  virtual int ErrorText(ErrorTextFunction function, std::int32_t number, Z7340ERRORINFO_ST& info) = 0;
  /// Puts the long description with that number of that file into text. Returns true when it was found.
  virtual bool desc_to_txt(std::int32_t number, Text& text, TextView file) = 0;
  /// Returns 0 when the drive can be used, -1 when it can't be written, another value when it isn't ready.
  virtual int UTIL7340_DriveStatus(int drive) = 0;
  virtual void UTIL7340_CopyToClipboard_Text(WindowHandle window, TextView text) = 0;
  /// Finds the help mark of a block. Returns 0 and sets mark when the block has a mark of its own. Otherwise returns
  /// another value, and mark stays as it was.
  virtual int Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) = 0;
  [[nodiscard]] virtual Rect UTIL7340_GetCNCRect() = 0;
  [[nodiscard]] virtual bool UTIL7340_AreSoftkeyMetricsStandard() = 0;
  /// Scales a font height that is meant for a panel of 800 by 600 to the panel's present size. On a lower panel the
  /// font stays as big as it is, because smaller letters can't be read.
  [[nodiscard]] virtual int UTIL7340_FitFontSize(int height) = 0;
  /// Scales the height of anything else.
  [[nodiscard]] virtual int UTIL7340_FitHeight(int height) = 0;
  [[nodiscard]] virtual bool UTIL7340_Is7335() = 0;
};

/// Reads a colour 0x00BBGGRR from three decimal numbers: "60 100 120" (red, green, blue). A missing number is 0.
/// Numbers count modulo 256.
[[nodiscard]] std::uint32_t AsciiToColorref(TextView text);
/// Reads "left,top,right,bottom". A missing number is 0.
[[nodiscard]] Rect AsciiToCRect(TextView text);
[[nodiscard]] Text CRectToAscii(const Rect& rect);
/// Removes the part before the separator, and the separator, from the front of the text and returns the part. Takes the
/// whole text when it has no separator. GetIntData returns the part as an integer.
[[nodiscard]] Text GetData(Text& text, char16_t separator);
[[nodiscard]] std::int32_t GetIntData(Text& text, char16_t separator);

/// Operations on menu items. If byPosition is set, id is an index in the menu itself. They do nothing when the item
/// doesn't exist.
void UTIL7340_SetMenuItemBitmap(MenuTable& menus, MenuHandle menu, int id, bool byPosition, int bitmap);
void UTIL7340_SetMenuItemHelper(MenuTable& menus, MenuHandle menu, int id, bool byPosition, TextView helper);
void UTIL7340_ShowMenuItem(MenuTable& menus, MenuHandle menu, int id);
void UTIL7340_HideMenuItem(MenuTable& menus, MenuHandle menu, int id);
/// Removes bitmap and helper from one item, or from all items of the menu and its sub-menus.
void UTIL7340_CleanMenuItem(MenuTable& menus, MenuHandle menu, int id, bool byPosition);
void UTIL7340_CleanMenu(MenuTable& menus, MenuHandle menu);

}  // namespace pnl
