// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// The desktop backend plays as the headless one does, and its mouse means the same at every size.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QTemporaryFile>

#include "game/event_table.h"
#include "platform/qt/surface_view.h"
#include "state/state.h"
#include "tools/recorder.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace {

constexpr int hands = 4;

/// Plays matches to 21 points and returns what happened, line by line. `press` may do the robot's
/// presses in its own way, or it plays by a `key`.
template <class Platform>
std::string transcript(Platform& backend, Game& g, const std::function<void(Game&)>& press = {},
                       const std::function<void(Key)>& key = {}) {
    Robot robot(g, 5);
    robot.tipoPartita = 2;
    robot.key = key;
    Recorder recorder(true);
    backend.time.user = [&](double until) {
        const bool acted = robot.act(until);
        if (acted && press) press(g);
        return acted;
    };
    g.watch = [&](Moment moment) {
        recorder.see(g, moment);
        if (moment == Moment::scored && recorder.scored == hands) throw EndProgram{};
    };
    runProgram(g);
    return recorder.text;
}

/// Does the queued presses again with the mouse of the window system.
void pressWithMouse(Game& g, SurfaceView& view) {
    const std::vector<Event> queued = std::move(g.queue);
    g.queue.clear();
    for (const Event& event : queued) {
        if (event.verb != Verb::MouseDown) {
            g.queue.push_back(event);
            continue;
        }
        const QPointF place(static_cast<double>(event.X) * view.width() / 800,
                            static_cast<double>(event.Y) * view.height() / 600);
        QMouseEvent press(QEvent::MouseButtonPress, place, view.mapToGlobal(place), Qt::RightButton,
                          Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &press);
    }
}

struct Played : ScriptedDesktop {
    Played() { attach(g); }
    Game g{*this, eventTable()};
};

TEST(Desktop, PlaysAsHeadlessByMouseAtAnySizeAndWhenMovedToAScreenOfAnotherScale) {
    Headless backend(1);
    Game headless(backend, eventTable());
    const std::string expected = transcript(backend, headless);
    for (const QSize size : {QSize(640, 480), QSize(1111, 777), QSize(1920, 1080), QSize()}) {
        Played desktop;
        FormWindow& window = desktop.window(desktop.g.frmscopa);
        if (size.isValid()) window.resize(size);
        const auto press = [&, presses = 0](Game& g) mutable {
            const QScreen* screen = QGuiApplication::screens().at(++presses / 3 % 2);
            if (!size.isValid()) {
                window.move(screen->geometry().topLeft());
                desktop.present();
                ASSERT_EQ(g.frmscopa.grid.fixed, screen->devicePixelRatio());
            }
            pressWithMouse(g, window.view());
        };
        EXPECT_EQ(transcript(desktop, desktop.g, press), expected);
    }
}

/// A key of the keyboard, to whatever has the focus in a window.
void strike(FormWindow& window, int key, bool heldDown = false) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, {}, heldDown);
    QCoreApplication::sendEvent(window.focusWidget(), &event);
}

TEST(Desktop, IsPlayedByKeysAlone) {
    constexpr int keys[] = {Qt::Key_1,   Qt::Key_2,     Qt::Key_3,    Qt::Key_Left,
                            Qt::Key_Up,  Qt::Key_Right, Qt::Key_Down, Qt::Key_Home,
                            Qt::Key_End, Qt::Key_Return};
    Headless backend(1);
    Game headless(backend, eventTable());
    Played desktop;
    const auto key = [&](Key wanted) {
        strike(desktop.window(*desktop.g.front), keys[static_cast<int>(wanted)]);
    };
    EXPECT_EQ(transcript(desktop, desktop.g, {}, key), transcript(backend, headless));
}

/// What a reader of the screen says of a window and of all that is seen in it.
QString spoken(QAccessibleInterface* part) {
    QString names = part->text(QAccessible::Name);
    for (int i = 0; i < part->childCount(); ++i)
        if (!part->child(i)->state().invisible) names += '/' + spoken(part->child(i));
    return names;
}

TEST(Desktop, IsSpokenAndLedByKeysFromWindowToWindow) {
    Played desktop;
    Game& g = desktop.g;
    QStringList said;  // twice on the opening screen, then on two score sheets
    const std::vector<std::vector<int>> keys{
        {Qt::Key_Escape}, {Qt::Key_Return}, {Qt::Key_Return}, {Qt::Key_Tab, Qt::Key_Return}};
    desktop.time.user = [&, robot = Robot(g, 1)](double until) mutable {
        const bool inPlay = g.front == &g.frmscopa && !g.GO.Visible;
        if (inPlay) return robot.act(until);
        if (until == atOnce) return false;  // a key is on its way
        if (said.isEmpty()) g.Text3.Visible = true;
        FormWindow& window = desktop.window(*g.front);
        window.takeControls();  // as whenever a form is shown
        desktop.present();
        for (const int key : keys.at(static_cast<std::size_t>(said.size()))) strike(window, key);
        said += spoken(QAccessible::queryAccessibleInterface(&window));
        return true;
    };
    runProgram(g);
    EXPECT_TRUE(said.at(0).contains("/21 points Game/GO/Regole del gioco/"));
    EXPECT_TRUE(said.at(1).endsWith("/GO//Play rate/Game rules/Music/Info/QUIT"));
    EXPECT_TRUE(said.at(2).startsWith("Corvalia - Scopa/Score sheet/SCORE/Player, primiera, "));
    EXPECT_TRUE(said.at(2).contains("/Player, row 1, Carte "));
    EXPECT_EQ(said.last().count("/QUIT"), 1);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QTemporaryFile screens;
    screens.open();
    screens.write(R"({"screens": [{"name": "usual", "width": 1280, "height": 1024, "dpr": 1},
        {"name": "dense", "x": 1280, "width": 1280, "height": 1024, "dpr": 2}]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
