// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariantList>

#include <functional>
#include <string>
#include <vector>

/// One object of a running program's accessibility tree. What is read of an object that is gone,
/// or was never found, is empty; doing something with it throws std::runtime_error.
class Accessible
{
public:
    Accessible() = default;
    Accessible(const QDBusConnection &bus, QString service, QString path);

    explicit operator bool() const { return !m_path.isEmpty(); }
    std::string Name() const;
    /// What kind of control it is: "push button", "menu item", "tree", "text" and so on.
    std::string Role() const;
    bool Enabled() const;
    bool Showing() const;
    std::vector<Accessible> Children() const;

    bool Can(const char *action) const { return actionIndex(action) >= 0; }
    /// Does what the object can do: "Press", "Toggle". Comes back at once, although what it starts
    /// may be a dialog that waits for an answer.
    void Do(const char *action) const;
    void SetText(const std::string &text) const;
    std::string Text() const;

    /// Of a list: its rows, the text in one, and selecting that one.
    int Rows() const;
    std::string Cell(int row, int column) const;
    void SelectRow(int row) const;

private:
    QVariantList ask(const char *interface, const char *method,
                     const QVariantList &arguments = {}) const;
    QVariant property(const char *interface, const char *name) const;
    bool hasState(unsigned bit) const;
    int actionIndex(const char *action) const;

    QDBusConnection m_bus{QString()};
    QString m_service, m_path;
};

/// Calls `see` with every object below this one, parents first, and how deep it lies; where `see`
/// says no, not with what is below that object.
void Walk(const Accessible &top, const std::function<bool(const Accessible &, int depth)> &see,
          int depth = 0);
/// The first object below with this role and name that is there to be used; waits until there is
/// one. Throws std::runtime_error with what was there instead.
Accessible Find(const Accessible &top, const std::string &role, const std::string &name);
/// Everything below that has a role of its own to play, a line each: role "name".
std::string Outline(const Accessible &top);
/// Waits until the condition holds; false after some seconds.
bool WaitFor(const std::function<bool()> &condition);
