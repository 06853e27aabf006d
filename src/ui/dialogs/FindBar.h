// SPDX-License-Identifier: MIT
#pragma once

#include <QTextDocument>
#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

namespace validation {

class ReportView;

/// A bar that searches a text from the cursor and continues from the other end, ignoring letter
/// case. Hidden until it is opened; Esc in it hides it again.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(ReportView &text, QWidget *parent = nullptr);

    /// Shows the bar with the selected text as search text, ready to type.
    void Open();
    void FindNext();
    void FindPrevious();
    /// Counts the matches again. Call this after the text was replaced.
    void Recount();

    QLineEdit *txtFind;
    QToolButton *cmdFindPrevious;
    QToolButton *cmdFindNext;
    QToolButton *cmdFindClose;
    QLabel *lblFound;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void nameControls();
    QToolButton *button(const char *caption);
    void typed();
    void find(QTextDocument::FindFlags direction);
    void leave();

    ReportView &m_text;
};

} // namespace validation
