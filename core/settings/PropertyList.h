#pragma once
// Property lists in their XML form.

#include <optional>
#include <string_view>

#include "core/base/UserDefaults.h"

namespace ambrel {

// The dictionary at the top. Absent for anything else: the binary form, a document that is not well-formed, an
// element that property lists do not have, nesting deeper than 100. An entity that XML does not have stays as it is
// written.
std::optional<DefaultsDictionary> parsePropertyList(std::string_view text);

}  // namespace ambrel
