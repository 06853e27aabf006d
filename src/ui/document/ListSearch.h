// SPDX-License-Identifier: MIT
#pragma once

#include "content/SearchTerms.h"
#include "content/StockQuery.h"
#include "ui/document/MissingLookUp.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace document {

class ConsistListModel;
class ConsistModel;
class ListView;
class SearchField;
class StockFigures;
class StockListModel;

/// The search in the stock list: hides the vehicles that do not match. Reads the facts of all
/// vehicles in the background. All arguments must outlive it, as for the other searches.
class StockSearch : public QObject
{
    Q_OBJECT

public:
    StockSearch(SearchField &field, ListView &list, StockListModel &model, StockFigures &figures,
                QObject *parent = nullptr);

    /// Reads the facts of the whole list, which has been filled.
    void ReadAll();

Q_SIGNALS:
    /// More facts are known.
    void FactsTaken();

private:
    void search();
    void pull();
    void refilter();
    void lookUpMissing();
    void takeMissing(std::size_t first, const std::vector<std::string> &answers);
    void showRemark();

    SearchField &m_field;
    ListView &m_list;
    StockListModel &m_model;
    StockFigures &m_figures;
    MissingLookUp m_missing;
    bool m_isListed = false;     ///< the list is complete
    bool m_knowsMissing = false; ///< missing files were looked up, or are being looked up
    QTimer m_pull, m_refilter;
};

/// The search in the train: marks the units that match. Down and Up in the field select the next
/// and the previous one.
class TrainSearch : public QObject
{
    Q_OBJECT

public:
    TrainSearch(SearchField &field, ListView &list, ConsistModel &model, StockFigures &figures,
                QObject *parent = nullptr);

private:
    void search();
    void mark();
    void goTo(int step);
    void enterList();

    SearchField &m_field;
    ListView &m_list;
    ConsistModel &m_model;
    StockFigures &m_figures;
    content::StockQuery m_query;
    bool m_isMarking = false;
};

/// The search in the list of consists: hides those that do not match. Reads the vehicles of all
/// consists in the background when a search first asks for them.
class ConsistSearch : public QObject
{
    Q_OBJECT

public:
    ConsistSearch(SearchField &field, ListView &list, ConsistListModel &model,
                  const install::Environment &environment, QObject *parent = nullptr);

    /// Drops what is known of the vehicles, since files have changed.
    void Forget();

private:
    void search();
    void apply();
    void readVehicles();
    void take(std::size_t first, const std::vector<std::string> &answers);

    SearchField &m_field;
    ListView &m_list;
    ConsistListModel &m_model;
    install::Environment m_environment;
    MissingLookUp m_lookUp;
    content::ConsistQuery m_query;
    std::vector<std::string> m_names;    ///< in upper case; empty until they are needed
    std::vector<std::string> m_vehicles; ///< of the first consists, as far as they were read
    QTimer m_apply;
};

} // namespace document
