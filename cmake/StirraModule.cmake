# stirra_target(<target>): the project's warnings and include root, for a target that exists already.
function(stirra_target target)
  target_compile_options(${target} PRIVATE ${STIRRA_WARNINGS})
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${STIRRA_HEADERS}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  stirra_spare_generated_sources(${target})
  set_property(GLOBAL APPEND PROPERTY STIRRA_TARGETS ${target})
endfunction()

# stirra_unite_sources(): to be called when all targets are whole. Those of their sources that define no name twice are
# compiled as one; see STIRRA_UNITED.
function(stirra_unite_sources)
  get_property(targets GLOBAL PROPERTY STIRRA_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(folder ${target} SOURCE_DIR)
    if(STIRRA_UNITED STREQUAL "all" OR folder MATCHES "^${PROJECT_SOURCE_DIR}/(Benchmarks|Tests)")
      stirra_unite_sources_of(${target})
    endif()
  endforeach()
endfunction()

function(stirra_unite_sources_of target)
  get_target_property(folder ${target} SOURCE_DIR)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  list(FILTER sources EXCLUDE REGEX "^(${PROJECT_BINARY_DIR}/|\\$)")
  execute_process(
    COMMAND "${PROJECT_SOURCE_DIR}/scripts/source_groups.py" 12 ${sources}
    WORKING_DIRECTORY "${folder}"
    OUTPUT_VARIABLE groups
    OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "\n" " " groups "${groups}")
  set(number 0)
  separate_arguments(groups NATIVE_COMMAND "${groups}")
  foreach(group IN LISTS groups)
    math(EXPR number "${number} + 1")
    string(REPLACE "," ";" group "${group}")
    set_source_files_properties(${group} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${target}${number})
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  # What is one file's own may have the name of what another includes.
  target_compile_options(${target} PRIVATE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
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
  if(STIRRA_SANITIZERS AND arg_SUFFIX MATCHES "^@")
    return() # the same memory at another scale factor
  endif()
  if(STIRRA_SANITIZERS AND NOT "EndToEnd" IN_LIST arg_LABELS)
    stirra_add_shards(${ARGV})
    return()
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

# stirra_add_shards(...): as stirra_discover(), but with many cases in one process: under a sanitizer its start costs more
# than most cases that need nothing but themselves.
function(stirra_add_shards name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "MODULE;TIMEOUT;SUFFIX;FILTER" "LABELS;ENVIRONMENT")
  if(arg_FILTER)
    set(filter "${arg_FILTER}")
  else()
    set(filter "*")
  endif()
  foreach(index RANGE 7)
    set(test ${arg_MODULE}.${name}.${index}${arg_SUFFIX})
    add_test(NAME ${test} COMMAND ${name} "--gtest_filter=${filter}")
    set_tests_properties(${test} PROPERTIES
      TIMEOUT 300
      LABELS "${arg_MODULE};${arg_LABELS}"
      ENVIRONMENT "GTEST_TOTAL_SHARDS=8;GTEST_SHARD_INDEX=${index};${arg_ENVIRONMENT}"
      SKIP_REGULAR_EXPRESSION "\\[  SKIPPED \\]")
  endforeach()
endfunction()
