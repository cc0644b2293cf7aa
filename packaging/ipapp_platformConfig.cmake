# The ConfD-compatible platform validation plug-ins build against:
#   find_package(ipapp_platform 1 REQUIRED)
#   target_link_libraries(my_plugin PRIVATE ipapp::confd ipapp::velconfd)
# Targets: ipapp::confd (the ConfD C API: confd_lib.h, confd_maapi.h,
# confd_cdb.h), ipapp::velconfd (the host framework: velconfd.h,
# velmw_log.h), ipapp::limid, ipapp::idvrf, ipapp::nettypes.
include(${CMAKE_CURRENT_LIST_DIR}/ipapp_platformTargets.cmake)
