# Counts the instructions of a whole query with callgrind, at 1,000 and 2,000 packages, and fails
# where a package costs more than its budget, or more the more packages there are.
#
#   cmake -D valgrind=... -D probe=<instruction_probe> -D work=<folder> -P instruction_budget.cmake
cmake_minimum_required(VERSION 3.21)

set(budget 520000)      # instructions a package; 474,000 when this was set
set(growthPercent 103)  # of the cost a package, from 1,000 to 2,000 packages

function(count packages result)
  set(out "${work}/query-${packages}.callgrind")
  execute_process(COMMAND "${valgrind}" --tool=callgrind "--callgrind-out-file=${out}"
    "--toggle-collect=Vornik::QueryPackageImp::RunQuery*" "${probe}" query ${packages}
    RESULT_VARIABLE status ERROR_VARIABLE log)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "callgrind ended with ${status}\n${log}")
  endif()
  file(STRINGS "${out}" totals REGEX "^(summary|totals):")
  list(GET totals 0 total)
  string(REGEX REPLACE "[^0-9]" "" total "${total}")
  if(NOT total GREATER 0)
    message(FATAL_ERROR "callgrind counted nothing")
  endif()
  math(EXPR each "${total} / ${packages}")
  message("${packages} packages: ${each} instructions a package")
  set(${result} ${each} PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY "${work}")
count(1000 small)
count(2000 large)
math(EXPR mostLarge "${small} * ${growthPercent} / 100")
if(small GREATER budget OR large GREATER budget)
  message(SEND_ERROR "a package costs more than ${budget} instructions")
endif()
if(large GREATER mostLarge)
  message(SEND_ERROR "a package costs more, the more packages there are")
endif()
