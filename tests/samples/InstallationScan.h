// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// A reader of installations that shares no code with the rest of the project. It only searches for
/// words.
namespace scan {

/// Converts ASCII letters to lower case and leaves other characters alone.
std::string Lower(std::string text);

/// Returns the text of a file in any encoding as UTF-8.
std::string Decode(std::string_view bytes);

/// Returns the first value (or the first two values) of each block of this name, in file order and
/// unescaped. Leaves out blocks that "#" switches off.
std::vector<std::vector<std::string>> Values(const std::string &text, const std::string &name);
std::vector<std::string> FirstValues(const std::string &text, const std::string &name);

/// Returns the payload of a binary shape or a texture without its container. Throws
/// std::runtime_error if a compressed part does not have exactly the declared size.
std::string Payload(std::string_view bytes);

class Installation
{
public:
    explicit Installation(std::string root);

    /// Returns the relative paths, with "/", of all files with this extension (in lower case, with
    /// the dot).
    std::vector<std::string> Files(std::string_view extension = {}) const;
    std::string Bytes(const std::string &path) const;
    std::string Text(const std::string &path) const { return Decode(Bytes(path)); }
    /// Returns whether the file exists in any letter case. Resolves ".." and "\" in the text.
    bool Has(std::string_view path) const;
    /// Returns the numbers of folders with stock, of stock files and of consists.
    std::vector<std::size_t> Totals() const;
    /// Returns "<referring file> -> <missing file>", in lower case, for all files that stock,
    /// consists, sounds, cab views and text shapes name.
    std::set<std::string> Unresolved() const;

private:
    using Found = std::set<std::string>;
    void need(Found &found, const std::string &from, const std::string &folder,
              const std::string &name) const;
    void scanStock(Found &found, const std::string &path, const std::string &text) const;
    void scanShape(Found &found, const std::string &path, const std::string &text) const;

    std::string m_root;
    std::map<std::string, std::string> m_files; ///< lower case to the spelling on disk
};

/// Resolves "\", "." and ".." and returns the path in lower case.
std::string Plain(std::string_view path);

} // namespace scan
