#include "modulation/panel_parts.h"

#include "ui/describe.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace
{
constexpr int captionWidth = 112;
constexpr int leastFieldWidth = 112;
constexpr int unitWidth = 40;
constexpr int iconSide = 24;
constexpr QSize sourcePictureSize(120, 24);
constexpr int sourceWidth = 128;

QString translated(const char* text)
{
    return QCoreApplication::translate("ValueRow", text);
}
} // namespace

void ValueRow::setEnabled(bool isEnabled) const
{
    caption->setEnabled(isEnabled);
    field->setEnabled(isEnabled);
    unit->setEnabled(isEnabled);
}

ValueRow addValueRow(QGridLayout* grid, const ValueRowNames& names, NumberEdit* field)
{
    QWidget* parent = field->parentWidget();
    ValueRow row{new CaptionKey(parent), field, new QPushButton(parent)};
    row.caption->setObjectName(names.caption);
    row.caption->setProperty("valueCaption", true);
    row.caption->setFixedWidth(captionWidth);
    // A click must not take the focus from a field, which would commit what is half typed; Tab goes
    // from field to field.
    row.caption->setFocusPolicy(Qt::NoFocus);
    row.field->setObjectName(names.field);
    row.field->setAlignment(Qt::AlignRight);
    row.field->setMinimumWidth(leastFieldWidth);
    row.unit->setObjectName(names.unit);
    row.unit->setFixedWidth(unitWidth);
    row.unit->setFocusPolicy(Qt::NoFocus);

    const int line = grid->rowCount();
    grid->addWidget(row.caption, line, 0);
    grid->addWidget(row.field, line, 1);
    grid->addWidget(row.unit, line, 2);
    grid->setColumnStretch(1, 1);
    return row;
}

void joinUnitToCaption(const ValueRow& row)
{
    row.unit->setProperty("valueUnit", true);
    QObject::connect(row.unit, &QAbstractButton::clicked, row.caption, &QAbstractButton::click);
}

QPushButton* newStateButton(const QString& objectName, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(objectName);
    button->setCheckable(true);
    button->setIconSize(QSize(iconSide, iconSide));
    return button;
}

QPushButton* newShapeButton(WaveShape shape, const QString& objectName, QWidget* parent)
{
    QPushButton* button = newStateButton(objectName, parent);
    button->setProperty("shape", true);
    button->setIcon(QIcon(QLatin1String(shapeNames(shape).image)));
    return button;
}

QPushButton* newSourceSwitch(const QString& objectName, QWidget* parent)
{
    auto* button = newStateButton(objectName, parent);
    button->setProperty("sourceSwitch", true);
    button->setIconSize(sourcePictureSize);
    button->setFixedWidth(sourceWidth);
    return button;
}

void showIcon(QLabel& indicator, const QPushButton* button)
{
    if (button->isChecked())
        indicator.setPixmap(button->icon().pixmap(button->iconSize()));
    else
        indicator.clear();
}

QString externalWord()
{
    return translated(QT_TRANSLATE_NOOP("ValueRow", "EXT"));
}

QString summaryText(const QStringList& values)
{
    return values.join(QStringLiteral("  ·  "));
}

void retranslateValueRow(const ValueRow& row, const QString& caption, const QString& unit)
{
    row.field->describe();
    if (!caption.isEmpty())
        row.caption->setText(caption);
    row.unit->setText(unit);
    for (QPushButton* key : std::initializer_list<QPushButton*>{row.caption, row.unit})
        row.field->describeKeypadKey(*key);
}

void retranslateSourceSwitch(QPushButton* button, const QString& name)
{
    describe(button, name,
             translated(QT_TRANSLATE_NOOP(
                 "ValueRow", "Int-Ext switch: internal or external source of the modulation")));
    button->setAccessibleDescription(
        translated(QT_TRANSLATE_NOOP("ValueRow", "Checked: external source")));
}
