// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

class QGuiApplication;

namespace korvat {

/// The graphics toolkit for a program without windows. OffscreenCanvas needs one object of this
/// class while it exists.
class Toolkit
{
public:
    /// `arguments` are those of main and must outlive the object. `report` receives the toolkit's
    /// critical messages; its remarks on the user's session are dropped.
    Toolkit(char **arguments, std::function<void(const std::string &)> report);
    ~Toolkit();

private:
    int m_count = 1;
    std::unique_ptr<QGuiApplication> m_application;
};

} // namespace korvat
