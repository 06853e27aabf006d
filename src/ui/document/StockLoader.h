// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

namespace document {

class DocumentHost;
class StockListModel;

/// Fills the installed stock list in slices of a few milliseconds, so that the window stays alive.
/// Folders are read on worker threads; rows arrive in listing order.
class StockLoader : public QObject
{
    Q_OBJECT

public:
    /// `host` and `model` must outlive the loader.
    StockLoader(DocumentHost &host, StockListModel &model, QObject *parent = nullptr);
    ~StockLoader() override;

    /// Empties the list and starts reading; a running scan is dropped.
    void Start(const std::string &filter);
    bool Running() const { return m_scan != nullptr; }
    /// Ends a running scan; what was found stays in the list. Finished follows.
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

    DocumentHost &m_host;
    StockListModel &m_model;
    std::unique_ptr<StockScan> m_scan;
    std::vector<StockItem> m_found; ///< taken from the scan, not yet in the model
    QElapsedTimer m_sinceFlush;
    QTimer m_timer;
};

} // namespace document
