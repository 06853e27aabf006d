// SPDX-License-Identifier: MIT
#pragma once

#include "content/FoundElsewhere.h"
#include "ui/dialogs/ReportView.h"

#include <QDialog>

#include <cstddef>
#include <string>
#include <thread>

class QLabel;
class QPushButton;

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace validation {
class FindBar;
} // namespace validation

/// A separate window with a text to read: what a check found, or the properties of something. It
/// stays above the main window and closes with it. Users can search and copy the text; Save appends
/// it to a report file. The window deletes itself when it is closed.
class frmResults : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is the proposed folder of saved reports. `dialogs` and `files` must outlive the
    /// window.
    frmResults(host::Dialogs &dialogs, host::GameFiles &files, std::string folder,
               QWidget *parent = nullptr);
    ~frmResults() override;

    std::string Caption() const { return windowTitle().toStdString(); }
    /// Sets the title; cuts a caption that is too long for one.
    void SetCaption(const std::string &caption);
    /// The text, with line ends of any kind; Save writes those of the report file.
    const std::string &Text() const { return m_text; }
    void SetText(std::string text);
    /// Counts the files that the text calls missing although the simulators do without them, on a
    /// thread of low priority, and then shows a line about them below the text. Closing the window
    /// stops the count. Call it only once.
    void CountElsewhere(content::FoundElsewhere files);

    /// Shows the length of the text, as it was set, in a message box.
    void ShowMessageProperties();
    /// Asks for a file name and appends the framed text to that file.
    void Save();

    validation::ReportView *txtResults;
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
    void showElsewhere(std::size_t count);
    void showTextMenu(const QPoint &position);
    std::string defaultName() const;

    host::Dialogs &m_dialogs;
    host::GameFiles &m_files;
    std::string m_folder;
    std::string m_text;
    QLabel *m_summary;
    QLabel *m_elsewhere; ///< hidden if the simulators agree with the text
    validation::FindBar *m_findBar;
    std::jthread m_counting; ///< posts its result to this window, so it ends first
};
