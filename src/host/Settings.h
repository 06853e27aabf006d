// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace host {

/// The per-user store of settings: application "ZELK", keys in sections.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;
    /// Returns the stored text, or nothing if it is missing or cannot be read.
    virtual std::optional<std::string> ReadFrom(std::string_view section, std::string_view key) = 0;
    /// Stores a text. Throws RuntimeError 70, 75 or 76 if the store cannot be written.
    virtual void WriteTo(std::string_view section, std::string_view key,
                         std::string_view value) = 0;

    /// Read and write in the section "Settings".
    std::optional<std::string> Read(std::string_view key) { return ReadFrom(kSettings, key); }
    void Write(std::string_view key, std::string_view value) { WriteTo(kSettings, key, value); }

    static constexpr std::string_view kSettings = "Settings";
};

/// Settings in $XDG_CONFIG_HOME/ZELK/ZELK.ini (~/.config if the variable is not set). Every Write
/// replaces the whole file.
class IniSettings : public SettingsStore
{
public:
    IniSettings();
    explicit IniSettings(std::string file)
        : m_file(std::move(file))
    {
    }
    std::optional<std::string> ReadFrom(std::string_view section, std::string_view key) override;
    void WriteTo(std::string_view section, std::string_view key, std::string_view value) override;

private:
    std::string m_file;
};

/// Returns the store of this user and machine: RegistrySettings on Windows, IniSettings elsewhere.
std::unique_ptr<SettingsStore> UserSettings();

/// Convert a number from and to its stored form: decimal text of a single-precision number with "."
/// in every locale. ParseSingle allows blanks around it and returns nothing for other text.
std::optional<float> ParseSingle(std::string_view text);
std::string FormatSingle(float value);

} // namespace host
