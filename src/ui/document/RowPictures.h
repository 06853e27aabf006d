// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QTimer>

#include <functional>
#include <set>
#include <string>

namespace document {

class ListView;
class StockListModel;
class StockPictures;

/// The pictures in the rows of a stock list, while the user wants them. Only the rows in view, and
/// those next to them, are drawn; a picture appears when it is ready.
class RowPictures : public QObject
{
    Q_OBJECT

public:
    using PathOf = std::function<std::string(const StockItem &item)>;

    /// `pathOf` returns the stock file of an item. All arguments must outlive this object.
    RowPictures(ListView &list, StockListModel &model, StockPictures &pictures, PathOf pathOf,
                QObject *parent = nullptr);
    ~RowPictures() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QVariant pictureOf(const StockItem &item);
    void showOrHide();
    void want();
    void take(const std::string &stockFile, const QImage &picture);
    void lookAgain();

    ListView &m_list;
    StockListModel &m_model;
    StockPictures &m_pictures;
    PathOf m_pathOf;
    QCache<QString, QPixmap> m_known; ///< by stock file; a null one cannot be drawn
    std::set<std::string> m_checked;  ///< known ones that need not be looked at again
    QTimer m_timer;
};

} // namespace document
