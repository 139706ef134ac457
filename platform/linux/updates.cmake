# Software updates, and what is handed to other programs of the desktop.
include(${PROJECT_SOURCE_DIR}/cmake/product_settings.cmake)

target_sources(orvane_platform PRIVATE
  appcast.cpp
  detached_launch.cpp
  feed_download.cpp
  linux_desktop_opener.cpp
  linux_software_updater.cpp
  plain_text.cpp
  version_order.cpp)
