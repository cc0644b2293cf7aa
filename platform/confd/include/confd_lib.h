/*
 * ConfD-compatible library interface: value types, keypaths, transaction
 * context, return codes and the value helpers.
 *
 * Names, numeric codes and struct members follow ConfD's documented C API so
 * that code written against this header also builds against a ConfD SDK.
 * This is our own implementation of the subset the project needs; the
 * MAAPI and CDB calls live in confd_maapi.h and confd_cdb.h.
 */
#ifndef CONFD_LIB_H
#define CONFD_LIB_H

#include <netinet/in.h>
#include <stdarg.h>
#include <stdint.h>
#include <sys/types.h>

/*
 * Value accessors check the value's type with CONFD_ASSERT. A user may define
 * CONFD_ASSERT before including this header to replace the check.
 */
#ifndef CONFD_ASSERT
#include <assert.h>
#define CONFD_ASSERT(E) assert(E)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Longest keypath + 1 and most keys of one list + 1. */
#ifndef MAXDEPTH
#define MAXDEPTH 20
#endif
#ifndef MAXKEYLEN
#define MAXKEYLEN 9
#endif

/* Return codes of library calls. */
#define CONFD_DELAYED_RESPONSE 2
#define CONFD_ACCUMULATE 1
#define CONFD_OK 0
#define CONFD_ERR -1
#define CONFD_EOF -2
#define CONFD_VALIDATION_WARN -3
#define CONFD_ALREADY_LOCKED -4
#define CONFD_IN_USE -5

/* Values of confd_errno after a call returned CONFD_ERR. */
#define CONFD_ERR_NOEXISTS 1
#define CONFD_ERR_ALREADY_EXISTS 2
#define CONFD_ERR_ACCESS_DENIED 3
#define CONFD_ERR_BADTYPE 5
#define CONFD_ERR_BADPATH 8
#define CONFD_ERR_BADSTATE 17
#define CONFD_ERR_INTERNAL 18
#define CONFD_ERR_EXTERNAL 19
#define CONFD_ERR_MALLOC 20
#define CONFD_ERR_PROTOUSAGE 21
#define CONFD_ERR_NOSESSION 22
#define CONFD_ERR_OS 24
#define CONFD_ERR_UNAVAILABLE 44
#define CONFD_ERR_EOF 45
#define CONFD_ERR_XPATH 50
#define CONFD_ERR_NOTRANS 61

/* Type codes of confd_value_t; the numbers are stable across releases. */
enum confd_vtype {
    C_NOEXISTS = 1,
    C_XMLTAG = 2,
    C_SYMBOL = 3,
    C_STR = 4,
    C_BUF = 5,
    C_INT8 = 6,
    C_INT16 = 7,
    C_INT32 = 8,
    C_INT64 = 9,
    C_UINT8 = 10,
    C_UINT16 = 11,
    C_UINT32 = 12,
    C_UINT64 = 13,
    C_DOUBLE = 14,
    C_IPV4 = 15,
    C_IPV6 = 16,
    C_BOOL = 17,
    C_QNAME = 18,
    C_DATETIME = 19,
    C_DATE = 20,
    C_TIME = 23,
    C_DURATION = 27,
    C_ENUM_VALUE = 28,
    C_BIT32 = 29,
    C_BIT64 = 30,
    C_LIST = 31,
    C_XMLBEGIN = 32,
    C_XMLEND = 33,
    C_OBJECTREF = 34,
    C_UNION = 35,
    C_PTR = 36,
    C_CDBBEGIN = 37,
    C_OID = 38,
    C_BINARY = 39,
    C_IPV4PREFIX = 40,
    C_IPV6PREFIX = 41,
    C_DEFAULT = 42,
    C_DECIMAL64 = 43,
    C_IDENTITYREF = 44,
    C_XMLBEGINDEL = 45,
    C_DQUAD = 46,
    C_HEXSTR = 47,
    C_IPV4_AND_PLEN = 48,
    C_IPV6_AND_PLEN = 49,
    C_BITBIG = 50,
    C_XMLMOVEFIRST = 51,
    C_XMLMOVEAFTER = 52,
    C_EMPTY = 53,
    C_MAXTYPE
};
#define C_ENUM_HASH C_ENUM_VALUE

typedef struct confd_buf {
    unsigned int size;
    unsigned char* ptr;
} confd_buf_t;

typedef struct confd_buf_const {
    unsigned int size;
    const unsigned char* ptr;
} confd_buf_const_t;

struct xml_tag {
    u_int32_t tag;
    u_int32_t ns;
};

