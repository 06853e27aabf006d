// SPDX-License-Identifier: MIT
#include "content/HealthText.h"

#include "content/HealthFigures.h"
#include "host/Text.h"

#include <algorithm>
#include <array>

namespace content {
namespace {

std::string inColour(Severity severity, Colours colours, const std::string &text)
{
    constexpr std::array kCodes = {"\x1b[36m", "\x1b[33m", "\x1b[31m"};
    if (colours == Colours::None)
        return text;
    return kCodes[static_cast<std::size_t>(severity)] + text + "\x1b[0m";
}

std::string severityWord(Severity severity)
{
    constexpr std::array kWords = {"NOTE", "WARNING", "ERROR"};
    return kWords[static_cast<std::size_t>(severity)];
}

const char *simulatorsOf(Profiles profiles)
{
    if (profiles == Profiles::Both())
        return "";
    return profiles.Has(Profile::Msts) ? " [MSTS]" : " [Open Rails]";
}

class TextReport
{
public:
    TextReport(const HealthReport &report, Colours colours, const TextSink &out)
        : m_report(report)
        , m_colours(colours)
        , m_out(out)
    {
    }

    void Write(bool everything)
    {
        for (const Cause &cause : m_report.causes) {
            m_out(inColour(cause.severity, m_colours, severityWord(cause.severity)) + ": " +
                  PlainText(cause.title) + '\n');
            if (cause.isSingles || everything)
                for (const std::size_t index : cause.findings)
                    writeFinding(m_report.findings[index]);
        }
        if (everything)
            for (const Finding &finding : m_report.findings)
                if (!finding.IsProblem())
                    writeFinding(finding);
        m_out(TotalsOf(m_report) + '\n');
    }

private:
    void writeFinding(const Finding &finding)
    {
        std::string line = "  ";
        if (finding.IsProblem())
            line += inColour(finding.severity, m_colours, SeverityName(finding.severity)) + ": ";
        line += PlainText(finding.file);
        if (finding.line > 0)
            line += ':' + std::to_string(finding.line);
        line += ": " + SentenceOf(finding) + simulatorsOf(finding.profiles) + '\n';
        for (const std::string &candidate : finding.candidates)
            line += "      perhaps " + PlainText(candidate) + '\n';
        m_out(line);
    }

    const HealthReport &m_report;
    Colours m_colours;
    const TextSink &m_out;
};

template <typename Items, typename Text> std::string arrayOf(const Items &items, const Text &text)
{
    std::string out = "[";
    for (const auto &item : items)
        out += (out.size() > 1 ? "," : "") + JsonText(text(item));
    return out + ']';
}

std::string objectOf(const Finding &finding, const HealthReport &report)
{
    const auto self = [](const std::string &text) -> const std::string & { return text; };
    std::string out = "{\"rule\":" + JsonText(finding.rule);
    const auto add = [&out](const char *name, const std::string &json) {
        out += std::string(",\"") + name + "\":" + json;
    };
    add("severity", JsonText(SeverityName(finding.severity)));
    add("profile", JsonText(ProfileName(finding.profiles)));
    add("file", JsonText(finding.file));
    add("line", std::to_string(finding.line));
    add("kind", JsonText(KindName(finding.kind)));
    add("wants", JsonText(finding.wants));
    add("looked", arrayOf(finding.looked, self));
    add("answer", JsonText(AnswerName(finding.answer)));
    add("foundAt", finding.foundAt.empty() ? "null" : JsonText(finding.foundAt));
    add("neededBy", arrayOf(finding.neededBy, [&](std::uint32_t user) -> const std::string & {
            return report.users[user];
        }));
    add("candidates", arrayOf(finding.candidates, self));
    add("cause", JsonText(finding.cause));
    add("id", JsonText(finding.id));
    return out + '}';
}

} // namespace

std::string ShownText(const std::string &text)
{
    return host::IsValidUtf8(text) ? text : host::FromWindows1252(text);
}

std::string PlainText(const std::string &text)
{
    constexpr char kDelete = 0x7F;
    std::string out = ShownText(text);
    std::replace_if(
        out.begin(), out.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == kDelete; }, '?');
    return out;
}

std::string XmlText(const std::string &raw)
{
    std::string out;
    for (const char c : ShownText(raw)) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (c == '"')
            out += "&quot;";
        else if (c == '\n' || c == '\t' || c == '\r')
            out += ' ';
        else
            out += static_cast<unsigned char>(c) < ' ' ? '?' : c;
    }
    return out;
}

std::string JsonText(const std::string &raw)
{
    const std::string text = ShownText(raw);
    std::string out = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (code < ' ') {
            constexpr const char *kDigits = "0123456789abcdef";
            out += "\\u00";
            out += kDigits[code >> 4];
            out += kDigits[code & 15];
        } else {
            out += c;
        }
    }
    return out + '"';
}

std::string KindNoun(Kind kind)
{
    switch (kind) {
    case Kind::ConsistVehicle:
    case Kind::ActivityVehicle:
        return "vehicle";
    case Kind::ConsistEot:
        return "end-of-train device";
    case Kind::Cab3d:
        return "3D cab";
    case Kind::SoundFile:
        return "wave file";
    case Kind::ServiceConsist:
    case Kind::TimetableConsist:
        return "consist";
    case Kind::ActivityService:
        return "service";
    case Kind::ActivityTraffic:
        return "traffic";
    default:
        break;
    }
    std::string noun = KindName(kind); // "freight-animation"
    std::replace(noun.begin(), noun.end(), '-', ' ');
    return noun;
}

std::string SentenceOf(const Finding &finding)
{
    std::string subject = KindNoun(finding.kind) + " \"" + PlainText(finding.wants) + '"';
    if (finding.rule.starts_with("damaged-"))
        return "the file is damaged: " + PlainText(finding.detail);
    if (finding.rule == kUnreadableFigure)
        return PlainText(finding.detail);
    if (!finding.detail.empty())
        return subject + ": " + PlainText(finding.detail);
    if (finding.rule == "unquoted-name")
        return subject + " is a name with blanks but without quotes";
    switch (finding.answer) {
    case Answer::Here:
        return subject + " is in place";
    case Answer::Elsewhere:
        return finding.foundAt.empty() ? subject + " is found by the simulator"
                                       : subject + " is found at " + PlainText(finding.foundAt);
    case Answer::NotNeeded:
        return subject + " is not needed";
    case Answer::Misplaced:
        return subject + (finding.rule == "wrong-extension" ? " exists only with another extension"
                                                            : " exists, but in another folder");
    case Answer::Nowhere:
        break;
    }
    return subject + " is missing";
}

std::string TotalsOf(const HealthReport &report)
{
    std::array<std::size_t, 3> counts{};
    for (const Finding &finding : report.findings)
        if (finding.IsProblem())
            ++counts[static_cast<std::size_t>(finding.severity)];
    return host::Counted(counts[2], "error", "errors") + ", " +
           host::Counted(counts[1], "warning", "warnings") + ", " +
           host::Counted(counts[0], "note", "notes");
}

void WriteHealthText(const HealthReport &report, bool everything, Colours colours,
                     const TextSink &out)
{
    TextReport(report, colours, out).Write(everything);
}

void WriteHealthJson(const HealthReport &report, const TextSink &out)
{
    const char *separator = "[\n";
    for (const Finding &finding : report.findings) {
        out(separator + objectOf(finding, report));
        separator = ",\n";
    }
    out(report.findings.empty() ? "[]\n" : "\n]\n");
}

} // namespace content
