// Computes SHA-256. The names of the functions are those of the standard, sections 4.1.2, 5.1.1 and 6.2.2.
#include "base/sha256.h"

#include <algorithm>
#include <bit>

namespace discwright::base {
namespace {

constexpr std::array<std::uint32_t, 64> kRounds = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t Ch(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return (x & y) ^ (~x & z); }
std::uint32_t Maj(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return (x & y) ^ (x & z) ^ (y & z); }
std::uint32_t Sum0(std::uint32_t x) { return std::rotr(x, 2) ^ std::rotr(x, 13) ^ std::rotr(x, 22); }
std::uint32_t Sum1(std::uint32_t x) { return std::rotr(x, 6) ^ std::rotr(x, 11) ^ std::rotr(x, 25); }
std::uint32_t Sigma0(std::uint32_t x) { return std::rotr(x, 7) ^ std::rotr(x, 18) ^ (x >> 3); }
std::uint32_t Sigma1(std::uint32_t x) { return std::rotr(x, 17) ^ std::rotr(x, 19) ^ (x >> 10); }

std::uint32_t BigEndian(const std::byte* bytes) {
  std::uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | std::to_integer<std::uint32_t>(bytes[i]);
  return value;
}

}  // namespace

void Sha256::TakeBlock(const std::byte* block) {
  std::array<std::uint32_t, 64> w{};
  for (std::size_t t = 0; t < 16; ++t) w[t] = BigEndian(block + 4 * t);
  for (std::size_t t = 16; t < 64; ++t) w[t] = Sigma1(w[t - 2]) + w[t - 7] + Sigma0(w[t - 15]) + w[t - 16];
  auto [a, b, c, d, e, f, g, h] = state_;
  for (std::size_t t = 0; t < 64; ++t) {
    const std::uint32_t first = h + Sum1(e) + Ch(e, f, g) + kRounds[t] + w[t];
    const std::uint32_t second = Sum0(a) + Maj(a, b, c);
    h = g;
    g = f;
    f = e;
    e = d + first;
    d = c;
    c = b;
    b = a;
    a = first + second;
  }
  const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < added.size(); ++i) state_[i] += added[i];
}

void Sha256::Add(std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const std::size_t held = length_ % kBlock;
    if (held == 0 && bytes.size() >= kBlock) {
      TakeBlock(bytes.data());
      length_ += kBlock;
      bytes = bytes.subspan(kBlock);
      continue;
    }
    const std::size_t taken = std::min(kBlock - held, bytes.size());
    std::copy_n(bytes.begin(), taken, held_.begin() + static_cast<std::ptrdiff_t>(held));
    length_ += taken;
    bytes = bytes.subspan(taken);
    if (length_ % kBlock == 0) TakeBlock(held_.data());
  }
}

std::string Sha256::Finish() {
  const std::uint64_t bits = length_ * 8;
  std::array<std::byte, kBlock + 8> padding{std::byte{0x80}};
  constexpr std::size_t kBeforeLength = kBlock - 8;
  const std::size_t zeros_end = (kBlock + kBeforeLength - length_ % kBlock - 1) % kBlock + 1;
  for (std::size_t i = 0; i < 8; ++i) padding[zeros_end + i] = static_cast<std::byte>(bits >> (56 - 8 * i));
  Add(std::span(padding).first(zeros_end + 8));
  std::string text;
  for (const std::uint32_t word : state_) {
    for (int shift = 28; shift >= 0; shift -= 4) text += "0123456789abcdef"[word >> shift & 15];
  }
  return text;
}

}  // namespace discwright::base
