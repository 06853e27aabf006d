// SPDX-License-Identifier: MIT
#include "host/Windows-win32.h"
#include "install/Registry.h"

#include "install/Installation.h"

#include <gtest/gtest.h>

namespace {

const std::wstring kName = L"ZELK tests " + std::to_wstring(GetCurrentProcessId());

/// A key in the machine's hive, which only administrators may write.
class MachineRegistryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!set(KEY_WOW64_64KEY, L"Other", L"x"))
            GTEST_SKIP() << "needs an administrator";
    }
    void TearDown() override
    {
        for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY})
            RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (L"SOFTWARE\\" + kName).c_str(), view, 0);
    }
    static bool set(REGSAM view, const wchar_t *name, const std::wstring &text, DWORD type = REG_SZ)
    {
        HKEY key = nullptr;
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, (L"SOFTWARE\\" + kName).c_str(), 0, nullptr, 0,
                            KEY_SET_VALUE | view, nullptr, &key, nullptr) != ERROR_SUCCESS)
            return false;
        const LSTATUS status =
            RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE *>(text.data()),
                           static_cast<DWORD>(text.size() * sizeof(wchar_t)));
        RegCloseKey(key);
        return status == ERROR_SUCCESS;
    }
    static std::string query(const char *value)
    {
        return Registry::QueryValue("SOFTWARE\\" + std::string(kName.begin(), kName.end()), value);
    }
};

TEST_F(MachineRegistryTest, Reads32BitViewFirst)
{
    EXPECT_EQ(query("Path"), "");
    set(KEY_WOW64_64KEY, L"Path", L"C:\\64");
    EXPECT_EQ(query("path"), "C:\\64");
    set(KEY_WOW64_32KEY, L"Path", L"");
    EXPECT_EQ(query("Path"), "C:\\64");
    set(KEY_WOW64_32KEY, L"Path", L"C:\\32");
    EXPECT_EQ(query("Path"), "C:\\32");
    EXPECT_EQ(Registry::QueryValue("SOFTWARE\\No such key of ZELK", "Path"), "");
}

TEST_F(MachineRegistryTest, ReadsValuesOfEveryKind)
{
    set(KEY_WOW64_32KEY, L"Nul", std::wstring(L"C:\\cut\0here", 11));
    EXPECT_EQ(query("Nul"), "C:\\cut");
    set(KEY_WOW64_32KEY, L"Long", std::wstring(3000, L'ü'));
    EXPECT_EQ(query("Long").size(), 6000u);
    set(KEY_WOW64_32KEY, L"Variable", L"%SystemDrive%\\x", REG_EXPAND_SZ);
    EXPECT_EQ(query("Variable"), "C:\\x");
    set(KEY_WOW64_32KEY, L"Number", L"12", REG_BINARY);
    EXPECT_EQ(query("Number"), "");
}

/// Redirects the machine's hive to a key of the user, so that the test changes no real entry.
class RegisteredProgramsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, m_path.c_str(), &m_hive), ERROR_SUCCESS);
        ASSERT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, m_hive), ERROR_SUCCESS);
    }
    void TearDown() override
    {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegCloseKey(m_hive);
        RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
    }
    void set(const std::wstring &key, const wchar_t *name, const std::wstring &text)
    {
        ASSERT_EQ(RegSetKeyValueW(m_hive, key.c_str(), name, REG_SZ, text.c_str(),
                                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }

private:
    const std::wstring m_path = L"Software\\" + kName;
    HKEY m_hive = nullptr;
};

TEST_F(RegisteredProgramsTest, FindsRegisteredProgramsAndFolders)
{
    install::Installation installation;
    EXPECT_EQ(installation.CurrentFolder(), "");
    EXPECT_EQ(install::FindShapeViewer(), "");
    set(L"SOFTWARE\\Microsoft\\Microsoft Games\\Train Simulator\\1.0", L"Path", L"D:\\Züge\\MSTS");
    EXPECT_EQ(installation.CurrentFolder(), "D:\\Züge\\MSTS");
    EXPECT_EQ(installation.ConsistPath("Güter"), "D:\\Züge\\MSTS\\Trains\\Consists\\Güter.con");
    EXPECT_EQ(install::ChosenLocation("D:\\Züge\\MSTS"), "$MSTS");
    installation.SetLocation("E:/copy");
    EXPECT_EQ(installation.PathOf("Routes"), "E:\\copy\\Routes");

    const std::wstring setup =
        L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\ST6UNST #3";
    set(setup, L"ApplicationName", L"QView.exe");
    set(setup, L"UninstallString",
        L"C:\\WINDOWS\\st6unst.exe -n \"C:\\Games\\QView\\ST6UNST.LOG\"");
    EXPECT_EQ(install::FindShapeViewer(), "C:\\Games\\QView\\QView.exe");
}

} // namespace
