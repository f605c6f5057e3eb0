#include "profiles/profile_writer.h"

#include "profiles/profile_store.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDomDocument>
#include <QLineEdit>

namespace
{
constexpr int indentation = 1;

/// Without characters that XML does not allow, which would make the whole document unreadable.
QString xmlText(const QString& text)
{
    QString kept;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        const bool isPair =
            character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            kept += text.at(i++);
        const ushort code = character.unicode();
        const bool isControl = code < 0x20 && code != '\t' && code != '\n';
        if (isPair || (!isControl && !character.isSurrogate() && code < 0xFFFE))
            kept += text.at(i);
    }
    return kept;
}

void append(QDomDocument& document, QDomElement& parent, const QString& name, const QString& text)
{
    QDomElement element = document.createElement(name);
    element.appendChild(document.createTextNode(xmlText(text)));
    parent.appendChild(element);
}

template <typename Control>
void appendControls(QDomDocument& document, QDomElement& element, const ProfileStore& store,
                    const QWidget& panel, const FieldText& fieldText)
{
    for (const Control* control : store.controls<Control>(panel))
        append(document, element, control->objectName(), entryText(*control, fieldText));
}
} // namespace

QString entryText(const QAbstractButton& button, const FieldText& /*fieldText*/)
{
    return button.isChecked() ? QStringLiteral("ON") : QStringLiteral("OFF");
}

QString entryText(const QLineEdit& field, const FieldText& fieldText)
{
    return fieldText(field) + QStringLiteral(" 0");
}

QString entryText(const QComboBox& box, const FieldText& /*fieldText*/)
{
    return box.currentText() + QStringLiteral(" 1");
}

QString entryText(const SharedVariable& variable)
{
    const QVariant value = variable.value();
    switch (variable.type) {
    case SharedVariable::Type::Text:
        break;
    case SharedVariable::Type::Double:
        return QString::number(value.toDouble(), 'g', 6) + QStringLiteral(" 1");
    case SharedVariable::Type::Int32:
        return QString::number(value.toInt()) + QStringLiteral(" 2");
    case SharedVariable::Type::Int64:
        return QString::number(value.toLongLong()) + QStringLiteral(" 3");
    }
    return value.toString() + QStringLiteral(" 0");
}

QByteArray profileDocument(const ProfileStore& store, const QString& profileName,
                           const FieldText& fieldText)
{
    QDomDocument document(store.documentName());
    QDomElement root = document.createElement(store.documentName());
    document.appendChild(root);
    append(document, root, store.nameElement(), profileName);
    for (const QWidget* panel : store.panels()) {
        QDomElement element = document.createElement(panel->objectName());
        appendControls<QAbstractButton>(document, element, store, *panel, fieldText);
        appendControls<QLineEdit>(document, element, store, *panel, fieldText);
        appendControls<QComboBox>(document, element, store, *panel, fieldText);
        root.appendChild(element);
    }
    QDomElement variables = document.createElement(ProfileStore::variablesElement());
    for (const SharedVariable& variable : store.variables())
        append(document, variables, variable.name, entryText(variable));
    root.appendChild(variables);
    return document.toString(indentation).toUtf8();
}

QByteArray renamedDocument(const QByteArray& document, const ProfileStore& store,
                           const QString& profileName)
{
    QDomDocument renamed;
    // As the reader takes it: UTF-8, whatever encoding it declares.
    if (!renamed.setContent(QString::fromUtf8(document)))
        return QByteArray();
    // The first one wherever it stands, as the reader takes it.
    QDomElement element = renamed.elementsByTagName(store.nameElement()).at(0).toElement();
    if (element.isNull()) {
        element = renamed.createElement(store.nameElement());
        renamed.documentElement().insertBefore(element, QDomNode());
    }
    // Its text alone: other elements may lie within.
    const QDomNodeList children = element.childNodes();
    for (int i = children.size() - 1; i >= 0; --i) {
        if (children.at(i).isText())
            element.removeChild(children.at(i));
    }
    element.insertBefore(renamed.createTextNode(xmlText(profileName)), QDomNode());
    return renamed.toString(indentation).toUtf8();
}
