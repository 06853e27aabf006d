// SPDX-License-Identifier: MIT
#include "ui/health/frmHealth.h"

#include "content/HealthSettings.h"
#include "content/HelpText.h"
#include "host/Dialogs.h"
#include "host/Text.h"
#include "ui/health/HealthFilterBar.h"
#include "ui/health/HealthRunner.h"
#include "ui/health/HealthView.h"
#include "ui/widgets/NamedControls.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <initializer_list>
#include <utility>

using content::HealthTree;
using content::Novelty;
using health::HealthModel;

namespace {

constexpr char kTitle[] = "Health Report";

QString qText(const std::string &text)
{
    return QString::fromStdString(text);
}

} // namespace

frmHealth::frmHealth(const install::Environment &environment, std::string folder,
                     std::vector<std::string> consists, QWidget *parent)
    : QDialog(parent)
    , filterBar(new health::HealthFilterBar(this))
    , tvFindings(new health::HealthView(this))
    , txtDetails(new QPlainTextEdit(this))
    , cmdRun(new QPushButton(this))
    , cmdAccept(new QPushButton(QStringLiteral("&Accept as Known"), this))
    , cmdCopy(new QPushButton(QStringLiteral("&Copy as Text"), this))
    , cmdPrint(new QPushButton(QStringLiteral("&Print..."), this))
    , cmdSave(new QPushButton(QStringLiteral("&Save As..."), this))
    , cmdClose(new QPushButton(QStringLiteral("C&lose"), this))
    , m_environment(environment)
    , m_folder(std::move(folder))
    , m_consists(std::move(consists))
    , m_known(environment.files, m_folder)
    , m_pages(new QStackedWidget(this))
    , lblEmpty(new QLabel(this))
    , lblSummary(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_runner(new health::HealthRunner(environment.files, m_folder, m_consists, this))
{
    setWindowTitle(QString::fromLatin1(kTitle));
    // As a dialog it stays above its owner, but it has the title buttons of an ordinary window.
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    nameControls();
    arrangeControls();
    connectControls();
    connectRunner();
    filterBar->SetProfiles(content::KeptProfiles(environment.settings, m_folder));
    showPage();
    showSummary();
    showButtons();
}

frmHealth::~frmHealth()
{
    m_runner->Abandon(); // without signals: the main window may be going too
}

void frmHealth::nameControls()
{
    setObjectName("frmHealth");
    const install::NamedControl controls[] = {
        {tvFindings, "tvFindings", "Findings", ""},
        {txtDetails, "txtDetails", "Details of the selected finding", ""},
        {lblEmpty, "lblEmpty", "", ""},
        {lblSummary, "lblSummary", "", ""},
        {m_progress, "pbHealth", "Progress", "Press Esc to stop"},
        {cmdRun, "cmdRun", "Run Again", "Make the report again (F5)"},
        {cmdAccept, "cmdAccept", "Accept as Known",
         "Leave the selected findings out of the next reports"},
        {cmdCopy, "cmdCopy", "Copy as Text", "Copy the selected rows for a question to others"},
        {cmdPrint, "cmdPrint", "Print", "Print the report (Ctrl+P)"},
        {cmdSave, "cmdSave", "Save As", "Save what is shown as a web page, table or JSON (Ctrl+S)"},
        {cmdClose, "cmdClose", "Close", "Close this window (Esc)"},
    };
    install::NameControls(controls);
    for (QPushButton *button : {cmdRun, cmdAccept, cmdCopy, cmdPrint, cmdSave, cmdClose})
        button->setAutoDefault(false);
}

void frmHealth::arrangeControls()
{
    auto *outcome = new QHBoxLayout;
    outcome->setSpacing(8);
    lblSummary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblSummary->setTextFormat(Qt::PlainText);
    m_progress->setMaximumSize(140, 16);
    m_progress->setTextVisible(false);
    m_progress->hide();
    outcome->addWidget(lblSummary, 1);
    outcome->addWidget(m_progress);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(cmdRun);
    buttons->addStretch(1);
    for (QPushButton *button : {cmdAccept, cmdCopy, cmdPrint, cmdSave, cmdClose})
        buttons->addWidget(button);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addWidget(filterBar);
    layout->addWidget(makeReportPane(), 1);
    layout->addLayout(outcome);
    layout->addLayout(buttons);
    resize(880, 600);
    setMinimumSize(420, 320);
    orderTabs();
}

/// Returns the tree, or a text in its place, above the details.
QSplitter *frmHealth::makeReportPane()
{
    lblEmpty->setAlignment(Qt::AlignCenter);
    lblEmpty->setWordWrap(true);
    lblEmpty->setTextFormat(Qt::PlainText);
    lblEmpty->setMargin(20);
    lblEmpty->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_pages->addWidget(tvFindings);
    m_pages->addWidget(lblEmpty);
    txtDetails->setReadOnly(true);
    txtDetails->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtDetails->setTabChangesFocus(true);
    txtDetails->setPlaceholderText(QStringLiteral("Select a finding to see its details."));
    txtDetails->setMinimumHeight(50);
    auto *pane = new QSplitter(Qt::Vertical, this);
    pane->setChildrenCollapsible(false);
    pane->addWidget(m_pages);
    pane->addWidget(txtDetails);
    pane->setStretchFactor(0, 1);
    pane->setSizes({300, 130});
    return pane;
}

void frmHealth::orderTabs()
{
    using Widgets = std::initializer_list<QWidget *>;
    const auto &severities = filterBar->chkSeverities;
    QWidget *before = filterBar->txtSearch;
    for (QWidget *next :
         Widgets{filterBar->cboSimulators, severities[2], severities[1], severities[0],
                 filterBar->chkKnown, filterBar->cmdShowAll, tvFindings, lblEmpty, txtDetails,
                 cmdRun, cmdAccept, cmdCopy, cmdPrint, cmdSave, cmdClose}) {
        setTabOrder(before, next);
        before = next;
    }
    tvFindings->setFocus();
}

void frmHealth::connectControls()
{
    // Runs however the window is closed.
    connect(this, &QDialog::finished, this, [this] {
        Abandon();
        deleteLater();
    });
    connect(filterBar, &health::HealthFilterBar::Changed, this, &frmHealth::filter);
    connect(filterBar, &health::HealthFilterBar::ProfilesChosen, this, &frmHealth::keepProfiles);
    connect(filterBar, &health::HealthFilterBar::Left, tvFindings, qOverload<>(&QWidget::setFocus));
    connect(tvFindings, &health::HealthView::Chosen, this, &frmHealth::openCurrent);
    connect(tvFindings, &health::HealthView::MenuWanted, this, &frmHealth::showMenu);
    connect(tvFindings, &health::HealthView::SelectionMoved, this, [this] {
        showDetails();
        showButtons();
    });
    connect(cmdRun, &QPushButton::clicked, this, &frmHealth::runOrStop);
    connect(cmdAccept, &QPushButton::clicked, this, &frmHealth::Accept);
    connect(cmdCopy, &QPushButton::clicked, this, &frmHealth::Copy);
    connect(cmdPrint, &QPushButton::clicked, this, &frmHealth::PrintRequested);
    connect(cmdSave, &QPushButton::clicked, this, &frmHealth::Save);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    addKey("Run Again", QKeySequence::Refresh, &frmHealth::RunRequested);
    addKey("Find", QKeySequence::Find, &frmHealth::focusSearch);
    addKey("Print", QKeySequence::Print, &frmHealth::PrintRequested);
    addKey("Save As", QKeySequence::Save, &frmHealth::Save);
    auto *copy = new QAction(QStringLiteral("Copy as Text"), tvFindings);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut); // the details have a text to copy too
    connect(copy, &QAction::triggered, this, &frmHealth::Copy);
    tvFindings->addAction(copy);
}

