// SPDX-License-Identifier: MIT
#include "facade/utilities.h"

#include <set>

#include "base/format.h"
#include "base/numbers.h"

namespace pnl {

namespace {

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// Removes the text up to the end of the next decimal number and returns that number, with its sign, modulo 256.
/// Returns 0 when there is none.
std::uint32_t TakeColourPart(TextView& text) {
  std::size_t at = 0;
  while (at < text.size() && !IsDigit(text[at])) ++at;
  const bool negative = at > 0 && at < text.size() && text[at - 1] == u'-';
  std::uint32_t value = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) value = (value * 10 + (text[at] - u'0')) % 256;
  text.remove_prefix(at);
  return negative ? (256 - value) % 256 : value;
}

void CleanItem(MenuItem& item) {
  item.bitmap = 0;
  item.helper.clear();
}

/// Cleans each menu once, so that a menu that contains itself doesn't hang the panel.
void CleanMenuOnce(MenuTable& menus, MenuHandle handle, std::set<MenuHandle>& cleaned) {
  Menu* menu = menus.Find(handle);
  if (menu == nullptr || !cleaned.insert(handle).second) return;
  for (MenuItem& item : menu->items) {
    CleanItem(item);
    CleanMenuOnce(menus, item.subMenu, cleaned);
  }
}

}  // namespace

std::optional<HelpReference> ParseHelpReference(TextView text) {
  const auto hash = text.find(u'#');
  if (hash == TextView::npos || hash == 0) return std::nullopt;
  TextView rest = text.substr(hash + 1);
  while (!rest.empty() && (rest[0] == u' ' || (rest[0] >= u'\t' && rest[0] <= u'\r'))) rest.remove_prefix(1);
  const std::size_t sign = !rest.empty() && (rest[0] == u'-' || rest[0] == u'+') ? 1 : 0;
  if (rest.size() <= sign || !IsDigit(rest[sign])) return std::nullopt;
  return HelpReference{Text(text.substr(0, hash)), ParseIntPrefix(rest)};
}

const char* ErrorTextFunctionName(ErrorTextFunction function) {
  switch (function) {
    case ErrorTextFunction::kErrorToTxt:
      return "error_to_txt";
    case ErrorTextFunction::kErrorCs:
      return "error_CS_to_txt";
    case ErrorTextFunction::kWarningCs:
      return "warning_CS_to_txt";
    case ErrorTextFunction::kErrorDrive:
      return "error_drive_to_txt";
    case ErrorTextFunction::kWarningDrive:
      return "warning_drive_to_txt";
    case ErrorTextFunction::kErrorUnknownDrive:
      return "error_unknown_drive_to_txt";
    case ErrorTextFunction::kWarningUnknownDrive:
      return "warning_unknown_drive_to_txt";
    case ErrorTextFunction::kErrorMlink:
      return "error_mlink_to_txt";
    case ErrorTextFunction::kEmcyCopen:
      return "emcy_Copen_to_txt";
    case ErrorTextFunction::kReadPlcError:
      return "ReadPLCError";
  }
  return "";
}

std::uint32_t AsciiToColorref(TextView text) {
  const std::uint32_t red = TakeColourPart(text);
  const std::uint32_t green = TakeColourPart(text);
  const std::uint32_t blue = TakeColourPart(text);
  return red | green << 8 | blue << 16;
}

Rect AsciiToCRect(TextView text) {
  Text rest(text);
  Rect rect;
  rect.left = GetIntData(rest, u',');
  rect.top = GetIntData(rest, u',');
  rect.right = GetIntData(rest, u',');
  rect.bottom = GetIntData(rest, u',');
  return rect;
}

Text CRectToAscii(const Rect& rect) { return Format(u"%d,%d,%d,%d", rect.left, rect.top, rect.right, rect.bottom); }

Text GetData(Text& text, char16_t separator) {
  const std::size_t at = text.find(separator);
  Text part = text.substr(0, at);
  text.erase(0, at == Text::npos ? at : at + 1);
  return part;
}

std::int32_t GetIntData(Text& text, char16_t separator) { return ParseIntPrefix(GetData(text, separator)); }

void UTIL7340_SetMenuItemBitmap(MenuTable& menus, MenuHandle menu, int id, bool byPosition, int bitmap) {
  if (MenuItem* item = menus.FindItem(menu, id, byPosition)) item->bitmap = bitmap;
}

void UTIL7340_SetMenuItemHelper(MenuTable& menus, MenuHandle menu, int id, bool byPosition, TextView helper) {
  if (MenuItem* item = menus.FindItem(menu, id, byPosition)) item->helper = Text(helper);
}

void UTIL7340_ShowMenuItem(MenuTable& menus, MenuHandle menu, int id) {
  if (MenuItem* item = menus.FindItem(menu, id)) item->hidden = false;
}

void UTIL7340_HideMenuItem(MenuTable& menus, MenuHandle menu, int id) {
  if (MenuItem* item = menus.FindItem(menu, id)) item->hidden = true;
}

void UTIL7340_CleanMenuItem(MenuTable& menus, MenuHandle menu, int id, bool byPosition) {
  if (MenuItem* item = menus.FindItem(menu, id, byPosition)) CleanItem(*item);
}

void UTIL7340_CleanMenu(MenuTable& menus, MenuHandle menu) {
  std::set<MenuHandle> cleaned;
  CleanMenuOnce(menus, menu, cleaned);
}

}  // namespace pnl
