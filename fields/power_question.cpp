#include "fields/power_question.h"

#include "numbers/number_text.h"

#include <QPushButton>

namespace
{
QString signedText(double dbm)
{
    const QString number = shortestText(dbm);
    return dbm > 0.0 ? QLatin1Char('+') + number : number;
}

QString question(double fromDbm, double toDbm)
{
    return PowerQuestion::tr("Power from %1 to %2 dBm with RF on?")
        .arg(signedText(fromDbm), signedText(toDbm));
}
} // namespace

PowerQuestion::PowerQuestion(double fromDbm, double toDbm, QWidget* parent)
    : PanelDialog(tr("Large step up"), question(fromDbm, toDbm), parent)
{
    setObjectName(QStringLiteral("PowerQuestion"));
    QPushButton* raise = addButton("raise", tr("Raise"), tr("Set the higher power"));
    QPushButton* cancel = addButton("cancel", tr("Cancel"), tr("Leave the power as it is (Esc)"));
    connect(raise, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    cancel->setDefault(true);
    cancel->setFocus();
}
