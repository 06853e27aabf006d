// SPDX-License-Identifier: MIT
#include "content/HealthFormats.h"

#include "host/Text.h"

#include <algorithm>
#include <map>

namespace content {
namespace {

std::string csvField(const std::string &raw)
{
    const std::string text = ShownText(raw);
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"')
            out += '"';
        out += c;
    }
    return out + '"';
}

template <typename Items, typename Text> std::string joined(const Items &items, const Text &text)
{
    std::string out;
    for (const auto &item : items)
        out += (out.empty() ? "" : "|") + text(item);
    return out;
}

/// Returns a path of this machine as a URI.
std::string uriOf(const std::string &path)
{
    constexpr const char *kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "-._~/:";
    std::string out = path.starts_with('/') ? "file://" : "file:///";
    for (const char c : ShownText(path)) {
        const auto code = static_cast<unsigned char>(c);
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || kPlain.find(c) != kPlain.npos;
        if (c == '\\')
            out += '/';
        else if (isPlain)
            out += c;
        else
            out.append({'%', kDigits[code >> 4], kDigits[code & 15]});
    }
    return out;
}

/// Returns the rule's name as words, for lists of rules.
std::string descriptionOf(const Finding &finding)
{
    std::string text = finding.rule;
    std::replace(text.begin(), text.end(), '-', ' ');
    text.front() = static_cast<char>(host::ToUpper(static_cast<char32_t>(text.front())));
    return text;
}

} // namespace

void WriteHealthCsv(const HealthReport &report, const TextSink &out)
{
    const auto self = [](const std::string &text) { return text; };
    out("rule,severity,profile,file,line,kind,wants,looked,answer,foundAt,neededBy,candidates,"
        "cause,id\r\n");
    for (const Finding &finding : report.findings) {
        const std::string users =
            joined(finding.neededBy, [&](std::uint32_t user) { return report.users[user]; });
        const std::string fields[] = {finding.rule,
                                      SeverityName(finding.severity),
                                      ProfileName(finding.profiles),
                                      finding.file,
                                      std::to_string(finding.line),
                                      KindName(finding.kind),
                                      finding.wants,
                                      joined(finding.looked, self),
                                      AnswerName(finding.answer),
                                      finding.foundAt,
                                      users,
                                      joined(finding.candidates, self),
                                      finding.cause,
                                      finding.id};
        std::string line;
        for (const std::string &field : fields)
            line += csvField(field) + ',';
        line.pop_back();
        out(line + "\r\n");
    }
}

void WriteHealthJunit(const HealthReport &report, std::optional<Severity> failing,
                      const TextSink &out)
{
    std::size_t failures = 0;
    const auto fails = [&](const Finding &finding) {
        return finding.IsProblem() && failing && finding.severity >= *failing;
    };
    for (const Finding &finding : report.findings)
        failures += fails(finding);
    const bool isEmpty = report.findings.empty();
    const std::size_t tests = isEmpty ? 1 : report.findings.size();
    std::size_t problems = 0;
    for (const Finding &finding : report.findings)
        problems += finding.IsProblem();
    const std::string counts = " tests=\"" + std::to_string(tests) + "\" failures=\"" +
                               std::to_string(failures) + "\" errors=\"0\" skipped=\"" +
                               std::to_string(problems - failures) + '"';
    out("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts +
        ">\n<testsuite name=\"zelkctl health\"" + counts + ">\n");
    if (isEmpty)
        out("<testcase classname=\"health\" name=\"the content is complete\"/>\n");
    for (const Finding &finding : report.findings) {
        std::string line = "<testcase classname=\"" + XmlText(finding.file) + "\" name=\"" +
                           XmlText(std::string(KindName(finding.kind)) + ' ' + finding.wants +
                                   " (" + ProfileName(finding.profiles) + ", " + finding.id + ')') +
                           '"';
        const std::string message = XmlText(SentenceOf(finding));
        if (fails(finding))
            line += "><failure type=\"" + XmlText(finding.rule) + "\" message=\"" + message +
                    "\">" + XmlText(finding.file + ':' + std::to_string(finding.line)) +
                    "</failure></testcase>\n";
        else if (finding.IsProblem())
            line += "><skipped message=\"" + message + "\"/></testcase>\n";
        else
            line += "/>\n";
        out(line);
    }
    out("</testsuite>\n</testsuites>\n");
}

void WriteHealthSarif(const HealthReport &report, std::string_view version, const TextSink &out)
{
    std::map<std::string, std::string> rules;
    for (const Finding &finding : report.findings)
        if (finding.IsProblem())
            rules.try_emplace(finding.rule, descriptionOf(finding));
    std::string head = "{\"$schema\":\"https://json.schemastore.org/sarif-2.1.0.json\","
                       "\"version\":\"2.1.0\",\"runs\":[{\"tool\":{\"driver\":{"
                       "\"name\":\"zelkctl health\",\"version\":" +
                       JsonText(std::string(version)) + ",\"rules\":[";
    const char *separator = "";
    for (const auto &[id, description] : rules) {
        head += separator + ("{\"id\":" + JsonText(id)) +
                ",\"shortDescription\":{\"text\":" + JsonText(description) + "}}";
        separator = ",";
    }
    out(head + "]}},\"columnKind\":\"utf16CodeUnits\",\"results\":[");
    separator = "\n";
    for (const Finding &finding : report.findings) {
        std::string result = separator;
        result += '{';
        if (finding.IsProblem())
            result += "\"ruleId\":" + JsonText(finding.rule) +
                      ",\"level\":" + JsonText(SeverityName(finding.severity)) + ',';
        else
            result += "\"kind\":\"pass\",\"level\":\"none\",";
        result += "\"message\":{\"text\":" + JsonText(SentenceOf(finding)) +
                  "},\"locations\":[{\"physicalLocation\":{\"artifactLocation\":{\"uri\":" +
                  JsonText(uriOf(finding.file)) + '}';
        if (finding.line > 0)
            result += ",\"region\":{\"startLine\":" + std::to_string(finding.line) + '}';
        result += "}}],\"partialFingerprints\":{\"zelkHealth/v1\":" + JsonText(finding.id) + "}}";
        out(result);
        separator = ",\n";
    }
    out("\n]}]}\n");
}

} // namespace content
