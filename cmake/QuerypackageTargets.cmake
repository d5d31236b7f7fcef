# What every target of this project has in common.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

option(QUERYPACKAGE_WERROR "Treat warnings as errors; the presets do" OFF)
option(QUERYPACKAGE_PRECOMPILED_HEADERS "Compile the common headers of the tests once" ON)
option(QUERYPACKAGE_FAST_LINKER "Link with mold or lld where one is installed" OFF)
set(QUERYPACKAGE_SANITIZERS "" CACHE STRING "The sanitizers to build with, as for -fsanitize=")
option(QUERYPACKAGE_HARDENING "Build with the toolchain's defences against memory errors" ON)

if(QUERYPACKAGE_SANITIZERS)
  string(APPEND CMAKE_CXX_FLAGS " -fsanitize=${QUERYPACKAGE_SANITIZERS} -fno-sanitize-recover=all"
    " -fno-omit-frame-pointer")
endif()
if(QUERYPACKAGE_FAST_LINKER AND UNIX AND NOT APPLE)
  find_program(QUERYPACKAGE_LINKER NAMES mold ld.lld)
  mark_as_advanced(QUERYPACKAGE_LINKER)
  if(QUERYPACKAGE_LINKER)
    get_filename_component(linker "${QUERYPACKAGE_LINKER}" NAME)
    string(REGEX REPLACE "^ld[.]" "" linker "${linker}")
    add_link_options("-fuse-ld=${linker}")
  endif()
endif()

# Against overwritten return addresses, known buffers that overflow, relocation tables and code that
# can be written, and addresses that can be foreseen.
function(querypackage_harden target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /guard:cf)
    target_link_options(${target} PRIVATE /guard:cf /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT)
    return()
  endif()
  target_compile_options(${target} PRIVATE -fstack-protector-strong)
  # Fortified functions need an optimising compiler, and hide from sanitizers what they check.
  if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    target_compile_options(${target} PRIVATE
      "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  endif()
  if(WIN32)
    # The static part of the compiler's runtime: the DLL would be one more to ship.
    target_link_libraries(${target} PRIVATE -l:libssp.a)
    target_link_options(${target} PRIVATE
      LINKER:--dynamicbase,--high-entropy-va,--nxcompat)
  elseif(NOT APPLE)
    target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
  endif()
endfunction()

function(querypackage_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 17
    CXX_STANDARD_REQUIRED ON
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON
    BUILD_RPATH_USE_ORIGIN ON)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 /EHsc /bigobj)
    target_compile_definitions(${target} PRIVATE NOMINMAX _CRT_SECURE_NO_WARNINGS)
    if(QUERYPACKAGE_WERROR)
      target_compile_options(${target} PRIVATE /WX)
    endif()
  else()
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wconversion -Wshadow
      # No path of the building machine in a binary.
      "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
    if(QUERYPACKAGE_WERROR)
      target_compile_options(${target} PRIVATE -Werror)
    endif()
  endif()
  # No time of building either.
  if(MSVC)
    target_link_options(${target} PRIVATE /Brepro)
  elseif(WIN32)
    target_link_options(${target} PRIVATE LINKER:--no-insert-timestamp)
  endif()
  if(QUERYPACKAGE_HARDENING)
    querypackage_harden(${target})
  endif()
endfunction()

# A shared library that lacks a symbol fails to link, and not to load. A sanitizer's own symbols are
# in the program, if Clang links it.
function(querypackage_no_undefined target)
  if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    target_link_options(${target} PRIVATE LINKER:--no-undefined)
  endif()
endfunction()

# The given headers are compiled once for the target, or shared with another one that is compiled
# with the same options (REUSE_FROM target). This hides a missing include; the preset asan compiles the
# sources without them, and scripts/headers.sh each header by itself.
function(querypackage_precompile_headers target)
  if(QUERYPACKAGE_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      target_compile_options(${target} PRIVATE -fpch-preprocess)  # for compiler caches
    endif()
  endif()
endfunction()

# A compiler cache, where one is installed. It has to be told that precompiled headers may be cached.
find_program(CCACHE ccache)
mark_as_advanced(CCACHE)
if(PROJECT_IS_TOP_LEVEL AND CCACHE AND NOT MSVC
   AND "${CMAKE_CXX_COMPILER_LAUNCHER}" MATCHES "^(ccache|.*/ccache|)$")
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()
