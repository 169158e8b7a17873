// SPDX-License-Identifier: MIT
// An area that shows pages of a document, with a history. It reads everything through a PageSource, so it never sees a
// file or a network itself. PageBrowser implements it on a text browser.
#pragma once

#include <QWidget>
#include <memory>

#include "base/text.h"
#include "pages/page_source.h"

namespace pnl {

class PageView : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// Shows a page or a picture of the document and adds it to the history. address is a reference from the document's
  /// folder; its own anchor counts if anchor is empty. If the page can't be shown, returns false, emits PageRefused and
  /// keeps the page that was shown before. The view keeps the source as long as its history needs it.
  virtual bool ShowPage(std::shared_ptr<PageSource> source, TextView address, TextView anchor) = 0;
  /// Empties the area and forgets the history.
  virtual void Clear() = 0;

  /// Back and Forward return to the place in the page that was seen last. They do nothing when there is no such page.
  virtual void Back() = 0;
  virtual void Forward() = 0;
  [[nodiscard]] virtual bool CanGoBack() const = 0;
  [[nodiscard]] virtual bool CanGoForward() const = 0;
  /// Shows the first page that was shown of the present document.
  virtual void Home() = 0;
  /// Reads the present page again and keeps the place in it.
  virtual void Reload() = 0;
  /// Finds the next place with the text, without regard to case, from the last one on, and goes on at the other end of
  /// the page. Returns false when the page doesn't contain it.
  virtual bool Find(TextView text, bool backwards) = 0;
  /// Follows a reference of the present page as a click on it does.
  virtual bool Follow(TextView reference) = 0;

  /// The page that is shown, as PageAddress has it; empty when there is none.
  [[nodiscard]] virtual Text Address() const = 0;
  [[nodiscard]] virtual Text Anchor() const = 0;
  /// How far the page is scrolled down, in pixels.
  [[nodiscard]] virtual int ScrollPosition() const = 0;
  virtual void SetScrollPosition(int position) = 0;

 signals:
  /// The operator has chosen a link. PageShown or PageRefused follows.
  void LinkFollowed(const QString& reference);
  void PageShown(const QString& address, const QString& anchor);
  /// A page that was asked for isn't shown. reference is as the link or the caller had it. A picture or style sheet
  /// that is refused inside a page is only counted by the source.
  void PageRefused(const QString& reference, pnl::PageRefusal reason);
};

}  // namespace pnl
