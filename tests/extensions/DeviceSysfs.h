#pragma once

#include <filesystem>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace quorin::test {

/// What the kernel would tell of a machine, made up file by file.
class DeviceSysfs {
public:
    const std::string& path() const { return folder.path(); }

    void firmware(const std::string& name, const std::string& text) const {
        write("class/dmi/id", name, text);
    }
    /// A network interface; `type` is that of the kernel, 1 for Ethernet.
    void interface(const std::string& name, const std::string& address, int index,
                   const std::string& type = "1", bool isPhysical = true) const {
        const std::string below = "class/net/" + name;
        write(below, "address", address + "\n");
        write(below, "type", type + "\n");
        write(below, "ifindex", std::to_string(index) + "\n");
        if (isPhysical)
            std::filesystem::create_symlink("../../../devices/gone", folder / (below + "/device"));
    }
    void write(const std::string& below, const std::string& name, const std::string& text) const {
        std::filesystem::create_directories(folder / below);
        folder.file(below + "/" + name, text);
    }

private:
    const TemporaryFolder folder;
};

}  // namespace quorin::test
