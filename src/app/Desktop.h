// SPDX-License-Identifier: MIT
#pragma once

#include "app/ProgramStart.h"

#include <string>

namespace app {

/// The desktop around the program. The program uses Qt for it; tests record the requests.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Starts a program without waiting for it. Throws RuntimeError 75 if the system refuses.
    virtual void Start(const ProgramStart &start) = 0;
    /// Opens a file with the user's program for such files; returns false if there is none.
    virtual bool Open(const std::string &file) = 0;
    /// Opens a web address in the default browser; returns false if there is none.
    virtual bool OpenWeb(const std::string &address) = 0;
    /// Associates consist files with this program. Fails as app::AssociateConsistFiles does.
    virtual void AssociateConsistFiles() = 0;
    /// Moves a file on disk to the user's wastebasket, from which the desktop can restore it.
    /// Returns false when the file's volume has no wastebasket, or the wastebasket does not accept
    /// the file; the file then stays where it is. Throws RuntimeError 53, 70, 75 or 76, with the
    /// path and the reason, when the file cannot be moved at all.
    virtual bool MoveToWastebasket(const std::string &file) = 0;
};

} // namespace app
