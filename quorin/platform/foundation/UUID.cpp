#include "quorin/platform/foundation/UUID.h"

#include <uuid/uuid.h>

namespace quorin {

UUID UUID::random() {
    UUID made;
    uuid_generate_random(made.bytes.data());
    return made;
}

std::string UUID::uuidString() const {
    char text[UUID_STR_LEN];
    uuid_unparse_upper(bytes.data(), text);
    return text;
}

}  // namespace quorin
