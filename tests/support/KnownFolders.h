// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace support {

/// What ZELK finds out about the user and the machine: the folder that Train Simulator registered
/// and the settings. At first there is nothing. On Windows both are in the registry, where what
/// was there before comes back at the end; only an administrator may do so.
class KnownFolders
{
public:
    /// Elsewhere both are files in the folder of the configuration ($XDG_CONFIG_HOME).
    explicit KnownFolders(std::string configFolder);
    ~KnownFolders();
    KnownFolders(const KnownFolders &) = delete;
    KnownFolders &operator=(const KnownFolders &) = delete;

    void Register(const std::string &folder);
    void Set(const std::string &key, const std::string &value);
    /// A stored setting, "" when there is none.
    std::string Setting(const std::string &key) const;

private:
    struct Store;
    std::unique_ptr<Store> m_store;
};

} // namespace support
