# The CMake packages of the host's two libraries.

include(CMakePackageConfigHelpers)

# settingarea_install_platform_library(NAME FOLDER "QT_COMPONENT..." HEADER...): install the library NAME, its headers to
# include/FOLDER, and a package: find_package(NAME) gives NAME::NAME.
function(settingarea_install_platform_library name folder qt_components)
  set(cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${name}")
  set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS ${name} EXPORT ${name} LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
  install(FILES ${ARGN} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${folder}")
  install(EXPORT ${name} FILE ${name}Targets.cmake NAMESPACE ${name}:: DESTINATION "${cmake_dir}")
  configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/platformLibraryConfig.cmake.in" ${name}Config.cmake INSTALL_DESTINATION "${cmake_dir}"
  )
  write_basic_package_version_file(${name}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake" "${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake"
          DESTINATION "${cmake_dir}"
  )
endfunction()
