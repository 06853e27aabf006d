// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/VehicleReader.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace viewer {

/// Small pictures of vehicles, each in its own file in the user's cache folder, together with
/// a record of the files that it was made from. A picture is used only while this record holds.
/// Damaged and foreign files count as missing. Nothing here fails: what cannot be kept is drawn
/// again. Thread-safe.
class PictureCache
{
public:
    static constexpr std::uint64_t kLimit = 256ull << 20; ///< bytes

    /// Keeps at most `limit` bytes in the folder, which is created when it is needed. "" keeps
    /// nothing.
    explicit PictureCache(std::string folder, std::uint64_t limit = kLimit);
    /// Returns the folder of the program's user.
    static std::string UserFolder();

    /// What a picture shows, and its size in pixels.
    struct Subject
    {
        std::string stockFile;
        Reading reading;
        bool dark = false; ///< the background
        int width = 0, height = 0;
    };
    /// Returns a picture; nothing if there is none or if one of its files has changed.
    std::optional<std::string> Find(host::GameFiles &files, const Subject &subject) const;
    /// Keeps a picture with the record of its files (host::FilesUsed). Does nothing for an empty
    /// record. If the folder cannot be written, notes that once in the trace log.
    void Keep(const Subject &subject, std::string_view record, std::string_view picture);

private:
    std::string fileOf(const std::string &key) const;
    void begin();
    void removeOldest();
    void giveUp(const std::string &reason);

    const std::string m_folder;
    const std::uint64_t m_limit;
    std::mutex m_mutex; ///< guards the rest
    bool m_begun = false, m_gaveUp = false;
    std::uint64_t m_size = 0; ///< of all pictures
};

} // namespace viewer
