// SPDX-License-Identifier: MIT
#include "ui/document/MissingMarks.h"

#include "content/MissingVehicles.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/ConsistListModel.h"
#include "ui/document/ConsistModel.h"

#include <QEvent>
#include <QWidget>

#include <numeric>
#include <utility>

namespace document {

namespace {

std::string keyOf(const install::StockItem &item)
{
    return item.folder + '/' + install::StockFileName(item.type, item.shape);
}

} // namespace

TrainMarks::TrainMarks(const install::Environment &environment, ConsistModel &model,
                       QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_lookUp(environment, this)
{
    connect(&m_model, &ConsistModel::modelReset, this, &TrainMarks::show);
    connect(&m_model, &ConsistModel::modelReset, this, &TrainMarks::lookUp);
    connect(&m_lookUp, &MissingLookUp::Answered, this, &TrainMarks::take);
}

void TrainMarks::Refresh()
{
    m_lookUp.Forget();
    m_known.clear();
    lookUp();
}

void TrainMarks::lookUp()
{
    std::vector<install::StockItem> items;
    std::set<std::string> keys;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        const install::StockItem &item = m_model.Item(row);
        if (const std::string key = keyOf(item); !m_known.contains(key) && keys.insert(key).second)
            items.push_back(item);
    }
    if (items.empty())
        return;
    m_asked = items;
    m_lookUp.Start(items.size(), [items](content::MissingVehicles &vehicles, std::size_t index) {
        return vehicles.WhyMissing(items[index]);
    });
}

void TrainMarks::take(std::size_t first, const std::vector<std::string> &answers)
{
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const std::string key = keyOf(m_asked[first + i]);
        m_remarks[key] = QString::fromStdString(answers[i]);
        m_known.insert(key);
    }
    show();
}

void TrainMarks::show()
{
    for (int row = 0; row < m_model.rowCount(); ++row)
        if (const auto remark = m_remarks.find(keyOf(m_model.Item(row))); remark != m_remarks.end())
            m_model.SetRemark(row, remark->second);
}

ConsistMarks::ConsistMarks(const install::Environment &environment, ConsistListModel &model,
                           QWidget &viewport, QObject *parent)
    : QObject(parent)
    , m_environment(environment)
    , m_model(model)
    , m_viewport(viewport)
    , m_lookUp(environment, this)
{
    m_viewport.installEventFilter(this);
    connect(&m_model, &ConsistListModel::modelReset, this, &ConsistMarks::restart);
    connect(&m_lookUp, &MissingLookUp::Answered, this, &ConsistMarks::take);
    connect(&m_lookUp, &MissingLookUp::Finished, this, &ConsistMarks::lookUpUpdated);
}

void ConsistMarks::restart()
{
    m_lookUp.Forget();
    m_updated.clear();
    m_waits = true;
}

bool ConsistMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (m_waits && event->type() == QEvent::Paint) {
        m_waits = false;
        QTimer::singleShot(0, this, &ConsistMarks::lookUpAll);
    }
    return QObject::eventFilter(watched, event);
}

void ConsistMarks::lookUpAll()
{
    if (m_waits) // the list has changed since
        return;
    std::vector<int> rows(static_cast<std::size_t>(m_model.NameCount()));
    std::iota(rows.begin(), rows.end(), 0);
    lookUp(std::move(rows));
}

void ConsistMarks::lookUp(std::vector<int> rows)
{
    if (rows.empty())
        return;
    std::vector<std::string> paths;
    for (const int row : rows)
        paths.push_back(m_environment.installation.ConsistPath(m_model.NameAt(row)));
    m_rows = std::move(rows);
    const std::size_t count = paths.size();
    m_lookUp.Start(
        count, [paths = std::move(paths)](content::MissingVehicles &vehicles, std::size_t index) {
            return vehicles.WhyMissingIn(paths[index]);
        });
}

void ConsistMarks::take(std::size_t first, const std::vector<std::string> &answers)
{
    std::vector<QString> remarks;
    for (const std::string &answer : answers)
        remarks.push_back(QString::fromStdString(answer));
    // The rows of a look-up are consecutive.
    m_model.SetRemarks(m_rows[first], remarks);
}

void ConsistMarks::Update(const std::vector<std::string> &paths)
{
    std::set<std::string> written; // names in upper case
    for (const std::string &path : paths)
        written.insert(host::ToUpper(host::path::BaseName(path)));
    for (int row = 0; row < m_model.NameCount(); ++row)
        if (written.contains(host::ToUpper(m_model.NameAt(row))))
            m_updated.push_back(row);
    if (!m_lookUp.Running() && !m_waits)
        lookUpUpdated();
}

/// Other files may have changed with the consist, so the disk is looked at again.
void ConsistMarks::lookUpUpdated()
{
    if (m_updated.empty())
        return;
    m_lookUp.Forget();
    constexpr std::size_t kFew = 20;
    if (m_updated.size() > kFew) {
        m_updated.clear();
        lookUpAll();
        return;
    }
    const int row = m_updated.back();
    m_updated.pop_back();
    lookUp({row});
}

} // namespace document
