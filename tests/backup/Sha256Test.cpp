#include <gtest/gtest.h>
#include <string>

#include "backup/Sha256.h"

namespace backup {
namespace {

std::string Hex(const Sha256::Digest& digest) {
  std::string hex;
  for (std::uint8_t byte : digest) {
    hex += "0123456789abcdef"[byte >> 4];
    hex += "0123456789abcdef"[byte & 15];
  }
  return hex;
}

// The examples of FIPS 180-4, in steps of every kind, and lengths around a block's end.
TEST(Sha256Test, GivesThePublishedDigests) {
  const struct {
    std::string text;
    const char* digest;
  } cases[] = {
      {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
      {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
      {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
       "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
      {std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
  };
  Sha256 sha;
  for (const auto& one : cases)
    for (std::size_t step : {1'000'000u, 64u, 63u, 7u}) {
      for (std::size_t at = 0; at < one.text.size(); at += step)
        sha.Add(std::string_view(one.text).substr(at, step));
      EXPECT_EQ(Hex(sha.Finish()), one.digest) << one.text.size() << " in steps of " << step;
    }
}

// RFC 4231.
TEST(Sha256Test, GivesThePublishedHmacs) {
  EXPECT_EQ(Hex(HmacSha256("Jefe", "what do ya want for nothing?")),
            "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
  EXPECT_EQ(
      Hex(HmacSha256(std::string(131, '\xaa'), "Test Using Larger Than Block-Size Key - Hash Key First")),
      "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54");
}

}  // namespace
}  // namespace backup
