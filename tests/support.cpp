// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tests/support.h"

#include <array>
#include <sstream>

#include "game/computer.h"
#include "game/driver.h"
#include "game/human.h"

namespace test {
namespace {

constexpr std::string_view suits = "dcbs";
constexpr float cardWidth = 62, cardHeight = 108, between = 6;
constexpr float firstHandLeft = 400 - 1.5f * cardWidth - between, humanTop = 595 - cardHeight;
constexpr int places = 12;

int rowOf(int place) {
    return (place - 1) / 4 + 1;
}
int columnOf(int place) {
    return (place - 1) % 4 + 1;
}

int value(std::string_view text) {
    const int found = text == "A" ? 1 : std::stoi(std::string(text));
    if (found < 1 || found > 10) throw std::invalid_argument("no such value");
    return found;
}

bool namesSuit(std::string_view text) {
    return suits.find(text.back()) != std::string_view::npos;
}

std::vector<std::string> words(std::string_view text) {
    std::istringstream in{std::string(text)};
    std::vector<std::string> found;
    for (std::string word; in >> word;) found.push_back(word);
    return found;
}

}  // namespace

int card(std::string_view notation) {
    const auto suit = suits.find(notation.back());
    if (suit == std::string_view::npos) throw std::invalid_argument("no suit");
    return static_cast<int>(suit) * 10 + value(notation.substr(0, notation.size() - 1));
}

std::vector<int> cards(std::string_view notation) {
    std::vector<int> ids;
    for (const std::string& word : words(notation)) ids.push_back(card(word));
    return ids;
}

std::string name(int id) {
    if (id == 0) return "-";
    return std::to_string((id - 1) % 10 + 1) + suits[static_cast<std::size_t>((id - 1) / 10)];
}

std::string names(const std::vector<int>& ids) {
    std::string text;
    for (const int id : ids) text += (text.empty() ? "" : " ") + name(id);
    return text;
}

Desk::Desk(std::uint64_t seed) : backend(seed) {
    Load(g, g.frmscopa);
    g.queue.clear();  // The sound devices report that they are open.
    g.chance.state = seed * 7919;
    g.velocita = 10;
    g.larghezzaCarta = cardWidth;
    g.altezzaCarta = cardHeight;
    g.tavoloX = 400 - 2 * cardWidth - 9;
    g.tavoloY = 300 - 1.5f * cardHeight - between;
    g.pilaY(1) = 487;
    g.pilaY(2) = 5;
    clear();
}

void Desk::coverSurface() {
    Line(g.frmscopa, 0, 0, 800, 600, 0x123456, LineStyle::BF);
}

void Desk::clear() {
    used_.fill(false);
    g.tavolo.fill(0);
    g.mazzo.fill(0);
    g.cimaMazzo = 7;
    for (Image& holder : g.carta) holder.Tag.clear();
    for (Image& holder : g.dorso) holder.Tag = "0";
    BackColor(g.frmscopa, tableColour);
}

int Desk::freeCard(int wanted) {
    for (int id = wanted; id <= 40; id += 10) {
        if (used_(id)) continue;
        used_(id) = true;
        return id;
    }
    throw std::invalid_argument("no card of this value is left");
}

int Desk::anyFreeCard() {
    int id = 40;
    while (used_(id)) --id;
    used_(id) = true;
    return id;
}

std::vector<int> Desk::resolve(std::string_view text, int most) {
    const auto all = words(text);
    if (all.size() > static_cast<std::size_t>(most)) throw std::invalid_argument("too many cards");
    std::vector<int> ids(static_cast<std::size_t>(most), 0);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!namesSuit(all[i])) continue;
        ids[i] = card(all[i]);
        if (used_(ids[i])) throw std::invalid_argument("a card lies elsewhere already");
        used_(ids[i]) = true;
    }
    for (std::size_t i = 0; i < all.size(); ++i)
        if (ids[i] == 0 && all[i] != ".") ids[i] = freeCard(value(all[i]));
    return ids;
}

void Desk::show(int id, float left, float top) {
    PaintPicture(g.frmscopa, g.carta(id).picture, left, top, cardWidth, cardHeight);
    Move(g.carta(id), left, top);
}

void Desk::layTable(std::string_view text) {
    const auto ids = resolve(text, places);
    for (int p = 1; p <= places; ++p) {
        const int id = ids[static_cast<std::size_t>(p - 1)];
        if (id == 0) continue;
        g.tavolo(rowOf(p), columnOf(p)) = id;
        show(id, place(p).x - cardWidth / 2, place(p).y - cardHeight / 2);
    }
}

