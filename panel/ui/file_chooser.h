// SPDX-License-Identifier: MIT
// The panel's own file dialog: a cover over the panel with a list of big rows, a name and three keys, for touch and for
// the keyboard alone. It shows the result of the checks in file_request.h and checks nothing itself.
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

  /// Shows a request. There is one request at a time: an earlier one is left first, and its left is called. accepted
  /// gets the folder and the file name; left is called when the operator cancels.
  void Ask(const FileRequest& request, Accepted accepted, std::function<void()> left);
  /// Closes without calling accepted or left, because the request has ended elsewhere.
  void Dismiss();
  /// Whether a request waits for its answer. The cover may be hidden meanwhile.
  [[nodiscard]] bool IsOpen() const { return open_; }

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
  bool open_ = false;
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
