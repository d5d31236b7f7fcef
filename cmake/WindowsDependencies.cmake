# For CMAKE_PROJECT_TOP_LEVEL_INCLUDES: makes the libraries for Windows ready before the project
# looks for them. What is ready already costs nothing.
execute_process(
  COMMAND "${CMAKE_CURRENT_LIST_DIR}/../scripts/windows-dependencies.sh"
  OUTPUT_VARIABLE dependencies
  OUTPUT_STRIP_TRAILING_WHITESPACE
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "The libraries for Windows could not be built; see above.")
endif()

# What an older build found in an older folder would be used again.
if(DEFINED CACHE{WINDOWS_DEPENDENCIES} AND NOT "$CACHE{WINDOWS_DEPENDENCIES}" STREQUAL dependencies)
  get_cmake_property(names CACHE_VARIABLES)
  foreach(name IN LISTS names)
    string(FIND "$CACHE{${name}}" "$CACHE{WINDOWS_DEPENDENCIES}/" position)
    if(position EQUAL 0)
      unset(${name} CACHE)
    endif()
  endforeach()
endif()
set(WINDOWS_DEPENDENCIES "${dependencies}" CACHE INTERNAL "The libraries for Windows")

list(APPEND CMAKE_FIND_ROOT_PATH "${dependencies}")
# Headers name themselves in assertions and exceptions.
add_compile_options("-ffile-prefix-map=${dependencies}/=")