struct confd_ipv4_prefix {
    struct in_addr ip;
    u_int8_t len;
};

struct confd_ipv6_prefix {
    struct in6_addr ip6;
    u_int8_t len;
};

struct confd_decimal64 {
    int64_t value;
    u_int8_t fraction_digits;
};

struct confd_identityref {
    u_int32_t ns;
    u_int32_t id;
};

struct confd_dotted_quad {
    unsigned char quad[4];
};

struct confd_value;
struct confd_hkeypath;

struct confd_list {
    unsigned int size;
    struct confd_value* ptr;
};

struct confd_vptr {
    enum confd_vtype type;
    void* valp;
};

struct confd_snmp_oid {
    u_int32_t oid[128];
    int len;
};
typedef struct confd_snmp_oid confd_snmp_oid;

struct confd_qname {
    confd_buf_t prefix;
    confd_buf_t name;
};

#define CONFD_TIMEZONE_UNDEF -111

struct confd_datetime {
    int16_t year;
    u_int8_t month;
    u_int8_t day;
    u_int8_t hour;
    u_int8_t min;
    u_int8_t sec;
    u_int32_t micro;
    int8_t timezone;
    int8_t timezone_minutes;
};

struct confd_date {
    int16_t year;
    u_int8_t month;
    u_int8_t day;
    int8_t timezone;
    int8_t timezone_minutes;
};

struct confd_time {
    u_int8_t hour;
    u_int8_t min;
    u_int8_t sec;
    u_int32_t micro;
    int8_t timezone;
    int8_t timezone_minutes;
};

struct confd_duration {
    u_int32_t years;
    u_int32_t months;
    u_int32_t days;
    u_int32_t hours;
    u_int32_t mins;
    u_int32_t secs;
    u_int32_t micros;
};

typedef struct confd_value {
    enum confd_vtype type;
    union {
        struct xml_tag xmltag;
        u_int32_t symbol;
        confd_buf_t buf;
        confd_buf_const_t c_buf;
        char* s;
        const char* c_s;
        int8_t i8;
        int16_t i16;
        int32_t i32;
        int64_t i64;
        u_int8_t u8;
        u_int16_t u16;
        u_int32_t u32;
        u_int64_t u64;
        double d;
        struct in_addr ip;
        struct in6_addr ip6;
        int boolean;
        struct confd_qname qname;
        struct confd_datetime datetime;
        struct confd_date date;
        struct confd_time time;
        struct confd_duration duration;
        int32_t enumvalue;
        u_int32_t b32;
        u_int64_t b64;
        struct confd_list list;
        struct confd_hkeypath* hkp;
        struct confd_vptr ptr;
        struct confd_snmp_oid* oidp;
        struct confd_ipv4_prefix ipv4prefix;
        struct confd_ipv6_prefix ipv6prefix;
        struct confd_decimal64 d64;
        struct confd_identityref idref;
        struct confd_dotted_quad dquad;
        u_int32_t enumhash;
    } val;
} confd_value_t;

/*
 * A keypath stored innermost first: v[0] is the last element of the path.
 * A list entry's keys share one level, v[i][0..n-1], and the level is ended
 * by a C_NOEXISTS value. v must stay the last member.
 */
typedef struct confd_hkeypath {
    int len;
    confd_value_t v[MAXDEPTH][MAXKEYLEN];
} confd_hkeypath_t;

typedef struct confd_tag_value {
    struct xml_tag tag;
    confd_value_t v;
} confd_tag_value_t;

/* Reading values; each accessor checks the value's type first. */
#define CONFD_GET_TYPED_(v, T, member) (CONFD_ASSERT((v)->type == T), (v)->val.member)

