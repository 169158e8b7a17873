// SPDX-License-Identifier: MIT
// An area that shows one picture: BMP, GIF, JPG or PNG, animated too. The picture follows the area's size. It takes
// bytes and never a file, and whoever owns it has checked the size in the picture's header.
#pragma once

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QMovie>
#include <QtWidgets/QWidget>
#include <memory>
#include <string>

namespace pnl {

enum class PictureFit {
  kStretch,   // over the whole area
  kKeepShape  // as large as the area allows, centred
};

class PictureArea : public QWidget {
  Q_OBJECT

 public:
  explicit PictureArea(QWidget* parent);
  ~PictureArea() override;

  /// Shows the picture. Returns false and shows nothing when it can't be decoded.
  bool SetPicture(const std::string& bytes, PictureFit fit);
  void Clear();
  [[nodiscard]] bool IsEmpty() const { return image_.isNull() && movie_ == nullptr; }
  [[nodiscard]] bool IsAnimated() const { return movie_ != nullptr; }
  /// Where the picture is painted.
  [[nodiscard]] QRect PictureRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QByteArray bytes_;  // of a movie, which reads them again with every round
  QBuffer buffer_;
  std::unique_ptr<QMovie> movie_;
  QImage image_;
  QPixmap scaled_;  // image_ at the size at which it was painted last
  PictureFit fit_ = PictureFit::kKeepShape;
};

}  // namespace pnl
