#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QToolButton;

/// Warns before the instrument is switched into its bootloader. Sends nothing; emits the user's
/// confirmation.
class Firmware : public QDialog
{
    Q_OBJECT

public:
    explicit Firmware(QWidget* parent = nullptr);

signals:
    void update();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build();
    void confirm();
    void retranslate();

    QLabel* m_caption;
    QToolButton* m_close;
    QPushButton* m_cancel;
    QPushButton* m_ok;
    QLabel* m_message;
};
