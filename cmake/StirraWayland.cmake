# Code for Wayland protocols, made of their descriptions.

pkg_check_modules(WAYLAND_CLIENT REQUIRED IMPORTED_TARGET wayland-client)
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)

# stirra_wayland_protocols(<name> <description.xml> ...): a library with <description>-client-protocol.h and
# <description>-server-protocol.h of each.
function(stirra_wayland_protocols name)
  set(sources)
  foreach(description IN LISTS ARGN)
    get_filename_component(description "${description}" ABSOLUTE)
    get_filename_component(stem "${description}" NAME_WE)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}")
    file(MAKE_DIRECTORY "${folder}")
    foreach(kind IN ITEMS client-header server-header private-code)
      string(REPLACE "-header" "-protocol.h" ending "-${kind}")
      string(REPLACE "-private-code" "-protocol.c" ending "${ending}")
      set(file "${folder}/${stem}${ending}")
      add_custom_command(OUTPUT "${file}"
        COMMAND "${WAYLAND_SCANNER}" --strict ${kind} "${description}" "${file}"
        DEPENDS "${description}" VERBATIM)
      list(APPEND sources "${file}")
    endforeach()
  endforeach()
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  set_source_files_properties(${sources} PROPERTIES SKIP_LINTING ON)
  target_include_directories(${name} SYSTEM PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/${name}>)
  target_link_libraries(${name} PUBLIC PkgConfig::WAYLAND_CLIENT)
endfunction()
