#include "libyang_log.h"

namespace confd::detail {

QuietLibyang::QuietLibyang() : options_(LY_LOSTORE) {
    ly_temp_log_options(&options_);
}

QuietLibyang::~QuietLibyang() {
    ly_temp_log_options(nullptr);
}

std::string take_libyang_error(const ly_ctx* ctx) {
    const ly_err_item* item = ly_err_first(ctx);
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
