#include "app/support_request.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(SupportRequest, FillsInSubjectAndBody) {
  EXPECT_EQ(supportMailUrl("support+linux@orvane.example"),
            "mailto:support+linux@orvane.example?subject=Orvane%20Support%20Request"
            "&body=Hello%20Orvane%20Team,%0A%0AI%20need%20assistance%20with%20the%20following:"
            "%0A%0A");
}

TEST(SupportRequest, NeedsAPlainAddress) {
  for (const char* address :
       {"", "@", "support", "support@", "@orvane.example", "a b@orvane.example", "a@b@c",
        "a?cc=x@b", "a&b@c", "a@b.example,c@d", "a%0A@b", "é@b"}) {
    EXPECT_EQ(supportMailUrl(address), std::nullopt) << address;
  }
}

}  // namespace
}  // namespace orvane
