// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariantList>

#include <functional>
#include <string>
#include <vector>

/// One object of a running program's accessibility tree. Properties of an object that is gone, or
/// was never found, are empty; actions on it throw std::runtime_error.
class Accessible
{
public:
    Accessible() = default;
    Accessible(const QDBusConnection &bus, QString service, QString path);

    explicit operator bool() const { return !m_path.isEmpty(); }
    std::string Name() const;
    /// The kind of control: "push button", "menu item", "tree", "text" and so on.
    std::string Role() const;
    bool Enabled() const;
    bool Showing() const;
    std::vector<Accessible> Children() const;

    bool Can(const char *action) const { return actionIndex(action) >= 0; }
    /// Performs an action of the object: "Press", "Toggle". Returns at once, even if the action
    /// opens a dialog that waits for an answer.
    void Do(const char *action) const;
    void SetText(const std::string &text) const;
    std::string Text() const;

    /// For lists: the number of rows, the text and the description in a row, and selecting a row.
    int Rows() const;
    std::string Cell(int row, int column) const;
    std::string CellDescription(int row, int column) const;
    /// Select these rows alone.
    void SelectRow(int row) const { SelectRows({row}); }
    void SelectRows(const std::vector<int> &rows) const;

private:
    QVariantList ask(const char *interface, const char *method,
                     const QVariantList &arguments = {}) const;
    QVariant property(const char *interface, const char *name) const;
    bool hasState(unsigned bit) const;
    int actionIndex(const char *action) const;
    Accessible cellAt(int row, int column) const;

    QDBusConnection m_bus{QString()};
    QString m_service, m_path;
};

/// Calls `see` with every object below `top` and its depth, parents first. If `see` returns false,
/// skips the objects below that one.
void Walk(const Accessible &top, const std::function<bool(const Accessible &, int depth)> &see,
          int depth = 0);
/// Waits for an object below `top` with this role and name that users can reach, and returns the
/// first. Throws std::runtime_error that lists the objects found instead.
Accessible Find(const Accessible &top, const std::string &role, const std::string &name);
/// Lists the objects below `top` that are more than containers, one per line: role "name".
std::string Outline(const Accessible &top);
/// Waits until the condition holds. Returns false after some seconds.
bool WaitFor(const std::function<bool()> &condition);
