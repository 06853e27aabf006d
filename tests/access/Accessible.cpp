// SPDX-License-Identifier: MIT
#include "Accessible.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QThread>

#include <set>
#include <stdexcept>

namespace {

constexpr char kAccessible[] = "org.a11y.atspi.Accessible", kAction[] = "org.a11y.atspi.Action",
               kTable[] = "org.a11y.atspi.Table", kText[] = "org.a11y.atspi.Text",
               kEditable[] = "org.a11y.atspi.EditableText";
constexpr int kReplyMilliseconds = 5000, kWaitMilliseconds = 20000;
constexpr unsigned kEnabledBit = 8, kShowingBit = 25; // in the two words of an object's state

struct Reference
{
    QString service, path;
};

Reference readReference(const QDBusArgument &argument)
{
    Reference reference;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> reference.service >> path;
    argument.endStructure();
    reference.path = path.path();
    return reference;
}

} // namespace

Accessible::Accessible(const QDBusConnection &bus, QString service, QString path)
    : m_bus(bus)
    , m_service(std::move(service))
    , m_path(std::move(path))
{
}

QVariantList Accessible::ask(const char *interface, const char *method,
                             const QVariantList &arguments) const
{
    if (!*this)
        return {};
    QDBusMessage call = QDBusMessage::createMethodCall(m_service, m_path, QLatin1String(interface),
                                                       QLatin1String(method));
    call.setArguments(arguments);
    const QDBusMessage reply = m_bus.call(call, QDBus::Block, kReplyMilliseconds);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments() : QVariantList();
}

QVariant Accessible::property(const char *interface, const char *name) const
{
    const QVariantList reply = ask("org.freedesktop.DBus.Properties", "Get",
                                   {QLatin1String(interface), QLatin1String(name)});
    return reply.isEmpty() ? QVariant() : reply[0].value<QDBusVariant>().variant();
}

std::string Accessible::Name() const
{
    return property(kAccessible, "Name").toString().toStdString();
}

std::string Accessible::Role() const
{
    const QVariantList reply = ask(kAccessible, "GetRoleName");
    return reply.isEmpty() ? std::string() : reply[0].toString().toStdString();
}

bool Accessible::hasState(unsigned bit) const
{
    const QVariantList reply = ask(kAccessible, "GetState");
    if (reply.isEmpty())
        return false;
    QList<unsigned> words;
    reply[0].value<QDBusArgument>() >> words;
    return !words.isEmpty() && (words[0] >> bit & 1u) != 0;
}

bool Accessible::Enabled() const
{
    return hasState(kEnabledBit);
}

bool Accessible::Showing() const
{
    return hasState(kShowingBit);
}

std::vector<Accessible> Accessible::Children() const
{
    std::vector<Accessible> children;
    const QVariantList reply = ask(kAccessible, "GetChildren");
    if (reply.isEmpty())
        return children;
    const auto list = reply[0].value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        const Reference child = readReference(list);
        children.emplace_back(m_bus, child.service, child.path);
    }
    list.endArray();
    return children;
}

int Accessible::actionIndex(const char *action) const
{
    const int count = property(kAction, "NActions").toInt();
    for (int i = 0; i < count; ++i) {
        const QVariantList name = ask(kAction, "GetName", {i});
        if (!name.isEmpty() && name[0].toString() == QLatin1String(action))
            return i;
    }
    return -1;
}

void Accessible::Do(const char *action) const
{
    const int index = actionIndex(action);
    if (index < 0)
        throw std::runtime_error(Role() + " \"" + Name() + "\" cannot " + action);
    QDBusMessage call = QDBusMessage::createMethodCall(m_service, m_path, QLatin1String(kAction),
                                                       QStringLiteral("DoAction"));
    call.setArguments({index});
    m_bus.asyncCall(call);
}

void Accessible::SetText(const std::string &text) const
{
    ask(kEditable, "SetTextContents", {QString::fromStdString(text)});
    if (Text() != text)
        throw std::runtime_error(Role() + " \"" + Name() + "\" did not take " + text);
}

std::string Accessible::Text() const
{
    const QVariantList reply = ask(kText, "GetText", {0, -1});
    return reply.isEmpty() ? std::string() : reply[0].toString().toStdString();
}

int Accessible::Rows() const
{
    return property(kTable, "NRows").toInt();
}

Accessible Accessible::cellAt(int row, int column) const
{
    const QVariantList reply = ask(kTable, "GetAccessibleAt", {row, column});
    if (reply.isEmpty())
        return {};
    const Reference cell = readReference(reply[0].value<QDBusArgument>());
    return {m_bus, cell.service, cell.path};
}

std::string Accessible::Cell(int row, int column) const
{
    return cellAt(row, column).Name();
}

std::string Accessible::CellDescription(int row, int column) const
{
    return cellAt(row, column).property(kAccessible, "Description").toString().toStdString();
}

void Accessible::SelectRows(const std::vector<int> &rows) const
{
    for (const int row : rows)
        ask(kTable, "AddRowSelection", {row});
    const auto selected = [this] {
        const QVariantList reply = ask(kTable, "GetSelectedRows", {});
        const QList<int> all = reply.isEmpty() ? QList<int>() : qdbus_cast<QList<int>>(reply[0]);
        return std::set<int>(all.begin(), all.end());
    };
    const std::set<int> wanted(rows.begin(), rows.end());
    for (const int row : selected())
        if (!wanted.contains(row))
            ask(kTable, "RemoveRowSelection", {row});
    if (selected() != wanted)
        throw std::runtime_error(Role() + " \"" + Name() + "\" did not select its rows");
}

void Walk(const Accessible &top, const std::function<bool(const Accessible &, int depth)> &see,
          int depth)
{
    for (const Accessible &child : top.Children())
        if (see(child, depth))
            Walk(child, see, depth + 1);
}

std::string Outline(const Accessible &top)
{
    std::string outline;
    Walk(top, [&outline](const Accessible &object, int depth) {
        const std::string role = object.Role();
        if (role != "filler" && role != "separator")
            outline += std::string(static_cast<std::size_t>(depth), ' ') + role + " \"" +
                       object.Name() + "\"\n";
        return role != "tree" && role != "table" && role != "list";
    });
    return outline;
}

Accessible Find(const Accessible &top, const std::string &role, const std::string &name)
{
    Accessible found;
    const auto look = [&] {
        Walk(top, [&](const Accessible &object, int) {
            const std::string kind = object.Role();
            if (!found && kind == role && object.Name() == name && object.Enabled())
                found = object;
            return !found && kind != "tree" && kind != "table" && kind != "list";
        });
        return static_cast<bool>(found);
    };
    if (!WaitFor(look))
        throw std::runtime_error("no " + role + " \"" + name + "\" in:\n" + Outline(top));
    return found;
}

bool WaitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(kWaitMilliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents();
        QThread::msleep(50);
    }
    return true;
}
