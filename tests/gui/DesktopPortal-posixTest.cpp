// SPDX-License-Identifier: MIT
#include "ui/main/DesktopPortal-posix.h"

#include "support/Environment.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <gtest/gtest.h>

#include <functional>

using app::ColourScheme;

namespace {

/// A portal that answers one call.
class Portal : public QDBusVirtualObject
{
public:
    explicit Portal(std::function<QDBusMessage(const QDBusMessage &)> answer)
        : m_answer(std::move(answer))
    {
    }
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        const QDBusMessage answer = m_answer(call);
        return answer.type() == QDBusMessage::InvalidMessage || bus.send(answer);
    }

private:
    std::function<QDBusMessage(const QDBusMessage &)> m_answer;
};

/// A private session bus, with or without a portal on it.
class DesktopPortalTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (program.isEmpty())
            GTEST_SKIP() << "needs dbus-daemon";
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("LD_PRELOAD"));
        m_bus.setProcessEnvironment(environment);
        m_bus.start(program, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                              QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
        ASSERT_TRUE(m_bus.waitForReadyRead(20000));
        m_address = QString::fromUtf8(m_bus.readLine()).trimmed();
        m_variable.emplace("DBUS_SESSION_BUS_ADDRESS", m_address.toStdString());
    }
    void TearDown() override
    {
        m_variable.reset();
        m_bus.terminate();
        m_bus.waitForFinished();
    }
    using Answer = std::function<QDBusMessage(const QDBusMessage &)>;
    template <typename Reader> auto readWith(Answer answer, Reader reader)
    {
        QThread thread; // the program waits in the calling thread
        Portal portal(std::move(answer));
        portal.moveToThread(&thread);
        thread.start();
        const QString name = QStringLiteral("portal");
        decltype(reader()) value;
        {
            QDBusConnection bus = QDBusConnection::connectToBus(m_address, name);
            EXPECT_TRUE(bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                  &portal));
            EXPECT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
            value = reader();
            bus.unregisterObject(QStringLiteral("/org/freedesktop/portal/desktop"));
        }
        QDBusConnection::disconnectFromBus(name);
        thread.quit();
        thread.wait();
        return value;
    }
    /// Returns the colour scheme that the program reads from a portal with this answer.
    std::optional<ColourScheme> schemeWith(Answer answer)
    {
        return readWith(std::move(answer), app::SchemeOfPortal);
    }
    std::optional<ColourScheme> schemeFor(const QVariant &value)
    {
        return schemeWith([value](const QDBusMessage &call) {
            const QVariantList wanted = {QStringLiteral("org.freedesktop.appearance"),
                                         QStringLiteral("color-scheme")};
            return call.arguments() == wanted && call.member() == QLatin1String("ReadOne")
                       ? call.createReply(QVariant::fromValue(QDBusVariant(value)))
                       : call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("what?"));
        });
    }

    QProcess m_bus;
    QString m_address;
    std::optional<support::ScopedVariable> m_variable;
};

} // namespace

TEST_F(DesktopPortalTest, UsesTheColourSchemeOfThePortal)
{
    EXPECT_EQ(schemeFor(1u), ColourScheme::Dark);
    EXPECT_EQ(schemeFor(2u), ColourScheme::Light);
    EXPECT_EQ(schemeFor(0u), std::nullopt) << "no preference";
    EXPECT_EQ(schemeFor(QStringLiteral("dark")), std::nullopt) << "not a number";
}

TEST_F(DesktopPortalTest, UsesTheAnimationsOfThePortal)
{
    const auto animates = [this](const char *known, const QVariant &value) {
        return readWith(
            [known, value](const QDBusMessage &call) {
                return call.arguments().value(1).toString() == QLatin1String(known)
                           ? call.createReply(QVariant::fromValue(QDBusVariant(value)))
                           : call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("?"));
            },
            app::AnimationsOfPortal);
    };
    EXPECT_EQ(animates("reduced-motion", 1u), false);
    EXPECT_EQ(animates("reduced-motion", 0u), std::nullopt) << "no preference";
    EXPECT_EQ(animates("enable-animations", false), false);
    EXPECT_EQ(animates("enable-animations", true), true);
    EXPECT_EQ(animates("neither", true), std::nullopt);
}

TEST_F(DesktopPortalTest, SupportsOlderPortals)
{
    const auto older = [](const QDBusMessage &call) {
        if (call.member() != QLatin1String("Read"))
            return call.createErrorReply(QDBusError::UnknownMethod,
                                         QStringLiteral("no such method"));
        const QDBusVariant value(QVariant(1u));
        return call.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(value))));
    };
    EXPECT_EQ(schemeWith(older), ColourScheme::Dark);
}

TEST_F(DesktopPortalTest, DoesNotWaitForAnAbsentPortal)
{
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(app::SchemeOfPortal(), std::nullopt) << "a bus without a portal";
    EXPECT_EQ(schemeWith([](const QDBusMessage &) { return QDBusMessage(); }), std::nullopt)
        << "a portal that does not answer";
    {
        const support::ScopedVariable gone("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus");
        EXPECT_EQ(app::SchemeOfPortal(), std::nullopt) << "a bus that is gone";
    }
    const support::ScopedVariable bus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    const support::ScopedVariable runtime("XDG_RUNTIME_DIR", "/nowhere");
    EXPECT_EQ(app::SchemeOfPortal(), std::nullopt) << "no bus";
    EXPECT_LT(time.elapsed(), 3000);
}
