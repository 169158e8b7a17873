// SPDX-License-Identifier: MIT
// The view of an error window that is gone: requests are answered with nothing, orders do nothing.
#pragma once

#include "errors/error_view.h"

namespace pnl {

class ErrorNoView final : public ErrorView {
 public:
  [[nodiscard]] WindowHandle Handle() const override { return 0; }
  void Show() override {}
  void Hide() override {}
  void BringToTop() override {}
  void FocusWindow() override {}
  void Invalidate() override {}
  void SetWindowRect(const Rect& /*rect*/) override {}
  [[nodiscard]] Rect ClientRect() const override { return {}; }
  void SetWaitCursor(bool /*waiting*/) override {}
  void RegisterHotKey(bool /*registered*/) override {}
  void SetFonts(const ErrorFont& /*title*/, const ErrorFont& /*text*/) override {}
  [[nodiscard]] Rect ControlRect(int /*id*/) const override { return {}; }
  void MoveControl(int /*id*/, const Rect& /*rect*/) override {}
  void ShowControl(int /*id*/, bool /*shown*/) override {}
  void SetControlText(int /*id*/, TextView /*text*/) override {}
  void CentreTitleLine(bool /*centred*/) override {}
  void SetClassColor(std::uint32_t /*color*/) override {}
  void SetBoxColors(int /*id*/, std::uint32_t /*back*/, std::uint32_t /*text*/, bool /*now*/) override {}
  void UseRaisedLook(int /*id*/, bool /*raised*/) override {}
  [[nodiscard]] int DescriptionTextWidth(TextView /*text*/) const override { return 0; }
  [[nodiscard]] int TitleTextHeight(TextView /*text*/, int /*width*/) const override { return 0; }
};

}  // namespace pnl
