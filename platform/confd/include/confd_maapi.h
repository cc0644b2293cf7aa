/*
 * ConfD-compatible management API (MAAPI): reads of a transaction's data.
 *
 * Paths are printf-style templates in ConfD syntax: "/a/b{key}/c", several
 * keys in one pair of braces separated by blanks ("{k1 k2}" or "{ k1 k2 }"),
 * module prefixes optional where a name is unambiguous. Besides the usual
 * printf conversions the templates accept %x (confd_value_t*), %*x (count and
 * confd_value_t array), %h and %*h (a confd_hkeypath_t*, only at the start).
 *
 * Every call returns CONFD_OK, CONFD_ERR (details in confd_errno and
 * confd_lasterr()) or CONFD_EOF unless its comment says otherwise.
 */
#ifndef CONFD_MAAPI_H
#define CONFD_MAAPI_H

#include <sys/socket.h>

#include "confd_lib.h"

#ifdef __cplusplus
extern "C" {
#endif

#define maapi_iter_op confd_iter_op
#define maapi_iter_ret confd_iter_ret

/*
 * A cursor over the entries of a list. After maapi_get_next, keys[0..n-1]
 * hold the keys of the current entry; n == 0 means the walk is over. The
 * keys belong to the cursor.
 */
struct maapi_cursor {
    confd_value_t keys[MAXKEYLEN];
    int n;
    int hint_bulk;
    char* secondary_index;
    char* xpath_expr;
    /* Internal state, not to be touched by callers. */
    void* prevterm;
    void* path;
    int isrel;
    int sock;
    int thandle;
    int cursor_id;
};

/* Sessions and transactions. */
int maapi_connect(int sock, const struct sockaddr* srv, int srv_sz);
int maapi_close(int sock);
int maapi_start_trans(int sock, enum confd_dbname db, enum confd_trans_mode mode);
int maapi_finish_trans(int sock, int thandle);

/* 1 when the node exists, 0 when it does not, CONFD_ERR on error. */
int maapi_exists(int sock, int thandle, const char* fmt, ...);
/* The number of entries of a list, or CONFD_ERR. */
int maapi_num_instances(int sock, int thandle, const char* fmt, ...);

/* Leaf reads. maapi_get_elem allocates for buffer types: free with confd_free_value. */
int maapi_get_elem(int sock, int thandle, confd_value_t* v, const char* fmt, ...);
int maapi_get_int32_elem(int sock, int thandle, int32_t* rval, const char* fmt, ...);
int maapi_get_u_int8_elem(int sock, int thandle, u_int8_t* rval, const char* fmt, ...);
int maapi_get_u_int16_elem(int sock, int thandle, u_int16_t* rval, const char* fmt, ...);
int maapi_get_u_int32_elem(int sock, int thandle, u_int32_t* rval, const char* fmt, ...);
/* Copies at most n-1 characters and a NUL; CONFD_ERR_PROTOUSAGE when n is too small. */
int maapi_get_str_elem(int sock, int thandle, char* buf, int n, const char* fmt, ...);
int maapi_get_ipv4_and_plen_elem(int sock, int thandle, struct confd_ipv4_prefix* rval,
                                 const char* fmt, ...);
int maapi_get_ipv6_and_plen_elem(int sock, int thandle, struct confd_ipv6_prefix* rval,
                                 const char* fmt, ...);

/* List walks. */
int maapi_init_cursor(int sock, int thandle, struct maapi_cursor* mc, const char* fmt, ...);
int maapi_get_next(struct maapi_cursor* mc);
void maapi_destroy_cursor(struct maapi_cursor* mc);

/*
 * Evaluates an XPath 1.0 expression to a string. On success *res is a
 * malloc'ed string the caller frees; on failure it is NULL. fmtpath gives the
 * context node (NULL: the root).
 */
int maapi_xpath_eval_expr(int sock, int thandle, const char* expr, char** res, void (*trace)(char*),
                          const char* fmtpath, ...);

/*
 * Walks the transaction's changes against the running datastore below
 * fmtpath, calling iter for each. oldv is always NULL.
 */
int maapi_keypath_diff_iterate(int sock, int thandle,
                               enum maapi_iter_ret (*iter)(confd_hkeypath_t* kp,
                                                           enum maapi_iter_op op,
                                                           confd_value_t* oldv, confd_value_t* newv,
                                                           void* state),
                               int flags, void* initstate, const char* fmtpath, ...);

#ifdef __cplusplus
}
#endif

#endif /* CONFD_MAAPI_H */
