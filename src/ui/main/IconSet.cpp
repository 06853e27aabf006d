// SPDX-License-Identifier: MIT
#include "ui/main/IconSet.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

// Outside every namespace, as the resource macro requires.
static void loadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace app {

namespace {

/// Returns the smallest drawing that need not be enlarged.
QString fileFor(const QString &name, int side)
{
    for (const int size : {16, 24, 32, 48})
        if (side <= size)
            return QStringLiteral(":/icons/%1-%2.png").arg(name).arg(size);
    return QStringLiteral(":/icons/%1-48.png").arg(name);
}

class TintedIconEngine : public QIconEngine
{
public:
    explicit TintedIconEngine(QString name)
        : m_name(std::move(name))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor colour = textColour(mode);
        const int side = std::min(size.width(), size.height());
        const QString key =
            QStringLiteral("zelk %1 %2 %3").arg(m_name).arg(side).arg(colour.rgba(), 0, 16);
        QPixmap tinted;
        if (!QPixmapCache::find(key, &tinted)) {
            tinted = draw(side, colour);
            QPixmapCache::insert(key, tinted);
        }
        return tinted;
    }

    QIconEngine *clone() const override { return new TintedIconEngine(m_name); }

private:
    static QColor textColour(QIcon::Mode mode)
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role =
            mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        return QApplication::palette().color(group, role);
    }

    QPixmap draw(int side, const QColor &colour) const
    {
        // Converts it first: scaling an image with a colour table would use only the colours of the
        // table.
        QImage image = QImage(fileFor(m_name, side))
                           .convertToFormat(QImage::Format_ARGB32_Premultiplied)
                           .scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), colour);
        painter.end();
        return QPixmap::fromImage(image);
    }

    QString m_name;
};

} // namespace

QIcon TintedIcon(const char *name)
{
    loadIcons();
    return QIcon(new TintedIconEngine(QString::fromLatin1(name)));
}

QIcon ProgramIcon()
{
    loadIcons();
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/zelk-%1.png").arg(size));
    return icon;
}

} // namespace app
