// SPDX-License-Identifier: MIT
// PageView on a text browser: pages with styles, pictures and anchors, plain texts, and pictures as pages of their own.
// It runs no script and opens nothing itself: every address goes through the page's source. The markup is cleaned
// before it is shown (pages/page_markup.h).
#pragma once

#include <QtWidgets/QStackedLayout>
#include <vector>

#include "controls/page_text.h"
#include "controls/page_view.h"
#include "controls/picture_area.h"

namespace pnl {

class PageBrowser final : public PageView {
  Q_OBJECT
  Q_PROPERTY(QString pnlLocation READ Location)

 public:
  PageBrowser(int id, QWidget* parent);

  bool ShowPage(std::shared_ptr<PageSource> source, TextView address, TextView anchor) override;
  void Clear() override;
  void Back() override;
  void Forward() override;
  [[nodiscard]] bool CanGoBack() const override { return at_ > 0; }
  [[nodiscard]] bool CanGoForward() const override { return at_ + 1 < static_cast<int>(history_.size()); }
  void Home() override;
  void Reload() override;
  bool Find(TextView text, bool backwards) override;
  bool Follow(TextView reference) override;
  [[nodiscard]] Text Address() const override { return HasPage() ? Present().address : Text(); }
  [[nodiscard]] Text Anchor() const override { return HasPage() ? Present().anchor : Text(); }
  [[nodiscard]] int ScrollPosition() const override;
  void SetScrollPosition(int position) override;

  /// The page that is shown, with "#" and the anchor if there is one; empty without a page.
  [[nodiscard]] QString Location() const;
  /// The widgets that show the page. The focus goes to the text.
  [[nodiscard]] PageText& TextArea() { return *text_; }
  [[nodiscard]] PictureArea& Picture() { return *picture_; }

 private:
  struct Entry {
    std::shared_ptr<PageSource> source;
    Text address;
    Text anchor;
    int scroll = 0;
  };
  [[nodiscard]] bool HasPage() const { return at_ >= 0; }
  [[nodiscard]] const Entry& Present() const { return history_[static_cast<std::size_t>(at_)]; }
  /// Shows the page of the entry. Returns why it can't; what was shown before stays then.
  [[nodiscard]] PageRefusal Load(const Entry& entry);
  bool LoadNew(Entry entry, const QString& reference);
  void GoTo(int place);
  void ShowText();
  void KeepScroll();

  QStackedLayout* layout_;
  PageText* text_;
  PictureArea* picture_;
  std::vector<Entry> history_;
  int at_ = -1;
  Entry home_;
};

}  // namespace pnl
