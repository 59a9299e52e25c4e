// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Three hundred seeded hands, and one number for all that happened.

#include "game/cards.h"
#include "tests/script.h"

namespace {

/// The signature of these hands. It changes when anything about the play changes: the shuffle, a
/// rule, what the computer chooses, the points, the order in which random numbers are drawn, or
/// the robot's own choices. A change of mere looks or timing leaves it alone. Whoever changes the
/// play on purpose makes sure that the other tests say so too and puts the new number here.
constexpr std::uint64_t knownSignature = 5974004500799276125u;

/// The FNV-1a hash of a sequence of numbers, each as two bytes.
struct Signature {
    std::uint64_t value = 0xcbf29ce484222325u;
    void add(int number) {
        for (const int byte : {number & 0xFF, number >> 8 & 0xFF})
            value = (value ^ static_cast<unsigned>(byte)) * 0x100000001b3u;
    }
};

/// Adds each decided move, the table it leaves and the count of each hand.
void sign(Signature& signature, const Game& g, Moment moment) {
    if (moment == Moment::decided) {
        for (const int n : {g.giocatore, g.cartaGiocata, g.postoMano}) signature.add(n);
        for (int i = 1; i <= g.numeroPresa; ++i) signature.add(g.presa(i));
    } else if (moment == Moment::carriedOut) {
        for (const auto [row, column] : tableOrder) signature.add(g.tavolo(row, column));
    } else if (moment == Moment::scored) {
        for (const int n : {g.presiUmano, g.denariUmano, g.primieraVinta, int{g.settebelloUmano},
                            g.scope(1), g.scope(2), g.totaleUmano, g.totaleComputer, g.mazziere})
            signature.add(n);
    }
}

/// Ten hands with each of thirty seeds, the kinds of match in turn.
std::uint64_t playThreeHundred(bool sound) {
    Signature signature;
    for (int run = 0; run < 30; ++run) {
        script::Play p(static_cast<std::uint64_t>(run + 1));
        p.robot.tipoPartita = run % 3;
        p.backend.soundWorks = sound;
        p.watch = [&](Moment moment) { sign(signature, p.g, moment); };
        p.runHands(10);
    }
    return signature.value;
}

TEST(ThreeHundredHands, PlayAsKnownAndTheSameWithoutSound) {
    EXPECT_EQ(playThreeHundred(true), knownSignature) << "see the comment at knownSignature";
    EXPECT_EQ(playThreeHundred(true), playThreeHundred(false));
}

}  // namespace
