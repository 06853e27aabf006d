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
    /// The stored text, or nothing when it is missing or cannot be read.
    virtual std::optional<std::string> ReadFrom(std::string_view section, std::string_view key) = 0;
    /// Stores a text. RuntimeError 70, 75 or 76 when the store cannot be written.
    virtual void WriteTo(std::string_view section, std::string_view key,
                         std::string_view value) = 0;

    /// Read and write in the section "Settings".
    std::optional<std::string> Read(std::string_view key) { return ReadFrom(kSettings, key); }
    void Write(std::string_view key, std::string_view value) { WriteTo(kSettings, key, value); }

    static constexpr std::string_view kSettings = "Settings";
};

/// $XDG_CONFIG_HOME/ZELK/ZELK.ini (~/.config where the variable is not set). Every Write replaces
/// the file whole.
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

/// The store of this user and machine: RegistrySettings on Windows, IniSettings elsewhere.
std::unique_ptr<SettingsStore> UserSettings();

/// A number as stored: decimal text of a single-precision number with "." in every locale. Text
/// that is no number (surrounding blanks allowed) gives nothing.
std::optional<float> ParseSingle(std::string_view text);
std::string FormatSingle(float value);

} // namespace host
