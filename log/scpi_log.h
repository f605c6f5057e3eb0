#pragma once

#include "link/activity.h"
#include "log/log_model.h"

#include <QWidget>

class CommandEntry;
class HandCommands;
class LogTable;
class QLabel;
class QLineEdit;
class QPushButton;
class QSettings;
class ScpiSession;

/// The window with everything that was sent and answered: finds, copies and saves it, and sends
/// commands typed by the user. The log itself belongs to the session.
class ScpiLog : public QWidget
{
    Q_OBJECT

public:
    /// Place, size and the commands entered are kept in the settings.
    ScpiLog(ScpiSession& session, QSettings& settings, QWidget* parent);

    const HandCommands& handCommands() const { return *m_hand; }

public slots:
    /// Shows the window in front, with the keyboard in its entry.
    void open();

signals:
    void errorMessage(const QString& text);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeTitle();
    QWidget* makeTools();
    QWidget* makeFoot();
    QPushButton* newButton(const char* name);
    QPushButton* newSwitch(const char* name);
    void filter();
    void follow();
    void send();
    void save();
    void write(const QString& path);
    void say(const StatusWords& words, bool isWarning = false);
    void showDropped();
    void retranslate();

    ScpiSession& m_session;
    QSettings& m_settings;
    LogModel m_model;
    HandCommands* m_hand;
    QLabel* m_title;
    QPushButton* m_close;
    QLineEdit* m_find;
    QPushButton* m_errors;
    QPushButton* m_polls;
    QPushButton* m_pause;
    QPushButton* m_clear;
    QPushButton* m_save;
    LogTable* m_table;
    QLabel* m_prompt;
    CommandEntry* m_entry;
    QLabel* m_note;
    QLabel* m_dropped;
    StatusWords m_words; ///< of the note
};
