// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

using Bytes = std::span<const unsigned char>;

/// Reads numbers from bytes that may be damaged. Past the end, or after `fail`, all are 0 and what
/// is taken is empty.
class ByteReader {
public:
    explicit ByteReader(Bytes bytes) : left_(bytes) {}

    bool good() const { return good_; }
    bool done() const { return left_.empty(); }
    void fail() { left_ = {}, good_ = false; }

    Bytes take(std::size_t count) {
        if (count > left_.size()) fail();
        const Bytes taken = left_.first(good_ ? count : 0);
        left_ = left_.subspan(taken.size());
        return taken;
    }

    /// Whether these letters come next; they are taken.
    bool takeName(std::string_view name) {
        return std::ranges::equal(take(name.size()), name, [](unsigned char byte, char letter) {
            return byte == static_cast<unsigned char>(letter);
        });
    }

    /// Most significant byte first, four bytes at most.
    std::uint32_t bigEndian(std::size_t bytes) {
        std::uint32_t value = 0;
        for (const unsigned char byte : take(bytes)) value = value << 8 | byte;
        return value;
    }

    /// Least significant byte first, four bytes at most.
    std::uint32_t littleEndian(std::size_t bytes) {
        std::uint32_t value = 0;
        unsigned shift = 0;
        for (const unsigned char byte : take(bytes)) {
            value |= std::uint32_t{byte} << shift;
            shift += 8;
        }
        return value;
    }

private:
    Bytes left_;
    bool good_ = true;
};
