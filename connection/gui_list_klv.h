#pragma once

#include <QScrollArea>
#include <QVector>

class DialogHeader;
class QFrame;
class QGridLayout;
class QPushButton;
class QToolButton;

/// The chooser: one button for each instrument that a search has found. Knows addresses and
/// captions only; it opens nothing.
class GuiListKLV : public QScrollArea
{
    Q_OBJECT

public:
    GuiListKLV();

    /// The window that it opens beside.
    void setNeighbour(const QWidget& neighbour) { m_neighbour = &neighbour; }

    /// Empties the list for a new search.
    void reset();

    /// Adds a button captioned `name` (model, line feed, serial) for the VISA address
    /// `objectName`.
    void createButton(const QString& objectName, const QString& name);

    int buttonCount() const { return m_buttons.size(); }

    /// Chooses the only instrument, as a click on its button would.
    void chooseOnly();

    /// Name given with the button clicked last.
    QString chosenName() const { return m_chosenName; }

signals:
    /// The user has chosen the instrument at `address`.
    void sendAddress(const QString& address);
    /// The window was closed without a choice.
    void dismissed();

public slots:
    void slotSendAddress();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// Escape closes it.
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build();
    void retranslate();

    const QWidget* m_neighbour = nullptr;
    QFrame* m_surface = nullptr;
    DialogHeader* m_header = nullptr;
    QToolButton* m_close = nullptr;
    QWidget* m_content = nullptr;
    QGridLayout* m_grid = nullptr;
    int m_columns = 3;
    QVector<QPushButton*> m_buttons;
    bool m_hasChosen = false;
    QString m_chosenName;
};
