#pragma once

#include <string>

namespace quorin {

/// Where users keep what (freedesktop.org base directories), without a slash at the end. A variable
/// of the environment that is no absolute path counts as not set.

/// `$XDG_CONFIG_HOME`, else `.config` in the home folder.
std::string userConfigurationFolder();
/// `$XDG_DATA_HOME`, else `.local/share` in the home folder.
std::string userDataFolder();
/// A folder of the user's own that need not outlive the session: `quorin` in `$XDG_RUNTIME_DIR`,
/// else `quorin-` and the user's number in the temporary folder. It is made. Throws `FileError`,
/// also when it belongs to somebody else.
std::string userRuntimeFolder();
/// `$TMPDIR`, else `/tmp`.
std::string temporaryFolder();

/// Makes the folder and those it stands in, readable by the user alone. Throws `FileError`.
void makeFolders(const std::string& path);

}  // namespace quorin
