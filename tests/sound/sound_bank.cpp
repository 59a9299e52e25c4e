// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "sound_bank.h"

#include <cstddef>
#include <initializer_list>

namespace test {
namespace {

using Words = std::initializer_list<std::size_t>;

/// Two bytes each, the least significant one first.
std::string words(Words values) {
    std::string text;
    for (const std::size_t value : values)
        text += {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
    return text;
}

std::string chunk(const std::string& name, const std::string& content) {
    return name + words({content.size(), content.size() >> 16}) + content;
}

/// Of a list. Every list ends with an entry that stands for none.
std::string entry(std::string name, Words values) {
    name.resize(20, '\0');
    return name + words(values);
}

constexpr std::size_t period = 100, end = 20 * period, sampleRate = 44100, key = 69;

std::string tone() {
    constexpr std::size_t silenceThatTheFormatAsksFor = 46;
    std::string samples;
    for (std::size_t i = 0; i < end; ++i)
        samples += words({i % period < period / 2 ? 16000u : 65536u - 16000u});
    return samples + std::string(2 * silenceThatTheFormatAsksFor, '\0');
}

std::string choices(int programs, bool drums) {
    std::string list;
    for (int i = 0; i < programs; ++i)
        list += entry("Tone", {static_cast<std::size_t>(i), 0, 0, 0, 0, 0, 0, 0, 0});
    if (drums) list += entry("Drum", {0, 128, 0, 0, 0, 0, 0, 0, 0});
    return list + entry("", {0, 0, 1, 0, 0, 0, 0, 0, 0});
}

}  // namespace

std::string soundBank(int programs, bool drums) {
    constexpr std::size_t playsInstrument = 41, playsSample = 53, loops = 54;
    const std::string noModulators = std::string(10, '\0');
    const std::string instrument =
        chunk("phdr", choices(programs, drums)) + chunk("pbag", words({0, 0, 1, 0})) +
        chunk("pmod", noModulators) + chunk("pgen", words({playsInstrument, 0, 0, 0})) +
        chunk("inst", entry("Tone", {0}) + entry("", {1})) + chunk("ibag", words({0, 0, 2, 0})) +
        chunk("imod", noModulators) + chunk("igen", words({loops, 1, playsSample, 0, 0, 0})) +
        chunk("shdr",
              entry("Tone", {0, 0, end, 0, period, 0, end - period, 0, sampleRate, 0, key, 0, 1}) +
                  entry("", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    return chunk("RIFF", "sfbk" + chunk("LIST", "INFO" + chunk("ifil", words({2, 1}))) +
                             chunk("LIST", "sdta" + chunk("smpl", tone())) +
                             chunk("LIST", "pdta" + instrument));
}

}  // namespace test
