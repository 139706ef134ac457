# The update check is a library of its own: the network is part of the windows' module alone.
add_library(orvane_updates STATIC
  appcast.cpp
  appcast.h
  linux_software_updater.cpp
  linux_software_updater.h)
target_link_libraries(orvane_updates
  PUBLIC orvane_core
  PRIVATE Qt6::Core Qt6::Gui Qt6::Network)
