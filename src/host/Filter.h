// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace host {

/// The user's wildcard filter, letter case ignored: empty or only stars matches everything; a
/// filter that ends in a star matches names that begin with what stands before it; else one that
/// begins with a star matches names that end with what follows; else names that contain it.
/// A filter with stars at both ends is one that ends in a star.
bool MatchesFilter(std::string_view name, std::string_view filter);

/// True for the filters that match every name: "", "*", "**", ...
bool MatchesEverything(std::string_view filter);

/// DOS patterns, letter case ignored: `*` any run, `?` one character (or none at the end of the
/// base name or of the extension). "*.ext" looks at the text after the last dot; "*." matches
/// names without an extension; "*" and "*.*" match every name.
bool MatchesDosPattern(std::string_view name, std::string_view pattern);
/// The same for a name and a pattern that are in upper case already.
bool MatchesUpperDosPattern(std::string_view name, std::string_view pattern);

} // namespace host
