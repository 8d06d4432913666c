#pragma once

#include <string>
#include <string_view>

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/values/FunctionRef.h"
#include "quorin/platform/values/Value.h"

namespace quorin {

/// What a program remembers of its user: texts, numbers, Booleans, lists and maps by key, in a JSON
/// file that only the user may read. Several threads and processes may use the same file at once:
/// every question reads what is there now, and a change holds a lock from reading to writing, so
/// that nobody's keys are lost. A change that was made survives the loss of power; one that was
/// broken off at any point leaves the values as they were before.
///
/// A file that is no such JSON is set aside as `defaults.json.damaged`, with a number behind that
/// when there is one already, and a warning goes to the log; the defaults are empty then. All other
/// trouble with files throws `FileError`, after which the old file is as it was.
class UserDefaults {
public:
    /// The defaults in `folder`, which is made when the first value is set; by default `quorin` in
    /// the user's configuration folder.
    explicit UserDefaults(std::string folder = defaultFolder());

    /// `$XDG_CONFIG_HOME/quorin`, or `~/.config/quorin`.
    static std::string defaultFolder();

    const std::string& path() const { return file; }

    /// Nothing for a key that is not there.
    Value value(std::string_view key) const;
    Value::Map values() const;

    /// Nothing as the value removes the key. Throws `EncodingError`, which names the key, for a
    /// value that cannot be kept, see `encodeJSONValue`.
    void set(std::string_view key, Value value);
    void remove(std::string_view key) { set(key, nullptr); }

    /// Lets `body` change all values in one step, during which nobody else can. Nothing is written
    /// when `body` throws or leaves them as they were. `body` must not use these defaults.
    void change(FunctionRef<void(Value::Map&)> body);

private:
    /// The values, after the file was set aside if it is damaged. For holders of the lock.
    Value::Map readOrSetAside() const;
    void setAside(const std::string& reason) const;

    std::string folder, file;
};

}  // namespace quorin
