#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QAbstractButton;
class QStackedWidget;
class SidePanels;

/// Shows below the display the picture of what varies: that of the open panel, else of what is
/// switched on; nothing while there is neither. The pictures are made and drawn by their panels.
class PictureColumn : public QObject
{
    Q_OBJECT

public:
    PictureColumn(QStackedWidget& place, const SidePanels& panels);

    /// What a panel has to show.
    struct Source {
        QWidget* panel;
        std::vector<QWidget*> pictures;          ///< all of them
        std::vector<QAbstractButton*> switches;  ///< that switch on what is pictured
        std::function<QWidget*()> picture;       ///< while the panel is open
        std::function<QWidget*()> activePicture; ///< of what is switched on; null: nothing is
    };
    /// Takes the pictures of a panel, which goes on drawing them. Of several panels in which
    /// something is switched on the first counts.
    void add(const Source& source);

public slots:
    /// A panel has another picture.
    void refresh();

private:
    QWidget* wanted() const;

    QStackedWidget& m_place;
    const SidePanels& m_panels;
    std::vector<Source> m_sources;
};
