#include <gtest/gtest.h>

#include "platform/linux/linux_login_item.h"
#include "tests/fakes/fake_login_item.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

struct LinuxSubject {
  TestDirectory directory;
  LinuxLoginItem item{"/usr/bin/orvane", directory.path("autostart")};
};

struct FakeSubject {
  fakes::FakeLoginItem item;
};

template <typename Subject>
class LoginItemContract : public testing::Test {
 protected:
  LoginItem& item() { return subject_.item; }

 private:
  Subject subject_;
};

using Subjects = testing::Types<LinuxSubject, FakeSubject>;
TYPED_TEST_SUITE(LoginItemContract, Subjects);

TYPED_TEST(LoginItemContract, registersAsOftenAsAskedAndUnregistersOnce) {
  EXPECT_EQ(this->item().unregisterItem(), "No such file or directory");
  EXPECT_EQ(this->item().registerItem(), std::nullopt);
  EXPECT_EQ(this->item().registerItem(), std::nullopt);
  EXPECT_EQ(this->item().unregisterItem(), std::nullopt);
  EXPECT_EQ(this->item().unregisterItem(), "No such file or directory");
}

}  // namespace
}  // namespace orvane
