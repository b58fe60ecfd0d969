# Analyses every game of PAY_TABLES with ANALYSER, in a FOLDER of its own, and keeps the cache as RESULT.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
file(COPY_FILE ${PAY_TABLES} ${FOLDER}/Tolvane.ini)
execute_process(COMMAND ${ANALYSER} analyze --all --cache --data ${FOLDER}
                OUTPUT_QUIET ERROR_VARIABLE problem RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "The shipped games could not be analysed: ${problem}")
endif()
file(RENAME "${FOLDER}/Game Analyses.ini" "${RESULT}")
