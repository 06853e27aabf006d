// SPDX-License-Identifier: MIT
// Operates the real windows at random: menu commands, clicks, keys, windows closed and resized,
// files that appear and disappear. Usage: zelk_monkey FOLDER SECONDS SEED, where FOLDER contains a
// sample installation that may be damaged. It logs each step before performing it. The exit code is
// 0 unless a sanitizer, a signal or the time limit of a step ends the program.
#include "GuiTest.h"

#include "host/Path.h"
#include "ui/dialogs/QtDialogs.h"
#include "ui/main/Colours.h"
#include "ui/main/Program.h"

#include <QApplication>
#include <QDialog>
#include <QDrag>
#include <QElapsedTimer>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <thread>

namespace fs = std::filesystem;

namespace {

constexpr int kPauseMilliseconds = 5;
constexpr int kLongestStepSeconds = 60; ///< enough under a sanitizer on a busy machine
constexpr int kPatience = 15;           ///< steps in the same dialog before it is dismissed

class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_engine(seed)
    {
    }
    /// Returns a number from 0 to `count` - 1.
    int Below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <typename List> auto &Pick(List &list)
    {
        return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937 m_engine;
};

/// Aborts the program if it does not return to its event loop.
class Watchdog
{
public:
    Watchdog()
        : m_thread([this](const std::stop_token &stop) { watch(stop); })
    {
    }
    void Feed() { m_beats = 0; }

private:
    void watch(const std::stop_token &stop)
    {
        while (!stop.stop_requested()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            if (++m_beats > kLongestStepSeconds * 10) {
                std::fputs("monkey: the last step does not end\n", stderr);
                std::abort();
            }
        }
    }

    std::atomic<int> m_beats = 0;
    std::jthread m_thread;
};

/// The program's own dialogs, except that file dialogs answer at once, so that nothing is saved
/// outside the folder.
class MonkeyDialogs : public app::QtDialogs
{
public:
    MonkeyDialogs(Dice &dice, std::vector<std::string> &files)
        : m_dice(dice)
        , m_files(files)
    {
    }
    std::string OpenFile(const host::FileDialogRequest &) override { return chosen(); }
    std::string SaveFile(const host::FileDialogRequest &) override
    {
        const std::string file = chosen();
        return file.empty() || m_dice.OneIn(2) ? file
                                               : file + '-' + std::to_string(m_dice.Below(50));
    }

private:
    std::string chosen() { return m_dice.OneIn(4) ? std::string() : m_dice.Pick(m_files); }

    Dice &m_dice;
    std::vector<std::string> &m_files;
};

class Monkey : public QObject
{
public:
    Monkey(std::string folder, int seconds, unsigned seed)
        : m_folder(std::move(folder))
        , m_seconds(seconds)
        , m_dice(seed)
        , m_dialogs(m_dice, m_files)
    {
        std::error_code error; // for dangling links
        for (const auto &entry : fs::recursive_directory_iterator(m_folder))
            if (entry.is_regular_file(error))
                m_files.push_back(host::path::FromDisk(entry.path()));
        m_settings.values["MSTSDir"] = m_folder;
        m_settings.values["ScreenShotDir"] = m_folder;
        m_printers.file = host::path::Join(m_folder, "printed.pdf");
    }
    void Start()
    {
        m_time.start();
        openMainWindow();
        next();
    }

private:
    void openMainWindow()
    {
        m_window.reset();
        const std::string file = m_dice.OneIn(3) ? m_dice.Pick(m_files) : std::string();
        say("program started " + file);
        m_window =
            app::StartMainWindow({m_dialogs, m_gameFiles, m_settings, m_installation, m_shapes},
                                 m_desktop, m_printers, file);
    }
    /// Each step has its own timer, because a step may stay in the event loop of a dialog.
    void next() { QTimer::singleShot(kPauseMilliseconds, this, &Monkey::step); }
    void say(const std::string &what)
    {
        std::printf("%d %s\n", ++m_steps, what.c_str());
        std::fflush(stdout);
    }

