// SPDX-License-Identifier: MIT
// The guide lists exactly the existing commands and keys, and its links work.
#include "GuiTest.h"

#include "app/ShellCommands.h"
#include "content/ReferenceRules.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>

#include <algorithm>
#include <set>

namespace {

using document::WindowMode;
using Texts = std::multiset<std::string>;

QString guide()
{
    QFile file(QString::fromStdString(app::FindGuide(app::GuidePage::Contents)));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("there is no guide beside the tests");
    return QString::fromUtf8(file.readAll());
}

/// Returns the text of the first group for each match of the pattern.
Texts allOf(const QString &text, const char *pattern)
{
    Texts found;
    for (auto match = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
         match.hasNext();)
        found.insert(match.next()
                         .captured(1)
                         .simplified()
                         .replace(QLatin1String("&gt;"), QLatin1String(">"))
                         .toStdString());
    return found;
}

QString section(const QString &text, const char *id)
{
    const auto from = text.indexOf(QStringLiteral("<section id=\"%1\">").arg(QLatin1String(id)));
    return from < 0 ? QString()
                    : text.mid(from, text.indexOf(QLatin1String("</section>"), from) - from);
}

/// Adds the path, such as "File > New > Consist", and the keys of every command.
void addCommands(const QList<QAction *> &actions, const QString &menu, Texts &commands, Texts &keys)
{
    for (const QAction *action : actions) {
        QString caption = action->text().remove(QLatin1Char('&'));
        caption = menu + caption.remove(QLatin1String("...")).trimmed();
        if (action->isSeparator() || !action->isVisible())
            continue;
        if (action->menu()) {
            addCommands(action->menu()->actions(), caption + QStringLiteral(" > "), commands, keys);
            continue;
        }
        commands.insert(caption.toStdString());
        for (const QKeySequence &key : action->shortcuts())
            keys.insert((key.toString() + QStringLiteral(": ") + caption).toStdString());
    }
}

class GuideTest : public GuiTest
{
};

} // namespace

TEST_F(GuideTest, ListsEveryCommandAndItsKeys)
{
    Start();
    window->NewDocumentWindow(WindowMode::ConsistView, {}); // some keys work only in 3D views
    Texts commands, keys, told;
    addCommands(window->menuBar()->actions(), QString(), commands, keys);
    const QString text = guide();
    EXPECT_EQ(allOf(section(text, "menus"), "<tr><td><b>([^<]*)</b></td>"), commands);
    for (const QString &row : section(text, "keys").split(QStringLiteral("<tr>")))
        for (const std::string &command : allOf(row, "<b>([^<]*)</b>"))
            for (const std::string &key : allOf(row, "<kbd>([^<]*)</kbd>"))
                told.insert(key + ": " + command);
    EXPECT_EQ(told, keys);
}

TEST_F(GuideTest, CommandsInTheTextExist)
{
    Start();
    Texts commands, keys;
    addCommands(window->menuBar()->actions(), QString(), commands, keys);
    for (const std::string &named : allOf(guide(), "<b>(\\w+ &gt; [^<]*)</b>"))
        EXPECT_EQ(commands.count(named), 1U) << named;
}

TEST_F(GuideTest, ExplainsTheRulesOfTheHealthReport)
{
    const Texts rules =
        allOf(section(guide(), "health-rules"), "<code>([a-z]+(?:-[a-z0-9]+)+)</code>");
    for (const content::ReferenceRule &rule : content::ReferenceRules())
        EXPECT_EQ(rules.count(rule.missing), 1U) << rule.missing;
}

TEST_F(GuideTest, LinksHaveTargets)
{
    const QString text = guide();
    const Texts ids = allOf(text, "\\bid=\"([^\"]*)\""),
                sections = allOf(text, "<section id=\"([^\"]*)\"");
    const QDir folder =
        QFileInfo(QString::fromStdString(app::FindGuide(app::GuidePage::Contents))).dir();
    for (const std::string &id : ids)
        EXPECT_EQ(ids.count(id), 1U) << id;
    for (const std::string &target : allOf(text, "(?:href|src)=\"([^\"]*)\""))
        EXPECT_TRUE(target.starts_with('#') ? ids.count(target.substr(1)) == 1
                                            : folder.exists(QString::fromStdString(target)))
            << target;
    EXPECT_EQ(allOf(text.left(text.indexOf(QLatin1String("</nav>"))), "<li><a href=\"#([^\"]*)\""),
              sections);
    EXPECT_EQ(sections.size(), static_cast<std::size_t>(text.count(QLatin1String("<section"))));
    for (const QString &picture : folder.entryList({QStringLiteral("pictures")}))
        for (const QFileInfo &file : QDir(folder.filePath(picture)).entryInfoList(QDir::Files))
            EXPECT_EQ(allOf(text, "src=\"pictures/([^\"]*)\"").count(file.fileName().toStdString()),
                      1U)
                << file.fileName().toStdString();
}
