// SPDX-License-Identifier: MIT
#include "ui/replace/frmReplace.h"

#include "host/ChangeJournal.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/replace/BackgroundJob.h"
#include "ui/replace/PlanModel.h"
#include "ui/replace/VehiclePicker.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/NamedControls.h"
#include "ui/widgets/SearchField.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <utility>

using document::ReplacementPlan;
using install::StockItem;
using replace::BackgroundJob;
using replace::VehiclePicker;
using replace::VehicleRow;

namespace {

constexpr char kTitle[] = "Replace in Consists";
constexpr char kUnsaved[] = "has unsaved changes in a window: save them, then it can be ticked";
constexpr int kSearchDelay = 150; // milliseconds

std::string remarkOf(const content::CataloguedVehicle &entry)
{
    const std::string units =
        entry.units > 0 ? host::Counted(entry.units, "unit", "units") : std::string();
    if (entry.isInstalled)
        return units;
    return units.empty() ? "missing" : "missing, " + units;
}

/// Makes rows as high as those of the lists.
class AiryRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 5);
    }
};

/// What a change has written.
struct Written
{
    std::vector<std::string> paths;
    std::vector<std::string> messages; ///< about changes that were interrupted earlier
    std::string outcome;
};

Written write(const ReplacementPlan &plan, const StockItem &vehicle, host::GameFiles &files)
{
    host::ChangeJournal journal;
    Written written;
    written.messages = journal.Recover();
    const std::vector<host::FileChange> changes = plan.Changes(files, vehicle);
    journal.Apply(document::ReplacementTitle(plan.From(), vehicle), changes);
    for (const host::FileChange &change : changes)
        written.paths.push_back(change.path);
    written.outcome = "Replaced " + host::Counted(plan.ChosenUnits(), "unit", "units") + " in " +
                      host::Counted(changes.size(), "file", "files") +
                      ".  Stock > Undo Replace takes this back.";
    return written;
}

} // namespace

frmReplace::frmReplace(const install::Environment &environment, const QIcon &missing,
                       UnsavedFiles unsaved, QWidget *parent)
    : QDialog(parent)
    , from(new VehiclePicker({"From", QStringLiteral("&Vehicle to replace"),
                              QStringLiteral("Search the vehicles"), QStringLiteral("Used by")},
                             missing, this))
    , to(new VehiclePicker({"To", QStringLiteral("Replace it &by"),
                            QStringLiteral("Search the replacements"), QStringLiteral("In common")},
                           missing, this))
    , tvPlan(new QTreeView(this))
    , lblSummary(new QLabel(this))
    , lblStatus(new QLabel(this))
    , cmdReplace(new QPushButton(QStringLiteral("&Replace"), this))
    , cmdClose(new QPushButton(QStringLiteral("C&lose"), this))
    , m_environment(environment)
    , m_unsavedFiles(std::move(unsaved))
    , m_model(new replace::PlanModel(this))
    , m_progress(new QProgressBar(this))
    , m_listing(new BackgroundJob(this))
    , m_candidates(new BackgroundJob(this))
    , m_search(new BackgroundJob(this))
    , m_change(new BackgroundJob(this))
{
    setWindowTitle(QString::fromLatin1(kTitle));
    // As a dialog it stays above its owner, but it has the title buttons of an ordinary window.
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    nameControls();
    arrangeControls();
    connectControls();
    connectJobs();
    showState();
}

frmReplace::~frmReplace()
{
    Abandon();
}

void frmReplace::nameControls()
{
    setObjectName("frmReplace");
    const install::NamedControl controls[] = {
        {tvPlan, "tvPlan", "Units that use the vehicle", "Only ticked units change"},
        {lblSummary, "lblSummary", "", ""},
        {lblStatus, "lblStatus", "", ""},
        {m_progress, "progress", "Progress of the search", ""},
        {cmdReplace, "cmdReplace", "Replace", "Write the ticked units, in all files or in none"},
        {cmdClose, "cmdClose", "Close", "Close this window"},
    };
    install::NameControls(controls);
}

void frmReplace::arrangeControls()
{
    auto *pickers = new QSplitter(Qt::Horizontal, this);
    pickers->addWidget(from);
    pickers->addWidget(to);
    pickers->setChildrenCollapsible(false);
    pickers->setStretchFactor(0, 2);
    pickers->setStretchFactor(1, 3); // its remarks are longer
    auto *parts = new QSplitter(Qt::Vertical, this);
    parts->addWidget(pickers);
    parts->addWidget(planPane());
    parts->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addWidget(parts, 1);
    layout->addLayout(buttonRow());
    orderTabs();
    from->list->setFocus();
    resize(820, 600);
}

