// SPDX-License-Identifier: MIT
// The view of a window that is closing or gone: asks come back empty, orders do nothing. The logic changes over to it,
// so that an operation in progress can end without touching what is no more.
#pragma once

#include "calc/calc_view.h"

namespace pnl {

class CalcNoView final : public CalcView {
 public:
  [[nodiscard]] WindowHandle Handle() const override { return 0; }
  [[nodiscard]] Rect ParentClientRect() const override { return {}; }
  [[nodiscard]] Rect WindowRect() const override { return {}; }
  void MoveWindow(int /*left*/, int /*top*/) override {}
  void SetClientHeight(int /*height*/) override {}
  void Show() override {}
  void Hide() override {}
  void BringToTop() override {}
  void Destroy() override {}
  void ClosePanel() override {}
  void SetTitle(TextView /*title*/) override {}
  void AttachMenu(MenuHandle /*menu*/) override {}
  [[nodiscard]] Rect ClientRect() const override { return {}; }
  [[nodiscard]] Rect ControlRect(int /*id*/) const override { return {}; }
  void MoveControl(int /*id*/, const Rect& /*rect*/) override {}
  void ShowControl(int /*id*/, bool /*shown*/) override {}
  void SetKeyIcon(int /*id*/, int /*bitmap*/) override {}
  void MakeFonts(int /*lineHeight*/, int /*lineWeight*/, int /*resultHeight*/, int /*resultWeight*/) override {}
  [[nodiscard]] Text LineText() const override { return {}; }
  void SetLineText(TextView /*text*/) override {}
  [[nodiscard]] CalcSelection LineSelection() const override { return {}; }
  void SetLineSelection(CalcSelection /*selection*/) override {}
  void LimitLine(int /*characters*/) override {}
  void FocusLine() override {}
  [[nodiscard]] Text ResultText() const override { return {}; }
  void SetResultText(TextView /*text*/) override {}
  void SetResultColors(std::uint32_t /*back*/, std::uint32_t /*text*/) override {}
  void SetStatus(TextView /*text*/) override {}
  [[nodiscard]] int ListCount() const override { return 0; }
  [[nodiscard]] Text ListItem(int /*index*/) const override { return {}; }
  [[nodiscard]] std::vector<int> ListSelection() const override { return {}; }
  [[nodiscard]] int ListCurrent() const override { return -1; }
  void FillList(const TextRows& /*rows*/) override {}
  [[nodiscard]] TextRows ListRows() const override { return {}; }
  void InsertListItem(int /*index*/, TextView /*text*/) override {}
  void DeleteListItem(int /*index*/) override {}
  void SelectListItem(int /*index*/) override {}
  void FocusList() override {}
  void FillVariables(const std::vector<Text>& /*rows*/) override {}
  [[nodiscard]] int VariablesSelection() const override { return -1; }
  void FocusVariables() override {}
  void SetNote(TextView /*text*/) override {}
  void SetWorking(bool /*working*/) override {}
};

}  // namespace pnl
