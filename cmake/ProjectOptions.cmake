# What every target of this project is built with.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

# Programs and libraries lie side by side in the build tree, as a host finds the plug-in beside itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The inode cache spares ccache reading the precompiled header, 260 MB, for each file.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_INODECACHE=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()

find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Svg)
find_package(Threads REQUIRED)

set(compiler "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
if(SETTINGAREA_WERROR AND NOT compiler MATCHES "^(GNU 12|Clang 14)\\.")
  message(STATUS "Warnings stay warnings: ${compiler} is not a compiler that this code is tested with")
  set(SETTINGAREA_WERROR OFF)
endif()

add_library(settingarea_options INTERFACE)
target_compile_definitions(
  settingarea_options INTERFACE QT_NO_CAST_FROM_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x050F00 QT_NO_KEYWORDS
)
# A debug build ends where the standard library is used against its rules.
target_compile_definitions(settingarea_options INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
target_compile_options(
  settingarea_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${SETTINGAREA_WERROR}>:-Werror>
)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # What Qt 5 asks for: qCWarning(category) << ... and QSKIP("...") leave the last macro argument out, and key sequences
  # and frame styles are made of two enumerations.
  target_compile_options(settingarea_options INTERFACE -Wno-gnu-zero-variadic-macro-arguments -Wno-enum-enum-conversion)
endif()
# Includes name a file by its path from the root of the tree, so a reader sees which floor it comes from.
target_include_directories(settingarea_options INTERFACE "${PROJECT_SOURCE_DIR}")

if(CCACHE_PROGRAM AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

if(SETTINGAREA_SANITIZE)
  add_compile_options(-fsanitize=${SETTINGAREA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all -O1)
  add_link_options(-fsanitize=${SETTINGAREA_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The instrumented code hides assignments from the compiler, which then warns of the standard library's own headers.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()

# settingarea_precompile(TARGET): the large Qt headers, parsed once for all targets that ask for it.
function(settingarea_precompile target)
  if(NOT SETTINGAREA_PCH)
    return()
  endif()
  if(NOT TARGET settingarea_pch)
    file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/precompiled.cpp" CONTENT "")
    add_library(settingarea_pch OBJECT "${PROJECT_BINARY_DIR}/precompiled.cpp")
    set_target_properties(settingarea_pch PROPERTIES AUTOMOC OFF)
    target_precompile_headers(settingarea_pch PRIVATE <QtWidgets>)
    target_link_libraries(settingarea_pch PRIVATE settingarea_options Qt5::Widgets)
  endif()
  target_precompile_headers(${target} REUSE_FROM settingarea_pch)
endfunction()
