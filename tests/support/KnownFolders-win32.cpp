// SPDX-License-Identifier: MIT
#include "support/KnownFolders.h"

#include "host/Disk-win32.h"
#include "host/RegistrySettings-win32.h"
#include "host/Windows-win32.h"

#include <optional>
#include <stdexcept>

namespace support {
namespace {

/// A registry value whose former text is restored (or removed) at the end.
class ScopedValue
{
public:
    ScopedValue(HKEY root, const std::string &key, const std::string &name)
        : m_root(root)
        , m_key(host::disk::Wide(key))
        , m_name(host::disk::Wide(name))
        , m_before(Get())
    {
        remove();
    }
    ~ScopedValue()
    {
        if (m_before)
            write(*m_before);
        else
            remove();
    }
    ScopedValue(const ScopedValue &) = delete;
    ScopedValue &operator=(const ScopedValue &) = delete;

    std::optional<std::wstring> Get() const
    {
        wchar_t text[4096] = {};
        DWORD bytes = sizeof text;
        const LSTATUS status = RegGetValueW(m_root, m_key.c_str(), m_name.c_str(), RRF_RT_REG_SZ,
                                            nullptr, text, &bytes);
        return status == ERROR_SUCCESS ? std::optional<std::wstring>(text) : std::nullopt;
    }
    void Set(const std::string &text)
    {
        if (!write(host::disk::Wide(text)))
            throw std::runtime_error("cannot write to the registry: run this as administrator");
    }

private:
    bool write(const std::wstring &text)
    {
        return RegSetKeyValueW(m_root, m_key.c_str(), m_name.c_str(), REG_SZ, text.c_str(),
                               static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) ==
               ERROR_SUCCESS;
    }
    void remove() { RegDeleteKeyValueW(m_root, m_key.c_str(), m_name.c_str()); }

    HKEY m_root;
    std::wstring m_key, m_name;
    std::optional<std::wstring> m_before;
};

constexpr char kSimulator[] = "Microsoft\\Microsoft Games\\Train Simulator\\1.0";
constexpr char kSettings[] = "Software\\ZELK\\Settings";

} // namespace

struct KnownFolders::Store
{
    ScopedValue path32{HKEY_LOCAL_MACHINE, std::string("SOFTWARE\\Wow6432Node\\") + kSimulator,
                       "Path"};
    ScopedValue path64{HKEY_LOCAL_MACHINE, std::string("SOFTWARE\\") + kSimulator, "Path"};
    ScopedValue left{HKEY_CURRENT_USER, kSettings, "MainLeft"};
    ScopedValue top{HKEY_CURRENT_USER, kSettings, "MainTop"};
    ScopedValue width{HKEY_CURRENT_USER, kSettings, "MainWidth"};
    ScopedValue height{HKEY_CURRENT_USER, kSettings, "MainHeight"};
    ScopedValue screenShots{HKEY_CURRENT_USER, kSettings, "ScreenShotDir"};
    ScopedValue location{HKEY_CURRENT_USER, kSettings, "MSTSDir"};
};

KnownFolders::KnownFolders(std::string)
    : m_store(std::make_unique<Store>())
{
}

KnownFolders::~KnownFolders() = default;

void KnownFolders::Register(const std::string &folder)
{
    m_store->path32.Set(folder);
}

void KnownFolders::Set(const std::string &key, const std::string &value)
{
    host::RegistrySettings().Write(key, value);
}

std::string KnownFolders::Setting(const std::string &key) const
{
    return host::RegistrySettings().Read(key).value_or("");
}

} // namespace support
