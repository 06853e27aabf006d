// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

namespace support {

/// Gives up root's privileges during its life, so that file permissions apply.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        if (m_wasRoot && (setegid(65534) != 0 || seteuid(65534) != 0))
            ADD_FAILURE() << "cannot give up the administrator's rights";
    }
    ~OrdinaryUser()
    {
        if (m_wasRoot && (seteuid(0) != 0 || setegid(0) != 0))
            ADD_FAILURE() << "cannot take the administrator's rights back";
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    const bool m_wasRoot = geteuid() == 0;
};

} // namespace support
