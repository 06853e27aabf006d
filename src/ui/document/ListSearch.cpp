// SPDX-License-Identifier: MIT
#include "ui/document/ListSearch.h"

#include "content/FileStore.h"
#include "content/MissingVehicles.h"
#include "content/References.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Snapshot.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/ConsistListModel.h"
#include "ui/document/ConsistModel.h"
#include "ui/document/StockFigures.h"
#include "ui/document/StockListModel.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/SearchField.h"

#include <QLocale>

#include <memory>

namespace document {

namespace {

constexpr int kPullMilliseconds = 4, kPullPause = 10;
/// Rows that appear while figures are read would be restless if they came one by one.
constexpr int kRefilterPause = 300;

/// Changes which rows are shown. Rows that remain keep their selection, hidden ones lose it.
template <typename Model, typename Change>
void keepingSelection(ListView &list, const Model &model, int items, const Change &change)
{
    std::vector<bool> selected;
    for (const int row : list.SelectedRows()) {
        selected.resize(static_cast<std::size_t>(items));
        selected[static_cast<std::size_t>(model.IndexOfRow(row))] = true;
    }
    const bool hadSelection = !selected.empty();
    if (hadSelection)
        list.selectionModel()->clearSelection();
    change();
    if (!hadSelection)
        return;
    std::vector<int> still;
    for (int row = 0; row < model.rowCount(); ++row)
        if (selected[static_cast<std::size_t>(model.IndexOfRow(row))])
            still.push_back(row);
    list.SelectMore(still);
}

/// Moves the focus from the field into the list, to the selected row or else to the first one.
void moveInto(ListView &list)
{
    if (list.SelectedRow() < 0 && list.model()->rowCount() > 0)
        list.SelectRow(0);
    list.setFocus(Qt::OtherFocusReason);
}

/// Connects the keys that lead from the field of a list into the list.
void connectKeys(SearchField &field, ListView &list)
{
    QObject::connect(&field, &SearchField::DownPressed, &list, [&list] { moveInto(list); });
    QObject::connect(&field, &SearchField::ReturnPressed, &list, [&list] { moveInto(list); });
    QObject::connect(&field, &SearchField::Left, &list, [&list] { list.setFocus(); });
}

/// A name with blanks and without quotes also counts as the one that was meant.
std::string keysOf(const content::Reference &vehicle)
{
    std::string keys;
    std::vector<content::Reference::Name> names = vehicle.meant;
    names.push_back(vehicle.name);
    for (const content::Reference::Name &name : names)
        keys += content::VehicleKey(name.folder, host::path::BaseName(name.file));
    return keys;
}

QString countOf(int shown, int all)
{
    return QStringLiteral("%1 of %2").arg(QLocale().toString(shown), QLocale().toString(all));
}

QString nothingFound(const SearchField &field)
{
    return field.text().trimmed().isEmpty()
               ? QString()
               : QStringLiteral("Nothing matches the search.\n\nPress Esc in the field above to "
                                "show everything again.");
}

} // namespace

StockSearch::StockSearch(SearchField &field, ListView &list, StockListModel &model,
                         StockFigures &figures, QObject *parent)
    : QObject(parent)
    , m_field(field)
    , m_list(list)
    , m_model(model)
    , m_figures(figures)
    , m_missing(figures.Environment(), this)
{
    m_model.SetFigureSource(&figures);
    for (QTimer *timer : {&m_pull, &m_refilter})
        timer->setSingleShot(true);
    connect(&m_pull, &QTimer::timeout, this, &StockSearch::pull);
    connect(&m_refilter, &QTimer::timeout, this, &StockSearch::refilter);
    connect(&m_field, &QLineEdit::textChanged, this, &StockSearch::search);
    connectKeys(m_field, m_list);
    connect(&m_missing, &MissingLookUp::Answered, this, &StockSearch::takeMissing);
    connect(&m_figures, &StockFigures::Arrived, this, [this] { m_pull.start(0); });
    connect(&m_figures, &StockFigures::UnitsChanged, this, &StockSearch::search);
    connect(&m_figures, &StockFigures::Forgotten, this, [this] {
        m_model.DropFacts();
        if (m_isListed)
            ReadAll();
    });
    connect(&m_model, &StockListModel::modelReset, this, [this] {
        m_isListed = m_knowsMissing = false;
        m_missing.Forget();
    });
    connect(&m_model, &StockListModel::rowsInserted, this, &StockSearch::showRemark);
}

void StockSearch::ReadAll()
{
    m_isListed = true;
    std::vector<StockItem> items;
    for (int i = 0; i < m_model.ItemCount(); ++i)
        items.push_back(m_model.ItemAt(i));
    m_figures.WantFacts(std::move(items));
    m_missing.Forget();
    m_knowsMissing = false;
    lookUpMissing();
    showRemark();
}

void StockSearch::search()
{
    content::StockQuery query(m_field.text().toStdString(), m_figures.Units());
    keepingSelection(m_list, m_model, m_model.ItemCount(),
                     [&] { m_model.SetQuery(std::move(query)); });
    m_list.SetNothingFoundHint(nothingFound(m_field));
    lookUpMissing();
    showRemark();
}

/// Takes facts in slices, for as long as there are some.
void StockSearch::pull()
{
    if (m_model.HasAllFacts() || m_model.TakeFacts(kPullMilliseconds) == 0)
        return;
    m_pull.start(kPullPause);
    if (!m_refilter.isActive())
        m_refilter.start(m_model.HasAllFacts() ? 0 : kRefilterPause);
}

void StockSearch::refilter()
{
    if (m_model.HasAllFacts() && m_model.Order().column >= kStockColumns)
        m_model.Resort();
    if (!m_model.Query().IsEmpty())
        keepingSelection(m_list, m_model, m_model.ItemCount(), [this] { m_model.Refilter(); });
    showRemark();
    Q_EMIT FactsTaken();
}

void StockSearch::lookUpMissing()
{
    if (m_knowsMissing || !m_isListed || !m_model.Query().NeedsMissing())
        return;
    m_knowsMissing = true;
    const auto items = std::make_shared<std::vector<StockItem>>();
    for (int i = 0; i < m_model.ItemCount(); ++i)
        items->push_back(m_model.ItemAt(i));
    m_missing.Start(items->size(), [items](content::MissingVehicles &vehicles, std::size_t index) {
        return vehicles.WhyMissing((*items)[index]);
    });
}

void StockSearch::takeMissing(std::size_t first, const std::vector<std::string> &answers)
{
    std::vector<bool> lacks;
    for (const std::string &answer : answers)
        lacks.push_back(!answer.empty());
    m_model.SetLacksFiles(first, lacks);
    if (!m_refilter.isActive())
        m_refilter.start(m_missing.Running() ? kRefilterPause : 0);
}

void StockSearch::showRemark()
{
    if (m_field.text().trimmed().isEmpty()) {
        m_field.SetRemark({});
        return;
    }
    const std::string &remark = m_model.Query().Remark();
    const bool isReading = (!m_model.HasAllFacts() && m_figures.IsBusy()) || m_missing.Running();
    m_field.SetRemark(!remark.empty() ? QString::fromStdString(remark)
                                      : countOf(m_model.rowCount(), m_model.ItemCount()) +
                                            QLatin1String(isReading ? ", reading..." : ""));
}

TrainSearch::TrainSearch(SearchField &field, ListView &list, ConsistModel &model,
                         StockFigures &figures, QObject *parent)
    : QObject(parent)
    , m_field(field)
    , m_list(list)
    , m_model(model)
    , m_figures(figures)
{
    m_model.SetFigureSource(&figures);
    connect(&m_field, &QLineEdit::textChanged, this, &TrainSearch::search);
    connect(&m_field, &SearchField::DownPressed, this, [this] { goTo(1); });
    connect(&m_field, &SearchField::UpPressed, this, [this] { goTo(-1); });
    connect(&m_field, &SearchField::ReturnPressed, this, &TrainSearch::enterList);
    connect(&m_field, &SearchField::Left, this, [this] { m_list.setFocus(); });
    connect(&m_model, &ConsistModel::modelReset, this, &TrainSearch::mark);
    connect(&m_model, &ConsistModel::dataChanged, this, [this] {
        if (m_query.NeedsMissing()) // remarks have changed
            mark();
    });
    connect(&m_figures, &StockFigures::Arrived, this, &TrainSearch::mark);
    connect(&m_figures, &StockFigures::UnitsChanged, this, &TrainSearch::search);
}

void TrainSearch::search()
{
    m_query = content::StockQuery(m_field.text().toStdString(), m_figures.Units());
    mark();
}

void TrainSearch::mark()
{
    if (m_isMarking)
        return;
    m_isMarking = true;
    std::vector<bool> found;
    int matches = 0;
    for (int row = 0; row < m_model.rowCount() && !m_query.IsEmpty(); ++row) {
        const StockItem &item = m_model.Item(row);
        content::SearchedStock unit = content::SearchedStockOf(item, m_figures.Facts(item));
        unit.lacksFiles = m_model.HasRemark(row);
        found.push_back(m_query.Matches(unit));
        matches += found.back() ? 1 : 0;
    }
    m_model.SetFound(std::move(found));
    const QString remark = QString::fromStdString(m_query.Remark());
    if (!m_query.IsEmpty() || !remark.isEmpty())
        m_field.SetRemark(remark.isEmpty() ? countOf(matches, m_model.rowCount()) : remark);
    m_isMarking = false;
}

/// Selects the next unit that was found, from the end on with the first one.
void TrainSearch::goTo(int step)
{
    const int rows = m_model.rowCount();
    if (m_query.IsEmpty()) {
        if (step > 0)
            enterList();
        return;
    }
    const int from = m_list.SelectedRow() < 0 ? (step > 0 ? -1 : rows) : m_list.SelectedRow();
    for (int i = 1; i <= rows; ++i)
        if (const int row = ((from + i * step) % rows + rows) % rows; m_model.IsFound(row)) {
            m_list.SelectRow(row);
            return;
        }
}

void TrainSearch::enterList()
{
    if (!m_query.IsEmpty() && (m_list.SelectedRow() < 0 || !m_model.IsFound(m_list.SelectedRow())))
        goTo(1);
    moveInto(m_list);
}

ConsistSearch::ConsistSearch(SearchField &field, ListView &list, ConsistListModel &model,
                             const install::Environment &environment, QObject *parent)
    : QObject(parent)
    , m_field(field)
    , m_list(list)
    , m_model(model)
    , m_environment(environment)
    , m_lookUp(environment, this)
{
    m_apply.setSingleShot(true);
    connect(&m_apply, &QTimer::timeout, this, &ConsistSearch::apply);
    connect(&m_field, &QLineEdit::textChanged, this, &ConsistSearch::search);
    connectKeys(m_field, m_list);
    connect(&m_lookUp, &MissingLookUp::Answered, this, &ConsistSearch::take);
    connect(&m_lookUp, &MissingLookUp::Finished, this, [this] { m_apply.start(0); });
    connect(&m_model, &ConsistListModel::modelReset, this, [this] {
        m_names.clear();
        Forget();
        apply();
    });
}

void ConsistSearch::Forget()
{
    m_lookUp.Forget();
    m_vehicles.clear();
    if (m_query.NeedsVehicles())
        readVehicles();
}

void ConsistSearch::search()
{
    m_query = content::ConsistQuery(m_field.text().toStdString());
    if (m_query.NeedsVehicles() && m_vehicles.empty() && !m_lookUp.Running())
        readVehicles();
    apply();
}

void ConsistSearch::apply()
{
    const auto count = static_cast<std::size_t>(m_model.NameCount());
    while (!m_query.IsEmpty() && m_names.size() < count)
        m_names.push_back(host::ToUpper(m_model.Names()[m_names.size()]));
    std::vector<int> shown;
    for (std::size_t i = 0; i < count; ++i)
        if (m_query.IsEmpty() ||
            m_query.Matches(m_names[i], i < m_vehicles.size() ? m_vehicles[i] : std::string()))
            shown.push_back(static_cast<int>(i));
    keepingSelection(m_list, m_model, m_model.NameCount(),
                     [&] { m_model.ShowOnly(std::move(shown)); });
    m_list.SetNothingFoundHint(m_model.NameCount() > 0 ? nothingFound(m_field) : QString());
    if (!m_query.IsEmpty())
        m_field.SetRemark(countOf(m_model.rowCount(), m_model.NameCount()) +
                          QLatin1String(m_lookUp.Running() ? ", reading..." : ""));
}

void ConsistSearch::readVehicles()
{
    struct Disk
    {
        host::GameFiles files;
        host::Snapshot snapshot{files};
        content::FileStore store{snapshot};
    };
    std::vector<std::string> paths;
    for (const std::string &name : m_model.Names())
        paths.push_back(m_environment.installation.ConsistPath(name));
    const std::size_t count = paths.size();
    m_lookUp.Start(count, [disk = std::make_shared<Disk>(), paths = std::move(paths)](
                              content::MissingVehicles &, std::size_t index) {
        std::string vehicles;
        const auto given = host::GamePath::Of(paths[index]);
        const auto path = given ? disk->snapshot.FindFile(given->text) : std::nullopt;
        const auto source = path ? disk->store.Read(*path).source : nullptr;
        if (!source)
            return vehicles;
        for (const content::Reference &each : content::ReferencesOfConsist(*source))
            if (each.kind == content::Kind::ConsistVehicle)
                vehicles += keysOf(each);
        return vehicles;
    });
}

void ConsistSearch::take(std::size_t first, const std::vector<std::string> &answers)
{
    m_vehicles.resize(first);
    m_vehicles.insert(m_vehicles.end(), answers.begin(), answers.end());
    if (!m_apply.isActive())
        m_apply.start(kRefilterPause);
}

} // namespace document
