// SPDX-License-Identifier: MIT
#include "content/HealthFormats.h"
#include "host/Text.h"

#include <algorithm>
#include <array>

namespace content {
namespace {

/// The page must work without a network, on dark screens and on paper. It is well-formed XML, so
/// that scripts can read it.
constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width, initial-scale=1"/>
<title>Health report</title>
<style>
:root { color-scheme: light dark; }
body { font: 15px/1.4 sans-serif; margin: 1.5em auto; max-width: 75em; padding: 0 1em; }
h2 { font-size: 1.1em; margin: 1.8em 0 .4em; }
table { border-collapse: collapse; table-layout: fixed; width: 100%; }
th, td { border: 1px solid #8888; overflow-wrap: anywhere; padding: .25em .5em; text-align: left; vertical-align: top; }
th:nth-child(1) { width: 5em; }
th:nth-child(2) { width: 6em; }
th:nth-child(1), th:nth-child(2), td:nth-child(1), td:nth-child(2) { overflow-wrap: normal; }
ul { list-style: none; margin: 0; padding: 0; }
li + li { margin-top: .2em; }
.error { color: light-dark(#b00020, #ff8a95); }
.warning { color: light-dark(#805000, #f0c060); }
.note { color: light-dark(#005a8c, #7cc4f0); }
.error, .warning, .note { font-weight: bold; }
@media print { body { font-size: 9pt; max-width: none; } tr, h2 { break-inside: avoid; } h2 { break-after: avoid; } }
</style>
</head>
<body>
<h1>Health report</h1>
)";
constexpr std::string_view kTable =
    "<table>\n<tr><th>Severity</th><th>Simulator</th><th>File</th><th>Finding</th>"
    "<th>Needed by</th></tr>\n";

std::string severityCell(const Finding &finding)
{
    if (!finding.IsProblem())
        return "in order";
    const std::string name = SeverityName(finding.severity);
    return "<span class=\"" + name + "\">" + name + "</span>";
}

const char *simulatorsOf(Profiles profiles)
{
    if (profiles == Profiles::Both())
        return "both";
    return profiles.Has(Profile::Msts) ? "MSTS" : "Open Rails";
}

template <typename Items, typename Text> std::string listOf(const Items &items, const Text &text)
{
    std::string out;
    for (const auto &item : items)
        out += "<li>" + XmlText(text(item)) + "</li>";
    return out.empty() ? out : "<ul>" + out + "</ul>";
}

std::string rowOf(const Finding &finding, const HealthReport &report)
{
    const auto self = [](const std::string &text) -> const std::string & { return text; };
    std::string place = XmlText(finding.file);
    if (finding.line > 0)
        place += ", line " + std::to_string(finding.line);
    std::string what = XmlText(SentenceOf(finding));
    if (!finding.candidates.empty())
        what += "<br/>Perhaps:" + listOf(finding.candidates, self);
    const std::string users =
        listOf(finding.neededBy,
               [&](std::uint32_t user) -> const std::string & { return report.users[user]; });
    return "<tr><td>" + severityCell(finding) + "</td><td>" + simulatorsOf(finding.profiles) +
           "</td><td>" + place + "</td><td>" + what + "</td><td>" + users + "</td></tr>\n";
}

} // namespace

void WriteHealthHtml(const HealthReport &report, const TextSink &out)
{
    out(kHead);
    out("<p>" + TotalsOf(report) + "</p>\n");
    for (const Cause &cause : report.causes) {
        out("<h2>" + XmlText(cause.title) + "</h2>\n");
        out(kTable);
        for (const std::size_t index : cause.findings)
            out(rowOf(report.findings[index], report));
        out("</table>\n");
    }
    const auto isInOrder = [](const Finding &finding) { return !finding.IsProblem(); };
    if (std::any_of(report.findings.begin(), report.findings.end(), isInOrder)) {
        out("<h2>In order</h2>\n");
        out(kTable);
        for (const Finding &finding : report.findings)
            if (isInOrder(finding))
                out(rowOf(finding, report));
        out("</table>\n");
    }
    out("</body>\n</html>\n");
}

} // namespace content
