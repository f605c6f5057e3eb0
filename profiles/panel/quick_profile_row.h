#pragma once

#include <QKeySequence>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

/// How many quick profiles have a key.
constexpr int quickProfileKeys = 9;
/// The key that applies the quick profile of that number, which counts from 1; else none.
QKeySequence quickProfileKey(int number);

/// One quick profile in the panel: the button that applies it, and what renames and deletes it. It
/// touches no file.
class QuickProfileRow : public QWidget
{
    Q_OBJECT

public:
    /// The number counts from 1.
    QuickProfileRow(int number, const QString& name, QWidget* parent);

    int number() const { return m_number; }
    QPushButton* apply() const { return m_apply; }
    /// Marks the profile that was recalled last, and whether the panels differ from it since.
    void showRecalled(bool isRecalled, bool differs);

    void retranslate();

signals:
    void applyWanted();
    /// Another number is to be chosen in a menu below `at`.
    void numberWanted(QWidget* at);
    void renameWanted(const QString& name);
    void deleteWanted();

protected:
    /// Escape, or leaving it, puts the entry of the new name away.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build();
    void showName();
    void fitName();
    void openEntry();
    void closeEntry();

    int m_number;
    QString m_name;
    QPushButton* m_apply;
    QLineEdit* m_entry;
    QLabel* m_differs;
    QPushButton* m_key;
    QToolButton* m_rename;
    QToolButton* m_delete;
};
