// SPDX-License-Identifier: MIT
#include "samples/Output.h"

#include "samples/Sample.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace samples {
namespace {

namespace fs = std::filesystem;

std::string nameOf(const fs::path &path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

[[noreturn]] void fail(const fs::path &path, const std::string &reason)
{
    throw std::runtime_error(nameOf(path) + ": " + reason);
}

std::string contentsOf(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace

Output::Output(fs::path root, std::string_view marker, std::string_view smaller)
    : m_root(std::move(root))
{
    std::error_code error;
    if (fs::exists(m_root, error)) {
        requireOwn(marker, smaller);
    } else if (!fs::create_directories(m_root, error)) {
        fail(m_root, "cannot be made: " + error.message());
    }
    Write(kMarkerFile, marker);
    m_count = 0;
}

void Output::requireOwn(std::string_view marker, std::string_view smaller) const
{
    std::error_code error;
    if (!fs::is_directory(m_root, error))
        fail(m_root, "is not a folder");
    const bool empty = fs::is_empty(m_root, error);
    if (error)
        fail(m_root, "cannot be read: " + error.message());
    if (empty)
        return;
    const fs::path file = m_root / kMarkerFile;
    if (!fs::is_regular_file(fs::symlink_status(file, error)))
        fail(m_root, "is not empty and was not made by this program; name a new or empty folder");
    const std::string found = contentsOf(file);
    if (found != marker && found != smaller)
        fail(m_root, "holds a sample made with other options; name a new or empty folder");
}

fs::path Output::below(std::string_view path) const
{
    return m_root / fs::path(std::u8string(path.begin(), path.end()));
}

void Output::MakeFolder(const std::string &path)
{
    if (path.empty() || m_folders.contains(path))
        return;
    const auto slash = path.rfind('/');
    MakeFolder(slash == std::string::npos ? std::string() : path.substr(0, slash));
    const fs::path folder = below(path);
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(folder, error)))
        fail(folder, "is a symbolic link, which is not followed");
    fs::create_directory(folder, error);
    if (error)
        fail(folder, "cannot be made: " + error.message());
    m_folders.insert(path);
}

void Output::Write(const std::string &path, std::string_view bytes)
{
    const auto slash = path.rfind('/');
    if (slash != std::string::npos)
        MakeFolder(path.substr(0, slash));
    const fs::path file = below(path);
    std::error_code error;
    const fs::file_status status = fs::symlink_status(file, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        fail(file, "is in the way: not a plain file");
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out)
        fail(file, "cannot be written");
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out)
        fail(file, "could not be written whole");
    ++m_count;
}

} // namespace samples
