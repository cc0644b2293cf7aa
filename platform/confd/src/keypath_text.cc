/* confd_pp_kpath: a keypath printed as a path, "/servers/server{www}/ip". */
#include "keypath_text.h"

#include "value_text.h"

namespace {

bool is_tag(const confd_value_t& value) {
    return value.type == C_XMLTAG || value.type == C_XMLBEGIN || value.type == C_XMLEND ||
           value.type == C_XMLBEGINDEL;
}

}  // namespace

namespace confd::detail {

std::string keypath_text(const confd_hkeypath_t& hkp, int levels) {
    const int len = hkp.len < 0 ? 0 : (hkp.len > MAXDEPTH ? MAXDEPTH : hkp.len);
    const int stop = len - (levels < 0 ? 0 : (levels > len ? len : levels));
    std::string text;
    for (int i = len - 1; i >= stop; --i) {
        const confd_value_t* level = hkp.v[i];
        if (is_tag(level[0])) {
            text += '/';
            text += value_text(level[0]);
        } else {
            text += keys_text(level);
        }
    }
    return text;
}

}  // namespace confd::detail

extern "C" {

int confd_pp_kpath(char* buf, int bufsiz, const confd_hkeypath_t* hkp) {
    return confd::detail::copy_out(
        buf, bufsiz, hkp == nullptr ? "" : confd::detail::keypath_text(*hkp, hkp->len));
}

}  // extern "C"
