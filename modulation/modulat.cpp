#include "modulation/modulat.h"

#include "ui/named.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <vector>

/// Where the groups stand below each other. Always tall enough for the pulse group and one of the
/// others, so that the panel keeps its size while groups fold.
class Modulat::GroupColumn : public QWidget
{
public:
    explicit GroupColumn(QWidget* parent) : QWidget(parent), m_column(new QVBoxLayout(this))
    {
        m_column->setContentsMargins(0, 0, 0, 0);
        m_column->setSpacing(panelSpacing);
        m_column->setAlignment(Qt::AlignTop);
    }

    void add(FoldBox* box, bool isAlone)
    {
        m_column->addWidget(box);
        m_boxes.push_back({box, isAlone});
    }

    QSize sizeHint() const override
    {
        int height = -panelSpacing;
        int tallestBody = 0;
        for (const Entry& entry : m_boxes) {
            const int folded = entry.box->heightWhen(false);
            const int expanded = entry.box->heightWhen(true);
            height += panelSpacing + (entry.isAlone ? expanded : folded);
            if (!entry.isAlone)
                tallestBody = std::max(tallestBody, expanded - folded);
        }
        return {QWidget::sizeHint().width(), height + tallestBody};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    struct Entry {
        FoldBox* box;
        bool isAlone; ///< it may stay expanded together with another
    };

    QVBoxLayout* m_column;
    std::vector<Entry> m_boxes;
};

Modulat::Modulat(const FieldContext& context, QWidget* parent)
    : SidePanel(QStringLiteral("Modulat"), parent),
      m_selection(named("Box_modulation", new QGroupBox(this))), m_column(new GroupColumn(this)),
      m_pulseGroup(new PulseGroup(context, m_selection, m_column))
{
    for (const Modulation modulation : modulations)
        m_groups[static_cast<std::size_t>(modulation)] =
            new ModulationGroup(modulation, context, m_selection, m_column);
    build();
    setUpPictures();
    wireDownKey();
    wireButtons();
    wireGroups();
    m_pulseGroup->setExpanded(true, false);
    Modulat::retranslate();
}

void Modulat::build()
{
    title()->setObjectName(QStringLiteral("titleModulation"));
    auto* buttons = new QHBoxLayout(m_selection);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(panelSpacing);
    content()->addWidget(m_selection);
    content()->addWidget(m_column);
    m_column->add(m_pulseGroup, true);
    for (ModulationGroup* each : m_groups) {
        buttons->addWidget(each->state(), 1);
        m_column->add(each, false);
    }
    buttons->addWidget(m_pulseGroup->state(), 1);
    const std::array<QWidget*, 5> tabOrder = {pulse(), stateButton(Modulation::Am),
                                              stateButton(Modulation::Fm),
                                              stateButton(Modulation::Pm), pulse()};
    for (std::size_t i = 1; i < tabOrder.size(); ++i)
        setTabOrder(tabOrder[i - 1], tabOrder[i]);
}

void Modulat::wireButtons()
{
    const ModulationGroup& am = group(Modulation::Am);
    const ModulationGroup& fm = group(Modulation::Fm);
    const ModulationGroup& pm = group(Modulation::Pm);
    const ValueRow& period = m_pulseGroup->periodRow();
    const ValueRow& width = m_pulseGroup->widthRow();

    const struct {
        QPushButton* button;
        void (Modulat::*slot)();
    } clicks[] = {
        {m_pulseGroup->state(), &Modulat::on_Pulse_clicked},
        {am.state(), &Modulat::on_AM_clicked},
        {fm.state(), &Modulat::on_FM_clicked},
        {pm.state(), &Modulat::on_PM_clicked},
        {period.unit, &Modulat::on_us_per_clicked},
        {width.unit, &Modulat::on_us_wid_clicked},
        {am.rate().caption, &Modulat::on_Ampl_F_clicked},
        {fm.rate().caption, &Modulat::on_FREQ_T_clicked},
        {fm.level().caption, &Modulat::on_FREQ_Dev_clicked},
        {pm.rate().caption, &Modulat::on_Phase_T_clicked},
        {am.level().caption, &Modulat::Ampl_depth_click},
        {pm.level().caption, &Modulat::Phase_Dev_click},
        {am.duty().caption, &Modulat::percentButton_AM_click},
        {pm.duty().caption, &Modulat::percentButton_PM_click},
        {fm.duty().caption, &Modulat::percentButton_FM_click},
    };
    for (const auto& row : clicks)
        connect(row.button, &QAbstractButton::clicked, this, row.slot);
    connect(period.caption, &QAbstractButton::clicked, this,
            [this] { emit keypadRequested(&pulsePeriod()); });
    connect(width.caption, &QAbstractButton::clicked, this,
            [this] { emit keypadRequested(&pulseWidth()); });
    connect(pulseSource(), &QAbstractButton::clicked, this, &Modulat::setEnabledModulationSetting);
}

void Modulat::wireGroups()
{
    for (ModulationGroup* each : m_groups) {
        for (const QPushButton* shape : each->shapeButtons())
            connect(shape, &QAbstractButton::clicked, this, &Modulat::correct_this);
        connect(each, &FoldBox::headerClicked, this, [this, each] {
            expandOnly(each->isExpanded() ? std::nullopt : std::optional(each->modulation()), true);
        });
        connect(each, &FoldBox::settled, this, &Modulat::allow_move);
        connect(each, &ModulationGroup::lampChanged, this, &Modulat::lampsChanged);
        connect(each->state(), &QAbstractButton::toggled, this, &Modulat::lampsChanged);
    }
    connect(m_pulseGroup, &PulseGroup::lampChanged, this, &Modulat::lampsChanged);
    connect(m_pulseGroup, &FoldBox::headerClicked, this,
            [this] { fold(*m_pulseGroup, !m_pulseGroup->isExpanded(), true); });
    connect(m_pulseGroup, &FoldBox::settled, this, &Modulat::allow_move);
}

void Modulat::setUpPictures()
{
    for (std::size_t i = 0; i < m_groups.size(); ++i)
        m_parts[i] = {m_groups[i], m_groups[i]->state(), &m_groups[i]->picture()};
    m_parts.back() = {m_pulseGroup, m_pulseGroup->state(), &m_pulseGroup->picture()};
    connect(qApp, &QApplication::focusChanged, &m_following,
            [this](const QWidget*, const QWidget* control) { follow(control); });
    for (const Part& part : m_parts) {
        // A click need not take the focus.
        const auto buttons = part.box->findChildren<QPushButton*>();
        for (const QPushButton* button : buttons)
            connect(button, &QAbstractButton::clicked, this, [this, button] { follow(button); });
    }
}

void Modulat::wireDownKey()
{
    for (const Part& part : m_parts) {
        auto* down = new QShortcut(Qt::Key_Down, part.state);
        down->setContext(Qt::WidgetShortcut);
        connect(down, &QShortcut::activated, part.box, [box = part.box] {
            if (!box->isExpanded())
                emit box->headerClicked();
            const auto fields = box->body()->findChildren<NumberEdit*>();
            for (NumberEdit* field : fields)
                if (field->isEnabled())
                    return field->setFocus(Qt::TabFocusReason);
        });
    }
}

void Modulat::follow(const QWidget* control)
{
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const FoldBox* box = m_parts[i].box;
        if (i == m_set || !control || (control != box && !box->isAncestorOf(control)))
            continue;
        m_set = i;
        emit pictureChanged();
        return;
    }
}

