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
#include <cstdlib>
#include <map>
#include <span>
#include <vector>

#include "platform/qt/picture_cache.h"

// What the game relies on in its drawings, and what an artist may spoil without noticing.

namespace {

constexpr int lastPicture = picture::mask(5);
constexpr QSize tableSize(62, 108);  ///< of a card on a small screen

QString fileOf(const QString& name) {
    return QStringLiteral(":/pictures/%1.svg").arg(name);
}
QString nameOf(int number) {
    return QString::fromStdString(picture::name(static_cast<Picture>(number)));
}

/// Drawn like PictureCache does, but with the alpha that it takes off cards, or on a colour.
QImage draw(int number, QSize size, QColor ground = Qt::transparent) {
    static std::map<int, QSvgRenderer> renderers;
    QSvgRenderer& renderer = renderers[number];
    if (!renderer.isValid()) renderer.load(fileOf(nameOf(number)));
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
        "radialGradient)\\b)\\w+|\\s(style|class|clip-path|mask|filter)=");
    const QRegularExpression reference("url\\(#([^)]*)\\)");
    for (const QString& name : QDir(":/pictures").entryList(QDir::Files)) {
        QFile file(":/pictures/" + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        EXPECT_EQ(undrawn.match(text).captured(), QString()) << qPrintable(name);
        EXPECT_EQ(text.count("<svg"), 1) << qPrintable(name);
        for (auto found = reference.globalMatch(text); found.hasNext();)
            EXPECT_TRUE(text.contains("id=\"" + found.next().captured(1) + '"'))
                << qPrintable(name) << ": a gradient is missing";
    }
}

TEST(Cards, AreOpaqueFreeOfTheTableColourAndTheSameUpsideDown) {
    for (int card = 1; card <= picture::back; ++card) {
        // The table's own colour in a card would be taken for bare table.
        for (const QSize size : {QSize(50, 90), tableSize, QSize(77, 143), QSize(101, 187),
                                 QSize(199, 333), QSize(300, 390), QSize(500, 700)}) {
            const QImage image = draw(card, size);
            const std::span pixels(reinterpret_cast<const QRgb*>(image.constBits()),
                                   static_cast<std::size_t>(size.width() * size.height()));
            EXPECT_TRUE(std::ranges::all_of(pixels, [](QRgb p) { return qAlpha(p) == 255; }) &&
                        std::ranges::count(pixels, tableGreen.rgb()) == 0)
                << card << " of width " << size.width();
        }
        // But for the rounding of thin lines, at most 0.17%; one lost index numeral is 0.7%.
        const QImage image = draw(card, {200, 372});
        EXPECT_LT(difference(image, image.transformed(QTransform().rotate(180))), 0.003) << card;
    }
}

TEST(Cards, AreToldApartAtTableSize) {
    // Without the index numerals. The nearest, the six and the seven of bastoni, differ in 13%
    // of their pixels, the next pairs in 15% and 20%; a twin that differs in one stave has 7%.
    std::vector<QImage> faces;
    for (int id = 1; id <= 40; ++id) {
        faces.push_back(draw(id, tableSize, tableGreen));
        QPainter painter(&faces.back());
        for (const QPoint index : {QPoint(4, 4), QPoint(43, 92)})
            painter.fillRect(QRect(index, QSize(15, 12)), Qt::white);
    }
    for (std::size_t a = 0; a < faces.size(); ++a)
        for (std::size_t b = a + 1; b < faces.size(); ++b)
            EXPECT_GT(difference(faces[a], faces[b]), 0.10) << a + 1 << " and " << b + 1;
}

TEST(Frames, MoveAllTheTimeAndCloseTheLoop) {
    for (const auto& [first, last] : {std::pair(picture::gorilla(1), picture::gorilla(10)),
                                      std::pair(picture::mask(1), picture::mask(5))}) {
        const auto shown = [](int frame) { return draw(frame, designSize(frame), tableGreen); };
        std::vector<double> steps;
        for (int frame = first; frame <= last; ++frame) {
            steps.push_back(difference(shown(frame), shown(frame == last ? first : frame + 1)));
            EXPECT_GT(steps.back(), 0.05) << frame;
        }
        EXPECT_LE(steps.back(), *std::max_element(steps.begin(), steps.end() - 1));
    }
}

TEST(Frames, LampsAndBannerHaveClearCorners) {
    for (int number = picture::banner; number <= lastPicture; ++number) {
        for (const int scale : {1, 3}) {
            if (number == picture::title) continue;
            const QImage image = draw(number, designSize(number) * scale);
            const QRect all = image.rect();
            for (const QPoint corner :
                 {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight()})
                EXPECT_EQ(qAlpha(image.pixel(corner)), 0) << number;
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
