// SPDX-License-Identifier: MIT
#include "host/Disk.h"

#include <chrono>

namespace host::disk {
namespace {

constexpr std::int64_t kMillisecond = 1000000; // in nanoseconds
constexpr std::int64_t kSecond = 1000 * kMillisecond;

/// Farther from now than the clock that wrote it can be coarse. Whole hundredths of a second come
/// from file systems that store no more (FAT: 2 s); others are marked at every tick of the kernel.
bool isFarFrom(std::int64_t time, std::int64_t now)
{
    const std::int64_t coarse = time % (10 * kMillisecond) == 0 ? 2 * kSecond : 100 * kMillisecond;
    return time < now - coarse || time > now + coarse;
}

} // namespace

bool IsSettled(const Stamp &stamp, std::int64_t now)
{
    return isFarFrom(stamp.modified, now) && isFarFrom(stamp.changed, now);
}

std::int64_t Now()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

Failure TooLarge(std::uint64_t limit)
{
    return {ErrorNumber::InvalidCall, "larger than " + std::to_string(limit) + " bytes"};
}

} // namespace host::disk
