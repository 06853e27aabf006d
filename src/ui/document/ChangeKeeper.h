// SPDX-License-Identifier: MIT
#pragma once

#include "document/UnsavedConsist.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>

namespace document {

/// Keeps the unsaved changes of an editor in its recovery file, within a second of each change.
/// Drops the file when the editor is closed.
class ChangeKeeper : public QObject
{
    Q_OBJECT

public:
    /// `state` returns what to keep, nothing if it is not worth keeping. It may throw.
    using State = std::function<std::optional<UnsavedConsist>()>;
    ChangeKeeper(QObject *parent, State state);

    /// Call it after each change, save and reload.
    void Follow(bool changed);
    /// Keeps the state now and waits until it is written.
    void KeepNow();

Q_SIGNALS:
    /// The changes could not be kept. Emitted once until they can be kept again. `reason` names the
    /// file.
    void Failed(const std::string &reason);

private:
    void keep();
    void look();
    void report(const std::string &failure);

    const State m_state;
    QTimer m_timer;
    QTimer m_look; ///< runs while a state is being written
    RecoveryFile m_file;
    bool m_hasFailed = false;
};

} // namespace document
