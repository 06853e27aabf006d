// SPDX-License-Identifier: MIT
#pragma once

#include "content/Finding.h"

#include <functional>
#include <string>
#include <string_view>

namespace content {

/// Receives the next piece of a text.
using TextSink = std::function<void(std::string_view)>;

enum class Colours
{
    None,
    Terminal ///< severities in colours
};

/// Returns a text as valid UTF-8: names that are not UTF-8 are read as Windows-1252.
std::string ShownText(const std::string &text);
/// Like ShownText, but replaces control characters: names come from strangers, and a terminal would
/// obey escape sequences in them.
std::string PlainText(const std::string &text);
/// Returns the text as a JSON string with its quotes.
std::string JsonText(const std::string &text);
/// Escapes a text for XML and HTML. Characters that XML cannot contain become "?".
std::string XmlText(const std::string &text);
/// Returns the kind in words: "freight animation".
std::string KindNoun(Kind kind);
/// Describes the finding in one sentence without a full stop: `sound "x.sms" is missing`.
std::string SentenceOf(const Finding &finding);
/// Returns the number of problems of each severity: "1 error, 2 warnings, 0 notes".
std::string TotalsOf(const HealthReport &report);
/// Writes the causes with their counts, worst first, the findings of the group of single files
/// with their candidates, and a line with the totals. With `everything`, also writes the findings
/// of all other groups and the references that are in order.
void WriteHealthText(const HealthReport &report, bool everything, Colours colours,
                     const TextSink &out);
/// Writes a JSON array with an object for each finding.
void WriteHealthJson(const HealthReport &report, const TextSink &out);

} // namespace content
