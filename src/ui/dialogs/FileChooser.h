// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"

#include <QFileDialog>

#include <string>
#include <vector>

class QComboBox;

namespace app {

/// Returns the paths on disk that the toolkit displays as `shown`. The toolkit replaces bytes that
/// are not UTF-8, so several names can look alike; a path without replaced characters is unique.
/// Empty if no path is displayed like that.
std::vector<std::string> PathsShownAs(const QString &shown);

/// A file dialog that can open all files. The toolkit's own leaves out names that are not UTF-8;
/// this one lists those of the folder in a separate box. It also opens what GameFiles finds under a
/// typed name: such files, and names in another letter case.
class FileChooser : public QFileDialog
{
    Q_OBJECT

public:
    explicit FileChooser(QWidget *parent);

    void accept() override;

private:
    void addForeignNames();
    void listForeignNames();

    host::GameFiles m_files;
    QComboBox *cboForeign = nullptr; ///< null in native dialogs
};

} // namespace app
