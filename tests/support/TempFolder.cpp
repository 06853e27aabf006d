// SPDX-License-Identifier: MIT
#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace support {
namespace fs = std::filesystem;

namespace {

fs::path toDisk(std::string_view path)
{
    return fs::path(std::u8string(path.begin(), path.end()));
}

std::string fromDisk(const fs::path &path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

void giveBackPermissions(const fs::path &folder)
{
    std::error_code error;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, error))
        if (entry.is_directory(error) && !entry.is_symlink(error))
            giveBackPermissions(entry.path());
}

} // namespace

TempFolder::TempFolder()
{
    std::random_device random;
    fs::path path;
    do
        path = fs::temp_directory_path() / ("zelk-test-" + std::to_string(random()));
    while (!fs::create_directory(path));
    m_path = fromDisk(path);
}

TempFolder::~TempFolder()
{
    std::error_code error;
    giveBackPermissions(toDisk(m_path));
    fs::remove_all(toDisk(m_path), error);
}

std::string TempFolder::At(std::string_view name) const
{
    return name.empty() ? m_path : (m_path + '/').append(name);
}

std::string TempFolder::Shown(std::string_view name) const
{
    const std::u8string text = toDisk(At(name)).make_preferred().u8string();
    return {text.begin(), text.end()};
}

std::string TempFolder::Relative(std::string text) const
{
    std::replace(text.begin(), text.end(), '\\', '/');
    const std::string folder = m_path + '/';
    for (auto at = text.find(folder); at != text.npos; at = text.find(folder, at))
        text.erase(at, folder.size());
    return text;
}

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const
{
    std::string path = At(name);
    fs::create_directories(toDisk(path).parent_path());
    std::ofstream file(toDisk(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
    return path;
}

std::string TempFolder::MakeFolder(std::string_view name) const
{
    fs::create_directories(toDisk(At(name)));
    return At(name);
}

std::string TempFolder::Read(std::string_view name) const
{
    std::ifstream file(toDisk(At(name)), std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + At(name));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool TempFolder::Exists(std::string_view name) const
{
    return fs::symlink_status(toDisk(At(name))).type() != fs::file_type::not_found;
}

std::vector<std::string> TempFolder::Names(std::string_view folder) const
{
    std::vector<std::string> names;
    for (const fs::directory_entry &entry : fs::directory_iterator(toDisk(At(folder))))
        names.push_back(fromDisk(entry.path().filename()));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace support
