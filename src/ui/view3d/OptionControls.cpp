// SPDX-License-Identifier: MIT
#include "ui/view3d/OptionControls.h"

#include "host/Path.h"
#include "ui/view3d/ViewLists.h"
#include "ui/view3d/ViewTools.h"
#include "viewer/Stage.h"

#include <QApplication>

#include <algorithm>

namespace viewer {
namespace {

constexpr int kListWidth = 220;
constexpr int kListTop = 32; ///< below the name of a chosen vehicle

struct Switch
{
    bool ViewOptions::*option;
    const char *name;
};
constexpr Switch kSwitches[] = {
    {&ViewOptions::snow, "Snow"},       {&ViewOptions::night, "Night"},
    {&ViewOptions::lights, "Lights"},   {&ViewOptions::pantographs, "Raised pantographs"},
    {&ViewOptions::boxes, "Boxes"},     {&ViewOptions::wireframe, "Wireframe"},
    {&ViewOptions::normals, "Normals"}, {&ViewOptions::marksMissing, "Missing textures in magenta"},
};

/// Returns a status text for what has changed; "" if it can be seen in a list.
QString described(const ViewOptions &before, const ViewOptions &after)
{
    constexpr const char *kSeasons[] = {"Summer", "Spring", "Autumn", "Winter"};
    for (const Switch &known : kSwitches)
        if (before.*known.option != after.*known.option)
            return QString::fromLatin1(known.name) +
                   QString::fromLatin1(after.*known.option ? ": on" : ": off");
    if (before.season != after.season)
        return QStringLiteral("Season: ") +
               QString::fromLatin1(kSeasons[static_cast<std::size_t>(after.season)]);
    if (before.level != after.level)
        return QStringLiteral("Level of detail: ") +
               (after.level ? QString::number(after.level) : QStringLiteral("the finest"));
    if (before.speed != after.speed)
        return QStringLiteral("Speed: %1 km/h").arg(ToKilometres(after.speed));
    return {};
}

/// Shows the wait cursor while it exists.
struct Waiting
{
    Waiting() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Waiting() { QGuiApplication::restoreOverrideCursor(); }
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;
};

} // namespace

OptionControls::OptionControls(Stage &stage, QWidget *view, QWidget &pane,
                               std::function<void(bool shown)> showLoads)
    : m_stage(stage)
    , m_view(view)
    , m_showLoads(std::move(showLoads))
{
    tmrRoll.setObjectName("tmrRoll");
    tmrRoll.setInterval(kFrameMilliseconds);
    connect(&tmrRoll, &QTimer::timeout, this, &OptionControls::roll);
    if (m_view)
        makeControls(pane);
}

void OptionControls::makeControls(QWidget &pane)
{
    m_tools = new ViewTools(*m_view, &pane);
    m_parts = new PartTree(&pane);
    m_missing = new MissingList(&pane);
    connect(m_tools, &ViewTools::OptionsChanged, this, &OptionControls::Set);
    connect(m_tools, &ViewTools::PartsWanted, this, &OptionControls::ShowParts);
    connect(m_tools, &ViewTools::LoadsWanted, this, [this](bool shown) { m_showLoads(shown); });
    connect(m_parts, &PartTree::HiddenChanged, this, [this](const std::set<std::string> &hidden) {
        ViewOptions options = Options();
        options.hiddenParts = hidden;
        Set(options);
    });
    connect(m_parts, &ViewList::CloseWanted, this, [this] {
        m_view->setFocus();
        ShowParts(false);
    });
    connect(m_missing, &ViewList::CloseWanted, this, [this] {
        m_view->setFocus();
        ViewOptions options = Options();
        options.marksMissing = false;
        Set(options);
    });
}

void OptionControls::SetAnimated(bool animated)
{
    if (m_tools)
        m_tools->SetAnimated(animated);
}

const ViewOptions &OptionControls::Options() const
{
    return m_stage.Options();
}

void OptionControls::Set(const ViewOptions &options)
{
    const ViewOptions before = Options(), wanted = options;
    if (wanted == before)
        return;
    {
        // The other levels are read now.
        const Waiting cursor;
        m_stage.SetOptions(wanted);
    }
    updateTimer();
    showState();
    if (const QString text = described(before, wanted); !text.isEmpty())
        Q_EMIT StatusChanged(text);
}

void OptionControls::ChangeLevel(int by)
{
    ViewOptions options = Options();
    // The finest level is the first one, so that 0 and 1 look alike.
    const int last = static_cast<int>(m_stage.Levels().size());
    options.level = std::clamp(std::max(options.level, 1) + by, 1, std::max(last, 1));
    Set(options);
}

void OptionControls::ChangeSpeed(int by)
{
    ViewOptions options = Options();
    options.speed = FromKilometres(ToKilometres(options.speed) + by);
    Set(options);
}

void OptionControls::LoadsShown(bool shown)
{
    m_loadsShown = shown;
    showState();
}

void OptionControls::SwitchTools()
{
    if (!m_tools)
        return;
    if (m_tools->isAncestorOf(QApplication::focusWidget()))
        m_tools->Conceal();
    else
        m_tools->Reveal();
}

void OptionControls::ShowParts(bool shown)
{
    m_partsShown = shown;
    showState();
    if (shown && m_parts)
        m_parts->setFocus();
}

void OptionControls::SceneChanged()
{
    if (!m_view)
        return;
    m_tools->ShowLevels(m_stage.Levels());
    m_parts->Fill(m_stage.Parts(), Options().hiddenParts);
    fillMissing();
    showState();
}

void OptionControls::fillMissing()
{
    if (!Options().marksMissing)
        return;
    std::vector<std::string> lines;
    for (const MissingTexture &missing : m_stage.MissingTextures())
        lines.push_back(missing.texture + " (" + std::string(host::path::FileName(missing.shape)) +
                        ")");
    m_missing->Fill(lines);
}

void OptionControls::showState()
{
    if (m_view) {
        m_tools->Show(Options(), m_loadsShown, m_partsShown);
        m_parts->Mark(Options().hiddenParts);
        if (m_missing->isHidden())
            fillMissing();
        m_parts->setVisible(m_partsShown);
        m_missing->setVisible(Options().marksMissing);
        Place();
    }
    Q_EMIT Changed();
}

void OptionControls::Place()
{
    if (!m_view)
        return;
    m_tools->Place();
    QRect left = m_view->geometry();
    left.setWidth(std::min(kListWidth, left.width() / 2));
    left.setTop(left.top() + std::min(kListTop, left.height() / 4));
    const bool both = !m_parts->isHidden() && !m_missing->isHidden();
    const int height = both ? left.height() / 2 : left.height();
    m_parts->setGeometry(left.left(), left.top(), left.width(), height);
    m_missing->setGeometry(left.left(), left.bottom() + 1 - height, left.width(), height);
    m_parts->raise();
    m_missing->raise();
    m_tools->raise();
}

void OptionControls::SetVisible(bool visible)
{
    m_visible = visible;
    updateTimer();
}

void OptionControls::updateTimer()
{
    const bool rolls = Options().speed > 0 && m_visible && m_view;
    if (rolls && !tmrRoll.isActive()) {
        m_rolled.start();
        tmrRoll.start();
    } else if (!rolls) {
        tmrRoll.stop();
    }
}

void OptionControls::roll()
{
    const qint64 passed = std::min(m_rolled.restart(), kLongestStep);
    m_stage.Roll(static_cast<float>(passed) / 1000);
}

} // namespace viewer
