// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// Makes the sound of a card laid on the felt: velarda-card-sound OUTPUT.wav
// A breath of paper sliding, a soft flick as the card lands, and the thump of the table beneath.
// The noise comes from a fixed seed: every run gives the same file.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int kRate = 44100;
constexpr double kLength = 0.17;    // seconds
constexpr double kLanding = 0.012;  // when the card meets the felt
constexpr double kPeak = 0.5;       // about -6 dBFS, clear above the music

// One-pole low pass; the high pass is what it leaves over.
class LowPass {
public:
    explicit LowPass(double hertz)
        : step_(1.0 - std::exp(-2.0 * std::numbers::pi * hertz / kRate)) {}
    double operator()(double in) { return value_ += step_ * (in - value_); }

private:
    double step_;
    double value_ = 0.0;
};

// Rises smoothly within `attack` seconds, then dies away with time constant `decay`.
double strike(double time, double attack, double decay) {
    if (time <= 0.0) return 0.0;
    if (time >= attack) return std::exp(-(time - attack) / decay);
    return 0.5 - 0.5 * std::cos(std::numbers::pi * time / attack);
}

std::vector<double> synthesise() {
    std::vector<double> sound(static_cast<std::size_t>(kLength * kRate));
    std::uint32_t seed = 40;
    LowPass flickBottom(700.0), flickTop(3600.0), flickTopAgain(5600.0);
    LowPass slideBottom(1800.0), slideTop(4200.0);
    double thumpPhase = 0.0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double now = static_cast<double>(i) / kRate;
        const double since = now - kLanding;
        seed = seed * 1664525u + 1013904223u;
        const double white = static_cast<double>(seed >> 8) / 8388608.0 - 1.0;

        // Paper: broadband, without hiss at the top or rumble below.
        const double flick = flickTopAgain(flickTop(white - flickBottom(white)));
        const double slide = slideTop(white - slideBottom(white));
        double sample = 0.22 * strike(now, kLanding, 0.006) * slide;
        sample += 1.70 * strike(since, 0.0012, 0.0065) * flick;
        sample += 0.45 * strike(since - 0.011, 0.0020, 0.010) * flick;  // the card settles

        // Felt over wood: a low tone that sinks a little as it fades, and a duller knock above it.
        if (since > 0.0) {
            thumpPhase +=
                2.0 * std::numbers::pi * (128.0 + 46.0 * std::exp(-since / 0.018)) / kRate;
            sample += 0.52 * strike(since, 0.0025, 0.026) * std::sin(thumpPhase);
            sample += 0.12 * strike(since, 0.0015, 0.011) * std::sin(2.37 * thumpPhase);
        }
        sound[i] = sample;
    }

    // Start and end in silence, then bring the loudest sample to the wanted level.
    const std::size_t fadeIn = kRate / 500, fadeOut = kRate / 40;
    for (std::size_t i = 0; i < fadeIn; ++i) sound[i] *= static_cast<double>(i) / fadeIn;
    for (std::size_t i = 0; i < fadeOut; ++i)
        sound[sound.size() - 1 - i] *= static_cast<double>(i) / fadeOut;
    double loudest = 0.0;
    for (const double sample : sound) loudest = std::max(loudest, std::abs(sample));
    for (double& sample : sound) sample *= kPeak / loudest;
    return sound;
}

void append(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xff);
}

// RIFF/WAVE: mono, 16 bit PCM, little-endian whatever the machine.
std::string wave(const std::vector<double>& sound) {
    const auto size = static_cast<std::uint32_t>(sound.size() * 2);
    std::string out = "RIFF";
    append(out, 36 + size, 4);
    out += "WAVEfmt ";
    append(out, 16, 4);
    append(out, 0x00010001, 4);  // PCM, one channel
    append(out, kRate, 4);
    append(out, kRate * 2, 4);
    append(out, 0x00100002, 4);  // two bytes a frame, 16 bits a sample
    out += "data";
    append(out, size, 4);
    for (const double sample : sound)
        append(out, static_cast<std::uint32_t>(std::lround(sample * 32767.0)), 2);
    return out;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || std::string_view(argv[1]).empty() || argv[1][0] == '-') {
        std::cerr << "usage: velarda-card-sound OUTPUT.wav\n";
        return 2;
    }
    const std::string data = wave(synthesise());
    std::ofstream file(argv[1], std::ios::binary | std::ios::trunc);
    file.write(data.data(), static_cast<std::streamsize>(data.size()));
    file.close();
    if (!file) {
        std::cerr << "velarda-card-sound: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}
