// SPDX-License-Identifier: MIT
#include "ui/dialogs/QtDialogs.h"

#include "host/GameFiles.h"
#include "ui/dialogs/FileChooser.h"
#include "ui/dialogs/frmSelector.h"

#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>

namespace app {

using host::DialogAnswer;
using host::DialogButtons;
using host::DialogIcon;

namespace {

QWidget *parentOfDialog()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow *>(window) && window->isVisible())
            return window;
    return nullptr;
}

QMessageBox::Icon iconOf(DialogIcon icon)
{
    switch (icon) {
    case DialogIcon::Information:
        return QMessageBox::Information;
    case DialogIcon::Question:
        return QMessageBox::Question;
    case DialogIcon::Critical:
        return QMessageBox::Critical;
    case DialogIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(DialogButtons buttons)
{
    switch (buttons) {
    case DialogButtons::YesNo:
    case DialogButtons::YesNoDefaultNo:
        return QMessageBox::Yes | QMessageBox::No;
    case DialogButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case DialogButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// A message box that knows whether it was closed without a button. If a box has a single button,
/// the toolkit treats Esc as that button.
class MessageBox : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

    bool Dismissed() const { return m_dismissed; }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        m_dismissed = event->matches(QKeySequence::Cancel);
        QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent *event) override
    {
        m_dismissed = true;
        QMessageBox::closeEvent(event);
    }

private:
    bool m_dismissed = false;
};

/// Returns the file that was chosen under the name that the toolkit displays. Returns "", after a
/// message, if several files are displayed like that.
std::string fileChosen(const QString &shown, host::Dialogs &dialogs, const std::string &title)
{
    const std::string text = QDir::toNativeSeparators(shown).toStdString();
    const std::vector<std::string> paths = PathsShownAs(shown);
    if (!shown.contains(QChar::ReplacementCharacter) || paths.empty()) // empty for a new name
        return text;
    if (paths.size() == 1)
        return host::GameFiles().TextOf(paths.front());
    dialogs.Message("Several files are shown as " + text +
                        ". To choose one of them, drop it on the window.",
                    title, DialogIcon::Critical);
    return {};
}

/// Prepares and runs a file dialog; returns the chosen path, or "".
std::string choose(FileChooser &dialog, host::Dialogs &dialogs,
                   const host::FileDialogRequest &request)
{
    const QString initialName = QString::fromStdString(request.initialName);
    dialog.setWindowTitle(QString::fromStdString(request.title));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(NameFilters(request.filter));
    if (!request.folder.empty())
        dialog.setDirectory(QString::fromStdString(request.folder));
    if (!initialName.isEmpty())
        dialog.selectFile(initialName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString chosen = dialog.selectedFiles().constFirst();
    // A pattern that was left in the name box is not a file.
    if (initialName.contains(QLatin1Char('*')) &&
        chosen.section(QLatin1Char('/'), -1) == initialName)
        return request.initialName;
    return fileChosen(chosen, dialogs, request.title);
}

} // namespace

DialogAnswer QtDialogs::Message(const std::string &text, const std::string &title, DialogIcon icon,
                                DialogButtons buttons)
{
    MessageBox box(iconOf(icon), QString::fromStdString(title), QString(), buttonsOf(buttons),
                   parentOfDialog());
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (buttons == DialogButtons::YesNo || buttons == DialogButtons::YesNoDefaultNo)
        box.setEscapeButton(QMessageBox::No);
    if (buttons == DialogButtons::YesNoDefaultNo)
        box.setDefaultButton(QMessageBox::No);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return DialogAnswer::Yes;
    case QMessageBox::No:
        return DialogAnswer::No;
    case QMessageBox::Cancel:
        return DialogAnswer::Cancel;
    default:
        return box.Dismissed() ? DialogAnswer::Cancel : DialogAnswer::Ok;
    }
}

std::optional<std::string> QtDialogs::Input(const std::string &prompt, const std::string &title,
                                            const std::string &defaultAnswer)
{
    QInputDialog dialog(parentOfDialog());
    dialog.setWindowTitle(QString::fromStdString(title));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setLabelText(QString::fromStdString(prompt));
    dialog.setTextValue(QString::fromStdString(defaultAnswer));
    for (QLabel *label : dialog.findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    dialog.resize(360, dialog.sizeHint().height());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue().toStdString();
}

std::string QtDialogs::OpenFile(const host::FileDialogRequest &request)
{
    FileChooser dialog(parentOfDialog());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return choose(dialog, *this, request);
}

std::string QtDialogs::SaveFile(const host::FileDialogRequest &request)
{
    FileChooser dialog(parentOfDialog());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    // A name typed without an extension gets that of the current filter.
    const auto followFilter = [&dialog](const QString &filter) {
        const QString suffix =
            filter.section(QLatin1Char('.'), -1).remove(QLatin1Char(')')).toLower();
        dialog.setDefaultSuffix(suffix.contains(QLatin1Char('*')) ? QString() : suffix);
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, followFilter);
    const QStringList filters = NameFilters(request.filter);
    if (!filters.isEmpty())
        followFilter(filters.constFirst());
    return choose(dialog, *this, request);
}

std::string QtDialogs::SelectFromList(const std::string &caption, const std::string &list)
{
    frmSelector dialog(parentOfDialog());
    dialog.setWindowTitle(QString::fromStdString(caption));
    dialog.SelectFrom(list);
    dialog.exec();
    return dialog.Selected();
}

QStringList NameFilters(const std::string &filter)
{
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern =
            parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        const QString upper = pattern.toUpper();
        const QString both = pattern == upper ? pattern : pattern + QLatin1Char(' ') + upper;
        filters << parts[i] + QStringLiteral(" (") + both + QLatin1Char(')');
    }
    return filters;
}

} // namespace app
