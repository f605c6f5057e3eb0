#include "tests/app/panel_walk.h"

#include "sweep/picture/list_plot.h"
#include "ui/eliding_label.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QStyleOptionHeader>
#include <QTableView>
#include <QTextDocument>
#include <QtTest>

#include <map>

namespace
{
/// Of QLineEdit, inside its contents on either side.
constexpr int lineEditMargin = 2;
/// Between a button's icon and its text.
constexpr int iconGap = 4;
constexpr int ringPixels = 2;
/// 1366 by 768 without the task bar and the shadow.
constexpr QSize leastScreen(1350, 720);
constexpr int leastRows = 14;

QString idOf(const QWidget& widget)
{
    QString text;
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        text = button->text();
    else if (const auto* label = qobject_cast<const QLabel*>(&widget))
        text = label->text();
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(), text);
}

bool isInternal(const QWidget& widget)
{
    return widget.objectName().startsWith(QLatin1String("qt_")) ||
           widget.inherits("QTableCornerButton") || qobject_cast<const QHeaderView*>(&widget);
}

/// The visible widgets of the window itself, in the order of their making.
QList<QWidget*> shownWidgets(const QWidget& window)
{
    QList<QWidget*> shown;
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->isVisible() && widget->window() == &window && !isInternal(*widget))
            shown << widget;
    }
    return shown;
}

/// What is blank while there is nothing to say, or plain all the same.
const QStringList outputs = {"status",        "device_level",     "field_line",
                             "file_List",     "log_note",         "log_dropped",
                             "keypad_limits", "plot_List_header", "run_point",
                             "label_7",       "label_9",          "label_Manual",
                             "label_Auto4",   "label_AutoPoint",  "label_PULM",
                             "label_AmPmFm",  "label_Gener",      "led"};

/// Whether a label or a button without text shows no picture either, whoever draws it.
bool isBlank(QWidget& widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if ((!button && !label) || outputs.contains(widget.objectName()) ||
        !(button ? button->text() : label->text()).isEmpty())
        return false;
    const QImage image = widget.grab().toImage();
    const int across = image.width() / 4;
    const int down = image.height() / 4;
    const QRect within = image.rect().adjusted(across, down, -across, -down);
    // A ground, shaded or not, has one colour in each row.
    return image.copy(within) == image.copy(within.translated(1, 0));
}

bool isTabStop(const QWidget& widget)
{
    return widget.isEnabled() && widget.focusPolicy() & Qt::TabFocus;
}

QString textWithoutMnemonic(const QString& text)
{
    return QString(text).remove(QRegularExpression(QStringLiteral("&(?=[^&])")));
}

bool labelFits(const QLabel& label)
{
    // Its tool-tip tells the rest.
    if (label.text().isEmpty() || qobject_cast<const ElidingLabel*>(&label))
        return true;
    if (label.wordWrap())
        return label.heightForWidth(label.width()) <= label.height();
    const QSize hint = label.sizeHint();
    return hint.width() <= label.width() && hint.height() <= label.height();
}

bool buttonFits(const QPushButton& button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    if (button.isFlat())
        option.features |= QStyleOptionButton::Flat;
    const QSize room =
        button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button).size();
    QSize needed = button.fontMetrics().size(Qt::TextSingleLine | Qt::TextShowMnemonic,
                                             textWithoutMnemonic(button.text()));
    if (button.text().contains(QLatin1Char('\n')))
        needed = button.fontMetrics().size(0, button.text());
    if (!button.icon().isNull())
        needed.rwidth() += button.iconSize().width() + iconGap;
    return needed.width() <= room.width() && needed.height() <= room.height();
}

bool fieldFits(const QLineEdit& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = 1;
    const QSize room =
        field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).size();
    return field.fontMetrics().horizontalAdvance(field.text()) <=
               room.width() - 2 * lineEditMargin &&
           field.fontMetrics().height() <= room.height();
}

QStringList clippedSections(const QHeaderView& header)
{
    QStringList faults;
    if (header.isHidden())
        return faults;
    for (int section = 0; section < header.count(); ++section) {
        QStyleOptionHeader option;
        option.initFrom(&header);
        option.text = header.model()->headerData(section, header.orientation()).toString();
        const int needed =
            header.style()
                ->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), &header)
                .width();
        const bool isAcross = header.orientation() == Qt::Horizontal;
        if (needed > (isAcross ? header.sectionSize(section) : header.width()))
            faults << QStringLiteral("clipped: header \"%1\"").arg(option.text);
    }
    return faults;
}

QStringList clippedCells(const QTableView& table)
{
    QStringList faults;
    const int margins = 2 * (table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        for (int column = 0; column < table.model()->columnCount(); ++column) {
            const QModelIndex cell = table.model()->index(row, column);
            const QString text = cell.data().toString();
            if (cell.data(Qt::ToolTipRole).isNull() &&
                table.fontMetrics().horizontalAdvance(text) + margins > table.columnWidth(column))
                faults << QStringLiteral("clipped: cell \"%1\"").arg(text);
        }
    }
    return faults;
}

