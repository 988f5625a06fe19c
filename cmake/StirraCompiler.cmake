# The language, the warnings and the sanitizers that every target of the project is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_SANITIZED "-O1 -g1 -fno-omit-frame-pointer")

# What is built once and from nothing takes a third of the time so. Who works on a source wants it compiled alone, and
# that each source of the modules can be compiled alone is to be seen somewhere: "tests" are those and the benchmarks.
set(STIRRA_UNITED none CACHE STRING "Whose sources are compiled together where they allow it: none, tests or all")
set_property(CACHE STIRRA_UNITED PROPERTY STRINGS none tests all)
option(STIRRA_WARNINGS_AS_ERRORS "Refuse to build with a warning" ON)
set(STIRRA_SANITIZERS "" CACHE STRING "Value of -fsanitize for every target")

find_program(CCACHE ccache)
if(CCACHE)
  # Its own condition for the use of precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  endif()
endif()

if(STIRRA_SANITIZERS)
  add_compile_options(-fsanitize=${STIRRA_SANITIZERS} -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${STIRRA_SANITIZERS})
else()
  add_compile_options(-ffunction-sections -fdata-sections)
  add_link_options(-Wl,--gc-sections -Wl,--as-needed)
endif()

add_compile_definitions(
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

set(STIRRA_WARNINGS
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough)
if(STIRRA_WARNINGS_AS_ERRORS)
  list(APPEND STIRRA_WARNINGS -Werror)
endif()
if(STIRRA_SANITIZERS AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # What the sanitizers insert makes gcc 12 see uninitialised values in the standard library.
  list(APPEND STIRRA_WARNINGS -Wno-maybe-uninitialized)
endif()

# The warnings that generated sources may raise when they are compiled together, as pragmas.
set(STIRRA_SPARE_WARNINGS "")
foreach(warning IN ITEMS shadow conversion sign-conversion old-style-cast unused-variable unused-but-set-variable)
  string(APPEND STIRRA_SPARE_WARNINGS "#pragma GCC diagnostic ignored \"-W${warning}\"\n")
endforeach()
