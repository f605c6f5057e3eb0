#include "app/picture_column.h"

#include "app/side_panels.h"

#include <QAbstractButton>
#include <QStackedWidget>

PictureColumn::PictureColumn(QStackedWidget& place, const SidePanels& panels)
    : m_place(place), m_panels(panels)
{
    connect(&panels, &SidePanels::currentChanged, this, &PictureColumn::refresh);
}

void PictureColumn::add(const Source& source)
{
    for (QWidget* picture : source.pictures)
        m_place.addWidget(picture);
    for (const QAbstractButton* button : source.switches)
        connect(button, &QAbstractButton::toggled, this, &PictureColumn::refresh);
    m_sources.push_back(source);
}

QWidget* PictureColumn::wanted() const
{
    for (const Source& source : m_sources) {
        if (source.panel == m_panels.current())
            return source.picture();
    }
    for (const Source& source : m_sources) {
        if (QWidget* active = source.activePicture())
            return active;
    }
    return nullptr;
}

void PictureColumn::refresh()
{
    QWidget* picture = wanted();
    if (picture)
        m_place.setCurrentWidget(picture);
    m_place.setVisible(picture != nullptr);
}
