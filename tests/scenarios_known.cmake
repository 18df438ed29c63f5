# Whether every scenario in FOLDER is a test: there are KNOWN of them since the build was configured.
file(GLOB_RECURSE found ${FOLDER}/*.scn)
list(LENGTH found count)
if(NOT count EQUAL KNOWN)
    message(FATAL_ERROR "${count} scenarios, but ${KNOWN} when this was configured: run cmake again")
endif()
