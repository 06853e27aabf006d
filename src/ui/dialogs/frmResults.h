// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <string>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace validation {
class FindBar;
}

/// A window of its own with a text to read: what a check found, or the properties of something. It
/// stands above the main window and goes with it. It can be searched and copied from; Save appends
/// the text to a report file. It deletes itself when it is closed.
class frmResults : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is where the default name of a saved report lies. Dialogs and files must outlive
    /// it.
    frmResults(host::Dialogs &dialogs, host::GameFiles &files, std::string folder,
               QWidget *parent = nullptr);
    ~frmResults() override;

    std::string Caption() const { return windowTitle().toStdString(); }
    /// A caption too long for a title is cut.
    void SetCaption(const std::string &caption);
    /// The text, with line ends of any kind; they are saved as the report file has them.
    const std::string &Text() const { return m_text; }
    void SetText(std::string text);

    /// Tells in a message box how long the text is, in characters as it was set.
    void ShowMessageProperties();
    /// Asks for a file name and appends the framed text to that file.
    void Save();

    QPlainTextEdit *txtResults;
    QPushButton *cmdPrint;
    QPushButton *cmdSave;
    QPushButton *cmdClose;

Q_SIGNALS:
    void PrintRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void nameControls();
    void arrangeControls();
    void orderTabs();
    void connectControls();
    template <typename Receiver>
    void addKey(const char *caption, const QKeySequence &keys, Receiver *receiver,
                void (Receiver::*command)());
    void showSummary();
    void showTextMenu(const QPoint &position);
    std::string defaultName() const;

    host::Dialogs &m_dialogs;
    host::GameFiles &m_files;
    std::string m_folder;
    std::string m_text;
    QLabel *m_summary;
    validation::FindBar *m_findBar;
};
