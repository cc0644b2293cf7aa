# An installed ipapp-validate finds its model and plug-in in the install
# tree and checks a configuration. Usage:
#   cmake -DBUILD_DIR=<build tree> -DPREFIX=<empty directory> -DEXAMPLES=<examples/>
#         -P installed_tree.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX}
    OUTPUT_QUIET RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "install into ${PREFIX} failed")
endif()
if(NOT EXISTS ${PREFIX}/share/ip_app_valid/yang/ipapp.yang)
    message(FATAL_ERROR "the model is not installed")
endif()

execute_process(
    COMMAND ${PREFIX}/bin/ipapp-validate --running ${EXAMPLES}/running.xml
            ${EXAMPLES}/candidate-refused.xml
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status)
file(REMOVE_RECURSE ${PREFIX})
if(NOT status EQUAL 1)
    message(FATAL_ERROR "exit status ${status}, expected 1\n${out}\n${err}")
endif()
string(FIND "${out}" "Lifetime must be greater than maximum router advertisement interval" found)
if(found EQUAL -1)
    message(FATAL_ERROR "the refusal text is missing:\n${out}")
endif()
