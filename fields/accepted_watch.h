#pragma once

#include <QObject>

class QLineEdit;

/// Tells when a numeric field shows another accepted text than before: what showAccepted() does in
/// silence, for those who follow the field. Belongs to the field.
class AcceptedWatch : public QObject
{
    Q_OBJECT

public:
    explicit AcceptedWatch(QLineEdit* field);

signals:
    void accepted(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_text;
};
