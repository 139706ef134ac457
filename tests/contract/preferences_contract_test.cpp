#include <gtest/gtest.h>

#include "platform/linux/linux_preferences.h"
#include "tests/fakes/fake_preferences.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

struct LinuxSubject {
  TestDirectory directory;
  LinuxPreferences preferences{directory.path("orvane.conf")};
};

struct FakeSubject {
  fakes::FakePreferences preferences;
};

template <typename Subject>
class PreferencesContract : public testing::Test {
 protected:
  Preferences& preferences() { return subject_.preferences; }

 private:
  Subject subject_;
};

using Subjects = testing::Types<LinuxSubject, FakeSubject>;
TYPED_TEST_SUITE(PreferencesContract, Subjects);

TYPED_TEST(PreferencesContract, givesBackTheLatestValueOfEachKey) {
  EXPECT_EQ(this->preferences().text("text"), std::nullopt);
  EXPECT_EQ(this->preferences().boolean("flag"), std::nullopt);
  for (const bool value : {true, false}) {
    this->preferences().setBoolean("flag", value);
    EXPECT_EQ(this->preferences().boolean("flag"), value);
  }
  for (const char* value : {"peak", "", " spaces ", "a, b; c=d", "\"quoted\\\"", "@Invalid()",
                            "two\nlines", "größe 字"}) {
    this->preferences().setText("text", value);
    EXPECT_EQ(this->preferences().text("text"), value);
  }
  EXPECT_EQ(this->preferences().boolean("flag"), false) << "untouched by the other key";
}

}  // namespace
}  // namespace orvane
