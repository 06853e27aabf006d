// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

namespace validation {

/// What the report lines begin with.
inline constexpr char kErrorWord[] = "ERROR: ", kInfoWord[] = "INFO: ", kStoppedWord[] = "STOPPED";
bool BeginsWith(const QString &line, const char *word);

/// A report to read: lines are wrapped, since the verdict stands at their end; stripes tell which
/// rows are one line; the word that a line begins with has a colour.
class ReportView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ReportView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace validation
