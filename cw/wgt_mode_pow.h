#pragma once

#include <QDialog>

class QAbstractButton;
class QFrame;
class QLabel;
class QPushButton;

/// Asks whether to switch the maximum-power mode, beside the button that opens it. Knows which of
/// its two questions comes next and nothing about the instrument.
class WgtModePow : public QDialog
{
    Q_OBJECT

public:
    /// Opens beside `opener` when that is clicked; it outlives the prompt.
    WgtModePow(const QAbstractButton& opener, QWidget* parent);

signals:
    void signalSwitchMode();

public slots:
    void open() override;
    /// The next opening asks the opposite question.
    void slotSwitchText();
    void slotShowChilds();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void fadeIn();
    void retranslate();
    void confirm();

    const QAbstractButton& m_opener;
    QFrame* m_plate;
    QPushButton* m_yes;
    QPushButton* m_cancel;
    QLabel* m_firstLabel;
    QLabel* m_lastLabel;
    QString m_firstPrompt;
    QString m_lastPrompt;
    bool m_asksLast = false;
};
