#pragma once

#include <QString>

/// Where the user's lists and profiles lie, among their documents; it need not be there yet.
QString userFolder();

/// The same folder, made when it is missing. Where that fails, whoever writes into it will say so.
QString madeUserFolder();
