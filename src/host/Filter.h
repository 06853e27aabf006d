// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace host {

/// Applies the user's wildcard filter, ignoring letter case. An empty filter, or one of stars only,
/// matches everything. A filter that ends in a star matches names that begin with the text before
/// it, even if the filter also begins with a star. Otherwise, a filter that begins with a star
/// matches names that end with the text after it. Any other filter matches names that contain it.
bool MatchesFilter(std::string_view name, std::string_view filter);

/// True for the filters that match every name: "", "*", "**", ...
bool MatchesEverything(std::string_view filter);

/// Applies a DOS pattern, ignoring letter case: `*` matches any run, `?` one character (or none at
/// the end of the base name or of the extension). "*.ext" refers to the text after the last dot;
/// "*." matches names without an extension; "*" and "*.*" match every name.
bool MatchesDosPattern(std::string_view name, std::string_view pattern);
/// Like MatchesDosPattern, but for a name and a pattern in upper case.
bool MatchesUpperDosPattern(std::string_view name, std::string_view pattern);

} // namespace host
