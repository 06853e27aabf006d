// SPDX-License-Identifier: MIT
#include "document/ConsistNames.h"

#include "host/RuntimeError.h"
#include "host/Text.h"

#include <algorithm>

namespace document {
namespace {

[[noreturn]] void refuse(const std::string &path, const char *reason)
{
    throw host::RuntimeError(host::ErrorNumber::PathFileAccess, path + ": " + reason);
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20;
}

} // namespace

void CheckConsistName(const std::string &name, const std::string &path)
{
    if (host::TrimBlanks(name).empty())
        refuse(path, "the name consists of blanks, so that no list could show it. Choose another "
                     "one.");
}

void CheckPortableConsistName(const std::string &name, const std::string &path)
{
    CheckConsistName(name, path);
    if (name.find_first_of("\\/:*?\"<>|") != std::string::npos)
        refuse(path, "the name of a consist cannot hold any of \\ / : * ? \" < > |");
    if (std::any_of(name.begin(), name.end(), isControl))
        refuse(path, "the name of a consist cannot hold tabs or line breaks.");
}

} // namespace document
