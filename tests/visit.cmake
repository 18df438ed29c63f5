# Plays the guided visits on the demonstration data with both front ends in turn, in one store as
# ./run keeps it: each must hold, and print the same, so that they leave nothing behind.
set(store sqlite:${FOLDER}/visit.sqlite)
file(REMOVE ${FOLDER}/visit.sqlite)
file(GLOB records ${DEMO}/*.jsonl)
file(GLOB visits ${DEMO}/*.scn)
execute_process(COMMAND ${IMPORTER} import --create ${store} ${records} RESULT_VARIABLE status
                OUTPUT_QUIET)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The demonstration data was not imported.")
endif()
foreach(front headless qt)
    execute_process(COMMAND ${PLAYER} --front ${front} --store ${store} ${visits}
                    RESULT_VARIABLE status OUTPUT_VARIABLE printed_${front} ERROR_VARIABLE failures)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "--front ${front}: exit status ${status}\n${failures}")
    endif()
endforeach()
if(NOT printed_headless STREQUAL printed_qt)
    message(FATAL_ERROR "The second time differs.\n${printed_headless}\nthen:\n${printed_qt}")
endif()
