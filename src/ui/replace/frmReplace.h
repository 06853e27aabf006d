// SPDX-License-Identifier: MIT
#pragma once

#include "content/VehicleCatalogue.h"
#include "document/ReplacementPlan.h"
#include "install/Environment.h"

#include <QDialog>
#include <QIcon>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace replace {
class BackgroundJob;
class PlanModel;
class VehiclePicker;
} // namespace replace

/// A separate window that replaces a vehicle in all consists and, if the user ticks them, in
/// activities. It lists every unit that uses the vehicle before anything is written. All searches
/// run on threads; Esc stops them. The window stays above the main window and closes with it.
class frmReplace : public QDialog
{
    Q_OBJECT

public:
    /// Returns the files with unsaved changes in other windows, which cannot be changed here.
    using UnsavedFiles = std::function<std::vector<std::string>()>;

    frmReplace(const install::Environment &environment, const QIcon &missing, UnsavedFiles unsaved,
               QWidget *parent = nullptr);
    ~frmReplace() override;

    /// Lists the vehicles, and picks this one to be replaced. Without one, keeps the choice.
    void Begin(const std::optional<install::StockItem> &vehicle);
    /// Searches for the units again, because files have changed. Ticks stay where they are.
    void SearchAgain();
    /// Replaces the vehicle in all ticked units, on a thread.
    void Replace();
    /// True while a thread searches or writes.
    bool Running() const;
    bool Writing() const;
    /// Ends the searches; a change that is being written is completed first.
    void Abandon();
    /// Returns the plan that is shown; null if there is none.
    std::shared_ptr<const document::ReplacementPlan> Plan() const;

    replace::VehiclePicker *from, *to;
    QTreeView *tvPlan;
    QLabel *lblSummary, *lblStatus;
    QPushButton *cmdReplace, *cmdClose;

Q_SIGNALS:
    /// These files were changed on disk.
    void Replaced(const std::vector<std::string> &paths);
    /// What happened, for the status bar.
    void StatusChanged(const std::string &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void nameControls();
    void arrangeControls();
    QWidget *planPane();
    QLayout *buttonRow();
    void orderTabs();
    void connectControls();
    void connectJobs();

    void listVehicles();
    void showVehicles(const std::vector<content::CataloguedVehicle> &vehicles);
    void startSearch();
    void search();
    void findCandidates();
    void showCandidates(const std::vector<content::ReplacementCandidate> &candidates);
    void showPlan(std::shared_ptr<document::ReplacementPlan> plan);
    void blockUnsaved(document::ReplacementPlan &plan);
    void showChoice();
    void showState();
    void showProgress(int done, int total);
    void jobEnded(const std::string &failure);
    void changeEnded(const std::string &failure);
    void stopSearches();
    void focusSearch();

    install::Environment m_environment;
    const UnsavedFiles m_unsavedFiles;
    std::vector<std::string> m_unsaved;         ///< at the last search
    std::optional<install::StockItem> m_wanted; ///< shown even if no consist names it
    std::vector<install::StockItem> m_installed;
    replace::PlanModel *m_model;
    QProgressBar *m_progress;
    replace::BackgroundJob *m_listing, *m_candidates, *m_search, *m_change;
    QTimer m_searchSoon;   ///< the arrow keys may pass many vehicles
    std::string m_outcome; ///< of the last change or search; "" for none
};
