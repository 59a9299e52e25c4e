// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Hands are played on real windows of many sizes, and after every move each pixel of the table is
// looked at. CTest runs this program once for each scale factor.

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cstring>
#include <vector>

#include "game/event_table.h"
#include "platform/qt/surface_view.h"
#include "state/cards.h"
#include "state/state.h"
#include "table/geometry.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace {

constexpr QRgb tableGreen = qRgb(0, 0x70, 0);

QRect rectOf(const PixelBox& box) {
    return QRect(QPoint(box.left, box.top), QPoint(box.right - 1, box.bottom - 1));
}

struct Known {
    int picture;
    QRect rect;
};

/// A hand on a window that takes these sizes in turn, at once, as if the screen had them.
class Table {
public:
    Table(std::vector<QSize> sizes, const std::string& scale) : sizes_(std::move(sizes)) {
        desktop_.settings = "0,3," + scale;
        desktop_.attach(g_);
        desktop_.time.user = [this](double until) { return robot_.act(until); };
        g_.watch = [this](Moment moment) {
            if (moment == Moment::decided && comparing()) compareWithPoint();
            if (moment == Moment::carriedOut) look();
            if (moment == Moment::scored) throw EndProgram{};
        };
        window().resize(sizes_[0]);
        runProgram(g_);
    }
    std::size_t moves = 0;
    int stray = 0;  ///< moves that leave something else than the table's colour and what is known
    int compared = 0;
    int misread = 0;  ///< pixels in which Point tells another colour than the screen
    int blurred = 0;  ///< cards that do not show their picture, drawn for just this size

private:
    FormWindow& window() { return desktop_.window(g_.frmscopa); }

    /// Once for each of many sizes, in the second of three deals.
    bool comparing() const { return sizes_.size() > 9 && moves / sizes_.size() == 1; }

    void look() {
        window().resize(sizes_[moves++ % sizes_.size()]);
        QCoreApplication::processEvents();
        desktop_.present();
        QImage& image = screen();
        const std::vector<Known> known = knownCards();
        for (const auto& [picture, rect] : known)
            if (picture != picture::none && picture != picture::back)
                blurred += isBlurred(image, static_cast<Picture>(picture), rect);
        QPainter cover(&image);
        for (const auto& [picture, rect] : known) cover.fillRect(rect, QColor(tableGreen));
        for (const Control* control : drawnControls(g_.frmscopa))
            cover.fillRect(rectOf(pixelsOf(*control, g_.frmscopa.grid)), QColor(tableGreen));
        cover.end();
        stray += !isBare(image);
    }

    static bool isBare(const QImage& image) {
        const std::vector<QRgb> bare(static_cast<std::size_t>(image.width()), tableGreen);
        const auto bytes = static_cast<std::size_t>(image.bytesPerLine());
        for (int y = 0; y < image.height(); ++y)
            if (std::memcmp(image.constScanLine(y), bare.data(), bytes) != 0) return false;
        return true;
    }

    QImage& screen() {
        SurfaceView& view = window().view();
        const QSize size = view.size() * view.devicePixelRatio();
        if (screen_.size() != size) screen_ = QImage(size, QImage::Format_RGB32);
        screen_.setDevicePixelRatio(view.devicePixelRatio());
        view.render(&screen_);
        screen_.setDevicePixelRatio(1);
        return screen_;
    }

    bool isBlurred(const QImage& image, Picture picture, const QRect& rect) {
        const auto [width, height] =
            drawnSize({0, 0, g_.larghezzaCarta, g_.altezzaCarta}, g_.frmscopa.grid);
        const QImage& drawn = pictures_.image(picture, width, height);
        const QImage seen = image.copy(QRect(rect.topLeft(), drawn.size().boundedTo(rect.size())));
        return seen != drawn.copy(seen.rect()).convertToFormat(image.format());
    }

    /// Looks at the bare surface, without the controls in front of it.
    void compareWithPoint() {
        std::vector<Control*> hidden;
        for (Control* control : g_.frmscopa.controls)
            if (std::exchange(control->Visible, false)) hidden.push_back(control);
        desktop_.present();
        const QImage& image = screen();
        const auto [across, down, fixed] = g_.frmscopa.grid;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const Colour read = Point(g_.frmscopa, pressOn(x, across), pressOn(y, down));
                const QRgb seen = image.pixel(x, y);
                misread += read != (qRed(seen) | qGreen(seen) << 8 | qBlue(seen) << 16);
            }
        for (Control* control : hidden) control->Visible = true;
        ++compared;
    }

    /// What is to be seen on the surface between two moves.
    std::vector<Known> knownCards() const {
        std::vector<Known> known;
        const auto add = [&](int picture, Spot spot) {
            const Box box{spot.left, spot.top, spot.left + g_.larghezzaCarta,
                          spot.top + g_.altezzaCarta};
            known.push_back({picture, rectOf(toPixels(box, g_.frmscopa.grid))});
        };
        for (const Place place : tableOrder)
            if (const int id = g_.tavolo(place.row, place.column))
                add(id, {g_.carta(id).Left, g_.carta(id).Top});
        for (const int player : {human, computer}) {
            add(picture::back, pileSpot(g_, player));  // once the player has taken cards
            for (int n = 1; n <= g_.scope(player); ++n)
                add(picture::none, scopaSpot(g_, player, n));
        }
        if (g_.cimaMazzo < deckSpent) add(picture::back, deckSpot(g_));
        for (int slot = 0; slot <= 2; ++slot) {
            if (g_.dorso(slot).Tag != "0") add(picture::back, computersSpot(g_, slot));
            if (robot_.holds(slot + 1)) add(g_.mazzo(g_.cimaMazzo + slot - 2), handSpot(g_, slot));
        }
        return known;
    }

    std::vector<QSize> sizes_;
    ScriptedDesktop desktop_;
    Game g_{desktop_, eventTable()};
    Robot robot_{g_, 7};
    PictureCache pictures_;
    QImage screen_;
};

TEST(Table, IsBareAndSharpAtEverySizeAndAfterEveryResize) {
    const std::pair<std::vector<QSize>, const char*> cases[] = {
        {{{640, 480}}, "100"},   {{{1001, 777}}, "100"},
        {{{1366, 768}}, "100"},  {{{1920, 1080}}, "100"},
        {{{3840, 2160}}, "100"}, {{{1111, 733}}, "57"},
        {{{1111, 733}}, "106"},  {{{800, 600}, {1497, 831}, {640, 480}, {1920, 1080}}, "100"}};
    for (const auto& [sizes, scale] : cases) {
        const Table table(sizes, scale);
        EXPECT_EQ(table.moves, 36u);
        EXPECT_EQ(table.stray, 0) << sizes[0].width() << ", scale " << scale;
        EXPECT_EQ(table.blurred, 0) << sizes[0].width() << ", scale " << scale;
    }
}

TEST(Point, TellsWhatTheScreenShowsInEveryPixel) {
    std::vector<QSize> sizes;
    for (const int width : {320, 333, 401, 500, 563, 640, 641, 700, 799, 800, 801, 1001})
        sizes.emplace_back(width, width * 3 / 4);
    const Table table(sizes, "100");
    EXPECT_EQ(table.compared, 12);
    EXPECT_EQ(table.misread, 0);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
