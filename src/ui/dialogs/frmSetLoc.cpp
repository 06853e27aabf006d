// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmSetLoc.h"

#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "install/TypedLocation.h"
#include "ui/widgets/NamedControls.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTreeView>
#include <QVBoxLayout>

frmSetLoc::frmSetLoc(host::GameFiles &files, QWidget *parent)
    : QDialog(parent)
    , drvLocation(new QComboBox(this))
    , dirLocation(new QTreeView(this))
    , txtLocation(new QLineEdit(this))
    , cmdSetDefault(new QPushButton(QStringLiteral("&Reset"), this))
    , OKButton(new QPushButton(QStringLiteral("OK"), this))
    , CancelButton(new QPushButton(QStringLiteral("Cancel"), this))
    , lblHint(new QLabel(this))
    , m_files(files)
    , m_folders(new QFileSystemModel(this))
{
    setWindowTitle(QStringLiteral("Location"));
    nameControls();
    arrangeControls();
    fillDrives();

    connect(drvLocation, &QComboBox::currentIndexChanged, this, &frmSetLoc::showDrive);
    connect(dirLocation->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmSetLoc::showChosenFolder);
    // Folders arrive one by one and are sorted later, which moves the chosen one out of view.
    connect(m_folders, &QFileSystemModel::directoryLoaded, this, &frmSetLoc::keepChosenInView,
            Qt::QueuedConnection);
    connect(m_folders, &QFileSystemModel::layoutChanged, this, &frmSetLoc::keepChosenInView,
            Qt::QueuedConnection);
    connect(m_folders, &QFileSystemModel::rowsInserted, this, &frmSetLoc::keepChosenInView,
            Qt::QueuedConnection);
    connect(txtLocation, &QLineEdit::textChanged, this, &frmSetLoc::showHint);
    showHint();
    connect(cmdSetDefault, &QPushButton::clicked, this,
            [this] { SetLocation(install::Installation::RegisteredFolder()); });
    connect(OKButton, &QPushButton::clicked, this, &frmSetLoc::takeLocation);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSetLoc::nameControls()
{
    setObjectName("frmSetLoc");
    const install::NamedControl controls[] = {
        {drvLocation, "drvLocation", "Drive", "Drive that holds the Train Simulator folder"},
        {dirLocation, "dirLocation", "Folders", "Choose the Train Simulator folder"},
        {txtLocation, "txtLocation", "Location", "Path of the Train Simulator folder"},
        {lblHint, "lblHint", "", "What is wrong with the folder, if anything"},
        {cmdSetDefault, "cmdSetDefault", "Reset",
         "Back to the folder that Train Simulator registered"},
        {OKButton, "OKButton", "OK", "Use this folder"},
        {CancelButton, "CancelButton", "Cancel", "Leave the location as it is"},
    };
    install::NameControls(controls);
}

void frmSetLoc::keepChosenInView()
{
    if (!m_userHasChosen)
        dirLocation->scrollTo(dirLocation->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void frmSetLoc::arrangeControls()
{
    m_folders->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    m_folders->setReadOnly(true);
    dirLocation->setModel(m_folders);
    dirLocation->setHeaderHidden(true);
    dirLocation->setUniformRowHeights(true);
    for (int column = 1; column < m_folders->columnCount(); ++column)
        dirLocation->hideColumn(column);
    OKButton->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdSetDefault);
    buttons->addStretch(1);
    buttons->addWidget(OKButton);
    buttons->addWidget(CancelButton);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(drvLocation);
    layout->addWidget(dirLocation, 1);
    layout->addWidget(txtLocation);
    lblHint->setTextFormat(Qt::PlainText);
    lblHint->setWordWrap(true);
    lblHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblHint->setMinimumHeight(2 * lblHint->fontMetrics().lineSpacing()); // for the longest hint
    lblHint->setBuddy(txtLocation);
    layout->addWidget(lblHint);
    layout->addLayout(buttons);
    resize(420, 420);
}

void frmSetLoc::fillDrives()
{
    for (const host::Volume &volume : host::Volumes())
        drvLocation->addItem(QString::fromStdString(volume.label),
                             QString::fromStdString(volume.path));
    if (drvLocation->count() > 0)
        showDrive(0);
}

void frmSetLoc::SetLocation(const std::string &path)
{
    if (const auto folder = path.empty() ? std::nullopt : m_files.FindFolder(path)) {
        // The tree reports its choice in the disk's spelling; the text keeps the given one.
        const QScopedValueRollback<bool> setting(m_settingLocation, true);
        const std::string onDisk = host::path::FromDisk(*folder);
        selectDrive(onDisk);
        const QModelIndex index = m_folders->index(QString::fromStdString(onDisk));
        dirLocation->setCurrentIndex(index);
        dirLocation->expand(index);
        m_userHasChosen = false;
        dirLocation->scrollTo(index, QAbstractItemView::PositionAtCenter);
    }
    txtLocation->setText(QString::fromStdString(path));
}

/// Selects the volume of a folder: that with the longest path that the folder begins with.
void frmSetLoc::selectDrive(const std::string &folder)
{
    int best = -1;
    qsizetype length = -1;
    const QString path = QString::fromStdString(folder) + QDir::separator();
    for (int i = 0; i < drvLocation->count(); ++i) {
        QString root = QDir::toNativeSeparators(drvLocation->itemData(i).toString());
        if (!root.endsWith(QDir::separator()))
            root += QDir::separator();
        if (path.startsWith(root) && root.size() > length) {
            best = i;
            length = root.size();
        }
    }
    if (best < 0)
        return;
    drvLocation->setCurrentIndex(best);
    showDrive(best);
}

void frmSetLoc::showDrive(int index)
{
    const QString root = drvLocation->itemData(index).toString();
    dirLocation->setRootIndex(m_folders->setRootPath(root));
    if (!m_settingLocation)
        txtLocation->setText(QDir::toNativeSeparators(root));
}

void frmSetLoc::showChosenFolder(const QModelIndex &index)
{
    if (m_settingLocation || !index.isValid())
        return;
    m_userHasChosen = true;
    txtLocation->setText(QDir::toNativeSeparators(m_folders->filePath(index)));
}

/// Only shows a hint: the user may choose any folder, since it may be filled later.
void frmSetLoc::showHint()
{
    const QString hint =
        QString::fromStdString(install::LocationHint(m_files, txtLocation->text().toStdString()));
    lblHint->setText(hint);
    txtLocation->setAccessibleDescription(QStringLiteral("txtLocation. ") + hint);
}

void frmSetLoc::takeLocation()
{
    Cancelled = false;
    Location = install::ChosenLocation(txtLocation->text().toStdString());
    txtLocation->setText(QString::fromStdString(Location));
    accept();
}
