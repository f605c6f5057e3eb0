#pragma once

#include "link/activity.h"
#include "profiles/input_block.h"
#include "profiles/open_save_xml_file.h"
#include "ui/busy_cursor.h"

#include <QObject>

#include <optional>

class Connection;
class CwControls;
class List;
class Modulat;
class PowerGuard;
class QLineEdit;
class QWidget;
class ScpiSession;
class StepTable;
class generator;

namespace Ui
{
class MainWindow;
}

/// Defines what a profile of this program contains, and what accompanies saving and applying one.
/// Reads and writes no file itself, and sends nothing.
class PanelProfiles : public QObject
{
    Q_OBJECT

public:
    /// What a profile holds, in the order of the file.
    struct Panels {
        QWidget& window;
        Modulat& modulation;
        generator& lfGenerator;
        List& list;
    };
    /// What a replay waits for, and what ends it.
    struct Instrument {
        ScpiSession& session;
        Connection& connection;
        PowerGuard& powerGuard;
        StepTable& steps;
    };

    /// `form` is the window's.
    PanelProfiles(const Panels& panels, const Instrument& instrument, CwControls& cw,
                  const Ui::MainWindow& form, Notices& notices);

    /// For excluding panels, and for the errors that it reports.
    openSave_XML_FILE& files() { return *m_files; }

    /// Applies the file or, if there is none, the state saved by the last run. From now on the
    /// state is saved when the program ends; after a clean start nothing is restored and nothing
    /// saved.
    void applyAtStart(const QString& path, bool isClean);
    void saveLast();

signals:
    /// A profile has been applied completely: the indicators have to follow the panels' buttons.
    void applied();

private:
    /// What the user sees, and cannot do, while a profile is replayed.
    struct ReplayGuard {
        explicit ReplayGuard(const InputBlock::IsExempt& isUsable) : block(isUsable) {}
        Activity activity{[] { return tr("Applying the profile..."); }};
        BusyCursor cursor;
        InputBlock block;
    };

    openSave_XML_FILE::Owner owner();
    StatusWords refusal() const;
    QString fieldText(const QLineEdit& field) const;
    void settle();
    bool isUsable(const QWidget* widget) const;
    void setBusy(bool isBusy);
    void registerPanels();
    void registerWaits();
    void registerVariables();
    void takeExternalReference(const QString& frequencyMHz);

    Panels m_panels;
    Instrument m_instrument;
    CwControls& m_cw;
    const Ui::MainWindow& m_form;
    openSave_XML_FILE* m_files;
    std::optional<ReplayGuard> m_guard;
    bool m_isConnecting = false;
    bool m_keepsLast = false;
};
