#include <gtest/gtest.h>

#include "platform/linux/linux_memory_claims.h"
#include "tests/fakes/fake_memory_claims.h"

namespace orvane {
namespace {

template <typename Claims>
class MemoryClaimsContract : public testing::Test {
 protected:
  MemoryClaims& claims() { return claims_; }

 private:
  Claims claims_;
};

using Subjects = testing::Types<LinuxMemoryClaims, fakes::FakeMemoryClaims>;
TYPED_TEST_SUITE(MemoryClaimsContract, Subjects);

TYPED_TEST(MemoryClaimsContract, claimsAreWritableFromEndToEndAndApart) {
  for (const std::size_t words : {std::size_t{1}, std::size_t{1025}, std::size_t{1} << 18}) {
    const auto first = this->claims().claim(words);
    const auto second = this->claims().claim(words);
    ASSERT_TRUE(first && second);
    ASSERT_EQ(first->words().size(), words);
    for (std::uint32_t& word : first->words()) word = 1;
    for (std::uint32_t& word : second->words()) word = 2;
    EXPECT_EQ(first->words().front(), 1U);
    EXPECT_EQ(first->words().back(), 1U);
  }
}

}  // namespace
}  // namespace orvane
