// SPDX-License-Identifier: MIT
#include "ui/document/UnitMime.h"

#include "document/UnitClipboard.h"

#include <QMimeData>
#include <QString>

namespace document {

namespace {

const QString kFormat = QStringLiteral("application/x-zelk-units");

} // namespace

std::unique_ptr<QMimeData> UnitMime(const CopiedUnits &units)
{
    auto content = std::make_unique<QMimeData>();
    content->setData(kFormat, QByteArray::fromStdString(units.blocks));
    content->setText(QString::fromStdString(units.text));
    return content;
}

bool HoldsUnits(const QMimeData &content)
{
    return content.hasFormat(kFormat) || !UnitsInText(content.text().toStdString()).empty();
}

std::vector<StfNode> UnitsIn(const QMimeData &content, host::GameFiles &files)
{
    return content.hasFormat(kFormat) ? UnitsInBlocks(content.data(kFormat).toStdString(), files)
                                      : UnitsInText(content.text().toStdString());
}

} // namespace document
