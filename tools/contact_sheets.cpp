// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-contact-sheets FOLDER [TIMES]
//
// Writes the pictures of the game into FOLDER as PNG sheets, at the sizes and on the colours at
// which the game shows them on small screens of several shapes, so that they can be looked at side
// by side; TIMES larger if that is given.

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QList>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "platform/qt/picture_cache.h"
#include "tools/command_line.h"

namespace {

constexpr QRgb tableGreen = qRgb(0, 0x70, 0);
constexpr QRgb openingBlue = qRgb(0, 0x50, 0xff);
constexpr int margin = 8;

struct Screen {
    const char* shape;
    QSize size;
};
constexpr Screen usual{"16x9", {1366, 768}};
constexpr Screen screens[] = {{"9x16", {768, 1366}},  {"5x4", {1280, 1024}},
                              {"16x10", {1280, 800}}, usual,
                              {"21x9", {1792, 768}},  {"32x9", {2730, 768}}};

/// What takes so many pixels in the drawing of the layout takes on a screen.
QSize onScreen(const Screen& screen, QSizeF drawn, double times) {
    return QSizeF(drawn.width() * 12 / 15432 * screen.size.width() * times,
                  drawn.height() * 12 / 12360 * screen.size.height() * times)
        .toSize();
}

/// One thing on a sheet: how much place it takes and how it is painted there.
struct Cell {
    QSize size;
    std::function<QImage()> draw;
};

using Row = std::vector<Cell>;

class Sheet {
public:
    explicit Sheet(QRgb ground) : ground_(ground) {}

    Sheet& add(Row row) {
        rows_.push_back({ground_, std::move(row)});
        return *this;
    }
    /// The rows that are added after this stand on another colour.
    Sheet& on(QRgb ground) {
        ground_ = ground;
        return *this;
    }

    QImage draw() const {
        int width = 0, height = 0;
        for (const auto& [ground, row] : rows_) {
            width = std::max(width, widthOf(row));
            height += heightOf(row);
        }
        QImage image(width, height, QImage::Format_RGB32);
        QPainter painter(&image);
        int top = 0;
        for (const auto& [ground, row] : rows_) {
            painter.fillRect(0, top, width, heightOf(row), QColor(ground));
            int left = margin;
            for (const Cell& cell : row) {
                painter.drawImage(left, top + margin, cell.draw());
                left += cell.size.width() + margin;
            }
            top += heightOf(row);
        }
        return image;
    }

private:
    struct GroundedRow {
        QRgb ground;
        Row row;
    };

    static int widthOf(const Row& row) {
        int width = margin;
        for (const Cell& cell : row) width += cell.size.width() + margin;
        return width;
    }
    static int heightOf(const Row& row) {
        int height = 0;
        for (const Cell& cell : row) height = std::max(height, cell.size.height());
        return height + 2 * margin;
    }

