#pragma once

class Connection;
class QString;
class QWidget;

/// Saves a picture of the window, once, when the connection has been idle for a moment. The suffix
/// of the path selects the image format.
void saveScreenshotOnceSettled(QWidget& window, const Connection& connection, const QString& path);
