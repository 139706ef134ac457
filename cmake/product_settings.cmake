# What a distributor sets for the product. The program gets it as "app/product_settings.h", by
# linking orvane_product_settings.
set(ORVANE_UPDATE_FEED "" CACHE STRING
  "https address of the update feed (RSS 2.0 appcast); empty when updates come from a package manager")
set(ORVANE_SUPPORT_ADDRESS "support@orvane.example" CACHE STRING
  "Mail address for support requests")

foreach(setting ORVANE_UPDATE_FEED ORVANE_SUPPORT_ADDRESS)
  if("${${setting}}" MATCHES "[\"\\\\\n]")
    message(FATAL_ERROR "${setting} may hold no quote, backslash or line break")
  endif()
endforeach()
if(NOT ORVANE_UPDATE_FEED MATCHES "^$|^https://")
  message(FATAL_ERROR "ORVANE_UPDATE_FEED must be an https address")
endif()

include(GNUInstallDirs)
file(RELATIVE_PATH ORVANE_MODULE_FOLDER
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/orvane)

add_library(orvane_product_settings INTERFACE)
configure_file(${PROJECT_SOURCE_DIR}/app/product_settings.h.in
  ${PROJECT_BINARY_DIR}/generated/app/product_settings.h @ONLY)
target_include_directories(orvane_product_settings INTERFACE ${PROJECT_BINARY_DIR}/generated)
