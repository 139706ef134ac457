orvane_add_tests(services_tests unit SOURCES
  dispatch_test.cpp
  login_item_test.cpp
  memory_claims_test.cpp
  memory_counters_test.cpp
  notification_service_test.cpp
  preferences_test.cpp
  services_test_main.cpp
  session_bus_test.cpp
  standard_output_test.cpp
  test_bus.cpp
  LIBRARIES orvane_platform orvane_options Qt6::Core Qt6::DBus PkgConfig::GIO)
