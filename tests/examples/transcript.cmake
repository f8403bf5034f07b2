# Runs an example with an empty folder and compares what it prints:
#   cmake -DPROGRAM=... -DFOLDER=... -DEXPECTED=... -P transcript.cmake
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
execute_process(COMMAND "${PROGRAM}" "${FOLDER}" OUTPUT_FILE "${FOLDER}.txt" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} failed: ${result}")
endif()
execute_process(COMMAND diff "${EXPECTED}" "${FOLDER}.txt" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} does not print ${EXPECTED}")
endif()
