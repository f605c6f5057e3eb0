#pragma once

#include <QString>

/// The folder of the user's lists and profiles, in their documents; it need not exist yet.
QString userFolder();

/// The same folder, created when it is missing. If that fails, writing into it reports the error.
QString madeUserFolder();