WaveformPicture* Modulat::activePicture() const
{
    if (m_parts[m_set].state->isChecked())
        return m_parts[m_set].picture;
    const auto active = std::find_if(m_parts.begin(), m_parts.end(),
                                     [](const Part& part) { return part.state->isChecked(); });
    return active == m_parts.end() ? nullptr : active->picture;
}

ModulationGroup& Modulat::group(Modulation modulation) const
{
    return *m_groups[static_cast<std::size_t>(modulation)];
}

std::optional<Modulation> Modulat::checkedModulation() const
{
    for (const ModulationGroup* each : m_groups) {
        if (each->state()->isChecked())
            return each->modulation();
    }
    return std::nullopt;
}

QString Modulat::lampWords() const
{
    const std::optional<Modulation> modulation = checkedModulation();
    return modulation ? group(*modulation).lampWords() : QString();
}

void Modulat::fold(FoldBox& box, bool isExpanded, bool isAnimated)
{
    box.setExpanded(isExpanded, isAnimated);
    m_isMoving = m_isMoving || box.isMoving();
    const auto isExpandedPart = [](const Part& part) { return part.box->isExpanded(); };
    const auto expanded = std::find_if(m_parts.begin(), m_parts.end(), isExpandedPart);
    if (isExpanded)
        follow(&box);
    else if (!m_parts[m_set].box->isExpanded() && expanded != m_parts.end())
        follow(expanded->box);
}

