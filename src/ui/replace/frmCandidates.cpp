// SPDX-License-Identifier: MIT
#include "ui/replace/frmCandidates.h"

#include "content/VehicleCatalogue.h"
#include "document/StockReplacement.h"
#include "host/Dialogs.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/replace/BackgroundJob.h"
#include "ui/replace/VehiclePicker.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/NamedControls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using replace::BackgroundJob;
using replace::VehiclePicker;

namespace {

constexpr char kTitle[] = "Find Candidates";

} // namespace

frmCandidates::frmCandidates(const install::Environment &environment,
                             const install::StockItem &vehicle, const QIcon &missing,
                             QWidget *parent)
    : QDialog(parent)
    , picker(
          new VehiclePicker({"Candidates",
                             QStringLiteral("Candi&dates for ") +
                                 QString::fromStdString(document::VehicleText(vehicle))
                                     .replace(QLatin1Char('&'), QStringLiteral("&&")),
                             QStringLiteral("Search the candidates"), QStringLiteral("In common")},
                            missing, this))
    , cmdUse(new QPushButton(QStringLiteral("&Use in This Unit"), this))
    , cmdCancel(new QPushButton(QStringLiteral("Cancel"), this))
    , m_search(new BackgroundJob(this))
{
    setWindowTitle(QString::fromLatin1(kTitle));
    setObjectName("frmCandidates");
    const install::NamedControl controls[] = {
        {cmdUse, "cmdUse", "Use in This Unit",
         "Replace this unit of the train; Undo takes it back"},
        {cmdCancel, "cmdCancel", "Cancel", "Change nothing"},
    };
    install::NameControls(controls);
    arrangeControls();
    start(environment, vehicle);
}

frmCandidates::~frmCandidates()
{
    m_search->Abandon();
}

void frmCandidates::arrangeControls()
{
    cmdUse->setDefault(true);
    cmdUse->setEnabled(false);
    connect(picker, &VehiclePicker::Picked, this,
            [this] { cmdUse->setEnabled(picker->PickedVehicle().has_value()); });
    connect(picker, &VehiclePicker::Chosen, this, [this] { cmdUse->click(); });
    connect(cmdUse, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto *key = new QShortcut(Qt::CTRL | Qt::Key_K, this);
    connect(key, &QShortcut::activated, picker, &VehiclePicker::FocusSearch);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    buttons->addStretch(1);
    buttons->addWidget(cmdUse);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addWidget(picker, 1);
    layout->addLayout(buttons);
    resize(560, 420);
    picker->list->setFocus();
}

void frmCandidates::start(const install::Environment &environment,
                          const install::StockItem &vehicle)
{
    picker->SetHint(QStringLiteral("The candidates are being searched"));
    connect(m_search, &BackgroundJob::Ended, this,
            [&dialogs = environment.dialogs](bool, const std::string &failure) {
                if (!failure.empty())
                    dialogs.Message(failure, kTitle, host::DialogIcon::Critical);
            });
    m_search->Start([this, vehicle, folder = environment.installation.CurrentFolder()](
                        BackgroundJob::Control &control) {
        const auto goOn = [&control](std::size_t done, std::size_t total) {
            return control.GoOn(done, total);
        };
        std::vector<replace::VehicleRow> rows;
        for (const content::ReplacementCandidate &candidate : content::ReadCandidates(
                 folder, vehicle, content::InstalledVehicles(folder, goOn), goOn))
            rows.push_back({candidate.vehicle, candidate.why, false});
        return [this, rows = std::move(rows)] {
            picker->SetHint(QStringLiteral("No other vehicle of this kind is installed"));
            picker->SetVehicles(rows);
            picker->list->SelectRow(rows.empty() ? -1 : 0);
        };
    });
}

std::optional<install::StockItem> frmCandidates::Choice() const
{
    return result() == QDialog::Accepted ? picker->PickedVehicle() : std::nullopt;
}
