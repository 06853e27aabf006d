// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"

#include <QFileDialog>

#include <string>
#include <vector>

class QComboBox;

namespace app {

/// The paths of the disk that the toolkit shows as `shown`. It replaces bytes that are not UTF-8,
/// so several names can look alike; a path without replaced characters is the only one. Empty when
/// nothing is shown as that.
std::vector<std::string> PathsShownAs(const QString &shown);

/// The toolkit's file dialog, which leaves out names that are not UTF-8. This one lists those of
/// the folder in a box of their own, and opens what GameFiles finds under a typed name: such files,
/// and names in another letter case.
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
    QComboBox *cboForeign = nullptr; ///< null in dialogs of the system
};

} // namespace app
