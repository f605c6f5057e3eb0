#pragma once

#include "link/notices.h"
#include "profiles/open_save_xml_file.h"
#include "tests/support/files.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QtTest>

/// A window and a panel in it, with every sort of control, and profiles of the two. What happens is
/// recorded as one list.
class ProfileRig
{
public:
    ProfileRig()
    {
        m_window.setObjectName("MainWindow");
        m_panel->setObjectName("Modulat");
        m_service->setObjectName("service_panel");
        auto* column = new QVBoxLayout(&m_window);
        fillWindow();
        fillPanel();
        column->addWidget(m_panel);
        column->addWidget(m_service);
        add<QLineEdit>(m_service, "REF_OSC");

        ProfileStore& store = m_profiles->store();
        store.addPanel(&m_window);
        store.addPanel(m_panel);
        store.exclude(m_service);
        store.exclude(get("Output"));
        store.waitAfter({"AM"}, 450);
        using Type = SharedVariable::Type;
        for (const auto& [name, type] :
             {std::pair("Text_Name", Type::Text), std::pair("Pow_Step", Type::Double),
              std::pair("Point_Step", Type::Int32), std::pair("Freq_Step", Type::Int64)}) {
            QVariant& variable = variables[name];
            store.addVariable({name, type, [&variable] { return variable; },
                               [&variable](const QVariant& value) { variable = value; },
                               type == Type::Text});
        }
        QObject::connect(m_profiles, &openSave_XML_FILE::error,
                         [this](const QString& said) { log << "error: " + said; });
        QObject::connect(&m_notices, &Notices::said,
                         [this](const Notice& notice) { log << "message: " + notice.words(); });
        m_window.show();
    }

    template <typename Control = QWidget>
    Control* get(const char* name)
    {
        auto* control = m_window.findChild<Control*>(name);
        return control ? control : (qFatal("no %s", name), nullptr);
    }

    QString path(const QString& fileName) const { return m_folder.filePath(fileName); }

    /// Writes a file of these bytes.
    QString fileOf(const QByteArray& bytes) const { return writeFile(path("given.xml"), bytes); }

    QStringList takeLog() { return std::exchange(log, {}); }

    openSave_XML_FILE& profiles() { return *m_profiles; }
    QWidget& window() { return m_window; }

    QStringList log;
    QString refusal;
    std::function<void()> inPause;
    bool isEnding = false;
    std::map<QString, QVariant> variables = {{"Text_Name", "abc"},
                                             {"Pow_Step", 1234567.0},
                                             {"Point_Step", -5},
                                             {"Freq_Step", 12345678901234LL}};

private:
    template <typename Control>
    Control* add(QWidget* parent, const char* name)
    {
        auto* control = new Control(parent);
        control->setObjectName(name);
        if (parent->layout())
            parent->layout()->addWidget(control);
        if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            QObject::connect(button, &QAbstractButton::clicked, [this, button] {
                log << button->objectName() + (button->isChecked() ? " on" : " off");
            });
        } else if (auto* field = qobject_cast<QLineEdit*>(control)) {
            QObject::connect(field, &QLineEdit::editingFinished,
                             [this, field] { log << field->objectName() + " = " + field->text(); });
        }
        return control;
    }

    void addCheckable(QWidget* parent, std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            add<QPushButton>(parent, name)->setCheckable(true);
    }

    void fillWindow()
    {
        add<QLineEdit>(&m_window, "FREQ")->setText("25 000 000");
        add<QPushButton>(&m_window, "closeWindow");
        addCheckable(&m_window, {"ROSC", "Output", "", "qt_own", "two words", "Modulat"});
        get<QPushButton>("ROSC")->setChecked(true);
        addCheckable(new QDialog(&m_window), {"of_dialog"});
    }

    void fillPanel()
    {
        new QVBoxLayout(m_panel);
        auto* area = add<QScrollArea>(m_panel, "area");
        auto* inside = new QWidget;
        new QVBoxLayout(inside);
        addCheckable(inside, {"AM", "FM"});
        add<QCheckBox>(inside, "check");
        area->setWidget(inside);
        add<QLineEdit>(m_panel, "FREQ")->setText("1 000");
        add<QLineEdit>(m_panel, "empty");
        add<QSpinBox>(m_panel, "spin");
        addCheckable(add<QTableWidget>(m_panel, "table")->viewport(), {"in_table"});
        auto* box = add<QComboBox>(m_panel, "box");
        box->addItems({"5", "10", "a < b"});
        box->setEditable(true);
        QObject::connect(box, &QComboBox::textActivated,
                         [this](const QString& chosen) { log << "box = " + chosen; });
    }

    openSave_XML_FILE::Owner owner()
    {
        const auto pause = [this](int ms) {
            // Between two entries only user input is processed.
            if (ms > 0)
                log << QString("wait %1").arg(ms);
            if (ms > 0 && inPause)
                inPause();
            return !isEnding;
        };
        return {pause,
                [this] { return refusal.isEmpty() ? StatusWords() : [this] { return refusal; }; },
                [](const QLineEdit& field) { return field.text(); },
                [this] { log << "settle"; },
                [this] { log << "refresh"; },
                [this](bool isBusy) { log << (isBusy ? "busy" : "free"); }};
    }

    QTemporaryDir m_folder;
    Notices m_notices;
    QWidget m_window;
    QWidget* m_panel = new QWidget(&m_window);
    QWidget* m_service = new QWidget(&m_window);
    openSave_XML_FILE* m_profiles = new openSave_XML_FILE("KLV", m_folder.filePath("Veltro KLV"),
                                                          owner(), m_notices, &m_window);
};
