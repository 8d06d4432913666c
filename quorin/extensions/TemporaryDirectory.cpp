#include "quorin/extensions/TemporaryDirectory.h"

#include <stdlib.h>

#include <string>

#include "quorin/platform/foundation/posix/Descriptor.h"
#include "quorin/platform/foundation/posix/UserFolders.h"

namespace quorin {

URL temporaryDirectory() {
    const std::string parent = temporaryFolder();
    std::string path = parent + "/quorin-XXXXXX";
    if (!mkdtemp(path.data()))
        failWith(parent);
    return URL::fileURL(path);
}

}  // namespace quorin
