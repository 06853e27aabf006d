// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

class QGuiApplication;

namespace korvat {

/// The graphics toolkit for a program without windows. An object of this class must exist as long
/// as an OffscreenCanvas does.
class Toolkit
{
public:
    /// `arguments` are those of main and must outlive the object. `report` receives the toolkit's
    /// critical and fatal messages; all others are dropped.
    Toolkit(char **arguments, std::function<void(const std::string &)> report);
    ~Toolkit();

private:
    int m_count = 1;
    std::unique_ptr<QGuiApplication> m_application;
};

} // namespace korvat
