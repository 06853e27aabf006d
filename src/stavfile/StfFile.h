// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Format.h"
#include "stavfile/StfNode.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
}

/// One structured file: its path and the tree of its blocks, in the format of docs/formats.md.
/// Reading never fails on content: every repair gets a note.
class StfFile
{
public:
    /// Reads and writes through `files`, which must outlive this object.
    explicit StfFile(host::GameFiles &files);
    /// Returns the file at `path`. Throws as Load.
    static StfFile Read(host::GameFiles &files, std::string path);

    const std::string &FileName() const { return m_fileName; }
    void SetFileName(std::string path) { m_fileName = std::move(path); }

    /// Reads the file named by FileName and replaces the tree; handles on the old tree stay valid.
    /// Throws RuntimeError 53, 70, 75 or 76, and leaves the tree unchanged, if the file cannot be
    /// read. A file that is binary, compressed or all NULs gives an empty tree; Form returns which.
    void Load();
    /// Resets this to an empty new document.
    void New();
    /// Like Load, but from bytes in memory. Errors name FileName as their file.
    void LoadBytes(std::string bytes);

    /// Writes the tree to the file named by FileName, whole or not at all (GameFiles::WriteFile).
    /// Keeps encoding, BOM, header, line ends and everything untouched as read. A new document is
    /// UTF-16LE with BOM, header, CRLF and tabs. If a new value does not fit the file's encoding,
    /// the file becomes UTF-16LE.
    void Save();
    /// Returns the bytes that Save would write.
    std::string ToBytes() const;

    /// Return the live list of top-level blocks; both names give the same list.
    StfNodes Nodes() const;
    StfNodes TopNodes() const { return Nodes(); }
    /// Returns the first top-level block of this name, ignoring letter case, or no object.
    StfNode FindNode(std::string_view name) const;
    /// Like FindNode, but throws error 91 if there is none: "FILE: there is no Train block".
    StfNode Require(std::string_view name) const;

    stavfile::Form Form() const;
    stavfile::Encoding Encoding() const;
    bool HasBom() const;
    /// Returns the header line without line end and trailing blanks; "" if there is none.
    std::string Header() const;
    const std::vector<stavfile::Note> &Notes() const;

private:
    host::GameFiles &m_files;
    std::string m_fileName;
    std::shared_ptr<stavfile::Node> m_root; ///< nameless block whose children are the top level
};
