// SPDX-License-Identifier: MIT
#include "InstallationScan.h"

#include <libdeflate.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace scan {
namespace {

namespace fs = std::filesystem;

unsigned byteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes.at(at));
}

/// Appends a character of the basic plane as UTF-8.
void append(std::string &out, unsigned c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        out += static_cast<char>(0x80 | (c & 63));
    } else {
        out += static_cast<char>(0xE0 | c >> 12);
        out += static_cast<char>(0x80 | (c >> 6 & 63));
        out += static_cast<char>(0x80 | (c & 63));
    }
}

std::string fromUtf16(std::string_view bytes, std::size_t at, unsigned high)
{
    std::string out;
    for (; at + 1 < bytes.size(); at += 2)
        append(out, byteAt(bytes, at + high) << 8 | byteAt(bytes, at + 1 - high));
    return out;
}

bool isUtf8(std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (byteAt(bytes, i) < 0x80)
            continue;
        const std::size_t more = byteAt(bytes, i) >= 0xE0 ? 2 : byteAt(bytes, i) >= 0xC0 ? 1 : 0;
        if (more == 0 || i + more >= bytes.size())
            return false;
        for (std::size_t n = 0; n < more; ++n)
            if (byteAt(bytes, ++i) >> 6 != 2)
                return false;
    }
    return true;
}

std::string unescaped(const std::string &text)
{
    return std::regex_replace(text, std::regex(R"(\\(.))"), "$1");
}

std::string folderOf(const std::string &path)
{
    return path.substr(0, path.rfind('/') + 1);
}

fs::path toDisk(std::string_view path)
{
    return std::u8string(path.begin(), path.end());
}