    QRgb ground_;
    std::vector<GroundedRow> rows_;
};

Cell cell(Picture picture, QSize size) {
    return {size, [=] { return PictureCache().image(picture, size.width(), size.height()); }};
}

Row faces(int first, int last, QSize size) {
    Row row;
    for (int id = first; id <= last; ++id) row.push_back(cell(picture::face(id), size));
    return row;
}

constexpr QSizeF cardSize(100, 186), gorillaSize(105, 142), maskSize(150, 113);

Sheet wholePack(const Screen& screen, double times) {
    Sheet sheet(tableGreen);
    for (int first = 1; first <= 40; first += 10)
        sheet.add(faces(first, first + 9, onScreen(screen, cardSize, times)));
    return sheet;
}

/// One suit in two rows.
Sheet suitSheet(int suit, QSize size) {
    const int ace = 10 * suit + 1;
    return Sheet(tableGreen).add(faces(ace, ace + 4, size)).add(faces(ace + 5, ace + 9, size));
}

Sheet icons() {
    Row row;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        row.push_back({QSize(size, size), [=] { return drawIcon(size); }});
    return Sheet(tableGreen).add(row);
}

/// Everything but the faces.
Sheet others(const Screen& screen, double times) {
    const auto shown = [&](Picture picture, QSizeF size) {
        return cell(picture, onScreen(screen, size, times));
    };
    Row gorillas, masks;
    for (int frame = 1; frame <= 10; ++frame)
        gorillas.push_back(shown(picture::gorilla(frame), gorillaSize));
    for (int frame = 1; frame <= 5; ++frame) masks.push_back(shown(picture::mask(frame), maskSize));
    return Sheet(tableGreen)
        .add({shown(picture::back, cardSize), shown(picture::green, {32, 32}),
              shown(picture::red, {32, 32}), shown(picture::banner, {67, 28})})
        .add(gorillas)
        .add(masks)
        .on(openingBlue)
        .add({shown(picture::title, {733, 129})})
        // As it stands on the opening screen.
        .add({shown(picture::title, {213, 115})});
}

/// The 256 colours that a sheet uses most. The pictures are flat and share few colours, so that a
/// palette makes the files much smaller and is hardly to be seen.
QList<QRgb> mainColours(const QImage& image) {
    struct Shade {
        long long count, red, green, blue;
    };
    std::vector<Shade> shades(1 << 12);
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int red = qRed(line[x]), green = qGreen(line[x]), blue = qBlue(line[x]);
            Shade& shade =
                shades[static_cast<std::size_t>(red >> 4 | green >> 4 << 4 | blue >> 4 << 8)];
            shade = {shade.count + 1, shade.red + red, shade.green + green, shade.blue + blue};
        }
    }
    std::sort(shades.begin(), shades.end(),
              [](const Shade& a, const Shade& b) { return a.count > b.count; });
    QList<QRgb> colours;
    for (const Shade& shade : shades) {
        if (shade.count == 0 || colours.size() == 256) break;
        colours.push_back(qRgb(static_cast<int>(shade.red / shade.count),
                               static_cast<int>(shade.green / shade.count),
                               static_cast<int>(shade.blue / shade.count)));
    }
    return colours;
}

bool write(const Sheet& sheet, const QDir& folder, const QString& name) {
    QImageWriter writer(folder.filePath(name + QStringLiteral(".png")), "png");
    writer.setCompression(100);
    const QImage image = sheet.draw();
    return writer.write(
        image.convertToFormat(QImage::Format_Indexed8, mainColours(image), Qt::ThresholdDither));
}

bool writeAll(const QDir& folder, double times) {
    const QStringList suits{QStringLiteral("denari"), QStringLiteral("coppe"),
                            QStringLiteral("bastoni"), QStringLiteral("spade")};
    for (int suit = 0; suit < suits.size(); ++suit)
        if (!write(suitSheet(suit, onScreen(usual, cardSize, 2 * times)), folder, suits[suit]))
            return false;
    for (const Screen& screen : screens) {
        const QString shape = QString::fromLatin1(screen.shape);
        if (!write(wholePack(screen, times), folder, QStringLiteral("pack-") + shape) ||
            !write(others(screen, times), folder, QStringLiteral("others-") + shape))
            return false;
    }
    return write(icons(), folder, QStringLiteral("icons"));
}

}  // namespace

int main(int argc, char** argv) {
    constexpr const char* usage =
        "velarda-contact-sheets FOLDER [TIMES]\n\n"
        "Writes the pictures of the game into FOLDER as PNG sheets, as large as on small screens\n"
        "of several shapes, or TIMES (1 to 8) larger.\n";
    if (answersHelpOrVersion(argc, argv, "velarda-contact-sheets", usage)) return 0;
    const double times = argc == 3 ? std::strtod(argv[2], nullptr) : 1;
    const bool understood = (argc == 2 || argc == 3) && times >= 1 && times <= 8;
    if (!understood || argv[1][0] == '-' || argv[1][0] == '\0') return misused(usage);
    // Images are painted without a window system, so that the program runs where there is none.
    const QCoreApplication application(argc, argv);
    const QString folder = QFile::decodeName(argv[1]);
    if (!QFileInfo(folder).isDir() || !writeAll(QDir(folder), times)) {
        std::fprintf(stderr, "velarda-contact-sheets: cannot write into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