#define CONFD_GET_INT8(v) CONFD_GET_TYPED_(v, C_INT8, i8)
#define CONFD_GET_INT16(v) CONFD_GET_TYPED_(v, C_INT16, i16)
#define CONFD_GET_INT32(v) CONFD_GET_TYPED_(v, C_INT32, i32)
#define CONFD_GET_INT64(v) CONFD_GET_TYPED_(v, C_INT64, i64)
#define CONFD_GET_UINT8(v) CONFD_GET_TYPED_(v, C_UINT8, u8)
#define CONFD_GET_UINT16(v) CONFD_GET_TYPED_(v, C_UINT16, u16)
#define CONFD_GET_UINT32(v) CONFD_GET_TYPED_(v, C_UINT32, u32)
#define CONFD_GET_UINT64(v) CONFD_GET_TYPED_(v, C_UINT64, u64)
#define CONFD_GET_DOUBLE(v) CONFD_GET_TYPED_(v, C_DOUBLE, d)
#define CONFD_GET_BOOL(v) CONFD_GET_TYPED_(v, C_BOOL, boolean)
#define CONFD_GET_IPV4(v) CONFD_GET_TYPED_(v, C_IPV4, ip)
#define CONFD_GET_IPV6(v) CONFD_GET_TYPED_(v, C_IPV6, ip6)
#define CONFD_GET_ENUM_VALUE(v) ((int32_t)CONFD_GET_TYPED_(v, C_ENUM_VALUE, enumvalue))
#define CONFD_GET_ENUM_HASH(v) CONFD_GET_TYPED_(v, C_ENUM_HASH, enumhash)
#define CONFD_GET_BIT32(v) CONFD_GET_TYPED_(v, C_BIT32, b32)
#define CONFD_GET_BIT64(v) CONFD_GET_TYPED_(v, C_BIT64, b64)
#define CONFD_GET_BUFPTR(v) CONFD_GET_TYPED_(v, C_BUF, buf.ptr)
#define CONFD_GET_CBUFPTR(v) ((char*)CONFD_GET_BUFPTR(v))
#define CONFD_GET_BUFSIZE(v) CONFD_GET_TYPED_(v, C_BUF, buf.size)
#define CONFD_GET_BINARY_PTR(v) CONFD_GET_TYPED_(v, C_BINARY, buf.ptr)
#define CONFD_GET_BINARY_SIZE(v) CONFD_GET_TYPED_(v, C_BINARY, buf.size)
#define CONFD_GET_HEXSTR_PTR(v) CONFD_GET_TYPED_(v, C_HEXSTR, buf.ptr)
#define CONFD_GET_HEXSTR_SIZE(v) CONFD_GET_TYPED_(v, C_HEXSTR, buf.size)
#define CONFD_GET_XMLTAG(v) CONFD_GET_TYPED_(v, C_XMLTAG, xmltag.tag)
#define CONFD_GET_XMLTAG_NS(v) CONFD_GET_TYPED_(v, C_XMLTAG, xmltag.ns)
#define CONFD_GET_IPV4PREFIX(v) CONFD_GET_TYPED_(v, C_IPV4PREFIX, ipv4prefix)
#define CONFD_GET_IPV6PREFIX(v) CONFD_GET_TYPED_(v, C_IPV6PREFIX, ipv6prefix)
#define CONFD_GET_IPV4_AND_PLEN(v) CONFD_GET_TYPED_(v, C_IPV4_AND_PLEN, ipv4prefix)
#define CONFD_GET_IPV6_AND_PLEN(v) CONFD_GET_TYPED_(v, C_IPV6_AND_PLEN, ipv6prefix)
#define CONFD_GET_DECIMAL64(v) CONFD_GET_TYPED_(v, C_DECIMAL64, d64)
#define CONFD_GET_IDENTITYREF(v) CONFD_GET_TYPED_(v, C_IDENTITYREF, idref)
#define CONFD_GET_DQUAD(v) CONFD_GET_TYPED_(v, C_DQUAD, dquad)
#define CONFD_GET_LIST(v) CONFD_GET_TYPED_(v, C_LIST, list.ptr)
#define CONFD_GET_LISTSIZE(v) CONFD_GET_TYPED_(v, C_LIST, list.size)
#define CONFD_GET_OBJECTREF(v) CONFD_GET_TYPED_(v, C_OBJECTREF, hkp)
#define CONFD_GET_OID(v) CONFD_GET_TYPED_(v, C_OID, oidp)
#define CONFD_GET_CDBBEGIN(v) CONFD_GET_TYPED_(v, C_CDBBEGIN, i32)

/* Writing values; buffers are referenced, not copied. */
#define CONFD_SET_TYPED_(v, T, member, x) \
    do {                                  \
        confd_value_t* __vp = (v);        \
        __vp->type = T;                   \
        __vp->val.member = (x);           \
    } while (0)

