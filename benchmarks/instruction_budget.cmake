# Counts the instructions of a whole query with callgrind, at 1,000 and 2,000 packages, and fails
# where a package costs more than its budget, or more the more packages there are. Files that are made
# to be expensive may cost four times as much when they are four times as long.
#
#   cmake -D valgrind=... -D probe=<instruction_probe> -D work=<folder> -P instruction_budget.cmake
cmake_minimum_required(VERSION 3.21)

set(budget 565000)      # instructions a package; 514,000 when this was set
set(growthPercent 103)  # of the cost a package, from 1,000 to 2,000 packages

function(count what number result)
  set(out "${work}/${what}-${number}.callgrind")
  execute_process(COMMAND "${valgrind}" --tool=callgrind "--callgrind-out-file=${out}"
    "--toggle-collect=Vornik::QueryPackageImp::RunQuery*" "${probe}" ${what} ${number}
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
  message("${what} ${number}: ${total} instructions")
  set(${result} ${total} PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY "${work}")
count(query 1000 small)
count(query 2000 large)
math(EXPR small "${small} / 1000")
math(EXPR large "${large} / 2000")
math(EXPR mostLarge "${small} * ${growthPercent} / 100")
if(small GREATER budget OR large GREATER budget)
  message(SEND_ERROR "a package costs more than ${budget} instructions")
endif()
if(large GREATER mostLarge)
  message(SEND_ERROR "a package costs more, the more packages there are")
endif()

# The same for whole folders. Codes and files that are looked up cost a logarithm more.
set(growthPercent 112)
foreach(shape IN ITEMS nested-values nested-text nested-elements long-code longest-code pack-versions
    most-attributes supersede-lists)
  count(${shape} 100000 small)
  count(${shape} 400000 large)
  math(EXPR mostLarge "${small} * 4 * ${growthPercent} / 100")
  if(large GREATER mostLarge)
    message(SEND_ERROR "${shape}: a byte costs more, the larger the folder is")
  endif()
endforeach()
set(growthPercent 103)

foreach(shape IN ITEMS markers elements attributes references line-ends comments unclosed)
  count(${shape} 100000 small)
  count(${shape} 400000 large)
  math(EXPR mostLarge "${small} * 4 * ${growthPercent} / 100")
  if(large GREATER mostLarge)
    message(SEND_ERROR "${shape}: a byte costs more, the longer the file is")
  endif()
endforeach()
