# Runs the programs (DBA, PLAYER) in FOLDER under the limits of the system, without room for what they
# print, and ended by signals: each must come to an end of its own, with the exit status and the error
# that are documented, and leave nothing half-made. SANITIZED programs need memory and files of their own.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
set(store sqlite:${FOLDER}/base.vor)
string(REPEAT "Nom " 5000 long)
set(lines "")
foreach(number RANGE 500)
    string(APPEND lines "{\"file\":\"AIDANT\",\"key\":\"K${number}\",\"record\":{\"1\":\"${long}\"}}\n")
endforeach()
file(WRITE ${FOLDER}/many.jsonl "${lines}")
file(WRITE ${FOLDER}/put.scn "put AIDANT 00012 {\"1\":\"DURAND Marie\"}\n")

# The rest of the words, run by a shell once it has done `before`: the exit status is to be `status`,
# and `text` to be told; both are patterns.
function(run before status text)
    execute_process(COMMAND sh -c "${before}; exec \"$@\"" sh ${ARGN} WORKING_DIRECTORY ${FOLDER}
                    RESULT_VARIABLE ended OUTPUT_VARIABLE told ERROR_VARIABLE told)
    if(NOT ended MATCHES "^(${status})$" OR NOT told MATCHES "${text}")
        message(FATAL_ERROR "${before}; ${ARGN}\nexit status ${ended}, not ${status}; told: ${told}")
    endif()
    file(GLOB left ${FOLDER}/*.part*)
    if(left)
        message(FATAL_ERROR "${before}; ${ARGN}\nleft behind: ${left}")
    endif()
endfunction()

run(: 0 "501 records stored" ${DBA} import --create ${store} many.jsonl)

# A limit of sizes is a full disk; once it is gone, the same write succeeds.
set(full "ulimit -f 100")
run(${full} 1 "error 0x8004020E" ${PLAYER} --store ${store} put.scn)
run(${full} 2 "n'a plus de place" ${DBA} put ${store} AIDANT K1 "{\"1\":\"${long}\"}")
run(${full} 2 "n'a plus de place" ${DBA} import ${store} many.jsonl)
run(: 0 "stored AIDANT K1" ${DBA} put ${store} AIDANT K1 "{\"1\":\"${long}\"}")
run(${full} 2 "copie.vor.part » n'a plus de place" ${DBA} backup ${store} copie.vor)
run(${full} 2 "copie.vor.part » n'a plus de place" ${DBA} repair base.vor copie.vor)

if(NOT SANITIZED)
    # Files that cannot be opened, which is no damage. How many are open from the start is not known.
    foreach(files RANGE 4 9)
        foreach(command "put;${store};AIDANT;K1;{}" "import;${store};many.jsonl"
                        "backup;${store};copie.vor" "repair;base.vor;copie.vor")
            run("rm -f copie.vor; ulimit -n ${files}" "0|2|127"
                "^[^\n]*(stored|backed up|saved|trop de fichiers|Too many open files|shared libraries)" ${DBA} ${command})
        endforeach()
    endforeach()

    # Too little memory for the work, but enough for the system to load the program and for the C++
    # runtime to set itself up, neither of which can tell anything.
    set(least 0)
    foreach(memory RANGE 6000 40000 1000)
        if(least EQUAL 0)
            execute_process(COMMAND sh -c "ulimit -v ${memory}; exec ${DBA} --version"
                            RESULT_VARIABLE ended OUTPUT_QUIET ERROR_QUIET)
            if(ended EQUAL 0)
                math(EXPR least "${memory} + 1000")
            endif()
        elseif(NOT memory LESS least)
            run("ulimit -v ${memory}" "0|2" "sound|there is not enough memory" ${DBA} verify base.vor)
        endif()
    endforeach()
endif()

# What is stored is stored, whoever hears of it; what is asked for is not done unless it comes.
run("exec >/dev/full" 0 "the exit status tells it" ${DBA} import ${store} many.jsonl)
run("exec >/dev/full" 2 "could not be written" ${DBA} export ${store})
run("exec >/dev/full" 2 "could not be written" ${PLAYER} --help)
run("{ ${DBA} export ${store}; echo ended by $? >&2; } | head -n 1 >/dev/null" 0
    "could not be written[^\n]*\nended by 2\n" true)

foreach(signal TERM HUP)
    foreach(command "backup ${store}" "repair base.vor")
        run("rm -f copie.vor; ${DBA} ${command} copie.vor & while ! [ -e copie.vor.part ]; do :; done; \
             kill -${signal} $!; wait $!" 0 "" true)
    endforeach()
endforeach()
file(REMOVE_RECURSE ${FOLDER})