#define CONFD_SET_INT8(v, x) CONFD_SET_TYPED_(v, C_INT8, i8, x)
#define CONFD_SET_INT16(v, x) CONFD_SET_TYPED_(v, C_INT16, i16, x)
#define CONFD_SET_INT32(v, x) CONFD_SET_TYPED_(v, C_INT32, i32, x)
#define CONFD_SET_INT64(v, x) CONFD_SET_TYPED_(v, C_INT64, i64, x)
#define CONFD_SET_UINT8(v, x) CONFD_SET_TYPED_(v, C_UINT8, u8, x)
#define CONFD_SET_UINT16(v, x) CONFD_SET_TYPED_(v, C_UINT16, u16, x)
#define CONFD_SET_UINT32(v, x) CONFD_SET_TYPED_(v, C_UINT32, u32, x)
#define CONFD_SET_UINT64(v, x) CONFD_SET_TYPED_(v, C_UINT64, u64, x)
#define CONFD_SET_DOUBLE(v, x) CONFD_SET_TYPED_(v, C_DOUBLE, d, x)
#define CONFD_SET_BOOL(v, x) CONFD_SET_TYPED_(v, C_BOOL, boolean, x)
#define CONFD_SET_IPV4(v, x) CONFD_SET_TYPED_(v, C_IPV4, ip, x)
#define CONFD_SET_IPV6(v, x) CONFD_SET_TYPED_(v, C_IPV6, ip6, x)
#define CONFD_SET_ENUM_VALUE(v, x) CONFD_SET_TYPED_(v, C_ENUM_VALUE, enumvalue, x)
#define CONFD_SET_ENUM_HASH(v, x) CONFD_SET_TYPED_(v, C_ENUM_HASH, enumhash, x)
#define CONFD_SET_BIT32(v, x) CONFD_SET_TYPED_(v, C_BIT32, b32, x)
#define CONFD_SET_BIT64(v, x) CONFD_SET_TYPED_(v, C_BIT64, b64, x)
#define CONFD_SET_IPV4PREFIX(v, x) CONFD_SET_TYPED_(v, C_IPV4PREFIX, ipv4prefix, x)
#define CONFD_SET_IPV6PREFIX(v, x) CONFD_SET_TYPED_(v, C_IPV6PREFIX, ipv6prefix, x)
#define CONFD_SET_IPV4_AND_PLEN(v, x) CONFD_SET_TYPED_(v, C_IPV4_AND_PLEN, ipv4prefix, x)
#define CONFD_SET_IPV6_AND_PLEN(v, x) CONFD_SET_TYPED_(v, C_IPV6_AND_PLEN, ipv6prefix, x)
#define CONFD_SET_DECIMAL64(v, x) CONFD_SET_TYPED_(v, C_DECIMAL64, d64, x)
#define CONFD_SET_IDENTITYREF(v, x) CONFD_SET_TYPED_(v, C_IDENTITYREF, idref, x)
#define CONFD_SET_DQUAD(v, x) CONFD_SET_TYPED_(v, C_DQUAD, dquad, x)
#define CONFD_SET_CDBBEGIN(v, x) CONFD_SET_TYPED_(v, C_CDBBEGIN, i32, x)
#define CONFD_SET_OBJECTREF(v, x) CONFD_SET_TYPED_(v, C_OBJECTREF, hkp, x)
#define CONFD_SET_OID(v, x) CONFD_SET_TYPED_(v, C_OID, oidp, x)
#define CONFD_SET_STR(v, x) CONFD_SET_TYPED_(v, C_STR, c_s, x)

/* Sets the type and two members of a value. */
#define CONFD_SET_TWO_(v, T, first, x, second, y) \
    do {                                          \
        confd_value_t* __vp = (v);                \
        __vp->type = T;                           \
        __vp->val.first = (x);                    \
        __vp->val.second = (y);                   \
    } while (0)

#define CONFD_SET_BUF_TYPED_(v, T, p, len) CONFD_SET_TWO_(v, T, c_buf.ptr, p, c_buf.size, len)

#define CONFD_SET_BUF(v, p, len) CONFD_SET_BUF_TYPED_(v, C_BUF, p, len)
#define CONFD_SET_CBUF(v, p, len) CONFD_SET_BUF(v, (const unsigned char*)(p), len)
#define CONFD_SET_BINARY(v, p, len) CONFD_SET_BUF_TYPED_(v, C_BINARY, p, len)
#define CONFD_SET_HEXSTR(v, p, len) CONFD_SET_BUF_TYPED_(v, C_HEXSTR, p, len)

#define CONFD_SET_XMLTAG(v, t, n) CONFD_SET_TWO_(v, C_XMLTAG, xmltag.tag, t, xmltag.ns, n)

#define CONFD_SET_NOEXISTS(v) ((v)->type = C_NOEXISTS)
#define CONFD_SET_DEFAULT(v) ((v)->type = C_DEFAULT)

#define CONFD_SET_LIST(v, p, n) CONFD_SET_TWO_(v, C_LIST, list.ptr, p, list.size, n)

/* Operations and results of diff iteration. */
enum confd_iter_op {
    MOP_CREATED = 1,
    MOP_DELETED = 2,
    MOP_MODIFIED = 3,
    MOP_VALUE_SET = 4,
    MOP_MOVED_AFTER = 5,
    MOP_ATTR_SET = 6
};

