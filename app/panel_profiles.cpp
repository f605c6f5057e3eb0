#include "app/panel_profiles.h"

#include "app/status_line.h"
#include "connection/connection.h"
#include "cw/cw_controls.h"
#include "fields/number_edit.h"
#include "fields/power_guard.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "modulation/generator.h"
#include "modulation/modulat.h"
#include "numbers/number_text.h"
#include "numbers/step_table.h"
#include "sweep/list_panel.h"
#include "sweep/picture/list_plot.h"
#include "sweep/sweep_group.h"
#include "ui/files/user_folder.h"
#include "ui/progress_bar_for_table.h"
#include "ui_mainwindow.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVariant>

#include <utility>

namespace
{
const QString documentName = QStringLiteral("KLV");
/// A little longer than the pauses of the sequences that the clicks start.
constexpr int waitMs = 450;

SharedVariable::Type typeOf(StepKind kind)
{
    if (kind == StepKind::Frequency || kind == StepKind::Time)
        return SharedVariable::Type::Int64;
    return isWholeStep(kind) ? SharedVariable::Type::Int32 : SharedVariable::Type::Double;
}

SharedVariable stepVariable(StepTable& steps, StepKind kind)
{
    return {stepKey(kind), typeOf(kind), [kind, &steps] { return steps.step(kind); },
            [kind, &steps](const QVariant& step) { steps.setStep(kind, step.toDouble()); }, false};
}

SharedVariable numberVariable(const QString& name, QString& text)
{
    const auto take = [&text](const QVariant& value) {
        if (isPlainDecimal(withoutBlanks(value.toString())))
            text = value.toString();
    };
    return {name, SharedVariable::Type::Text, [&text] { return text; }, take};
}
} // namespace

PanelProfiles::PanelProfiles(const Panels& panels, const Instrument& instrument, CwControls& cw,
                             const Ui::MainWindow& form, Notices& notices)
    : m_panels(panels), m_instrument(instrument), m_cw(cw), m_form(form),
      m_files(new openSave_XML_FILE(documentName, userFolder(), owner(), notices, &panels.window))
{
    registerPanels();
    registerWaits();
    registerVariables();
    connect(&m_instrument.connection, &Connection::disconnected, m_files, &openSave_XML_FILE::stop);
    connect(&m_instrument.powerGuard, &PowerGuard::answered, this, [this](bool isRaised) {
        if (!isRaised)
            m_files->leaveOut();
        // What was asked about is accepted without a further edit.
        m_files->recalled().look();
    });
    connect(&m_instrument.connection, &Connection::busyChanged, this,
            [this](bool isBusy) { m_isConnecting = isBusy; });
}

openSave_XML_FILE::Owner PanelProfiles::owner()
{
    openSave_XML_FILE::Owner owner;
    // Without an instrument no pause is needed. A question that an entry has raised is answered
    // before the next entry.
    owner.pause = [this](int ms) {
        return !m_instrument.session.isConnected() ||
               (pause(ms) && m_instrument.powerGuard.waitForAnswer());
    };
    owner.refusal = [this] { return refusal(); };
    owner.fieldText = [this](const QLineEdit& field) { return fieldText(field); };
    owner.settle = [this] { settle(); };
    owner.refresh = [this] { emit applied(); };
    owner.setBusy = [this](bool isBusy) { setBusy(isBusy); };
    return owner;
}

/// Why no profile may be applied just now; none if one may.
StatusWords PanelProfiles::refusal() const
{
    if (m_instrument.session.isConnected() && m_isConnecting)
        return [] { return tr("The instrument is still being set up"); };
    if (progressBarForTable::liesWithin(m_panels.window))
        return [] { return tr("No profile is applied while a table is transferred"); };
    return nullptr;
}

/// The text that a file holds for a field: not one that is still being typed, which is not a
/// setting and may not be a valid number.
QString PanelProfiles::fieldText(const QLineEdit& field) const
{
    // The entry is open only while a frequency is being typed.
    if (&field == m_form.ROSC_FREQ)
        return m_cw.externalReferenceMHz();
    const auto* number = qobject_cast<const NumberEdit*>(&field);
    if (!number)
        return field.text();
    return number->isEdited() ? number->acceptedText() : number->ownText();
}

/// Converts the fields to the form in which files hold them.
void PanelProfiles::settle()
{
    const ProfileStore& store = m_files->store();
    for (const QWidget* panel : store.panels()) {
        for (QLineEdit* field : store.controls<QLineEdit>(*panel)) {
            auto* number = qobject_cast<NumberEdit*>(field);
            if (number && number->isEdited())
                number->showAccepted(number->acceptedText());
        }
    }
    m_panels.modulation.usePulseMicroseconds();
    // The entry is open only while a frequency is being typed.
    if (m_form.ROSC_FREQ->isHidden())
        m_form.ROSC_FREQ->showAccepted(m_cw.externalReferenceMHz());
}

