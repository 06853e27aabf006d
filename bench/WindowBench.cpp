// SPDX-License-Identifier: MIT
// Times the delays that users notice in the windows. Usage: zelk-window-bench INSTALLATION. For
// each figure the program starts itself as a new process with further arguments, and that process
// prints the figure.
#include "Measure.h"
#include "Processes.h"
#include "SampleTrain.h"
#include "document/ConsistList.h"
#include "document/StockList.h"
#include "host/GameFiles.h"
#include "host/Product.h"
#include "host/Settings.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "ui/dialogs/QtDialogs.h"
#include "ui/dialogs/frmResults.h"
#include "ui/document/MissingLookUp.h"
#include "ui/document/StockListModel.h"
#include "ui/health/HealthFilterBar.h"
#include "ui/health/HealthView.h"
#include "ui/health/frmHealth.h"
#include "ui/main/Colours.h"
#include "ui/main/Program.h"
#include "ui/main/QtDesktop.h"
#include "ui/view3d/VehiclePictures.h"
#include "ui/view3d/ViewerPane.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QScrollBar>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock; // the same clock in all processes
constexpr int kRounds = 7, kGapRounds = 3;
constexpr int kGapLimit = 50; // ms between event-loop passes; users notice longer gaps
constexpr int kFrame = 16;    // ms in which a search answers a key
constexpr int kPatience = 120'000;

/// Settings that name the installation and discard what is written.
class FixedSettings : public host::SettingsStore
{
public:
    explicit FixedSettings(std::string folder)
        : m_folder(std::move(folder))
    {
    }
    std::optional<std::string> ReadFrom(std::string_view section, std::string_view key) override
    {
        return section == kSettings && key == host::setting::kInstallation ? std::optional(m_folder)
                                                                           : std::nullopt;
    }
    void WriteTo(std::string_view, std::string_view, std::string_view) override {}

private:
    std::string m_folder;
};

/// Dialogs that answer themselves.
class AnsweredDialogs : public app::QtDialogs
{
public:
    host::DialogAnswer Message(const std::string &, const std::string &, host::DialogIcon,
                               host::DialogButtons buttons) override
    {
        return buttons == host::DialogButtons::Ok ? host::DialogAnswer::Ok
                                                  : host::DialogAnswer::Yes;
    }
};

/// ZELK's main window on an installation, showing its consist list.
struct Program
{
    explicit Program(const std::string &folder)
        : settings(folder)
    {
        app::DressApplication(*qApp);
        window = app::StartMainWindow({dialogs, files, settings, installation, shapes}, desktop,
                                      printers, "");
    }
    QTreeView *List(const char *name) const
    {
        return window->findChild<QTreeView *>(QLatin1String(name));
    }
    AnsweredDialogs dialogs;
    app::QtDesktop desktop;
    app::QtPrinters printers;
    host::GameFiles files;
    FixedSettings settings;
    install::Installation installation;
    korvat::ModelLibrary shapes{files};
    std::unique_ptr<frmMain> window;
};

/// Calls a function once, after the widget has been painted while a condition held.
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
    std::_Exit(0); // closing the windows is not measured
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

/// Measures the longest time between two passes of the event loop.
class GapWatch
{
public:
    /// Calls `passed` at every pass.
    explicit GapWatch(std::function<void()> passed = [] {})
    {
        QObject::connect(&m_pass, &QTimer::timeout, &m_pass, [this, passed = std::move(passed)] {
            const Clock::time_point now = Clock::now();
            m_longest = std::max(m_longest, now - std::exchange(m_last, now));
            passed();
        });
        m_pass.start(0);
    }
    /// Prints the longest time between two passes and the total time, and ends the program.
    [[noreturn]] void End()
    {
        const Clock::time_point now = Clock::now();
        const std::chrono::duration<double, std::milli> gap = std::max(m_longest, now - m_last),
                                                        whole = now - m_start;
        std::printf("%f %f\n", gap.count(), whole.count());
        std::fflush(stdout);
        std::_Exit(0);
    }

private:
    QTimer m_pass;
    Clock::time_point m_start = Clock::now(), m_last = m_start;
    Clock::duration m_longest{};
};

