#pragma once

#include <QGroupBox>

class PointTable;
class QLabel;
class QPushButton;

/// The list of points with all that edits it, and its run button. Sends nothing.
class ListGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit ListGroup(QWidget* parent = nullptr);

    QPushButton& run() const { return *m_run; }
    QPushButton& save() const { return *m_save; }
    QPushButton& open() const { return *m_open; }
    PointTable& table() const { return *m_table; }

    void retranslate();

private:
    QLabel* m_title;
    PointTable* m_table;
    QPushButton* m_run;
    QPushButton* m_save;
    QPushButton* m_open;
};
