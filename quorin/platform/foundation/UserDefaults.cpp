#include "quorin/platform/foundation/UserDefaults.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

#include "quorin/platform/foundation/JSONValue.h"
#include "quorin/platform/foundation/NSLog.h"
#include "quorin/platform/foundation/posix/Descriptor.h"
#include "quorin/platform/foundation/posix/FileLock.h"
#include "quorin/platform/foundation/posix/UserFolders.h"

namespace quorin {
namespace {

constexpr std::size_t maximumSize = std::size_t{64} << 20;

/// What the file holds; nothing when it is not there. Throws `DecodingError` when it is damaged.
std::optional<Value::Map> readMap(const std::string& file) {
    const std::optional<std::string> text = readFileIfThere(file, maximumSize);
    if (!text)
        return std::nullopt;
    const Value content = decodeJSONValue(*text);
    if (const Value::Map* const map = content.asMap())
        return *map;
    throw DecodingError(DecodingError::Kind::typeMismatch, "not a record");
}

std::string textOf(const Value::Map& map) {
    return encodeJSONValue(map, {.indentation = 2}) + '\n';
}

/// Never onto a file that is there: that gives the error EEXIST.
bool renameWithoutReplacing(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Not every network file system has that call.
    return errno == EINVAL && link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
}

}  // namespace

UserDefaults::UserDefaults(std::string where)
    : folder(std::move(where)), file(folder + "/defaults.json") {}

std::string UserDefaults::defaultFolder() { return userConfigurationFolder() + "/quorin"; }

Value UserDefaults::value(std::string_view key) const {
    const Value::Map map = values();
    const auto found = map.find(key);
    return found == map.end() ? Value() : found->second;
}

Value::Map UserDefaults::values() const {
    try {
        return readMap(file).value_or(Value::Map());
    } catch (const DecodingError&) {
        // Looked at again under the lock: somebody may have set it aside and begun a new one.
        const FileLock lock(file + ".lock", FileLock::Kind::exclusive);
        return readOrSetAside();
    }
}

void UserDefaults::set(std::string_view key, Value value) {
    change([&](Value::Map& map) {
        if (!value.isNothing())
            map.insert_or_assign(std::string(key), std::move(value));
        else if (const auto found = map.find(key); found != map.end())
            map.erase(found);
    });
}

void UserDefaults::change(FunctionRef<void(Value::Map&)> body) {
    makeFolders(folder);
    const FileLock lock(file + ".lock", FileLock::Kind::exclusive);
    Value::Map map = readOrSetAside();
    const std::string before = textOf(map);
    body(map);
    const std::string text = textOf(map);
    if (text == before)
        return;
    if (text.size() > maximumSize)
        throw FileError(file, "larger than the limit of " + std::to_string(maximumSize) + " bytes");
    writeFileAtomically(file, text, {.privateToOwner = true, .isSoleWriter = true});
}

Value::Map UserDefaults::readOrSetAside() const {
    try {
        return readMap(file).value_or(Value::Map());
    } catch (const DecodingError& error) {
        setAside(error.what());
        return {};
    }
}

void UserDefaults::setAside(const std::string& reason) const {
    const std::string damaged = file + ".damaged";
    std::string aside = damaged;
    int number = 1;
    while (!renameWithoutReplacing(file, aside)) {
        if (errno != EEXIST)
            failWith(file);
        aside = damaged + '-' + std::to_string(++number);
    }
    NSLog("The defaults in " + file + " are damaged (" + reason + ") and are kept as " + aside);
}

}  // namespace quorin
