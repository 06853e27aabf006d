// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthTree.h"
#include "content/KnownFindings.h"
#include "install/Environment.h"

#include <QDialog>

#include <memory>
#include <string>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSplitter;
class QStackedWidget;

namespace health {
class HealthFilterBar;
class HealthRunner;
class HealthView;
} // namespace health

/// A separate window with a health report: a tree of causes, wanted files and files that want
/// them, filters, and the details of the selected row. It makes the report on a thread, always for
/// both simulators; the choice of a simulator is a filter, which is kept for the installation. The
/// window stays above the main window, closes with it, and deletes itself when it is closed.
class frmHealth : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is the installation folder. With `consists` (paths), the report covers only these
    /// and what they need.
    frmHealth(const install::Environment &environment, std::string folder,
              std::vector<std::string> consists, QWidget *parent = nullptr);
    ~frmHealth() override;

    std::string Caption() const { return windowTitle().toStdString(); }
    void SetCaption(const std::string &caption);
    const std::string &Folder() const { return m_folder; }
    const std::vector<std::string> &Consists() const { return m_consists; }
    /// Returns what is shown as plain text.
    std::string ReportText() const;

    /// Makes the report (again), unless a run is in progress. Expanded and selected rows stay.
    void Run();
    bool Running() const;
    /// Ends the run; the window shows the findings so far.
    void Stop();
    /// Ends the run and waits for its thread, because the program is ending.
    void Abandon();
    /// Shows a report that was made elsewhere.
    void ShowIndex(std::shared_ptr<const content::HealthIndex> index);

    /// Marks the selected findings as known, or takes that back.
    void Accept();
    void Withdraw();
    void AcceptAll();
    /// Forgets the known findings that the report no longer has.
    void DropGone();
    void Copy() const;
    void CopyPath() const;
    /// Asks for a file name and writes what is shown as a web page, a table or JSON.
    void Save();

    health::HealthFilterBar *filterBar;
    health::HealthView *tvFindings;
    QPlainTextEdit *txtDetails;
    QPushButton *cmdRun, *cmdAccept, *cmdCopy, *cmdPrint, *cmdSave, *cmdClose;

Q_SIGNALS:
    /// Emitted when the user wants to run the report again.
    void RunRequested();
    /// Emitted while a run is in progress; a `total` of 0 means that it has ended.
    void Progressed(int done, int total);
    void StatusChanged(const std::string &text);
    /// Emitted when the user wants to see a vehicle, a consist or another file.
    void OpenRequested(const std::string &path);
    /// Emitted when the user wants to see a file in the file manager.
    void FolderRequested(const std::string &path);
    void PrintRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void nameControls();
    void arrangeControls();
    QSplitter *makeReportPane();
    void orderTabs();
    void connectControls();
    void connectRunner();
    void addKey(const char *caption, const QKeySequence &keys, void (frmHealth::*command)());

    void showProgress(int done, int total);
    void finish(bool stopped, const std::string &failure);
    void loadKnown();
    void filter();
    void showPage();
    std::string emptyText() const;
    std::string checkedText() const;
    void showSummary();
    std::string summary() const;
    std::string noveltySummary() const;
    void showDetails();
    void showButtons();
    void showMenu(const QPoint &position);
    bool canAccept() const;
    void changeKnown(const std::vector<const content::Finding *> &findings, bool accept);
    void keepProfiles(content::Profiles profiles);
    std::string pathOfCurrent() const;
    void openCurrent();
    void runOrStop();
    void focusSearch();

    install::Environment m_environment;
    std::string m_folder;
    std::vector<std::string> m_consists;
    content::KnownFindings m_known;
    std::shared_ptr<const content::HealthIndex> m_index; ///< null before the first findings
    bool m_stopped = false;
    std::string m_failure;
    QStackedWidget *m_pages;
    QLabel *lblEmpty, *lblSummary;
    QProgressBar *m_progress;
    health::HealthRunner *m_runner;
};
