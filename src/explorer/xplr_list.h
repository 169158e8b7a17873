// SPDX-License-Identifier: MIT
// The file list of the explorer: its rows, their order, which of them is selected, and the search in them. Keeps the
// state's File in step with the selection. Reads and sorts beside the window's thread; draws nothing.
#pragma once

#include <functional>
#include <memory>

#include "explorer/xplr_jobs.h"
#include "explorer/xplr_loading.h"
#include "explorer/xplr_messages.h"
#include "explorer/xplr_search.h"
#include "explorer/xplr_state.h"
#include "explorer/xplr_typed.h"
#include "explorer/xplr_view.h"

namespace pnl {

class XplrList {
 public:
  struct Links {
    XplrState& state;
    const Places& places;
    const Network& network;
    XplrJobs& jobs;
    const XplrPosts& posts;
    XplrViewAccess view;
    /// The list has been loaded or sorted: the menus are to be refreshed.
    std::function<void()> updateMenus;
    /// Another row is selected, or the selected row has been read again.
    std::function<void()> selected = [] {};
    /// A load begins, or has ended.
    std::function<void(bool loading)> loading = [](bool) {};
  };
  /// patience is how long a folder may take before its first rows are shown.
  explicit XplrList(Links links, std::chrono::milliseconds patience = kFirstRows)
      : links_(std::move(links)), patience_(patience) {}

  /// The first load: selects the row of File, or the first one, unless the operator has chosen something meanwhile.
  /// Then calls then, also when the load is dropped because another one begins.
  void FirstFill(std::function<void()> then);
  void FillList(ListMode mode) { Load(mode, {}); }
  /// Removes all rows and drops a load that is under way.
  void Clear();
  /// A menu command from kSortByName to kSortByExtension, or a click on a column's header (0 to 2).
  void SortBy(int command);
  void OnHeaderClicked(int column);

  // The operator.
  /// Takes the first row if none is selected. While there are no rows yet, it waits for them.
  void OnFocus();
  /// The row got the selection; -1 is ignored.
  void OnRowSelected(int row);
  void OnClick(int row);
  void OnDoubleClick(int row);
  /// Letters were typed: goes to the first name that begins so.
  void OnTyped(TextView letters);
  /// The last of these letters is taken back.
  void OnBackspace();
  /// The focus has gone elsewhere: what was typed is over.
  void OnLeft() { EndTyping(); }

  /// Searches for the text that was given last. Sends the result to the find dialog.
  void SearchList(bool forward);
  void SetSearch(Text text) { search_.text = std::move(text); }
  [[nodiscard]] const Text& Search() const { return search_.text; }

  [[nodiscard]] const XplrRows& Rows() const { return *rows_; }
  [[nodiscard]] int Selected() const { return selected_; }
  /// Null without a selection.
  [[nodiscard]] const XplrRow* SelectedRow() const { return Has(selected_) ? &At(selected_) : nullptr; }
  [[nodiscard]] const SortState& Sort() const { return sort_; }
  void SetSort(const SortState& sort) { sort_ = sort; }
  /// True while more rows may come.
  [[nodiscard]] bool IsLoading() const { return loading_ != 0; }

 private:
  /// Is called once at the end of a load; rowsCame is false when it was dropped.
  using Ended = std::function<void(bool rowsCame)>;
  void Load(ListMode mode, Ended ended);
  void Start(ListMode mode);
  /// Removes the rows. Returns the end of the load that it drops.
  [[nodiscard]] Ended Empty();
  void EndLoad();
  void SelectFirst(const Text& wanted);
  [[nodiscard]] XplrLoadRequest Request() const;
  /// Makes these the rows, with one of them selected, or none (-1).
  void Show(XplrRows rows, int selected);
  /// Shows rows that were read and sorted as was asked then. The row that was selected stays selected.
  void ShowLoaded(XplrRows rows, const SortState& sorted);
  void SortRowsNow();
  /// Selects a row as the operator would.
  void Take(int row);
  void SyncNameFromSelection();
  /// Selects a row that the logic has found.
  void GoTo(int row);
  void EndTyping();
  void SetLoading(JobId job);
  [[nodiscard]] bool Has(int row) const { return row >= 0 && row < static_cast<int>(rows_->size()); }
  [[nodiscard]] const XplrRow& At(int row) const { return (*rows_)[static_cast<std::size_t>(row)]; }

  const Links links_;
  const std::chrono::milliseconds patience_;
  std::shared_ptr<const XplrRows> rows_ = std::make_shared<const XplrRows>();
  SortState sort_;
  SearchState search_;
  XplrTyped typed_;
  int selected_ = -1;
  bool loaded_ = false;      // a load has begun; before that the selection has no effect
  bool focusWaits_ = false;  // the focus came before the rows
  JobId loading_ = 0;
  Ended ended_;  // of the load that is under way
};

}  // namespace pnl
