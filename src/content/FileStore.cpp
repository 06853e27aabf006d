// SPDX-License-Identifier: MIT
#include "content/FileStore.h"

#include "host/Disk.h"
#include "host/FilesUsed.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "korvat/formats/Container.h"
#include "korvat/formats/Limits.h"

namespace content {
namespace {

constexpr std::string_view kMark = "SIMISA@@@@@@@@@@";

/// Returns the text inside a compressed file. If there is none, returns "" and sets `fault`.
std::string inflated(const std::string &bytes, std::string &fault)
{
    korvat::Container container;
    if (const auto error = korvat::OpenContainer(bytes, korvat::kMaxShapeBytes, container)) {
        fault = error.text;
        return {};
    }
    if (container.content != korvat::Container::Content::Text) {
        fault = "the compressed content is not text";
        return {};
    }
    const std::string_view text(reinterpret_cast<const char *>(container.payload.data()),
                                container.payload.size());
    return (text.starts_with("JINX0") ? std::string(kMark) : std::string()) + std::string(text);
}

} // namespace

ReadResult ParseFile(std::string bytes)
{
    // Other files go to the parser without a copy.
    const bool isCompressed = bytes.starts_with("SIMISA@F");
    ReadResult result;
    if (isCompressed) {
        std::string text = inflated(bytes, result.fault);
        if (!result.fault.empty())
            return result;
        bytes = std::move(text);
    }
    auto source = stavfile::ReadSource(std::move(bytes));
    if (source->form == stavfile::Form::Text)
        result.source = std::move(source);
    else
        result.fault = source->notes.empty() ? "it is not text" : source->notes.front().text;
    return result;
}

std::shared_ptr<const FileStore::Sought> FileStore::lookFor(std::string_view folder)
{
    if (auto known = m_sought.Find(folder))
        return std::move(*known);
    host::Recording recording;
    const bool isAbsent = !m_folders.FolderExists(folder);
    return m_sought.Add(folder, std::make_shared<const Sought>(Sought{isAbsent, recording.Take()}));
}

bool FileStore::isAbsent(std::string_view folder)
{
    const std::shared_ptr<const Sought> sought = lookFor(folder);
    host::Recording *const recording = host::Recording::Current();
    if (sought->isAbsent && recording)
        recording->Add(sought->dependencies);
    return sought->isAbsent;
}

std::optional<std::string> FileStore::Find(const std::string &path)
{
    const std::string_view folder = host::path::FolderWithSeparator(path);
    if (folder.empty())
        return std::nullopt;
    // A record must also hold what is missing: the file may come with its folder.
    if (!host::FilesUsed::IsRecording() && isAbsent(folder))
        return std::nullopt;
    return m_folders.FindFile(path);
}

std::string FileStore::Bytes(const std::string &path, std::string &fault) const
{
    std::string bytes;
    if (FileRead)
        FileRead(path);
    if (const auto failure = host::Snapshot::ReadRecorded(path, bytes)) {
        fault = failure->reason;
        bytes.clear();
    }
    return bytes;
}

ReadResult FileStore::Read(const std::string &path) const
{
    ReadResult result;
    std::string bytes = Bytes(path, result.fault);
    return result.fault.empty() ? ParseFile(std::move(bytes)) : result;
}

std::shared_ptr<const ReadResult> FileStore::ReadShared(const std::string &path)
{
    return m_kept.Get(path, [&] { return Read(path); });
}

} // namespace content
