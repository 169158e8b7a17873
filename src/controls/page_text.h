// SPDX-License-Identifier: MIT
// The text browser inside PageBrowser. It asks the page's source for pictures and style sheets, and for nothing else; a
// picture that is refused is a small empty box. Animated pictures move while the page is on the screen.
#pragma once

#include <QtCore/QBuffer>
#include <QtCore/QUrl>
#include <QtGui/QMovie>
#include <QtWidgets/QTextBrowser>
#include <map>
#include <memory>

#include "pages/page_source.h"

namespace pnl {

class PageText final : public QTextBrowser {
  Q_OBJECT

 public:
  explicit PageText(QWidget* parent);
  ~PageText() override;

  /// Shows the page of the source with that content. plain is for a text without markup.
  void ShowContent(std::shared_ptr<PageSource> source, const Text& address, const QString& content, bool plain);
  void Empty();
  /// How many pictures of the page move.
  [[nodiscard]] std::size_t CountMovies() const { return movies_.size(); }

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  /// A picture that moves. The movie reads from its bytes again with every round.
  struct Movie {
    QByteArray bytes;
    QBuffer buffer;
    QMovie movie;
  };
  [[nodiscard]] QImage LoadPicture(const QUrl& name);
  [[nodiscard]] QString LoadStyle(const QUrl& name);
  [[nodiscard]] PageBytes Load(const QUrl& name);
  bool MakeMovie(const QUrl& name, const std::string& bytes);
  void DropMovies();

  std::shared_ptr<PageSource> source_;
  Text address_;
  std::map<QUrl, std::unique_ptr<Movie>> movies_;
  std::int64_t pixels_ = 0;  // of the page's pictures so far
};

}  // namespace pnl
