# stirra_target(<target>): the project's warnings and include root, for a target that exists already.
function(stirra_target target)
  target_compile_options(${target} PRIVATE ${STIRRA_WARNINGS})
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${STIRRA_HEADERS}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  stirra_spare_generated_sources(${target})
endfunction()

# What Qt's tools generate is not held to the project's warnings. Compiled views are almost nothing but the same headers,
# so those of a target are compiled in one go.
function(stirra_spare_generated_sources target)
  get_target_property(sources ${target} SOURCES)
  set(views ${sources})
  list(FILTER views INCLUDE REGEX "qmlcache/.*_qml\\.cpp$")
  set(others ${sources})
  list(FILTER others INCLUDE REGEX "qmlcache_loader|qmltyperegistrations")
  set_source_files_properties(${others} PROPERTIES COMPILE_OPTIONS -w SKIP_LINTING ON)
  set_source_files_properties(${views} PROPERTIES UNITY_GROUP views SKIP_LINTING ON)
  if(views)
    set_target_properties(${target} PROPERTIES
      UNITY_BUILD ON
      UNITY_BUILD_MODE GROUP
      UNITY_BUILD_CODE_BEFORE_INCLUDE "${STIRRA_SPARE_WARNINGS}")
  endif()
endfunction()

# stirra_library(<name> SOURCES ... [LINKS ...]): a static library of the house.
function(stirra_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC ${arg_LINKS})
  stirra_target(${name})
endfunction()

# stirra_test(<name> MODULE <label> SOURCES ... [LINKS ...] [LABELS ...] [ENVIRONMENT ...] [TIMEOUT s]):
# one GoogleTest program, and one CTest test for each of its cases.
function(stirra_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "MODULE;TIMEOUT" "SOURCES;LINKS;LABELS;ENVIRONMENT")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINKS} StirraTestMain)
  target_precompile_headers(${name} REUSE_FROM StirraTestHeaders)
  target_compile_options(${name} PRIVATE ${STIRRA_TEST_OPTIONS})
  stirra_target(${name})
  stirra_discover(${name} MODULE ${arg_MODULE} LABELS ${arg_LABELS} ENVIRONMENT ${arg_ENVIRONMENT}
    TIMEOUT ${arg_TIMEOUT})
endfunction()

# stirra_discover(<test program> MODULE <label> [SUFFIX text] [FILTER pattern] ...): lists the program's cases, those
# that FILTER leaves, once more, under names that end in SUFFIX, as another ENVIRONMENT makes other tests of them.
function(stirra_discover name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "MODULE;TIMEOUT;SUFFIX;FILTER" "LABELS;ENVIRONMENT")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  set(tests ${name}${arg_SUFFIX}_TESTS)
  gtest_discover_tests(${name}
    TEST_PREFIX "${arg_MODULE}."
    TEST_SUFFIX "${arg_SUFFIX}"
    TEST_FILTER "${arg_FILTER}"
    TEST_LIST ${tests}
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT ${arg_TIMEOUT})
  # Properties that are lists do not survive the way through the discovery.
  set(properties "${CMAKE_CURRENT_BINARY_DIR}/${tests}_properties.cmake")
  file(WRITE "${properties}" "foreach(test IN LISTS ${tests})
  set_tests_properties(\"\${test}\" PROPERTIES
    LABELS \"${arg_MODULE};${arg_LABELS}\"
    ENVIRONMENT \"${arg_ENVIRONMENT}\")
endforeach()
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${properties}")
endfunction()
