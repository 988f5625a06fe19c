# The CMake package Stirra: the two shared modules, for programs that are built elsewhere. Its configuration and what it
# looks for are in Packaging/StirraConfig.cmake.in.

include(CMakePackageConfigHelpers)

set(STIRRA_ARCHIVES "${CMAKE_INSTALL_LIBDIR}/stirra")
set(STIRRA_HEADERS "${CMAKE_INSTALL_INCLUDEDIR}/stirra")
set(STIRRA_PACKAGE "${CMAKE_INSTALL_LIBDIR}/cmake/Stirra")

# stirra_install_libraries(<target> ...): makes them a part of the package, as Stirra::<target>. What they are linked with
# has to be a part of it as well. Their resources come along.
function(stirra_install_libraries)
  set(parts ${ARGN})
  foreach(library IN LISTS ARGN)
    set(number 1)
    while(TARGET ${library}_resources_${number})
      list(APPEND parts ${library}_resources_${number})
      math(EXPR number "${number} + 1")
    endwhile()
  endforeach()
  install(TARGETS ${parts} EXPORT StirraTargets COMPONENT Development
    ARCHIVE DESTINATION "${STIRRA_ARCHIVES}"
    OBJECTS DESTINATION "${STIRRA_ARCHIVES}")
endfunction()

# stirra_install_headers(<room> ...): all of a room's headers, but not those of one operating system.
function(stirra_install_headers)
  foreach(room IN LISTS ARGN)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/${room}/*.h")
    list(FILTER headers EXCLUDE REGEX "^Platform/(Linux|Apple)/")
    foreach(header IN LISTS headers)
      get_filename_component(folder "${header}" DIRECTORY)
      install(FILES "${PROJECT_SOURCE_DIR}/${header}" COMPONENT Development
        DESTINATION "${STIRRA_HEADERS}/${folder}")
    endforeach()
  endforeach()
endfunction()

# stirra_install_views(<QML module>): the library, its plugin and what Qt's functions have added to them, and the module's
# description, for the QML tools.
function(stirra_install_views module)
  stirra_install_libraries(${module} ${module}_qmlcache ${module}plugin ${module}plugin_init)

  get_target_property(folder ${module} QT_QML_MODULE_OUTPUT_DIRECTORY)
  get_target_property(types ${module} QT_QML_MODULE_TYPEINFO)
  get_target_property(views ${module} QT_QML_MODULE_QML_FILES)
  install(FILES "${folder}/qmldir" "${folder}/${types}" ${views} COMPONENT Development
    DESTINATION "${STIRRA_ARCHIVES}/qml/${module}")
endfunction()

# stirra_install_package(): the package around all that was installed before.
function(stirra_install_package)
  install(EXPORT StirraTargets NAMESPACE Stirra:: DESTINATION "${STIRRA_PACKAGE}" COMPONENT Development)
  configure_package_config_file("${PROJECT_SOURCE_DIR}/Packaging/StirraConfig.cmake.in" StirraConfig.cmake
    INSTALL_DESTINATION "${STIRRA_PACKAGE}"
    PATH_VARS STIRRA_ARCHIVES
    NO_CHECK_REQUIRED_COMPONENTS_MACRO)
  write_basic_package_version_file(StirraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/StirraConfig.cmake" "${CMAKE_CURRENT_BINARY_DIR}/StirraConfigVersion.cmake"
    DESTINATION "${STIRRA_PACKAGE}" COMPONENT Development)
endfunction()