void frmHealth::addKey(const char *caption, const QKeySequence &keys, void (frmHealth::*command)())
{
    auto *action = new QAction(QString::fromLatin1(caption), this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, command);
    addAction(action);
}

void frmHealth::connectRunner()
{
    using health::HealthRunner;
    connect(m_runner, &HealthRunner::Progressed, this, &frmHealth::showProgress);
    connect(m_runner, &HealthRunner::Found, this, &frmHealth::ShowIndex);
    connect(m_runner, &HealthRunner::Finished, this, &frmHealth::finish);
}

void frmHealth::SetCaption(const std::string &caption)
{
    // The names of many consists make a title longer than any window system accepts.
    constexpr qsizetype limit = 200;
    const QString text = qText(caption);
    setWindowTitle(text.size() > limit ? text.left(limit) + QStringLiteral("...") : text);
}

void frmHealth::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && Running())
        Stop();
    else
        QDialog::keyPressEvent(event);
}

bool frmHealth::Running() const
{
    return m_runner->Running();
}

void frmHealth::Run()
{
    if (Running())
        return;
    m_stopped = false;
    m_failure.clear();
    loadKnown();
    m_runner->Start();
    if (Running())
        showProgress(0, 1);
    showPage();
    showButtons();
}

void frmHealth::Stop()
{
    m_runner->Stop();
}