/// Opens an editor and measures until its stock list is full.
int fillStockList(const std::string &folder, const std::string &consist, int rows)
{
    const Program program(folder);
    QCoreApplication::processEvents();
    GapWatch watch([&] {
        const QTreeView *list = program.List("lvStock");
        if (list && list->model()->rowCount() >= rows)
            watch.End();
    });
    QTimer::singleShot(0, qApp, [&] { program.window->OpenFile(consist); });
    return QApplication::exec();
}

/// Opens an editor and types into the search field above its stock list, once the figures of all
/// vehicles are there. Prints the longest time from a key to the painted list.
int searchStock(const std::string &folder, const std::string &consist, int rows)
{
    const Program program(folder);
    QCoreApplication::processEvents();
    program.window->OpenFile(consist);
    QTreeView *list = program.List("lvStock");
    auto *field = program.window->findChild<QLineEdit *>(QStringLiteral("searchStock"));
    const auto *model = list ? qobject_cast<document::StockListModel *>(list->model()) : nullptr;
    if (!field || !model)
        giveUp("no editor came up");
    while (model->rowCount() < rows || !model->HasAllFacts())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const QStringList texts = {QStringLiteral("type:engine"), QStringLiteral("wagon 00"),
                               QStringLiteral("a length>1")};
    std::vector<double> keys; // the shortest time for each key: disturbances only add time
    const Clock::time_point start = Clock::now();
    for (int round = 0; round < kRounds; ++round) {
        std::size_t key = 0;
        for (const QString &text : texts)
            for (int typed = 1; typed <= text.size(); ++typed) {
                const double spent = bench::Milliseconds([&] {
                    field->setText(text.left(typed));
                    QCoreApplication::processEvents();
                    list->viewport()->repaint();
                });
                if (round == 0)
                    keys.push_back(spent);
                keys[key] = std::min(keys[key], spent);
                ++key;
            }
    }
    const double longest = *std::max_element(keys.begin(), keys.end());
    const std::chrono::duration<double, std::milli> whole = Clock::now() - start;
    std::printf("%f %f\n", longest, whole.count());
    std::fflush(stdout);
    std::_Exit(0);
}

void trigger(const Program &program, const char *command)
{
    auto *action = program.window->findChild<QAction *>(QLatin1String(command));
    if (!action)
        giveUp(command);
    action->trigger();
}

/// Measures while the whole installation is checked.
int checkAll(const std::string &folder)
{
    const Program program(folder);
    QCoreApplication::processEvents();
    GapWatch watch;
    trigger(program, "mnuStockCheckAll");
    watch.End();
}

/// Measures while the first consist of the list is laid out in 3D.
int viewTrain(const std::string &folder)
{
    const Program program(folder);
    QTreeView *list = program.List("lvConsists");
    while (!list || list->model()->rowCount() == 0)
        QCoreApplication::processEvents();
    list->setCurrentIndex(list->model()->index(0, 0));
    const auto loading = [&] {
        const auto *pane = program.window->findChild<viewer::ViewerPane *>();
        return !pane || pane->Loading();
    };
    GapWatch watch;
    trigger(program, "mnuConsistView");
    while (loading())
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    watch.End();
}

/// Measures while the missing vehicles of all consists are looked up, after the list was painted.
int markConsists(const std::string &folder)
{
    const Program program(folder);
    const auto *lookUp = program.window->findChild<document::MissingLookUp *>();
    if (!lookUp)
        giveUp("nothing looks for missing vehicles");
    while (!lookUp->Running())
        QCoreApplication::processEvents();
    GapWatch watch;
    while (lookUp->Running())
        QCoreApplication::processEvents();
    watch.End();
}

