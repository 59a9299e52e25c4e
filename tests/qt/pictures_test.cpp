// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <span>
#include <vector>

#include "platform/pictures.h"
#include "platform/qt/composition.h"
#include "platform/qt/picture_cache.h"

// What the game relies on in its drawings, and what an artist may spoil without noticing.

namespace {

constexpr int lastPicture = picture::mask(5);
constexpr QSize tableSize(62, 108);  ///< of a card on a small screen
/// From an upright screen to one that is far wider than high.
constexpr std::array<QSize, 8> screens{{{1080, 1920},
                                        {1000, 1400},
                                        {1280, 1024},
                                        {1600, 1200},
                                        {1680, 1050},
                                        {1920, 1080},
                                        {2560, 1080},
                                        {3840, 1080}}};

QString fileOf(const QString& name) {
    return QStringLiteral(":/pictures/%1.svg").arg(name);
}
QString nameOf(int number) {
    return QString::fromStdString(picture::name(static_cast<Picture>(number)));
}

QByteArray textOf(const QString& name) {
    QFile file(fileOf(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

/// Drawn like PictureCache does, but with the alpha that it takes off cards, or on a colour.
QImage draw(int number, QSize size, QColor ground = Qt::transparent) {
    QSvgRenderer renderer(composed(textOf(nameOf(number)), size));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF({0, 0}, size));
    return image;
}

const QColor tableGreen(0, 0x70, 0);

QSize designSize(int number) {
    if (number < picture::back) return {100, 186};
    if (number == picture::back) return {96, 153};
    if (number == picture::banner) return {67, 28};
    if (number == picture::title) return {733, 129};
    if (number == picture::green || number == picture::red) return {32, 32};
    return number < picture::mask(1) ? QSize(105, 142) : QSize(150, 113);
}

/// A picture's box on a screen, in pixels.
QSize boxOn(QSize screen, int number, double scale) {
    const QSizeF size = number <= picture::back ? QSizeF(100, 186) : designSize(number);
    return QSizeF(size.width() * 12 / 15432 * screen.width() * scale,
                  size.height() * 12 / 12360 * screen.height() * scale)
        .toSize();
}

/// The part of all pixels that differ by more than a quarter of the range in some channel.
double difference(const QImage& a, const QImage& b) {
    int different = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y), other = b.pixel(x, y);
            different +=
                std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                          std::abs(qBlue(one) - qBlue(other))}) > 64;
        }
    return double(different) / (a.width() * a.height());
}

TEST(Pictures, AreAllThereAtTheirSizes) {
    QStringList names{"icon.svg"};
    for (int number = 1; number <= lastPicture; ++number) {
        names << nameOf(number) + ".svg";
        QSvgRenderer renderer(fileOf(nameOf(number)));
        EXPECT_TRUE(renderer.isValid()) << number;
        EXPECT_EQ(renderer.viewBox(), QRect({0, 0}, designSize(number))) << number;
    }
    names.sort();
    EXPECT_EQ(QDir(":/pictures").entryList(QDir::Files, QDir::Name), names);
    EXPECT_EQ(QSvgRenderer(fileOf("icon")).viewBox(), QRect(0, 0, 128, 128));
}

TEST(Pictures, UseOnlyWhatTheRendererDraws) {
    // In SVG Tiny as Qt draws it all else is passed over in silence.
    const QRegularExpression undrawn(
        "<(?!(svg|g|path|circle|ellipse|rect|line|polygon|polyline|defs|stop|linearGradient|"
        "radialGradient|use)\\b)\\w+|\\s(style|class|clip-path|mask|filter)=");
    const QRegularExpression reference("(?:url\\(|href=\")#([^)\"]*)");
    for (const QString& file : QDir(":/pictures").entryList(QDir::Files)) {
        const QString name = file.chopped(4);
        const QString text = QString::fromUtf8(composed(textOf(name), {130, 170}));
        EXPECT_EQ(undrawn.match(text).captured(), QString()) << qPrintable(name);
        EXPECT_EQ(text.count("<svg"), 1) << qPrintable(name);
        for (auto found = reference.globalMatch(text); found.hasNext();)
            EXPECT_TRUE(text.contains("id=\"" + found.next().captured(1) + '"'))
                << qPrintable(name) << ": something is missing";
    }
}

