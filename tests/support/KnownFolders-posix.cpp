// SPDX-License-Identifier: MIT
#include "support/KnownFolders.h"

#include <filesystem>
#include <fstream>

namespace support {
namespace fs = std::filesystem;

struct KnownFolders::Store
{
    fs::path folder;

    void Write(const char *file, const std::string &section, const std::string &line) const
    {
        fs::create_directories((folder / file).parent_path());
        std::ofstream(folder / file) << '[' << section << "]\n" << line << '\n';
    }
};

KnownFolders::KnownFolders(std::string configFolder)
    : m_store(std::make_unique<Store>(Store{std::move(configFolder)}))
{
}

KnownFolders::~KnownFolders() = default;

void KnownFolders::Register(const std::string &folder)
{
    m_store->Write("zelk/registry.ini", R"(SOFTWARE\Microsoft\Microsoft Games\Train Simulator\1.0)",
                   "Path=" + folder);
}

void KnownFolders::Set(const std::string &key, const std::string &value)
{
    m_store->Write("ZELK/ZELK.ini", "Settings", key + '=' + value);
}

std::string KnownFolders::Setting(const std::string &key) const
{
    std::ifstream file(m_store->folder / "ZELK/ZELK.ini");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(key + '='))
            return line.substr(key.size() + 1);
    return {};
}

} // namespace support
