// SPDX-License-Identifier: MIT
// The panel's utilities for tests, fuzz targets and benchmarks: folders by path id, drives and block marks as told,
// nothing else.
#pragma once

#include <map>

#include "base/format.h"
#include "facade/utilities.h"

namespace pnl::test {

class FakeUtilities : public Utilities {
 public:
  int driveStatus = 1;  // no drive is ready
  std::map<Text, Text> marks;

  Text Get7340Path(int id) override { return Format(u"C:\\P%d", id); }
  int ErrorText(ErrorTextFunction, std::int32_t, Z7340ERRORINFO_ST&) override { return -1; }
  bool desc_to_txt(std::int32_t, Text&, TextView) override { return false; }
  int UTIL7340_DriveStatus(int) override { return driveStatus; }
  void UTIL7340_CopyToClipboard_Text(WindowHandle, TextView) override {}
  int Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) override {
    const auto found = marks.find(Text(block));
    if (found == marks.end()) return 1;
    mark = found->second;
    return 0;
  }
  Rect UTIL7340_GetCNCRect() override { return {0, 0, 800, 600}; }
  bool UTIL7340_AreSoftkeyMetricsStandard() override { return true; }
  int UTIL7340_FitFontSize(int height) override { return height; }
  int UTIL7340_FitHeight(int height) override { return height; }
  bool UTIL7340_Is7335() override { return false; }
};

}  // namespace pnl::test
