// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// What the window system draws on the game's colours: option bars and text panels, the same in a
// light and in a dark colour scheme. And how often a surface is painted, and who hears of it.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QImage>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/surface_view.h"
#include "state/state.h"
#include "tools/scripted_desktop.h"

namespace {

/// The table's window with the opening screen's controls and nothing that happens by itself.
struct Opening : ScriptedDesktop {
    explicit Opening(QSize size = {800, 600}) {
        attach(g);
        window(g.frmscopa).resize(size);
        for (int i = 0; i <= 2; ++i) Move(g.Option1(i), 320, 100 + 30 * static_cast<float>(i));
        for (OptionButton& option : g.Option1) option.Visible = true;
        Move(g.GO, 350, 300);
        g.GO.Visible = true;
        show(g.frmscopa);
        present();
    }

    QWidget* bar(int index) { return widgets<QRadioButton>().at(index); }

    template <class Widget>
    QList<Widget*> widgets() {
        return window(g.frmscopa).view().findChildren<Widget*>();
    }

    static void mouse(QWidget* widget, QEvent::Type type, QPointF place) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }

    Game g{*this, {}};
};

QImage seen(QWidget* widget) {
    return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QPalette darkScheme() {
    QPalette dark(QColor(30, 30, 30), QColor(20, 20, 20));
    dark.setColor(QPalette::Base, Qt::black);
    return dark;
}

/// How many pixels of a bar's left end, where its circle is, are dark enough to be told from the
/// yellow.
int darkPixels(const QImage& bar) {
    int dark = 0;
    for (int y = 0; y < bar.height(); ++y)
        for (int x = 0; x < 14; ++x) dark += qGray(bar.pixel(x, y)) < 128;
    return dark;
}

TEST(OptionBars, AreButtonsFromEndToEnd) {
    Opening opening;
    QWidget* last = opening.bar(2);
    for (const QPointF place : {QPointF(1, 1), QPointF(last->width() - 2, last->height() - 2)}) {
        opening.g.queue.clear();
        clickOn(opening.g, opening.g.frmscopa, opening.g.Option1(0));
        opening.mouse(last, QEvent::MouseButtonPress, place);
        opening.mouse(last, QEvent::MouseButtonRelease, place);
        EXPECT_TRUE(opening.g.Option1(2).Value) << "pressed at " << place.x();
        EXPECT_EQ(opening.g.queue.back().index, 2) << "pressed at " << place.x();
    }
}

TEST(OptionBars, ShowTheMouseAboveThemAndThatTheyArePressed) {
    Opening opening;
    const QImage before = seen(opening.bar(1));
    opening.bar(1)->setAttribute(Qt::WA_UnderMouse);
    const QImage underMouse = seen(opening.bar(1));
    EXPECT_NE(underMouse, before);
    opening.mouse(opening.bar(1), QEvent::MouseButtonPress, {100, 5});
    EXPECT_NE(seen(opening.bar(1)), underMouse) << "pressed";
}

TEST(Controls, TellTheChosenBarAndLookTheSameInEveryScheme) {
    QList<QImage> chosen, other, panels;
    for (const QPalette& scheme : {QPalette(Qt::lightGray), darkScheme()}) {
        QApplication::setPalette(scheme);
        Opening opening;
        opening.g.Text1.Visible = true;
        opening.present();
        chosen += seen(opening.bar(0));
        other += seen(opening.bar(1));
        panels += seen(opening.widgets<QPlainTextEdit>().at(0));
    }
    EXPECT_EQ(chosen[0], chosen[1]);
    EXPECT_EQ(other[0], other[1]);
    EXPECT_EQ(panels[0], panels[1]);
    EXPECT_GT(darkPixels(other[0]), 15) << "the outline of a circle that is not chosen";
    EXPECT_GT(darkPixels(chosen[0]), darkPixels(other[0]) + 8) << "the dot of the chosen one";
}

TEST(TextPanels, OpenAtTheirTop) {
    Opening opening;
    opening.g.Text3.Visible = true;
    opening.present();
    QScrollBar* scroll = opening.widgets<QPlainTextEdit>().at(0)->verticalScrollBar();
    scroll->setValue(scroll->maximum());
    ASSERT_GT(scroll->value(), 0) << "the rules are longer than their panel";
    opening.g.Text3.Visible = false;
    opening.present();
    opening.g.Text3.Visible = true;
    opening.present();
    EXPECT_EQ(scroll->value(), 0);
}

TEST(TextPanels, HaveTheKeysWhenTheyComeToTheFront) {
    Opening opening;
    TextBox *const rules = &opening.g.Text1, *const information = &opening.g.Text4;
    for (TextBox* const front : {rules, information, rules}) {
        front->Visible = true;
        ZOrder(opening.g, *front);
        opening.present();
        const QWidget* focused = opening.window(opening.g.frmscopa).focusWidget();
        ASSERT_NE(focused, nullptr);
        EXPECT_EQ(focused->accessibleName().toStdString(), front->name);
    }
}

TEST(Ring, LiesInFrontRoundItsCardAtEverySizeAndGoesWithTheMouse) {
    Opening opening;
    Form& form = opening.g.frmscopa;
    SurfaceView& view = opening.window(form).view();
    for (const QSize size : {QSize(800, 600), QSize(1300, 500), QSize(360, 900)}) {
        form.ring = {};
        opening.window(form).resize(size);
        opening.present();
        const QImage without = seen(&view);
        form.ring = {300, 480, 362, 588};
        opening.present();
        const QImage with = seen(&view);
        const PixelBox card = toPixels(form.ring, form.grid);
        const int middle = (card.top + card.bottom) / 2;
        EXPECT_EQ(with.pixel(card.left, middle), without.pixel(card.left, middle)) << "the card";
        EXPECT_NE(with.pixel(card.left - 1, middle), without.pixel(card.left - 1, middle));
        EXPECT_NE(with.pixel(card.right, middle), without.pixel(card.right, middle));
        const int nextCard = toPixels({368, 480, 430, 588}, form.grid).left;
        EXPECT_EQ(with.pixel(nextCard, middle), without.pixel(nextCard, middle)) << "the next one";
    }
    QMouseEvent move(QEvent::MouseMove, {5, 5}, QPointF(77, 99), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(&view, &move);
    ASSERT_FALSE(opening.g.queue.empty());
    EXPECT_EQ(opening.g.queue.back().verb, Verb::MouseMove);
}

TEST(Keys, HeldDownPressNoButtonAgain) {
    Opening opening;
    QWidget* go = opening.widgets<QPushButton>().at(0);
    for (const bool again : {true, false}) {
        opening.g.queue.clear();
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, again);
        QCoreApplication::sendEvent(go, &event);
        EXPECT_EQ(opening.g.queue.empty(), again);
    }
}

/// Counts how often a widget is painted.
struct Paints : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

TEST(Surface, IsPaintedOnceForASize) {
    Opening opening;
    FormWindow& window = opening.window(opening.g.frmscopa);
    Paints paints;
    window.view().installEventFilter(&paints);
    window.resize(900, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(1, paints.count) << "when the window system asks";
    opening.present();
    EXPECT_EQ(1, paints.count) << "when the game shows what it has painted, which is shown already";
}

TEST(Surface, TellsAReaderWhatTheWindowSystemWasTheFirstToShow) {
    Opening opening;
    SurfaceView& view = opening.window(opening.g.frmscopa).view();
    int told = 0;
    view.tellChanges([&] { ++told; });
    Line(opening.g.frmscopa, 10, 10, 20, 20, 0, LineStyle::BF);
    view.repaint();
    EXPECT_EQ(0, told) << "in the middle of painting";
    opening.present();
    EXPECT_EQ(1, told);
}

TEST(Letters, StayInsideOfTheirBoxes) {
    for (const int size : {9, 14, 24})
        for (const QSize window : {QSize(320, 240), QSize(320, 900), QSize(800, 600)}) {
            QApplication::setFont(QFont("sans", size));
            Opening opening(window);
            opening.g.Text4.Visible = true;
            opening.present();
            for (auto* button : opening.widgets<QAbstractButton>()) {
                const QRect text = button->fontMetrics().boundingRect(button->text());
                EXPECT_LE(text.width(), button->width()) << window.width() << " across";
                EXPECT_LE(button->fontInfo().pixelSize(), button->height());
            }
            QScrollBar* scroll = opening.widgets<QPlainTextEdit>().at(0)->verticalScrollBar();
            EXPECT_EQ(scroll->maximum(), 0) << "the information at " << size << " points";
        }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setStyle("Fusion");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
