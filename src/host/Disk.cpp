// SPDX-License-Identifier: MIT
#include "host/Disk.h"

#include "host/Path.h"
#include "host/ReadAll.h"

#include <chrono>
#include <utility>

namespace host::disk {
namespace {

constexpr std::int64_t kMillisecond = 1000000; // in nanoseconds
constexpr std::int64_t kSecond = 1000 * kMillisecond;

/// Returns the file system's clock granularity. Times in whole hundredths of a second come from
/// file systems that store no more (FAT: 2 s); others are marked at every tick of the kernel.
std::int64_t granularityOf(std::int64_t time)
{
    return time % (10 * kMillisecond) == 0 ? 2 * kSecond : 100 * kMillisecond;
}

/// True if `time` differs from `now` by more than the file system's clock granularity.
bool isFarFrom(std::int64_t time, std::int64_t now)
{
    return IsBefore(time, now) || time > now + granularityOf(time);
}

} // namespace

bool IsBefore(std::int64_t stamp, std::int64_t now)
{
    return stamp < now - granularityOf(stamp);
}

bool IsSettled(const Stamp &stamp, std::int64_t now)
{
    return isFarFrom(stamp.modified, now) && isFarFrom(stamp.changed, now);
}

std::int64_t Now()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

std::optional<Listing> List(const std::string &folder)
{
    std::vector<ListedName> names;
    std::optional<Listing> listing = VisitNames(folder, [&names](std::string_view name, Kind kind) {
        names.push_back({std::string(name), kind});
    });
    if (listing)
        listing->names = std::move(names);
    return listing;
}

std::optional<Failure> ReadAll(std::uint64_t limit, std::size_t expected, std::string &bytes,
                               const ReadSome &readSome)
{
    std::size_t filled = 0;
    bytes.resize(expected + 1); // one more than expected, to reach the end without growing
    for (;;) {
        std::size_t got = 0;
        if (auto failure = readSome(bytes.data() + filled, bytes.size() - filled, got))
            return failure;
        filled += got;
        if (filled > limit)
            return TooLarge(limit);
        if (got == 0 || filled == expected) // there was room for more, so this is the end
            break;
        if (filled == bytes.size())
            bytes.resize(2 * filled);
    }
    bytes.resize(filled);
    return std::nullopt;
}

Failure TooLarge(std::uint64_t limit)
{
    return {ErrorNumber::InvalidCall, "larger than " + std::to_string(limit) + " bytes"};
}

std::string Join(const std::string &folder, std::string_view name)
{
    std::string out;
    out.reserve(folder.size() + 1 + name.size());
    out = folder;
    if (!out.empty() && out.back() != path::kSeparator)
        out += path::kSeparator;
    out += name;
    return out;
}

} // namespace host::disk
