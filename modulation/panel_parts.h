#pragma once

#include "fields/number_edit.h"
#include "modulation/caption_key.h"
#include "modulation/waveform.h"
#include "ui/describe.h"

#include <QStringList>

class QGridLayout;
class QLabel;
class QPushButton;
class QWidget;

// Parts of the modulation panel and the LF generator panel.

constexpr int panelSpacing = 8;
constexpr int sectionMargin = 12;

/// One setting: a caption button that opens the keypad, the field, and its unit.
struct ValueRow {
    CaptionKey* caption = nullptr;
    NumberEdit* field = nullptr;
    QPushButton* unit = nullptr;

    void setEnabled(bool isEnabled) const;
};

struct ValueRowNames {
    QString caption;
    QString field;
    QString unit;
};

/// Makes the row of a field in columns 0 to 2 of a grid. What its unit does is the owner's.
ValueRow addValueRow(QGridLayout* grid, const ValueRowNames& names, NumberEdit* field);

/// Lets the unit do what the caption button does.
void joinUnitToCaption(const ValueRow& row);

/// A button that keeps its state; captioned and iconed by its owner.
QPushButton* newStateButton(const QString& objectName, QWidget* parent);

/// A button for a shape, with the shape's icon; captioned by its owner.
QPushButton* newShapeButton(WaveShape shape, const QString& objectName, QWidget* parent);

/// A source switch: checked is external. Its picture is the style sheet's.
QPushButton* newSourceSwitch(const QString& objectName, QWidget* parent);

/// Shows a checked button's icon on an indicator, which is otherwise empty.
void showIcon(QLabel& indicator, const QPushButton* button);

/// What a lamp says of an external source.
QString externalWord();

/// The settings of a group in one short line.
QString summaryText(const QStringList& values);

/// Names a row in the user's language. An empty caption leaves the button's text.
void retranslateValueRow(const ValueRow& row, const QString& caption, const QString& unit);
void retranslateSourceSwitch(QPushButton* button, const QString& name);
