// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/ConsistListModel.h"
#include "ui/document/DocumentPane.h"
#include "ui/widgets/ListView.h"

#include <QTimer>
#include <QWidget>

#include <string>
#include <vector>

class frmDocument;

namespace document {

class ConsistMarks;
class ConsistSearch;
class DocumentHost;
class SearchField;
class StockFigures;
class TrainStrip;
struct Furnishing;

/// The list of the installed consists that match the window's filter.
class ConsistListPane : public QWidget, public DocumentPane
{
    Q_OBJECT

public:
    /// `window` and `host` must outlive the pane.
    ConsistListPane(frmDocument &window, DocumentHost &host, const Furnishing &furnishing);

    QWidget &Widget() override { return *this; }
    QSize MinimumWindowSize() const override { return {180, 120}; }
    void Load() override;
    /// Also reads the figures of vehicles again.
    void Refresh() override;
    /// Shows the folder and the number of the consists in a message box.
    void ShowProperties() override;
    app::PrintJob Print() override;
    std::vector<std::string> SelectedConsists() const override;
    std::string SelectedConsist() const override;
    void FollowSave(const std::string &path) override;
    void FollowChanges(const std::vector<std::string> &paths) override;

    ListView *lvConsists;
    SearchField *searchConsists;
    TrainStrip *strip;

private:
    void addSearch();
    void showFigures();
    void connectList(const Furnishing &furnishing);
    void showNames();
    std::string status() const;

    frmDocument &m_window;
    DocumentHost &m_host;
    ConsistListModel *m_model;
    ConsistMarks *m_marks;
    StockFigures &m_figures;
    ConsistSearch *m_search = nullptr;
    QTimer m_showFigures;       ///< after the selection has changed
    std::string m_figuresOf;    ///< the consist that the strip shows
    std::string m_listedFilter; ///< the filter of the names shown
};

} // namespace document
