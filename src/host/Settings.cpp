// SPDX-License-Identifier: MIT
#include "host/Settings.h"
#include "host/Product.h"

#include "host/Disk.h"
#include "host/Folders.h"
#include "host/IniFile.h"
#include "host/Number.h"
#include "host/Path.h"
#include "host/Replace.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <charconv>

namespace host {
namespace {

constexpr std::uint64_t kSettingsLimit = 16u << 20; ///< far larger than any real store

[[noreturn]] void fail(const disk::Failure &failure, const std::string &file)
{
    throw RuntimeError(failure.number, file + ": " + failure.reason);
}

/// Returns the text of a store; "" if there is none. An existing store that cannot be read must not
/// be overwritten with a single value, so that is an error.
std::string textOf(const std::string &file)
{
    std::string text;
    const std::optional<disk::Failure> unread = disk::Read(file, kSettingsLimit, text);
    if (unread && disk::KindOf(file) != disk::Kind::Absent)
        fail(*unread, file);
    return text;
}

} // namespace

IniSettings::IniSettings()
    : IniSettings(path::Join(ConfigFolder(), "ZELK/ZELK.ini"))
{
}

std::optional<std::string> IniSettings::ReadFrom(std::string_view section, std::string_view key)
{
    std::string text;
    if (disk::Read(m_file, kSettingsLimit, text))
        return std::nullopt;
    return IniFile::FromText(text).Value(section, key);
}

void IniSettings::WriteTo(std::string_view section, std::string_view key, std::string_view value)
{
    constexpr int kTimes = 100; // each failure is a value that another program has stored
    for (int time = 1;; ++time) {
        const std::string before = textOf(m_file);
        if (const auto failure = disk::MakeFolders(std::string(path::FolderWithSeparator(m_file))))
            fail(*failure, m_file);
        IniFile ini = IniFile::FromText(before);
        ini.SetValue(section, key, value);
        bool changed = false;
        const auto failure = disk::Replace(m_file, ini.ToText(), [&] {
            changed = textOf(m_file) != before;
            return !changed;
        });
        if (!failure)
            return;
        if (!changed || time == kTimes)
            fail(*failure, m_file);
    }
}

std::optional<float> ParseSingle(std::string_view text)
{
    return NumberIn<float>(text);
}

std::string FormatSingle(float value)
{
    char digits[128]; // the smallest number begins with 45 zeros
    const auto [end, error] =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed);
    return error == std::errc() ? std::string(digits, end) : std::string("0");
}

} // namespace host
