// SPDX-License-Identifier: MIT
#include "host/ChangeRecord.h"

#include "host/CheckedParts.h"
#include "host/Disk.h"
#include "host/Number.h"
#include "host/Text.h"

#include <utility>

namespace host {
namespace {

constexpr std::string_view kKind = "change";

/// Takes the text before the next line feed from the front; the rest if there is none.
std::string takeField(std::string_view &text)
{
    const std::size_t end = text.find('\n');
    std::string field(text.substr(0, end));
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    return field;
}

} // namespace

std::string ContentMark(std::string_view bytes)
{
    return std::to_string(bytes.size()) + ' ' + Fingerprint(bytes);
}

ChangeRecord ChangeRecord::Of(std::string title, const std::vector<FileChange> &changes)
{
    ChangeRecord record;
    record.title = std::move(title);
    record.time = disk::Now();
    for (const FileChange &change : changes)
        record.files.push_back(
            {change.path, ContentMark(change.before), ContentMark(change.after), change.before});
    return record;
}

/// The parts: the head, all files without their content, then the content of all files. So a record
/// whose end is missing still names every file.
std::string ChangeRecord::ToBytes() const
{
    std::vector<std::string> texts = {std::to_string(time) + '\n' + std::to_string(files.size()) +
                                      '\n' + undoes + '\n' + title};
    for (const File &file : files)
        texts.push_back(file.before + '\n' + file.after + '\n' + file.path);
    std::vector<std::string_view> parts(texts.begin(), texts.end());
    for (const File &file : files)
        parts.push_back(file.old.value_or(std::string_view()));
    return JoinParts(kKind, parts);
}

std::optional<ChangeRecord> ChangeRecord::FromBytes(std::string bytes)
{
    ChangeRecord record;
    record.bytes = std::make_shared<const std::string>(std::move(bytes));
    const CheckedParts read = SplitParts(kKind, *record.bytes);
    if (read.parts.empty())
        return std::nullopt;
    std::string_view head = read.parts.front();
    record.time = NumberIn<std::int64_t>(takeField(head)).value_or(0);
    const auto count = NumberIn<std::size_t>(takeField(head)).value_or(0);
    record.undoes = takeField(head);
    record.title = head;
    for (std::size_t i = 1; i <= count && i < read.parts.size(); ++i) {
        std::string_view text = read.parts[i];
        File file;
        file.before = takeField(text);
        file.after = takeField(text);
        file.path = text;
        if (count + i < read.parts.size())
            file.old = read.parts[count + i];
        record.files.push_back(std::move(file));
    }
    record.whole = read.whole && read.parts.size() == 1 + 2 * count;
    return record;
}

} // namespace host
