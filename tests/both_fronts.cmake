# Plays SCENARIO (one file or several), with OPTIONS if there are any, with PLAYER on both front ends:
# each must hold, and both must print the same.
foreach(front headless qt)
    execute_process(COMMAND ${PLAYER} --front ${front} ${OPTIONS} ${SCENARIO}
                    RESULT_VARIABLE status OUTPUT_VARIABLE printed_${front} ERROR_VARIABLE failures)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "--front ${front}: exit status ${status}\n${failures}")
    endif()
endforeach()
if(NOT printed_headless STREQUAL printed_qt)
    message(FATAL_ERROR "The second front end differs.\nheadless:\n${printed_headless}\nqt:\n${printed_qt}")
endif()
