#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class ProfileStore;
class QAbstractButton;
class QComboBox;
class QLineEdit;
struct SharedVariable;

/// The text that a profile holds for a field: not one that is still being typed.
using FieldText = std::function<QString(const QLineEdit& field)>;

// Profile files are written as one document of one element each for the name, every panel with its
// controls, and the variables.

/// What the file holds of one of them.
QString entryText(const QAbstractButton& button, const FieldText& fieldText);
QString entryText(const QLineEdit& field, const FieldText& fieldText);
QString entryText(const QComboBox& box, const FieldText& fieldText);
QString entryText(const SharedVariable& variable);

/// The current state of everything in the store, as the file holds it: UTF-8, indented by one.
QByteArray profileDocument(const ProfileStore& store, const QString& profileName,
                           const FieldText& fieldText);

/// The same profile under another name; empty if it is none.
QByteArray renamedDocument(const QByteArray& document, const ProfileStore& store,
                           const QString& profileName);
