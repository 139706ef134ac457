#include "core/pressure_alert.h"

#include <gtest/gtest.h>

#include "core/memory_manager.h"
#include "tests/fakes/fake_services.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t editorBytes = 1'610'612'736;

class Alert : public testing::Test {
 protected:
  void start(double usage) {
    fakes_.counters.setUsage(usage);
    manager_ = MemoryManager::create(fakes_.services());
  }

  fakes::FakeServices fakes_;
  std::shared_ptr<MemoryManager> manager_;
};

TEST_F(Alert, StaysAwayAtTheThresholdItselfAndWithoutASampleOrMemory) {
  start(85.0);
  fakes_.time.advance(5s);
  for (const auto& counts : {std::optional<PageCounts>(), std::optional(PageCounts{})}) {
    fakes_.counters.counts = counts;
    fakes_.time.advance(5s);
  }
  EXPECT_FALSE(manager_->shouldShowAlert());
  EXPECT_TRUE(fakes_.notifications.requests.empty());
  EXPECT_TRUE(fakes_.output.lines.empty());
  fakes_.counters.setUsage(85.04);
  fakes_.time.advance(5s);
  EXPECT_EQ(manager_->alertMessage(), "Memory usage is high (85.0%)");
}

TEST_F(Alert, NamesTheFirstApplicationOfTheListBuiltBefore) {
  fakes_.applications.add(10, "Editor", editorBytes);
  start(40.0);
  fakes_.time.advance(5s);
  fakes_.counters.setUsage(90.0);
  fakes_.time.advance(5s);
  EXPECT_EQ(manager_->alertMessage(), "Memory usage is high (90.0%)\nEditor is using 1536 MB");
  ASSERT_EQ(fakes_.notifications.requests.size(), 1U);
  const auto& content = fakes_.notifications.requests[0].content;
  EXPECT_EQ(content.title, "Memory Pressure High");
  EXPECT_EQ(content.body, "Memory usage is 90.0%. Editor is using 1536 MB");
  EXPECT_TRUE(content.defaultSound);
  EXPECT_EQ(fakes_.output.lines,
            (std::vector<std::string>{"Notification sent successfully: Memory Pressure High - "
                                      "Memory usage is 90.0%. Editor is using 1536 MB"}));
}

TEST_F(Alert, FiresOnceARunAndOnTheFirstTickWithoutAName) {
  fakes_.applications.add(10, "Editor", editorBytes);
  start(90.0);
  EXPECT_TRUE(fakes_.notifications.requests.empty());
  fakes_.time.advance(5s);
  fakes_.counters.setUsage(40.0);
  fakes_.time.advance(5s);
  fakes_.counters.setUsage(95.0);
  fakes_.time.advance(20s);
  EXPECT_TRUE(manager_->shouldShowAlert());
  EXPECT_EQ(manager_->alertMessage(), "Memory usage is high (90.0%)");
  ASSERT_EQ(fakes_.notifications.requests.size(), 1U);
  EXPECT_EQ(fakes_.notifications.requests[0].content.body, "Memory usage is 90.0%");
}

}  // namespace
}  // namespace orvane
