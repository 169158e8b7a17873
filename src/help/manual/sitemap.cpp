// SPDX-License-Identifier: MIT
#include "help/manual/sitemap.h"

#include <algorithm>
#include <optional>

#include "help/manual/markup.h"

namespace pnl {
namespace {

class Reader {
 public:
  void Take(const MarkupPiece& piece) {
    if (piece.IsStart(u"UL")) {
      // A list may begin before the object that it belongs to is closed.
      Finish();
      ++lists_;
    } else if (piece.IsEnd(u"UL")) {
      Finish();
      lists_ = std::max(lists_ - 1, 0);
    } else if (piece.IsStart(u"OBJECT")) {
      Begin(piece);
    } else if (piece.IsEnd(u"OBJECT")) {
      Finish();
    } else if (piece.IsStart(u"PARAM") && item_) {
      TakeParameter(piece);
    }
  }
  [[nodiscard]] bool IsFull() const { return items_.size() >= kMostSitemapItems; }
  [[nodiscard]] std::vector<SitemapItem> End() {
    Finish();
    return std::move(items_);
  }

 private:
  void Begin(const MarkupPiece& piece) {
    Finish();
    // The file's own properties are an object of another type.
    if (piece.Attribute(u"TYPE").has_value() && !EqualNoCase(*piece.Attribute(u"TYPE"), u"text/sitemap")) return;
    item_.emplace();
    title_.clear();
  }

  void TakeParameter(const MarkupPiece& piece) {
    const TextView name = piece.Attribute(u"NAME").value_or(TextView());
    const Text value(Trim(piece.Attribute(u"VALUE").value_or(TextView()).substr(0, kLongestSitemapText)));
    if (EqualNoCase(name, u"Name")) {
      if (item_->name.empty()) item_->name = value;
      title_ = value;
    } else if (EqualNoCase(name, u"Local") && !value.empty() && item_->topics.size() < kMostSitemapTopics) {
      item_->topics.emplace_back(title_.empty() ? item_->name : title_, value);
    }
  }

  void Finish() {
    if (!item_) return;
    SitemapItem item = std::move(*item_);
    item_.reset();
    if (IsFull() || (item.name.empty() && item.topics.empty())) return;
    // The outermost list makes no level. A level that has no item of its own makes none either, and the depth that a
    // reader of the items sees never leaps.
    const int deepest = items_.empty() ? 0 : items_.back().depth + 1;
    item.depth = std::clamp(lists_ - 1, 0, std::min(deepest, kDeepestSitemap));
    items_.push_back(std::move(item));
  }

  std::vector<SitemapItem> items_;
  std::optional<SitemapItem> item_;
  Text title_;
  int lists_ = 0;
};

}  // namespace

std::vector<SitemapItem> ReadSitemap(TextView markup) {
  Reader reader;
  MarkupReader pieces(markup);
  while (!reader.IsFull()) {
    const auto piece = pieces.Next();
    if (!piece) break;
    reader.Take(*piece);
  }
  return reader.End();
}

}  // namespace pnl
