#include "profiles/profile_reader.h"

#include "profiles/profile_store.h"

#include <QFile>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <memory>

namespace
{
// A real profile takes some ten kilobytes, two hundred entries and three levels.
constexpr qint64 largestFile = qint64{1024} * 1024;
constexpr qint64 nameWithinBytes = 4096;
constexpr std::size_t mostEntries = 4096;
constexpr int deepestLevel = 16;
constexpr int longestText = 1024;

/// The expansion of entities could be endless.
const QLatin1String entityDeclaration("<!ENTITY");

bool decode(const QByteArray& bytes, QString* text)
{
    const std::unique_ptr<QTextDecoder> decoder(QTextCodec::codecForName("UTF-8")->makeDecoder());
    *text = decoder->toUnicode(bytes);
    return !decoder->hasFailure() && !decoder->needsMoreData() &&
           !text->contains(entityDeclaration);
}

ProfileFault profileFault(FileFault fault)
{
    switch (fault) {
    case FileFault::Missing:
        return ProfileFault::Missing;
    case FileFault::TooLarge:
        return ProfileFault::TooLarge;
    case FileFault::Cancelled:
        return ProfileFault::Cancelled;
    default:
        return ProfileFault::Unreadable;
    }
}

/// Takes entries from the tokens of a document, one after the other.
class EntryCollector
{
public:
    EntryCollector(const QString& text, const ProfileStore& store) : m_xml(text), m_store(store) {}

    ProfileFile collect()
    {
        m_xml.readNext();
        while (!m_xml.atEnd()) {
            takeToken();
            if (m_level > deepestLevel || m_file.entries.size() > mostEntries)
                m_xml.raiseError(QStringLiteral("no profile"));
        }
        if (m_xml.hasError())
            return {ProfileFault::Damaged, QString(), {}};
        if (!m_isProfile)
            return {ProfileFault::Foreign, QString(), {}};
        return std::move(m_file);
    }

private:
    /// Leaves the reader at the token after what it has taken.
    void takeToken()
    {
        if (m_xml.isEndElement())
            --m_level;
        if (!m_xml.isStartElement()) {
            m_xml.readNext();
            return;
        }
        ++m_level;
        const QString name = m_xml.name().toString();
        m_xml.readNext();
        QWidget* panel = m_store.panelNamed(name);
        if (name == ProfileStore::variablesElement() || panel) {
            m_panel = panel;
            m_isVariables = !panel;
            m_isProfile = true;
        } else {
            takeText(name);
        }
    }

    void takeText(const QString& name)
    {
        QString text;
        for (; m_xml.isCharacters(); m_xml.readNext())
            text += m_xml.text();
        if (name == m_store.nameElement() && m_file.name.isEmpty())
            m_file.name = text.simplified();
        if ((!m_panel && !m_isVariables) || text.size() > longestText)
            return;
        m_file.entries.push_back({m_isVariables, m_panel, name, text});
    }

    QXmlStreamReader m_xml;
    const ProfileStore& m_store;
    ProfileFile m_file;
    QWidget* m_panel = nullptr;
    bool m_isVariables = false;
    bool m_isProfile = false;
    int m_level = 0;
};
} // namespace

FileBytes profileBytes(const QString& path, FileProgress* progress)
{
    return readWholeFile(path, largestFile, progress);
}

ProfileFile profileOf(const FileBytes& read, const ProfileStore& store)
{
    if (read.fault != FileFault::None)
        return {profileFault(read.fault), QString(), {}};
    QString text;
    if (!decode(read.bytes, &text))
        return {ProfileFault::Damaged, QString(), {}};
    return EntryCollector(text, store).collect();
}

ProfileFile readProfile(const QString& path, const ProfileStore& store)
{
    return profileOf(profileBytes(path), store);
}

QString readProfileName(const QString& path, const ProfileStore& store)
{
    QFile file(path);
    if (openToRead(file).fault != FileFault::None)
        return QString();
    const QString text = QString::fromUtf8(file.read(nameWithinBytes));
    if (text.contains(entityDeclaration))
        return QString();
    QXmlStreamReader xml(text);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == store.nameElement())
            return xml.readElementText(QXmlStreamReader::SkipChildElements).simplified();
    }
    return QString();
}
