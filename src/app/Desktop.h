// SPDX-License-Identifier: MIT
#pragma once

#include "app/ProgramStart.h"

#include <string>

namespace app {

/// The desktop around the program: Qt's in the program, a record in tests.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Starts a program without waiting for it. RuntimeError 75 when the system refuses.
    virtual void Start(const ProgramStart &start) = 0;
    /// Opens a file with what the user reads such files with; false when there is nothing.
    virtual bool Open(const std::string &file) = 0;
    /// Opens a web address in the default browser; false when there is none.
    virtual bool OpenWeb(const std::string &address) = 0;
    /// Makes this program what opens consist files. Fails as AssociateConsistFiles does.
    virtual void AssociateConsistFiles() = 0;
    /// Moves a file of the disk to the user's wastebasket, from which the desktop can restore it.
    /// Returns false when the file's volume has no wastebasket, or it does not accept the file; the
    /// file then stays. Throws RuntimeError 53, 70, 75 or 76, with the path and the reason, when
    /// the file cannot be moved at all.
    virtual bool MoveToWastebasket(const std::string &file) = 0;
};

} // namespace app
