// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmResults.h"

#include "host/Dialogs.h"
#include "host/Path.h"
#include "host/Process.h"
#include "host/RuntimeError.h"
#include "ui/dialogs/FindBar.h"
#include "ui/widgets/NamedControls.h"
#include "validation/Report.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <new>
#include <system_error>
#include <utility>

namespace {

constexpr int kCaptionPrefix = 15; ///< length of "Stock check of " and "Usage check of "

QString counted(qsizetype count, const char *one, const char *many)
{
    return QLocale().toString(count) + QLatin1Char(' ') + QLatin1String(count == 1 ? one : many);
}

} // namespace

frmResults::frmResults(host::Dialogs &dialogs, host::GameFiles &files, std::string folder,
                       QWidget *parent)
    : QDialog(parent)
    , txtResults(new validation::ReportView(this))
    , cmdPrint(new QPushButton(QStringLiteral("&Print..."), this))
    , cmdSave(new QPushButton(QStringLiteral("&Save"), this))
    , cmdClose(new QPushButton(QStringLiteral("&Close"), this))
    , m_dialogs(dialogs)
    , m_files(files)
    , m_folder(std::move(folder))
    , m_summary(new QLabel(this))
    , m_elsewhere(new QLabel(this))
    , m_findBar(new validation::FindBar(*txtResults, this))
{
    setWindowTitle(QStringLiteral("Results"));
    // As a dialog it stays above its owner, but it has the title buttons of an ordinary window.
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    nameControls();
    arrangeControls();
    connectControls();
}

frmResults::~frmResults() = default;

void frmResults::nameControls()
{
    setObjectName("frmResults");
    const install::NamedControl controls[] = {
        {txtResults, "txtResults", "Results", ""},
        {cmdPrint, "cmdPrint", "Print", "Print the report (Ctrl+P)"},
        {cmdSave, "cmdSave", "Save", "Append the report to a file (Ctrl+S)"},
        {cmdClose, "cmdClose", "Close", "Close this window (Esc)"},
        {m_summary, "lblSummary", "", ""},
        {m_elsewhere, "lblElsewhere", "", ""},
    };
    install::NameControls(controls);
}

void frmResults::arrangeControls()
{
    txtResults->setPlaceholderText(QStringLiteral("Nothing was found."));
    cmdClose->setDefault(true);
    cmdPrint->setAutoDefault(false);
    cmdSave->setAutoDefault(false);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(m_summary, 1);
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdClose);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addWidget(txtResults, 1);
    m_elsewhere->setTextFormat(Qt::PlainText);
    m_elsewhere->setWordWrap(true);
    m_elsewhere->hide();
    layout->addWidget(m_elsewhere);
    layout->addWidget(m_findBar);
    layout->addLayout(buttons);
    resize(880, 480);
    setMinimumSize(280, 160);
    orderTabs();
}

