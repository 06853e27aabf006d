// SPDX-License-Identifier: MIT
// Changes of several files that were interrupted: whatever state the files and the journal are in,
// each file ends with its old, its new or its own later content, and all of them agree if the
// journal is whole. A damaged journal is never read as another change.
#include "EndedProcess.h"
#include "Input.h"
#include "ScratchFile.h"
#include "host/ChangeJournal.h"
#include "host/Disk.h"
#include "host/RuntimeError.h"

#include <optional>
#include <vector>

namespace {

using Content = std::optional<std::string>; ///< of a file that may not exist

struct Target
{
    host::FileChange change;
    Content now;

    bool HasNew() const { return now == change.after; }
    /// True if the file may get its old content.
    bool IsOurs() const { return !now || HasNew() || now == change.before; }
};

Content contentOf(const std::string &path)
{
    std::string bytes;
    if (host::disk::KindOf(path) == host::disk::Kind::Absent)
        return std::nullopt;
    Require(!host::disk::Read(path, 1u << 20, bytes));
    return bytes;
}

std::vector<Target> makeTargets(const ScratchFile &scratch, Input &input)
{
    std::vector<Target> targets(1 + static_cast<std::size_t>(input.Below(3)));
    for (std::size_t i = 0; i < targets.size(); ++i) {
        const std::string name = "file" + std::to_string(i);
        Target &target = targets[i];
        target.change.path = (scratch.Folder() / name).native();
        target.change.before = input.Text(static_cast<std::size_t>(input.Below(40)));
        target.change.after = input.Text(static_cast<std::size_t>(input.Below(40)));
        const Content states[] = {target.change.before, target.change.after, std::nullopt,
                                  target.change.before + target.change.after + "x"};
        target.now = states[input.Below(4)];
        std::filesystem::remove(target.change.path);
        if (target.now)
            scratch.Write(name, *target.now);
    }
    return targets;
}

/// Damages the bytes, or leaves them as they are.
std::string damaged(std::string bytes, Input &input)
{
    const int what = input.Below(4);
    const std::size_t at = input.Byte() * 256u + input.Byte();
    if (what == 1)
        bytes.resize(at % bytes.size());
    else if (what == 2)
        bytes[at % bytes.size()] ^= static_cast<char>(1 << input.Below(8));
    else if (what == 3)
        bytes += input.Text(1 + at % 8);
    return bytes;
}

void requireRecovered(const std::vector<Target> &targets, bool whole)
{
    bool allNew = true;
    for (const Target &target : targets)
        allNew = allNew && target.HasNew();
    for (const Target &target : targets) {
        const Content now = contentOf(target.change.path);
        if (!target.IsOurs() || (whole && allNew))
            Require(now == target.now);
        else if (whole)
            Require(now == target.change.before);
        else
            Require(now == target.now || now == target.change.before);
    }
}

void readAny(std::string_view bytes)
{
    const auto record = host::ChangeRecord::FromBytes(std::string(bytes));
    if (!record || !record->whole)
        return;
    const auto again = host::ChangeRecord::FromBytes(record->ToBytes());
    Require(again && again->whole && again->ToBytes() == record->ToBytes());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile scratch("x");
    readAny({reinterpret_cast<const char *>(data), size});
    Input input(data, size);
    const std::vector<Target> targets = makeTargets(scratch, input);
    std::vector<host::FileChange> changes;
    for (const Target &target : targets)
        changes.push_back(target.change);
    const std::string record =
        host::ChangeRecord::Of(std::string(input.Text(8)), changes).ToBytes();
    const std::string journal = damaged(record, input);
    const std::filesystem::path folder = scratch.Folder() / "changes";
    std::filesystem::remove_all(folder);
    scratch.Write("changes/" + NameOfEndedProcess("running"), journal);

    host::ChangeJournal changer(folder.native());
    const std::vector<std::string> messages = changer.Recover();
    Require(messages.size() == 1 && !messages.front().empty());
    requireRecovered(targets, journal == record);
    try {
        changer.Last();
    } catch (const host::RuntimeError &error) {
        Require(!error.Detail().empty());
    }
    return 0;
}
