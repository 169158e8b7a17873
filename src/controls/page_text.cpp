// SPDX-License-Identifier: MIT
#include "controls/page_text.h"

#include <QtGui/QImageReader>
#include <utility>

#include "controls/wide_scroll_bar.h"
#include "pages/page_attributes.h"
#include "pages/page_decoding.h"
#include "pages/picture_header.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr std::size_t kMostMovies = 16;
constexpr int kBox = 16;
constexpr int kMargin = 4;
constexpr int kPlainMargin = 12;
/// A link takes the colour of the panel's links, unless a style says otherwise.
constexpr const char* kStyle = "a { color: #1c4f82 }";

/// In the place of a picture that isn't shown. Not a null image: for that the browser would open a file itself.
QImage EmptyBox() {
  QImage box(kBox, kBox, QImage::Format_RGB32);
  box.fill(Qt::lightGray);
  return box;
}

/// A page that sets no colours, or only some, is meant for black on white, whatever the panel's own colours are.
QPalette OnPaper(QPalette colors) {
  colors.setColor(QPalette::Base, Qt::white);
  colors.setColor(QPalette::Text, Qt::black);
  return colors;
}

}  // namespace

PageText::PageText(QWidget* parent) : QTextBrowser(parent) {
  setPalette(OnPaper(palette()));
  document()->setDefaultStyleSheet(QString::fromLatin1(kStyle));
  setOpenLinks(false);
  setOpenExternalLinks(false);
  setUndoRedoEnabled(false);
  setAcceptDrops(false);
  setContextMenuPolicy(Qt::NoContextMenu);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollBar(new WideScrollBar(Qt::Vertical, this));
  setHorizontalScrollBar(new WideScrollBar(Qt::Horizontal, this));
}

PageText::~PageText() { DropMovies(); }

void PageText::ShowContent(std::shared_ptr<PageSource> source, const Text& address, const QString& content,
                           bool plain) {
  Empty();
  source_ = std::move(source);
  address_ = address;
  document()->setDocumentMargin(plain ? kPlainMargin : kMargin);
  if (plain) {
    setPlainText(content);
  } else {
    setHtml(content);
  }
}

void PageText::Empty() {
  DropMovies();
  source_.reset();
  address_.clear();
  pixels_ = 0;
  clear();
}

PageBytes PageText::Load(const QUrl& name) {
  if (!source_) return {PageRefusal::kNotFound, {}};
  const Text whole = FromQString(name.toString(QUrl::FullyEncoded));
  const bool picture = whole.starts_with(kPictureScheme);
  const PageAddress address = source_->Resolve(address_, TextView(whole).substr(picture ? kPictureScheme.size() : 0));
  if (address.refusal != PageRefusal::kNone) return {address.refusal, {}};
  return source_->Read(address.page);
}

QVariant PageText::loadResource(int type, const QUrl& name) {
  // Never an empty answer: the document would then open a file of that name.
  if (type == QTextDocument::StyleSheetResource) return LoadStyle(name);
  if (type == QTextDocument::ImageResource) return LoadPicture(name);
  return QByteArray("");
}

QString PageText::LoadStyle(const QUrl& name) {
  const PageBytes style = Load(name);
  return style.refusal == PageRefusal::kNone ? ToQString(CleanStyle(DecodePage(style.bytes))) : QStringLiteral(" ");
}

QImage PageText::LoadPicture(const QUrl& name) {
  const PageBytes picture = Load(name);
  if (picture.refusal != PageRefusal::kNone) return EmptyBox();
  const PictureHeader header = ReadPictureHeader(picture.bytes);
  if (!header.CanBeShown()) return EmptyBox();
  pixels_ += header.width * header.height;
  if (pixels_ > PictureHeader::kMostPixels) return EmptyBox();
  QByteArray bytes(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  QImage image = reader.read();
  if (image.isNull()) return EmptyBox();
  if (header.kind == PictureKind::kGif && reader.imageCount() > 1) MakeMovie(name, picture.bytes);
  return image;
}

bool PageText::MakeMovie(const QUrl& name, const std::string& bytes) {
  if (movies_.size() >= kMostMovies || movies_.count(name) != 0) return false;
  auto made = std::make_unique<Movie>();
  made->bytes = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
  made->buffer.setBuffer(&made->bytes);
  made->buffer.open(QIODevice::ReadOnly);
  made->movie.setDevice(&made->buffer);
  QMovie* const movie = &made->movie;
  connect(movie, &QMovie::frameChanged, this, [this, name, movie] {
    document()->addResource(QTextDocument::ImageResource, name, movie->currentImage());
    viewport()->update();
  });
  movies_.emplace(name, std::move(made));
  // Not now: the browser is in the middle of its layout.
  if (isVisible()) QMetaObject::invokeMethod(movie, &QMovie::start, Qt::QueuedConnection);
  return true;
}

void PageText::DropMovies() {
  // The resource of a name outlives the page, and the next page may use the same name for another picture.
  for (const auto& [name, movie] : movies_) {
    movie->movie.stop();
    document()->addResource(QTextDocument::ImageResource, name, QVariant());
  }
  movies_.clear();
}

void PageText::showEvent(QShowEvent* event) {
  QTextBrowser::showEvent(event);
  for (const auto& [name, movie] : movies_) {
    if (movie->movie.state() == QMovie::Paused) {
      movie->movie.setPaused(false);
    } else {
      movie->movie.start();
    }
  }
}

void PageText::hideEvent(QHideEvent* event) {
  for (const auto& [name, movie] : movies_) movie->movie.setPaused(true);
  QTextBrowser::hideEvent(event);
}

}  // namespace pnl
