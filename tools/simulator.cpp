// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-sim: plays the real game without a window, in bulk, and says what happened.
// docs/SIMULATOR.md tells how to use it and what it prints.

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "state/state.h"
#include "tools/command_line.h"
#include "tools/recorder.h"
#include "tools/robot.h"
#include "tools/signature.h"
#include "tools/teaser.h"

namespace {

struct BadArgument : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct OutputFailed {};

using Deck = Array<int, 40>;

constexpr const char* usage =
    R"(velarda-sim [--hands N] [--seed S] [--decks FILE] [--monkey] [--transcript]
velarda-sim --signature | --help | --version

Plays the game without a window and says what happened.

  --hands N      hands to play, match after match (1000)
  --seed S       fixes the whole run (1)
  --decks FILE   the first hands are dealt from these decks, forty ids a line
  --monkey       refused clicks, panels and menus before each legal click
  --transcript   one JSON object a line in place of the summary
  --signature    the signature of play, which changes when the play does
)";

struct Options {
    int hands = 1000;
    std::uint64_t seed = 1;
    bool monkey = false, transcript = false, signature = false;
    std::vector<Deck> decks;
};

template <class Number>
Number parseNumber(std::string_view option, const char* text) {
    Number number{};
    const std::string_view digits = text ? text : "";
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || fault != std::errc{} || end != digits.data() + digits.size() ||
        number < 0)
        throw BadArgument(std::string(option) + " needs a number");
    return number;
}

/// One line of forty ids. The shuffle deals no deck whose first four ids add up to 40.
Deck parseDeck(const std::string& line, int lineNumber) {
    const auto refuse = [&](const char* why) {
        throw BadArgument("line " + std::to_string(lineNumber) + " of the decks " + why);
    };
    std::istringstream in(line);
    Deck deck;
    Array<bool, 40> used;
    for (int i = 1; i <= 40; ++i) {
        int id = 0;
        if (!(in >> id) || id < 1 || id > 40 || used(id)) refuse("is no permutation of 1 to 40");
        used(id) = true;
        deck(i) = id;
    }
    std::string more;
    if (in >> more) refuse("has more than forty ids");
    if (deck(1) + deck(2) + deck(3) + deck(4) == 40) refuse("begins with ids that add up to 40");
    return deck;
}

std::vector<Deck> readDecks(const char* path) {
    std::ifstream in(path ? path : "");
    if (!in) throw BadArgument("--decks needs a file that can be read");
    std::vector<Deck> decks;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number)
        if (line.find_first_not_of(" \t\r") != std::string::npos)
            decks.push_back(parseDeck(line, number));
    if (in.bad()) throw BadArgument("--decks needs a file that can be read");
    return decks;
}

Options parse(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (option == "--monkey") {
            options.monkey = true;
        } else if (option == "--transcript") {
            options.transcript = true;
        } else if (option == "--signature") {
            if (argc > 2) throw BadArgument("--signature stands alone");
            options.signature = true;
        } else if (option == "--hands") {
            options.hands = parseNumber<int>(option, value);
            ++i;
        } else if (option == "--seed") {
            options.seed = parseNumber<std::uint64_t>(option, value);
            ++i;
        } else if (option == "--decks") {
            options.decks = readDecks(value);
            ++i;
        } else {
            throw BadArgument("unknown argument " + std::string(option));
        }
    }
    return options;
}

void writeOut(std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) throw OutputFailed{};
    text.clear();
}

class Simulation {
public:
    explicit Simulation(const Options& options)
        : options_(options),
          backend_(options.seed),
          game_(backend_, eventTable()),
          robot_(game_, options.seed * 2 + 1),
          teaser_(game_, options.seed + 0x5eed),
          recorder_(options.transcript) {
        game_.chance.prepared.reserve(40);
        game_.watch = [this](Moment moment) { see(moment); };
        backend_.time.user = [this](double until) {
            // Nearly always: the game moves and the player looks on.
            if (until != never && !options_.monkey && !game_.GO.Visible) return false;
            return act(until);
        };
    }

    void run() {
        if (options_.hands > 0) runProgram(game_);
        writeOut(recorder_.text);
    }

    Recorder& recorder() { return recorder_; }

private:
    void see(Moment moment) {
        recorder_.see(game_, moment);
        if (recorder_.text.size() > 1 << 16) writeOut(recorder_.text);
        if (moment == Moment::scored && recorder_.scored == options_.hands) throw EndProgram{};
    }

    [[gnu::noinline]] bool act(double until) {
        if (options_.monkey && teaser_.tease(until)) return true;
        if (game_.GO.Visible) {
            robot_.tipoPartita = recorder_.match++ % 3;
            prepareDeck();
        } else if (until == never && game_.front == &game_.frmscore &&
                   game_.Command1.Caption == "CONTINUE") {
            prepareDeck();
        }
        return robot_.act(until);
    }

    /// Lays the draws ready that make the shuffle of the coming hand come out as the next deck.
    void prepareDeck() {
        if (dealt_ == options_.decks.size()) return;
        const Deck& deck = options_.decks[dealt_++];
        game_.chance.prepared.clear();
        for (int i = 40; i >= 1; --i)
            game_.chance.prepared.push_back((static_cast<float>(deck(i)) + 0.5f) / 41);
    }

    const Options& options_;
    Headless backend_;
    Game game_;
    Robot robot_;
    Teaser teaser_;
    Recorder recorder_;
    std::size_t dealt_ = 0;
};

void summarise(const Recorder& recorder, double seconds) {
    std::printf("%d hands, %ld moves, %ld scope, %.0f hands a second\n", recorder.scored,
                recorder.moves, recorder.scope, recorder.scored / std::max(seconds, 1e-9));
}

/// What has been printed may still be on its way to a disk that is full.
void flush() {
    if (std::fflush(stdout) != 0) throw OutputFailed{};
}

int printSignature() {
    std::printf("%016llx\n", static_cast<unsigned long long>(signatureOfPlay()));
    flush();
    return 0;
}

int simulate(const Options& options) {
    const auto start = std::chrono::steady_clock::now();
    Simulation simulation(options);
    try {
        simulation.run();
    } catch (const std::runtime_error& fault) {
        // A rule is broken, or the game waits in vain. What led up to the fault is worth having.
        writeOut(simulation.recorder().text);
        std::fflush(stdout);
        std::fprintf(stderr, "velarda-sim: %s: hand %d, seed %llu\n", fault.what(),
                     simulation.recorder().hands, static_cast<unsigned long long>(options.seed));
        return 3;
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (!options.transcript) summarise(simulation.recorder(), taken.count());
    flush();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);  // the same bytes on every machine
#endif
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is reported like a full disk
#endif
    try {
        if (answersHelpOrVersion(argc, argv, "velarda-sim", usage)) {
            flush();
            return 0;
        }
        const Options options = parse(argc, argv);
        return options.signature ? printSignature() : simulate(options);
    } catch (const BadArgument& fault) {
        std::fprintf(stderr, "velarda-sim: %s\n", fault.what());
        return 2;
    } catch (const OutputFailed&) {
        std::fputs("velarda-sim: the output cannot be written\n", stderr);
        return 1;
    }
}
