orvane_add_tests(updates_test unit
  SOURCES
    appcast_test.cpp
    desktop_opener_test.cpp
    software_updater_test.cpp
    test_bus.cpp
    services_test_main.cpp
  LIBRARIES orvane_platform orvane_updates Qt6::Core Qt6::DBus Qt6::Network)
target_compile_definitions(updates_test PRIVATE ORVANE_FEED_CERTIFICATE="${ORVANE_FEED_CERTIFICATE}")
