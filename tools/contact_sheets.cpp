// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-contact-sheets FOLDER
//
// Writes the pictures of the game into FOLDER as PNG sheets, at the sizes and on the colours at
// which the game shows them, so that they can be looked at side by side.

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
#include <functional>
#include <vector>

#include "platform/qt/picture_cache.h"
#include "tools/command_line.h"

namespace {

constexpr QRgb tableGreen = qRgb(0, 0x70, 0);
constexpr QRgb openingBlue = qRgb(0, 0x50, 0xff);
constexpr QSize cardSize(62, 108);  ///< on the smallest screen that the game is made for
constexpr int margin = 8;

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

Sheet wholePack(QSize size) {
    Sheet sheet(tableGreen);
    for (int first = 1; first <= 40; first += 10) sheet.add(faces(first, first + 9, size));
    return sheet;
}

/// One suit in two rows.
Sheet suitSheet(int suit, QSize size) {
    const int ace = 10 * suit + 1;
    return Sheet(tableGreen).add(faces(ace, ace + 4, size)).add(faces(ace + 5, ace + 9, size));
}

Row icons() {
    Row row;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        row.push_back({QSize(size, size), [=] { return drawIcon(size); }});
    return row;
}

Row lampsAndBanner(int scale) {
    return {cell(picture::green, QSize(32, 32) * scale), cell(picture::red, QSize(32, 32) * scale),
            cell(picture::banner, QSize(67, 28) * scale)};
}

Sheet mascots() {
    Row gorillas, masks;
    for (int frame = 1; frame <= 10; ++frame)
        gorillas.push_back(cell(picture::gorilla(frame), QSize(105, 142)));
    for (int frame = 1; frame <= 5; ++frame)
        masks.push_back(cell(picture::mask(frame), QSize(150, 113)));
    return Sheet(tableGreen).add(gorillas).add(masks).on(openingBlue).add(gorillas).add(masks);
}

Sheet others() {
    return Sheet(openingBlue)
        .add({cell(picture::title, QSize(733, 129)), cell(picture::title, QSize(166, 69))})
        .on(tableGreen)
        .add(lampsAndBanner(1))
        .add(lampsAndBanner(4))
        .add(icons())
        .add({cell(picture::back, cardSize), cell(picture::back, cardSize * 2),
              cell(picture::back, cardSize * 4)});
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

bool writeAll(const QDir& folder) {
    const QStringList suits{QStringLiteral("denari"), QStringLiteral("coppe"),
                            QStringLiteral("bastoni"), QStringLiteral("spade")};
    for (int suit = 0; suit < suits.size(); ++suit)
        if (!write(suitSheet(suit, cardSize * 4), folder, suits[suit])) return false;
    return write(wholePack(cardSize), folder, QStringLiteral("pack")) &&
           write(wholePack(cardSize * 2), folder, QStringLiteral("pack-twice")) &&
           write(mascots(), folder, QStringLiteral("mascots")) &&
           write(others(), folder, QStringLiteral("others"));
}

}  // namespace

int main(int argc, char** argv) {
    constexpr const char* usage =
        "velarda-contact-sheets FOLDER\n\n"
        "Writes the pictures of the game into FOLDER as PNG sheets.\n";
    if (answersHelpOrVersion(argc, argv, "velarda-contact-sheets", usage)) return 0;
    if (argc != 2 || argv[1][0] == '-' || argv[1][0] == '\0') return misused(usage);
    // Images are painted without a window system, so that the program runs where there is none.
    const QCoreApplication application(argc, argv);
    const QString folder = QFile::decodeName(argv[1]);
    if (!QFileInfo(folder).isDir() || !writeAll(QDir(folder))) {
        std::fprintf(stderr, "velarda-contact-sheets: cannot write into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
