// SPDX-License-Identifier: MIT
// The view of a window that is gone: asks come back empty, orders do nothing. The logic changes over to it when its
// window is destroyed, so that an operation in progress can end without touching what is no more.
#pragma once

#include "mdi/mdi_view.h"

namespace pnl {

class MdiNoView final : public MdiView {
 public:
  [[nodiscard]] WindowHandle Handle() const override { return 0; }
  [[nodiscard]] Rect ParentClientRect() const override { return {}; }
  [[nodiscard]] bool IsVisible() const override { return false; }
  void Show() override {}
  void Hide() override {}
  void BringToTop() override {}
  void Place(const MdiLayout& /*layout*/) override {}
  void SetTitle(TextView /*title*/) override {}
  void SetTitleBlinking(int /*period*/) override {}
  void SetSignColors(std::uint32_t /*fore*/, std::uint32_t /*back*/) override {}
  void FocusWindow() override {}
  void FocusEdit() override {}
  void FocusList() override {}
  void ClearFocus() override {}
  [[nodiscard]] Text EditText() const override { return {}; }
  void SetEditText(TextView /*text*/) override {}
  [[nodiscard]] MdiSelection EditSelection() const override { return {}; }
  void SetEditSelection(MdiSelection /*selection*/) override {}
  void ReplaceEditSelection(TextView /*text*/) override {}
  void ScrollEditCaret() override {}
  void SetEditReadOnly(bool /*readOnly*/) override {}
  void RedrawEdit() override {}
  [[nodiscard]] int ListCount() const override { return 0; }
  [[nodiscard]] Text ListItem(int /*index*/) const override { return {}; }
  [[nodiscard]] int ListSelection() const override { return -1; }
  void SetListSelection(int /*index*/) override {}
  void FillList(const TextRows& /*items*/) override {}
  void InsertListItem(int /*index*/, TextView /*text*/) override {}
  void ReplaceListItem(int /*index*/, TextView /*text*/) override {}
  void DeleteListItem(int /*index*/) override {}
  void SetListEnabled(bool /*enabled*/) override {}
  [[nodiscard]] Rect EditScreenRect() const override { return {}; }
  [[nodiscard]] bool IsDropListOpen() const override { return false; }
  void OpenDropList(const MdiDropListSpec& /*spec*/) override {}
  void CloseDropList() override {}
  [[nodiscard]] std::optional<Text> DropListSelection() const override { return std::nullopt; }
  [[nodiscard]] Text DropListPicked() const override { return {}; }
};

}  // namespace pnl
