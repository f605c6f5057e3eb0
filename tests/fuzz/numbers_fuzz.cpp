#include "tests/fuzz/fuzz.h"

#include "numbers/field_kind.h"
#include "numbers/number_text.h"
#include "numbers/readable_quantity.h"
#include "numbers/step_kind.h"
#include "numbers/stepping.h"

#include <cmath>

/// Numbers as typed, as answered and as stepped: always finite, bounded by the limits, and stable
/// when taken again.
void run(Bytes bytes)
{
    const auto kind = static_cast<FieldKind>(bytes.byte() % fieldKindCount);
    const auto step = static_cast<StepKind>(bytes.byte() % stepKindCount);
    const std::uint8_t choice = bytes.byte();
    double limits[] = {bytes.number<double>(), bytes.number<double>()};
    const double typedStep = bytes.number<double>();
    const QString text = QString::fromStdString(bytes.rest());

    const double value = toNumber(text);
    PROMISE(std::isfinite(value));
    PROMISE(toNumber(shortestText(value)) == value);
    PROMISE(std::isfinite(microsecondsFromReply(text)) && std::isfinite(megahertzFromReply(text)));
    PROMISE(std::isfinite(toNumber(displayText(text, kind))));
    groupDigits(text);
    trimZeros(text);
    padTwoDecimals(text);
    parseUnitReply(text);
    secondsText(text);
    readableQuantity(value, static_cast<Unit>(choice % 7));
    const QString converted = convertUnitKeys(text, static_cast<UnitFamily>(choice % 4));
    PROMISE(convertUnitKeys(converted, static_cast<UnitFamily>(choice % 4)) == converted);

    std::sort(std::begin(limits), std::end(limits));
    if (std::isfinite(limits[0]) && std::isfinite(limits[1]) && !withoutBlanks(text).isEmpty()) {
        const bool isBounded = limits[0] != 0.0 || limits[1] != 0.0;
        const QString clamped = clampText(text, limits[0], limits[1], kind);
        const double bounded = toNumber(clamped);
        PROMISE(!isBounded || (limits[0] <= bounded && bounded <= limits[1]));
        // A limit is written in full at first; typed again it is rounded, and then stays.
        const QString again = clampText(clamped, limits[0], limits[1], kind);
        const bool isSane = std::abs(limits[0]) < 1e12 && std::abs(limits[1]) < 1e12;
        PROMISE(!isSane || clampText(again, limits[0], limits[1], kind) == again);
    }
    PROMISE(isPossibleStep(step, acceptedStep(step, text, 0, 0)));
    stepText(acceptedStep(step, text, 0, 0));

    const int direction = (choice & 1) != 0 ? 1 : -1;
    const StepFlags flags{(choice & 2) != 0, (choice & 4) != 0};
    const double increment = isPossibleStep(step, typedStep) ? typedStep : defaultStep(step);
    PROMISE(std::isfinite(toNumber(steppedText(text, direction, step, increment, flags))));
    const int place = choice % 32 - 12;
    const QString once = steppedPlace(text, place, direction, false);
    PROMISE(steppedPlace(steppedPlace(once, place, -direction, false), place, direction, false) ==
            once);
    const int cursor = choice % (text.size() + 1);
    if (const std::optional<int> at = decimalPlaceAt(text, cursor)) {
        const QString stepped = steppedPlace(text, *at, direction, (choice & 8) != 0);
        const int behind = cursorBehindPlace(stepped, *at);
        PROMISE(0 <= behind && behind <= stepped.size());
    }
}
