#pragma once

#include "ui/side_panel.h"

#include <QFileSystemWatcher>
#include <QTimer>
#include <QVector>

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QVBoxLayout;
class QuickProfileRow;
class openSave_XML_FILE;

/// The profiles panel: quick profiles to apply, save, rename and delete, and the files of profiles.
/// Follows the files that appear and vanish in the folder. It reads and writes none itself.
class openSaveProfile : public SidePanel
{
    Q_OBJECT

public:
    /// The keys that apply quick profiles work in the whole window of `parent`.
    openSaveProfile(openSave_XML_FILE& profiles, QWidget* parent);

    /// Applies the quick profile that has this number, which counts from 1, if there is one.
    void applyNumber(int number);

public slots:
    /// Shows the quick profiles that there are now.
    void refresh();

protected:
    void retranslate() override;
    void showEvent(QShowEvent* event) override;

private:
    struct QuickProfile {
        QString path;
        QString name;
        int number;
        bool operator==(const QuickProfile& other) const
        {
            return path == other.path && name == other.name && number == other.number;
        }
    };

    void build();
    void wire();
    void watchFolder();
    void showRows();
    void addRows(int count);
    void addRowsAhead();
    void addRow(const QuickProfile& profile);
    void showRecalled();
    void showNumbers(const QuickProfile& profile, QWidget* at);
    void saveNamed();
    void saveAs(const QString& name);
    void askToDelete(const QuickProfile& profile);

    openSave_XML_FILE& m_profiles;
    QFileSystemWatcher m_watcher;
    QTimer m_changes;
    QVector<QuickProfile> m_found;
    QVector<QuickProfile> m_shown;
    QVector<QuickProfileRow*> m_rows;

    QLabel* m_heading;
    QLabel* m_none;
    QScrollArea* m_scroll;
    QVBoxLayout* m_list;
    QLabel* m_nameCaption;
    QLineEdit* m_name;
    QPushButton* m_save;
    QPushButton* m_open;
    QPushButton* m_saveFile;
};