TEST(Cards, FillEveryBoxWithoutTheTableColour) {
    // The table's own colour in a card would be taken for bare table.
    for (int card = 1; card <= picture::back; ++card)
        for (const QSize screen : screens) {
            const QImage image = draw(card, boxOn(screen, card, 1));
            const std::span pixels(reinterpret_cast<const QRgb*>(image.constBits()),
                                   static_cast<std::size_t>(image.width() * image.height()));
            EXPECT_TRUE(std::ranges::all_of(pixels, [](QRgb p) { return qAlpha(p) == 255; }))
                << card << " has a gap at width " << image.width();
            EXPECT_EQ(std::ranges::count(pixels, tableGreen.rgb()), 0)
                << card << " at width " << image.width();
        }
}

TEST(Cards, AreTheSameUpsideDown) {
    for (int card = 1; card <= picture::back; ++card)
        for (const QSize size : {QSize(200, 372), QSize(300, 372), QSize(600, 372)}) {
            QImage image = draw(card, size);
            // The goblet in the middle of an odd number stands upright.
            if (card == 13 || card == 15 || card == 17) {
                QPainter painter(&image);
                painter.fillRect(QRect(size.width() / 2 - 90, 50, 180, 272), Qt::white);
            }
            // But for the rounding of thin lines, at most 0.17%; one lost index numeral is 0.7%.
            const QImage turned = image.transformed(QTransform().rotate(180));
            EXPECT_LT(difference(image, turned), 0.003) << card << " of width " << size.width();
        }
}

TEST(Cards, AreToldApartAtTableSize) {
    // Without the index numerals. The nearest, the five and the seven of bastoni on a slim card,
    // differ in 5% of their pixels: in two staves.
    for (const QSize size : {tableSize, QSize(106, 139), QSize(149, 149), QSize(60, 247)}) {
        std::vector<QImage> faces;
        for (int id = 1; id <= 40; ++id) {
            faces.push_back(draw(id, size, tableGreen));
            QPainter painter(&faces.back());
            for (const QPoint index : {QPoint(4, 4), QPoint(size.width() - 19, size.height() - 16)})
                painter.fillRect(QRect(index, QSize(15, 12)), Qt::white);
        }
        for (std::size_t a = 0; a < faces.size(); ++a)
            for (std::size_t b = a + 1; b < faces.size(); ++b)
                EXPECT_GT(difference(faces[a], faces[b]), 0.04)
                    << a + 1 << " and " << b + 1 << " of width " << size.width();
    }
}

/// How much wider than high a drawing is: its spread sideways over that up and down, every pixel
/// counted as far as it belongs (0 to 1), so that it is exact to parts of a pixel. 1 for a disc.
double proportion(const QImage& image, const std::function<double(QRgb)>& belongs, QRect part) {
    double count = 0, x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) {
            const double weight = belongs(image.pixel(x, y));
            count += weight;
            x1 += weight * x;
            y1 += weight * y;
            x2 += weight * x * x;
            y2 += weight * y * y;
        }
    const double ofOnePixel = count / 12;
    return std::sqrt((x2 - x1 * x1 / count - ofOnePixel) / (y2 - y1 * y1 / count - ofOnePixel));
}

