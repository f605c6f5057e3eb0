// Makes the manual's pictures of one language and theme: the window itself, operated by the names
// of its controls with the simulated instrument, draws what is saved.
#include "app/main_window.h"
#include "ui/resources.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTableWidget>
#include <QtTest>

#include <clocale>

namespace
{
/// Slides, fades and the pauses between commands are over by then.
constexpr int settleMs = 1000;

class Photographer
{
public:
    Photographer(MainWindow& window, const QDir& folder) : m_window(window), m_folder(folder) {}

    template <typename Widget>
    Widget* get(const char* name) const
    {
        auto* widget = m_window.findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr)
            qFatal("There is no %s", name);
        return widget;
    }

    void click(const char* button) const
    {
        get<QAbstractButton>(button)->click();
        QTest::qWait(settleMs);
    }

    /// A field of the panel or window that is named; some names occur in several.
    void enter(const char* owner, const char* field, const QString& text) const
    {
        const QWidget* place = QLatin1String(owner).isEmpty() ? &m_window : get<QWidget>(owner);
        auto* line = place->findChild<QLineEdit*>(QLatin1String(field));
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Return);
    }

    void save(QWidget* widget, const char* name) const
    {
        // No cursor, and no field that happens to have the focus.
        if (QWidget* focused = widget->focusWidget())
            focused->clearFocus();
        QTest::qWait(settleMs);
        const QString path = m_folder.filePath(QLatin1String(name) + QStringLiteral(".png"));
        if (!widget->grab().save(path))
            qFatal("The picture could not be saved as %s", qUtf8Printable(path));
    }

    void saveKeypad() const
    {
        click("key_FREQ");
        auto* keypad = get<QWidget>("keypad");
        QTest::keyClicks(get<QLineEdit>("keypad_entry"), QStringLiteral("2.45"));
        save(keypad, "keypad");
        keypad->close();
    }

    void saveWindow() const;
    void savePanels() const;

private:
    void saveRuns() const;
    void saveLog() const;
    void saveProfiles() const;

    MainWindow& m_window;
    QDir m_folder;
};

/// Leaves the window without modulation and with the RF output on.
void Photographer::saveWindow() const
{
    enter("", "FREQ", QStringLiteral("2.45g"));
    enter("", "POW", QStringLiteral("-10"));
    save(&m_window, "panel");
    click("open_mod");
    click("AM");
    enter("Modulat", "line_Ampl_2", QStringLiteral("30"));
    click("Output");
    save(&m_window, "overview");
    save(get<QWidget>("Modulat"), "modulation");
    click("open_mod");
    click("ROSC");
    save(&m_window, "display");
    click("ROSC");
    click("AM");
}

void Photographer::savePanels() const
{
    saveKeypad();
    click("open_gener");
    click("sine_select");
    save(&m_window, "lf-generator");
    click("sine_select");
    click("open_gener");

    saveRuns();
    click("service");
    save(get<QWidget>("service_panel"), "service");
    click("service");
    saveLog();
    saveProfiles();
}

void Photographer::saveRuns() const
{
    click("open_list");
    enter("List", "Freq_Pow", QStringLiteral("-10"));
    enter("List", "Step", QStringLiteral("21"));
    enter("List", "Time", QStringLiteral("400m"));
    click("button_Sweep");
    save(&m_window, "sweep");
    click("button_Sweep");
    click("List_is_Checked");
    click("generate_List");
    save(get<QWidget>("List"), "list");
    click("open_list");
}

void Photographer::saveLog() const
{
    m_window.findChild<QAction*>(QStringLiteral("action_log"))->trigger();
    for (const char* command : {"FREQ?", "FREQ 99999999999"})
        enter("ScpiLog", "log_send", QLatin1String(command));
    QTest::qWait(settleMs);
    save(get<QWidget>("ScpiLog"), "log");
    get<QWidget>("ScpiLog")->close();
}

void Photographer::saveProfiles() const
{
    click("profiles");
    for (const char* name : {"433 MHz AM", "2450 MHz CW", "PLL test"}) {
        enter("openSaveProfile", "profile_name", QLatin1String(name));
        QTest::qWait(settleMs);
    }
    // The notice about saving is shown in the window, not in the panel.
    save(get<QWidget>("openSaveProfile"), "profiles");
    click("profiles");
}

void chooseTheme(const MainWindow& window, const QString& theme)
{
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->data().toString() == theme)
            action->trigger();
    }
}
} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName(QStringLiteral("Veltro"));
    QCoreApplication::setApplicationName(QStringLiteral("KLV"));
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        qFatal("usage: manual_pictures en|ru light|dark FOLDER");

    StartOptions options;
    options.isDemo = true;
    options.isClean = true;
    options.language = arguments.at(1);
    MainWindow window(options);
    chooseTheme(window, arguments.at(2));
    window.start();
    if (!QTest::qWaitFor([&window] { return window.windowTitle() != QStringLiteral("KLV"); }))
        qFatal("No instrument was connected");
    QTest::qWait(settleMs);

    const Photographer photographer(window, QDir(arguments.at(3)));
    photographer.saveWindow();
    photographer.savePanels();
    return 0;
}
