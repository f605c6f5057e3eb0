#pragma once

#include <QGroupBox>

class ModeList;
class PointActions;
class PointTable;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpinBox;
class RunButton;
class TriggerGroup;
struct FieldContext;

/// The list of points with all that edits it, and its run button. Sends nothing.
class ListGroup : public QGroupBox
{
    Q_OBJECT

public:
    /// `trigger` is what the compact form of the trigger's choices acts on.
    ListGroup(const FieldContext& context, TriggerGroup& trigger, QWidget* parent);

    QPushButton& run() const;
    QPushButton& save() const { return *m_save; }
    QPushButton& open() const { return *m_open; }
    PointTable& table() const { return *m_table; }
    PointActions& actions() const { return *m_actions; }
    ModeList& mode() const { return *m_mode; }

    void retranslate();

private:
    void build();
    void buildAddCount();
    QHBoxLayout* buildTools();

    QLabel* m_title;
    PointTable* m_table;
    PointActions* m_actions;
    ModeList* m_mode;
    QSpinBox* m_addCount;
    QPushButton* m_fill;
    RunButton* m_run;
    QPushButton* m_save;
    QPushButton* m_open;
};