/// Makes an installation whose health report has this many findings: half of the missing vehicles
/// are of folders that do not exist.
void makeUnhealthy(const std::filesystem::path &folder, int findings)
{
    constexpr int kUnits = 500, kFolders = 50;
    namespace fs = std::filesystem;
    const fs::path consists = folder / "TRAINS/CONSISTS";
    fs::create_directories(consists);
    fs::create_directories(folder / "TRAINS/TRAINSET/Here");
    for (int first = 0; first < findings; first += kUnits) {
        const std::string name = "c" + std::to_string(first);
        std::ofstream out(consists / (name + ".con"), std::ios::binary);
        out << "\nTrain ( TrainCfg ( " << name << '\n';
        for (int unit = first; unit < first + kUnits; ++unit) {
            const std::string away = "Away" + std::to_string(unit % kFolders);
            out << "Wagon ( WagonData ( w" << unit << ' ' << (unit % 2 ? away : "Here") << " ) )\n";
        }
        out << ") )\n";
    }
}

/// Measures while the health report is made, searched, filtered and unfolded.
int reportHealth(const std::string &folder)
{
    const Program program(folder);
    QCoreApplication::processEvents();
    GapWatch watch;
    trigger(program, "mnuStockHealth");
    const auto *form = program.window->findChild<frmHealth *>();
    if (!form)
        giveUp("no health window");
    while (form->Running())
        QCoreApplication::processEvents();
    const auto settle = [] {
        for (int pass = 0; pass < 20; ++pass)
            QCoreApplication::processEvents();
    };
    for (const char *const text : {"w", "w1", "w12", "w1", ""}) {
        form->filterBar->txtSearch->setText(QLatin1String(text));
        settle();
    }
    QCheckBox &errors = *form->filterBar->chkSeverities.front();
    for (int i = 0; i < 2; ++i) {
        errors.click();
        settle();
    }
    const QAbstractItemModel &rows = *form->tvFindings->model();
    for (int row = 0; row < rows.rowCount(); ++row) {
        form->tvFindings->expand(rows.index(row, 0));
        settle();
    }
    watch.End();
}

constexpr int kPictures = 200;

/// Adds stock files to the sample, so that there are this many, in an order in which neighbours
/// have different shapes. Returns their paths.
std::vector<std::string> makeVehicles(const bench::SampleTrain &train)
{
    host::GameFiles files;
    std::vector<std::string> paths;
    for (int i = 0; i < kPictures; ++i) {
        const install::StockItem &kind =
            train.kinds[static_cast<std::size_t>(i) % train.kinds.size()];
        const std::string path = install::StockPath(train.folder, kind);
        paths.push_back(path.substr(0, path.size() - 4) + " bench " + std::to_string(i) +
                        path.substr(path.size() - 4));
        files.WriteFile(paths.back(), files.ReadFile(path));
    }
    return paths;
}

