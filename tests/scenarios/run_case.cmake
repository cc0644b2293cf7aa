# Runs ipapp-validate on one case and compares its verdict and text with the
# case's expectation. Usage:
#   cmake -DTOOL=<ipapp-validate> -DCANDIDATE=<file> -DEXPECTED=<file>
#         [-DRUNNING=<file>] [-DARGS_FILE=<file>] [-DEXPECTED_LOG=<file>]
#         -P run_case.cmake
#
# EXPECTED: the verdict on the first line (accepted, refused or crashed),
# optionally followed by " at POINT KEYPATH": the point and keypath of the
# first refused or crashed call; every further line is the exact text: the
# refusal text of that call, or for a crash its cause and then what the
# plug-in printed.
# ARGS_FILE: further options for the tool, one per line.
# EXPECTED_LOG: lines that must each stand whole among the tool's stderr
# lines (fault reports, debug lines).
# In the expected text and log lines, "<line>" stands for any line number, so
# that an assertion's or a fault report's source line may move when the
# plug-in's sources are edited.
# GENERATE_FILE: options of GENERATOR's device mode, one per line; when the
# file exists the candidate is generated into GENERATED, followed by the
# text of CANDIDATE (XML) when one is given.
cmake_minimum_required(VERSION 3.25)

foreach(required TOOL CANDIDATE EXPECTED)
    if(NOT DEFINED ${required})
        message(FATAL_ERROR "run_case.cmake needs -D${required}=...")
    endif()
endforeach()

# The first line of text and the rest, without list operations: texts may
# hold semicolons.
function(split_first_line text first_out rest_out)
    string(FIND "${text}" "\n" newline)
    if(newline EQUAL -1)
        set(${first_out} "${text}" PARENT_SCOPE)
        set(${rest_out} "" PARENT_SCOPE)
        return()
    endif()
    string(SUBSTRING "${text}" 0 ${newline} first)
    math(EXPR after "${newline} + 1")
    string(SUBSTRING "${text}" ${after} -1 rest)
    set(${first_out} "${first}" PARENT_SCOPE)
    set(${rest_out} "${rest}" PARENT_SCOPE)
endfunction()

function(fail what)
    message(FATAL_ERROR "${what}\n--- command: ${command_text}\n--- stdout:\n${stdout}\n--- stderr:\n${stderr}")
endfunction()

# Sets out to the regular expression that matches text exactly, with each
# "<line>" matching a line number.
function(exact_pattern out text)
    string(REGEX REPLACE "([][.*+?^$(){}|\\\\])" "\\\\\\1" pattern "${text}")
    string(REPLACE "<line>" "[0-9]+" pattern "${pattern}")
    set(${out} "${pattern}" PARENT_SCOPE)
endfunction()

function(json_get out json)
    string(JSON value ERROR_VARIABLE error GET "${json}" ${ARGN})
    if(error)
        fail("the report is not the JSON expected: ${error}")
    endif()
    set(${out} "${value}" PARENT_SCOPE)
endfunction()

# The index of the first call that was not accepted, or -1.
function(first_failed_call out report)
    set(${out} -1 PARENT_SCOPE)
    string(JSON count LENGTH "${report}" calls)
    if(count GREATER 0)
        math(EXPR last "${count} - 1")
        foreach(index RANGE ${last})
            json_get(verdict "${report}" calls ${index} verdict)
            if(NOT verdict STREQUAL "accepted")
                set(${out} ${index} PARENT_SCOPE)
                return()
            endif()
        endforeach()
    endif()
endfunction()

# The text of the call at index: a refusal's text, a crash's cause and detail.
function(call_text out report index)
    set(${out} "" PARENT_SCOPE)
    if(index EQUAL -1)
        return()
    endif()
    json_get(verdict "${report}" calls ${index} verdict)
    if(verdict STREQUAL "refused")
        json_get(text "${report}" calls ${index} text)
    else()
        json_get(cause "${report}" calls ${index} crash cause)
        json_get(detail "${report}" calls ${index} crash detail)
        set(text "${cause}")
        if(NOT detail STREQUAL "")
            set(text "${cause}\n${detail}")
        endif()
    endif()
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

