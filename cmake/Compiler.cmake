# SPDX-License-Identifier: Apache-2.0
# What every target of this project is compiled with, on one interface target.
add_library(nira_compiler INTERFACE)
if(MSVC)
  target_compile_options(nira_compiler INTERFACE
    /W4 $<$<BOOL:${NIRA_WERROR}>:/WX> /utf-8 /permissive-)
else()
  target_compile_options(nira_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${NIRA_WERROR}>:-Werror>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in every optimised `"literal" + std::string` (its bug 105651).
    target_compile_options(nira_compiler INTERFACE -Wno-restrict)
  endif()
endif()
target_compile_definitions(nira_compiler INTERFACE
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER)

if(NIRA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(NIRA_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# It links the test programs several times as fast as the default linker.
if(NIRA_LLD)
  add_link_options(-fuse-ld=lld)
endif()

# A lean precompiled header: the Qt headers that most files use, nothing of our own.
function(nira_precompile target)
  if(NIRA_PCH)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# What needs the operating system's own calls stands in a file for each: name_posix.cpp, name_win.cpp.
set(NIRA_SYSTEM posix)
if(WIN32)
  set(NIRA_SYSTEM win)
endif()
