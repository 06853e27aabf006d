// SPDX-License-Identifier: MIT
#pragma once

#include "document/UnsavedConsist.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace document {

/// Keeps the unsaved changes of an editor in its recovery file, within a second of each change.
/// Drops the file when the editor is closed.
class ChangeKeeper : public QObject
{
    Q_OBJECT

public:
    /// `state` returns what to keep, nothing if it is not worth keeping.
    using State = std::function<std::optional<UnsavedConsist>()>;
    ChangeKeeper(QObject *parent, State state);

    /// Call it after each change, save and reload.
    void Follow(bool changed);
    /// Keeps the state now and waits until it is written.
    void KeepNow();

private:
    void keep();

    const State m_state;
    QTimer m_timer;
    RecoveryFile m_file;
};

} // namespace document
