// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-screenshots FOLDER [WIDTH HEIGHT]
//
// Plays a match by itself in windows of the given size, 1280 by 960 unless told otherwise, and
// writes pictures of the opening screen, the table, a selection, a fan of taken cards, a scopa, an
// ace sweep, the rules and the score sheet.

#include <QApplication>
#include <QPixmap>
#include <QStringList>
#include <cstdio>
#include <cstdlib>

#include "game/event_table.h"
#include "state/cards.h"
#include "state/state.h"
#include "tools/command_line.h"
#include "tools/robot.h"
#include "tools/scripted_desktop.h"

namespace {

constexpr std::uint64_t showpiece = 11;  ///< a seed whose match looks well
constexpr int handShown = 4;

class Photographer {
public:
    Photographer(QString folder, QSize size)
        : folder_(std::move(folder)),
          size_(size),
          desktop_(showpiece),
          game_(desktop_, eventTable()),
          robot_(game_, showpiece) {
        desktop_.settings = " 0 \r\n 3 \r\n 100 \r\n";
        desktop_.attach(game_);
        robot_.tipoPartita = 1;
        desktop_.time.user = [this](double until) { return act(until); };
        game_.watch = [this](Moment moment) { see(moment); };
    }

    bool run() {
        desktop_.window(game_.frmscopa).resize(size_);
        desktop_.window(game_.frmscore).resize(size_);
        runProgram(game_);
        return written_;
    }

private:
    bool act(double until) {
        if (game_.GO.Visible && !opened_) {
            opened_ = true;
            take("opening", game_.frmscopa);
        }
        if (game_.fase == "selezione" && game_.numeroPresa > 1 && !selected_) {
            selected_ = true;
            take("selection", game_.frmscopa);
        }
        // Each taken card comes after one wait.
        if (numberFanned_ > 2 && --waitsForFan_ == 0) once("fan");
        if (game_.Picture2.Visible) once("scopa");
        if (opened_ && !game_.GO.Visible && game_.Gorilla(6).Visible) once("sweep");
        return robot_.act(until);
    }

    void once(const QString& name) {
        if (seen_.contains(name)) return;
        seen_ += name;
        take(qPrintable(name), game_.frmscopa);
    }

    void see(Moment moment) {
        if (moment == Moment::dealt) ++hand_;
        numberFanned_ = moment == Moment::decided ? game_.numeroPresa : 0;
        waitsForFan_ = numberFanned_;
        if (moment == Moment::turn && !shown_ && fullTable()) {
            shown_ = true;
            take("table", game_.frmscopa);
            game_.Text1.Visible = true;
            take("rules", game_.frmscopa);
            game_.Text1.Visible = false;
        }
        if (moment != Moment::scored || hand_ < handShown || !shown_) return;
        take("score", game_.frmscore);
        throw EndProgram{};
    }

    /// The human is to play, with cards in every place where cards can be.
    bool fullTable() const {
        int cards = 0;
        for (const auto [row, column] : tableOrder) cards += game_.tavolo(row, column) != 0;
        return cards >= 6 && game_.giocatore == human && game_.mosseGiocate <= 1 &&
               game_.presiUmano > 0 && game_.ultimaPresa > 0;
    }

    void take(const char* name, Form& form) {
        desktop_.present();
        const QString path = folder_ + '/' + QString::fromLatin1(name) + ".png";
        written_ = desktop_.window(form).grab().save(path) && written_;
    }

    QString folder_;
    QSize size_;
    ScriptedDesktop desktop_;
    Game game_;
    Robot robot_;
    QStringList seen_;
    int hand_ = 0, numberFanned_ = 0, waitsForFan_ = 0;
    bool opened_ = false, shown_ = false, selected_ = false, written_ = true;
};

}  // namespace

int main(int argc, char** argv) {
    constexpr const char* usage =
        "velarda-screenshots FOLDER [WIDTH HEIGHT]\n\n"
        "Plays a hand and writes pictures of its windows into FOLDER (1280 by 960 pixels).\n";
    if (answersHelpOrVersion(argc, argv, "velarda-screenshots", usage)) return 0;
    if (argc != 2 && argc != 4) return misused(usage);
    const QSize size = argc == 4 ? QSize(QByteArray(argv[2]).toInt(), QByteArray(argv[3]).toInt())
                                 : QSize(1280, 960);
    if (size.isEmpty() || size.width() > 16384 || size.height() > 16384) {
        std::fputs("velarda-screenshots: the size must be between 1 and 16384 pixels\n", stderr);
        return 2;
    }
    QApplication application(argc, argv);
    if (Photographer(QString::fromLocal8Bit(argv[1]), size).run()) return 0;
    std::fprintf(stderr, "velarda-screenshots: cannot write to %s\n", argv[1]);
    return 1;
}
