#pragma once

#include "core/memory_manager.h"
#include "testing/fake_applications.h"
#include "testing/fake_memory_claims.h"
#include "testing/fake_memory_counters.h"
#include "testing/fake_notification_centre.h"
#include "testing/fake_preferences.h"
#include "testing/fake_random_source.h"
#include "testing/recording_services.h"
#include "testing/virtual_time.h"

namespace orvane::fakes {

/// Every service of the model, faked, in one place.
struct FakeServices {
  FakeMemoryCounters counters;
  FakeMemoryClaims claims;
  FakeApplications applications;
  RecordingNotificationService notifications;
  FakeNotificationCentre notificationCentre;
  FakePreferences preferences;
  VirtualTime time;
  FakeRandomSource random;
  RecordingOutput output;

  [[nodiscard]] MemoryManagerServices services() {
    return {.counters = counters,
            .claims = claims,
            .applications = applications,
            .notifications = notifications,
            .notificationCentre = notificationCentre,
            .preferences = preferences,
            .mainQueue = time,
            .backgroundQueue = time,
            .timers = time,
            .clock = time,
            .random = random,
            .output = output};
  }
};

}  // namespace orvane::fakes
