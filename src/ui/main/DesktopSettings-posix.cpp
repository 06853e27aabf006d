// SPDX-License-Identifier: MIT
#include "ui/main/DesktopSettings-posix.h"

#include "host/Folders.h"
#include "host/IniFile.h"

#include <QFile>

namespace app {

std::optional<std::string> DesktopSetting(const std::string &file, const char *section,
                                          const char *key)
{
    QFile source(QString::fromStdString(host::ConfigFolder() + "/" + file));
    if (!source.open(QIODevice::ReadOnly))
        return std::nullopt;
    constexpr qint64 limit = 1 << 20; // desktop settings are a few kilobytes
    return host::IniFile::FromText(source.read(limit).toStdString()).Value(section, key);
}

} // namespace app
