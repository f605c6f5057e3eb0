#pragma once

#include <QStringList>

class QWidget;

// What a user would stumble over in a window as it stands: one line per fault, none when all is
// well. Hidden widgets and what the toolkit keeps to itself are passed over.

/// Controls without an accessible name or a tool-tip, and groups without a name.
QStringList unnamedControls(const QWidget& window);

/// Texts of labels, buttons, fields, headers and cells that do not fit where they stand.
QStringList clippedTexts(const QWidget& window);

/// A window that needs more than the least screen has beside its task bar, what is cut off at the
/// side of a panel, and too few rows of the list in view.
QStringList tooLarge(const QWidget& window);

/// Visible widgets of one parent that lie on each other.
QStringList overlaps(const QWidget& window);

/// Mnemonics that stand twice in the window or in one of its menus, and keys that two of its
/// controls or actions claim.
QStringList ambiguousKeys(const QWidget& window);

/// Walks the shown and active window by Tab and back: what the walk misses, where it leaves the
/// window, and which control does not show its focus by a ring of two pixels.
QStringList tabFaults(QWidget& window);

/// Where Tab, on its way round the shown and active window, leads against the order of reading: up,
/// or to the left in a row. Once is the way back to the start.
QStringList tabDetours(QWidget& window);