if(DEFINED GENERATE_FILE AND EXISTS "${GENERATE_FILE}")
    file(STRINGS "${GENERATE_FILE}" generate_options)
    execute_process(COMMAND ${GENERATOR} --device=${GENERATED} ${generate_options}
        OUTPUT_QUIET ERROR_VARIABLE generate_error RESULT_VARIABLE generate_status)
    if(NOT generate_status EQUAL 0)
        message(FATAL_ERROR "${GENERATE_FILE}: ${generate_error}")
    endif()
    if(NOT CANDIDATE STREQUAL "")
        file(READ "${CANDIDATE}" fragment)
        file(APPEND "${GENERATED}" "${fragment}")
    endif()
    set(CANDIDATE "${GENERATED}")
endif()

set(command ${TOOL} --format json)
if(DEFINED RUNNING AND NOT RUNNING STREQUAL "")
    list(APPEND command --running ${RUNNING})
endif()
if(DEFINED ARGS_FILE AND EXISTS "${ARGS_FILE}")
    file(STRINGS "${ARGS_FILE}" extra_arguments)
    list(APPEND command ${extra_arguments})
endif()
list(APPEND command ${CANDIDATE})
string(REPLACE ";" " " command_text "${command}")

execute_process(COMMAND ${command}
    OUTPUT_VARIABLE stdout ERROR_VARIABLE stderr RESULT_VARIABLE status)

file(READ "${EXPECTED}" expected)
string(REGEX REPLACE "\n$" "" expected "${expected}")
split_first_line("${expected}" expected_head expected_text)
set(expected_call "")
if(expected_head MATCHES "^([a-z]+) at ([^ ]+) (.+)$")
    set(expected_verdict ${CMAKE_MATCH_1})
    set(expected_call "${CMAKE_MATCH_2} ${CMAKE_MATCH_3}")
else()
    set(expected_verdict "${expected_head}")
endif()

set(exit_codes_accepted 0)
set(exit_codes_refused 1)
set(exit_codes_crashed 3)
if(NOT DEFINED exit_codes_${expected_verdict})
    message(FATAL_ERROR "${EXPECTED}: unknown verdict '${expected_verdict}'")
endif()

json_get(verdict "${stdout}" verdict)
if(NOT verdict STREQUAL expected_verdict)
    fail("verdict: expected ${expected_verdict}, got ${verdict}")
endif()
if(NOT status EQUAL exit_codes_${expected_verdict})
    fail("exit status: expected ${exit_codes_${expected_verdict}}, got ${status}")
endif()
first_failed_call(failed "${stdout}")
if(NOT expected_call STREQUAL "")
    set(call "(none)")
    if(NOT failed EQUAL -1)
        json_get(point "${stdout}" calls ${failed} point)
        json_get(keypath "${stdout}" calls ${failed} keypath)
        set(call "${point} ${keypath}")
    endif()
    if(NOT call STREQUAL expected_call)
        fail("first refused or crashed call: expected\n[${expected_call}]\ngot\n[${call}]")
    endif()
endif()
call_text(text "${stdout}" ${failed})
exact_pattern(expected_pattern "${expected_text}")
if(NOT text MATCHES "^${expected_pattern}$")
    fail("text: expected\n[${expected_text}]\ngot\n[${text}]")
endif()

if(DEFINED EXPECTED_LOG AND EXISTS "${EXPECTED_LOG}")
    file(READ "${EXPECTED_LOG}" remaining)
    while(NOT remaining STREQUAL "")
        split_first_line("${remaining}" line remaining)
        if(line STREQUAL "")
            continue()
        endif()
        exact_pattern(line_pattern "${line}")
        if(NOT "\n${stderr}\n" MATCHES "\n${line_pattern}\n")
            fail("stderr lacks the line\n[${line}]")
        endif()
    endwhile()
endif()