    void step()
    {
        m_watchdog.Feed();
        const bool over = m_time.elapsed() > m_seconds * 1000LL;
        if (m_time.elapsed() > (m_seconds + kLongestStepSeconds) * 1000LL)
            qFatal("the last step does not end, though the program answers");
        QWidget *modal = QApplication::activePopupWidget();
        modal = modal ? modal : QApplication::activeModalWidget();
        m_inDialog = modal && modal == m_lastModal ? m_inDialog + 1 : 0;
        m_lastModal = modal;
        if (modal && (over || m_inDialog > kPatience)) {
            next();
            dismiss(*modal);
        } else if (over && m_depth == 0) {
            say("program ended");
            m_window.reset();
            QCoreApplication::exit(0);
        } else {
            next();
            ++m_depth;
            if (!over && modal)
                play(*modal);
            else if (m_depth > 1)
                QDrag::cancel(); // a drag may wait for a button that is not pressed
            else if (!over)
                playWithWindows();
            --m_depth;
        }
    }
    void dismiss(QWidget &modal)
    {
        say(std::string("dismiss ") + modal.metaObject()->className());
        if (auto *dialog = qobject_cast<QDialog *>(&modal))
            dialog->reject();
        else
            modal.close();
    }
    void playWithWindows()
    {
        if (!m_window || !m_window->isVisible()) {
            openMainWindow();
            return;
        }
        std::vector<QWidget *> windows;
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->isVisible())
                windows.push_back(window);
        const int choice = m_dice.Below(12);
        if (choice < 4)
            triggerCommand();
        else if (choice == 4)
            changeWindow();
        else if (choice == 5 && m_dice.OneIn(4))
            changeDisk();
        else if (!windows.empty())
            play(*m_dice.Pick(windows));
    }
    void triggerCommand()
    {
        std::vector<QAction *> actions;
        for (QAction *action : m_window->findChildren<QAction *>())
            if (action->isEnabled() && action->objectName().startsWith(QLatin1String("mnu")))
                actions.push_back(action);
        QAction *action = m_dice.Pick(actions);
        if (action->objectName() == QLatin1String("mnuFileExit") && !m_dice.OneIn(10))
            return;
        say("command " + action->objectName().toStdString());
        action->trigger();
    }
    void changeWindow()
    {
        auto *area = m_window->findChild<QMdiArea *>();
        const auto inside = area->subWindowList();
        if (inside.isEmpty() || m_dice.OneIn(4)) {
            say("resize");
            m_window->resize(200 + m_dice.Below(1000), 100 + m_dice.Below(600));
        } else if (m_dice.OneIn(3) || inside.size() > 12) {
            say("close a window");
            inside.at(m_dice.Below(static_cast<int>(inside.size())))->close();
        } else {
            say("another window");
            area->setActiveSubWindow(inside.at(m_dice.Below(static_cast<int>(inside.size()))));
        }
    }
    void changeDisk()
    {
        const std::string &file = m_dice.Pick(m_files), &other = m_dice.Pick(m_files);
        std::error_code error;
        switch (m_dice.Below(3)) {
        case 0:
            say("remove " + file);
            fs::remove(host::path::ToDisk(file), error);
            break;
        case 1:
            say("cut short " + file);
            fs::resize_file(host::path::ToDisk(file), 100, error);
            break;
        default:
            say("put " + other + " over " + file);
            fs::copy_file(host::path::ToDisk(other), host::path::ToDisk(file),
                          fs::copy_options::overwrite_existing, error);
        }
    }
    /// Clicks, or presses a key, on a control of a window or dialog.
    void play(QWidget &window)
    {
        std::vector<QWidget *> widgets = {&window};
        for (QWidget *child : window.findChildren<QWidget *>())
            if (child->isVisible() && child->isEnabled())
                widgets.push_back(child);
        QWidget &widget = *m_dice.Pick(widgets);
        const QPoint point(m_dice.Below(widget.width() + 1), m_dice.Below(widget.height() + 1));
        const std::string where =
            std::string(widget.metaObject()->className()) + ' ' + widget.objectName().toStdString();
        static const std::vector<Qt::KeyboardModifiers> kModifiers = {
            Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
            Qt::ShiftModifier | Qt::ControlModifier};
        const Qt::KeyboardModifiers modifiers = m_dice.Pick(kModifiers);
        const int choice = m_dice.Below(10);
        if (choice < 4) {
            press(widget, where, modifiers);
        } else if (choice == 4) {
            say("double click " + where);
            QTest::mouseDClick(&widget, Qt::LeftButton, modifiers, point);
        } else if (choice == 5) {
            say("drag " + where);
            QTest::mousePress(&widget, Qt::LeftButton, modifiers, point);
            QTest::mouseMove(&widget, point / 2);
            QTest::mouseRelease(&widget, Qt::LeftButton, modifiers, point / 2);
        } else {
            say("click " + where);
            QTest::mouseClick(&widget, choice == 6 ? Qt::RightButton : Qt::LeftButton, modifiers,
                              point);
        }
    }
    void press(QWidget &widget, const std::string &where, Qt::KeyboardModifiers modifiers)
    {
        static const std::vector<Qt::Key> kKeys = {
            Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Tab,    Qt::Key_Up,   Qt::Key_Down,
            Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Delete, Qt::Key_Home, Qt::Key_End,
            Qt::Key_Insert, Qt::Key_PageDown, Qt::Key_Space,  Qt::Key_F1,   Qt::Key_F2,
            Qt::Key_F3,     Qt::Key_F5,       Qt::Key_A,      Qt::Key_C,    Qt::Key_F,
            Qt::Key_S,      Qt::Key_V,        Qt::Key_X,      Qt::Key_1,    Qt::Key_Asterisk};
        const Qt::Key key = m_dice.Pick(kKeys);
        say("key " + std::to_string(key) + ' ' + where);
        QTest::keyClick(&widget, key, modifiers);
    }

    const std::string m_folder;
    const int m_seconds;
    int m_steps = 0, m_inDialog = 0, m_depth = 0;
    const QWidget *m_lastModal = nullptr; ///< only compared, never dereferenced
    Dice m_dice;
    std::vector<std::string> m_files;
    MonkeyDialogs m_dialogs;
    host::GameFiles m_gameFiles;
    MemorySettings m_settings;
    install::Installation m_installation;
    korvat::ModelLibrary m_shapes{m_gameFiles};
    RecordingDesktop m_desktop;
    FilePrinters m_printers;
    std::unique_ptr<frmMain> m_window;
    QElapsedTimer m_time;
    Watchdog m_watchdog;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc != 4) {
        std::fputs("usage: zelk_monkey FOLDER SECONDS SEED\n", stderr);
        return 2;
    }
    app::DressApplication(application);
    const support::ScopedHome home;
    Monkey monkey(argv[1], std::atoi(argv[2]), static_cast<unsigned>(std::atoi(argv[3])));
    monkey.Start();
    return QApplication::exec();
}