void frmHealth::Abandon()
{
    if (!Running())
        return;
    m_runner->Abandon();
    m_stopped = true;
    Q_EMIT StatusChanged("Health report stopped");
    Q_EMIT Progressed(0, 0);
}

void frmHealth::runOrStop()
{
    if (Running())
        Stop();
    else
        Q_EMIT RunRequested();
}

void frmHealth::showProgress(int done, int total)
{
    m_progress->setVisible(true);
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    Q_EMIT StatusChanged("Checking the health of the content... " +
                         (total > 1 ? std::to_string(done) + " of " + std::to_string(total) : ""));
    Q_EMIT Progressed(done, total);
    showSummary();
}

void frmHealth::finish(bool stopped, const std::string &failure)
{
    m_stopped = stopped;
    m_failure = failure;
    m_progress->hide();
    showPage();
    showSummary();
    showButtons();
    Q_EMIT Progressed(0, 0);
    Q_EMIT StatusChanged(!failure.empty() ? "The health report failed"
                         : stopped        ? "Health report stopped"
                                          : "Health report: " + summary());
    if (!failure.empty())
        m_environment.dialogs.Message(failure, kTitle, host::DialogIcon::Critical);
}

void frmHealth::ShowIndex(std::shared_ptr<const content::HealthIndex> index)
{
    m_index = std::move(index);
    filter();
}

/// Reads the known findings. A fault of their file is shown once, since the report is useful
/// without them.
void frmHealth::loadKnown()
{
    const std::string before = m_known.Fault();
    m_known.Load();
    if (!m_known.Fault().empty() && m_known.Fault() != before)
        m_environment.dialogs.Message(
            m_known.Fault() +
                ". The report shows all findings as new, and the file stays as it is. "
                "Move it away to start a new list.",
            kTitle, host::DialogIcon::Critical);
}

void frmHealth::filter()
{
    if (!m_index)
        return;
    auto tree =
        std::make_shared<const HealthTree>(m_index, filterBar->Filter(), m_known.Findings());
    filterBar->ShowCounts(*tree);
    {
        const QSignalBlocker blocked(tvFindings); // details are shown once, below
        tvFindings->SetTree(std::move(tree));
    }
    showPage();
    showSummary();
    showDetails();
    showButtons();
}

void frmHealth::showPage()
{
    const HealthTree *tree = tvFindings->Rows().Tree();
    const bool hasRows = tree && tree->Shown() > 0;
    if (!hasRows)
        lblEmpty->setText(qText(emptyText()));
    m_pages->setCurrentWidget(hasRows ? static_cast<QWidget *>(tvFindings) : lblEmpty);
}

std::string frmHealth::emptyText() const
{
    const HealthTree *tree = tvFindings->Rows().Tree();
    if (!m_failure.empty())
        return "The report could not be made.";
    if (Running() && (!tree || tree->Hidden() == 0))
        return "Checking the health of the content...";
    if (m_stopped)
        return "The report was stopped before it found anything.";
    if (!tree)
        return {};
    if (tree->Hidden() == 0)
        return "No problems found\n\n" + checkedText();
    if (tree->Hidden() == tree->HiddenKnown())
        return "Nothing new: all findings are known.\n\n" + checkedText();
    return "The filters hide all findings.";
}

