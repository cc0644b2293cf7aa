/*
 * Schema header of the ipapp data model, in the form a schema compiler emits:
 * the namespace and the tag hash of each node name.
 */
#ifndef _IPAPP_H_
#define _IPAPP_H_

#ifdef __cplusplus
extern "C" {
#endif

#define ipapp_l3 557783674
#define ipapp_loopback 343067885
#define ipapp_mgmt 336737343
#define ipapp_vrf 1281310328

#ifdef __cplusplus
}
#endif

#endif
