#pragma once

#include "link/activity.h"

class QWidget;

/// The manual's page about a side panel, by its name without language and suffix; null: its
/// contents.
QString helpPageOf(const QWidget* panel);

/// The help for a program in `applicationFolder`: the first file there whose name contains "KLV"
/// and "chm"; without one `page` of the manual in the language "en" or "ru", where a build or an
/// installation puts it, or the contents where that page is missing. Empty when there is none.
QString helpFile(const QString& applicationFolder, const QString& languageCode,
                 const QString& page = QStringLiteral("index"));

/// Opens the page in the program's language. None, or the notice for the user: that there is no
/// help file and where it was searched, or that nothing could open it.
StatusWords openHelp(const QString& page);
