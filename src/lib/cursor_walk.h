// A MAAPI cursor over a list, opened on construction and destroyed on every
// way out of its scope.
#ifndef IP_APP_VALID_CURSOR_WALK_H
#define IP_APP_VALID_CURSOR_WALK_H

#include "ip_app_valid/confd_api.h"

#include <string>

namespace ip_application {
namespace config_valid {

class CursorWalk {
  public:
    // The cursor stands before the first entry; Next() moves onto it. The
    // results of the cursor calls are not looked at: a cursor that failed
    // holds no keys, which ends the walk.
    CursorWalk(int maapi_sock, int thandle, const std::string& path) {
        maapi_init_cursor(maapi_sock, thandle, &cursor_, "%s", path.c_str());
    }
    ~CursorWalk() { maapi_destroy_cursor(&cursor_); }
    CursorWalk(const CursorWalk&) = delete;
    CursorWalk& operator=(const CursorWalk&) = delete;

    void Next() { maapi_get_next(&cursor_); }
    bool HasEntry() const { return cursor_.n != 0; }
    maapi_cursor& cursor() { return cursor_; }

  private:
    maapi_cursor cursor_{};
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_CURSOR_WALK_H
