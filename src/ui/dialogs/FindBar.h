// SPDX-License-Identifier: MIT
#pragma once

#include <QTextDocument>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QToolButton;

namespace validation {

/// A bar that searches a text, letter case ignored, from where the cursor stands and on from the
/// other end. It is hidden until it is opened, and Esc in it hides it again.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(QPlainTextEdit &text, QWidget *parent = nullptr);

    /// Shows the bar with what is selected in the text, ready to type.
    void Open();
    void FindNext();
    void FindPrevious();
    /// Counts anew what was found; to be called when the text was replaced.
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

    QPlainTextEdit &m_text;
};

} // namespace validation
