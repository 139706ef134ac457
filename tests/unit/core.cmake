orvane_add_tests(core_tests unit SOURCES
  memory_boost_test.cpp
  memory_history_test.cpp
  memory_manager_test.cpp
  pressure_alert_test.cpp
  process_collection_test.cpp
  process_memory_history_test.cpp
  process_termination_test.cpp
  text_test.cpp)
