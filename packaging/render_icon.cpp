// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Renders a square drawing at one size: velarda-render-icon SOURCE SIZE OUTPUT.png

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>

namespace {

constexpr int largestSize = 1024;
/// Fine lines come out cleaner when they are drawn larger and then brought down.
constexpr int oversampling = 4;

int complain(const char* what, const char* about) {
    std::fprintf(stderr, "velarda-render-icon: %s: %s\n", what, about);
    return 1;
}

QImage rendered(QSvgRenderer& drawing, int size) {
    const int drawn = size * oversampling;
    QImage image(drawn, drawn, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, drawn, drawn));
    painter.end();
    return image.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: velarda-render-icon SOURCE SIZE OUTPUT.png\n", stderr);
        return 2;
    }
    const int size = QString::fromLocal8Bit(argv[2]).toInt();
    if (size < 1 || size > largestSize) return complain("not a size", argv[2]);

    QSvgRenderer drawing;
    if (!drawing.load(QString::fromLocal8Bit(argv[1]))) return complain("not a drawing", argv[1]);
    if (drawing.viewBoxF().width() != drawing.viewBoxF().height())
        return complain("not square", argv[1]);
    if (!rendered(drawing, size).save(QString::fromLocal8Bit(argv[3]), "PNG"))
        return complain("cannot be written", argv[3]);
    return 0;
}
