// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "music/loudness.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace music {
namespace {

/// A filter of the second order, as the standard gives it.
class Filter {
public:
    /// What it lets through in full above its frequency, in part about it, and below it.
    Filter(double frequency, double quality, double above, double about, double below,
           double rate) {
        const double k = std::tan(std::numbers::pi * frequency / rate), kk = k * k;
        const double scale = 1 + k / quality + kk;
        b0_ = (above + about * k / quality + below * kk) / scale;
        b1_ = 2 * (below * kk - above) / scale;
        b2_ = (above - about * k / quality + below * kk) / scale;
        a1_ = 2 * (kk - 1) / scale;
        a2_ = (1 - k / quality + kk) / scale;
    }

    double operator()(double in) {
        const double out = b0_ * in + z1_;
        z1_ = b1_ * in - a1_ * out + z2_;
        z2_ = b2_ * in - a2_ * out;
        return out;
    }

private:
    double b0_, b1_, b2_, a1_, a2_, z1_ = 0, z2_ = 0;
};

/// One side, as the ear weighs it.
class Ear {
public:
    explicit Ear(double rate)
        : head_(1681.97, 0.70718, 1.58486, 1.25873, 1, rate),
          bass_(38.1355, 0.500327, 1, 0, 0, rate) {}

    double power(double sample) {
        const double heard = bass_(head_(sample));
        return heard * heard;
    }

private:
    Filter head_, bass_;
};

double decibels(double power) {
    return -0.691 + 10 * std::log10(power);
}

/// The mean of those that are louder than this.
double meanAbove(const std::vector<double>& powers, double threshold) {
    double sum = 0, count = 0;
    for (const double power : powers)
        if (decibels(power) > threshold) sum += power, ++count;
    return count > 0 ? sum / count : 0;
}

}  // namespace

double loudness(std::span<const int> samples, double rate) {
    constexpr double silence = -70, much = 10;
    const auto step = static_cast<std::size_t>(rate / 10), block = 4 * step;
    Ear left(rate), right(rate);
    std::vector<double> sums = {0};
    for (std::size_t i = 0; i + 1 < samples.size(); i += 2)
        sums.push_back(sums.back() + left.power(samples[i] / 32768.0) +
                       right.power(samples[i + 1] / 32768.0));
    std::vector<double> powers;
    for (std::size_t i = 0; i + block < sums.size(); i += step)
        powers.push_back((sums[i + block] - sums[i]) / static_cast<double>(block));
    const double whole = decibels(meanAbove(powers, silence));
    return decibels(meanAbove(powers, whole - much));
}

}  // namespace music
