// SPDX-License-Identifier: MIT
#include "validation/Report.h"

#include "host/FileState.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"

namespace validation {
namespace {

#ifdef _WIN32
constexpr std::string_view kLineEnd = "\r\n";
#else
constexpr std::string_view kLineEnd = "\n";
#endif

void endLine(std::string &text)
{
    if (!text.empty() && text.back() != '\n')
        text += kLineEnd;
}

bool isUtf16(std::string_view bytes)
{
    return bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff");
}

} // namespace

std::string FramedReport(std::string_view text)
{
    const std::string frame = std::string(80, '=').append(kLineEnd);
    std::string body;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && text.substr(i + 1).starts_with('\n'))
            continue;
        if (text[i] == '\n')
            body += kLineEnd;
        else
            body += text[i];
    }
    endLine(body);
    return frame + body + frame;
}

namespace {

void tryToAppend(host::GameFiles &files, std::string_view path, std::string_view text)
{
    std::string log;
    host::FileState before = host::FileState::Absent(std::string(path));
    try {
        log = files.ReadFile(path);
        before = host::FileState(std::string(path), log);
    } catch (const host::RuntimeError &error) {
        // On Windows also while another program replaces it; FileChanged follows then.
        if (error.Code() != host::ErrorNumber::FileNotFound)
            throw;
    }
    if (isUtf16(log))
        throw host::RuntimeError(host::ErrorNumber::InvalidCall,
                                 std::string(path) + ": it is UTF-16 text, not a log of reports");
    endLine(log);
    files.WriteFile(path, log + FramedReport(text), before);
}

} // namespace

void AppendReport(host::GameFiles &files, std::string_view path, std::string_view text)
{
    constexpr int kTimes = 100; // each failure is a report of another program
    for (int time = 1;; ++time)
        try {
            return tryToAppend(files, path, text);
        } catch (const host::FileChanged &) {
            if (time == kTimes)
                throw;
        }
}

} // namespace validation
