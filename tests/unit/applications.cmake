orvane_add_tests(applications_tests unit
  SOURCES application_grouping_test.cpp application_memory_test.cpp desktop_entries_test.cpp
          linux_applications_test.cpp process_table_test.cpp process_text_test.cpp
          process_trees_test.cpp
  LIBRARIES orvane_platform Qt6::Core)
orvane_add_tests(x11_applications_tests desktop
  SOURCES x11_applications_test.cpp
  LIBRARIES orvane_platform Qt6::Core Qt6::Gui PkgConfig::XCB)
