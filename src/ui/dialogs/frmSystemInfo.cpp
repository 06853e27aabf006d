// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmSystemInfo.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmSystemInfo::frmSystemInfo(const QString &facts, QWidget *parent)
    : QDialog(parent)
    , txtFacts(new QPlainTextEdit(facts, this))
    , cmdCopy(new QPushButton(QStringLiteral("C&opy"), this))
    , cmdClose(new QPushButton(QStringLiteral("&Close"), this))
{
    setObjectName("frmSystemInfo");
    setWindowTitle(QStringLiteral("System Info"));
    txtFacts->setObjectName("txtFacts");
    txtFacts->setAccessibleName(QStringLiteral("Facts"));
    txtFacts->setReadOnly(true);
    txtFacts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtFacts->setTabChangesFocus(true);
    txtFacts->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtFacts->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtFacts->document()->setDocumentMargin(8);
    cmdCopy->setObjectName("cmdCopy");
    cmdCopy->setToolTip(QStringLiteral("Copy all of it, to paste into a report"));
    cmdCopy->setAutoDefault(false);
    cmdClose->setObjectName("cmdClose");
    cmdClose->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdCopy);
    buttons->addWidget(cmdClose);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addWidget(txtFacts, 1);
    layout->addLayout(buttons);
    resize(620, 400); // fits a screen of 640x480

    connect(cmdCopy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(txtFacts->toPlainText()); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}
