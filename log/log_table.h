#pragma once

#include "link/exchange_log.h"

#include <QColor>
#include <QTableView>

#include <vector>

class LogModel;

/// The log's lines as a table. The newest stays in view unless the user has scrolled up; copies
/// what is selected.
class LogTable : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(QColor failureColour MEMBER m_failureColour)
    Q_PROPERTY(QColor eventColour MEMBER m_eventColour)

public:
    LogTable(LogModel& model, QWidget* parent);

    const QColor& failureColour() const { return m_failureColour; }
    const QColor& eventColour() const { return m_eventColour; }

    /// From top to bottom.
    std::vector<int> selectedRows() const;

    void retranslate();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    using Format = QString (*)(const std::vector<Exchange>&);

    QAction* addCopy(Format format);
    void keepPlace();

    LogModel& m_model;
    QColor m_failureColour;
    QColor m_eventColour;
    QAction* m_copy;
    QAction* m_copySent;
    QAction* m_copyAnswered;
    QAction* m_copyPython;
    bool m_isAtEnd = true;
};
