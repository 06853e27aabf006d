// SPDX-License-Identifier: MIT
#include "validation/Finding.h"

#include "host/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace validation {
namespace {

/// Returns the text of a verdict about a single file, or null.
const char *predicateOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Ok:
    case Verdict::Valid:
        return " is OK";
    case Verdict::Missing:
        return " is MISSING";
    case Verdict::Compressed:
        return " is COMPRESSED";
    case Verdict::Corrupt:
        return " appears CORRUPT";
    case Verdict::Empty:
        return " is EMPTY";
    case Verdict::Suspect:
        return " is SUSPECT due to problems with dependent files";
    default:
        return nullptr;
    }
}

std::string bodyOf(const Finding &finding)
{
    if (finding.verdict == Verdict::HasMissingReference)
        return finding.file + " references missing file " + finding.dependent;
    if (finding.verdict == Verdict::Referenced)
        return finding.file + " references file " + finding.dependent;
    const char *predicate = predicateOf(finding.verdict);
    if (!predicate)
        return {};
    if (host::TrimBlanks(finding.dependent).empty())
        return finding.file + predicate;
    return finding.dependent + " referenced by " + finding.file + predicate;
}

/// A value without its closing quote holds the line ends up to the next quote.
bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
}

/// Returns the number that a text begins with, 0 if there is none. One beyond 16 bits is not a
/// verdict and is reported as an unknown one.
std::int16_t leadingCode(std::string_view text)
{
    constexpr std::int16_t kUnknown = INT16_MAX;
    const std::string number(text);
    errno = 0;
    const long value = std::strtol(number.c_str(), nullptr, 10);
    return errno != 0 || value < INT16_MIN || value > INT16_MAX ? kUnknown
                                                                : static_cast<std::int16_t>(value);
}

} // namespace

bool IsError(const Finding &finding)
{
    return finding.verdict != Verdict::Valid && finding.verdict != Verdict::Referenced &&
           finding.verdict != Verdict::Ok;
}

std::string ReportLine(const Finding &finding)
{
    return OneLine((IsError(finding) ? "ERROR: " : "INFO: ") + bodyOf(finding));
}

std::string OneLine(std::string text)
{
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

std::string ResultKey(const Finding &finding)
{
    return std::to_string(CodeOf(finding.verdict)) + '|' + finding.file + '|' + finding.dependent;
}

std::string ErrorText(host::ErrorNumber number)
{
    return "Error " + std::to_string(static_cast<int>(number)) + " - " + host::ClassicText(number);
}

std::string_view VerdictName(Verdict verdict)
{
    static constexpr std::string_view kNames[] = {
        "IsOK",    "IsValid",   "IsMissing",           "IsCompressed", "IsCorrupt",
        "IsEmpty", "IsSuspect", "HasMissingReference", "IsReferenced"};
    if (verdict < Verdict::Ok || verdict > Verdict::Referenced)
        return {};
    return kNames[CodeOf(verdict) - CodeOf(Verdict::Ok)];
}

Finding FindingOf(std::string_view key)
{
    const std::size_t bar = key.find('|');
    const std::string_view rest = bar == key.npos ? "" : key.substr(bar + 1);
    const std::size_t second = rest.find('|');
    const std::string_view dependent = second == rest.npos ? "" : rest.substr(second + 1);
    return {Verdict{leadingCode(key.substr(0, bar))}, std::string(rest.substr(0, second)),
            std::string(dependent)};
}

} // namespace validation
