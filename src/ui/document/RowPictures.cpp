// SPDX-License-Identifier: MIT
#include "ui/document/RowPictures.h"

#include "ui/document/StockListModel.h"
#include "ui/document/StockPictures.h"
#include "ui/widgets/ListView.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScrollBar>

#include <algorithm>
#include <vector>

namespace document {

namespace {

constexpr QSize kRowPicture(64, 32); // in logical pixels
constexpr int kKept = 3000;          // pictures in memory, 8 kB each
constexpr int kPauseMilliseconds = 20;

} // namespace

RowPictures::RowPictures(ListView &list, StockListModel &model, StockPictures &pictures,
                         PathOf pathOf, QObject *parent)
    : QObject(parent)
    , m_list(list)
    , m_model(model)
    , m_pictures(pictures)
    , m_pathOf(std::move(pathOf))
    , m_known(kKept)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(kPauseMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &RowPictures::want);
    connect(&m_pictures, &StockPictures::RowsChanged, this, &RowPictures::showOrHide);
    connect(&m_pictures, &StockPictures::LookedAgain, this, &RowPictures::lookAgain);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive) // files may have changed in another program
                    lookAgain();
            });
    connect(&m_pictures.Maker(), &viewer::VehiclePictures::ThumbnailReady, this,
            &RowPictures::take);
    m_list.viewport()->installEventFilter(this);
    showOrHide();
}

RowPictures::~RowPictures()
{
    m_pictures.Maker().Leave(*this);
}

void RowPictures::showOrHide()
{
    const bool shows = m_pictures.ShowsRows() && viewer::VehiclePictures::WhyNot().empty();
    m_model.SetPictures(
        shows ? StockListModel::PictureOf([this](const StockItem &item) { return pictureOf(item); })
              : StockListModel::PictureOf());
    m_list.SetPictureSize(shows ? kRowPicture : QSize());
    if (!shows) {
        m_timer.stop();
        m_pictures.Maker().Leave(*this);
    }
}

/// Every change of what the list shows makes it paint.
bool RowPictures::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && !m_list.PictureSize().isEmpty() && !m_timer.isActive())
        m_timer.start();
    return QObject::eventFilter(watched, event);
}

QVariant RowPictures::pictureOf(const StockItem &item)
{
    const QPixmap *known = m_known.object(QString::fromStdString(m_pathOf(item)));
    return known ? QVariant(*known) : QVariant();
}

/// Asks for the rows in view first, then for the next page and the previous one.
void RowPictures::want()
{
    const int top = m_list.indexAt({0, 0}).row(), rows = m_model.rowCount();
    if (top < 0)
        return;
    const int bottom = m_list.indexAt({0, m_list.viewport()->height() - 1}).row();
    const int end = bottom < 0 ? rows : bottom + 1, page = end - top;
    std::vector<std::string> wanted;
    const auto add = [&](int from, int to) {
        for (int row = std::max(from, 0); row < std::min(to, rows); ++row)
            if (std::string file = m_pathOf(m_model.Item(row)); !m_checked.contains(file))
                wanted.push_back(std::move(file));
    };
    add(top, end);
    add(end, end + page);
    add(top - page, top);
    if (wanted.empty())
        m_pictures.Maker().Leave(*this);
    else
        m_pictures.Maker().WantThumbnails(*this, std::move(wanted));
}

void RowPictures::take(const std::string &stockFile, const QImage &picture)
{
    if (m_list.PictureSize().isEmpty())
        return;
    const qreal density = m_list.devicePixelRatioF();
    auto *pixmap = new QPixmap;
    if (!picture.isNull()) {
        *pixmap = QPixmap::fromImage(picture.scaled((QSizeF(kRowPicture) * density).toSize(),
                                                    Qt::KeepAspectRatio, Qt::SmoothTransformation));
        pixmap->setDevicePixelRatio(density);
    }
    if (m_checked.size() >= kKept) // what was dropped from m_known is drawn again
        lookAgain();
    m_known.insert(QString::fromStdString(stockFile), pixmap);
    m_checked.insert(stockFile);
    m_list.viewport()->update();
}

void RowPictures::lookAgain()
{
    m_checked.clear();
    if (!m_list.PictureSize().isEmpty())
        m_timer.start();
}

} // namespace document
