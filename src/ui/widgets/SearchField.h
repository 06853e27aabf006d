// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace document {

/// A text field above a list that searches it. Esc clears the field first if it holds text. The
/// field is not part of the Tab order, in which the list is; a key of the window focuses it.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    /// `name` is the control's fixed name, `title` its name for screen readers and, with the key,
    /// the text that it shows while it is empty.
    SearchField(const char *name, const QString &title, QWidget *parent = nullptr);

    /// Shows a short remark at the right end of the field while it holds text: "12 of 880".
    void SetRemark(const QString &remark);
    const QString &Remark() const { return m_remark; }

Q_SIGNALS:
    void UpPressed();
    void DownPressed();
    void ReturnPressed();
    /// Esc was pressed in the empty field.
    void Left();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addClearButton();
    QString shownRemark() const;
    void makeRoom();

    QString m_title, m_remark;
};

} // namespace document
