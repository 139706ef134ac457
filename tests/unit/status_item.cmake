orvane_add_tests(status_item_tests unit SOURCES
  process_lifetime_test.cpp
  services_test_main.cpp
  status_item_test.cpp
  test_bus.cpp
  LIBRARIES orvane_platform orvane_options Qt6::Core Qt6::DBus)
