#include "libyang_log.h"

#include <mutex>

namespace confd::detail {

void store_libyang_messages() {
    static std::once_flag once;
    std::call_once(once, [] { ly_log_options(LY_LOSTORE_LAST); });
}

std::string take_libyang_error(const ly_ctx* ctx) {
    const ly_err_item* item = ly_err_last(ctx);
    std::string text = "unknown libyang error";
    if (item != nullptr && item->msg != nullptr) {
        text = item->msg;
        if (item->path != nullptr) {
            text += std::string(" (") + item->path + ")";
        }
    }
    ly_err_clean(const_cast<ly_ctx*>(ctx), nullptr);
    return text;
}

}  // namespace confd::detail
