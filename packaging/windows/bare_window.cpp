// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-bare-window: a maximised window with a menu bar, one picture and nothing else. What it
// takes to start, and of memory, any program of this kind takes.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>

namespace {

class Cloth : public QWidget {
protected:
    void resizeEvent(QResizeEvent*) override {
        cloth_ = QImage(size(), QImage::Format_RGB32);
        cloth_.fill(QColor(0, 0x70, 0));
    }
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, cloth_); }

private:
    QImage cloth_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare window"));
    window.menuBar()->addMenu(QStringLiteral("&Menu"));
    window.setCentralWidget(new Cloth);
    window.showMaximized();
    return QApplication::exec();
}
