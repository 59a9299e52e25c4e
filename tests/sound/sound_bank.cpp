// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "sound_bank.h"

#include <cstdint>
#include <initializer_list>

namespace test {
namespace {

/// Least significant byte first.
std::string number(std::uint32_t value, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8) text.push_back(static_cast<char>(value & 0xFF));
    return text;
}

std::string words(std::initializer_list<std::uint32_t> values) {
    std::string text;
    for (const std::uint32_t value : values) text += number(value, 2);
    return text;
}

std::string longWords(std::initializer_list<std::uint32_t> values) {
    std::string text;
    for (const std::uint32_t value : values) text += number(value, 4);
    return text;
}

std::string name(std::string text) {
    text.resize(20, '\0');
    return text;
}

std::string chunk(const char* called, const std::string& content) {
    return called + number(static_cast<std::uint32_t>(content.size()), 4) + content;
}

constexpr std::uint32_t period = 100, periods = 20, rate = 44100, key = 69;
constexpr std::uint32_t end = period * periods;

std::string tone(std::size_t silence) {
    constexpr std::uint32_t silenceThatTheFormatAsksFor = 46;
    std::string samples;
    for (std::uint32_t i = 0; i < end; ++i)
        samples += number(i % period < period / 2 ? 16000 : 65536 - 16000, 2);
    return samples + std::string(2 * (silenceThatTheFormatAsksFor + silence), '\0');
}

/// The first, in the list of what can be chosen.
std::string tones(int programs, bool drums) {
    std::string list;
    for (int i = 0; i < programs; ++i)
        list += name("Tone") + words({static_cast<std::uint32_t>(i), 0, 0}) + longWords({0, 0, 0});
    if (drums) list += name("Drum") + words({0, 128, 0}) + longWords({0, 0, 0});
    return list;
}

/// Every list ends with an entry that stands for none.
std::string instruments(const std::string& choices) {
    constexpr std::uint32_t playsInstrument = 41, playsSample = 53, loops = 54;
    const std::string noModulator(10, '\0');
    const std::string header = longWords({0, end, period, end - period, rate}) + char(key) + '\0';
    return chunk("phdr", choices + name("EOP") + words({0, 0, 1}) + longWords({0, 0, 0})) +
           chunk("pbag", words({0, 0, 1, 0})) + chunk("pmod", noModulator) +
           chunk("pgen", words({playsInstrument, 0, 0, 0})) +
           chunk("inst", name("Tone") + words({0}) + name("EOI") + words({1})) +
           chunk("ibag", words({0, 0, 2, 0})) + chunk("imod", noModulator) +
           chunk("igen", words({loops, 1, playsSample, 0, 0, 0})) +
           chunk("shdr", name("Tone") + header + words({0, 1}) + name("EOS") +
                             longWords({0, 0, 0, 0, 0}) + std::string(6, '\0'));
}

}  // namespace

std::string soundBank(const BankContent& content) {
    const std::string about = chunk("ifil", words({2, 1})) +
                              chunk("isng", "EMU8000" + words({0}).substr(1)) +
                              chunk("INAM", "Tone" + words({0}));
    return chunk("RIFF",
                 "sfbk" + chunk("LIST", "INFO" + about) +
                     chunk("LIST", "sdta" + chunk("smpl", tone(content.silence))) +
                     chunk("LIST", "pdta" + instruments(tones(content.programs, content.drums))));
}

}  // namespace test
