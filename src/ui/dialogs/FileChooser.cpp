// SPDX-License-Identifier: MIT
#include "ui/dialogs/FileChooser.h"

#include "host/Disk.h"
#include "host/Path.h"
#include "host/Text.h"

#include <QComboBox>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace app {
namespace {

std::vector<host::disk::ListedName> namesIn(const std::string &folder)
{
    const auto listing = host::disk::List(folder);
    return listing ? listing->names : std::vector<host::disk::ListedName>();
}

} // namespace

std::vector<std::string> PathsShownAs(const QString &shown)
{
    if (!shown.contains(QChar::ReplacementCharacter))
        return {shown.toStdString()};
    std::vector<std::string> paths = {""};
    for (const QString &step : shown.split(QLatin1Char('/'))) {
        std::vector<std::string> next;
        for (const std::string &path : paths) {
            if (!step.contains(QChar::ReplacementCharacter)) {
                next.push_back(step.isEmpty() ? path + "/"
                                              : host::disk::Join(path, step.toStdString()));
                continue;
            }
            for (const host::disk::ListedName &entry : namesIn(path))
                if (QString::fromUtf8(entry.name.c_str()) == step)
                    next.push_back(host::disk::Join(path, entry.name));
        }
        paths = std::move(next);
    }
    return paths;
}

FileChooser::FileChooser(QWidget *parent)
    : QFileDialog(parent)
{
    addForeignNames();
}

void FileChooser::addForeignNames()
{
    auto *grid = qobject_cast<QGridLayout *>(layout());
    auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    if (!grid || !name)
        return;
    cboForeign = new QComboBox(this);
    cboForeign->setObjectName("cboForeign");
    cboForeign->setAccessibleName(QStringLiteral("Names in an old encoding"));
    cboForeign->setToolTip(QStringLiteral("Files of this folder that the list above cannot show"));
    grid->addWidget(cboForeign, grid->rowCount(), 0, 1, grid->columnCount());
    connect(cboForeign, &QComboBox::textActivated, name, &QLineEdit::setText);
    if (const auto *model = findChild<QFileSystemModel *>())
        connect(model, &QFileSystemModel::rootPathChanged, this, &FileChooser::listForeignNames);
    listForeignNames();
}

void FileChooser::listForeignNames()
{
    cboForeign->clear();
    cboForeign->setPlaceholderText(QStringLiteral("Names in an old encoding"));
    QStringList names;
    for (const host::disk::ListedName &entry : namesIn(directory().path().toStdString()))
        if (entry.kind == host::disk::Kind::File && !host::IsValidUtf8(entry.name))
            names << QString::fromStdString(host::FromWindows1252(entry.name));
    names.sort(Qt::CaseInsensitive);
    cboForeign->addItems(names);
    cboForeign->setCurrentIndex(-1);
    cboForeign->setVisible(!names.isEmpty());
}

void FileChooser::accept()
{
    const QStringList chosen = selectedFiles();
    const bool isOurs = acceptMode() == AcceptOpen && chosen.size() == 1 &&
                        !QFileInfo::exists(chosen.front()) &&
                        m_files.FileExists(chosen.front().toStdString());
    if (isOurs)
        QDialog::accept(); // the base class would report a missing file
    else
        QFileDialog::accept();
}

} // namespace app