/// What can be clicked while a profile is replayed: controls that end something.
bool PanelProfiles::isUsable(const QWidget* widget) const
{
    return widget == m_form.closeWindow || widget == m_form.minimize || widget == m_form.stop_run ||
           (widget == m_form.Output && m_form.Output->isChecked()) ||
           m_instrument.powerGuard.isOfQuestion(widget);
}

void PanelProfiles::setBusy(bool isBusy)
{
    m_instrument.session.log().addEvent(isBusy ? Exchange::Kind::ProfileStarted
                                               : Exchange::Kind::ProfileEnded);
    if (isBusy) {
        // While a run is on, the front panel belongs to it.
        if (m_panels.list.isRunning())
            m_panels.list.autoOff();
        m_guard.emplace([this](const QWidget* widget) { return isUsable(widget); });
    } else {
        m_guard.reset();
    }
}

void PanelProfiles::registerPanels()
{
    ProfileStore& store = m_files->store();
    for (QWidget* panel : std::initializer_list<QWidget*>{&m_panels.window, &m_panels.modulation,
                                                          &m_panels.lfGenerator, &m_panels.list})
        store.addPanel(panel);
    store.addPart(&m_panels.list, &m_panels.list.plot());
    // A profile switches no RF output, connects to nothing, starts no run and opens no panel.
    for (QWidget* control : std::initializer_list<QWidget*>{
             m_form.Output, m_form.connect, m_form.open_mod, m_form.open_list, m_form.open_gener,
             m_form.profiles, m_form.service, &m_panels.list.runSweep(), &m_panels.list.runList()})
        store.exclude(control);
    // Entered before the width, the period would be bounded by the old width.
    store.putBehind(&m_panels.modulation.pulseWidth(), &m_panels.modulation.pulsePeriod());
}

void PanelProfiles::registerWaits()
{
    const Modulat& panel = m_panels.modulation;
    QStringList names = {panel.pulse()->objectName(), panel.pulseSource()->objectName()};
    for (const Modulation modulation : modulations) {
        const ModulationGroup& group = panel.group(modulation);
        names << group.state()->objectName() << group.source()->objectName();
    }
    for (int shape = 0; shape < shapeCount; ++shape)
        names << m_panels.lfGenerator.shapeButton(static_cast<WaveShape>(shape))->objectName();
    m_files->store().waitAfter(names, waitMs);
}

void PanelProfiles::registerVariables()
{
    ProfileStore& store = m_files->store();
    SweepValues& aside = m_panels.list.sweep().valuesAside();
    store.addVariable(numberVariable(QStringLiteral("FREQ_POW"), aside.fixed));
    store.addVariable(numberVariable(QStringLiteral("FREQ_POW_start"), aside.start));
    store.addVariable(numberVariable(QStringLiteral("FREQ_POW_stop"), aside.stop));
    store.addVariable({QStringLiteral("ROSC_EXT_FREQ"), SharedVariable::Type::Text,
                       [this] { return m_cw.externalReferenceMHz(); },
                       [this](const QVariant& value) { takeExternalReference(value.toString()); }});
    // Time comes before the point count in the files, after it in the step table.
    QVector<StepKind> kinds;
    for (int kind = 0; kind < stepKindCount; ++kind)
        kinds << static_cast<StepKind>(kind);
    std::swap(kinds[static_cast<int>(StepKind::PointCount)],
              kinds[static_cast<int>(StepKind::Time)]);
    for (const StepKind kind : qAsConst(kinds))
        store.addVariable(stepVariable(m_instrument.steps, kind));
}

void PanelProfiles::takeExternalReference(const QString& frequencyMHz)
{
    const bool isNumber = frequencyMHz.toUInt() > 0;
    if (!isNumber || frequencyMHz == m_cw.externalReferenceMHz())
        return;
    m_cw.setExternalReferenceMHz(frequencyMHz);
    m_cw.pushExternalReference();
}

void PanelProfiles::applyAtStart(const QString& path, bool isClean)
{
    m_keepsLast = !isClean;
    if (!path.isEmpty() || !isClean)
        m_files->applyAtStart(path);
}

void PanelProfiles::saveLast()
{
    // Once: the program may be ended in several ways at the same time.
    if (std::exchange(m_keepsLast, false) && !m_files->saveLast())
        qWarning("The settings could not be kept in %s", qUtf8Printable(m_files->folder()));
}
