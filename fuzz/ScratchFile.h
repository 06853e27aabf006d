// SPDX-License-Identifier: MIT
#pragma once

#include "host/Path.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

/// A file for functions that take paths, in a new folder that the destructor removes. Set TMPDIR to
/// a folder in memory.
class ScratchFile
{
public:
    explicit ScratchFile(const std::string &name)
        : m_folder(std::filesystem::temp_directory_path() /
                   ("zelk-fuzz-" + std::to_string(std::random_device()())))
        , m_path(host::path::FromDisk(m_folder / name))
    {
        std::filesystem::create_directories(m_folder);
    }
    ~ScratchFile()
    {
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    const std::string &Path() const { return m_path; }
    void Write(std::string_view bytes) const { write(m_path, bytes); }
    /// Writes another file, in this folder or one below it.
    void Write(const std::string &name, std::string_view bytes) const
    {
        const std::filesystem::path path = m_folder / name;
        std::filesystem::create_directories(path.parent_path());
        write(path, bytes);
    }
    const std::filesystem::path &Folder() const { return m_folder; }

private:
    static void write(const std::filesystem::path &path, std::string_view bytes)
    {
        std::ofstream(path, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    std::filesystem::path m_folder;
    std::string m_path;
};
