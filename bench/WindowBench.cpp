// SPDX-License-Identifier: MIT
// Times what a user waits for in the windows: zelk-window-bench INSTALLATION. Each figure comes
// from a process of its own, which this program starts with further arguments; they print it.
#include "Measure.h"
#include "Processes.h"
#include "app/Colours.h"
#include "app/Program.h"
#include "app/QtDesktop.h"
#include "app/QtDialogs.h"
#include "document/ConsistList.h"
#include "document/StockList.h"
#include "host/GameFiles.h"
#include "host/Settings.h"
#include "install/Installation.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock; // counts on from one process to the next
constexpr int kRounds = 7;
constexpr int kGapLimit = 50; // ms between event-loop passes that a user does not notice
constexpr int kPatience = 120'000;

/// Settings that name the installation and forget what is written.
class FixedSettings : public host::SettingsStore
{
public:
    explicit FixedSettings(std::string folder)
        : m_folder(std::move(folder))
    {
    }
    std::optional<std::string> Read(std::string_view key) override
    {
        return key == "MSTSDir" ? std::optional(m_folder) : std::nullopt;
    }
    void Write(std::string_view, std::string_view) override {}

private:
    std::string m_folder;
};

/// ZELK's main window on an installation, showing its consist list.
struct Program
{
    explicit Program(const std::string &folder)
        : settings(folder)
    {
        app::DressApplication(*qApp);
        window = app::StartMainWindow({dialogs, files, settings, desktop, printers}, "");
    }
    QTreeView *List(const char *name) const
    {
        return window->findChild<QTreeView *>(QLatin1String(name));
    }
    app::QtDialogs dialogs;
    app::QtDesktop desktop;
    app::QtPrinters printers;
    host::GameFiles files;
    FixedSettings settings;
    std::unique_ptr<frmMain> window;
};

/// Does something once after a widget has been painted while a condition held.
class PaintWatch : public QObject
{
public:
    PaintWatch(QWidget *widget, std::function<bool()> ready, std::function<void()> painted)
        : QObject(widget)
        , m_ready(std::move(ready))
        , m_painted(std::move(painted))
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject *widget, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && m_ready()) {
            widget->removeEventFilter(this);
            QTimer::singleShot(0, this, m_painted); // when the whole window is painted
        }
        return false;
    }

private:
    std::function<bool()> m_ready;
    std::function<void()> m_painted;
};

[[noreturn]] void giveUp(const char *what)
{
    std::fprintf(stderr, "zelk-window-bench: %s\n", what);
    std::exit(1);
}

void printSince(Clock::rep start)
{
    const Clock::duration now = Clock::now().time_since_epoch();
    std::printf("%f\n",
                std::chrono::duration<double, std::milli>(now - Clock::duration(start)).count());
    std::fflush(stdout);
    std::_Exit(0); // taking the windows down is not measured
}

int showList(Clock::rep start, const std::string &folder, int rows)
{
    const Program program(folder);
    QTreeView *list = program.List("lvConsists");
    if (!list)
        giveUp("no consist list came up");
    new PaintWatch(
        list->viewport(), [=] { return list->model()->rowCount() == rows; },
        [=] { printSince(start); });
    return QApplication::exec();
}

int showEmptyWindow(Clock::rep start)
{
    app::DressApplication(*qApp);
    QMainWindow window;
    auto *area = new QMdiArea;
    window.setCentralWidget(area);
    new PaintWatch(
        area->viewport(), [] { return true; }, [=] { printSince(start); });
    window.show();
    return QApplication::exec();
}

/// Opens an editor and prints the longest time between two passes of the event loop until its
/// stock list is full, and how long that took.
int fillStockList(const std::string &folder, const std::string &consist, int rows)
{
    const Program program(folder);
    QCoreApplication::processEvents();
    QTimer pass;
    const Clock::time_point start = Clock::now();
    Clock::time_point last = start;
    Clock::duration longest{};
    QObject::connect(&pass, &QTimer::timeout, &pass, [&] {
        const Clock::time_point now = Clock::now();
        longest = std::max(longest, now - std::exchange(last, now));
        const QTreeView *list = program.List("lvStock");
        if (!list || list->model()->rowCount() < rows)
            return;
        const std::chrono::duration<double, std::milli> gap = longest, whole = now - start;
        std::printf("%f %f\n", gap.count(), whole.count());
        std::fflush(stdout);
        std::_Exit(0);
    });
    pass.start(0);
    QTimer::singleShot(0, &pass, [&] { program.window->OpenFile(consist); });
    return QApplication::exec();
}

/// The shortest of several runs of this program with these arguments, each preceded by the time
/// at which it is started.
double bestOf(const std::vector<std::string> &command)
{
    double best = std::numeric_limits<double>::infinity();
    for (int round = 0; round < kRounds; ++round) {
        std::vector<std::string> timed = command;
        timed.push_back(std::to_string(Clock::now().time_since_epoch().count()));
        best = std::min(best, std::atof(bench::RunForOutput(timed).c_str()));
    }
    return best;
}

int measure(const std::string &program, const std::string &folder)
{
    install::Installation installation;
    installation.SetLocation(folder);
    host::GameFiles files;
    const std::vector<std::string> consists = document::ListConsists(installation, files, "");
    if (consists.empty())
        giveUp("there are no consists in that folder");
    document::StockScan scan(installation, files, "");
    std::size_t stock = 0;
    while (const auto items = scan.TakeFolder())
        stock += items->size();

    const double list = bestOf({program, "--list", folder, std::to_string(consists.size())});
    const double empty = bestOf({program, "--empty"});
    const std::string filled =
        bench::RunForOutput({program, "--stock", folder, installation.ConsistPath(consists.front()),
                             std::to_string(stock)});
    char *rest = nullptr;
    const double gap = std::strtod(filled.c_str(), &rest);
    bench::PrintTable({
        {"start to first painted consist list", "start to empty QMdiArea", list, empty},
        {"longest gap, editor filling its stock list", "limit", gap, kGapLimit},
    });
    std::printf("%zu consists; %zu stock rows in %.0f ms\n", consists.size(), stock,
                std::strtod(rest, nullptr));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc == 2)
        return measure(arguments[0], arguments[1]);
    if (argc < 3)
        giveUp("usage: zelk-window-bench INSTALLATION");
    QApplication application(argc, argv);
    QTimer::singleShot(kPatience, [] { giveUp("nothing was painted in time"); });
    if (arguments[1] == "--list")
        return showList(std::stoll(arguments[4]), arguments[2], std::stoi(arguments[3]));
    if (arguments[1] == "--stock")
        return fillStockList(arguments[2], arguments[3], std::stoi(arguments[4]));
    return showEmptyWindow(std::stoll(arguments[2]));
}
