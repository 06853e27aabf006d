// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"
#include "stavfile/StfNode.h"

#include <QObject>

#include <deque>
#include <string>

namespace document {
class DocumentHost;
}

namespace app {

/// Opens files of all kinds in document windows.
class FileOpener : public QObject
{
public:
    /// `host` must outlive the object.
    FileOpener(const install::Environment &environment, document::DocumentHost &host);

    /// Opens a file, or shows a message with the reason why not. The loose consists of an activity
    /// open one after the other, the later ones from the event loop.
    void Open(const std::string &path);
    /// Returns the folder of the last file, or "" before the first.
    const std::string &LastFolder() const { return m_lastFolder; }

private:
    /// A loose consist of an activity whose window is not open yet.
    struct LooseConsist
    {
        std::string file;
        int number = 0, total = 0;
        StfNode trainCfg;
    };

    void openStock(const std::string &path);
    void openActivity(const std::string &path);
    void openNextLooseConsist();

    install::Environment m_environment;
    document::DocumentHost &m_host;
    std::string m_lastFolder;
    std::deque<LooseConsist> m_looseConsists;
};

} // namespace app