enum confd_iter_ret {
    ITER_STOP = 1,
    ITER_RECURSE = 2,
    ITER_CONTINUE = 3,
    ITER_SUSPEND = 4,
    ITER_UP = 5
};

enum confd_iter_flags {
    ITER_WANT_PREV = (1 << 0),
    ITER_WANT_ANCESTOR_DELETE = (1 << 1),
    ITER_WANT_ATTR = (1 << 2),
    ITER_WANT_CLI_STR = (1 << 3),
    ITER_WANT_SCHEMA_ORDER = (1 << 4),
    ITER_WANT_LEAF_FIRST_ORDER = (1 << 5),
    ITER_WANT_LEAF_LAST_ORDER = (1 << 6),
    ITER_WANT_REVERSE = (1 << 7),
    ITER_WANT_P_CONTAINER = (1 << 8),
    ITER_WANT_LEAF_LIST_AS_LEAF = (1 << 9)
};

/* Transactions as the data provider API sees them. */
enum confd_trans_mode { CONFD_READ = 1, CONFD_READ_WRITE = 2 };

enum confd_dbname {
    CONFD_NO_DB = 0,
    CONFD_CANDIDATE = 1,
    CONFD_RUNNING = 2,
    CONFD_STARTUP = 3,
    CONFD_OPERATIONAL = 4,
    CONFD_TRANSACTION = 5,
    CONFD_PRE_COMMIT_RUNNING = 6
};

enum confd_errcode {
    CONFD_ERRCODE_IN_USE = 0,
    CONFD_ERRCODE_RESOURCE_DENIED = 1,
    CONFD_ERRCODE_INCONSISTENT_VALUE = 2,
    CONFD_ERRCODE_ACCESS_DENIED = 3,
    CONFD_ERRCODE_APPLICATION = 4,
    CONFD_ERRCODE_APPLICATION_INTERNAL = 5,
    CONFD_ERRCODE_PROTO_USAGE = 6,
    CONFD_ERRCODE_INTERRUPT = 7,
    CONFD_ERRCODE_DATA_MISSING = 8
};

struct confd_error {
    enum confd_errcode code;
    struct xml_tag apptag;
    char* str; /* the error text of the transaction; owned by the library */
    void* info;
};

struct confd_daemon_ctx;
struct confd_user_info;
struct confd_tr_item;

/* Request-specific data of data provider callbacks; unused by validation. */
union confd_request_data {
    void* reserved;
};

#define CONFD_VALIDATION_FLAG_TEST (1 << 0)
#define CONFD_VALIDATION_FLAG_COMMIT (1 << 1)

struct confd_trans_ctx {
    int fd;
    int vfd;
    struct confd_daemon_ctx* dx;
    enum confd_trans_mode mode;
    enum confd_dbname dbname;
    struct confd_user_info* uinfo;
    void* t_opaque;
    void* v_opaque;
    struct confd_error error;
    struct confd_tr_item* accumulated;
    int thandle;
    void* cb_opaque;
    void* vcb_opaque;
    int secondary_index;
    int validation_info;
    char* callpoint_opaque;
    char* validate_opaque;
    union confd_request_data request_data;
    int hide_inactive;
};

/* Error state of the calling thread. */
int* confd_errno_location(void);
#define confd_errno (*confd_errno_location())
char* confd_lasterr(void);

/*
 * Sets the error text of the transaction, printf-style. The text is kept in
 * tctx->error.str (replacing an earlier one) until confd_trans_clear_err.
 */
void confd_trans_seterr(struct confd_trans_ctx* tctx, const char* fmt, ...)
    __attribute__((format(printf, 2, 3)));
/* Releases the error text of a transaction context (not in ConfD's API). */
void confd_trans_clear_err(struct confd_trans_ctx* tctx);

/*
 * Pretty-printers, snprintf-style: at most bufsiz bytes are written including
 * the terminating NUL; the result is the length the whole text would have.
 */
int confd_pp_value(char* buf, int bufsiz, const confd_value_t* v);
int confd_pp_kpath(char* buf, int bufsiz, const confd_hkeypath_t* hkp);

/* Frees what a value points to (buffers, lists); the value itself is not freed. */
void confd_free_value(confd_value_t* v);
/* Positive when equal, 0 otherwise. */
int confd_val_eq(const confd_value_t* v1, const confd_value_t* v2);

#ifdef __cplusplus
}
#endif

#endif /* CONFD_LIB_H */
