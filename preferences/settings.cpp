// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "preferences/settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "platform/backend.h"
#include "state/rounding.h"
#include "state/state.h"

namespace {

constexpr std::string_view blanks = " \t\r\n";

/// What some editors put in front of a text that they save.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// In percent. Beyond these a number would not come back whole from what the game divides it by.
constexpr float leastScale = 1e-30f, mostScale = 1e30f;

/// Takes the next field off the front: it ends at a comma, a blank or a line end.
std::string_view takeField(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
    const auto end = std::min(rest.find_first_of(", \t\r\n"), rest.size());
    const auto field = rest.substr(0, end);
    rest.remove_prefix(end);
    rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
    if (!rest.empty() && rest.front() == ',') rest.remove_prefix(1);
    return field;
}

std::optional<float> number(std::string_view field) {
    float value = 0;
    const char* end = field.data() + field.size();
    const auto [stop, fault] = std::from_chars(field.data(), end, value);
    if (fault != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

void takeInteger(std::string_view& rest, int lowest, int highest, int& value) {
    const auto read = number(takeField(rest));
    if (!read || *read < static_cast<float>(lowest) || *read > static_cast<float>(highest)) return;
    value = rounded(*read);
}

/// Seven digits, with a point in every country: a comma would part two fields.
std::string line(float value) {
    char digits[32];
    char* const end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 7).ptr;
    return ' ' + std::string(digits, end) + " \r\n";
}

}  // namespace

SettingsFile parseSettings(const std::string& text) {
    SettingsFile settings;
    std::string_view rest = text;
    if (rest.starts_with(byteOrderMark)) rest.remove_prefix(byteOrderMark.size());
    takeInteger(rest, noMelody, lastMelody, settings.brano);
    takeInteger(rest, firstRate, lastRate, settings.velocita);
    const auto scale = number(takeField(rest));
    if (scale && *scale >= leastScale && *scale <= mostScale) settings.scala = *scale;
    return settings;
}

std::string formatSettings(const SettingsFile& settings) {
    return line(static_cast<float>(settings.brano)) + line(static_cast<float>(settings.velocita)) +
           line(settings.scala);
}

namespace frmscopa {

void readSettings(Game& g) {
    const SettingsFile read = parseSettings(g.backend.readSettings());
    g.brano = read.brano;
    g.velocita = read.velocita * 10;
    g.scalaCarte = read.scala / 100;
    g.velocità_gioco(read.velocita).Checked = true;
    g.canzoni(read.brano).Checked = true;
}

void writeSettings(Game& g) {
    g.backend.writeSettings(formatSettings({g.brano, g.velocita / 10, g.scalaCarte * 100}));
}

void velocità_gioco_Click(Game& g, int Index) {
    for (int i = firstRate; i <= lastRate; ++i) g.velocità_gioco(i).Checked = i == Index;
    g.velocita = Index * 10;
    writeSettings(g);
}

}  // namespace frmscopa
