// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {

/// The old content of a file that is being overwritten, in a folder of the user's own until the new
/// file is whole. A record beside it names the file, so that the content is not lost if the process
/// is killed in between. Not thread-safe.
class OldContent
{
public:
    /// Moves a file, given by its path on the disk, to the folder, which is created when it is
    /// needed. From another disk the file is copied, flushed and then deleted. Throws RuntimeError
    /// like GameFiles::RemoveFile, or if the folder cannot be written; the file then stays.
    explicit OldContent(const std::string &path, std::string folder = DefaultFolder());
    /// Returns "overwritten" in the user's state folder & "/zelk".
    static std::string DefaultFolder();

    /// Returns the path of the old content, and of the file that had it.
    const std::string &Place() const { return m_place; }
    const std::string &File() const { return m_file; }

    /// Deletes the old content, because the new file is whole.
    void Discard();
    /// Moves the old content back. Throws RuntimeError if there is another file of that name now,
    /// or if the file cannot be written; the content then stays where it is.
    void PutBack();
    /// Leaves the old content where it is for good.
    void Leave();

    /// Puts back the old content of files that do not exist, because the process that was
    /// overwriting them was killed. Returns a message for the user for each of them.
    static std::vector<std::string> Recover(const std::string &folder = DefaultFolder());

private:
    std::string m_file, m_place, m_record;
};

} // namespace host
