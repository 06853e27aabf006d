// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmAbout.h"

#include "app/modZELK.h"
#include "host/Product.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kIconSize = 64;

QLabel *label(const QString &text, double scale, const char *name)
{
    auto *label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(scale > 1);
    label->setFont(font);
    return label;
}

} // namespace

frmAbout::frmAbout(const QIcon &icon, const std::function<void(QWidget &about)> &showSystemInfo,
                   QWidget *parent)
    : QDialog(parent)
    , lvHistory(new QTreeWidget(this))
    , cmdSysInfo(new QPushButton(QStringLiteral("&System Info..."), this))
    , cmdOK(new QPushButton(QStringLiteral("OK"), this))
{
    setObjectName("frmAbout");
    setWindowTitle(QStringLiteral("About ZELK"));
    cmdSysInfo->setObjectName("cmdSysInfo");
    cmdSysInfo->setToolTip(QStringLiteral("Show the facts that a problem report needs"));
    cmdSysInfo->setAutoDefault(false);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    fillHistory();

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdSysInfo);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(12);
    layout->addWidget(heading(icon));
    layout->addWidget(lvHistory, 1);
    layout->addLayout(buttons);
    resize(440, 280);
    cmdOK->setFocus();

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this,
            [this, showSystemInfo] { showSystemInfo(*this); });
}

QWidget *frmAbout::heading(const QIcon &icon)
{
    auto *heading = new QWidget(this);
    auto *picture = new QLabel;
    picture->setPixmap(icon.pixmap(kIconSize, kIconSize));
    picture->setAccessibleName(QStringLiteral("Icon of the program"));
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(label(QString::fromStdString(modZELK::AboutCaption()), 1.6, "lblTitle"));
    texts->addWidget(label(QStringLiteral("Lists, edits, checks and shows rolling stock and "
                                          "consists of Microsoft Train Simulator."),
                           1, "lblDescription"));
    texts->addWidget(
        label(QStringLiteral("Free software under the MIT licence."), 1, "lblLicence"));
    auto *layout = new QHBoxLayout(heading);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    layout->addWidget(picture, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    return heading;
}

void frmAbout::fillHistory()
{
    lvHistory->setObjectName("lvHistory");
    lvHistory->setAccessibleName(QStringLiteral("Version history"));
    lvHistory->setHeaderLabels({QStringLiteral("Version"), QStringLiteral("Note")});
    lvHistory->setRootIsDecorated(false);
    lvHistory->setUniformRowHeights(true);
    for (const auto &[version, note] : host::product::kHistory)
        new QTreeWidgetItem(lvHistory, {QString::fromLatin1(version), QString::fromLatin1(note)});
    lvHistory->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
}
