#include "app/level_offset.h"

#include "app/device_level.h"
#include "numbers/number_text.h"
#include "ui/describe.h"
#include "ui/named.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

#include <cmath>

namespace
{
/// A comma is the decimal point, too.
double offsetOf(QString text)
{
    return toNumber(text.replace(QLatin1Char(','), QLatin1Char('.')));
}

bool isOffset(const QString& text)
{
    QString plain = text;
    plain.replace(QLatin1Char(','), QLatin1Char('.'));
    return readsAsNumber(plain) && std::abs(offsetOf(text)) <= DeviceLevel::largestOffsetDb;
}
} // namespace

LevelOffset::LevelOffset(std::optional<double> offsetDb, QWidget* parent)
    : NumberDialog({tr("Level at the device"),
                    tr("By how much the level at the device under test differs from that at the "
                       "output: -3.2 for a cable or an attenuator, 20 for an amplifier. Only what "
                       "is shown changes, nothing is sent. Empty: not shown."),
                    tr("dB"), tr("Show the level at the device (Enter)"),
                    QStringLiteral("take_offset")},
                   parent)
{
    setObjectName(QStringLiteral("LevelOffset"));
    auto* field =
        named("line_offset", new QLineEdit(offsetDb ? shortestText(*offsetDb) : QString(), this));
    field->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("-?[0-9]{0,3}([.,][0-9]{0,2})?")), field));
    describe(field, tr("Level at the device"), tr("Decibels from -200 to 200, or nothing"));
    ask(*field, isOffset);
    connect(this, &NumberDialog::chosen, this, [this](const QString& text) {
        emit offsetChosen(text.isEmpty() ? std::nullopt : std::optional(offsetOf(text)));
    });
}
