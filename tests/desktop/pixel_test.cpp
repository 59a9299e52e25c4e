// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <array>
#include <vector>

#include "game/cards.h"
#include "table/painting.h"
#include "tools/scripted_desktop.h"

// Hands are played on real windows of many sizes, and after every move each pixel of the table is
// looked at. CTest runs this program once for each scale factor.

namespace {

struct Known {
    Picture picture;
    Box box;
};

/// What is to be seen on the surface between two moves.
class Expected {
public:
    explicit Expected(const Game& g) : g_(g) {
        for (const auto [row, column] : tableOrder)
            if (const int id = g.tavolo(row, column)) add(id, g.carta(id).Left, g.carta(id).Top);
        for (int player = human; player <= computer; ++player) addPile(player);
        if (g.cimaMazzo < deckSpent) add(picture::back, deckLeft, pileTop(g.mazziere));
        for (int slot = 0; slot <= 2; ++slot)
            if (g.dorso(slot).Tag != "0") add(picture::back, handLeft(g, slot), 5);
    }

    /// The human's cards that have not been played, by slot.
    void addHand(const std::array<bool, 3>& held) {
        for (int slot = 0; slot <= 2; ++slot)
            if (held[static_cast<std::size_t>(slot)])
                add(g_.mazzo(g_.cimaMazzo + slot - 2), handLeft(g_, slot), handTop(g_));
    }

    const std::vector<Known>& cards() const { return cards_; }

private:
    float pileTop(int player) const { return static_cast<float>(g_.pilaY(player)); }

    void add(int picture, float left, float top) {
        cards_.push_back({static_cast<Picture>(picture),
                          {left, top, left + g_.larghezzaCarta, top + g_.altezzaCarta}});
    }

    void addPile(int player) {
        add(picture::back, pileLeft, pileTop(player));  // once the player has taken cards
        const float step = player == human ? -25.0f : 25.0f;
        for (int n = 0; n < g_.scope(player); ++n)
            add(picture::none, g_.larghezzaCarta + 100,
                pileTop(player) + step * static_cast<float>(n));
    }

    const Game& g_;
    std::vector<Known> cards_;
};

QRect rectOf(const PixelBox& box) {
    return QRect(QPoint(box.left, box.top), QPoint(box.right - 1, box.bottom - 1));
}

class TableWatch {
public:
    TableWatch(Game& g, ScriptedDesktop& desktop, Robot& robot)
        : g_(g), desktop_(desktop), robot_(robot) {}

    /// Every pixel that is neither table colour nor under something known.
    int strayPixels() {
        const QImage image = grab();
        const QRgb table = qRgb(0, 0x70, 0);
        const std::vector<QRect> covered = coveredRects(image);
        int stray = 0;
        for (int y = 0; y < image.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                if (line[x] == table) continue;
                const auto hides = [&](const QRect& rect) { return rect.contains(x, y); };
                if (std::none_of(covered.begin(), covered.end(), hides)) ++stray;
            }
        }
        return stray;
    }

    /// How many table and hand cards do not show their picture, drawn for just this size.
    int blurredCards() {
        const QImage image = grab();
        PictureCache pictures;
        const Expected now = expected();
        int blurred = 0;
        for (const Known& card : now.cards()) {
            if (card.picture == picture::none || card.picture == picture::back) continue;
            const QRect rect = rectOf(pictureToPixels(card.box, g_.frmscopa.grid));
            const QImage& drawn = pictures.image(card.picture, rect.width(), rect.height());
            if (image.copy(rect) != drawn.convertToFormat(image.format())) ++blurred;
        }
        return blurred;
    }

private:
    QImage grab() {
        desktop_.present();
        return desktop_.window(g_.frmscopa)
            .view()
            .grab()
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }

    Expected expected() {
        Expected expected(g_);
        expected.addHand({robot_.holds(1), robot_.holds(2), robot_.holds(3)});
        return expected;
    }

    std::vector<QRect> coveredRects(const QImage& image) {
        std::vector<QRect> covered;
        const Expected now = expected();
        for (const Known& card : now.cards())
            covered.push_back(rectOf(pictureToPixels(card.box, g_.frmscopa.grid)));
        for (const Control* control : drawnControls(g_.frmscopa))
            covered.push_back(rectOf(pixelsOf(*control, g_.frmscopa.grid)));
        EXPECT_GT(image.width(), 0);
        return covered;
    }

    Game& g_;
    ScriptedDesktop& desktop_;
    Robot& robot_;
};

/// Plays hands on windows whose sizes follow each other, and calls `look` after every move.
void playHands(QSize size, int hands, const std::function<void(TableWatch&, FormWindow&)>& look,
               const std::string& settings = " 0 \r\n 3 \r\n 100 \r\n") {
    ScriptedDesktop desktop;
    desktop.settings = settings;
    Game g(desktop);
    desktop.attach(g);
    Robot robot(g, 7);
    robot.tipoPartita = 2;
    TableWatch watch(g, desktop, robot);
    desktop.time.user = [&](double until) { return robot.act(until); };
    struct Seen {
        std::function<void()> moved;
        int hands;
    } seen{[&] { look(watch, desktop.window(g.frmscopa)); }, hands};
    g.watcher = &seen;
    g.watch = [](Game&, Moment moment, void* data) {
        auto& what = *static_cast<Seen*>(data);
        if (moment == Moment::carriedOut) what.moved();
        if (moment == Moment::scored && --what.hands == 0) throw EndProgram{};
    };
    // The window takes its size at once, as if the screen had it.
    desktop.window(g.frmscopa).resize(size);
    runProgram(g);
}

class TableAtSize : public testing::TestWithParam<QSize> {};

TEST_P(TableAtSize, IsBareWhereNothingLies) {
    int moves = 0, stray = 0;
    playHands(GetParam(), 1, [&](TableWatch& watch, FormWindow&) {
        stray += watch.strayPixels();
        ++moves;
    });
    EXPECT_EQ(moves, 36);
    EXPECT_EQ(stray, 0);
}

INSTANTIATE_TEST_SUITE_P(Sizes, TableAtSize,
                         testing::Values(QSize(640, 480), QSize(1001, 777), QSize(1280, 1024),
                                         QSize(1366, 768), QSize(1920, 1080), QSize(3840, 2160)),
                         [](const auto& size) {
                             return std::to_string(size.param.width()) + "x" +
                                    std::to_string(size.param.height());
                         });

TEST(Table, IsBareWithCardsOfAnotherScale) {
    int stray = 0;
    for (const char* settings : {" 0 \r\n 3 \r\n 57 \r\n", " 0 \r\n 3 \r\n 106 \r\n"})
        playHands(
            {1111, 733}, 1, [&](TableWatch& watch, FormWindow&) { stray += watch.strayPixels(); },
            settings);
    EXPECT_EQ(stray, 0);
}

TEST(Table, IsSharpAndInPlaceAfterEveryResize) {
    const std::array<QSize, 4> sizes{QSize(800, 600), QSize(1497, 831), QSize(640, 480),
                                     QSize(1920, 1080)};
    std::size_t move = 0;
    int stray = 0, blurred = 0;
    playHands({1024, 768}, 1, [&](TableWatch& watch, FormWindow& window) {
        window.resize(sizes[move++ % sizes.size()]);
        QCoreApplication::processEvents();
        stray += watch.strayPixels();
        blurred += watch.blurredCards();
    });
    EXPECT_EQ(stray, 0);
    EXPECT_EQ(blurred, 0);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
