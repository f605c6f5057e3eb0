#pragma once

#include "modulation/fold_box.h"
#include "modulation/panel_parts.h"
#include "modulation/pulse_time.h"

#include <optional>

class WaveformPicture;

/// The settings of the pulse modulation: source, period and width of the internal pulses and their
/// picture. Makes its state button among others; sends nothing.
class PulseGroup : public FoldBox
{
    Q_OBJECT

public:
    /// `selection` is where the state button lives, laid out by its owner.
    PulseGroup(QWidget* selection, QWidget* parent);

    QPushButton* state() const { return m_state; }
    QPushButton* source() const { return m_source; }
    bool isExternal() const;
    const ValueRow& periodRow() const { return m_periodRow; }
    const ValueRow& widthRow() const { return m_widthRow; }
    PulseTime& period() { return *m_period; }
    PulseTime& width() { return *m_width; }

    /// An external source makes period and width meaningless.
    void setSettingsEnabled(bool isEnabled);
    void retranslate();

private:
    void build();
    void refresh();

    QPushButton* m_state;
    QLabel* m_summary;
    QPushButton* m_source;
    ValueRow m_periodRow;
    ValueRow m_widthRow;
    std::optional<PulseTime> m_period;
    std::optional<PulseTime> m_width;
    WaveformPicture* m_picture;
};