std::string fromDisk(const fs::path &path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace

std::string Lower(std::string text)
{
    for (char &c : text)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return text;
}

std::string Decode(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
        return fromUtf16(bytes, 2, 1);
    if (bytes.starts_with("\xFE\xFF"))
        return fromUtf16(bytes, 2, 0);
    if (bytes.size() > 1 && bytes[1] == '\0')
        return fromUtf16(bytes, 0, 1);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return std::string(bytes.substr(3));
    if (isUtf8(bytes))
        return std::string(bytes);
    std::string out;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        append(out, byteAt(bytes, i));
    return out;
}

std::vector<std::vector<std::string>> Values(const std::string &text, const std::string &name)
{
    static const std::regex off(R"(#\w+\s*\((?:[^()]|\([^()]*\))*\))");
    const std::string live = std::regex_replace(text, off, "");
    const std::string value = R"lit((?:"((?:[^"\\]|\\.)*)"|([^\s()"]+)))lit";
    const std::regex block("\\b" + name + R"(\s*\(\s*)" + value + R"((?:\s+)" + value + ")?");
    std::vector<std::vector<std::string>> all;
    for (std::sregex_iterator it(live.begin(), live.end(), block), end; it != end; ++it) {
        std::vector<std::string> values;
        for (const std::size_t group : {1, 3})
            values.push_back((*it)[group].matched ? unescaped((*it)[group])
                                                  : (*it)[group + 1].str());
        all.push_back(values);
    }
    return all;
}

std::vector<std::string> FirstValues(const std::string &text, const std::string &name)
{
    std::vector<std::string> firsts;
    for (const auto &values : Values(text, name))
        firsts.push_back(values.front());
    return firsts;
}

std::string Payload(std::string_view bytes)
{
    if (bytes.starts_with("SIMISA@@@@@@@@@@"))
        return std::string(bytes.substr(16));
    if (!bytes.starts_with("SIMISA@F") || bytes.substr(12, 4) != "@@@@")
        throw std::runtime_error("not a container");
    std::size_t size = 0;
    for (std::size_t i = 12; i-- > 8;)
        size = size << 8 | byteAt(bytes, i);
    std::string out(size, '\0');
    libdeflate_decompressor *inflater = libdeflate_alloc_decompressor();
    // Without a pointer for the actual size, any other size is an error.
    const libdeflate_result result = libdeflate_zlib_decompress_ex(
        inflater, bytes.data() + 16, bytes.size() - 16, out.data(), size, nullptr, nullptr);
    libdeflate_free_decompressor(inflater);
    if (result != LIBDEFLATE_SUCCESS)
        throw std::runtime_error("the compressed part does not have the declared size");
    return out;
}

std::string Plain(std::string_view path)
{
    std::string text(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return Lower(fromDisk(toDisk(text).lexically_normal()));
}

Installation::Installation(std::string root)
    : m_root(std::move(root))
{
    for (const auto &entry : fs::recursive_directory_iterator(toDisk(m_root))) {
        if (!entry.is_regular_file())
            continue;
        const std::string path = fromDisk(fs::relative(entry.path(), toDisk(m_root)));
        m_files[Lower(path)] = path;
    }
}

std::vector<std::string> Installation::Files(std::string_view extension) const
{
    std::vector<std::string> files;
    for (const auto &[lower, path] : m_files)
        if (lower.ends_with(extension))
            files.push_back(path);
    return files;
}

std::string Installation::Bytes(const std::string &path) const
{
    std::ifstream in(toDisk(m_root + '/' + path), std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool Installation::Has(std::string_view path) const
{
    return m_files.contains(Plain(path));
}

std::vector<std::size_t> Installation::Totals() const
{
    std::set<std::string> folders;
    std::size_t stock = 0;
    for (const char *extension : {".eng", ".wag"}) {
        for (const std::string &path : Files(extension)) {
            folders.insert(folderOf(path));
            ++stock;
        }
    }
    return {folders.size(), stock, Files(".con").size()};
}

void Installation::need(Found &found, const std::string &from, const std::string &folder,
                        const std::string &name) const
{
    if (name.empty() || !Has(folder + name))
        found.insert(Lower(from) + " -> " + Plain(folder + name));
}

void Installation::scanStock(Found &found, const std::string &path, const std::string &text) const
{
    const std::string folder = folderOf(path);
    for (const std::string &name : FirstValues(text, "WagonShape")) {
        need(found, path, folder, name);
        need(found, path, folder, name + 'd');
    }
    for (const std::string &name : FirstValues(text, "Thumbnail"))
        need(found, path, folder, name);
    for (const std::string &name : FirstValues(text, "Sound"))
        need(found, path, folder + "Sound/", name);
    for (const std::string &name : FirstValues(text, "CabView"))
        need(found, path, folder + "Cabview/", name);
}

void Installation::scanShape(Found &found, const std::string &path, const std::string &text) const
{
    const std::string folder = folderOf(path);
    const bool route = path.starts_with("ROUTES/");
    std::vector<std::string> places = {route ? folder + "../TEXTURES/" : folder};
    if (route && Has(path + 'd')) {
        const std::string code = FirstValues(Text(path + 'd'), "ESD_Alternative_Texture").at(0);
        const std::string base = places.front();
        if (code == "252")
            for (const char *season :
                 {"Autumn/", "AutumnSnow/", "Spring/", "SpringSnow/", "Winter/", "WinterSnow/"})
                places.push_back(base + season);
        if (code == "1" || code == "257")
            places.push_back(base + "Snow/");
        if (code == "257")
            places.push_back(base + "Night/");
    }
    // Searches only a small part of the text, because a search of the whole text would be slow.
    const std::size_t first = text.find("images (");
    const std::string images = text.substr(first, text.find("textures (", first) - first);
    for (const std::string &place : places)
        for (const std::string &name : FirstValues(images, "image"))
            need(found, path, place, name);
}

std::set<std::string> Installation::Unresolved() const
{
    Found found;
    for (const auto &[lower, path] : m_files) {
        const std::string extension = lower.substr(lower.rfind('.'));
        const std::string bytes = Bytes(path);
        const std::string text = Decode(bytes);
        if (extension == ".eng" || extension == ".wag")
            scanStock(found, path, text);
        if (extension == ".s" && text.find("shape (") != std::string::npos)
            scanShape(found, path, text);
        if (extension == ".con" || extension == ".act")
            for (const char *kind : {"Engine", "Wagon"})
                for (const auto &values : Values(text, kind + std::string("Data")))
                    need(found, path, "TRAINS/TRAINSET/" + values[1] + '/',
                         values[0] + (*kind == 'E' ? ".eng" : ".wag"));
        if (extension == ".sms")
            for (const std::string &name : FirstValues(text, "File"))
                need(found, path, folderOf(path), name);
        if (extension == ".cvf")
            for (const char *block : {"CabViewFile", "Graphic"})
                for (const std::string &name : FirstValues(text, block))
                    need(found, path, folderOf(path), name);
        if (extension == ".srv")
            for (const std::string &name : FirstValues(text, "Train_Config"))
                need(found, path, "TRAINS/CONSISTS/", name + ".con");
    }
    return found;
}

} // namespace scan
