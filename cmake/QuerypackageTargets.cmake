# What every target of this project has in common.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

option(QUERYPACKAGE_WERROR "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
option(QUERYPACKAGE_HARDENING "Build with the toolchain's defences against memory errors" ON)

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
