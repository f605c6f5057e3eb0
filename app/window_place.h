#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QVector>

#include <array>

class QMainWindow;
class QSettings;
class QSizeGrip;

/// Where the window stands and how large it is: as large as its contents need or, if that is more,
/// as the user has made it by its corner, with a side panel open and without. It moves the window
/// only to keep it on the screen when it grows, and home again when there is room.
class WindowPlace : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the window.
    explicit WindowPlace(QMainWindow* window);

    /// Takes place and sizes from the settings, and saves them there when the window is closed.
    void keepIn(QSettings& settings);

    /// Makes the window as large as it has to be. Called for whoever changes the contents and does
    /// not want to wait for the event loop.
    void fit();
    /// While panels move, the window only follows its contents.
    void hold();
    /// The panels stand still, and one is open or none.
    void settle(bool isPanelOpen);

    /// Where the window will have to stand when it has grown by so much for a panel.
    QPoint placeFor(const QSize& growth);
    /// Where it would stand if there was room, which is where the user moved it last.
    QPoint home();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isFree() const;
    void save();
    void take(const QSize& size);
    void stayOnScreen();
    /// Where a window of that size is all on the screen, as near to home as that can be.
    QPoint placeOf(const QSize& size);

    QMainWindow& m_window;
    QSizeGrip* m_grip;
    QPointer<QSettings> m_settings;
    std::array<QSize, 2> m_sizes; ///< by the user: with no panel, with one
    bool m_isPanelOpen = false;
    bool m_isHeld = false;
    /// Sizes that the desktop has yet to confirm, perhaps late.
    QVector<QSize> m_asked;
    bool m_wasShown = false;
    /// In pixels of the screen. Home holds while the window stands where it was shifted to.
    QPointF m_home;
    QPointF m_shiftedTo;
};