void Modulat::expand(Modulation modulation, bool isAnimated)
{
    expandOnly(modulation, isAnimated);
}

void Modulat::collapse(Modulation modulation, bool isAnimated)
{
    fold(group(modulation), false, isAnimated);
}

void Modulat::expandOnly(std::optional<Modulation> modulation, bool isAnimated)
{
    for (ModulationGroup* each : m_groups)
        fold(*each, each->modulation() == modulation, isAnimated);
}

void Modulat::update_AM_PM_FM()
{
    expandOnly(checkedModulation(), true);
}

/// The one just clicked counts, whatever else the owner is about to switch off.
void Modulat::showSwitched(Modulation modulation)
{
    if (stateButton(modulation)->isChecked())
        expandOnly(modulation, true);
    else
        update_AM_PM_FM();
}

void Modulat::on_Pulse_clicked()
{
    if (pulse()->isChecked())
        fold(*m_pulseGroup, true, true);
}
void Modulat::on_AM_clicked()
{
    showSwitched(Modulation::Am);
}
void Modulat::on_FM_clicked()
{
    showSwitched(Modulation::Fm);
}
void Modulat::on_PM_clicked()
{
    showSwitched(Modulation::Pm);
}

void Modulat::on_us_per_clicked()
{
    m_pulseGroup->nextUnit(pulsePeriod());
}
void Modulat::on_us_wid_clicked()
{
    m_pulseGroup->nextUnit(pulseWidth());
}

void Modulat::on_Ampl_F_clicked()
{
    emit keypadRequested(group(Modulation::Am).rate().field);
}
void Modulat::on_FREQ_T_clicked()
{
    emit keypadRequested(group(Modulation::Fm).rate().field);
}
void Modulat::on_FREQ_Dev_clicked()
{
    emit keypadRequested(group(Modulation::Fm).level().field);
}
void Modulat::on_Phase_T_clicked()
{
    emit keypadRequested(group(Modulation::Pm).rate().field);
}
void Modulat::Ampl_depth_click()
{
    emit keypadRequested(group(Modulation::Am).level().field);
}
void Modulat::Phase_Dev_click()
{
    emit keypadRequested(group(Modulation::Pm).level().field);
}
void Modulat::percentButton_AM_click()
{
    emit keypadRequested(group(Modulation::Am).duty().field);
}
void Modulat::percentButton_PM_click()
{
    emit keypadRequested(group(Modulation::Pm).duty().field);
}
void Modulat::percentButton_FM_click()
{
    emit keypadRequested(group(Modulation::Fm).duty().field);
}

void Modulat::correct_this()
{
    const auto* clicked = qobject_cast<QPushButton*>(sender());
    for (ModulationGroup* each : m_groups)
        each->chooseShape(clicked);
}

void Modulat::setEnabledModulationSetting(bool isDisabled)
{
    m_pulseGroup->setSettingsEnabled(!isDisabled);
}

void Modulat::allow_move()
{
    m_isMoving = false;
}

void Modulat::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(m_isMoving);
}

void Modulat::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("Modulation"));
    m_selection->setAccessibleName(tr("Modulation"));
    for (ModulationGroup* each : m_groups)
        each->retranslate();
    m_pulseGroup->retranslate();
}
