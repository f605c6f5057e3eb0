#pragma once

#include <QObject>
#include <QString>

class Connection;
class Form;
class QLabel;
class QWidget;
class ScpiSession;
class animLabel;
class service;
struct InstrumentIdentity;

/// Shows which instrument is connected: on the main window, in the About box and on the service
/// panel; and the lamp of its error 329. Owns no widget.
class InstrumentDisplay : public QObject
{
    Q_OBJECT

public:
    struct Widgets {
        QLabel& device;
        QWidget& lamp; ///< lit by its property "connected", as is the device
        animLabel& error329;
    };

    InstrumentDisplay(const Widgets& widgets, Form& about, service& panel,
                      const ScpiSession& session, const Connection& connection);

    /// In the current language.
    void retranslate();

private:
    void show(const InstrumentIdentity& identity);
    void forget();
    void showDevice();
    void light(bool isConnected);
    void show329(const QString& message);

    Widgets m_ui;
    Form& m_about;
    service& m_panel;
    QString m_name; ///< empty: no instrument
};
