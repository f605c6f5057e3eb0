#pragma once

#include "link/activity.h"

#include <QDialog>

class QLabel;
class QPushButton;

/// The About box: revisions, the VISA library in use, serial number and calibration due date of the
/// connected instrument, licence and links. Shows what it is given and asks for the firmware
/// update; sends nothing.
class Form : public QDialog
{
    Q_OBJECT

public:
    explicit Form(QWidget* parent = nullptr);

    /// Each empty when no instrument is connected.
    void setSerial(const QString& serial);
    void setFirmware(const QString& version);
    /// `date` as "dd.MM.yyyy". Red when it is today or past, or no such date.
    void setCalibrationDue(const QString& date);

    /// Called for the VISA library in use when the box opens.
    void setLibraryWords(const std::function<StatusWords()>& words) { m_libraryWords = words; }

signals:
    /// The user wants to update the instrument's firmware.
    void updateFirmware();

public slots:
    void openLicense(const QString& link);
    /// Forgets the instrument.
    void empty();
    void on_pushButton_clicked();
    void showAbout();

protected:
    void changeEvent(QEvent* event) override;

private:
    void requestUpdate();
    void showLibrary();
    void retranslate();

    QLabel* m_title;
    QPushButton* m_close;
    QLabel* m_calibrationCaption;
    QLabel* m_calibrationDate;
    QPushButton* m_update;
    QLabel* m_product;
    QLabel* m_softwareRevision;
    QLabel* m_toolkit;
    QLabel* m_libraryLine;
    QLabel* m_firmwareLine;
    QLabel* m_serialLine;
    QLabel* m_support;
    QLabel* m_updateLinks;
    QLabel* m_license;
    QString m_serial;
    QString m_firmware;
    std::function<StatusWords()> m_libraryWords;
};
