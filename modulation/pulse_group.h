#pragma once

#include "modulation/fold_box.h"
#include "modulation/panel_parts.h"

class WaveformPicture;

/// The settings of the pulse modulation: source, period and width of the internal pulses and their
/// picture. Makes its state button among others, and a picture for whoever shows it; sends nothing.
class PulseGroup : public FoldBox
{
    Q_OBJECT

public:
    /// `selection` is where the state button lives, laid out by its owner.
    PulseGroup(const FieldContext& context, QWidget* selection, QWidget* parent);

    QPushButton* state() const { return m_state; }
    QPushButton* source() const { return m_source; }
    bool isExternal() const;
    WaveformPicture& picture() const { return *m_picture; }
    const ValueRow& periodRow() const { return m_period; }
    const ValueRow& widthRow() const { return m_width; }
    NumberEdit& period() const { return *m_period.field; }
    NumberEdit& width() const { return *m_width.field; }

    /// Shows one of the two in the next unit: from µs to ms, s, ns and again to µs.
    void nextUnit(NumberEdit& field);
    void useMicroseconds();

    /// An external source makes period and width meaningless.
    void setSettingsEnabled(bool isEnabled);
    /// The pulses as the instrument has them, in few words.
    QString lampWords() const;
    void retranslate();

signals:
    /// The words of the lamp may be others now.
    void lampChanged();

private:
    void build(const FieldContext& context);
    void showUnits();
    void refresh();

    QPushButton* m_state;
    QLabel* m_summary;
    QPushButton* m_source;
    ValueRow m_period;
    ValueRow m_width;
    WaveformPicture* m_picture;
};
