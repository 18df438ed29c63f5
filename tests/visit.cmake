# Plays the guided visits on the demonstration data with both front ends in turn, in one store as
# ./run keeps it: each must hold, and print the same, so that they leave nothing behind.
set(store sqlite:${FOLDER}/visit.sqlite)
file(REMOVE ${FOLDER}/visit.sqlite)
file(GLOB records ${DEMO}/*.jsonl)
execute_process(COMMAND ${IMPORTER} import --create ${store} ${records} RESULT_VARIABLE status
                OUTPUT_QUIET)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The demonstration data was not imported.")
endif()
file(GLOB SCENARIO ${DEMO}/*.scn)
set(OPTIONS --store ${store})
include(${CMAKE_CURRENT_LIST_DIR}/both_fronts.cmake)
