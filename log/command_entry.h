#pragma once

#include <QLineEdit>
#include <QStringList>

class QSettings;

/// A field for commands of one's own. Up and Down go through those entered before, which are kept
/// between runs.
class CommandEntry : public QLineEdit
{
    Q_OBJECT

public:
    static constexpr int mostCharacters = 4096;

    CommandEntry(QSettings& settings, QWidget* parent);

    /// What is entered is remembered; it does not empty the field.
    void remember(const QString& command);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void recall(int place);

    QSettings& m_settings;
    QStringList m_history;
    int m_place = 0; ///< in the history; its size: the command being typed
    QString m_typed;
};