/// Everything but the largest drawing that hangs together becomes clear.
QImage largestDrawing(QImage image) {
    std::vector<QPoint> best;
    for (int start = 0; start < image.width() * image.height(); ++start) {
        std::vector<QPoint> found, open{{start % image.width(), start / image.width()}};
        while (!open.empty()) {
            const QPoint at = open.back();
            open.pop_back();
            // On ivory: whatever has lost half of its blue.
            if (!image.valid(at) || qBlue(image.pixel(at)) > 120) continue;
            image.setPixel(at, qRgb(255, 255, 255));
            found.push_back(at);
            for (const QPoint by : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
                open.push_back(at + by);
        }
        if (found.size() > best.size()) best = found;
    }
    image.fill(Qt::transparent);
    for (const QPoint at : best) image.setPixel(at, qRgb(0, 0, 0));
    return image;
}

double isThere(QRgb pixel) {
    return qAlpha(pixel) / 255.0;
}
/// On ivory or another light ground.
double isDark(QRgb pixel) {
    return std::max(0, 251 - qRed(pixel)) / 251.0;
}
double isGold(QRgb pixel) {
    return std::max(0, qGreen(pixel) - 40) / 215.0;
}

/// Calls the check for every shape of a box and three scale factors.
void onAllScreens(int number, const std::function<void(const QImage&)>& check) {
    for (const QSize screen : screens)
        for (const double scale : {1.0, 1.5, 2.0}) {
            SCOPED_TRACE(testing::Message()
                         << nameOf(number).toStdString() << " on a screen of " << screen.width()
                         << " by " << screen.height() << " at scale " << scale);
            check(draw(number, boxOn(screen, number, scale)));
        }
}

TEST(Shapes, CoinsAreRound) {
    for (const int card : {2, 4, 5})
        onAllScreens(card, [](const QImage& image) {
            EXPECT_NEAR(proportion(largestDrawing(image), isThere, image.rect()), 1, 0.03);
        });
}

TEST(Shapes, LampsAreRound) {
    for (const int lamp : {picture::green, picture::red})
        onAllScreens(lamp, [](const QImage& image) {
            EXPECT_NEAR(proportion(image, isThere, image.rect()), 1, 0.03);
        });
}

TEST(Shapes, MascotsKeepTheirProportions) {
    for (int frame = picture::gorilla(1); frame <= lastPicture; ++frame) {
        const QImage own = draw(frame, designSize(frame) * 3);
        const double expected = proportion(own, isThere, own.rect());
        onAllScreens(frame, [&](const QImage& image) {
            EXPECT_NEAR(proportion(image, isThere, image.rect()) / expected, 1, 0.03);
        });
    }
}

/// The place of something in a picture's own drawing, in a box where it stands in the middle of
/// the foot (down = 1), of all (0.5), or in the top left corner (across = down = 0).
QRect placeOf(QRectF part, const QImage& image, QSizeF design, double across, double down) {
    const double scale = std::min(image.width() / design.width(), image.height() / design.height());
    return QRectF(part.left() * scale + across * (image.width() - design.width() * scale),
                  part.top() * scale + down * (image.height() - design.height() * scale),
                  part.width() * scale, part.height() * scale)
        .toRect();
}

/// Something small in a picture has the same proportions on all screens as in its own drawing.
void expectSame(int number, QRectF part, const std::function<double(QRgb)>& belongs, double across,
                double down) {
    const QSizeF design = designSize(number);
    const QImage own = draw(number, designSize(number) * 4);
    const double expected = proportion(own, belongs, placeOf(part, own, design, across, down));
    onAllScreens(number, [&](const QImage& image) {
        const QRect place = placeOf(part, image, design, across, down);
        EXPECT_NEAR(proportion(image, belongs, place) / expected, 1, 0.03);
    });
}

TEST(Shapes, EyesAndLettersKeepTheirProportions) {
    expectSame(picture::mask(1), QRectF(52, 56, 46, 12), isDark, 0.5, 1);
    expectSame(picture::title, QRectF(60, 12, 640, 104), isGold, 0.5, 0.5);
    expectSame(picture::face(36), QRectF(8, 7.5, 15, 19.5), isDark, 0.08, 0.045);
}

TEST(Shapes, APulledCoinIsNoticed) {
    const QImage coin = largestDrawing(draw(2, {106, 139}));
    const QImage pulled = coin.scaled(112, 139);
    EXPECT_GT(std::abs(proportion(pulled, isThere, pulled.rect()) - 1), 0.03);
}

TEST(Cache, DrawsSideBySideWhatItDrawsAlone) {
    std::vector<PictureCache::Wanted> all;
    for (int card = 1; card <= picture::back; ++card)
        all.push_back({static_cast<Picture>(card), tableSize});
    PictureCache prepared, other;
    prepared.prepare(all);
    for (const auto& [picture, size] : all)
        EXPECT_EQ(prepared.image(picture, size.width(), size.height()),
                  other.image(picture, size.width(), size.height()))
            << int(picture);
}

TEST(Frames, LampsAndBannerHaveClearCorners) {
    for (int number = picture::banner; number <= lastPicture; ++number) {
        if (number == picture::title) continue;
        const QImage image = draw(number, designSize(number));
        const QRect all = image.rect();
        for (const QPoint corner :
             {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight()})
            EXPECT_EQ(qAlpha(image.pixel(corner)), 0) << number;
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
