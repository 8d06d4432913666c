#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Paths of files as text. Nothing here looks at a disk: a path is cut at its slashes alone, and
/// its bytes need not be characters in UTF-8. Several slashes in a row count as one, slashes at the
/// end do not count; the root is the path that consists of slashes only.
namespace quorin {

/// `/`, `tmp` and `scratch.tiff` of `/tmp/scratch.tiff`. None of an empty path.
std::vector<std::string> pathComponents(std::string_view path);

/// `tmp` of `/tmp/`, `/` of the root, and nothing of an empty path.
std::string lastPathComponent(std::string_view path);

/// What stands behind the last dot of the last component, empty without one. A dot that a name
/// begins with hides the file and begins no extension; `..` is a way up and has none.
std::string pathExtension(std::string_view path);

/// Without the extension and its dot, and without slashes at the end. A name that ends in a dot
/// has an empty extension, so `scratch.` becomes `scratch`.
std::string deletingPathExtension(std::string_view path);

/// Both with one slash between them and none at the end. An empty side leaves the other one.
std::string appendingPathComponent(std::string_view path, std::string_view component);

/// The path with a dot and the extension at its end: `/tmp.tiff` for `/tmp/`. Nothing when there is
/// no name that could bear it (an empty path, the root, `.` and `..`), or the extension has a
/// slash. An empty extension leaves the dot.
std::optional<std::string> appendingPathExtension(std::string_view path,
                                                  std::string_view extension);

}  // namespace quorin
