# Runs PROGRAM and writes what it prints to OUTPUT; fails when it fails.
#   cmake -DPROGRAM=<program> -DOUTPUT=<file> -P NkfRunToFile.cmake
execute_process(COMMAND "${PROGRAM}" OUTPUT_FILE "${OUTPUT}" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} failed: ${status}")
endif()
