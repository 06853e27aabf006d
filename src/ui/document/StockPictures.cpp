// SPDX-License-Identifier: MIT
#include "ui/document/StockPictures.h"

#include "ui/document/EditorLayout.h"

namespace document {

StockPictures::StockPictures(const install::Environment &environment, EditorLayout &layout,
                             QObject *parent)
    : QObject(parent)
    , m_layout(layout)
    , m_maker(environment, viewer::PictureCache::UserFolder())
{
}

bool StockPictures::ShowsPreview() const
{
    return m_layout.preview;
}

void StockPictures::ShowPreview(bool show)
{
    m_layout.preview = show;
    Q_EMIT PreviewChanged();
}

bool StockPictures::ShowsRows() const
{
    return m_layout.stockPictures;
}

void StockPictures::ShowRows(bool show)
{
    m_layout.stockPictures = show;
    Q_EMIT RowsChanged();
}

} // namespace document
