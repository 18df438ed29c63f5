# Installs the build in BUILD, builds a host of EXAMPLE with it in FOLDER, with the compiler FLAGS of
# the build, and lets it run.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

file(REMOVE_RECURSE ${FOLDER})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${FOLDER}/prefix)
run(${CMAKE_COMMAND} -G Ninja -S ${CMAKE_CURRENT_LIST_DIR} -B ${FOLDER}/build
    -DCMAKE_PREFIX_PATH=${FOLDER}/prefix -DEXAMPLE=${EXAMPLE} -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${FOLDER}/build)
run(${FOLDER}/build/host)
file(REMOVE_RECURSE ${FOLDER})