/// Whether the widgets around it leave all of it to be seen. A scroll area only cuts its sides,
/// since it can be moved up and down.
bool isWhole(const QWidget& widget)
{
    QRect rect = widget.rect();
    const QWidget* inner = &widget;
    for (const QWidget* outer = widget.parentWidget(); outer && !inner->isWindow();
         inner = outer, outer = outer->parentWidget()) {
        rect.translate(inner->pos());
        if (const auto* area = qobject_cast<QAbstractScrollArea*>(outer->parentWidget())) {
            const bool scrollsAcross = area->horizontalScrollBar()->isVisible();
            return scrollsAcross || (rect.left() >= 0 && rect.right() <= outer->rect().right());
        }
        if (!outer->rect().contains(rect))
            return false;
    }
    return true;
}

bool fits(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return labelFits(*label);
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    if (button && !button->text().isEmpty())
        return buttonFits(*button);
    const auto* field = qobject_cast<const QLineEdit*>(&widget);
    return !field || fieldFits(*field);
}

/// A fault for each key that a second owner claims.
QStringList claimedTwice(const QString& where,
                         const QList<std::pair<QKeySequence, QString>>& claims)
{
    QStringList faults;
    std::map<QString, QString> owners;
    for (const auto& [keys, owner] : claims) {
        const auto [first, isNew] = owners.emplace(keys.toString(), owner);
        if (!isNew && !keys.isEmpty())
            faults << QStringLiteral("%1: %2 of \"%3\" and \"%4\"")
                          .arg(where, keys.toString(), first->second, owner);
    }
    return faults;
}

/// Two pixels of the accent colour in the middle of each side.
bool showsRing(QWidget& widget)
{
    const QImage image = widget.grab().toImage();
    // Draws the ring itself, around its picture.
    if (qobject_cast<ListPlot*>(&widget)) {
        widget.clearFocus();
        const bool isSeen = widget.grab().toImage() != image;
        widget.setFocus();
        return isSeen;
    }
    const int ratio = qRound(image.devicePixelRatio());
    // Between two pixels the ring is a mixture of colours.
    if (!qFuzzyCompare(image.devicePixelRatio(), ratio))
        return true;
    const QColor accent = themeColour(ThemeName::Light, QStringLiteral("accent"));
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    const int depth = ringPixels * ratio;
    int hits = 0;
    for (int inset = 0; inset < depth; ++inset) {
        for (const QPoint& point : {QPoint(inset, bottom / 2), QPoint(right - inset, bottom / 2),
                                    QPoint(right / 2, inset), QPoint(right / 2, bottom - inset)})
            hits += image.pixelColor(point) == accent ? 1 : 0;
    }
    return hits == 4 * depth;
}
} // namespace

QStringList unnamedControls(const QWidget& window)
{
    QStringList faults;
    const QList<QWidget*> shown = shownWidgets(window);
    for (QWidget* widget : shown) {
        const bool isControl = qobject_cast<const QAbstractButton*>(widget) ||
                               qobject_cast<const QLineEdit*>(widget) ||
                               widget->focusPolicy() & Qt::TabFocus;
        const bool isRead = isControl || qobject_cast<const QGroupBox*>(widget) ||
                            qobject_cast<const QProgressBar*>(widget);
        if (isRead && widget->accessibleName().isEmpty())
            faults << "no name: " + idOf(*widget);
        if (isControl && widget->toolTip().isEmpty())
            faults << "no tool-tip: " + idOf(*widget);
        if (isBlank(*widget))
            faults << "blank: " + idOf(*widget);
    }
    return faults;
}

QStringList clippedTexts(const QWidget& window)
{
    QStringList faults;
    const QList<QWidget*> shown = shownWidgets(window);
    for (const QWidget* widget : shown) {
        if (!fits(*widget))
            faults << "clipped: " + idOf(*widget);
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool tells = (label && !label->text().isEmpty()) ||
                           qobject_cast<const QAbstractButton*>(widget) ||
                           qobject_cast<const QLineEdit*>(widget);
        if (tells && !isWhole(*widget))
            faults << "cut off: " + idOf(*widget);
        if (const auto* table = qobject_cast<const QTableView*>(widget))
            faults += clippedSections(*table->horizontalHeader()) +
                      clippedSections(*table->verticalHeader()) + clippedCells(*table);
    }
    return faults;
}

QStringList tooLarge(const QWidget& window)
{
    QStringList faults;
    if (window.width() > leastScreen.width())
        faults << QStringLiteral("too wide: %1").arg(window.width());
    if (window.height() > leastScreen.height())
        faults << QStringLiteral("too tall: %1").arg(window.height());
    const auto scrolled = window.findChildren<QScrollArea*>();
    for (const QScrollArea* area : scrolled) {
        const int width = area->widget()->width();
        if (area->isVisible() && width > area->viewport()->width())
            faults << QStringLiteral("%1 is cut off: %2").arg(idOf(*area->widget())).arg(width);
    }
    const auto* table = window.findChild<QTableView*>(QStringLiteral("table_List"));
    if (table && table->isVisible()) {
        const int rows =
            table->viewport()->height() / table->verticalHeader()->defaultSectionSize();
        if (rows < leastRows)
            faults << QStringLiteral("rows of the list in view: %1").arg(rows);
    }
    return faults;
}

