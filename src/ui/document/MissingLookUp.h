// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "install/Environment.h"

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace content {
class MissingVehicles;
}

namespace document {

/// Asks content::MissingVehicles on worker threads of low priority, and delivers the answers in
/// order, in slices of a few milliseconds, so that the window stays responsive.
class MissingLookUp : public QObject
{
    Q_OBJECT

public:
    /// Runs on the workers. Must not touch data of other threads.
    using Question =
        std::function<std::string(content::MissingVehicles &vehicles, std::size_t index)>;

    explicit MissingLookUp(const install::Environment &environment, QObject *parent = nullptr);
    ~MissingLookUp() override;

    /// Drops a running look-up. The next one looks at the disk again, for the present installation
    /// and the simulators that were kept for it.
    void Forget();
    /// Drops a running look-up, and asks the questions 0 to count-1.
    void Start(std::size_t count, Question question);
    bool Running() const { return m_ahead != nullptr; }

Q_SIGNALS:
    /// The answers to consecutive questions.
    void Answered(std::size_t first, const std::vector<std::string> &answers);
    void Finished();

private:
    void slice();
    std::shared_ptr<content::MissingVehicles> newVehicles() const;

    install::Environment m_environment;
    std::shared_ptr<content::MissingVehicles> m_vehicles; ///< null until it is needed
    std::unique_ptr<host::Ahead<std::string>> m_ahead;
    QTimer m_timer;
};

} // namespace document
