#pragma once

#include <cstddef>
#include <string_view>

namespace quorin {
namespace typeNameDetail {

/// The text in which the compiler spells the type out, somewhere.
template <typename Type>
constexpr std::string_view signature() {
    return __PRETTY_FUNCTION__;
}

// What stands around the type differs between compilers, but not between types.
inline constexpr std::size_t before = signature<double>().find("double");
inline constexpr std::size_t around =
    signature<double>().size() - std::string_view("double").size();

}  // namespace typeNameDetail

/// The name of a type as it is declared, without the namespaces, types and functions around it.
/// Compilers differ in how they write template arguments, so templates have no such name.
template <typename Type>
constexpr std::string_view typeName() {
    using namespace typeNameDetail;
    constexpr std::string_view all = signature<Type>();
    constexpr std::string_view full = all.substr(before, all.size() - around);
    constexpr std::string_view own = full.substr(full.rfind(':') + 1);  // npos + 1 is 0
    static_assert(own.find_first_of("<>") == std::string_view::npos,
                  "a template has to state its own name");
    return own;
}

}  // namespace quorin
