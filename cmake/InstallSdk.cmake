# The CMake package that a host is built with: find_package(settingarea) gives settingarea::interface.

include(CMakePackageConfigHelpers)

set(SETTINGAREA_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/settingarea")

install(EXPORT settingarea FILE settingareaTargets.cmake NAMESPACE settingarea:: DESTINATION "${SETTINGAREA_CMAKE_DIR}")
configure_package_config_file(
  cmake/settingareaConfig.cmake.in "${PROJECT_BINARY_DIR}/settingareaConfig.cmake"
  INSTALL_DESTINATION "${SETTINGAREA_CMAKE_DIR}"
)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/settingareaConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/settingareaConfig.cmake" "${PROJECT_BINARY_DIR}/settingareaConfigVersion.cmake"
        DESTINATION "${SETTINGAREA_CMAKE_DIR}"
)
