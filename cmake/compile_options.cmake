# One place for warnings, hardening and sanitizers: every target links orvane_options.
add_library(orvane_options INTERFACE)

target_compile_options(orvane_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${ORVANE_WERROR}>:-Werror>
  -fstack-protector-strong)
target_compile_definitions(orvane_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
# A read past a container's end stops the program at once.
target_compile_definitions(orvane_options INTERFACE _GLIBCXX_ASSERTIONS)
# Not every processor has these: the stack grows page by page, and jumps land only where they may.
include(CheckCXXCompilerFlag)
foreach(flag IN ITEMS -fstack-clash-protection -fcf-protection -mbranch-protection=standard)
  string(MAKE_C_IDENTIFIER "ORVANE_HAS${flag}" has_flag)
  check_cxx_compiler_flag(${flag} ${has_flag})
  if(${has_flag})
    target_compile_options(orvane_options INTERFACE ${flag})
  endif()
endforeach()
target_link_options(orvane_options INTERFACE
  -Wl,-z,relro,-z,now -Wl,-z,noexecstack -Wl,--as-needed)
target_compile_options(orvane_options INTERFACE
  $<$<CONFIG:Release>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)

# Reading the libraries' headers takes most of a build: orvane_precompile(TARGET HEADERS...) has a
# target read these once. Its files still include all they need. ccache keeps no such files by itself:
# with it every file reads its own.
set(ORVANE_STANDARD_HEADERS
  <algorithm> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <optional> <string> <utility>
  <vector>)
function(orvane_precompile target)
  if(NOT ORVANE_CCACHE)
    target_precompile_headers(${target} PRIVATE ${ORVANE_STANDARD_HEADERS} ${ARGN})
  endif()
endfunction()

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

if(ORVANE_SANITIZE)
  target_compile_options(orvane_options INTERFACE
    -fsanitize=${ORVANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(orvane_options INTERFACE -fsanitize=${ORVANE_SANITIZE})
endif()
