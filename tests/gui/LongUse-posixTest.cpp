// SPDX-License-Identifier: MIT
// Long use: windows and dialogs are opened and closed many times. After the first ten, memory and
// open files must not grow. ZELK_LONG_USE=1000 sets the number of rounds (scripts/long-use).
#include "ViewsFixture.h"

#include "ui/dialogs/QtDialogs.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmResults.h"
#include "ui/health/frmHealth.h"
#include "ui/replace/frmReplace.h"
#include "ui/view3d/VehiclePreview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPixmapCache>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include <dlfcn.h>
#include <malloc.h>
#include <unistd.h>

namespace {

constexpr int kFirstRounds = 10;
constexpr long kAllowedBytes = 256 * 1024; ///< caches of the toolkit and of the graphics driver

int rounds()
{
    const char *wanted = std::getenv("ZELK_LONG_USE");
    return wanted ? std::atoi(wanted) : 30;
}

/// Xlib keeps a record of each request until its own next call, and Qt calls it rarely.
void letXlibForget()
{
    using Sync = int (*)(Display *, int);
    auto *const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    void *const library = x11 ? dlopen("libX11.so.6", RTLD_LAZY | RTLD_NOLOAD) : nullptr;
    if (!library)
        return;
    if (auto *const sync = reinterpret_cast<Sync>(dlsym(library, "XSync")))
        sync(x11->display(), 0);
    dlclose(library);
}

/// What this process holds.
struct Holding
{
    long heap = 0;     ///< allocated bytes
    long resident = 0; ///< bytes in memory, after free memory was returned to the system
    long files = 0;    ///< open files, pipes and sockets
    long widgets = 0;

    static Holding Now()
    {
        letXlibForget();
        malloc_trim(0);
        const struct mallinfo2 info = mallinfo2();
        Holding now;
        now.heap = static_cast<long>(info.uordblks + info.hblkhd);
        std::ifstream("/proc/self/statm") >> now.resident >> now.resident;
        now.resident *= sysconf(_SC_PAGESIZE);
        for ([[maybe_unused]] const auto &file :
             std::filesystem::directory_iterator("/proc/self/fd"))
            ++now.files;
        now.widgets = static_cast<long>(QApplication::allWidgets().size());
        return now;
    }
};

bool isWithin(long before, long after)
{
    return after - before <= std::max(before / 50, kAllowedBytes);
}

} // namespace

class LongUseTest : public ViewsTest
{
protected:
    LongUseTest()
        : m_cacheLimit(QPixmapCache::cacheLimit())
    {
        // The toolkit's cache of drawn controls grows up to its limit of 10 MB.
        QPixmapCache::setCacheLimit(0);
    }
    ~LongUseTest() override { QPixmapCache::setCacheLimit(m_cacheLimit); }
    void SetUp() override
    {
        ViewsTest::SetUp();
        if (IsSkipped())
            return;
        game.Write("a.act", "SIMISA@@@@@@@@@@JINX0a0t______\n\nTr_Activity ( Tr_Activity_File ( "
                            "ActivityObjects ( ActivityObject ( Train_Config ( TrainCfg ( \"\" "
                            "Wagon ( WagonData ( box Boxcars ) ) ) ) ) ) ) )\n");
        Start();
    }

