#include "quorin/platform/foundation/FileBlocks.h"

#include <fcntl.h>
#include <unistd.h>

#include <vector>

#include "quorin/platform/foundation/posix/Descriptor.h"

namespace quorin {

void forEachBlock(const std::string& path, FunctionRef<void(std::string_view)> body) {
    const Descriptor file = openFile(path, O_RDONLY);
    if (!file)
        failWith(path);
    std::vector<char> block(std::size_t{256} << 10);
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return ::read(file.get(), block.data(), block.size()); });
        if (count < 0)
            failWith(path);
        if (count == 0)
            return;
        body(std::string_view(block.data(), static_cast<std::size_t>(count)));
    }
}

}  // namespace quorin
