// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"
#include "install/Environment.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

namespace document {

class DocumentHost;
class StockListModel;

/// Fills the list of installed stock in slices of a few milliseconds, so that the window stays
/// responsive. Worker threads read the folders; rows arrive in listing order.
class StockLoader : public QObject
{
    Q_OBJECT

public:
    /// `host` and `model` must outlive the loader.
    StockLoader(const install::Environment &environment, DocumentHost &host, StockListModel &model,
                QObject *parent = nullptr);
    ~StockLoader() override;

    /// Empties the list, drops a running scan, and starts to read.
    void Start(const std::string &filter);
    bool Running() const { return m_scan != nullptr; }
    /// Ends a running scan. The list keeps what was found, and Finished follows.
    void Stop();

Q_SIGNALS:
    void Progressed();
    /// `outcome` is a sentence for the status bar.
    void Finished(bool stopped, const std::string &outcome);

private:
    void slice();
    void flush();
    void showProgress();
    void finish(bool stopped);

    install::Environment m_environment;
    DocumentHost &m_host;
    StockListModel &m_model;
    std::unique_ptr<StockScan> m_scan;
    std::vector<StockItem> m_found; ///< taken from the scan, not yet in the model
    QElapsedTimer m_sinceFlush;
    QTimer m_timer;
};

} // namespace document
