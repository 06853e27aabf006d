// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace support {

/// The facts that ZELK reads about the user and the machine: the registered Train Simulator folder
/// and the settings. Both are empty at first. On Windows they are in the registry, and the
/// destructor restores the former values; only an administrator may use this class there.
class KnownFolders
{
public:
    /// `configFolder` is the folder for the two files on other systems ($XDG_CONFIG_HOME).
    explicit KnownFolders(std::string configFolder);
    ~KnownFolders();
    KnownFolders(const KnownFolders &) = delete;
    KnownFolders &operator=(const KnownFolders &) = delete;

    void Register(const std::string &folder);
    void Set(const std::string &key, const std::string &value);
    /// Returns a stored setting, or "".
    std::string Setting(const std::string &key) const;

private:
    struct Store;
    std::unique_ptr<Store> m_store;
};

} // namespace support