void frmResults::orderTabs()
{
    QWidget *before = txtResults;
    for (QWidget *next : std::initializer_list<QWidget *>{
             m_findBar->txtFind, m_findBar->cmdFindPrevious, m_findBar->cmdFindNext,
             m_findBar->cmdFindClose, cmdPrint, cmdSave, cmdClose}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frmResults::connectControls()
{
    connect(txtResults, &validation::ReportView::Filled, m_findBar, &validation::FindBar::Recount);
    // Runs however the window is closed.
    connect(this, &QDialog::finished, this, [this] { m_counting.request_stop(); });
    connect(this, &QDialog::finished, this, &QObject::deleteLater);
    connect(cmdPrint, &QPushButton::clicked, this, &frmResults::PrintRequested);
    connect(cmdSave, &QPushButton::clicked, this, &frmResults::Save);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    txtResults->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(txtResults, &QWidget::customContextMenuRequested, this, &frmResults::showTextMenu);
    using validation::FindBar;
    addKey("&Find...", QKeySequence::Find, m_findBar, &FindBar::Open);
    addKey("Find &Next", QKeySequence::FindNext, m_findBar, &FindBar::FindNext);
    addKey("Find Pre&vious", QKeySequence::FindPrevious, m_findBar, &FindBar::FindPrevious);
    addKey("&Print...", QKeySequence::Print, this, &frmResults::PrintRequested);
    addKey("Save &Report...", QKeySequence::Save, this, &frmResults::Save);
    addKey("Message Pr&operties", Qt::ALT | Qt::Key_Return, this,
           &frmResults::ShowMessageProperties);
}

/// Adds a command of the whole window; the context menu of the text contains it too.
template <typename Receiver>
void frmResults::addKey(const char *caption, const QKeySequence &keys, Receiver *receiver,
                        void (Receiver::*command)())
{
    auto *action = new QAction(QString::fromLatin1(caption), this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, receiver, command);
    addAction(action);
}

void frmResults::SetCaption(const std::string &caption)
{
    // The names of many consists make a title longer than any window system accepts.
    constexpr qsizetype limit = 200;
    const QString text = QString::fromStdString(caption);
    setWindowTitle(text.size() > limit ? text.left(limit) + QStringLiteral("...") : text);
}

void frmResults::SetText(std::string text)
{
    m_text = std::move(text);
    txtResults->SetReport(m_text);
    txtResults->moveCursor(QTextCursor::Start);
    m_findBar->Recount();
    showSummary();
}

void frmResults::showSummary()
{
    qsizetype errors = 0, infos = 0;
    bool stopped = false;
    for (std::string_view rest = m_text; !rest.empty();) {
        errors += rest.starts_with(validation::kErrorWord);
        infos += rest.starts_with(validation::kInfoWord);
        stopped = stopped || rest.starts_with(validation::kStoppedWord);
        rest.remove_prefix(std::min(rest.size(), rest.find_first_of("\r\n")));
        rest.remove_prefix(std::min(rest.size(), rest.find_first_not_of("\r\n")));
    }
    QStringList parts;
    if (errors > 0)
        parts << counted(errors, "error", "errors");
    if (infos > 0)
        parts << counted(infos, "note", "notes");
    if (stopped) // the line that reports this may be far below
        parts << QStringLiteral("not complete");
    m_summary->setText(parts.join(QStringLiteral(", ")));
}

void frmResults::CountElsewhere(content::FoundElsewhere files)
{
    auto count = [this, files = std::move(files)](const std::stop_token &stop) {
        host::LowerThreadPriority();
        try {
            if (const auto found = files.Count(stop); found && *found > 0)
                QMetaObject::invokeMethod(
                    this, [this, found] { showElsewhere(*found); }, Qt::QueuedConnection);
        } catch (const std::bad_alloc &) {
            return; // the report is complete without the line
        }
    };
    try {
        m_counting = std::jthread(std::move(count));
    } catch (const std::system_error &) {
        return;
    }
}

void frmResults::showElsewhere(std::size_t count)
{
    // The texts of the program are in English, whatever the user's locale is.
    const QString number =
        QLocale(QLocale::English, QLocale::UnitedStates).toString(static_cast<qulonglong>(count));
    const char *text = count == 1 ? "%1 of these files is found elsewhere by the simulator: see "
                                    "Stock > Health Report."
                                  : "%1 of these files are found elsewhere by the simulator: see "
                                    "Stock > Health Report.";
    m_elsewhere->setText(QString::fromLatin1(text).arg(number));
    m_elsewhere->show();
}

void frmResults::showTextMenu(const QPoint &position)
{
    txtResults->Finish(); // the menu has "Select All"
    const std::unique_ptr<QMenu> menu(txtResults->createStandardContextMenu());
    menu->addSeparator();
    menu->addActions(actions());
    menu->exec(txtResults->viewport()->mapToGlobal(position));
}

void frmResults::ShowMessageProperties()
{
    const qsizetype length = QString::fromStdString(m_text).size();
    m_dialogs.Message(std::to_string(length) + " characters in message", "Message Properties",
                      host::DialogIcon::Information);
}

/// Returns the caption without its prefix as a file name; "_" replaces the "|" between several
/// names.
std::string frmResults::defaultName() const
{
    QString name = windowTitle().mid(kCaptionPrefix);
    for (const char forbidden : {'"', '*', '/', ':', '<', '>', '?', '\\', '|'})
        name.replace(QLatin1Char(forbidden), QLatin1Char('_'));
    return host::path::Join(m_folder, name.toStdString() + ".log");
}

void frmResults::Save()
{
    const QPointer<frmResults> self(this); // the program may end while the question is open
    const std::optional<std::string> name =
        m_dialogs.Input("Enter file name:", "Save Results", defaultName());
    if (!self || !name || name->empty())
        return;
    // A bare name refers to the proposed folder, not to the current directory.
    const bool bare = host::path::FolderWithSeparator(*name).empty();
    try {
        validation::AppendReport(m_files, bare ? host::path::Join(m_folder, *name) : *name, m_text);
    } catch (const host::RuntimeError &error) {
        m_dialogs.Message(host::Explained(error), "Save Results", host::DialogIcon::Critical);
    }
}

void frmResults::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_findBar->isVisible())
        m_findBar->hide();
    else
        QDialog::keyPressEvent(event);
}
