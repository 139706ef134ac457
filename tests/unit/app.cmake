orvane_add_tests(app_tests unit SOURCES
  app_delegate_test.cpp
  window_geometry_test.cpp
  status_icon_test.cpp
  LIBRARIES orvane_shell orvane_options Qt6::Core Qt6::Gui)
