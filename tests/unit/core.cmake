orvane_add_tests(core_tests unit SOURCES
  histories_test.cpp
  memory_boost_test.cpp
  memory_manager_test.cpp
  process_collection_test.cpp
  text_test.cpp)
