#pragma once

#include "profiles/input_block.h"
#include "profiles/open_save_xml_file.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>
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
        fillWindow(column);
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
        addVariables(store);
        QObject::connect(m_profiles, &openSave_XML_FILE::error,
                         [this](const QString& said) { log << "error: " + said; });
        QObject::connect(m_profiles, &openSave_XML_FILE::message,
                         [this](const QString& said) { log << "message: " + said; });
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
    QString fileOf(const QByteArray& bytes) const
    {
        QFile file(path("given.xml"));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no file");
        return file.fileName();
    }

    static QByteArray bytesOf(const QString& filePath)
    {
        QFile file(filePath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList takeLog()
    {
        QStringList taken;
        taken.swap(log);
        return taken;
    }

    openSave_XML_FILE& profiles() { return *m_profiles; }
    QWidget& window() { return m_window; }
    const QTemporaryDir& folder() const { return m_folder; }

    QStringList log;
    QString refusal;
    std::function<void()> inPause;
    bool isEnding = false;

    QString text = "abc";
    double number = 1234567.0;
    int whole = -5;
    qint64 big = 12345678901234;

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

    QPushButton* addCheckable(QWidget* parent, const char* name)
    {
        auto* button = add<QPushButton>(parent, name);
        button->setCheckable(true);
        return button;
    }

    void fillWindow(QVBoxLayout*)
    {
        add<QLineEdit>(&m_window, "FREQ")->setText("25 000 000");
        addCheckable(&m_window, "ROSC")->setChecked(true);
        addCheckable(&m_window, "Output");
        add<QPushButton>(&m_window, "closeWindow");
        addCheckable(&m_window, "");
        addCheckable(&m_window, "qt_own");
        addCheckable(&m_window, "two words");
        addCheckable(&m_window, "Modulat");
        auto* dialog = new QDialog(&m_window);
        addCheckable(dialog, "of_dialog");
    }

    void fillPanel()
    {
        new QVBoxLayout(m_panel);
        auto* area = add<QScrollArea>(m_panel, "area");
        auto* inside = new QWidget;
        new QVBoxLayout(inside);
        addCheckable(inside, "AM");
        addCheckable(inside, "FM");
        add<QCheckBox>(inside, "check");
        area->setWidget(inside);
        add<QLineEdit>(m_panel, "FREQ")->setText("1 000");
        add<QLineEdit>(m_panel, "empty");
        add<QSpinBox>(m_panel, "spin");
        auto* table = add<QTableWidget>(m_panel, "table");
        table->setRowCount(1);
        table->setColumnCount(1);
        addCheckable(table->viewport(), "in_table");
        auto* box = add<QComboBox>(m_panel, "box");
        box->addItems({"5", "10", "a < b"});
        box->setEditable(true);
        QObject::connect(box, &QComboBox::textActivated,
                         [this](const QString& chosen) { log << "box = " + chosen; });
    }

    void addVariables(ProfileStore& store)
    {
        using Type = SharedVariable::Type;
        store.addVariable({"Text_Name", Type::Text, [this] { return text; },
                           [this](const QVariant& value) { text = value.toString(); }});
        store.addVariable({"Pow_Step", Type::Double, [this] { return number; },
                           [this](const QVariant& value) { number = value.toDouble(); }});
        store.addVariable({"Point_Step", Type::Int32, [this] { return whole; },
                           [this](const QVariant& value) { whole = value.toInt(); }});
        store.addVariable({"Freq_Step", Type::Int64, [this] { return big; },
                           [this](const QVariant& value) { big = value.toLongLong(); }});
    }

    openSave_XML_FILE::Owner owner()
    {
        const auto pause = [this](int ms) {
            // Between two entries only user input is processed.
            if (ms == 0)
                return !isEnding;
            log << QString("wait %1").arg(ms);
            if (inPause)
                inPause();
            return !isEnding;
        };
        const auto accepted = [](const QLineEdit& field) { return field.text(); };
        return {pause,
                [this] { return refusal; },
                accepted,
                [this] { log << "settle"; },
                [this] { log << "refresh"; },
                [this](bool isBusy) { log << (isBusy ? "busy" : "free"); }};
    }

    QTemporaryDir m_folder;
    QWidget m_window;
    QWidget* m_panel = new QWidget(&m_window);
    QWidget* m_service = new QWidget(&m_window);
    openSave_XML_FILE* m_profiles =
        new openSave_XML_FILE("KLV", m_folder.filePath("Veltro KLV"), owner(), &m_window);
};
