#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include "testing/fake_services.h"
#include "ui/model/memory_model.h"

namespace orvane {
namespace {

class MemoryModelTest : public testing::Test {
 protected:
  void refreshList() {
    manager_->updateTopProcesses();
    QCoreApplication::processEvents();
  }

  fakes::FakeServices services_;
  std::shared_ptr<MemoryManager> manager_ = MemoryManager::create(services_.services());
  MemoryModel model_{manager_};
  ProcessListModel& list_ = *model_.processes();
};

TEST_F(MemoryModelTest, ManyChangesOfOneTurnAreReadOnceAndAfterTheyHappened) {
  QSignalSpy spy(&model_, &MemoryModel::changed);
  double seen = -1;
  QObject::connect(&model_, &MemoryModel::changed, [&] { seen = model_.usagePercentage(); });
  services_.counters.setUsage(10);
  manager_->updateMemoryStats();
  services_.counters.setUsage(60);
  manager_->updateMemoryStats();
  manager_->updateTopProcesses();
  EXPECT_EQ(spy.count(), 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(spy.count(), 1);
  EXPECT_DOUBLE_EQ(seen, 60);
  EXPECT_EQ(model_.usageHistory().size(), 3);
}

TEST_F(MemoryModelTest, RowsFollowTheirProcess) {
  constexpr std::uint64_t mb = 1U << 20U;
  services_.applications.add(1, "One", 500 * mb);
  services_.applications.add(2, "Two", 300 * mb);
  services_.applications.add(3, "Three", 200 * mb);
  refreshList();
  const QPersistentModelIndex second = list_.index(1);
  QSignalSpy resets(&list_, &ProcessListModel::modelReset);
  services_.applications.setResident(2, 501 * mb);
  services_.applications.remove(3);
  services_.applications.add(4, "Four", 50 * mb);
  refreshList();
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(second.row(), 0) << "the row of Two moved to the top with it";
  QStringList rows;
  for (int i = 0; i < list_.count(); ++i) {
    const auto isLarge = list_.data(list_.index(i), ProcessListModel::isLargeRole).toBool();
    rows << list_.record(i).name() + (isLarge ? QStringLiteral(", large") : QString());
  }
  EXPECT_EQ(rows.join(u';').toStdString(), "Two, large;One;Four") << "500 MB itself isn't large";
  EXPECT_EQ(second.data(ProcessListModel::memoryTextRole).toString().toStdString(), "501 MB");
}

}  // namespace
}  // namespace orvane