std::string frmHealth::checkedText() const
{
    const content::HealthCounts &checked = m_index->Report().checked;
    const auto part = [](std::size_t count, const char *one, const char *many) {
        return host::Counted(count, one, many);
    };
    if (!m_consists.empty())
        return "Checked: " + part(checked.consists, "consist", "consists") +
               " and everything that is needed.";
    return "Checked: " + part(checked.stockFolders, "stock folder", "stock folders") + ", " +
           part(checked.consists, "consist", "consists") + ", " +
           part(checked.services, "service", "services") + ", " +
           part(checked.activities, "activity", "activities") + ", " +
           part(checked.timetables, "timetable", "timetables") + ".";
}

void frmHealth::showSummary()
{
    const QString text = qText(summary());
    lblSummary->setText(text);
    lblSummary->setToolTip(text);
}

std::string frmHealth::summary() const
{
    const HealthTree *tree = tvFindings->Rows().Tree();
    const std::string found = tree ? noveltySummary() : std::string();
    if (Running()) {
        const std::string place = m_progress->maximum() > 1
                                      ? std::to_string(m_progress->value()) + " of " +
                                            std::to_string(m_progress->maximum())
                                      : std::string();
        return "Checking... " + place + (found.empty() ? "" : "  -  " + found + " so far");
    }
    if (!m_failure.empty())
        return "The report failed; it is not complete.";
    if (m_stopped)
        return "STOPPED: this report is not complete. " + found;
    return found;
}

std::string frmHealth::noveltySummary() const
{
    const HealthTree &tree = *tvFindings->Rows().Tree();
    const std::size_t all = tree.Shown() + tree.Hidden();
    if (m_known.Findings().Size() == 0)
        return host::Counted(all, "finding", "findings");
    std::string text = std::to_string(tree.Count(Novelty::New)) + " new, " +
                       std::to_string(tree.Count(Novelty::Changed)) + " changed, ";
    // A part of a report does not show what is gone.
    if (m_index->IsComplete() && m_consists.empty())
        text += std::to_string(m_known.Findings().CountGone(m_index->Report())) + " gone, ";
    return text + std::to_string(tree.Count(Novelty::Known)) + " known";
}

void frmHealth::showDetails()
{
    std::string text;
    if (const HealthModel::Node node = tvFindings->Current(); node.cause)
        text = HelpText(*tvFindings->Rows().Tree(), *node.cause);
    else if (node.wanted)
        text = HelpText(*tvFindings->Rows().Tree(), *node.wanted);
    else if (node.user)
        text = DetailsOf(*tvFindings->Rows().Tree(), *node.user);
    txtDetails->setPlainText(qText(text));
}

/// The answers of a part of a report are not final, so that they cannot be accepted.
bool frmHealth::canAccept() const
{
    return !Running() && !m_stopped && m_index && m_index->IsComplete();
}

void frmHealth::showButtons()
{
    const HealthTree *tree = tvFindings->Rows().Tree();
    const bool hasSelection = tvFindings->selectionModel()->hasSelection();
    cmdRun->setText(Running() ? QStringLiteral("S&top") : QStringLiteral("&Run Again"));
    cmdRun->setAccessibleName(Running() ? QStringLiteral("Stop") : QStringLiteral("Run Again"));
    cmdRun->setToolTip(Running() ? QStringLiteral("Stop the report (Esc)")
                                 : QStringLiteral("Make the report again (F5)"));
    cmdAccept->setEnabled(hasSelection && canAccept());
    cmdCopy->setEnabled(hasSelection);
    cmdPrint->setEnabled(tree != nullptr);
    cmdSave->setEnabled(tree != nullptr);
}

void frmHealth::focusSearch()
{
    filterBar->txtSearch->setFocus();
    filterBar->txtSearch->selectAll();
}
