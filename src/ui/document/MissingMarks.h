// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"
#include "install/Train.h"
#include "ui/document/MissingLookUp.h"

#include <QObject>
#include <QString>

#include <map>
#include <set>
#include <string>
#include <vector>

class QWidget;

namespace document {

class ConsistListModel;
class ConsistModel;

/// Marks the units of a train whose vehicle, or its shape, is missing. Follows the rows of the
/// model, and looks each vehicle up once.
class TrainMarks : public QObject
{
    Q_OBJECT

public:
    /// `model` must outlive this object.
    TrainMarks(const install::Environment &environment, ConsistModel &model,
               QObject *parent = nullptr);

    /// Looks all vehicles up again. The rows keep their marks until the answers arrive.
    void Refresh();

private:
    void lookUp();
    void take(std::size_t first, const std::vector<std::string> &answers);
    void show();

    ConsistModel &m_model;
    MissingLookUp m_lookUp;
    std::vector<install::StockItem> m_asked;  ///< of the last look-up
    std::map<std::string, QString> m_remarks; ///< by the key of the vehicle; "" for none
    std::set<std::string> m_known;            ///< keys of vehicles looked up since Refresh
};

/// Marks the consists of a list that have vehicles with missing files. Starts after the list was
/// painted.
class ConsistMarks : public QObject
{
    Q_OBJECT

public:
    /// `model` and `viewport`, which shows it, must outlive this object.
    ConsistMarks(const install::Environment &environment, ConsistListModel &model,
                 QWidget &viewport, QObject *parent = nullptr);

    /// Looks up again the consists in these files, which were written, if they are in the list.
    void Update(const std::vector<std::string> &paths);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restart();
    void lookUpAll();
    void lookUp(std::vector<int> rows);
    void take(std::size_t first, const std::vector<std::string> &answers);
    void lookUpUpdated();

    install::Environment m_environment;
    ConsistListModel &m_model;
    QWidget &m_viewport;
    MissingLookUp m_lookUp;
    std::vector<int> m_rows;    ///< of the running or last look-up
    std::vector<int> m_updated; ///< to look up again after the running one
    bool m_waits = false;       ///< for the list to be painted
};

} // namespace document
