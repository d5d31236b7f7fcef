# The C++ runtime that MinGW's programs and DLLs share. It has to be one for all of them: what a DLL
# throws or allocates is caught and freed by the host.
#
# Puts the runtime's DLLs beside the programs, here and where querypackage is installed, and names
# them in MINGW_RUNTIME_DLLS.
set(MINGW_RUNTIME_DLLS)
foreach(dll IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${dll}"
    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
  # A file that it does not know comes back as the bare name.
  if(NOT IS_ABSOLUTE "${file}")
    message(FATAL_ERROR "${CMAKE_CXX_COMPILER} does not know where ${dll} is")
  endif()
  list(APPEND MINGW_RUNTIME_DLLS "${file}")
  if(CMAKE_RUNTIME_OUTPUT_DIRECTORY)
    file(COPY "${file}" DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  endif()
  if(QUERYPACKAGE_INSTALL)
    install(FILES "${file}" DESTINATION "${CMAKE_INSTALL_BINDIR}")
  endif()
endforeach()

# strip writes the time into what it has stripped, unless it is told one; the linker's is 0.
if(QUERYPACKAGE_INSTALL)
  install(CODE [[
    if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
      set(ENV{SOURCE_DATE_EPOCH} 0)
    endif()
  ]])
endif()
