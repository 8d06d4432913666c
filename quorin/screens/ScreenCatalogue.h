#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/Bundle.h"
#include "quorin/screens/ScreenTemplate.h"

/// The catalogue of device screens, which is data: a JSON list of `ScreenTemplate` records.
namespace quorin {

using ScreenCatalogue = std::vector<std::shared_ptr<ScreenTemplate>>;

/// The categories of a JSON text in its order. Throws `DecodingError`: there is no partial
/// catalogue.
ScreenCatalogue decodeScreenTemplates(std::string_view json);

/// The catalogue as the JSON text that `decodeScreenTemplates` reads. Throws `EncodingError`.
std::string encodeScreenTemplates(const ScreenCatalogue& catalogue);

/// The catalogue of a bundle, its resource "ScreenTemplates" of type "json". Nothing when there is
/// no such resource, when it cannot be read, is larger than 64 MiB or has anything wrong in it; an
/// empty list is an empty catalogue.
std::optional<ScreenCatalogue> readScreenTemplates(const Bundle& bundle);

/// The catalogue of this library, that of its bundle. Where the bundle has no such resource, as for
/// a program that the archive was linked into and that stands anywhere, or where nothing is
/// installed, it is the one that the library was built with. One with a mistake is nothing.
std::optional<ScreenCatalogue> libraryScreenTemplates();

}  // namespace quorin
