// SPDX-License-Identifier: MIT
#include "ui/view3d/ViewTools.h"

#include "ui/view3d/FlowLayout.h"
#include "ui/view3d/NavigationKeys.h"
#include "ui/widgets/NamedControls.h"

#include <QApplication>
#include <QComboBox>
#include <QGraphicsOpacityEffect>
#include <QHoverEvent>
#include <QLabel>
#include <QPropertyAnimation>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace viewer {
namespace {

constexpr float kPerMetre = 3.6F; ///< km/h
constexpr int kCornerWidth = 160, kCornerHeight = 90;

QString metres(float distance)
{
    return QString::number(std::lround(std::clamp(distance, 0.0F, 1e8F)));
}

QString captionOf(std::size_t level, const LevelDistances &distances)
{
    const QString number = QStringLiteral("Level %1, to ").arg(level);
    return distances.least == distances.most
               ? number + metres(distances.most) + QStringLiteral(" m")
               : number + metres(distances.least) + QStringLiteral("\u2013") +
                     metres(distances.most) + QStringLiteral(" m");
}

} // namespace

int ToKilometres(float metresPerSecond)
{
    return static_cast<int>(
        std::lround(std::clamp(metresPerSecond * kPerMetre, 0.0F, float{kFastest})));
}

float FromKilometres(int kilometresPerHour)
{
    return static_cast<float>(std::clamp(kilometresPerHour, 0, kFastest)) / kPerMetre;
}

ViewTools::ViewTools(QWidget &view, QWidget *parent)
    : QFrame(parent)
    , cboSeason(new QComboBox(this))
    , cmdSnow(button("Snow"))
    , cmdNight(button("Night"))
    , cmdLights(button("Lights"))
    , cboLevel(new QComboBox(this))
    , sldSpeed(new QSlider(Qt::Horizontal, this))
    , lblSpeed(new QLabel(this))
    , cmdPantographs(button("Pantographs"))
    , cmdLoads(button("Loads"))
    , cmdBoxes(button("Boxes"))
    , cmdWireframe(button("Wireframe"))
    , cmdNormals(button("Normals"))
    , cmdMissing(button("Missing"))
    , cmdParts(button("Parts"))
    , cmdHideTools(button("\u00d7", false))
    , m_view(view)
    , m_opacity(new QGraphicsOpacityEffect(this))
    , m_fade(new QPropertyAnimation(m_opacity, "opacity", this))
{
    nameControls();
    addControls();
    connectControls();
    setAutoFillBackground(true);
    setFrameShape(QFrame::StyledPanel);
    setAttribute(Qt::WA_NoMousePropagation); // dragging on the row must not turn the view
    setGraphicsEffect(m_opacity);
    m_opacity->setOpacity(0);
    m_fade->setDuration(kFadeMilliseconds);
    connect(m_fade, &QPropertyAnimation::finished, this,
            [this] { setVisible(m_opacity->opacity() > 0); });
    tmrTools.setSingleShot(true);
    connect(&tmrTools, &QTimer::timeout, this, &ViewTools::hideUnlessUsed);
    m_view.setAttribute(Qt::WA_Hover);
    m_view.installEventFilter(this);
    Show({}, true, false);
    ShowLevels({});
    hide();
}

QToolButton *ViewTools::button(const char *caption, bool checkable)
{
    auto *made = new QToolButton(this);
    made->setText(QString::fromUtf8(caption));
    made->setAutoRaise(true);
    made->setCheckable(checkable);
    made->setFocusPolicy(Qt::TabFocus);
    return made;
}

