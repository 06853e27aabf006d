// SPDX-License-Identifier: MIT
#include "ui/document/TrainStrip.h"

#include "host/Text.h"
#include "ui/document/StockFigures.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace document {

namespace {

constexpr QChar kDot(0x00B7);

struct UnitsChoice
{
    content::UnitSystem system;
    const char *name, *caption;
};
constexpr std::array<UnitsChoice, 3> kChoices = {
    {{content::UnitSystem::Metric, "Metric", "&Metric: m, t, kW, km/h"},
     {content::UnitSystem::Us, "US", "&US: ft, tons of 2,000 lb, hp, mph"},
     {content::UnitSystem::Uk, "UK", "U&K: ft, tons of 2,240 lb, hp, mph"}}};

QString qt(const std::string &text)
{
    return QString::fromStdString(text);
}

/// True for figures that everybody recognises by their unit.
bool isClear(const content::SheetLine &line)
{
    constexpr std::array kClear = {"Length", "Mass", "Power", "Top speed"};
    const bool hasNumber = line.text.find_first_of("0123456789") != std::string::npos;
    return hasNumber && std::find(kClear.begin(), kClear.end(), line.label) != kClear.end();
}

/// Returns the parts for the strip. Missing vehicles come first, as a number.
QStringList partsOf(const content::TrainSheet &sheet, content::UnitSystem system)
{
    QStringList parts{qt(host::Counted(sheet.Units(), "unit", "units"))};
    if (!sheet.Missing().empty())
        parts << qt(host::Counted(sheet.Missing().size(), "vehicle", "vehicles") + " missing");
    for (const content::SheetLine &line : content::LinesOf(sheet, system))
        if (line.label != "Units" && line.label != "Missing")
            parts << qt(isClear(line) ? line.text : line.label + ' ' + line.text);
    return parts;
}

QString textOf(const content::TrainSheet &sheet, content::UnitSystem system)
{
    QStringList lines;
    for (const content::SheetLine &line : content::LinesOf(sheet, system))
        lines << qt(line.label + ": " + line.text);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

StripText::StripText(QWidget *parent)
    : QWidget(parent)
{
    setObjectName("lblTrainSheet");
    setAccessibleName(QStringLiteral("Train sheet"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StripText::SetParts(const QStringList &parts)
{
    m_parts = parts;
    update();
}

QSize StripText::sizeHint() const
{
    return {200, 2 * fontMetrics().lineSpacing()};
}

QStringList StripText::Lines() const
{
    const QString separator = QStringLiteral("  ") + kDot + QStringLiteral("  ");
    QStringList lines;
    for (const QString &part : m_parts) {
        const QString longer = lines.isEmpty() ? part : lines.back() + separator + part;
        if (lines.isEmpty() ||
            (lines.size() == 1 && fontMetrics().horizontalAdvance(longer) > width()))
            lines << part;
        else
            lines.back() = longer;
    }
    for (QString &line : lines)
        line = fontMetrics().elidedText(line, Qt::ElideRight, width());
    return lines;
}

void StripText::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int height = fontMetrics().lineSpacing();
    const QStringList lines = Lines();
    int top = (this->height() - static_cast<int>(lines.size()) * height) / 2;
    for (const QString &line : lines) {
        painter.drawText(QRect(0, top, width(), height), Qt::AlignLeft | Qt::AlignVCenter, line);
        top += height;
    }
}

TrainStrip::TrainStrip(StockFigures &figures, QWidget *parent)
    : QWidget(parent)
    , lblTrainSheet(new StripText(this))
    , cmdUnits(new QToolButton(this))
    , m_figures(figures)
{
    setObjectName("TrainStrip");
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(lblTrainSheet, 1);
    layout->addWidget(cmdUnits, 0, Qt::AlignVCenter);
    buildMenu();
    connect(&m_figures, &StockFigures::Arrived, this, [this] {
        if (!m_isComplete)
            refresh();
    });
    connect(&m_figures, &StockFigures::UnitsChanged, this, &TrainStrip::refresh);
    connect(&m_figures, &StockFigures::Forgotten, this, &TrainStrip::request);
    refresh();
}

void TrainStrip::buildMenu()
{
    cmdUnits->setObjectName("cmdUnits");
    cmdUnits->setPopupMode(QToolButton::InstantPopup);
    cmdUnits->setFocusPolicy(Qt::TabFocus);
    cmdUnits->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto *menu = new QMenu(cmdUnits);
    auto *group = new QActionGroup(menu);
    for (const UnitsChoice &choice : kChoices) {
        QAction *action = menu->addAction(QString::fromLatin1(choice.caption));
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, &choice] { m_figures.SetUnits(choice.system); });
    }
    connect(menu, &QMenu::aboutToShow, this, [this, group] {
        group->actions().at(static_cast<int>(m_figures.Units()))->setChecked(true);
    });
    cmdUnits->setMenu(menu);
}

void TrainStrip::ShowUnits(std::vector<install::StockItem> units, std::optional<double> ownMaximum)
{
    m_showsConsist = false;
    m_units = std::move(units);
    m_ownMaximum = ownMaximum;
    request();
}

void TrainStrip::ShowConsist(const std::string &path)
{
    m_showsConsist = true;
    m_consist = path.empty() ? nullptr : std::make_shared<content::ConsistSheet>(path);
    request();
}

/// Asks for the figures that are not known yet.
void TrainStrip::request()
{
    if (m_showsConsist) {
        if (m_consist && m_consist->isDone) // made by a reader that is gone
            m_consist = std::make_shared<content::ConsistSheet>(m_consist->path);
        if (m_consist)
            m_figures.WantSheet(m_consist);
    } else {
        std::vector<install::StockItem> wanted;
        for (const install::StockItem &unit : m_units)
            if (!m_figures.Unit(unit))
                wanted.push_back(unit);
        if (!wanted.empty())
            m_figures.WantUnits(std::move(wanted));
    }
    refresh();
}

void TrainStrip::refresh()
{
    if (m_showsConsist)
        showConsist();
    else
        showUnits();
    const UnitsChoice &units = kChoices[static_cast<std::size_t>(m_figures.Units())];
    cmdUnits->setText(QLatin1String(units.name));
    cmdUnits->setToolTip(QStringLiteral("Units of the figures"));
    cmdUnits->setAccessibleName(QStringLiteral("Train sheet, units: ") + QLatin1String(units.name));
}

std::optional<content::TrainSheet> TrainStrip::sheetOfUnits(std::size_t &unread) const
{
    content::TrainSheet sheet(m_ownMaximum);
    for (const install::StockItem &unit : m_units)
        if (const auto vehicle = m_figures.Unit(unit))
            sheet.Add(*vehicle);
        else
            ++unread;
    return unread == 0 ? std::optional(sheet) : std::nullopt;
}

void TrainStrip::showUnits()
{
    std::size_t unread = 0;
    if (m_units.empty())
        showNote(QStringLiteral("An empty train has no figures."));
    else if (const auto sheet = sheetOfUnits(unread))
        showSheet(*sheet);
    else if (m_figures.IsBusy())
        showNote(qt(host::Counted(m_units.size(), "unit", "units") + ": reading the figures, " +
                    host::Counted(unread, "unit", "units") + " left..."));
    else
        showNote(qt(host::Counted(m_units.size(), "unit", "units") +
                    ": the figures are not known without an installation."));
}

void TrainStrip::showConsist()
{
    if (!m_consist)
        showNote(QStringLiteral("Select a consist to see its figures."));
    else if (!m_consist->isDone)
        showNote(m_figures.IsBusy() ? QStringLiteral("Reading the figures...") : QString());
    else if (!m_consist->fault.empty())
        showNote(QStringLiteral("No figures: ") + qt(m_consist->fault));
    else
        showSheet(m_consist->sheet);
}

void TrainStrip::showSheet(const content::TrainSheet &sheet)
{
    const content::UnitSystem system = m_figures.Units();
    setText(partsOf(sheet, system), textOf(sheet, system));
    m_isComplete = true;
}

void TrainStrip::showNote(const QString &note)
{
    setText({note}, note);
    m_isComplete = false;
}

void TrainStrip::setText(const QStringList &parts, const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    lblTrainSheet->SetParts(parts);
    // As rich text, no name in it is taken for markup.
    lblTrainSheet->setToolTip(Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
    for (QWidget *part : {static_cast<QWidget *>(lblTrainSheet), static_cast<QWidget *>(cmdUnits)})
        part->setAccessibleDescription(text);
}

} // namespace document
