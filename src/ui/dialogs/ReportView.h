// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPlainTextEdit>
#include <QTimer>

#include <string_view>

namespace validation {

/// The words that report lines begin with.
inline constexpr char kErrorWord[] = "ERROR: ", kInfoWord[] = "INFO: ", kStoppedWord[] = "STOPPED";

/// A report to read. Lines wrap, since the verdict is at their end; stripes show which rows belong
/// to one line; a line's first word is coloured. A long report is there with its first lines at
/// once; the others follow in slices, so that the window does not stop.
class ReportView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ReportView(QWidget *parent = nullptr);

    /// Replaces the text (UTF-8). It must not change until Filled, or until another text replaces
    /// it.
    void SetReport(std::string_view text);
    /// Inserts at once what is left of the report.
    void Finish();

Q_SIGNALS:
    /// The whole report is there. Not sent by SetReport itself.
    void Filled();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString takeLines(std::size_t size);
    void append(const QString &lines);
    void appendSlice();
    void colourWord(const QTextBlock &line) const;

    std::string_view m_rest; ///< what is not in the document yet
    QTimer m_filling;
    QColor m_faded, m_error, m_stopped;
};

} // namespace validation