QStringList overlaps(const QWidget& window)
{
    QStringList faults;
    const QList<QWidget*> shown = shownWidgets(window);
    for (int i = 0; i < shown.size(); ++i) {
        const QWidget* widget = shown.at(i);
        const QWidget* parent = widget->parentWidget();
        // A plot and a scroll area lay out their own parts.
        if (qobject_cast<const QAbstractScrollArea*>(parent) || parent->inherits("QwtPlot"))
            continue;
        for (int other = i + 1; other < shown.size(); ++other) {
            const bool isSibling = shown.at(other)->parentWidget() == parent;
            if (isSibling && shown.at(other)->geometry().intersects(widget->geometry()))
                faults << "overlap: " + idOf(*widget) + " and " + idOf(*shown.at(other));
        }
    }
    return faults;
}

QStringList ambiguousKeys(const QWidget& window)
{
    using Claims = QList<std::pair<QKeySequence, QString>>;
    Claims mnemonics;
    const auto claimMnemonic = [](Claims& claims, const QString& text) {
        claims.append({QKeySequence::mnemonic(text), text});
    };
    const QList<QWidget*> shown = shownWidgets(window);
    for (const QWidget* widget : shown) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            claimMnemonic(mnemonics, button->text());
        else if (label && label->buddy())
            claimMnemonic(mnemonics, label->text());
    }
    QStringList faults = claimedTwice(QStringLiteral("window"), mnemonics);
    const auto menus = window.findChildren<QMenu*>();
    for (const QMenu* menu : menus) {
        Claims captions;
        const auto actions = menu->actions();
        for (const QAction* action : actions)
            claimMnemonic(captions, action->text());
        faults += claimedTwice(menu->objectName(), captions);
    }
    Claims shortcuts;
    const auto all = window.findChildren<QShortcut*>();
    for (const QShortcut* shortcut : all) {
        if (shortcut->context() != Qt::WidgetShortcut)
            shortcuts.append({shortcut->key(), shortcut->parent()->objectName()});
    }
    const auto actions = window.findChildren<QAction*>();
    for (const QAction* action : actions) {
        if (action->text().isEmpty() && !action->shortcut().isEmpty())
            faults << "action without words: " + action->objectName();
        // Another window of the same parent has keys of its own.
        const auto* owner = qobject_cast<const QWidget*>(action->parent());
        if (!owner || owner->window() == &window || qobject_cast<const QMenu*>(owner))
            shortcuts.append({action->shortcut(), action->text()});
    }
    return faults + claimedTwice(QStringLiteral("shortcuts"), shortcuts);
}

QStringList tabFaults(QWidget& window)
{
    QStringList faults;
    QList<QWidget*> stops;
    const QList<QWidget*> shown = shownWidgets(window);
    std::copy_if(shown.begin(), shown.end(), std::back_inserter(stops),
                 [](const QWidget* widget) { return isTabStop(*widget); });
    if (stops.isEmpty())
        return {QStringLiteral("no control takes the focus")};
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        const QString way = key == Qt::Key_Tab ? QStringLiteral("Tab") : QStringLiteral("Backtab");
        QList<QWidget*> missed = stops;
        stops.first()->setFocus(Qt::TabFocusReason);
        // Links of a label are stops of their own.
        const int longest = 2 * stops.size() + 4;
        for (int step = 0; step < longest && !missed.isEmpty(); ++step) {
            QWidget* focus = QApplication::focusWidget();
            if (!focus || focus->window() != &window) {
                faults << way + " leaves the window";
                break;
            }
            if (missed.removeOne(focus) && key == Qt::Key_Tab && !showsRing(*focus))
                faults << "no ring: " + idOf(*focus);
            QTest::keyClick(window.windowHandle(), key);
        }
        for (const QWidget* widget : qAsConst(missed)) {
            // An entry that closes when it is left need not be come back to.
            if (widget->isVisible())
                faults << way + " misses " + idOf(*widget);
        }
    }
    return faults;
}

QStringList tabDetours(QWidget& window)
{
    const auto placeOf = [&window](const QWidget& widget) {
        return QRect(widget.mapTo(&window, QPoint()), widget.size());
    };
    window.setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    QList<QWidget*> seen;
    QStringList detours;
    for (QWidget* here = QApplication::focusWidget(); here && !seen.contains(here);) {
        seen << here;
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        QWidget* next = QApplication::focusWidget();
        if (!next || next->window() != &window || next == here)
            break;
        const QRect from = placeOf(*here);
        const QRect to = placeOf(*next);
        // Between a whole and its parts there is no order.
        const bool isPart = here->isAncestorOf(next) || next->isAncestorOf(here);
        if (!isPart && to.top() < from.bottom() && to.left() < from.right())
            detours << "Tab from " + idOf(*here) + " back to " + idOf(*next);
        here = next;
    }
    return detours.size() > 1 ? detours : QStringList();
}
