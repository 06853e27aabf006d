// SPDX-License-Identifier: MIT
#pragma once

#include "content/SheetText.h"
#include "content/StockReader.h"

#include <QStringList>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QToolButton;

namespace document {

class StockFigures;

/// Texts side by side in at most two lines. What does not fit is cut off; a tool tip shows all of
/// it.
class StripText : public QWidget
{
    Q_OBJECT

public:
    explicit StripText(QWidget *parent = nullptr);

    void SetParts(const QStringList &parts);
    /// Returns the lines as they are drawn.
    QStringList Lines() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {60, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStringList m_parts;
};

/// A strip with the figures of a train, and a menu for their units. The figures are read in the
/// background; until all of them are there, the strip says so.
class TrainStrip : public QWidget
{
    Q_OBJECT

public:
    /// `figures` must outlive the strip.
    explicit TrainStrip(StockFigures &figures, QWidget *parent = nullptr);

    /// Shows the figures of these units. `ownMaximum` as for content::TrainSheet.
    void ShowUnits(std::vector<install::StockItem> units, std::optional<double> ownMaximum);
    /// Reads and shows the figures of a consist file; "" shows a hint.
    void ShowConsist(const std::string &path);
    /// Returns all figures, one on each line, as screen readers and the tool tip show them.
    const QString &Text() const { return m_text; }

    StripText *lblTrainSheet;
    QToolButton *cmdUnits;

private:
    void buildMenu();
    void request();
    void refresh();
    std::optional<content::TrainSheet> sheetOfUnits(std::size_t &unread) const;
    void showUnits();
    void showConsist();
    void showSheet(const content::TrainSheet &sheet);
    void showNote(const QString &note);
    void setText(const QStringList &parts, const QString &text);

    StockFigures &m_figures;
    std::vector<install::StockItem> m_units;
    std::optional<double> m_ownMaximum;
    bool m_showsConsist = false;
    bool m_isComplete = false; ///< all figures are shown
    std::shared_ptr<content::ConsistSheet> m_consist;
    QString m_text;
};

} // namespace document
