/*
 * A ConfD value together with the bytes its buffer points to, converted from
 * the text of a path key or from a data node.
 */
#ifndef CONFD_SRC_TYPED_VALUE_H
#define CONFD_SRC_TYPED_VALUE_H

#include <libyang/libyang.h>

#include <optional>
#include <string>
#include <string_view>

#include "confd_lib.h"

namespace confd::detail {

class TypedValue {
  public:
    TypedValue();

    // The value of text as ConfD type `type` of YANG type `yang_type` (enum
    // names need it); nullopt when the text is not such a value.
    static std::optional<TypedValue> parse(confd_vtype type, const lysc_type* yang_type,
                                           std::string_view text);

    // The value of a leaf in a data tree; nullopt when its type has no ConfD
    // representation or its text does not convert.
    static std::optional<TypedValue> of_node(const lyd_node* node);

    // A copy of value whose buffer, if any, is owned by the result.
    static TypedValue copy_of(const confd_value_t& value);

    static TypedValue tag(uint32_t tag, uint32_t ns);

    // The value; buffers point into this object and live as long as it does.
    confd_value_t view() const;
    confd_vtype type() const { return value_.type; }

  private:
    confd_value_t value_;
    std::string bytes_;
};

// True for the ConfD types whose payload is a buffer.
bool is_buffer_type(confd_vtype type);

}  // namespace confd::detail

#endif
