// SPDX-License-Identifier: MIT
// Settings: any text is kept byte for byte. A value that is set reads back, a removed one is gone,
// and all other lines stay as they are. The first bytes choose the values.
#include "Input.h"
#include "host/IniFile.h"

#include <vector>

namespace {

std::vector<std::string> linesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        lines.emplace_back(text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1));
        text.remove_prefix(lines.back().size());
    }
    return lines;
}

bool isPart(const std::vector<std::string> &part, const std::vector<std::string> &all)
{
    auto at = part.begin();
    for (const std::string &line : all)
        // A last line without an end gets one when another follows.
        if (at != part.end() && (line == *at || (at + 1 == part.end() && line.starts_with(*at))))
            ++at;
    return at == part.end();
}

void set(host::IniFile &ini, std::string_view section, const std::string &value)
{
    const std::vector<std::string> before = linesOf(ini.ToText());
    ini.SetValue(section, "Key", value);
    Require(host::IniFile::FromText(ini.ToText()).Value(section, "kEY") == value);
    std::vector<std::string> after = linesOf(ini.ToText());
    if (after.size() > before.size()) {
        Require(after.size() <= before.size() + 2 && isPart(before, after));
        return;
    }
    Require(after.size() == before.size());
    int changed = 0;
    for (std::size_t i = 0; i < after.size(); ++i)
        changed += after[i] != before[i];
    Require(changed <= 1);
}

void remove(host::IniFile &ini, std::string_view section)
{
    const std::vector<std::string> before = linesOf(ini.ToText());
    const bool had = ini.Value(section, "Key").has_value();
    ini.RemoveValue(section, "Key");
    const host::IniFile again = host::IniFile::FromText(ini.ToText());
    Require(!again.Value(section, "Key"));
    const std::vector<std::string> after = linesOf(ini.ToText());
    Require((after.size() < before.size()) == had && isPart(after, before));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const std::uint8_t choice = input.Byte();
    std::string value(input.TextBefore('\n'));
    std::erase(value, '\r');
    const std::string text(input.Rest());
    host::IniFile ini = host::IniFile::FromText(text);
    Require(ini.ToText() == text);
    const char *const section = choice & 1 ? "Settings" : "A b";
    for (unsigned bit = 2; bit < 256; bit *= 2)
        if (choice & bit)
            set(ini, section, value);
        else
            remove(ini, section);
    return 0;
}
