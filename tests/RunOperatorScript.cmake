# Plays one operator script on the simulated machine and judges the exit status:
#   cmake -DPROGRAM=tintbench -DSCRIPT=FILE -DDATA=FOLDER -DFRESH=FOLDER -P RunOperatorScript.cmake
# The comments at the head of the script may say how it is to be played:
#   ' options: ...       further options of the command line
#   ' exit: N            the exit status that is good, 0 if nothing is said
#   ' data: FILE=PATH    copies FILE of the tests' data to PATH in the program's data folder
cmake_minimum_required(VERSION 3.25)

set(options "")
set(wanted 0)
set(copies "")

file(STRINGS ${SCRIPT} lines)
foreach(line IN LISTS lines)
  if(NOT line MATCHES "^'")
    break()
  elseif(line MATCHES "^' options: (.*)$")
    separate_arguments(more UNIX_COMMAND "${CMAKE_MATCH_1}")
    list(APPEND options ${more})
  elseif(line MATCHES "^' exit: ([0-9]+)$")
    set(wanted ${CMAKE_MATCH_1})
  elseif(line MATCHES "^' data: ([^=]+)=(.+)$")
    list(APPEND copies "${CMAKE_MATCH_1}=${CMAKE_MATCH_2}")
  endif()
endforeach()

file(REMOVE_RECURSE ${FRESH})
file(MAKE_DIRECTORY ${FRESH})
foreach(copy IN LISTS copies)
  string(REGEX MATCH "^([^=]+)=(.+)$" copy "${copy}")
  configure_file(${DATA}/${CMAKE_MATCH_1} ${FRESH}/${CMAKE_MATCH_2} COPYONLY)
endforeach()

# Dates in words are the scripts' own, whoever plays them.
set(ENV{LC_ALL} C)
execute_process(
  COMMAND ${PROGRAM} --demo --clock virtual --data-dir ${FRESH} --operator ${SCRIPT} ${options}
  RESULT_VARIABLE status)
if(NOT status STREQUAL wanted)
  message(FATAL_ERROR "exit status ${status}, wanted ${wanted}")
endif()
