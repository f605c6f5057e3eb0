#pragma once

#include "modulation/waveform.h"
#include "fields/describe.h"

#include <QStringList>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

// What the modulation panel and the LF generator panel are built from.

constexpr int modulationPanelWidth = 560;
constexpr int panelSpacing = 8;
constexpr int sectionMargin = 12;

/// One setting: a caption button that opens the keypad, the field, and its unit.
struct ValueRow {
    QPushButton* caption = nullptr;
    QLineEdit* field = nullptr;
    QPushButton* unit = nullptr;

    void setEnabled(bool isEnabled) const;
};

struct ValueRowNames {
    QString caption;
    QString field;
    QString unit;
};

/// Makes a row of a setting in columns 0 to 2 of a grid, holding a text. What its unit does is the
/// owner's.
ValueRow addValueRow(QGridLayout* grid, const ValueRowNames& names, const QString& text,
                     QWidget* parent);

/// Lets the unit do what the caption button does.
void joinUnitToCaption(const ValueRow& row);

/// A button that keeps its state; captioned and iconed by its owner.
QPushButton* newStateButton(const QString& objectName, QWidget* parent);

/// A button for a shape, with the shape's icon; captioned by its owner.
QPushButton* newShapeButton(WaveShape shape, const QString& objectName, QWidget* parent);

/// A source switch: checked is external. Its picture is the style sheet's.
QPushButton* newSourceSwitch(const QString& objectName, QWidget* parent);

/// Shows a checked button's icon on an indicator, which is empty else.
void showIcon(QLabel& indicator, const QPushButton* button);

/// The settings of a group in one short line.
QString summaryText(const QStringList& values);

/// What a row of a setting says in the user's language. An empty caption leaves the button's text.
struct ValueRowTexts {
    QString name; ///< in full, as for somebody who does not see where the field stands
    QString caption;
    QString unit;
    QString toolTip; ///< without what all such fields have in common
};
void retranslateValueRow(const ValueRow& row, const ValueRowTexts& texts);
void retranslateSourceSwitch(QPushButton* button, const QString& name);
