// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmResults.h"

#include "GuiTest.h"
#include "host/Path.h"

#include <QClipboard>
#include <QColor>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

namespace {

class frmResultsTest : public testing::Test
{
protected:
    frmResultsTest()
    {
        form->SetCaption("Usage check of box");
        form->SetText("ERROR: box.wag is MISSING\r\nINFO: b references file box.wag\r\n");
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
    }
    ~frmResultsTest() override
    {
        if (form)
            form->close();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : form.data(), key, modifiers);
    }
    std::string selected() const
    {
        const QTextCursor cursor = form->txtResults->textCursor();
        return std::to_string(cursor.selectionStart()) + ' ' + cursor.selectedText().toStdString();
    }

    support::TempFolder folder;
    support::ScriptedDialogs dialogs;
    host::GameFiles files;
    QPointer<frmResults> form = new frmResults(dialogs, files, folder.Path());
};

const std::string kRule(80, '=');

} // namespace

TEST_F(frmResultsTest, ShowsReadOnlyTextToCopy)
{
    EXPECT_TRUE(form->txtResults->isReadOnly());
    EXPECT_EQ(form->txtResults->toPlainText().toStdString(),
              "ERROR: box.wag is MISSING\nINFO: b references file box.wag\n");
    EXPECT_EQ(Find<QLabel>(*form, "lblSummary").text(), QStringLiteral("1 error, 1 note"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), form->txtResults->toPlainText());
    press(Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(dialogs.TakeLog(), "information|Message Properties|60 characters in message\n");
    form->SetText("INFO: a\r\nSTOPPED: this report is not complete.\r\n");
    EXPECT_EQ(Find<QLabel>(*form, "lblSummary").text(), QStringLiteral("1 note, not complete"));
    form->SetText("");
    EXPECT_EQ(Find<QLabel>(*form, "lblSummary").text(), QString());
}

TEST_F(frmResultsTest, LongReportArrivesInSlicesWithoutMovingWhatTheUserSees)
{
    std::string text;
    for (int line = 0; line < 20'000; ++line)
        text += "ERROR: wagon" + std::to_string(line) + ".wag: a shape file is missing\r\n";
    const auto lines = [&] { return form->txtResults->document()->blockCount(); };
    form->SetText(text);
    EXPECT_GT(lines(), 100);
    EXPECT_LT(lines(), 5'000);
    EXPECT_EQ(Find<QLabel>(*form, "lblSummary").text().toStdString(),
              QLocale().toString(20'000).toStdString() + " errors");
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    const std::string before = selected();
    ASSERT_TRUE(QTest::qWaitFor([&] { return lines() == 20'001; }));
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(form->txtResults->verticalScrollBar()->value(), 0);

    form->SetText(text);
    form->txtResults->setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count(QLatin1Char('\n')), 20'000);
}

TEST_F(frmResultsTest, FirstWordsHaveTheirColourAtTheFirstPainting)
{
    // Returns the number of reddish pixels.
    const auto reds = [](const QImage &image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                count += colour.red() > colour.green() + 60 && colour.red() > colour.blue() + 60;
            }
        return count;
    };
    form->SetText("ERROR: a\nERROR: b\nERROR: c\n");
    const int first = reds(form->txtResults->viewport()->grab().toImage());
    EXPECT_GT(first, 30);
    EXPECT_EQ(reds(form->txtResults->viewport()->grab().toImage()), first);
}

TEST_F(frmResultsTest, SavingTwiceAppendsTwoFramedReports)
{
    const std::string file = host::path::Join(folder.Path(), "box.log");
    for (int time = 0; time < 2; ++time) {
        dialogs.AnswerInput(time == 0 ? file : "box.log"); // a bare name is in the same folder
        time == 0 ? form->cmdSave->click() : press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(dialogs.TakeLog(), "input|Save Results|Enter file name:|" + file + "\n");
    }
    const std::string report =
        kRule + "\nERROR: box.wag is MISSING\nINFO: b references file box.wag\n" + kRule + "\n";
    std::string saved = folder.Read("box.log");
    std::erase(saved, '\r');
    EXPECT_EQ(saved, report + report);
}

TEST_F(frmResultsTest, DefaultNameIsTheCaptionFromItsSixteenthCharacterOn)
{
    const std::pair<std::string, std::string> rows[] = {
        {"Stock check of Coal", "Coal"},
        {"Usage check of A|B", "A_B"},
        {"TS Installation Check", " Check"},
        {"Results", ""},
        {"", ""},
        {std::string(400, 'x'), std::string(185, 'x') + "..."}};
    for (const auto &[caption, name] : rows) {
        form->SetCaption(caption);
        form->Save();
        EXPECT_EQ(dialogs.TakeLog(), "input|Save Results|Enter file name:|" +
                                         host::path::Join(folder.Path(), name + ".log") + "\n");
    }
    dialogs.AnswerInput("");
    form->Save();
    EXPECT_TRUE(folder.Names().empty()) << "neither Cancel nor an empty answer saves";
    dialogs.TakeLog();
    dialogs.AnswerInput(folder.At("none/x.log"));
    form->Save();
    const std::string log = dialogs.TakeLog(), refusal = "critical|Save Results|";
    EXPECT_NE(log.find('\n' + refusal + folder.At("none/x.log")), std::string::npos) << log;
}

TEST_F(frmResultsTest, FindWrapsAroundInBothDirections)
{
    press(Qt::Key_F3);
    auto &box = Find<QLineEdit>(*form, "txtFind");
    ASSERT_TRUE(box.hasFocus()) << "F3 without a search text opens the find bar";
    QTest::keyClicks(&box, QStringLiteral("BOX"));
    EXPECT_EQ(Find<QLabel>(*form, "lblFound").text(), QStringLiteral("2 found"));
    EXPECT_EQ(selected(), "7 box");
    press(Qt::Key_Return);
    EXPECT_EQ(selected(), "50 box");
    press(Qt::Key_F3);
    EXPECT_EQ(selected(), "7 box");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "50 box");
    QTest::keyClicks(&box, QStringLiteral("es"));
    EXPECT_EQ(Find<QLabel>(*form, "lblFound").text(), QStringLiteral("Not found"));
    EXPECT_FALSE(Find<QWidget>(*form, "cmdFindNext").isEnabled());
}

TEST_F(frmResultsTest, EscClosesTheFindBarAndThenTheWindow)
{
    form->txtResults->moveCursor(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(Find<QLineEdit>(*form, "txtFind").text(), QStringLiteral("ERROR"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(Find<QWidget>(*form, "findBar").isVisible());
    EXPECT_TRUE(form->txtResults->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(Wait([this] { return form.isNull(); })) << "a closed window is gone";
}

TEST_F(frmResultsTest, NumberBelowTheTextIsGroupedInEveryLocale)
{
    constexpr int kWaves = 1725;
    std::string sound = "\nTr_SMS (";
    std::vector<content::MissedFile> missed;
    const std::string naming = folder.At("Trains/Trainset/A/SOUND/a.sms");
    for (int i = 0; i < kWaves; ++i) {
        const std::string wave = "w" + std::to_string(i) + ".wav";
        folder.Write("Sound/" + wave);
        sound += " File ( " + wave + " )";
        missed.push_back({naming, folder.At("Trains/Trainset/A/SOUND/" + wave)});
    }
    folder.Write("Trains/Trainset/A/SOUND/a.sms", sound + " )");
    const auto &label = Find<QLabel>(*form, "lblElsewhere");
    EXPECT_TRUE(label.isHidden());
    QLocale::setDefault(QLocale(QLocale::German));
    form->CountElsewhere({folder.Path(), content::Profiles::Both(), missed});
    EXPECT_TRUE(Wait([&] { return label.isVisible(); }));
    QLocale::setDefault(QLocale::system());
    EXPECT_EQ(label.text(), QStringLiteral("1,725 of these files are found elsewhere by the "
                                           "simulator: see Stock > Health Report."));
    EXPECT_GE(label.y(), form->txtResults->geometry().bottom());
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), form->txtResults->toPlainText());
    dialogs.AnswerInput("box.log");
    form->Save();
    EXPECT_EQ(folder.Read("box.log").find("elsewhere"), std::string::npos);
}

TEST_F(frmResultsTest, ClosingStopsTheCount)
{
    std::vector<content::MissedFile> missed;
    for (int i = 0; i < 20000; ++i)
        missed.push_back({folder.At("a" + std::to_string(i) + ".wag"), folder.At("a.s")});
    form->CountElsewhere({folder.Path(), content::Profiles::Both(), missed});
    form->close();
    EXPECT_TRUE(Wait([this] { return form.isNull(); }));
}
