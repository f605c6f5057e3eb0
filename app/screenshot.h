#pragma once

class Connection;
class QString;
class QWidget;

/// Saves a picture of the window, once, when nothing has been going on with the connection for a
/// moment. The suffix of the path names the kind of picture.
void saveScreenshotOnceSettled(QWidget& window, const Connection& connection, const QString& path);
