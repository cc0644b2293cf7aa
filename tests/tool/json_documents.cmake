# The JSON documents of ipapp-validate parse, and carry the structure and the
# exact texts of the run. Usage:
#   cmake -DTOOL=<ipapp-validate> -DTEST_PLUGIN=<test plug-in> -DCANDIDATE=<file>
#         -P json_documents.cmake
cmake_minimum_required(VERSION 3.25)

function(check_equal what actual expected)
    if(NOT actual STREQUAL expected)
        message(FATAL_ERROR "${what}: expected\n[${expected}]\ngot\n[${actual}]\nin\n${document}")
    endif()
endfunction()

function(json_get out)
    string(JSON value ERROR_VARIABLE error GET "${document}" ${ARGN})
    if(error)
        message(FATAL_ERROR "${ARGN}: ${error}\nin\n${document}")
    endif()
    set(${out} "${value}" PARENT_SCOPE)
endfunction()

# A refusal whose text needs every kind of escaping, an exception, an
# acceptance; --keep-going runs all three.
set(ra /ipv6/nd/ra)
execute_process(
    COMMAND ${TOOL} --plugin ${TEST_PLUGIN} --format json --keep-going --timing
            --call "p1=/config/interface/l3{escapes}${ra}"
            --call "p2=/config/interface/l3{throw}${ra}"
            --call "p3=/config/interface/l3{ok}${ra}"
            ${CANDIDATE}
    OUTPUT_VARIABLE document RESULT_VARIABLE status)
check_equal("exit status" "${status}" "3")

json_get(verdict verdict)
check_equal("verdict" "${verdict}" "crashed")
json_get(exit_code exit_code)
check_equal("exit_code" "${exit_code}" "3")
json_get(fired fired)
check_equal("fired" "${fired}" "3")
json_get(run run)
check_equal("run" "${run}" "3")
json_get(summary summary)
check_equal("summary" "${summary}" "plug-in crashed: 1 of 3 validation calls crashed, 1 refused")
string(JSON calls LENGTH "${document}" calls)
check_equal("number of calls" "${calls}" "3")

json_get(point calls 0 point)
check_equal("first point" "${point}" "p1")
json_get(keypath calls 0 keypath)
check_equal("first keypath" "${keypath}" "/config/interface/l3{escapes}/ipv6/nd/ra")
json_get(call_verdict calls 0 verdict)
check_equal("first verdict" "${call_verdict}" "refused")
json_get(result calls 0 result)
check_equal("first result" "${result}" "-1")
# The test plug-in's text, with its byte 0xFF that is not UTF-8 as U+FFFD.
string(ASCII 1 control)
json_get(text calls 0 text)
check_equal("escaped text" "${text}" "q\" b\\ t\t n\n c${control} p%s uü x�")

json_get(call_verdict calls 1 verdict)
check_equal("second verdict" "${call_verdict}" "crashed")
json_get(cause calls 1 crash cause)
check_equal("crash cause" "${cause}" "exception std::out_of_range")
json_get(detail calls 1 crash detail)
check_equal("crash detail" "${detail}" "stoul")

json_get(call_verdict calls 2 verdict)
check_equal("third verdict" "${call_verdict}" "accepted")
json_get(result calls 2 result)
check_equal("third result" "${result}" "0")

foreach(member total_ms plugin_ms tool_ms)
    string(JSON type TYPE "${document}" timing ${member})
    check_equal("timing ${member}" "${type}" "NUMBER")
endforeach()

# The point list of the bundled model.
execute_process(COMMAND ${TOOL} --list-points --format json
    OUTPUT_VARIABLE document RESULT_VARIABLE status)
check_equal("list exit status" "${status}" "0")
string(JSON points LENGTH "${document}")
if(points LESS 11)
    message(FATAL_ERROR "only ${points} points listed:\n${document}")
endif()
set(found_lifetime FALSE)
math(EXPR last "${points} - 1")
foreach(index RANGE ${last})
    foreach(member name node description)
        string(JSON type TYPE "${document}" ${index} ${member})
        check_equal("point ${index} ${member}" "${type}" "STRING")
    endforeach()
    string(JSON type TYPE "${document}" ${index} call_once)
    check_equal("point ${index} call_once" "${type}" "BOOLEAN")
    string(JSON type TYPE "${document}" ${index} dependencies)
    check_equal("point ${index} dependencies" "${type}" "ARRAY")
    json_get(name ${index} name)
    json_get(node ${index} node)
    if(name STREQUAL "validate_ipv6_nd_ra_lifetime" AND node STREQUAL "/config/interface/l3/ipv6/nd/ra")
        set(found_lifetime TRUE)
        json_get(call_once ${index} call_once)
        check_equal("lifetime call_once" "${call_once}" "OFF")
    endif()
endforeach()
if(NOT found_lifetime)
    message(FATAL_ERROR "validate_ipv6_nd_ra_lifetime of l3 not listed:\n${document}")
endif()
