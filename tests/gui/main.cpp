// SPDX-License-Identifier: MIT
#include "ui/main/Colours.h"

#include <QApplication>
#include <QLocale>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

/// Checks that no test leaves a window on the screen.
class NoWindowLeft : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo &) override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        for (const QWidget *window : QApplication::topLevelWidgets())
            if (window->isVisible())
                ADD_FAILURE() << "left on the screen: " << window->metaObject()->className() << " "
                              << window->windowTitle().toStdString();
    }
};

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    qputenv("ZELK_SHADOWS", "on"); // whatever the speed of the machine
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale::c()); // metric units, on every machine
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    app::DressApplication(application);
    testing::UnitTest::GetInstance()->listeners().Append(new NoWindowLeft);
    return RUN_ALL_TESTS();
}
