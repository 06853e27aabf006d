// SPDX-License-Identifier: MIT
#pragma once

#include "host/Path.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

using support::Outcome;

/// Returns ASCII text as UTF-16LE with BOM.
inline std::string Utf16(std::string_view ascii)
{
    std::string bytes = "\xff\xfe";
    for (const char c : ascii) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

/// Returns a text with the paths in it as this platform shows them.
inline std::string Shown(std::string text)
{
    for (const char separator : {'/', '\\'})
        std::replace(text.begin(), text.end(), separator, host::path::kSeparator);
    return text;
}

/// Runs zelkctl in a private folder, to which the tests' file names are relative.
class ZelkctlTest : public testing::Test
{
protected:
    Outcome run(const std::vector<std::string> &arguments,
                support::Stdout out = support::Stdout::Captured) const
    {
        return m_machine.Run(ZELKCTL, arguments, out);
    }
    void write(const std::string &name, std::string_view bytes) const
    {
        m_folder.Write(name, bytes);
    }
    std::string read(const std::string &name) const { return m_folder.Read(name); }

    support::TempFolder m_folder;
    support::Machine m_machine{m_folder.Path()};
};