void Desk::giveHuman(std::string_view text) {
    const auto ids = resolve(text, 3);
    for (int k = 1; k <= 3; ++k) {
        int id = ids[static_cast<std::size_t>(k - 1)];
        // An empty slot still names the card that was played from it.
        if (id != 0) show(id, slot(k).x - cardWidth / 2, humanTop);
        if (id == 0) id = anyFreeCard();
        g.mazzo(g.cimaMazzo + k - 3) = id;
    }
}

void Desk::giveComputer(std::string_view text) {
    const auto ids = resolve(text, 3);
    for (int s = 0; s <= 2; ++s) {
        const int id = ids[static_cast<std::size_t>(s)];
        g.dorso(s).Tag = std::to_string(id);
        const float left = slot(s + 1).x - cardWidth / 2;
        Move(g.dorso(s), left, 5);
        if (id != 0) PaintPicture(g.frmscopa, picture::back, left, 5, cardWidth, cardHeight);
    }
}

int Desk::take(std::string_view text) {
    return resolve(text, 1).front();
}

int Desk::at(int number) const {
    return number == 0 ? 0 : g.tavolo(rowOf(number), columnOf(number));
}

std::vector<int> Desk::markedPlaces() const {
    std::vector<int> found;
    for (int p = 1; p <= places; ++p)
        if (g.carta(at(p)).Tag == "SEL") found.push_back(p);
    return found;
}

std::vector<int> Desk::presa() const {
    std::vector<int> ids;
    for (int i = 1; i <= g.numeroPresa; ++i) ids.push_back(g.presa(i));
    return ids;
}

Press Desk::slot(int k, int button) const {
    const float left = firstHandLeft + static_cast<float>(k - 1) * (cardWidth + between);
    return {left + cardWidth / 2, humanTop + cardHeight / 2, button};
}

Press Desk::place(int number, int button) const {
    const auto column = static_cast<float>(columnOf(number) - 1);
    const auto row = static_cast<float>(rowOf(number) - 1);
    return {g.tavoloX + column * (cardWidth + between) + cardWidth / 2,
            g.tavoloY + row * (cardHeight + between) + cardHeight / 2, button};
}

void Desk::press(const Press& at) {
    pressAt(g, g.frmscopa, at.x, at.y, at.button);
}

void Desk::script(std::vector<Pump> pumps) {
    backend.time.user = [this, pumps = std::move(pumps),
                         next = std::size_t{0}](double until) mutable {
        if (until != never || next == pumps.size()) return false;
        for (const Press& one : pumps[next++]) press(one);
        return true;
    };
}

void Desk::beginMove(int player) {
    g.giocatore = player;
    g.cartaGiocata = g.valoreGiocato = g.numeroPresa = g.sommaPresa = 0;
}

void Desk::humanPlays(int slotNumber, const std::vector<int>& chosen) {
    std::vector<Pump> pumps{{slot(slotNumber)}};
    for (const int p : chosen) pumps.push_back({place(p)});
    script(pumps);
    beginMove(human);
    frmscopa::gioco1(g);
    frmscopa::verifica(g);
}

bool Desk::humanMayEnd(int slotNumber, const std::vector<int>& chosen) {
    try {
        humanPlays(slotNumber, chosen);
        return true;
    } catch (const ScriptRanOut&) {
        return false;
    }
}

void Desk::computerPlays() {
    beginMove(computer);
    frmscopa::gioco2(g);
}

std::vector<int> tableOf(const Game& g) {
    std::vector<int> table;
    for (int p = 1; p <= places; ++p) table.push_back(g.tavolo(rowOf(p), columnOf(p)));
    return table;
}

std::vector<int> handOf(const Game& g) {
    std::vector<int> hand;
    for (int s = 0; s <= 2; ++s) hand.push_back(std::stoi(g.dorso(s).Tag));
    return hand;
}

std::string text(const std::vector<int>& ids) {
    std::string line;
    for (const int id : ids) line += id == 0 ? ". " : name(id) + ' ';
    return line;
}

std::vector<int> takenBy(const Game& g) {
    std::vector<int> taken;
    for (int i = 1; i <= g.numeroPresa; ++i)
        if (g.presa(i) != 0) taken.push_back(g.presa(i));
    return taken;
}

std::vector<int> markedOf(const Game& g, const std::vector<int>& ids) {
    std::vector<int> found;
    for (const int id : ids)
        if (id != 0 && g.carta(id).Tag == "SEL") found.push_back(id);
    return found;
}

}  // namespace test
