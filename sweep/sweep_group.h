#pragma once

#include "fields/number_edit.h"
#include "sweep/picture/run_points.h"

#include <QGroupBox>

#include <array>

class PowerGuard;
class QGridLayout;
class QLabel;
class QPushButton;
class RunButton;
class TwoPartButton;

/// A sweep's values apart from its points and dwell: frequencies in hertz or powers in dBm, as the
/// fields show them.
struct SweepValues {
    QString fixed;
    QString start;
    QString stop;
};

/// The settings of a stepped sweep over frequency or over power, and its run button. Bounds what is
/// entered; sends nothing.
class SweepGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit SweepGroup(const FieldContext& context, QWidget* parent = nullptr);

    QPushButton& run() const;
    bool isPowerSweep() const;
    NumberEdit& fixedValue() const { return *m_rows[0].field; }
    NumberEdit& start() const { return *m_rows[1].field; }
    NumberEdit& stop() const { return *m_rows[2].field; }
    NumberEdit& points() const { return *m_rows[3].field; }
    NumberEdit& dwell() const { return *m_rows[4].field; }

    /// Whether there is something to run. If not, a notice names the field at fault.
    bool canRun();

    SweepTexts texts() const;
    /// The values of the mode that is not chosen; the next change of mode shows them.
    SweepValues& valuesAside() { return m_valuesAside; }

    /// Bounds the values of both modes by the limits read from an instrument. Returns how many
    /// had to change.
    int boundByLimits();
    /// From now on powers are bounded by the guard's highest level, too.
    void setPowerGuard(PowerGuard& guard);

    /// The display shows another power in dBm, or another frequency in hertz: the fixed power and
    /// the start frequency follow it silently, each until it is set to something else.
    void followPower(const QString& text) { follow(&m_followedPower, 0, text); }
    void followFrequency(const QString& text) { follow(&m_followedFrequency, 1, text); }

    void retranslate();

signals:
    void keypadRequested(NumberEdit* field);
    /// What the sweep would run through has changed.
    void settingsChanged();

private:
    struct FieldRow {
        QLabel* label = nullptr;
        NumberEdit* field = nullptr;
        QPushButton* key = nullptr;
    };

    void build(const FieldContext& context);
    QGridLayout* buildFields(const FieldContext& context);
    void wire();
    void changeMode();
    void commit(std::size_t index);
    void clampToLimits(NumberEdit& field);
    void holdCeiling();
    void showBounded(std::size_t index, const QString& text);
    QString* followedBy(std::size_t index);
    void follow(QString* followed, std::size_t index, const QString& text);

    QLabel* m_title;
    TwoPartButton* m_mode;
    std::array<FieldRow, 5> m_rows{};
    RunButton* m_run;
    SweepValues m_valuesAside;
    PowerGuard* m_guard = nullptr;
    // The value last taken from the display, or the initial one. A different value has been edited,
    // or restored by a profile; a null text: that has happened before.
    QString m_followedPower;
    QString m_followedFrequency;
    /// The run button took the focus from a field without a number: the restored value is not what
    /// the user wanted to run.
    bool m_isLeftForRun = false;
};
