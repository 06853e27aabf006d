// SPDX-License-Identifier: MIT
#include "ui/health/HealthFilterBar.h"

#include "ui/widgets/NamedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace health {

using content::HealthTree;
using content::Profile;
using content::Profiles;
using content::Severity;

namespace {

/// The pause after a key in the search box, so that fast typing filters a large report once.
constexpr int kTypingMilliseconds = 120;

struct Choice
{
    Profiles profiles;
    const char *text;
};
constexpr Choice kChoices[] = {{Profiles::Both(), "MSTS and Open Rails"},
                               {Profile::Msts, "MSTS"},
                               {Profile::OpenRails, "Open Rails"}};

QString number(std::size_t count)
{
    return QLocale().toString(static_cast<qulonglong>(count));
}

QString captionOf(const char *name, std::size_t count)
{
    return QLatin1String(name) + QStringLiteral(": ") + number(count);
}

} // namespace

HealthFilterBar::HealthFilterBar(QWidget *parent)
    : QWidget(parent)
    , txtSearch(new QLineEdit(this))
    , cboSimulators(new QComboBox(this))
    , chkSeverities{new QCheckBox(this), new QCheckBox(this), new QCheckBox(this)}
    , chkKnown(new QCheckBox(this))
    , lblHidden(new QLabel(this))
    , cmdShowAll(new QPushButton(QStringLiteral("S&how All"), this))
{
    for (const Choice &choice : kChoices)
        cboSimulators->addItem(QLatin1String(choice.text));
    for (QCheckBox *box : chkSeverities)
        box->setChecked(true);
    nameControls();
    arrangeControls();
    connectControls();
}

void HealthFilterBar::nameControls()
{
    const install::NamedControl controls[] = {
        {txtSearch, "txtSearch", "Search", "Show only findings that contain this text (Ctrl+F)"},
        {cboSimulators, "cboSimulators", "Simulator", "The simulator that runs this content"},
        {chkSeverities[2], "chkErrors", "Errors",
         "Show errors: the simulator fails or shows something wrong"},
        {chkSeverities[1], "chkWarnings", "Warnings", "Show warnings"},
        {chkSeverities[0], "chkNotes", "Notes", "Show notes"},
        {chkKnown, "chkKnown", "Known", "Also show the findings that you have accepted as known"},
        {lblHidden, "lblHidden", "", ""},
        {cmdShowAll, "cmdShowAll", "Show All", "Show the findings that the filters hide"},
    };
    install::NameControls(controls);
    txtSearch->setPlaceholderText(QStringLiteral("Search files, folders and rules"));
    txtSearch->setClearButtonEnabled(true);
    cmdShowAll->setAutoDefault(false);
    QSizePolicy room = cmdShowAll->sizePolicy();
    room.setRetainSizeWhenHidden(true); // so that the rows below stay where they are
    cmdShowAll->setSizePolicy(room);
}

void HealthFilterBar::arrangeControls()
{
    auto *search = new QLabel(QStringLiteral("&Find:"), this);
    search->setBuddy(txtSearch);
    auto *simulator = new QLabel(QStringLiteral("Si&mulator:"), this);
    simulator->setBuddy(cboSimulators);
    auto *upper = new QHBoxLayout;
    upper->setSpacing(6);
    upper->addWidget(search);
    upper->addWidget(txtSearch, 1);
    upper->addSpacing(6);
    upper->addWidget(simulator);
    upper->addWidget(cboSimulators);
    auto *lower = new QHBoxLayout;
    lower->setSpacing(14);
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note})
        lower->addWidget(chkSeverities[static_cast<std::size_t>(severity)]);
    lower->addWidget(chkKnown);
    lower->addStretch(1);
    auto *hidden = new QHBoxLayout;
    hidden->setSpacing(10);
    hidden->addWidget(lblHidden);
    hidden->addWidget(cmdShowAll);
    hidden->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addLayout(upper);
    layout->addLayout(lower);
    layout->addLayout(hidden);
}

void HealthFilterBar::connectControls()
{
    m_typing.setSingleShot(true);
    m_typing.setInterval(kTypingMilliseconds);
    connect(&m_typing, &QTimer::timeout, this, &HealthFilterBar::Changed);
    connect(txtSearch, &QLineEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    for (QCheckBox *box : {chkSeverities[0], chkSeverities[1], chkSeverities[2], chkKnown})
        connect(box, &QCheckBox::toggled, this, &HealthFilterBar::Changed);
    connect(cboSimulators, &QComboBox::currentIndexChanged, this, [this] {
        Q_EMIT ProfilesChosen(Filter().profiles);
        Q_EMIT Changed();
    });
    connect(cmdShowAll, &QPushButton::clicked, this, &HealthFilterBar::ShowAll);
    txtSearch->installEventFilter(this);
}

bool HealthFilterBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != txtSearch || event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down)
        return false;
    if (m_typing.isActive()) {
        m_typing.stop();
        Q_EMIT Changed();
    }
    Q_EMIT Left();
    return true;
}

content::HealthFilter HealthFilterBar::Filter() const
{
    content::HealthFilter filter;
    filter.profiles = kChoices[cboSimulators->currentIndex()].profiles;
    for (std::size_t i = 0; i < chkSeverities.size(); ++i)
        filter.severities[i] = chkSeverities[i]->isChecked();
    filter.known = chkKnown->isChecked();
    filter.search = txtSearch->text().trimmed().toStdString();
    return filter;
}

void HealthFilterBar::SetProfiles(Profiles profiles)
{
    const QSignalBlocker blocked(cboSimulators);
    for (int i = 0; i < cboSimulators->count(); ++i)
        if (kChoices[i].profiles == profiles)
            cboSimulators->setCurrentIndex(i);
}

void HealthFilterBar::ShowCounts(const HealthTree &tree)
{
    const char *const captions[] = {"&Notes", "&Warnings", "&Errors"};
    for (std::size_t i = 0; i < chkSeverities.size(); ++i)
        chkSeverities[i]->setText(captionOf(captions[i], tree.Counts()[i]));
    chkKnown->setText(captionOf("&Known", tree.Count(content::Novelty::Known)));
    const std::size_t hidden = tree.Hidden();
    QString text = number(hidden) + QLatin1String(hidden == 1 ? " finding is" : " findings are") +
                   QStringLiteral(" hidden by the filters");
    if (tree.HiddenKnown() > 0)
        text += QStringLiteral(" (") + number(tree.HiddenKnown()) + QStringLiteral(" known)");
    lblHidden->setText(text);
    cmdShowAll->setVisible(hidden > 0);
}

void HealthFilterBar::ShowAll()
{
    {
        const QSignalBlocker search(txtSearch);
        txtSearch->clear();
        m_typing.stop();
        for (QCheckBox *box : {chkSeverities[0], chkSeverities[1], chkSeverities[2], chkKnown}) {
            const QSignalBlocker blocked(box);
            box->setChecked(true);
        }
    }
    txtSearch->setFocus();
    Q_EMIT Changed();
}

} // namespace health
