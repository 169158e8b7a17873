// SPDX-License-Identifier: MIT
// The panel's own file dialog: a cover inside the window with a list of big rows, a name and four keys, for touch and
// for the keyboard alone. The rules of a name are elsewhere; it shows what they say.
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QWidget>
#include <functional>

#include "ui/file_request.h"

namespace panel {

class PanelKey;
class Question;

class FileChooser : public QWidget {
  Q_OBJECT

 public:
  using Accepted = std::function<void(const QString& folder, const QString& file)>;

  FileChooser(PathResolver resolve, QWidget* parent);
  ~FileChooser() override;

  /// One request at a time: one that still stands is left first, with its left().
  void Ask(const FileRequest& request, Accepted accepted, std::function<void()> left);
  /// Goes away without telling anybody: the request has ended elsewhere.
  void Dismiss();
  [[nodiscard]] bool Stands() const { return stands_; }

  /// What the keys do.
  void Accept();
  void Leave();
  void GoUp();
  void Enter(const QString& folder);

  [[nodiscard]] const QString& Folder() const { return folder_; }
  [[nodiscard]] QString Problem() const { return problem_; }
  [[nodiscard]] QListWidget& List() const { return *list_; }
  [[nodiscard]] QLineEdit& NameEdit() const { return *name_; }
  [[nodiscard]] Question& Confirm() const { return *confirm_; }
  [[nodiscard]] std::vector<PanelKey*> Keys() const { return {up_, ok_, cancel_}; }
  void SetFontPixels(int pixels);

 signals:
  void Finished();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Fill();
  void Take(const NameAnswer& answer);
  void Choose(QListWidgetItem* item);
  void SetProblem(const QString& problem);
  void Place();
  [[nodiscard]] bool ListOnly() const { return (request_.flags & XPLR_LISTONLY) != 0; }
  PathResolver resolve_;
  FileRequest request_;
  Accepted accepted_;
  std::function<void()> left_;
  bool stands_ = false;
  QString folder_;
  QString problem_;
  QListWidget* list_;
  QLineEdit* name_;
  PanelKey* up_;
  PanelKey* ok_;
  PanelKey* cancel_;
  Question* confirm_;
  int fontPixels_ = 16;
};

}  // namespace panel
