// GenericConfig's readers of list keys, in the order MAAPI delivers the
// entries.
#include "ip_app_valid/confd_api.h"

#include <algorithm>

#include "cursor_walk.h"
#include "ip_app_valid/generic_config.h"

namespace ip_application {
namespace config_valid {

namespace {

constexpr size_t kKeyTextSize = 256;

// The key as ConfD prints it, cut to 255 characters.
std::string KeyText(const confd_value_t& key) {
    char text[kKeyTextSize] = {};
    confd_pp_value(text, sizeof text, &key);
    return text;
}

// Calls visit with the cursor standing on each entry of the list at path; an
// absent list has no entries.
template <typename Visit>
void ForEachEntry(int maapi_sock, int thandle, const std::string& path, Visit visit) {
    if (maapi_exists(maapi_sock, thandle, "%s", path.c_str()) != 1) {
        return;
    }
    CursorWalk walk(maapi_sock, thandle, path);
    for (walk.Next(); walk.HasEntry(); walk.Next()) {
        visit(walk.cursor());
    }
}

}  // namespace

std::list<std::string> GenericConfig::get_key_list(const std::string& path) const {
    std::list<std::string> keys;
    ForEachEntry(maapi_sock_, thandle(), path,
                 [&keys](const maapi_cursor& cursor) { keys.push_back(KeyText(cursor.keys[0])); });
    return keys;
}

std::list<std::vector<std::string>> GenericConfig::get_key_list(const std::string& path,
                                                                unsigned n) const {
    // Keys beyond those the entry has read as empty texts.
    const unsigned count = std::min<unsigned>(n, MAXKEYLEN);
    std::list<std::vector<std::string>> entries;
    ForEachEntry(maapi_sock_, thandle(), path, [&](const maapi_cursor& cursor) {
        std::vector<std::string> keys(n);
        for (unsigned i = 0; i < count && static_cast<int>(i) < cursor.n; ++i) {
            keys[i] = KeyText(cursor.keys[i]);
        }
        entries.push_back(std::move(keys));
    });
    return entries;
}

}  // namespace config_valid
}  // namespace ip_application