void ViewTools::nameControls()
{
    const install::NamedControl controls[] = {
        {cboSeason, "cboSeason", "Season", "The season whose textures are shown"},
        {cmdSnow, "cmdSnow", "Snow", "Show the textures for snow (S)"},
        {cmdNight, "cmdNight", "Night", "Show the textures of the night (N)"},
        {cmdLights, "cmdLights", "Lights", "Show the lights of vehicles (H)"},
        {cboLevel, "cboLevel", "Level of detail", "Level of detail (PgUp, PgDown)"},
        {sldSpeed, "sldSpeed", "Speed", "Speed at which wheels turn (+, -, 0)"},
        {lblSpeed, "lblSpeed", "", ""},
        {cmdPantographs, "cmdPantographs", "Pantographs", "Raise the pantographs (P)"},
        {cmdLoads, "cmdLoads", "Loads", "Show the loads of vehicles in all 3D windows (L)"},
        {cmdBoxes, "cmdBoxes", "Boxes", "Show sizes and couplers as boxes (B)"},
        {cmdWireframe, "cmdWireframe", "Wireframe", "Show the edges of the triangles (W)"},
        {cmdNormals, "cmdNormals", "Normals", "Show a line along each vertex's normal (V)"},
        {cmdMissing, "cmdMissing", "Missing textures",
         "Show missing textures in magenta, and list them (M)"},
        {cmdParts, "cmdParts", "Parts", "List the parts of the shapes, to hide some (T)"},
        {cmdHideTools, "cmdHideTools", "Hide the tool row", "Hide the tool row (O shows it)"},
    };
    setObjectName("viewTools");
    setAccessibleName(QStringLiteral("Tools of the 3D view"));
    install::NameControls(controls);
}

void ViewTools::addControls()
{
    cboSeason->addItems({QStringLiteral("Summer"), QStringLiteral("Spring"),
                         QStringLiteral("Autumn"), QStringLiteral("Winter")});
    sldSpeed->setRange(0, kFastest);
    sldSpeed->setPageStep(20);
    sldSpeed->setFixedWidth(80);
    lblSpeed->setMinimumWidth(
        lblSpeed->fontMetrics().horizontalAdvance(QStringLiteral("%1 km/h").arg(kFastest)));
    for (QComboBox *list : {cboSeason, cboLevel}) {
        list->setFocusPolicy(Qt::TabFocus);
        list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    }
    sldSpeed->setFocusPolicy(Qt::TabFocus);
    for (QWidget *control : std::initializer_list<QWidget *>{cboSeason, cboLevel, sldSpeed})
        new NavigationKeys(*control);
    auto *layout = new FlowLayout(this);
    for (QWidget *control : std::initializer_list<QWidget *>{
             cboSeason, cmdSnow, cmdNight, cmdLights, cboLevel, sldSpeed, lblSpeed, cmdPantographs,
             cmdLoads, cmdBoxes, cmdWireframe, cmdNormals, cmdMissing, cmdParts, cmdHideTools})
        layout->addWidget(control);
}

void ViewTools::connectControls()
{
    connect(cboSeason, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_options.season = static_cast<Season>(std::max(index, 0));
        Q_EMIT OptionsChanged(m_options);
    });
    connect(cboLevel, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_options.level = std::max(index, 0);
        Q_EMIT OptionsChanged(m_options);
    });
    connect(sldSpeed, &QSlider::valueChanged, this, [this](int speed) {
        m_options.speed = FromKilometres(speed);
        showSpeed();
        Q_EMIT OptionsChanged(m_options);
    });
    connectSwitch(cmdSnow, &ViewOptions::snow);
    connectSwitch(cmdNight, &ViewOptions::night);
    connectSwitch(cmdLights, &ViewOptions::lights);
    connectSwitch(cmdPantographs, &ViewOptions::pantographs);
    connectSwitch(cmdBoxes, &ViewOptions::boxes);
    connectSwitch(cmdWireframe, &ViewOptions::wireframe);
    connectSwitch(cmdNormals, &ViewOptions::normals);
    connectSwitch(cmdMissing, &ViewOptions::marksMissing);
    connect(cmdLoads, &QToolButton::toggled, this, &ViewTools::LoadsWanted);
    connect(cmdParts, &QToolButton::toggled, this, &ViewTools::PartsWanted);
    connect(cmdHideTools, &QToolButton::clicked, this, &ViewTools::Conceal);
}

void ViewTools::connectSwitch(QToolButton *button, bool ViewOptions::*option)
{
    connect(button, &QToolButton::toggled, this, [this, option](bool on) {
        m_options.*option = on;
        Q_EMIT OptionsChanged(m_options);
    });
}

