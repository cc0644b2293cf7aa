/*
 * ConfD-compatible data provider API: the validation callback a daemon
 * registers for a validation point.
 */
#ifndef CONFD_DP_H
#define CONFD_DP_H

#include "confd_lib.h"

#ifdef __cplusplus
extern "C" {
#endif

#define MAX_CALLPOINT_LEN 256

/*
 * ConfD does not pass the point's name to validate(); cb_opaque is handed
 * back as tctx->vcb_opaque on every call of this point.
 */
struct confd_valpoint_cb {
    char valpoint[MAX_CALLPOINT_LEN];
    int (*validate)(struct confd_trans_ctx* tctx, confd_hkeypath_t* kp, confd_value_t* newval);
    void* cb_opaque;
};

struct confd_trans_validate_cbs {
    int (*init)(struct confd_trans_ctx* tctx);
    int (*stop)(struct confd_trans_ctx* tctx);
};

#ifdef __cplusplus
}
#endif

#endif /* CONFD_DP_H */
