// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace host::disk {

/// While it exists, it keeps the folder open in which this thread has read several files one after
/// the other, and Read opens the next ones relative to it: the system need not follow the whole
/// path for each file. If the folder is renamed in the meantime, its files are still found. For
/// threads that end with their work, since an open folder keeps a disk in use. Does nothing on
/// Windows.
class OpenFolder
{
public:
    OpenFolder();
    ~OpenFolder();
    OpenFolder(const OpenFolder &) = delete;
    OpenFolder &operator=(const OpenFolder &) = delete;

    /// Opens a file like open(2), relative to this thread's folder if possible.
    static int OpenFile(const std::string &path, int flags);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace host::disk
