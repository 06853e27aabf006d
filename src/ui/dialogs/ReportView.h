// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

namespace validation {

/// The words that report lines begin with.
inline constexpr char kErrorWord[] = "ERROR: ", kInfoWord[] = "INFO: ", kStoppedWord[] = "STOPPED";
bool BeginsWith(const QString &line, const char *word);

/// A report to read. Lines wrap, since the verdict is at their end; stripes show which rows belong
/// to one line; a line's first word is coloured.
class ReportView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ReportView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace validation
