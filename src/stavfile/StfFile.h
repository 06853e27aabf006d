// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
}

namespace stavfile {

enum class Encoding
{
    Utf16Le,
    Utf16Be,
    Utf8,
    Windows1252
};
/// "utf-16le", "utf-16be", "utf-8" or "windows-1252".
const char *EncodingName(Encoding encoding);

/// What a file turned out to be. All but Text give an empty tree.
enum class Form
{
    Text,
    Binary,
    Compressed,
    NulsOnly
};

/// Something that the reader mended, or that other readers will trip over.
struct Note
{
    int line = 0; ///< 1-based
    std::string text;
};

/// Blocks nested deeper than this are skipped with a note: no real file comes near it, and it
/// bounds every walk over a tree.
inline constexpr int kMaxBlockDepth = 200;

} // namespace stavfile

/// One structured file: its path and the tree of its blocks. The format is described in
/// docs/formats.md. Reading never fails on content: whatever is mended is noted.
class StfFile
{
public:
    /// Reads and writes through `files`, which must outlive this object.
    explicit StfFile(host::GameFiles &files);
    /// The file at `path`, read as by Load.
    static StfFile Read(host::GameFiles &files, std::string path);

    const std::string &FileName() const { return m_fileName; }
    void SetFileName(std::string path) { m_fileName = std::move(path); }

    /// Reads the file named by FileName, replacing the tree; handles on the old tree stay valid.
    /// RuntimeError 53, 70, 75 or 76 when it cannot be read (the tree is then unchanged). A file
    /// that is binary, compressed or all NULs gives an empty tree; Form says which.
    void Load();
    /// Makes this an empty new document again.
    void New();
    /// Like Load, but from bytes in memory, which errors call FileName.
    void LoadBytes(std::string bytes);

    /// Writes the tree to the file named by FileName, whole or not at all (GameFiles::WriteFile).
    /// Encoding, BOM, header, line ends and everything untouched are given back as read; a new
    /// document is UTF-16LE with BOM, header, CRLF and tabs. Where a new value does not fit the
    /// file's encoding the file becomes UTF-16LE.
    void Save();
    /// The bytes that Save would write.
    std::string ToBytes() const;

    /// The live list of top-level blocks; both names give the same list.
    StfNodes Nodes() const;
    StfNodes TopNodes() const { return Nodes(); }
    /// The first top-level block of this name, letter case ignored, or no object.
    StfNode FindNode(std::string_view name) const;
    /// Like FindNode, but error 91 when there is none: "FILE: there is no Train block".
    StfNode Require(std::string_view name) const;

    stavfile::Form Form() const;
    stavfile::Encoding Encoding() const;
    bool HasBom() const;
    /// The header line without its line end and trailing blanks; "" when there is none.
    std::string Header() const;
    const std::vector<stavfile::Note> &Notes() const;

private:
    host::GameFiles &m_files;
    std::string m_fileName;
    std::shared_ptr<stavfile::Node> m_root; ///< nameless block whose children are the top level
};