/// Draws a thumbnail of each vehicle in the list that follows the cache folder ("-" for none), and
/// prints the time.
int drawPictures(const std::string &cacheFolder, const std::string &list)
{
    AnsweredDialogs dialogs;
    host::GameFiles files;
    FixedSettings settings("");
    install::Installation installation;
    korvat::ModelLibrary shapes(files);
    viewer::VehiclePictures pictures({dialogs, files, settings, installation, shapes},
                                     cacheFolder == "-" ? "" : cacheFolder);
    std::vector<std::string> vehicles;
    std::ifstream in(list);
    for (std::string line; std::getline(in, line);)
        vehicles.push_back(line);
    std::size_t made = 0, drawn = 0;
    QObject::connect(&pictures, &viewer::VehiclePictures::ThumbnailReady, &pictures,
                     [&](const std::string &, const QImage &picture) {
                         ++made;
                         drawn += !picture.isNull();
                     });
    const double spent = bench::Milliseconds([&] {
        pictures.WantThumbnails(pictures, vehicles);
        // A loop that only polls would take a core from OpenGL on the processor.
        while (made < vehicles.size())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
    if (drawn != vehicles.size())
        giveUp("a vehicle was not drawn");
    std::printf("%f\n", spent);
    return 0;
}

/// Opens an editor with pictures in the rows of its stock list and scrolls through the list, page
/// by page, each when its pictures are there.
int showPictures(const std::string &folder, const std::string &consist)
{
    const Program program(folder);
    program.window->OpenFile(consist);
    QTreeView *list = program.List("lvStock");
    while (!list || list->model()->rowCount() < kPictures)
        QCoreApplication::processEvents();
    auto *pictures = program.window->findChild<QAction *>(QStringLiteral("mnuStockPictures"));
    if (!pictures)
        giveUp("no pictures");
    const auto passes = [](int milliseconds) {
        const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
        while (Clock::now() < end)
            QCoreApplication::processEvents();
    };
    passes(500);
    GapWatch watch;
    pictures->trigger();
    passes(300);
    for (int page = 0; page < 10; ++page) {
        list->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        passes(300);
    }
    watch.End();
}

constexpr int kReportLines = 100'000;

std::string longReport()
{
    std::string text;
    text.reserve(kReportLines * 80);
    for (int line = 0; line < kReportLines; ++line)
        text += "ERROR: Stock Folder " + std::to_string(line % 5000) + "/wagon" +
                std::to_string(line) + ".wag: shape file wagon" + std::to_string(line) +
                ".s is missing\r\n";
    return text;
}

void awaitLines(const frmResults &form)
{
    while (form.txtResults->blockCount() <= kReportLines)
        QCoreApplication::processEvents();
}

/// Opens a results window with a long report. Prints the time until it is painted if `what` is
/// "open", else the longest gap until all lines are there and the window was scrolled to the end.
int showReport(const std::string &what)
{
    std::string text = longReport();
    app::DressApplication(*qApp);
    AnsweredDialogs dialogs;
    host::GameFiles files;
    std::unique_ptr<frmResults> form;
    const double open = bench::Milliseconds([&] {
        form = std::make_unique<frmResults>(dialogs, files, "");
        form->SetText(std::move(text));
        form->show();
        QCoreApplication::processEvents();
        form->txtResults->viewport()->repaint();
    });
    if (what == "open") {
        std::printf("%f %f\n", open, open);
        std::fflush(stdout);
        std::_Exit(0);
    }
    GapWatch watch;
    awaitLines(*form);
    QScrollBar &bar = *form->txtResults->verticalScrollBar();
    for (int page = 0; page <= 200; ++page) {
        bar.setValue(bar.maximum() / 200 * page);
        QCoreApplication::processEvents();
    }
    watch.End();
}

/// Prints the memory that a results window with a long report occupies beyond that of a window with
/// one line, and the size of the text as the toolkit stores it, both in MiB.
int keepReport()
{
    app::DressApplication(*qApp);
    AnsweredDialogs dialogs;
    host::GameFiles files;
    frmResults form(dialogs, files, "");
    form.SetText("INFO: the first text loads the fonts\r\n");
    form.show();
    QCoreApplication::processEvents();
    const double before = bench::ResidentMebibytes();
    form.SetText(longReport());
    const double size = static_cast<double>(form.Text().size()) * sizeof(QChar) / (1 << 20);
    awaitLines(form);
    std::printf("%f %f\n", bench::ResidentMebibytes() - before, size);
    std::fflush(stdout);
    std::_Exit(0);
}

bench::Row reportMemoryRow(const std::string &program)
{
    char *rest = nullptr;
    const std::string figures = bench::RunForOutput({program, "--report", "keep"});
    const double memory = std::strtod(figures.c_str(), &rest);
    return {"memory of a report of 100,000 lines", "its text in UTF-16", memory,
            std::strtod(rest, nullptr), "MB"};
}

/// Returns the shortest of several runs of this program with these arguments, each preceded by its
/// start time.
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

/// Returns the shortest of the gaps that several runs of this command print, and prints the total
/// time of the last run.
double shortestGap(const char *what, const std::vector<std::string> &command)
{
    double shortest = std::numeric_limits<double>::infinity(), whole = 0;
    for (int round = 0; round < kGapRounds; ++round) {
        char *rest = nullptr;
        const std::string figures = bench::RunForOutput(command);
        shortest = std::min(shortest, std::strtod(figures.c_str(), &rest));
        whole = std::strtod(rest, nullptr);
    }
    std::printf("%s: %.0f ms in all\n", what, whole);
    return shortest;
}

bench::Row pictureRow(const std::string &program, const std::filesystem::path &sample,
                      const bench::SampleTrain &train)
{
    const std::string list = (sample / "vehicles.txt").string(),
                      cache = (sample / "cache").string();
    std::ofstream out(list);
    for (const std::string &path : makeVehicles(train))
        out << path << '\n';
    out.close();
    double kept = std::numeric_limits<double>::infinity(), plain = kept;
    for (int round = 0; round < kGapRounds; ++round) {
        std::filesystem::remove_all(cache);
        kept = std::min(
            kept, std::atof(bench::RunForOutput({program, "--pictures", cache, list}).c_str()));
        plain = std::min(
            plain, std::atof(bench::RunForOutput({program, "--pictures", "-", list}).c_str()));
    }
    return {"200 thumbnails, drawn and kept", "drawing each once", kept, plain};
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
    const std::filesystem::path sample = bench::MakeTemporaryFolder();
    const bench::SampleTrain train = bench::MakeSampleTrain(sample);
    std::vector<bench::Row> rows = {
        {"start to first painted consist list", "start to empty QMdiArea", list, empty}};
    const auto addGap = [&](const char *what, const std::vector<std::string> &command,
                            int limit = kGapLimit) {
        rows.push_back({what, "limit", shortestGap(what, command), static_cast<double>(limit)});
    };
    addGap("longest gap, editor filling its stock list",
           {program, "--stock", folder, installation.ConsistPath(consists.front()),
            std::to_string(stock)});
    addGap("longest key, searching the stock list",
           {program, "--search", folder, installation.ConsistPath(consists.front()),
            std::to_string(stock)},
           kFrame);
    addGap("longest gap, checking all stock", {program, "--check", folder});
    addGap("longest gap, marking consists with missing vehicles", {program, "--mark", folder});
    addGap("longest gap, laying out a train in 3D", {program, "--train", train.folder});
    rows.push_back(pictureRow(program, sample, train));
    addGap("longest gap, pictures in the stock list",
           {program, "--rows", train.folder, train.consist});
    addGap("opening a report of 100,000 lines", {program, "--report", "open"}, 100);
    addGap("longest gap, reading a report of 100,000 lines", {program, "--report", "read"});
    rows.push_back(reportMemoryRow(program));
    makeUnhealthy(sample / "unhealthy", 100'000);
    addGap("longest gap, health of 100,000 findings",
           {program, "--health", (sample / "unhealthy").string()});
    bench::PrintTable(rows);
    std::printf("%zu consists, %zu stock rows\n", consists.size(), stock);
    std::filesystem::remove_all(sample);
    return 0;
}

/// Measures only what concerns pictures, which needs no large installation.
int measurePictures(const std::string &program)
{
    const std::filesystem::path sample = bench::MakeTemporaryFolder();
    const bench::SampleTrain train = bench::MakeSampleTrain(sample);
    std::vector<bench::Row> rows = {pictureRow(program, sample, train)};
    rows.push_back({"longest gap, pictures in the stock list", "limit",
                    shortestGap("pictures", {program, "--rows", train.folder, train.consist}),
                    static_cast<double>(kGapLimit)});
    bench::PrintTable(rows);
    std::filesystem::remove_all(sample);
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
    if (arguments[1] == "--search")
        return searchStock(arguments[2], arguments[3], std::stoi(arguments[4]));
    if (arguments[1] == "--check")
        return checkAll(arguments[2]);
    if (arguments[1] == "--mark")
        return markConsists(arguments[2]);
    if (arguments[1] == "--health")
        return reportHealth(arguments[2]);
    if (arguments[1] == "--report")
        return arguments[2] == "keep" ? keepReport() : showReport(arguments[2]);
    if (arguments[1] == "--train")
        return viewTrain(arguments[2]);
    if (arguments[1] == "--pictures")
        return drawPictures(arguments[2], arguments[3]);
    if (arguments[1] == "--rows")
        return showPictures(arguments[2], arguments[3]);
    if (arguments[1] == "--only-pictures")
        return measurePictures(arguments[0]);
    return showEmptyWindow(std::stoll(arguments[2]));
}
