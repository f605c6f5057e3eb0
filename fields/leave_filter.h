#pragma once

#include <QObject>

class QLineEdit;

/// Keeps a field quiet that is left as it was last accepted. Qt announces editingFinished whenever
/// the focus goes, and each announcement is a command on the wire. Return and steps always commit.
/// Escape brings back what was last accepted.
class LeaveFilter : public QObject
{
    Q_OBJECT

public:
    explicit LeaveFilter(QLineEdit* field);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
