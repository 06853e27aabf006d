// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// A reader of installations that shares nothing with the rest of the project: it knows of the
/// format only what a search for words needs.
namespace scan {

/// ASCII letters in lower case; the others are left alone.
std::string Lower(std::string text);

/// The text of a file as UTF-8, whatever encoding it is in.
std::string Decode(std::string_view bytes);

/// All the first (or first two) values of blocks of this name, in file order, unescaped. Blocks
/// that are switched off by "#" are left out.
std::vector<std::vector<std::string>> Values(const std::string &text, const std::string &name);
std::vector<std::string> FirstValues(const std::string &text, const std::string &name);

/// The payload of a binary shape or a texture without its container; throws std::runtime_error
/// when a compressed part does not have exactly the size that is declared.
std::string Payload(std::string_view bytes);

class Installation
{
public:
    explicit Installation(std::string root);

    /// Paths of all files with this extension (in lower case, with the dot), relative, with "/".
    std::vector<std::string> Files(std::string_view extension = {}) const;
    std::string Bytes(const std::string &path) const;
    std::string Text(const std::string &path) const { return Decode(Bytes(path)); }
    /// Whether the file is there, ignoring case; ".." and "\" are worked off in the text.
    bool Has(std::string_view path) const;
    /// Counts of folders with stock, of stock files, of consists.
    std::vector<std::size_t> Totals() const;
    /// "<referring file> -> <file that is not there>" for all that stock, consists, sounds, cab
    /// views and text shapes name, in lower case.
    std::set<std::string> Unresolved() const;

private:
    using Found = std::set<std::string>;
    void need(Found &found, const std::string &from, const std::string &folder,
              const std::string &name) const;
    void scanStock(Found &found, const std::string &path, const std::string &text) const;
    void scanShape(Found &found, const std::string &path, const std::string &text) const;

    std::string m_root;
    std::map<std::string, std::string> m_files; ///< lower case to as on the disk
};

/// Works off "\", "." and ".." and gives lower case.
std::string Plain(std::string_view path);

} // namespace scan
