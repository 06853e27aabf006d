// SPDX-License-Identifier: MIT
#pragma once

#include "host/Leftovers.h"

#include <string>

/// Returns the name of a file of this kind (OwnedFiles.h) that belongs to a process of this machine
/// that has ended.
inline std::string NameOfEndedProcess(const std::string &kind)
{
    host::disk::Writer writer = host::disk::ThisProcess();
    ++writer.start; // a process of the same number that started at another time
    return kind + host::disk::TemporaryName(writer, 0) + ".tmp";
}
