#include "ui/theme.h"

#include "ui/resources.h"

#include <QApplication>
#include <QDynamicPropertyChangeEvent>
#include <QFile>
#include <QFontDatabase>
#include <QPalette>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <array>

namespace
{
struct NamedColour {
    const char* name;
    const char* light;
    const char* dark;
};

// The display looks the same in both themes; what lies on it keeps its colours.
constexpr NamedColour colours[] = {
    {"body", "#eef1f4", "#1b2127"},         {"surface", "#ffffff", "#252d35"},
    {"press", "#dde4ea", "#161b21"},        {"line", "#b4bfc9", "#4a5762"},
    {"text", "#1a222a", "#e8edf2"},         {"muted", "#55626e", "#a3b0bc"},
    {"accent", "#307cb7", "#307cb7"},       {"accentText", "#1d5c8f", "#a9d3f2"},
    {"tint", "#d8e8f5", "#173049"},         {"fill", "#2a6fa6", "#2a6fa6"},
    {"onFill", "#ffffff", "#ffffff"},       {"display", "#10171d", "#0c1116"},
    {"figures", "#eef6fc", "#eef6fc"},      {"displayMuted", "#93a6b6", "#93a6b6"},
    {"displayLine", "#33424e", "#33424e"},  {"displayKey", "#1c2830", "#182129"},
    {"displayUnlit", "#7a8b99", "#7a8b99"}, {"on", "#ffb52e", "#ffb52e"},
    {"onText", "#1d1400", "#1d1400"},       {"paper", "#ffffff", "#ffffff"},
    {"warning", "#8a4b00", "#ffb86b"},      {"error", "#ff7a6b", "#ff7a6b"},
};

/// Updates a widget's style when a property that the style sheet selects by has changed.
class StateWatcher : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange && watched->isWidgetType())
            refresh(*static_cast<QWidget*>(watched),
                    static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName());
        return false;
    }

private:
    static void refresh(QWidget& widget, const QByteArray& property)
    {
        static const std::array<QByteArray, 6> states = {"connected", "lit",      "edited",
                                                         "warning",   "unlocked", "hint"};
        const bool known = std::find(states.begin(), states.end(), property) != states.end();
        if (!known || !widget.testAttribute(Qt::WA_WState_Polished))
            return;
        widget.style()->unpolish(&widget);
        widget.style()->polish(&widget);
        widget.update();
    }
};

QPalette palette(ThemeName theme)
{
    const auto colour = [theme](const char* name) {
        return themeColour(theme, QLatin1String(name));
    };
    QPalette result(colour("surface"), colour("body"));
    result.setColor(QPalette::WindowText, colour("text"));
    result.setColor(QPalette::Base, colour("surface"));
    result.setColor(QPalette::AlternateBase, colour("body"));
    result.setColor(QPalette::Text, colour("text"));
    result.setColor(QPalette::ButtonText, colour("text"));
    result.setColor(QPalette::Highlight, colour("fill"));
    result.setColor(QPalette::HighlightedText, colour("onFill"));
    result.setColor(QPalette::ToolTipBase, colour("surface"));
    result.setColor(QPalette::ToolTipText, colour("text"));
    result.setColor(QPalette::PlaceholderText, colour("muted"));
    result.setColor(QPalette::Link, colour("accentText"));
    // No link is ever shown as visited: the role carries the focus ring to what paints its own.
    result.setColor(QPalette::LinkVisited, colour("accent"));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        result.setColor(QPalette::Disabled, role, colour("muted"));
    return result;
}

void loadFonts()
{
    for (const char* face : {":/fonts/DejaVuSans.ttf", ":/fonts/DejaVuSans-Bold.ttf"})
        QFontDatabase::addApplicationFont(QLatin1String(face));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
}
} // namespace

QColor themeColour(ThemeName theme, const QString& name)
{
    for (const NamedColour& colour : colours)
        if (name == QLatin1String(colour.name))
            return QColor(QLatin1String(theme == ThemeName::Dark ? colour.dark : colour.light));
    return QColor();
}

QString styleSheet(ThemeName theme, bool russianImages)
{
    loadUiResources();
    QFile file(QStringLiteral(":/panel.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    const QString sheet = QString::fromUtf8(file.readAll());

    static const QRegularExpression variable(QStringLiteral("@(\\w+)|url\\((:[\\w/]+)\\.png\\)"));
    QString result;
    int copied = 0;
    for (auto matches = variable.globalMatch(sheet); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += sheet.midRef(copied, match.capturedStart() - copied);
        copied = match.capturedEnd();
        const QString image = match.captured(2);
        const QColor colour = themeColour(theme, match.captured(1));
        if (!image.isEmpty() && russianImages && QFile::exists(image + QLatin1String("_ru.png")))
            result += QStringLiteral("url(%1_ru.png)").arg(image);
        else
            result += colour.isValid() ? colour.name() : match.captured();
    }
    return result + sheet.midRef(copied);
}

void applyTheme(QApplication& application, ThemeName theme, bool russianImages)
{
    static bool first = true;
    if (first) {
        first = false;
        loadUiResources();
        loadFonts();
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        // A steady cursor: blinking was all that the idle program did.
        QApplication::setCursorFlashTime(0);
        application.installEventFilter(new StateWatcher(&application));
    }
    QApplication::setPalette(palette(theme));
    application.setStyleSheet(styleSheet(theme, russianImages));
}
