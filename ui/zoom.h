#pragma once

class QSettings;

/// How large everything is that the program shows, from 80 to 200 %, on top of the desktop's own
/// scale, if that is worth the name; both together never shrink anything, since Qt cannot draw
/// that. Taken from the settings, which also store what is chosen while the program runs. To be
/// created before any window.
class Zoom
{
public:
    /// Without settings it begins at 100 % and is not kept.
    explicit Zoom(QSettings* settings);

    int percent() const { return m_percent; }
    bool canStep(int direction) const;

    /// To the next larger (1) or smaller (-1) one, if there is one.
    void step(int direction);
    void reset();

private:
    void choose(int percent);
    void scale();

    QSettings* m_settings;
    double m_ofScreen = 1.0; ///< the least of those that the desktop gives its screens
    double m_plain = 1.0;    ///< what such a screen has at 100 %
    int m_least;
    int m_percent;
};