void ViewTools::Show(const ViewOptions &options, bool loads, bool parts)
{
    m_options = options;
    const auto check = [](QToolButton *button, bool on) {
        const QSignalBlocker silent(button);
        button->setChecked(on);
    };
    check(cmdSnow, options.snow);
    check(cmdNight, options.night);
    check(cmdLights, options.lights);
    check(cmdPantographs, options.pantographs);
    check(cmdLoads, loads);
    check(cmdBoxes, options.boxes);
    check(cmdWireframe, options.wireframe);
    check(cmdNormals, options.normals);
    check(cmdMissing, options.marksMissing);
    check(cmdParts, parts);
    const QSignalBlocker silentSeason(cboSeason), silentLevel(cboLevel), silentSpeed(sldSpeed);
    cboSeason->setCurrentIndex(static_cast<int>(options.season));
    cboLevel->setCurrentIndex(std::clamp(options.level, 0, std::max(cboLevel->count() - 1, 0)));
    sldSpeed->setValue(ToKilometres(options.speed));
    showSpeed();
}

void ViewTools::showSpeed()
{
    lblSpeed->setText(QStringLiteral("%1 km/h").arg(sldSpeed->value()));
}

void ViewTools::ShowLevels(const std::vector<LevelDistances> &levels)
{
    const QSignalBlocker silent(cboLevel);
    cboLevel->clear();
    cboLevel->addItem(QStringLiteral("Finest level"));
    for (std::size_t i = 0; i < levels.size(); ++i)
        cboLevel->addItem(captionOf(i + 1, levels[i]));
    cboLevel->setCurrentIndex(std::clamp(m_options.level, 0, cboLevel->count() - 1));
    Place();
}

void ViewTools::Place()
{
    const QRect view = m_view.geometry();
    const int width = std::min(sizeHint().width(), view.width());
    const int height = layout()->heightForWidth(width - 2 * frameWidth()) + 2 * frameWidth();
    setGeometry(view.right() + 1 - width, view.top(), width, std::min(height, view.height()));
}

void ViewTools::Reveal()
{
    appear();
    cboSeason->setFocus(Qt::TabFocusReason);
}

void ViewTools::Conceal()
{
    if (isAncestorOf(QApplication::focusWidget()))
        m_view.setFocus();
    tmrTools.stop();
    fadeTo(0);
}

bool ViewTools::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_view && event->type() == QEvent::HoverMove && !QApplication::mouseButtons())
        mouseAt(static_cast<QHoverEvent *>(event)->position().toPoint());
    if (watched == &m_view && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        Place();
    return QFrame::eventFilter(watched, event);
}

void ViewTools::mouseAt(const QPoint &place)
{
    const int width = std::min(kCornerWidth, m_view.width() / 2);
    const int height = std::min(kCornerHeight, m_view.height() / 2);
    if (QRect(m_view.width() - width, 0, width, height).contains(place))
        appear();
    else if (isVisible() && !tmrTools.isActive())
        tmrTools.start(kStayMilliseconds);
}

void ViewTools::appear()
{
    tmrTools.stop();
    Place();
    show();
    raise();
    fadeTo(1);
}

void ViewTools::fadeTo(double opacity)
{
    m_fade->stop();
    if (!m_animated || !m_view.isVisible()) {
        m_opacity->setOpacity(opacity);
        setVisible(opacity > 0);
        return;
    }
    m_fade->setStartValue(m_opacity->opacity());
    m_fade->setEndValue(opacity);
    m_fade->start();
}

bool ViewTools::inUse() const
{
    bool listIsOpen = false;
    for (const QWidget *at = QApplication::activePopupWidget(); at; at = at->parentWidget())
        listIsOpen = listIsOpen || at == this;
    return listIsOpen || underMouse() || isAncestorOf(QApplication::focusWidget()) ||
           sldSpeed->isSliderDown();
}

void ViewTools::hideUnlessUsed()
{
    if (inUse())
        tmrTools.start(kStayMilliseconds);
    else
        fadeTo(0);
}

void ViewTools::enterEvent(QEnterEvent *event)
{
    QFrame::enterEvent(event);
    appear();
}

void ViewTools::leaveEvent(QEvent *event)
{
    QFrame::leaveEvent(event);
    tmrTools.start(kStayMilliseconds);
}

void ViewTools::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Conceal();
    else
        QFrame::keyPressEvent(event);
}

} // namespace viewer