    /// Repeats `round` and checks that nothing grows.
    void Repeat(const std::function<void()> &round)
    {
        for (int i = 0; i < kFirstRounds && !HasFailure(); ++i)
            runOnce(round);
        const Holding before = Holding::Now();
        const int count = std::max(rounds() - kFirstRounds, 1);
        for (int i = 0; i < count && !HasFailure(); ++i)
            runOnce(round);
        const Holding after = Holding::Now();
        report(before, after, count);
        EXPECT_EQ(after.files, before.files);
        EXPECT_EQ(after.widgets, before.widgets);
#ifndef __SANITIZE_ADDRESS__ // it keeps freed memory for a while
        EXPECT_TRUE(isWithin(before.heap, after.heap)) << before.heap << " to " << after.heap;
        EXPECT_TRUE(isWithin(before.resident, after.resident))
            << before.resident << " to " << after.resident;
#endif
    }
    void close()
    {
        ASSERT_TRUE(Active()->close());
    }
    /// Opens a window with a search in the background, waits for its end and closes the window.
    template <typename Form> void runToItsEnd(const char *command)
    {
        Trigger(command);
        Form &form = *window->findChild<Form *>();
        EXPECT_TRUE(Wait([&form] { return !form.Running(); }));
        form.close();
    }
    /// Closes the dialog that `open` shows.
    static void dismiss(const std::function<void()> &open)
    {
        bool shown = false;
        OnNextDialog([&shown](QDialog &dialog) {
            shown = true;
            dialog.reject();
        });
        open();
        EXPECT_TRUE(shown);
    }

private:
    void runOnce(const std::function<void()> &round)
    {
        round();
        dialogs.TakeLog();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    static void report(const Holding &before, const Holding &after, int count)
    {
        const char *name = testing::UnitTest::GetInstance()->current_test_info()->name();
        std::cout << "long use: " << name << '\t' << count + kFirstRounds << '\t'
                  << before.heap / 1024 << '\t' << (after.heap - before.heap) / count << '\t'
                  << before.resident / 1024 << '\t' << after.resident / 1024 << '\t' << after.files
                  << std::endl;
    }

    const int m_cacheLimit;
};

TEST_F(LongUseTest, ConsistList)
{
    Repeat([this] {
        Trigger("mnuFileNewConsistList");
        close();
    });
}

TEST_F(LongUseTest, ConsistEditor)
{
    Repeat([this] {
        OpenEditor("Coal");
        Find<document::ListView>(*Active(), "lvConsist").SelectRow(0);
        Trigger("mnuUnitsFlip");
        Trigger("mnuEditUndo");
        Active()->AllowUnload();
        close();
    });
}

TEST_F(LongUseTest, EditorWithPreview)
{
    Trigger("mnuViewPreview");
    Repeat([this] {
        OpenEditor("Coal");
        auto &stock = Find<document::ListView>(*Active(), "lvStock");
        stock.setFocus();
        stock.SelectRow(0);
        auto &preview = Find<viewer::VehiclePreview>(*Active(), "VehiclePreview");
        EXPECT_TRUE(Wait([&] { return preview.IsLive(); }));
        close();
    });
}

TEST_F(LongUseTest, ConsistIn3D)
{
    Repeat([this] {
        Find<document::ListView>(*window->Documents().front(), "lvConsists").SelectRow(0);
        Trigger("mnuConsistView");
        EXPECT_TRUE(loaded());
        close();
    });
}

TEST_F(LongUseTest, ShapeIn3D)
{
    Repeat([this] {
        window->OpenFile(stockFile("Boxcars/box.s"));
        EXPECT_TRUE(loaded());
        close();
    });
}

TEST_F(LongUseTest, ActivityIn3D)
{
    Repeat([this] {
        const std::size_t before = window->Documents().size();
        dialogs.AnswerInput("1");
        window->OpenFile(game.At("a.act"));
        EXPECT_TRUE(Wait([&] { return window->Documents().size() > before; }));
        EXPECT_TRUE(loaded());
        close();
    });
}

TEST_F(LongUseTest, Results)
{
    Repeat([this] {
        dialogs.Answer(host::DialogAnswer::Yes);
        Trigger("mnuStockCheckAll");
        const auto forms = window->findChildren<frmResults *>();
        ASSERT_EQ(forms.size(), 1);
        forms.front()->actions().front()->trigger(); // Find
        EXPECT_TRUE(Find<QLineEdit>(*forms.front(), "txtFind").isVisible());
        forms.front()->close();
    });
}

TEST_F(LongUseTest, HealthReport)
{
    Repeat([this] { runToItsEnd<frmHealth>("mnuStockHealth"); });
}

TEST_F(LongUseTest, ReplaceInConsists)
{
    Repeat([this] { runToItsEnd<frmReplace>("mnuStockReplace"); });
}

TEST_F(LongUseTest, Candidates)
{
    OpenEditor("GP38 Local");
    Find<document::ListView>(*Active(), "lvConsist").SelectRow(2);
    Repeat([this] { dismiss([this] { Trigger("mnuUnitsFindCandidates"); }); });
}

TEST_F(LongUseTest, MenuDialogs)
{
    Repeat([this] {
        for (const char *command : {"mnuHelpAbout", "mnuFileSetMSTSLoc"})
            dismiss([this, command] { Trigger(command); });
        dialogs.Answer(host::DialogAnswer::Ok);
        Trigger("mnuFileProperties");
    });
}

TEST_F(LongUseTest, SystemInfo)
{
    Repeat([this] {
        OnNextDialog([](QDialog &about) {
            dismiss([&] { Find<QAbstractButton>(about, "cmdSysInfo").click(); });
        });
        Trigger("mnuHelpAbout");
    });
}

TEST_F(LongUseTest, SavePicture)
{
    viewCoal();
    Repeat([this] { dismiss([this] { Trigger("mnuFileSavePicture"); }); });
}

TEST_F(LongUseTest, SelectorAndMessages)
{
    app::QtDialogs asking;
    Repeat([&] {
        dismiss([&] { asking.SelectFromList("Routes", "A (a)|B (b)|C (c)"); });
        dismiss([&] { asking.Input("How many?", "Add Several", "2"); });
        dismiss([&] {
            asking.Message("Save?", "Save Consist", host::DialogIcon::Question,
                           host::DialogButtons::YesNoCancel);
        });
    });
}

TEST_F(LongUseTest, FileDialogs)
{
    app::QtDialogs asking;
    host::FileDialogRequest request;
    request.title = "Open";
    request.folder = game.At("Trains/Consists");
    request.filter = "Consists (*.con)|*.con";
    Repeat([&] {
        dismiss([&] { asking.OpenFile(request); });
        dismiss([&] { asking.SaveFile(request); });
    });
}
