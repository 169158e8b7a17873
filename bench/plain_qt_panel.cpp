// SPDX-License-Identifier: MIT
// The peer in the benchmark of the panel's start: a plain Qt program with a similar window (an editor, soft keys with
// SVG icons at the side and below, read-outs, operator keys) and no function. It ends once it is painted.
#include <QApplication>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTimer>

namespace {

QPushButton* Key(const QString& text) {
  static const QByteArray svg =
      "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 48 48'><path d='M8 24h32M24 8v32' stroke='#fff' "
      "stroke-width='6'/></svg>";
  QSvgRenderer renderer(svg);
  QPixmap picture(32, 32);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter);
  auto* key = new QPushButton(QIcon(picture), text);
  key->setMinimumSize(90, 60);
  key->setStyleSheet("QPushButton{background:#2b3640;color:white;border:1px solid #46545f;border-radius:4px}");
  return key;
}

class Window : public QWidget {
 public:
  Window() {
    auto* grid = new QGridLayout(this);
    for (int i = 0; i < 12; ++i) {
      auto* readOut = new QLabel(QString("%1 0.000").arg(QChar('A' + i)));
      readOut->setFont(QFont("Liberation Sans", 18));
      grid->addWidget(readOut, 0, i % 7);
    }
    auto* editor = new QPlainTextEdit;
    editor->setMinimumSize(800, 600);
    grid->addWidget(editor, 1, 0, 1, 7);
    for (int i = 0; i < 6; ++i) grid->addWidget(Key(QString("Side %1").arg(i)), 2 + i, 7);
    for (int i = 0; i < 7; ++i) {
      grid->addWidget(Key(QString("Main %1").arg(i)), 8, i);
      grid->addWidget(Key(QString("Operator %1").arg(i)), 9, i);
    }
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QWidget::paintEvent(event);
    QTimer::singleShot(0, qApp, &QApplication::quit);
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  Window window;
  window.show();
  return QApplication::exec();
}
