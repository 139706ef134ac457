#include "app/support_request.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(SupportRequest, NeedsAPlainAddress) {
  for (const char* address :
       {"", "@", "support", "support@", "@orvane.example", "a b@orvane.example", "a@b@c",
        "a?cc=x@b", "a&b@c", "a@b.example,c@d", "a%0A@b", "é@b"}) {
    EXPECT_EQ(supportMailUrl(address), std::nullopt) << address;
  }
}

}  // namespace
}  // namespace orvane
