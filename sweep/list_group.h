#pragma once

#include <QGroupBox>

class ElidingLabel;
class ModeList;
class PointActions;
class PointTable;
class QHBoxLayout;
class QLabel;
class QMenu;
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
    /// The files to open again; its owner fills it.
    QMenu& recent() const { return *m_recentMenu; }
    /// The list's file as it is to be named beside the title, and whether there are recent ones.
    void showFile(const QString& title, const QString& path, bool hasRecent);

    void retranslate();

private:
    void build();
    void buildAddCount();
    QHBoxLayout* buildTools();

    QLabel* m_title;
    ElidingLabel* m_file;
    PointTable* m_table;
    PointActions* m_actions;
    ModeList* m_mode;
    QSpinBox* m_addCount;
    QPushButton* m_fill;
    RunButton* m_run;
    QPushButton* m_save;
    QPushButton* m_open;
    QPushButton* m_recent;
    QMenu* m_recentMenu;
};
