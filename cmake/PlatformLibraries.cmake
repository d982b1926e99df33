# The host's two libraries: our own implementation, or, where -DWidgetry_DIR or -DUtilbase_DIR names the folder of a
# CMake package config, the one installed there. Both give the targets Widgetry::Widgetry and Utilbase::Utilbase.

if(Utilbase_DIR)
  find_package(Utilbase CONFIG REQUIRED)
else()
  add_subdirectory(platform/utilbase)
endif()

if(Widgetry_DIR)
  find_package(Widgetry CONFIG REQUIRED)
else()
  add_subdirectory(platform/widgetry)
endif()
