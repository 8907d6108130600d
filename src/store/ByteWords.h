#pragma once
// Eight bytes at a time in a 64-bit word. The load pass checks and counts every
// record of the file; the compiler leaves byte loops byte by byte at -O2, and
// these words do the same work in an eighth of the steps.
#include <bit>
#include <cstdint>
#include <cstring>

namespace bytewords {

static_assert(std::endian::native == std::endian::little, "byte i of a word is its bits 8i to 8i+7");

inline constexpr std::uint64_t kOnes = 0x0101010101010101ull;
inline constexpr std::uint64_t kHigh = 0x8080808080808080ull;

inline std::uint64_t Load(const char* at) {
    std::uint64_t w;
    std::memcpy(&w, at, sizeof w);
    return w;
}
inline void Store(char* at, std::uint64_t w) { std::memcpy(at, &w, sizeof w); }

// 0x80 in each byte that is zero and nowhere else: no carry crosses a byte.
inline std::uint64_t ZeroBytes(std::uint64_t w) { return ~(((w & ~kHigh) + ~kHigh) | w) & kHigh; }
// 0x80 in each byte equal to c and nowhere else.
inline std::uint64_t BytesEqual(std::uint64_t w, unsigned char c) { return ZeroBytes(w ^ (kOnes * c)); }
// Nonzero when some byte is below n (n at most 128). Only the yes or no is exact.
inline std::uint64_t AnyBelow(std::uint64_t w, unsigned char n) { return (w - kOnes * n) & ~w & kHigh; }

}  // namespace bytewords
