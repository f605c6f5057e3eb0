#pragma once

#include "link/activity.h"
#include "profiles/input_block.h"
#include "profiles/open_save_xml_file.h"
#include "ui/busy_cursor.h"

#include <QObject>
#include <QVector>

#include <functional>
#include <optional>

class Connection;
class CwControls;
class List;
class Modulat;
class PowerGuard;
class QLineEdit;
class ScpiSession;
class StatusLine;
class generator;

/// What a profile holds of this program, and what goes on around saving and applying one. Reads and
/// writes no file itself, and sends nothing.
class PanelProfiles : public QObject
{
    Q_OBJECT

public:
    struct Parts {
        QWidget& window;
        Modulat& modulation;
        generator& lfGenerator;
        List& list;
        CwControls& cw;
        QLineEdit& referenceEntry;
        ScpiSession& session;
        Connection& connection;
        PowerGuard& powerGuard;
        StatusLine& status;
        /// Brings indicators into line with the panels' buttons.
        std::function<void()> refreshIndicators;
        QVector<QWidget*> excluded; ///< controls, or panels with all in them
        /// Of the widgets that can be used while a profile is replayed.
        InputBlock::IsExempt isUsable;
    };

    explicit PanelProfiles(const Parts& parts);

    openSave_XML_FILE& files() { return *m_files; }

    /// Applies the file, or what the last run has kept if there is none. From now on the end of the
    /// program keeps the state; after a clean start nothing is taken over and nothing kept.
    void applyAtStart(const QString& path, bool isClean);
    void saveLast();

private:
    /// What the user sees, and cannot do, while a profile is replayed.
    struct ReplayGuard {
        explicit ReplayGuard(const InputBlock::IsExempt& isUsable) : block(isUsable) {}
        Activity activity{[] { return tr("Applying the profile..."); }};
        BusyCursor cursor;
        InputBlock block;
    };

    openSave_XML_FILE::Owner owner();
    QString refusal() const;
    QString fieldText(const QLineEdit& field) const;
    void settle();
    void setBusy(bool isBusy);
    void registerPanels();
    void registerWaits();
    void registerVariables();
    void takeExternalReference(const QString& frequencyMHz);

    Parts m_parts;
    openSave_XML_FILE* m_files;
    std::optional<ReplayGuard> m_guard;
    bool m_isConnecting = false;
    bool m_keepsLast = false;
};
