// SPDX-License-Identifier: MIT
#include "host/RegistrySettings-win32.h"

#include "host/Disk-win32.h"
#include "host/RuntimeError.h"
#include "host/Windows-win32.h"

#include <gtest/gtest.h>

namespace {

class RegistrySettingsTest : public testing::Test
{
protected:
    ~RegistrySettingsTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, m_parent.c_str()); }

    const std::wstring m_parent = L"Software\\ZELK tests " + std::to_wstring(GetCurrentProcessId());
    const std::string key = host::disk::Narrow(m_parent);
};

TEST_F(RegistrySettingsTest, ReturnsStoredValues)
{
    host::RegistrySettings settings(key);
    EXPECT_EQ(settings.Read("MSTSDir"), std::nullopt);
    for (const std::string &text : {std::string("C:\\Züge 日本 🚂"), std::string(),
                                    std::string(" x "), std::string(5000, 'x')}) {
        settings.Write("MSTSDir", text);
        EXPECT_EQ(host::RegistrySettings(key).Read("mstsdir"), text);
    }
    settings.WriteTo("Windows", "MSTSDir", "other");
    EXPECT_EQ(settings.Read("MSTSDir"), std::string(5000, 'x'));
    EXPECT_EQ(settings.ReadFrom("windows", "MSTSDir"), "other");
    settings.Write("MainLeft", "a\r\nb");
    EXPECT_EQ(settings.Read("MainLeft"), "a  b");
}

TEST_F(RegistrySettingsTest, HandlesOtherValuesAndErrors)
{
    const std::wstring path = host::disk::Wide(key + "\\Settings");
    const DWORD number = 7;
    RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), L"MainTop", REG_DWORD, &number, sizeof number);
    RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), L"MainLeft", REG_SZ, L"12\0x", 10);
    host::RegistrySettings settings(key);
    EXPECT_EQ(settings.Read("MainTop"), std::nullopt);
    EXPECT_EQ(settings.Read("MainLeft"), "12");
    host::RegistrySettings impossible(key + '\\' + std::string(300, 'x'));
    EXPECT_EQ(impossible.Read("MainTop"), std::nullopt);
    EXPECT_THROW(impossible.Write("MainTop", "1"), host::RuntimeError);
}

} // namespace
