// SPDX-License-Identifier: MIT
#include "support/RandomEdits.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <system_error>

namespace support {
namespace fs = std::filesystem;

RandomEdits::RandomEdits(const TempFolder &folder, std::uint32_t seed)
    : m_root(folder.Path())
    , m_random(seed)
{
    for (const Path &file : all(false))
        m_original[file] = bytesOf(file);
}

std::string RandomEdits::Step()
{
    static constexpr Edit kEdits[] = {
        &RandomEdits::createFile,   &RandomEdits::deleteFile,      &RandomEdits::deleteFile,
        &RandomEdits::renameFile,   &RandomEdits::changeBytes,     &RandomEdits::exchangeContent,
        &RandomEdits::touch,        &RandomEdits::setTimeBack,     &RandomEdits::swapFiles,
        &RandomEdits::renameFolder, &RandomEdits::swapFolders,     &RandomEdits::changeCase,
        &RandomEdits::restoreOne,   &RandomEdits::restoreOne,      &RandomEdits::restoreOne,
        &RandomEdits::restoreAll,   &RandomEdits::replaceByFolder, &RandomEdits::linkFolder,
    };
    return (this->*kEdits[below(std::size(kEdits))])();
}

std::size_t RandomEdits::below(std::size_t count)
{
    return count == 0 ? 0 : m_random() % count;
}

RandomEdits::Path RandomEdits::anyOf(const std::vector<Path> &paths)
{
    return paths.empty() ? Path() : paths[below(paths.size())];
}

std::vector<RandomEdits::Path> RandomEdits::all(bool folders) const
{
    std::vector<Path> found;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(m_root))
        if (folders ? entry.is_directory() : entry.is_regular_file())
            found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

RandomEdits::Path RandomEdits::anyFile()
{
    return anyOf(all(false));
}

RandomEdits::Path RandomEdits::anyFolder()
{
    return anyOf(all(true));
}

void RandomEdits::write(const Path &path, const std::string &bytes) const
{
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

std::string RandomEdits::bytesOf(const Path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string RandomEdits::rename(const Path &from, const Path &to)
{
    std::error_code error;
    if (!from.empty())
        fs::rename(from, to, error);
    return "rename " + from.string() + " to " + to.string() + (error ? ": impossible" : "");
}

std::string RandomEdits::createFile()
{
    const auto like =
        std::next(m_original.begin(), static_cast<std::ptrdiff_t>(below(m_original.size())));
    const Path path = anyFolder() / like->first.filename();
    if (!fs::is_directory(path))
        write(path, like->second);
    return "create " + path.string();
}

std::string RandomEdits::deleteFile()
{
    const Path file = anyFile();
    fs::remove(file);
    return "delete " + file.string();
}

std::string RandomEdits::renameFile()
{
    const Path file = anyFile();
    return rename(file,
                  file.parent_path() / (below(2) ? anyFile().filename() : file.filename() += "x"));
}

std::string RandomEdits::changeBytes()
{
    const Path file = anyFile();
    std::string bytes = bytesOf(file);
    if (!bytes.empty())
        bytes[below(bytes.size())] = "abAB(). 0"[below(9)];
    write(file, bytes);
    return "change a byte of " + file.string();
}

std::string RandomEdits::exchangeContent()
{
    const Path file = anyFile(), other = anyFile();
    write(file, bytesOf(other));
    return "copy " + other.string() + " over " + file.string();
}

std::string RandomEdits::touch()
{
    const Path file = anyFile();
    fs::last_write_time(file, fs::file_time_type::clock::now());
    return "touch " + file.string();
}

/// Changes a file and gives it the time that it had, or that of another file, or one in the future.
std::string RandomEdits::setTimeBack()
{
    const Path file = anyFile();
    const auto time = fs::last_write_time(below(2) ? file : anyFile());
    changeBytes();
    write(file, bytesOf(anyFile()));
    fs::last_write_time(file, time + std::chrono::hours(below(4) == 0 ? 100 : 0));
    return "change the time of " + file.string();
}

std::string RandomEdits::swap(const Path &first, const Path &second) const
{
    const Path between = m_root / "between";
    std::error_code error;
    fs::rename(first, between, error);
    fs::rename(second, first, error);
    if (error)
        fs::rename(between, first, error);
    else
        fs::rename(between, second, error);
    return "swap " + first.string() + " and " + second.string();
}

std::string RandomEdits::swapFiles()
{
    const Path first = anyFile();
    return swap(first, anyFile());
}

std::string RandomEdits::swapFolders()
{
    const Path first = anyFolder(), second = anyFolder();
    const auto [end, rest] =
        std::mismatch(first.begin(), first.end(), second.begin(), second.end());
    if (end == first.end() || rest == second.end()) // one is in the other
        return "swap nothing";
    return swap(first, second);
}

std::string RandomEdits::renameFolder()
{
    const Path folder = anyFolder();
    return rename(folder, folder.string() + "x");
}

std::string RandomEdits::changeCase()
{
    const Path path = below(2) ? anyFile() : anyFolder();
    std::string name = path.filename().string();
    for (char &c : name)
        if (below(2))
            c = static_cast<char>((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ? c ^ 0x20 : c);
    // Sometimes beside the old one, so that names differ only in case.
    if (below(2) || fs::is_directory(path) || fs::exists(path.parent_path() / name))
        return rename(path, path.parent_path() / name);
    write(path.parent_path() / name, bytesOf(path));
    return "copy " + path.string() + " to " + name;
}

std::string RandomEdits::restoreOne()
{
    const auto file =
        std::next(m_original.begin(), static_cast<std::ptrdiff_t>(below(m_original.size())));
    if (!fs::is_directory(file->first))
        write(file->first, file->second);
    return "restore " + file->first.string();
}

std::string RandomEdits::restoreAll()
{
    for (const fs::directory_entry &entry : fs::directory_iterator(m_root))
        fs::remove_all(entry.path());
    for (const auto &[path, bytes] : m_original)
        write(path, bytes);
    return "restore everything";
}

std::string RandomEdits::replaceByFolder()
{
    const Path file = anyFile();
    fs::remove(file);
    fs::create_directory(file);
    return "replace " + file.string() + " by a folder";
}

/// Replaces a folder by a link to another one, which may be outside its parent.
std::string RandomEdits::linkFolder()
{
    const Path folder = anyFolder(), target = anyFolder();
    const auto [end, rest] =
        std::mismatch(target.begin(), target.end(), folder.begin(), folder.end());
    std::error_code error;
    if (end == target.end() || rest == folder.end()) // it would contain itself
        return "link nothing";
    fs::remove_all(folder, error);
    fs::create_directory_symlink(target, folder, error);
    return "link " + folder.string() + " to " + target.string();
}

} // namespace support
