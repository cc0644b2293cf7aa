# Fails unless the dynamic symbol table of LIBRARY defines exactly the
# plug-in's entry points and handlers. Run with -DNM=<nm> -DLIBRARY=<file>.
set(expected
    get_validation_point lib_finish lib_init validate
    validate_intf_l3_name validate_intf_vrf validate_ipv4_addr validate_ipv4_addr_cross_prot
    validate_ipv4_addr_route validate_ipv6_addr validate_ipv6_addr_route
    validate_ipv6_nd_ra_interval validate_ipv6_nd_ra_lifetime validate_lower_layer_cross_prot
    validate_route_l3_intf
)
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY}
    OUTPUT_VARIABLE listing RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${NM} failed on ${LIBRARY}: ${errors}")
endif()
string(REGEX MATCHALL "[^\n]+" lines "${listing}")
set(defined)
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^.* " "" name "${line}")
    list(APPEND defined ${name})
endforeach()
list(SORT defined)
list(SORT expected)
if(NOT defined STREQUAL expected)
    set(extra ${defined})
    list(REMOVE_ITEM extra ${expected})
    set(missing ${expected})
    list(REMOVE_ITEM missing ${defined})
    message(FATAL_ERROR "${LIBRARY}: exports differ; extra: ${extra}; missing: ${missing}")
endif()