QWidget *frmReplace::planPane()
{
    tvPlan->setModel(m_model);
    tvPlan->setUniformRowHeights(true);
    tvPlan->setItemDelegate(new AiryRows(tvPlan));
    tvPlan->setAlternatingRowColors(true);
    tvPlan->header()->setStretchLastSection(true);
    tvPlan->setMinimumHeight(tvPlan->fontMetrics().height() * 5);
    lblSummary->setTextFormat(Qt::PlainText);
    lblSummary->setWordWrap(true);
    auto *pane = new QWidget(this);
    auto *layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(lblSummary);
    layout->addWidget(tvPlan, 1);
    return pane;
}

QLayout *frmReplace::buttonRow()
{
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setMaximumWidth(140);
    for (QPushButton *button : {cmdReplace, cmdClose})
        button->setAutoDefault(false);
    auto *layout = new QHBoxLayout;
    layout->setSpacing(6);
    layout->addWidget(m_progress);
    layout->addWidget(lblStatus, 1);
    layout->addWidget(cmdReplace);
    layout->addWidget(cmdClose);
    return layout;
}

/// In reading order.
void frmReplace::orderTabs()
{
    QWidget *before = from->search;
    for (QWidget *next : std::initializer_list<QWidget *>{from->list, to->search, to->list, tvPlan,
                                                          cmdReplace, cmdClose}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frmReplace::connectControls()
{
    m_searchSoon.setSingleShot(true);
    m_searchSoon.setInterval(kSearchDelay);
    connect(&m_searchSoon, &QTimer::timeout, this, &frmReplace::startSearch);
    connect(from, &VehiclePicker::Picked, this, [this] {
        m_outcome.clear();
        m_search->Abandon();
        m_searchSoon.start();
        showPlan(nullptr);
    });
    connect(from, &VehiclePicker::Chosen, to, &VehiclePicker::Enter);
    connect(to, &VehiclePicker::Picked, this, &frmReplace::showState);
    connect(to, &VehiclePicker::Chosen, this, [this] { tvPlan->setFocus(Qt::TabFocusReason); });
    connect(m_model, &replace::PlanModel::ChoiceChanged, this, &frmReplace::showChoice);
    connect(cmdReplace, &QPushButton::clicked, this, &frmReplace::Replace);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    auto *key = new QShortcut(Qt::CTRL | Qt::Key_K, this);
    connect(key, &QShortcut::activated, this, &frmReplace::focusSearch);
    auto *again = new QShortcut(Qt::Key_F5, this);
    connect(again, &QShortcut::activated, this, [this] { Begin(std::nullopt); });
}

void frmReplace::connectJobs()
{
    for (BackgroundJob *job : {m_listing, m_candidates, m_search}) {
        connect(job, &BackgroundJob::Progressed, this, &frmReplace::showProgress);
        connect(job, &BackgroundJob::Ended, this,
                [this](bool, const std::string &failure) { jobEnded(failure); });
    }
    connect(m_change, &BackgroundJob::Ended, this,
            [this](bool, const std::string &failure) { changeEnded(failure); });
}

/// Goes to the search field of the list that has the focus. From a field, goes to the other one.
void frmReplace::focusSearch()
{
    const bool second = from->search->hasFocus() || to->list->hasFocus();
    (second ? to : from)->FocusSearch();
}

void frmReplace::Begin(const std::optional<StockItem> &vehicle)
{
    if (vehicle) {
        m_wanted = vehicle;
        from->search->clear();
        from->Pick(vehicle);
        if (from->PickedVehicle() != vehicle)
            from->SetVehicles({{*vehicle, {}, false}});
        from->Pick(vehicle);
    }
    if (Writing())
        return;
    listVehicles();
    SearchAgain();
}

void frmReplace::listVehicles()
{
    const std::string folder = m_environment.installation.CurrentFolder();
    from->SetHint(QStringLiteral("The vehicles are being listed"));
    m_listing->Start([this, folder](BackgroundJob::Control &control) {
        auto vehicles =
            content::VehicleCatalogue(folder, [&control](std::size_t done, std::size_t total) {
                return control.GoOn(done, total);
            });
        return [this, vehicles = std::move(vehicles)] { showVehicles(vehicles); };
    });
    showState();
}

void frmReplace::showVehicles(const std::vector<content::CataloguedVehicle> &vehicles)
{
    std::vector<VehicleRow> rows;
    m_installed.clear();
    for (const content::CataloguedVehicle &entry : vehicles) {
        rows.push_back({entry.vehicle, remarkOf(entry), !entry.isInstalled});
        if (entry.isInstalled)
            m_installed.push_back(entry.vehicle);
    }
    // A train that is not saved may name a vehicle that no consist on disk names.
    const auto isWanted = [this](const VehicleRow &row) {
        return host::EqualsNoCase(document::VehicleText(row.vehicle),
                                  document::VehicleText(*m_wanted));
    };
    const auto wanted = m_wanted ? std::find_if(rows.begin(), rows.end(), isWanted) : rows.begin();
    if (wanted == rows.end() && m_wanted)
        rows.push_back({*m_wanted, "missing", true});
    from->SetHint(QStringLiteral("No vehicle is installed, and no consist names one"));
    const bool hadPick = from->PickedVehicle().has_value();
    from->SetVehicles(std::move(rows));
    if (hadPick && m_wanted && !from->PickedVehicle())
        from->Pick(m_wanted);
    findCandidates();
}

void frmReplace::startSearch()
{
    findCandidates();
    search();
}

void frmReplace::findCandidates()
{
    const std::optional<StockItem> vehicle = from->PickedVehicle();
    if (!vehicle || m_installed.empty()) {
        m_candidates->Abandon();
        to->SetHint(vehicle ? QStringLiteral("The vehicles are being listed")
                            : QStringLiteral("First pick the vehicle to replace"));
        to->SetVehicles({});
        showState();
        return;
    }
    const std::string folder = m_environment.installation.CurrentFolder();
    m_candidates->Start([this, folder, vehicle = *vehicle,
                         installed = m_installed](BackgroundJob::Control &control) {
        auto candidates = content::ReadCandidates(
            folder, vehicle, installed,
            [&control](std::size_t done, std::size_t total) { return control.GoOn(done, total); });
        return [this, candidates = std::move(candidates)] { showCandidates(candidates); };
    });
    showState();
}

void frmReplace::showCandidates(const std::vector<content::ReplacementCandidate> &candidates)
{
    std::vector<VehicleRow> rows;
    for (const content::ReplacementCandidate &candidate : candidates)
        rows.push_back({candidate.vehicle, candidate.why, false});
    to->SetHint(QStringLiteral("No other vehicle of this kind is installed"));
    to->SetVehicles(std::move(rows));
    if (!to->PickedVehicle())
        to->list->scrollToTop();
}

void frmReplace::SearchAgain()
{
    if (from->PickedVehicle() && !Writing())
        search();
}

void frmReplace::search()
{
    const std::optional<StockItem> vehicle = from->PickedVehicle();
    m_unsaved = m_unsavedFiles();
    if (!vehicle) {
        m_search->Abandon();
        showPlan(nullptr);
        return;
    }
    m_search->Start([this, vehicle = *vehicle, files = &m_environment.files,
                     installation = m_environment.installation](BackgroundJob::Control &control) {
        std::vector<std::string> faults, paths;
        const auto searched = document::FilesToSearch(installation, *files, faults);
        for (const document::SearchedFile &file : searched)
            paths.push_back(file.path);
        document::FoundInUse found =
            document::FindInUse({*files, vehicle, vehicle}, paths,
                                [&](std::size_t done) { return control.GoOn(done, paths.size()); });
        found.faults.insert(found.faults.begin(), faults.begin(), faults.end());
        auto plan = std::make_shared<ReplacementPlan>(vehicle, searched, std::move(found));
        return [this, plan] { showPlan(plan); };
    });
    showState();
}

/// Null shows that nothing was searched.
void frmReplace::showPlan(std::shared_ptr<ReplacementPlan> plan)
{
    const std::shared_ptr<ReplacementPlan> before = m_model->Plan();
    if (plan && before && before->From() == plan->From())
        plan->ChooseAsIn(*before);
    if (plan)
        blockUnsaved(*plan);
    m_model->SetPlan(std::move(plan));
    const QModelIndex consists = m_model->IndexOf(replace::PlanModel::Consists);
    if (consists.isValid())
        tvPlan->expand(consists);
    tvPlan->setColumnWidth(0, std::max(200, tvPlan->viewport()->width() * 3 / 5));
    showChoice();
}

/// An open editor with unsaved changes would ask later which of the two changes to keep.
void frmReplace::blockUnsaved(ReplacementPlan &plan)
{
    host::GameFiles &files = m_environment.files;
    const auto isSame = [&files](const std::string &one, const std::string &other) {
        return host::EqualsNoCase(host::path::FileName(one), host::path::FileName(other)) &&
               files.FindFile(one) == files.FindFile(other);
    };
    for (const std::string &unsaved : m_unsaved)
        for (std::size_t i = 0; i < plan.Files().size(); ++i)
            if (isSame(unsaved, plan.Files()[i].found.path))
                plan.Block(i, kUnsaved);
}

void frmReplace::showChoice()
{
    tvPlan->viewport()->update();
    showState();
}

void frmReplace::showState()
{
    const auto plan = m_model->Plan();
    const bool busy = Writing();
    QString summary = QStringLiteral("Pick the vehicle to replace.");
    if (plan)
        summary = QString::fromStdString(plan->Summary());
    else if (from->PickedVehicle() && (m_searchSoon.isActive() || m_search->Running()))
        summary = QStringLiteral("All consists and activities are being searched.");
    else if (from->PickedVehicle())
        summary = QStringLiteral("The search was stopped.  F5 starts it again.");
    lblSummary->setText(summary);
    for (QWidget *control : std::initializer_list<QWidget *>{from, to, tvPlan})
        control->setEnabled(!busy);
    cmdReplace->setEnabled(!busy && plan && plan->ChosenUnits() > 0 && to->PickedVehicle() &&
                           !m_search->Running() && !m_searchSoon.isActive());
    cmdClose->setEnabled(!busy);
    const bool searches = m_listing->Running() || m_candidates->Running() || m_search->Running();
    m_progress->setVisible(searches || busy);
    std::string status = m_outcome;
    if (busy)
        status = "The files are being written.";
    else if (searches)
        status = "Searching.  Esc stops.";
    lblStatus->setText(QString::fromStdString(status));
    lblStatus->setToolTip(lblStatus->text());
}

void frmReplace::showProgress(int done, int total)
{
    m_progress->setRange(0, total);
    m_progress->setValue(done);
}

void frmReplace::jobEnded(const std::string &failure)
{
    if (!failure.empty())
        m_environment.dialogs.Message(failure, kTitle, host::DialogIcon::Critical);
    m_progress->setRange(0, 0);
    showState();
}

bool frmReplace::Running() const
{
    return m_searchSoon.isActive() || m_listing->Running() || m_candidates->Running() ||
           m_search->Running() || Writing();
}

bool frmReplace::Writing() const
{
    return m_change->Running();
}

std::shared_ptr<const ReplacementPlan> frmReplace::Plan() const
{
    return m_model->Plan();
}

void frmReplace::Replace()
{
    const std::shared_ptr<ReplacementPlan> plan = m_model->Plan();
    const std::optional<StockItem> vehicle = to->PickedVehicle();
    if (!plan || !vehicle || Writing() || m_search->Running() || m_searchSoon.isActive())
        return;
    if (m_unsavedFiles() != m_unsaved) { // the plan is no longer what the user sees in the windows
        search();
        return;
    }
    m_change->Start(
        [this, plan, vehicle = *vehicle, files = &m_environment.files](BackgroundJob::Control &) {
            const Written written = write(*plan, vehicle, *files);
            return [this, written] {
                for (const std::string &message : written.messages)
                    m_environment.dialogs.Message(message, kTitle, host::DialogIcon::Information);
                m_outcome = written.outcome;
                Q_EMIT Replaced(written.paths);
            };
        });
    m_progress->setRange(0, 0);
    showState();
}

/// The counts in the list of vehicles and the plan are those of the old files now.
void frmReplace::changeEnded(const std::string &failure)
{
    if (failure.empty()) {
        Q_EMIT StatusChanged(m_outcome);
        m_wanted.reset();
        listVehicles();
    } else {
        m_outcome = "Nothing was replaced.";
        showState();
        m_environment.dialogs.Message(failure, kTitle, host::DialogIcon::Critical);
    }
    search();
    from->list->setFocus(Qt::OtherFocusReason); // a disabled control loses the focus
}

void frmReplace::stopSearches()
{
    m_searchSoon.stop();
    for (BackgroundJob *job : {m_listing, m_candidates, m_search})
        job->Stop();
    m_outcome = "The search was stopped.";
    showState();
}

void frmReplace::Abandon()
{
    m_searchSoon.stop();
    for (BackgroundJob *job : {m_listing, m_candidates, m_search, m_change})
        job->Abandon();
}

/// Esc stops a search first. Nothing stops a change that is being written.
void frmReplace::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && Running())
        stopSearches();
    else
        QDialog::keyPressEvent(event);
}

/// Other windows may have been saved or changed since the search.
void frmReplace::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_model->Plan() &&
        m_unsavedFiles() != m_unsaved)
        SearchAgain();
}

void frmReplace::closeEvent(QCloseEvent *event)
{
    if (Writing()) {
        event->ignore();
        return;
    }
    Abandon();
    QDialog::closeEvent(event);
}
