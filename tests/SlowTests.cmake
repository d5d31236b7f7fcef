# Time limits and the labels "fast" and "slow". A query can wait for ever by contract, so that every
# test has a limit: ten times what it needs on a machine with two cores, at least 120 s.
#
# QUERYPACKAGE_TIMEOUT_FACTOR, a variable of the environment or of CMake's cache, multiplies all of
# them: for slow machines, sanitizers, emulators.
set(QUERYPACKAGE_TIMEOUT_FACTOR 1 CACHE STRING "Multiplies the time limits of the tests")
set(factor "${QUERYPACKAGE_TIMEOUT_FACTOR}")
if(DEFINED ENV{QUERYPACKAGE_TIMEOUT_FACTOR})
  set(factor "$ENV{QUERYPACKAGE_TIMEOUT_FACTOR}")
endif()
if(NOT factor MATCHES "^[1-9][0-9]*$")
  message(FATAL_ERROR "QUERYPACKAGE_TIMEOUT_FACTOR is \"${factor}\", and should be a whole number")
endif()
math(EXPR querypackage_timeout "120 * ${factor}")

# Tests that take longer than five seconds, with their limit in seconds.
set(querypackage_slow_tests
  benchmarks=120
  bounds_benchmark=120
  host_with_its_own_log=600
  instruction_budget=1200
  installed_package=600
  package=600
  pipeline_tests.shuffled=1200
  scenarios=120
  unit_tests.shuffled=1200)

# The cases of test programs that take longer than that, and the limit of each.
set(querypackage_slow_cases
  CimXmlLoadFile.GivesWhatTinyXmlGives
  *EditsProperty*
  LargeFileTest.*
  MatrixRandomTest.GivesEachMachineWhatItsQueryGives
  VersionRanking.LeavesTheOrderOfTheExchangeSort)
math(EXPR querypackage_slow_case_timeout "600 * ${factor}")

# The cases are found when ctest starts. Other tests get their limit and label at the end of the
# directory that adds them.
function(querypackage_limit_tests)
  get_property(tests DIRECTORY PROPERTY TESTS)
  foreach(test IN LISTS tests)
    set(label fast)
    set(limit "${querypackage_timeout}")
    foreach(slow IN LISTS querypackage_slow_tests)
      if(slow MATCHES "^${test}=([0-9]+)$")
        set(label slow)
        math(EXPR limit "${CMAKE_MATCH_1} * ${factor}")
      endif()
    endforeach()
    set_property(TEST "${test}" APPEND PROPERTY LABELS "${label}")
    set_property(TEST "${test}" PROPERTY TIMEOUT "${limit}")
  endforeach()
endfunction()
