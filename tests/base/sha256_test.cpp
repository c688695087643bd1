// Tests of SHA-256: published digests, and texts that are added in pieces of every size.
#include "base/sha256.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace discwright::base {
namespace {

// Added in pieces of so many bytes.
std::string DigestOf(std::string_view text, std::size_t piece = 1000000) {
  Sha256 digest;
  for (; !text.empty(); text.remove_prefix(std::min(piece, text.size())))
    digest.Add(std::as_bytes(std::span(text.substr(0, piece))));
  return digest.Finish();
}

TEST(Sha256, PublishedTexts_HaveTheirPublishedDigests) {
  EXPECT_EQ(DigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(DigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(DigestOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqrlmnopqrs"
                     "mnopqrstnopqrstu"),
            "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
}

TEST(Sha256, AMillionTimesA_HasItsPublishedDigest) {
  EXPECT_EQ(DigestOf(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, TextsAroundABlock_DigestTheSameInPiecesOfEverySize) {
  for (std::size_t length = 55; length <= 65; ++length) {
    std::string text(length, '\0');
    for (std::size_t i = 0; i < length; ++i) text[i] = static_cast<char>('a' + i % 26);
    const std::string whole = DigestOf(text);
    for (std::size_t piece = 1; piece < length; ++piece) EXPECT_EQ(DigestOf(text, piece), whole) << length;
    EXPECT_NE(whole, DigestOf(text.substr(1))) << length;
  }
}

TEST(Sha256, LengthsWherePaddingGrowsByABlock_HaveTheirDigests) {
  EXPECT_EQ(DigestOf(std::string(55, 'a')), "9f4390f8d30c2dd92ec9f095b65e2b9ae9b0a925a5258e241c9f1e910f734318");
  EXPECT_EQ(DigestOf(std::string(56, 'a')), "b35439a4ac6f0948b6d6f9e3c6af0f5f590ce20f1bde7090ef7970686ec6738a");
  EXPECT_EQ(DigestOf(std::string(63, 'a')), "7d3e74a05d7db15bce4ad9ec0658ea98e3f06eeecf16b4c6fff2da457ddc2f34");
  EXPECT_EQ(DigestOf(std::string(64, 'a')), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb");
}

}  // namespace
}  // namespace discwright::base
