# Imported targets for an external platform: a ConfD SDK and the device's
# host framework, identifier and address libraries, all under
# IPAPP_PLATFORM_ROOT (headers in include/, libraries in lib/). The targets
# carry the names of ours so that src/lib builds unchanged.
set(_root "${IPAPP_PLATFORM_ROOT}")
foreach(_lib confd velconfd limid idvrf nettypes)
    find_library(_path_${_lib} NAMES ${_lib} PATHS "${_root}/lib" NO_DEFAULT_PATH REQUIRED)
    add_library(${_lib} SHARED IMPORTED GLOBAL)
    set_target_properties(${_lib} PROPERTIES
        IMPORTED_LOCATION "${_path_${_lib}}"
        INTERFACE_INCLUDE_DIRECTORIES "${_root}/include")
endforeach()
find_package(Boost 1.74 REQUIRED COMPONENTS system)
# The schema header of the data model comes from the SDK's schema compiler.
add_library(ipapp_schema_header INTERFACE)
target_include_directories(ipapp_schema_header INTERFACE "${_root}/include")
