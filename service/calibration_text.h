#pragma once

#include <QString>
#include <QStringList>

// The texts of calibration points: as typed by a user, as read from the instrument, as sent.

/// A typed frequency in whole hertz: "2.25 GHZ" gives "2250000000". The point is moved in the text,
/// never through a floating-point number, and what is finer than one hertz is cut off. Units HZ,
/// KHZ, MHZ and GHZ, or their first letter, in any case; none is hertz. Blanks between digits do
/// not count, a comma is a point. Empty for text that is no frequency, a negative one, or one of
/// more than 15 digits.
QString wholeHertz(const QString& typed);

/// A typed whole number, plus or minus, of at most 9 digits; blanks do not count. Empty for any
/// other text.
QString wholeValue(const QString& typed);

/// The numbers in a reply that separates them by blanks, each rounded to a whole one. Characters
/// that cannot belong to a number are left out; a part that still is not a number gives an empty
/// text.
QStringList wholeNumbersOfReply(const QString& reply);
