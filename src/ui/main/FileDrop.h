// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <string>
#include <vector>

class QDropEvent;
class frmMain;

namespace app {

class FileOpener;
class MstsLocation;

/// Opens files that are dropped on the main window, and offers to work on a dropped installation
/// folder.
class FileDrop : public QObject
{
public:
    FileDrop(frmMain &window, FileOpener &opener, MstsLocation &location);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void take(QDropEvent &event);
    void open(const std::vector<std::string> &paths);
    /// Calls `act` from the event loop.
    template <typename Act> void later(Act act);

    frmMain &m_window;
    FileOpener &m_opener;
    MstsLocation &m_location;
};

} // namespace app
