# Runs ipapp-validate under valgrind's memcheck, the tool and the child
# process it forks for the plug-in: passes when the tool ends with the
# expected status and memcheck reports, for every process, no error and no
# memory definitely or indirectly lost. Usage:
#   cmake -DVALGRIND=<valgrind> -DTOOL=<ipapp-validate> -DLOG_DIR=<dir>
#         -DCANDIDATE=<file> [-DRUNNING=<file>] -DEXPECTED=<file> [-DARGS=<options>]
#         [-DGENERATOR=<ipapp-generate-config> -DGENERATE_FILE=<file>]
#         -P memcheck.cmake
# EXPECTED: its first line is the verdict (accepted, refused or crashed).
# GENERATE_FILE: options of GENERATOR's device mode, one per line; the
# candidate is then generated into CANDIDATE first.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${LOG_DIR})
file(MAKE_DIRECTORY ${LOG_DIR})

if(DEFINED GENERATE_FILE)
    file(STRINGS ${GENERATE_FILE} generate_options)
    execute_process(COMMAND ${GENERATOR} --device=${CANDIDATE} ${generate_options}
        OUTPUT_QUIET ERROR_VARIABLE error RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${GENERATE_FILE}: ${error}")
    endif()
endif()

file(STRINGS ${EXPECTED} verdict LIMIT_COUNT 1)
set(statuses accepted 0 refused 1 crashed 3)
list(FIND statuses "${verdict}" at)
if(at EQUAL -1)
    message(FATAL_ERROR "${EXPECTED}: unknown verdict '${verdict}'")
endif()
math(EXPR at "${at} + 1")
list(GET statuses ${at} expected_status)

set(running_args "")
if(RUNNING)
    set(running_args --running ${RUNNING})
endif()
execute_process(
    COMMAND ${VALGRIND} --tool=memcheck --trace-children=yes --error-exitcode=99
            --leak-check=full --errors-for-leak-kinds=definite,indirect
            --log-file=${LOG_DIR}/memcheck.%p.log
            ${TOOL} ${running_args} ${ARGS} ${CANDIDATE}
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status)

file(GLOB logs ${LOG_DIR}/memcheck.*.log)
list(LENGTH logs processes)
set(problems "")
foreach(log ${logs})
    file(READ ${log} text)
    if(NOT text MATCHES "ERROR SUMMARY: 0 errors from 0 contexts")
        string(APPEND problems "${log}:\n${text}\n")
    endif()
endforeach()
if(NOT status EQUAL expected_status OR processes LESS 2 OR NOT problems STREQUAL "")
    message(FATAL_ERROR "exit status ${status} (expected ${expected_status}), "
                        "${processes} processes checked (expected the tool and its child)\n"
                        "${problems}--- stdout:\n${out}\n--- stderr:\n${err}")
endif()
